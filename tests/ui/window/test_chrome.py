"""The window without a system frame: it does everything that a frame would do."""

import sys
import unittest

import home
from events import eventually_seen
from screen import Screen
from window import Window

PROGRAM = sys.argv.pop()
LEAST = (1350, 720)


class Chrome(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.window = self.enterContext(Window(PROGRAM))

    def drag(self, start, by):
        """Makes a real drag: the window manager takes over in the middle of it."""
        x, y = start
        there = x + by[0], y + by[1]
        begun = x + by[0] // 5, y + by[1] // 5  # Farther than a hand moves during a click.
        screen = self.window.screen
        screen.move_to(x, y)
        screen.hold()
        screen.move_to(*begun)
        eventually_seen("the window manager holds the pointer", lambda: screen.is_pointer_held)
        screen.move_to(*there)
        screen.let_go()
        self.pointer = there
        eventually_seen("the window manager has let go of it", lambda: not screen.is_pointer_held)

    def check_let_go(self):
        """Checks that the window no longer follows the pointer; it handles Tab after the pointer's moves."""
        there = self.window.geometry
        for way in (1, 2):
            self.window.screen.move_to(self.pointer[0] + 37 * way, self.pointer[1] + 23 * way)
        self.window.tab()
        self.assertFalse(self.window.screen.is_pointer_held)
        self.assertEqual(self.window.geometry, there)

    def check_bare(self):
        """Checks that the system draws nothing around the content, which reaches the top edge."""
        self.assertEqual(self.window.frame_extents, [0, 0, 0, 0])
        bar = self.window.wait("tool bar").extents
        left, top, width, _ = self.window.geometry
        self.assertEqual((bar.x, bar.y, bar.width), (left, top, width))

    def test_nothing_is_around_the_content(self):
        self.check_bare()

        self.assertGreaterEqual(self.window.geometry[2:], LEAST)

    def test_lists_of_windows_name_it_by_its_title_alone(self):
        self.assertEqual(self.window.screen.title(self.window.native), "Tidlo — AI Storage Cleaner")

    def test_the_desktop_knows_which_program_it_is_of(self):
        self.assertEqual(self.window.screen.application(self.window.native), "com.tidlo.storagecleaner")

    def test_a_change_of_theme_keeps_it_bare(self):
        self.window.click("push button", "Theme: Dark")
        self.window.wait("push button", "Theme: Light")

        self.check_bare()

    def check_drags(self, place):
        """Checks that dragging at a position, relative to the window's top left corner, moves the window."""
        left, top, *size = self.window.geometry

        self.drag((left + place[0], top + place[1]), by=(60, 40))

        eventually_seen("the window has moved", lambda: self.window.geometry[0] > left and self.window.geometry[1] > top)
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
            eventually_seen("the window is minimised", lambda: self.window.is_minimised)
            self.window.activate()
            eventually_seen("the window is back", lambda: not self.window.is_minimised)
            self.window.click("push button", "Close")
            self.assertEqual(self.window.ended(), 0)

    def test_the_corner_makes_it_larger_and_never_smaller_than_its_least_size(self):
        left, top, width, height = self.window.geometry
        corner = left + width - 2, top + height - 2

        self.drag(corner, by=(80, 60))
        eventually_seen("the window is larger", lambda: self.window.geometry[2] > width)
        self.check_let_go()
        left, top, width, height = self.window.geometry

        self.drag((left + width - 2, top + height - 2), by=(-500, -500))
        eventually_seen("the window has its least size", lambda: self.window.geometry[2:] == LEAST)

    @unittest.skipUnless(Screen.ZOOMS, "Here that is the person's own.")
    def test_zoom_fills_the_screen_and_goes_back(self):
        before = self.window.geometry

        self.window.click("push button", "Zoom")
        eventually_seen("the window fills the screen", lambda: self.window.geometry == (0, 0, 1800, 1100))
        self.check_bare()

        self.window.click("push button", "Zoom")
        eventually_seen("the window is as before", lambda: self.window.geometry == before)

    def test_full_screen_and_back_keep_it_bare(self):
        before = self.window.geometry

        self.window.set_full_screen(True)
        eventually_seen("the window is the screen", lambda: self.window.geometry == (0, 0, 1800, 1100))
        self.check_bare()

        self.window.set_full_screen(False)
        eventually_seen("the window is as before", lambda: self.window.geometry == before)
        self.check_bare()

    def test_minimise_hides_it_until_it_is_wanted(self):
        self.window.click("push button", "Minimise")
        eventually_seen("the window is minimised", lambda: self.window.is_minimised)

        self.window.activate()
        eventually_seen("the window is back", lambda: not self.window.is_minimised)
        self.check_bare()

    def test_close_ends_the_program(self):
        self.window.click("push button", "Close")

        self.assertEqual(self.window.ended(), 0)


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
