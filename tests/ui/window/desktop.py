#!/usr/bin/env python3
"""Runs a command in a desktop of its own: a screen, a session bus, a window manager and a home folder, all private and
gone afterwards. It ends as the command ends.

    desktop.py WIDTHxHEIGHT COMMAND...
"""

import os
import shutil
import subprocess
import sys
import tempfile
from contextlib import closing, contextmanager
from pathlib import Path

from events import eventually
from screen import Screen

NEEDED = ["Xvfb", "dbus-run-session", "openbox", "xdotool", "openssl", "gio"]


@contextmanager
def running(command, **options):
    """A process for as long as it is needed."""
    process = subprocess.Popen(command, **options)
    try:
        yield process
    finally:
        process.terminate()
        process.wait()


@contextmanager
def display_of(size):
    """The name of a display with one screen. The server chooses the name, so that many can be started at once."""
    told, tells = os.pipe()
    server = ["Xvfb", "-displayfd", str(tells), "-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset"]
    with running(server, pass_fds=[tells], stderr=subprocess.DEVNULL):
        os.close(tells)
        with os.fdopen(told) as answer:
            yield f":{answer.readline().strip()}"


def environment_of(home, display):
    """What a program of this desktop finds in its environment."""
    unwanted = ("XDG_", "DBUS_", "AT_SPI_", "QT_", "WAYLAND_", "DISPLAY", "XAUTHORITY", "SESSION_MANAGER", "SSL_CERT_")
    inherited = {name: value for name, value in os.environ.items() if not name.startswith(unwanted)}
    runtime, temporary = home.parent / "runtime", home.parent / "temporary"
    runtime.mkdir(mode=0o700)
    temporary.mkdir()
    return inherited | {
        "HOME": str(home),
        "XDG_RUNTIME_DIR": str(runtime),
        "XDG_CACHE_HOME": str(home.parent / "cache"),  # Else the desktop itself leaves something to clean.
        "TMPDIR": str(temporary),
        "DISPLAY": display,
        "LC_ALL": "C.UTF-8",
        "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        "QT_QUICK_BACKEND": "software",
    }


def wait_for_window_manager(display):
    """Windows that open before there is one are neither placed nor held to their least size."""
    with closing(Screen(display)) as screen:
        eventually("the window manager has started",
                   lambda: screen.property(screen.root, "_NET_SUPPORTING_WM_CHECK"))


def main(size, *command):
    missing = [program for program in NEEDED if not shutil.which(program)]
    if missing:
        sys.exit(f"Not installed: {' '.join(missing)}; see scripts/packages-debian-test.")
    with tempfile.TemporaryDirectory(prefix="tidlo-desktop-") as folder, display_of(size) as display:
        home = Path(folder, "home")
        home.mkdir()
        environment = environment_of(home, display)
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        with running(["openbox", "--sm-disable"], env=environment, cwd=folder, **quiet):
            wait_for_window_manager(display)
            return subprocess.run(["dbus-run-session", "--", *command], env=environment, check=False).returncode


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
