"""A cleanup from the first press to the last: nothing but the selection is ever touched."""

import sys
import unittest

import home
from events import eventually
from window import Window

PROGRAM = sys.argv.pop()

PROJECTS = "Rebuildable project folders, 41 KB, .*"
WHATSAPP = "WhatsApp / Chat Media & Attachments, 20 KB, .*"
CACHES = "User and developer caches, .*"
DOWNLOADS = "Downloads / old installers and archives, 8 KB, .*"


class Cleanup(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.before = home.inventory()

    def open_window(self, **environment):
        self.window = self.enterContext(Window(PROGRAM, **environment))
        return self.window

    def rows(self):
        return [row.name.partition(",")[0] for row in self.window.all("check box")]

    def ticked(self):
        return [row.name.partition(",")[0] for row in self.window.all("check box") if "checked" in row.states]

    def test_what_is_ticked_moves_to_the_trash_and_comes_back(self):
        window = self.open_window()

        window.scan()
        self.assertEqual(self.ticked(), ["Rebuildable project folders", "User and developer caches",
                                         "Downloads / old installers and archives"])
        self.assertEqual(home.inventory(), self.before)

        window.click("radio button", "Review")
        eventually("only what is to be reviewed is shown",
                   lambda: self.rows() == ["WhatsApp / Chat Media & Attachments",
                                           "Downloads / old installers and archives"])
        window.wait("radio button", "Review", state="checked")
        window.click("radio button", "All")
        window.wait("check box", PROJECTS)

        window.click("check box", DOWNLOADS)
        window.wait_without("check box", DOWNLOADS, state="checked")
        window.keys("Up", "Up", "space")
        window.wait("check box", WHATSAPP, state="checked")
        self.assertEqual(home.inventory(), self.before)

        window.keys("Up")
        window.wait("check box", PROJECTS, state="focused")
        window.keys("Menu")
        window.click("menu item", "Show items…")
        window.wait("check box", ".*/Sites/one/node_modules, 33 KB")
        window.wait("check box", ".*/Sites/two/node_modules, 8 KB")
        window.keys("t", "w", "o")
        window.wait_without("check box", ".*/one/.*")
        window.keys("Escape")
        window.wait_without("dialog")
        window.wait("check box", PROJECTS, state="focused")
        self.assertEqual(home.inventory(), self.before)
        self.assertEqual(home.trashed(), [])

        window.click("push button", "Move to Trash")
        window.wait("heading", "Cleanup report")
        window.wait("label", "FILES REMOVED: 4")
        gone = ("Sites/one/node_modules/", "Sites/two/node_modules/", "Library/")
        kept = {path: what for path, what in self.before.items() if not path.startswith(gone)}
        self.assertEqual(home.inventory(), kept)
        self.assertEqual(len(home.trashed()), 4)

        home.restore_all()
        self.assertEqual(home.inventory(), self.before)
        self.assertEqual(home.trashed(), [])

    def test_a_cleanup_is_taken_back_by_undo(self):
        window = self.open_window()
        window.scan()
        window.click("push button", "Move to Trash")
        window.wait("heading", "Cleanup report")
        self.assertEqual(len(home.trashed()), 4)

        window.keys("ctrl+z")
        window.wait("heading", "AI-assisted results — .* found")
        self.assertEqual(home.inventory(), self.before)
        self.assertEqual(home.trashed(), [])

    def test_quitting_amid_a_scan_ends_at_once_and_leaves_nothing_behind(self):
        home.fill_with_many()
        before = home.inventory()
        window = self.open_window()
        others = [one for one in home.programs_running(PROGRAM) if one != str(window.process.pid)]

        scan, close = (window.wait("push button", name).center for name in ("SCAN MY MAC", "Close"))
        window.click_at(*scan)
        window.click_at(*close)

        self.assertEqual(window.ended(), 0)
        self.assertEqual(home.inventory(), before)
        self.assertEqual(home.trashed(), [])
        self.assertEqual(home.programs_running(PROGRAM), others)
        self.assertEqual(list(home.TEMPORARY.iterdir()), [])


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
