"""Explanations in the results, from a real service."""

import json
import sys
import tempfile
import unittest

import home
from explainer import NOTHING, Explainer, answer, refusal
from window import EXPLANATION, Window

PROGRAM = sys.argv.pop()
LOADING = "AI Storage Analysis in progress..."
SENT = "What (is|was) sent: (?s:.*)"


class Explanation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        home.fill()
        cls.service = Explainer(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.window = cls.enterClassContext(Window(PROGRAM, TIDLO_AI_PROXY_HOST=cls.service.host,
                                                  SSL_CERT_FILE=str(cls.service.certificate)))

    def scan(self, reply):
        self.service.reply = reply
        self.service.requests.clear()
        self.window.wait("radio button", "Scan").press()
        self.window.press("push button", "SCAN MY MAC")
        self.window.wait("heading", "AI-assisted results — .* found")

    def shown(self):
        return self.window.wait("label", EXPLANATION).name.partition(": ")[2]

    def test_an_answer_is_shown_as_the_plain_text_that_it_is(self):
        self.scan(answer("Rebuild <b>one</b> of them.\nKeep the other."))

        self.assertEqual(self.shown(), "Rebuild <b>one</b> of them.\nKeep the other.")
        [(path, request)] = self.service.requests
        self.assertEqual(path, "/explain")
        self.assertIn("Rebuildable project folders", request["contents"][0]["parts"][0]["text"])

    def test_of_a_megabyte_the_beginning_is_shown_and_the_results_can_be_used(self):
        piece = "<b>&amp;</b> \u202egnp\x1b[31m 😀" + "i" * 2000 + "\n"
        text = piece * ((1 << 20) // len(json.dumps(piece)) - 1)
        self.assertGreater(len(json.dumps(answer(text)[1])), 1_000_000)
        self.scan(answer(text))

        shown = self.shown()
        self.assertIn("<b>&amp;</b> ", shown)
        self.assertNotIn("\x1b", shown)
        self.assertLess(len(shown), 5000)
        self.window.wait("label", "[0-9,]* more characters are not shown. .*")
        self.window.click("radio button", "Safe")
        self.window.wait_without("check box", "Rebuildable.*")
        self.window.click("radio button", "All")
        self.window.wait("check box", "Rebuildable.*")

    def test_an_error_is_shown_in_the_words_of_the_service(self):
        self.scan(refusal(429, "Too many requests."))

        self.assertRegex(self.shown(), "Too many requests.$")

    def test_where_nothing_is_explained_nothing_is_shown(self):
        self.scan(NOTHING)

        self.window.wait_without("label", LOADING)
        self.assertEqual(len(self.service.requests), 1)
        self.assertIsNone(self.window.find("label", EXPLANATION))

    def choose_in_menu(self, label):
        """Opens the sheet with what was sent, from the menu of a label."""
        self.window.click("label", label, button=3)
        self.window.click("menu item", "Show what was sent…")
        self.window.wait("check box", "Explain scans")

    def test_what_was_sent_is_shown_whole_and_switched_off_no_scan_asks(self):
        self.window.wait("radio button", "Scan").press()
        self.choose_in_menu("AI explanations on")
        example = self.window.wait("label", SENT).name.partition(": ")[2]
        self.assertTrue(example.startswith(f"POST /explain HTTP/1.1\nHost: {self.service.host}\n"), example)
        self.window.press("push button", "Done")
        self.scan(answer("Some projects."))
        self.shown()
        self.choose_in_menu(EXPLANATION)
        sent = self.window.wait("label", SENT).name.partition(": ")[2]
        [(_, request)] = self.service.requests
        self.assertEqual(json.loads(sent.split("\n\n", 1)[1]), request)
        self.addCleanup(home.fill)

        self.window.press("check box", "Explain scans")
        self.window.wait_without("label", EXPLANATION)
        self.assertIn("tidlo.explanations=false", home.PREFERENCES.read_text(encoding="utf-8"))
        self.window.press("push button", "Done")
        self.scan(answer("Nobody reads this."))
        self.window.wait("radio button", "Scan").press()
        self.window.wait("label", "AI explanations off")
        self.assertEqual(self.service.requests, [])

        self.choose_in_menu("AI explanations off")
        self.window.press("check box", "Explain scans")
        self.window.wait("label", "AI explanations on")
        self.window.press("push button", "Done")
        self.scan(answer("Asked again."))
        self.assertEqual(self.shown(), "Asked again.")

    def test_the_results_can_be_used_while_the_answer_is_awaited(self):
        self.service.may_reply.clear()
        self.addCleanup(self.service.may_reply.set)

        self.scan(answer("It took a while."))
        self.window.wait("label", LOADING)
        self.window.click("radio button", "Safe")
        self.window.wait_without("check box", "Rebuildable.*")
        self.assertIsNone(self.window.find("label", EXPLANATION))
        self.window.click("radio button", "All")

        self.service.may_reply.set()
        self.assertEqual(self.shown(), "It took a while.")
        self.assertIsNone(self.window.find("label", LOADING))


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
