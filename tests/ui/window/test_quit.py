"""Quitting ends the program soon, whatever a file system does, and loses nothing."""

import ctypes
import os
import sys
import tempfile
import unittest
from contextlib import contextmanager

import home
from events import PATIENCE, eventually
from explainer import Explainer
from window import Window

PROGRAM = sys.argv.pop()
FUSE = os.access("/dev/fuse", os.R_OK | os.W_OK)
DETACH = 2  # MNT_DETACH
libc = ctypes.CDLL(None, use_errno=True)


@contextmanager
def hung(folder):
    """Mounts a file system over a folder that never answers any request."""
    channel = os.open("/dev/fuse", os.O_RDWR | os.O_CLOEXEC)
    options = f"fd={channel},rootmode=40000,user_id={os.getuid()},group_id={os.getgid()}"
    try:
        if libc.mount(b"hung", os.fsencode(folder), b"fuse", 0, options.encode()) != 0:
            raise unittest.SkipTest("This system lets nobody here mount a file system of their own.")
        try:
            yield
        finally:
            libc.umount2(os.fsencode(folder), DETACH)
    finally:
        os.close(channel)  # Requests that still wait get an error.


def scan(window):
    window.click("push button", "SCAN MY MAC")


class QuitAmidAnExplanation(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.service = Explainer(self.enterContext(tempfile.TemporaryDirectory()))
        self.service.may_reply.clear()
        self.addCleanup(self.service.may_reply.set)

    def quit_when(self, happened, **environment):
        self.service.asked.clear()
        with Window(PROGRAM, TIDLO_AI_PROXY_HOST=self.service.host, **environment) as window:
            scan(window)
            happened(window)
            window.click("push button", "Close")
            self.assertEqual(window.ended(), 0)

    def test_is_a_normal_end_whenever_it_comes(self):
        def results(window):
            window.wait("heading", "AI-assisted results — .* found")

        def request(window):
            results(window)
            self.assertTrue(self.service.asked.wait(PATIENCE))

        for _ in range(4):  # The asking thread is at another point each time.
            self.quit_when(results)
            self.quit_when(request, SSL_CERT_FILE=str(self.service.certificate))

    @unittest.skipUnless(FUSE, "There are no file systems in user space here.")
    def test_leaves_a_question_that_a_file_system_holds_up_to_it(self):
        folder = home.HOME / "Authorities"
        folder.mkdir()
        with hung(folder):
            self.quit_when(lambda window: window.wait("label", "AI Storage Analysis in progress..."),
                           SSL_CERT_FILE=str(folder / "authority.pem"))


@unittest.skipUnless(FUSE, "There are no file systems in user space here.")
class QuitAmidWork(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.before = home.inventory()
        self.window = self.enterContext(Window(PROGRAM))

    def wait_for_step(self, label):
        def is_shown():
            return any(bar.description == label for bar in self.window.matching("progress bar", ".*"))

        eventually(f"the step “{label}” is shown", lambda: self.window.look(is_shown))

    def test_a_scan_that_a_file_system_holds_up_is_left_to_it(self):
        with hung(home.HOME / "Downloads"):
            scan(self.window)
            self.wait_for_step("Checking old downloads & large untouched files")
            self.window.click("push button", "Close")
            self.assertEqual(self.window.ended(), 0)
        self.assertEqual(home.inventory(), self.before)

    def test_a_move_that_a_file_system_holds_up_is_left_to_it(self):
        scan(self.window)
        self.window.wait("heading", "AI-assisted results — .* found")
        with hung(home.HOME / "Downloads"):
            self.window.click("push button", "Move to Trash")
            self.wait_for_step("Moving selected files to Trash")
            self.window.click("push button", "Close")
            self.assertEqual(self.window.ended(), 0)
        kept = home.inventory()
        self.assertEqual(kept["Downloads/setup.zip"], self.before["Downloads/setup.zip"])
        gone = self.before.keys() - kept.keys()
        self.assertTrue(all("node_modules" in path or "Library/Caches" in path for path in gone), gone)
        self.assertNotIn("setup.zip", home.trashed())


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
