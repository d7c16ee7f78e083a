"""Endless animations pause while nobody can see them, or while motion is reduced."""

import sys
import time
import unittest
from contextlib import closing
from pathlib import Path

import home
from events import eventually_seen
from portal import Portal
from window import Window

PROGRAM = sys.argv.pop()
AT_REST = 2  # Seconds, in which the landing screen's animation would make many steps.


class Rest(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.window = self.enterContext(Window(PROGRAM))
        self.window.wait("push button", "Scan")
        eventually_seen("the window moves", self.moves())

    def processor_time(self):
        """The processor time of the program, in hundredths of a second."""
        fields = Path(f"/proc/{self.window.process.pid}/stat").read_text().rpartition(")")[2].split()
        return int(fields[11]) + int(fields[12])

    def moves(self):
        begun = self.processor_time()
        return lambda: self.processor_time() > begun + 20

    def rests(self):
        """Whether it has taken no processor time for a while: there is no event for that."""
        taken, since = None, None

        def is_at_rest():
            nonlocal taken, since
            if (now := self.processor_time()) != taken:
                taken, since = now, time.monotonic()
            return time.monotonic() > since + AT_REST

        return is_at_rest

    def test_while_it_is_minimised(self):
        self.window.click("push button", "Minimise")
        eventually_seen("the window is minimised", lambda: self.window.is_minimised)
        eventually_seen("the window rests", self.rests())

        self.window.activate()
        eventually_seen("the window moves again", self.moves())

    def test_where_the_desktop_wishes_less_motion(self):
        with closing(Portal(reduced_motion=1)) as portal:
            eventually_seen("the window rests", self.rests())

            portal.change(reduced_motion=0)
            eventually_seen("the window moves again", self.moves())


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
