"""Quitting ends the program soon, whatever a file system does, and loses nothing."""

import ctypes
import os
import sys
import unittest
from contextlib import contextmanager

import home
from window import Window, xdotool

PROGRAM = sys.argv.pop()
DETACH = 2  # MNT_DETACH
libc = ctypes.CDLL(None, use_errno=True)


@contextmanager
def hung(folder):
    """A file system over a folder, of which every question waits for an answer that never comes."""
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
        os.close(channel)  # Whoever still waits gets an error.


@unittest.skipUnless(os.access("/dev/fuse", os.R_OK | os.W_OK), "There are no file systems in user space here.")
class Quit(unittest.TestCase):
    def setUp(self):
        home.fill()
        self.before = home.inventory()
        self.window = self.enterContext(Window(PROGRAM))

    def click(self, name):
        xdotool("mousemove", *self.window.wait("push button", name).center, "click", 1)

    def test_a_scan_that_a_file_system_holds_up_is_left_to_it(self):
        with hung(home.HOME / "Downloads"):
            self.click("SCAN MY MAC")
            self.window.wait("label", "Checking old downloads & large untouched files")
            self.click("Close")
            self.assertEqual(self.window.ended(), 0)
        self.assertEqual(home.inventory(), self.before)

    def test_a_move_that_a_file_system_holds_up_is_left_to_it(self):
        self.click("SCAN MY MAC")
        self.window.wait("heading", "AI-assisted results — .* found")
        with hung(home.HOME / "Downloads"):
            self.click("Move to Trash")
            self.window.wait("label", "Moving selected files to Trash")
            self.click("Close")
            self.assertEqual(self.window.ended(), 0)
        kept = home.inventory()
        self.assertEqual(kept["Downloads/setup.zip"], self.before["Downloads/setup.zip"])
        gone = self.before.keys() - kept.keys()
        self.assertTrue(all("node_modules" in path or "Library/Caches" in path for path in gone), gone)
        self.assertNotIn("setup.zip", home.trashed())


if __name__ == "__main__":
    unittest.main(verbosity=2, warnings="ignore")
