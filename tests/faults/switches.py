"""Kills the window while it changes its preferences: switches.py PROGRAM SEED TIMES, inside desktop.py.

The theme button is pressed again and again, each press writes the preferences, and SIGKILL comes at a random moment."""

import os
import random
import shutil
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "ui" / "window"))

from case import require, told  # noqa: E402
from Xlib.error import BadWindow  # noqa: E402

from events import eventually_seen  # noqa: E402
from house import PREFERENCES, House, Run  # noqa: E402
from window import Window  # noqa: E402

PRESSES, PAUSE = 20, 10  # Milliseconds between them.
SPARED = "/nowhere/spared"


def start(program, screen):
    process = subprocess.Popen([program], stderr=subprocess.DEVNULL)

    def found():
        try:
            return screen.window_of(process.pid)
        except BadWindow:  # That of the one before is going away.
            return None

    return process, screen.geometry(eventually_seen("the window is there", found))


def main(program, seed, times):
    chance = random.Random(int(seed))
    house = House(os.environ["HOME"], large=1)
    preferences = house.path / PREFERENCES
    cli = Path(program).parent / "tidlo-cli"
    require(Run([cli, "spare", str(house.path / "Documents")], os.environ).status == 0, "nothing is spared")
    with Window(program) as window:
        x, y = window.wait("push button", "Theme: .*").center
        left, top, *_ = window.geometry
    counts = {}
    last = preferences.read_text(encoding="utf-8")
    from screen import Screen

    screen = Screen()
    for _ in range(int(times)):
        process, box = start(program, screen)
        screen.move_to(box[0] + x - left, box[1] + y - top)
        presses = subprocess.Popen(["xdotool", "click", "--repeat", str(PRESSES), "--delay", str(PAUSE), "1"])
        time.sleep(chance.uniform(0, 1.5 * PRESSES * PAUSE / 1000))
        process.kill()
        process.wait()
        presses.wait()
        text = preferences.read_text(encoding="utf-8")
        themes = [line for line in text.splitlines() if line.startswith("tidloTheme=")]
        require(themes in (["tidloTheme=dark"], ["tidloTheme=light"], ["tidloTheme=system"]), f"half a file: {text}")
        for line in ("tidlo.setup.completed=true", "somebody.else=7", "tidlo.spared="):
            require(line in text, f"a preference is lost: {text}")
        outcome = "changed" if text != last else "as before"
        counts[outcome] = counts.get(outcome, 0) + 1
        last = text
        pending = [path for path in preferences.parent.iterdir() if path.name.startswith(preferences.name + ".")]
        counts["drafts left behind"] = counts.get("drafts left behind", 0) + len(pending)
        for path in pending:
            path.unlink()
        for path in Path(os.environ["TMPDIR"]).iterdir():
            shutil.rmtree(path, ignore_errors=True)
    require("Documents" in Run([cli, "spare"], os.environ).output, "what was spared is forgotten")
    require(house.check() == 0, "something moved")
    with Window(program) as window:  # It starts with the existing preferences.
        window.wait("push button", "Theme: .*")
    print(told(counts))


if __name__ == "__main__":
    main(*sys.argv[1:])
