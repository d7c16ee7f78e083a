"""On a screen too small to show everything readably, the content scrolls in both directions."""

import sys
import unittest

import home
from events import eventually, eventually_seen
from window import Window

PROGRAM = sys.argv.pop()
SCREEN = (900, 500)
DOWN, RIGHT = 5, 7  # The wheel's button numbers.
SCALE = 0.75  # Qt reports it to assistive technology in positions, but not in sizes.


class TinyScreen(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.window = self.enterContext(Window(PROGRAM))
        eventually("the window is as large as the screen", lambda: self.window.geometry == (0, 0, *SCREEN))

    def is_on_screen(self, name):
        element = self.window.find("push button|radio button", name)
        if not element:
            return False
        box = element.extents
        right, bottom = box.x + int(box.width * SCALE), box.y + int(box.height * SCALE)  # Positions are whole pixels.
        return box.x >= 0 and box.y >= 0 and right <= SCREEN[0] and bottom <= SCREEN[1]

    def check_is_scrolled_to(self, name):
        eventually_seen(f"{name} is on the screen", lambda: self.is_on_screen(name))

    def turn_wheel(self, x, y, way):
        self.window.screen.move_to(x, y)
        self.window.screen.click(way, times=10)

    def drag(self, start, end):
        self.window.screen.move_to(*start)
        self.window.screen.hold()
        self.window.screen.move_to(*end)
        self.window.screen.let_go()

    def test_the_wheel_scrolls_in_both_directions(self):
        self.assertFalse(self.is_on_screen("Notifications"))
        self.turn_wheel(20, 450, RIGHT)
        self.check_is_scrolled_to("Notifications")
        self.window.click("push button", "Theme: Dark")
        self.window.wait("push button", "Theme: Light")

        self.window.click("push button", "SCAN MY MAC")
        self.window.wait("push button", "Move to Trash")
        self.assertFalse(self.is_on_screen("Move to Trash"))
        self.turn_wheel(700, 20, DOWN)
        self.check_is_scrolled_to("Move to Trash")

    def test_the_bars_are_dragged_though_they_lie_at_the_edge(self):
        x, y = SCREEN[0] - 2, SCREEN[1] - 2
        top = self.window.wait("push button", "SCAN MY MAC").extents.y
        self.drag((300, y), (500, y))
        self.check_is_scrolled_to("Notifications")
        self.drag((x, 200), (x, 400))
        eventually_seen("the content has been scrolled up",
                        lambda: self.window.find("push button", "SCAN MY MAC").extents.y < top - 10)
        self.assertEqual(self.window.geometry, (0, 0, *SCREEN))

    def test_what_the_keyboard_reaches_comes_into_view(self):
        for name in ("Notifications", "Settings", "SCAN MY MAC"):
            for _ in range(20):
                if self.window.tab().name == name:
                    break
            self.check_is_scrolled_to(name)


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
