"""Context menus, and what they copy for other programs."""

import sys
import unittest

import home
from events import eventually_seen
from window import Window

PROGRAM = sys.argv.pop()
PROJECTS = "Rebuildable project folders, .*"


class Menus(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.window = self.enterContext(Window(PROGRAM))

    def test_only_the_other_button_asks_for_one(self):
        window = self.window
        window.scan()
        window.click("check box", PROJECTS)
        window.wait_without("check box", PROJECTS, state="checked")
        self.assertIsNone(window.find("menu item"))

        window.click("check box", PROJECTS, button=3)
        window.wait("menu item", "Show items…")
        window.wait_without("check box", PROJECTS, state="checked")
        window.keys("Escape")
        eventually_seen("the menu is gone", lambda: window.find("menu item") is None)

    def test_a_path_is_copied_for_other_programs(self):
        window = self.window
        window.scan()
        window.click("check box", PROJECTS, button=3)
        window.click("menu item", "Show items…")
        window.click("check box", ".*/Sites/one/node_modules, 33 KB")
        self.assertEqual("", window.screen.clipboard())

        window.click("push button", "Copy path")
        eventually_seen("another program is given it",
                        lambda: window.screen.clipboard() == f"{home.HOME}/Sites/one/node_modules")


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
