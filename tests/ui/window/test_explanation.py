"""What the results show of an explanation, from a real service."""

import sys
import tempfile
import unittest

import home
from explainer import NOTHING, Explainer, answer, refusal
from window import Window

PROGRAM = sys.argv.pop()
LOADING = "AI Storage Analysis in progress..."


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
        return self.window.wait("label", "Explanation").description

    def test_an_answer_is_shown_as_the_plain_text_that_it_is(self):
        self.scan(answer("Rebuild <b>one</b> of them.\nKeep the other."))

        self.assertEqual(self.shown(), "Rebuild <b>one</b> of them.\nKeep the other.")
        [(path, request)] = self.service.requests
        self.assertEqual(path, "/explain")
        self.assertIn("Rebuildable project folders", request["contents"][0]["parts"][0]["text"])

    def test_an_error_is_shown_in_the_words_of_the_service(self):
        self.scan(refusal(429, "Too many requests."))

        self.assertRegex(self.shown(), "Too many requests.$")

    def test_where_nothing_is_explained_nothing_is_shown(self):
        self.scan(NOTHING)

        self.window.wait_without("label", LOADING)
        self.assertEqual(len(self.service.requests), 1)
        self.assertIsNone(self.window.find("label", "Explanation"))

    def test_the_results_can_be_used_while_the_answer_is_awaited(self):
        self.service.may_reply.clear()
        self.addCleanup(self.service.may_reply.set)

        self.scan(answer("It took a while."))
        self.window.wait("label", LOADING)
        self.window.click("radio button", "Safe")
        self.window.wait_without("check box", "Rebuildable.*")
        self.assertIsNone(self.window.find("label", "Explanation"))
        self.window.click("radio button", "All")

        self.service.may_reply.set()
        self.assertEqual(self.shown(), "It took a while.")
        self.assertIsNone(self.window.find("label", LOADING))


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
