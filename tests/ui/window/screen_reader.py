"""Orca, the screen reader, with nothing changed but what sounds: it writes what it says to standard output, an utterance
a line. Whenever a line comes to its standard input it writes an empty one as soon as it has nothing left to do."""

import sys

from gi.repository import GLib
from orca import orca
from orca.speechserver import SpeechServer as Silence

SETTINGS = {"speechServerFactory": "screen_reader", "enableBraille": False, "enableSound": False}


class SpeechServer(Silence):
    """What Orca speaks with: it finds this by the name of the module."""

    @staticmethod
    def getSpeechServer(_info=None):
        return SpeechServer()

    def speak(self, text=None, _acss=None, _interrupt=True):
        if said := (text or "").strip():
            print(" ".join(said.split()), flush=True)


def _answer():
    print(flush=True)
    return GLib.SOURCE_REMOVE


def _be_asked(*_):
    if not sys.stdin.readline():
        return GLib.SOURCE_REMOVE
    GLib.idle_add(_answer, priority=GLib.PRIORITY_LOW)  # After what Orca does when it is idle.
    return GLib.SOURCE_CONTINUE


def main(folder):
    """Keeps its settings there."""
    GLib.io_add_watch(sys.stdin.fileno(), GLib.PRIORITY_DEFAULT, GLib.IOCondition.IN, _be_asked)
    orca.getSettingsManager().activate(folder, SETTINGS)
    return orca.main()


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
