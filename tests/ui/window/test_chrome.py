"""The window without a frame of the system's: everything that a frame did is done in the window."""

import sys
import unittest

import home
from window import Window, eventually, xdotool

PROGRAM = sys.argv.pop()
LEAST = (1350, 720)


class Chrome(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.window = self.enterContext(Window(PROGRAM))

    def drag(self, start, by):
        """A real drag: the window manager takes over in the middle of it."""
        x, y = start
        steps = [argument for part in (0.2, 0.4, 0.6, 0.8, 1)
                 for argument in ("mousemove", round(x + by[0] * part), round(y + by[1] * part), "sleep", 0.05)]
        xdotool("mousemove", x, y, "mousedown", 1, "sleep", 0.05, *steps, "mouseup", 1)

    def check_let_go(self):
        """After a drag the pointer goes its own way: the window manager has seen it pass by the time of the key."""
        there = self.window.geometry
        xdotool("mousemove_relative", 37, 23, "sleep", 0.1, "mousemove_relative", 37, 23, "sleep", 0.1)
        self.window.keys("Tab")
        self.window.wait_for_focus()
        self.assertEqual(self.window.geometry, there)

    def check_bare(self):
        """The system draws nothing around the content, which reaches the top edge."""
        self.assertRegex(self.window.property("_NET_FRAME_EXTENTS"), "= 0, 0, 0, 0$")
        bar = self.window.wait("tool bar").extents
        left, top, width, _ = self.window.geometry
        self.assertEqual((bar.x, bar.y, bar.width), (left, top, width))

    def test_nothing_is_around_the_content(self):
        self.check_bare()

        self.assertGreaterEqual(self.window.geometry[2:], LEAST)

    def test_a_change_of_theme_keeps_it_bare(self):
        self.window.click("push button", "Theme: Dark")
        self.window.wait("push button", "Theme: Light")

        self.check_bare()

    def check_drags(self, place):
        """A drag of a place, given from the window's left and top, moves the window."""
        left, top, *size = self.window.geometry

        self.drag((left + place[0], top + place[1]), by=(60, 40))

        eventually("the window has moved", lambda: self.window.geometry[0] > left and self.window.geometry[1] > top)
        self.assertEqual(list(self.window.geometry[2:]), size)

    def test_an_empty_area_drags_the_window(self):
        for name, place in (("bar", (600, 8)), ("rail", (29, 500)), ("sidebar", (200, 70)), ("screen", (1200, 300))):
            with self.subTest(name):
                self.check_drags(place)
        self.check_let_go()

    def test_a_question_leaves_the_window_free(self):
        home.forget_setup()
        with Window(PROGRAM) as self.window:
            self.window.wait("push button", "Get Started")

            self.check_drags((600, 8))
            self.window.click("push button", "Minimise")
            eventually("the window is minimised", lambda: "Iconic" in self.window.property("WM_STATE"))
            xdotool("windowactivate", self.window.id)
            eventually("the window is back", lambda: "Normal" in self.window.property("WM_STATE"))
            self.window.click("push button", "Close")
            self.assertEqual(self.window.ended(), 0)

    def test_the_corner_makes_it_larger_and_never_smaller_than_its_least_size(self):
        left, top, width, height = self.window.geometry
        corner = left + width - 2, top + height - 2

        self.drag(corner, by=(80, 60))
        eventually("the window is larger", lambda: self.window.geometry[2] > width)
        self.check_let_go()
        left, top, width, height = self.window.geometry

        self.drag((left + width - 2, top + height - 2), by=(-500, -500))
        eventually("the window has its least size", lambda: self.window.geometry[2:] == LEAST)

    def test_zoom_fills_the_screen_and_goes_back(self):
        before = self.window.geometry

        self.window.click("push button", "Zoom")
        eventually("the window fills the screen", lambda: self.window.geometry == (0, 0, 1800, 1100))
        self.check_bare()

        self.window.click("push button", "Zoom")
        eventually("the window is as before", lambda: self.window.geometry == before)

    def test_full_screen_and_back_keep_it_bare(self):
        before = self.window.geometry

        self.window.change_state("add,fullscreen")
        eventually("the window is the screen", lambda: self.window.geometry == (0, 0, 1800, 1100))
        self.check_bare()

        self.window.change_state("remove,fullscreen")
        eventually("the window is as before", lambda: self.window.geometry == before)
        self.check_bare()

    def test_minimise_hides_it_until_it_is_wanted(self):
        self.window.click("push button", "Minimise")
        eventually("the window is minimised", lambda: "Iconic" in self.window.property("WM_STATE"))

        xdotool("windowactivate", self.window.id)
        eventually("the window is back", lambda: "Normal" in self.window.property("WM_STATE"))
        self.check_bare()

    def test_close_ends_the_program(self):
        self.window.click("push button", "Close")

        self.assertEqual(self.window.ended(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
