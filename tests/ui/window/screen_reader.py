"""Orca, the screen reader, unchanged except that it writes what it says to standard output, one utterance per line.
For each line on its standard input it writes an empty line once it has nothing left to do."""

import sys

from gi.repository import GLib
from orca import orca
from orca.speechserver import SpeechServer as Silence

SETTINGS = {"speechServerFactory": "screen_reader", "enableBraille": False, "enableSound": False}


class SpeechServer(Silence):
    """The speech server of Orca, which finds this module by its name."""

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
    GLib.idle_add(_answer, priority=GLib.PRIORITY_LOW)  # After Orca's own idle work.
    return GLib.SOURCE_CONTINUE


def main(folder):
    """Runs Orca with its settings in this folder."""
    GLib.io_add_watch(sys.stdin.fileno(), GLib.PRIORITY_DEFAULT, GLib.IOCondition.IN, _be_asked)
    orca.getSettingsManager().activate(folder, SETTINGS)
    return orca.main()


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
