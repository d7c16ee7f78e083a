"""On a screen smaller than the window's least size it opens nevertheless, and everything on it can be reached."""

import sys
import unittest

import home
from events import eventually, eventually_seen
from window import Window, xdotool

PROGRAM = sys.argv.pop()
SCREEN = (1024, 600)


class SmallScreen(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.window = self.enterContext(Window(PROGRAM))

    def test_the_window_fits_the_screen(self):
        eventually("the window is as large as the screen", lambda: self.window.geometry == (0, 0, *SCREEN))

    def is_on_screen(self, role, name):
        element = self.window.find(role, name)
        if not element:
            return False
        x, y = element.center
        return 0 <= x < SCREEN[0] and 0 <= y < SCREEN[1]

    def test_what_lies_outside_is_scrolled_to(self):
        eventually("the window is as large as the screen", lambda: self.window.geometry == (0, 0, *SCREEN))
        self.assertFalse(self.is_on_screen("push button", "Notifications"))

        xdotool("mousemove", 40, 500)
        xdotool("click", "--repeat", 10, 7)  # The wheel, to the right.

        eventually_seen("the last button of the bar is on the screen",
                        lambda: self.is_on_screen("push button", "Notifications"))
        self.window.click("push button", "Theme: Dark")
        self.window.wait("push button", "Theme: Light")

        self.assertFalse(self.is_on_screen("push button", "SCAN MY MAC"))
        xdotool("mousemove", 900, 80, "click", "--repeat", 10, 5)
        eventually_seen("the button at the bottom is on the screen",
                        lambda: self.is_on_screen("push button", "SCAN MY MAC"))
        self.window.click("push button", "SCAN MY MAC")
        eventually_seen("the last button of the results is on the screen",
                        lambda: self.is_on_screen("push button", "Move to Trash"))

    def test_what_the_keyboard_reaches_comes_into_view(self):
        eventually("the window is as large as the screen", lambda: self.window.geometry == (0, 0, *SCREEN))
        self.assertFalse(self.is_on_screen("push button", "Notifications"))

        for name in ("Notifications", "Scan", "SCAN MY MAC"):
            for _ in range(20):
                if self.window.tab().name == name:
                    break
            eventually_seen(f"{name} is on the screen", lambda: self.is_on_screen("push button|radio button", name))


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
