"""On a screen smaller than the window's minimum size everything is drawn smaller, and nothing is missing."""

import sys
import unittest

import home
from events import eventually, eventually_seen
from window import Window

PROGRAM = sys.argv.pop()
SCREEN = (1024, 600)
SCALE = SCREEN[0] / 1350  # Qt reports it to assistive technology in positions, but not in sizes.


class SmallScreen(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.window = self.enterContext(Window(PROGRAM))
        eventually("the window is as large as the screen", lambda: self.window.geometry == (0, 0, *SCREEN))

    def check_is_on_screen(self, element):
        box = element.extents
        with self.subTest(element):
            self.assertTrue(box.x >= 0 and box.y >= 0)
            self.assertTrue(box.x + box.width * SCALE <= SCREEN[0] and
                            box.y + box.height * SCALE <= SCREEN[1])

    def check_controls_are_on_screen(self, *names):
        for name in names:
            self.check_is_on_screen(self.window.wait("push button|radio button", name))

    def test_every_control_is_on_the_screen_and_a_mouse_reaches_it(self):
        self.check_controls_are_on_screen("Close", "Minimise", "Zoom", "Theme: Dark", "Notifications", "Settings",
                                          "SCAN MY MAC")
        self.window.click("push button", "Theme: Dark")
        self.window.wait("push button", "Theme: Light")

        self.window.scan()
        self.check_controls_are_on_screen("Review", "View report", "Move to Trash")
        self.window.click("radio button", "Review")
        self.window.wait("radio button", "Review", state="checked")
        self.window.click("push button", "View report")
        self.window.wait("heading", "Cleanup report")

    def test_what_lies_over_the_window_is_as_small_as_the_window(self):
        self.window.scan()
        self.window.click("check box", "Rebuildable.*", button=3)
        self.check_is_on_screen(self.window.wait("menu item", "Show items…"))
        self.window.click("menu item", "Show items…")
        self.window.wait("dialog", "Rebuildable project folders")
        left = (SCREEN[0] - 820 * SCALE) / 2
        eventually_seen("the sheet is as small as the window",
                        lambda: abs(self.window.find("dialog").extents.x - left) <= 1)

        self.window.click("push button", "Done")
        self.window.wait_without("dialog")


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
