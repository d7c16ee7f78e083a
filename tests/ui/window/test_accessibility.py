"""What assistive technology reads from the platform's accessibility tree."""

import sys
import unittest

import home
from events import eventually
from window import EXPLANATION, Window

PROGRAM = sys.argv.pop()

CONTROLS = {"push button", "check box", "radio button"}


class Case(unittest.TestCase):
    """Opens a window."""

    def check_all(self):
        """Checks that everything shown has a role, a name, a position and, if it can be pressed, an action."""
        elements = self.window.elements()
        self.assertGreater(len(elements), 20)
        for element in elements:
            with self.subTest(element):
                self.assertNotIn(element.role, ("unknown", "invalid"))
                self.assertTrue(element.name)
                box = element.extents
                self.assertTrue(box.width > 0 and box.height > 0)
                if element.role in CONTROLS:
                    self.assertIn("focusable", element.states)
                    self.assertGreater(element.accessible.get_n_actions(), 0)


class FirstRun(Case):
    def setUp(self):
        home.fill()
        home.forget_setup()
        self.window = self.enterContext(Window(PROGRAM))

    def test_the_wizard(self):
        self.window.wait("dialog", "Tidlo setup")
        self.window.wait("push button", "Get Started", state="focused")
        self.check_all()
        self.window.wait("heading", "Clean with context, not guesses")

        self.window.keys("Return")

        self.window.wait_without("dialog")
        self.assertIn("tidlo.setup.completed=true", home.PREFERENCES.read_text("utf-8"))


class Accessibility(Case):
    @classmethod
    def setUpClass(cls):
        home.fill()
        cls.window = cls.enterClassContext(Window(PROGRAM))

    def go_to(self, section):
        self.window.press("radio button", section)
        self.window.wait("radio button", section, state="checked")

    def scanned(self):
        self.go_to("Scan")
        self.window.press("push button", "SCAN MY MAC")
        self.window.wait("heading", "AI-assisted results — .* found")
        self.window.wait("label", EXPLANATION)

    def test_the_landing_screen(self):
        self.go_to("Scan")
        self.check_all()

        self.assertIn("focusable", self.window.find("panel", "AI-assisted deep clean").states)
        self.assertIn("checked", self.window.find("radio button", "Scan").states)
        for other in ("Results", "Report", "Settings"):
            self.assertNotIn("checked", self.window.find("radio button", other).states)
        for name in ("Scan", "SCAN MY MAC", "Theme: Dark", "Notifications", "Close", "Minimise", "Zoom"):
            self.assertIsNotNone(self.window.find("push button", name), name)

    def test_a_ring_says_its_percentage(self):
        self.assertEqual(self.window.wait("progress bar", r"Disk: \d+%").description, "Macintosh HD usage")
        self.window.wait("progress bar", r"Recoverable: \d+%")
        self.go_to("Report")
        self.window.wait("progress bar", r"\d+% FREE")

    def test_the_results(self):
        self.scanned()
        self.check_all()

        self.assertIn("focusable", self.window.find("list", "Findings").states)
        projects = self.window.find("check box", "Rebuildable project folders, 41 KB, Rebuildable")
        self.assertIn("checked", projects.states)
        media = self.window.find("check box", "WhatsApp / Chat Media & Attachments, 20 KB, Review first")
        self.assertNotIn("checked", media.states)
        chips = {chip.name: "checked" in chip.states for chip in self.window.all("radio button", "All|Safe|Review")}
        self.assertEqual(chips, {"All": True, "Safe": False, "Review": False})

    def test_a_press_by_assistive_technology_ticks_once(self):
        self.scanned()
        media = "WhatsApp / Chat Media & Attachments, .*"
        self.window.press("check box", media)
        self.window.wait("check box", media, state="checked")
        self.window.press("check box", media)
        self.window.wait_without("check box", media, state="checked")

    def test_a_look_inside(self):
        self.scanned()
        self.window.click("check box", "Rebuildable.*", button=3)
        self.window.click("menu item", "Show items…")
        self.window.wait("dialog", "Rebuildable project folders")
        self.window.wait("check box", ".*/Sites/one/node_modules, 33 KB")
        self.check_all()

        self.assertIsNotNone(self.window.find("text", "Search paths"))
        self.window.press("check box", "Largest first")
        self.window.wait("check box", "Largest first", state="checked")
        self.window.press("push button", "Done")
        self.window.wait_without("dialog")

    def test_the_settings(self):
        self.go_to("Settings")
        self.check_all()

        self.window.wait("radio button", "Dark Mode", state="checked")
        self.window.press("radio button", "Light Mode")
        self.window.wait("radio button", "Light Mode", state="checked")
        self.window.wait_without("radio button", "Dark Mode", state="checked")
        self.window.wait("push button", "Theme: Light")
        self.window.press("radio button", "Dark Mode")
        self.window.wait("push button", "Theme: Dark")

    def test_a_question(self):
        self.go_to("Settings")
        self.window.click("push button", "Uninstall completely")
        self.window.wait("dialog", r"Uninstall Tidlo\?")
        self.window.wait("alert", r"This copy is not installed: .*\s+Tidlo itself can quit and remove your preferences.*")
        self.window.wait("push button", "Cancel", state="focused")
        self.check_all()

        self.window.keys("Escape")

        self.window.wait_without("alert")
        self.window.wait("push button", "Uninstall completely", state="focused")

    def test_the_report(self):
        self.scanned()
        self.window.press("push button", "View report")
        self.window.wait("heading", "Cleanup report")
        self.check_all()

        self.assertEqual(self.window.find("label", "PROJECT FILES: 41 KB").description, "Source code kept intact")
        self.window.wait("label", "FILES REMOVED: 4")

    def test_a_scan_started_by_a_key_leads_the_keyboard_to_its_results(self):
        with Window(PROGRAM) as self.window:
            self.assertEqual(repr(self.window.tab()), "push button “Scan”")
            self.window.keys("Return")
            self.window.wait("list", "Findings", state="focused")
            self.window.wait("label", EXPLANATION)
            self.assertRegex(self.window.tab().name, EXPLANATION)
            self.assertEqual(self.window.tab().role, "check box")

    def test_the_buttons_of_the_window_come_last(self):
        with Window(PROGRAM) as self.window:
            reached = [self.window.tab().name for _ in range(6)]

            self.assertEqual(reached, ["Scan", "SCAN MY MAC", "Close", "Minimise", "Zoom", "Theme: Dark"])

    def test_tab_goes_round_and_the_focus_is_told(self):
        self.go_to("Scan")

        seen = []
        while (now := self.window.tab()) and (reached := (now.role, now.name)) not in seen:
            seen.append(reached)
        for expected in (("push button", "Theme: Dark"), ("radio button", "Settings"), ("push button", "SCAN MY MAC")):
            self.assertIn(expected, seen)


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
