"""A folder that is dropped on the window is searched for projects as well."""

import sys
import unittest

import home
from screen import Drag
from window import Window

PROGRAM = sys.argv.pop()


class Places(unittest.TestCase):
    def setUp(self):
        home.fill()
        home.write("code/app/package.json", 1)
        home.write("code/app/node_modules/a.js", 65536)
        self.window = self.enterContext(Window(PROGRAM))

    def drop(self, *paths):
        x, y = self.window.wait("push button", "SCAN MY MAC").center
        with Drag([(home.HOME / path).as_uri() for path in paths]) as drag:
            return drag.drop_on(self.window, x, y - 60)

    def test_a_dropped_folder_is_searched_once_that_is_affirmed(self):
        window = self.window
        self.assertTrue(self.drop("code"))
        window.wait("dialog", f"Also look for project folders in “{home.HOME}/code”.*")
        window.click("push button", "Look there too")
        window.wait_without("push button", "Look there too")
        window.wait("push button", "SCAN MY MAC")
        self.window.scan()
        window.wait("check box", "Rebuildable project folders, 106 KB, .*")

    def test_a_file_is_refused_and_so_are_several_folders(self):
        window = self.window
        self.assertTrue(self.drop("code/app/package.json"))
        window.wait("dialog", "Tidlo does not look there")
        window.click("push button", "OK")
        window.wait_without("push button", "OK")
        self.assertFalse(self.drop("code", "Sites"))
        self.window.scan()
        window.wait("check box", "Rebuildable project folders, 41 KB, .*")


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
