"""The window follows the settings of the desktop."""

import sys
import unittest
from contextlib import closing

import home
from events import eventually_seen
from portal import Portal
from window import Window

PROGRAM = sys.argv.pop()
NO_PREFERENCE, DARK, LIGHT = 0, 1, 2
PLAIN, CONTRASTING = 0, 1
GREEN = {PLAIN: (128, 189, 196), CONTRASTING: (148, 199, 205)}
BACKGROUND = {DARK: (14, 22, 24), LIGHT: (243, 248, 249)}


class DesktopSettings(unittest.TestCase):
    def setUp(self):
        home.fill()
        with home.PREFERENCES.open("a", encoding="utf-8") as preferences:
            preferences.write("tidloTheme=system\n")

    @staticmethod
    def is_drawn(window, scheme):
        left, top, width, height = window.geometry
        return window.screen.color_at(left + width - 40, top + height - 40) == BACKGROUND[scheme]

    def test_the_scheme_follows_it(self):
        for first, then in ((DARK, LIGHT), (LIGHT, DARK)):
            with closing(Portal(color_scheme=first)) as portal, Window(PROGRAM) as window:
                eventually_seen("it is as the desktop", lambda: self.is_drawn(window, first))

                portal.change(color_scheme=then)
                eventually_seen("it follows the desktop", lambda: self.is_drawn(window, then))

                window.click("push button", "Close")
                self.assertEqual(window.ended(), 0)

    def test_the_contrast_follows_it(self):
        with closing(Portal(color_scheme=DARK, contrast=CONTRASTING)) as portal, Window(PROGRAM) as window:
            button = window.wait("push button", "SCAN MY MAC").extents

            def is_drawn(contrast):
                return window.screen.color_at(button.x + 10, button.y + button.height // 2) == GREEN[contrast]

            eventually_seen("it is as the desktop", lambda: is_drawn(CONTRASTING))
            portal.change(contrast=PLAIN)
            eventually_seen("it follows the desktop", lambda: is_drawn(PLAIN))


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
