"""The window where the desktop lacks something: bare.py PROGRAM WHAT, inside desktop.py."""

import os
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "ui" / "window"))

from case import require  # noqa: E402
from events import eventually_seen  # noqa: E402
from house import House  # noqa: E402
from screen import Screen  # noqa: E402

LACKS = {
    "bus": {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere", "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nowhere",
            "AT_SPI_BUS_ADDRESS": ""},
    "fonts": {"FONTCONFIG_FILE": "/dev/null", "FONTCONFIG_PATH": "/nowhere"},
    "display": {"DISPLAY": ":12345", "WAYLAND_DISPLAY": "", "QT_QPA_PLATFORM": ""},
}


def main(program, what):
    house = House(os.environ["HOME"], large=2)
    environment = os.environ | LACKS[what] | {"TIDLO_AI_PROXY_HOST": ""}
    with tempfile.TemporaryFile("w+") as told:
        process = subprocess.Popen([program], env=environment, stderr=told)
        try:
            if what == "display":
                process.wait(30)
            else:
                use(process)
        finally:
            process.kill()
            process.wait()
        told.seek(0)
        text = told.read()
    require(house.check() == 0, "something moved")
    if what == "display":
        require(process.returncode == -signal.SIGABRT and "display" in text, f"{process.returncode}: {text}")
        print("Qt says that there is no display, and aborts")
    else:
        require(process.returncode == 0, f"it ends with {process.returncode}: {text}")
        said = f"; it says: {text.splitlines()[0][:150]}" if text else ", and says nothing"
        print(f"it opens, takes keys and closes{said}")


def use(process):
    """Scans and closes with the keyboard."""
    screen = Screen()
    eventually_seen("the window is there", lambda: screen.window_of(process.pid))
    time.sleep(1)
    screen.keys("space")
    time.sleep(3)
    screen.keys("alt+F4")
    eventually_seen("the program has ended", lambda: process.poll() is not None)


if __name__ == "__main__":
    main(*sys.argv[1:])
