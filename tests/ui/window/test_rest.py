"""Endless animations pause while nobody can see them."""

import sys
import unittest
from pathlib import Path

import home
from window import Window, eventually, xdotool

PROGRAM = sys.argv.pop()
LOOKS = 40  # Two seconds of them, in which the landing screen breathes many steps.


class Rest(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.window = self.enterContext(Window(PROGRAM))
        self.window.wait("push button", "Scan")
        eventually("the window moves", self.moves())

    def processor_time(self):
        """What the program has taken, in hundredths of a second."""
        fields = Path(f"/proc/{self.window.process.pid}/stat").read_text().rpartition(")")[2].split()
        return int(fields[11]) + int(fields[12])

    def moves(self):
        begun = self.processor_time()
        return lambda: self.processor_time() > begun + 20

    def rests(self):
        seen = []

        def is_at_rest():
            seen.append(self.processor_time())
            return len(seen) > LOOKS and seen[-1] == seen[-LOOKS]

        return is_at_rest

    def test_while_it_is_minimised(self):
        self.window.click("push button", "Minimise")
        eventually("the window rests", self.rests())

        xdotool("windowactivate", self.window.id)
        eventually("the window moves again", self.moves())


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
