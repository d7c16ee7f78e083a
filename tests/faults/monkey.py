"""Presses random keys, clicks at random places in the window, and checks the home folder.

    monkey.py PROGRAM SEED TIMES

Runs inside tests/ui/window/desktop.py. Now and then it notes what is ticked, moves it, and compares."""

import json
import os
import random
import re
import signal
import subprocess
import sys
import tempfile
from contextlib import suppress
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "ui" / "window"))

import events  # noqa: E402
from case import require  # noqa: E402
from explainer import Explainer  # noqa: E402
from events import eventually_seen  # noqa: E402
from house import House, Run, where_it_waits  # noqa: E402
from window import AS_IT_ENDS, Element, Window  # noqa: E402
from x11 import xdotool  # noqa: E402

events.PATIENCE = 300  # Moving 100,000 paths takes a minute, and more on a busy machine.
KEYS = ["Tab", "Tab", "Tab", "Return", "space", "Escape", "Menu", "Up", "Down", "Left", "Right", "Home", "End",
        "Delete", "ctrl+z", "ctrl+a", "ctrl+c", "ctrl+f", "shift+Tab", "shift+Down", "n", "o", "d", "e"]
BETWEEN_LOOKS, BURST = 150, 25
UNDER_WAY = "Scanning your Mac"
RESULTS = "AI-assisted results — .* found"
ROW = ".*, .*"  # The name of a finding's box: its title and more.
MANY = "Build and distribution outputs"  # The finding of 100,000 paths.

# Messages that Qt itself writes while the program works correctly, one per line.
KEPT = [re.compile(pattern) for pattern in (
    re.escape(AS_IT_ENDS.strip()),
    r"qt\.qpa\.wayland: .*",                     # For features that the compositor lacks.
    r"QQuickFolderDialogImpl.*|.*Dialog.*icon.*",  # Qt's own folder dialog, drawn without the desktop's icons.
    r"qt\.svg: .*",
    r"QSpiApplication::keyEventError .*",          # The accessibility bus is slower than the keys.
)]

AWKWARD = ["<b>bold</b>", "&amp; %1 %n", "\u202egnp.evil", "\u2067right\u2069", "new\nline", "\x1b[31mred", "😀" * 63,
           "-rf", " two  spaces ", "caf\udce9\udcff", "x" * 255, "e\u0301" * 40, "\u200b\u200b"]


def furnish():
    """A home folder with every kind of name that is hard to show, and 100,000 paths in one finding."""
    house = House(os.environ["HOME"], large=6)
    for name in AWKWARD:
        house.write(f"Sites/{name}/node_modules/a", is_moved=True)
        house.write((f"Downloads/{name}"[:250] if name.isascii() else f"Downloads/{name}") + ".zip"
                    if len(os.fsencode(name)) < 250 else f"Documents/{name}", is_moved=len(os.fsencode(name)) < 250)
    many = house.path / "Sites/many"
    many.mkdir()
    for outer in range(1000):
        for inner in range(100):
            project = many / str(outer) / str(inner)
            os.makedirs(project / "build")
            os.symlink("/dev/null", project / "package.json")
            house.known[f"Sites/many/{outer}/{inner}/package.json"] = "-> /dev/null"
    house.movable |= {place for place in house.known if "Media/photo" in place}  # They may be ticked by chance.
    return house


class Followed(Window):
    """A window whose messages are checked against the list above."""

    def __exit__(self, *_):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()
        self.screen.close()
        self.told.seek(0)
        told = self.screen.without_protocol(self.told.read())
        self.told.close()
        strange = [line for line in told.splitlines() if line and not any(kept.fullmatch(line) for kept in KEPT)]
        require(not strange, "the program writes: " + "\n".join(strange[:40]))


class Monkey:
    def __init__(self, program, house, chance):
        self.program, self.house, self.random = program, house, chance
        self.counts = {"actions": 0, "windows": 0, "looks": 0, "moves": 0}

    def act(self, window, times):
        """On X11 all at once: starting a program for each would take most of the time."""
        is_x11 = hasattr(window.screen, "display")
        if not is_x11:  # Qt gives a window that was minimised another surface, which comes a little later.
            process = window.process
            window.native = eventually_seen("the window is there or has ended", lambda: (
                window.screen.window_of(process.pid) or process.poll() is not None))
            window.screen.activate(window.native)  # It may be minimised.
        left, top, width, height = window.geometry
        words = []
        for _ in range(times):
            if self.random.random() < 0.5:
                key = self.random.choice(KEYS)
                words += ["key", key]
                if not is_x11:
                    window.keys(key)
            else:
                x, y = left + self.random.randrange(width), top + self.random.randrange(60, height)
                button = self.random.choices((1, 3, 4, 5), (10, 2, 2, 2))[0]
                words += ["mousemove", x, y, "click", button]
                if not is_x11:
                    window.screen.move_to(x, y)
                    window.screen.click(button)
        if is_x11:
            xdotool(*words)
        self.counts["actions"] += times

    def look(self, window):
        """If there are results: moves what is ticked, and checks that nothing else was moved. False if nothing is left
        to move."""
        self.counts["looks"] += 1
        print(self.counts, file=sys.stderr, flush=True)
        if not self.see_results(window):
            return True
        rows = self.rows(window)
        if not rows:
            return False
        worked = self.work_of_pools(window)
        ticked = self.ticked(window)
        if MANY in ticked:  # Moving all of them takes minutes.
            ticked = self.toggle(window, MANY)
        if not ticked and (titles := [title for title in rows if title != MANY]):
            ticked = self.toggle(window, self.random.choice(titles))
        button = window.find("push button", "Move to Trash")
        if not ticked or not button:
            return True
        before = set(self.house.in_trash())
        if self.work_of_pools(window) != worked:
            return True
        button.press()
        if window.find("dialog"):
            return True
        window.wait("heading", "Cleanup report")
        moved = set(self.house.in_trash()) - before
        kinds = {"node_modules": "Rebuildable project folders", "vendor": "Composer vendor folders",
                 "build": MANY, "Media": "WhatsApp / Chat Media & Attachments",
                 "Caches": "User and developer caches", "Downloads": "Downloads / old installers and archives"}
        for place in moved:
            kind = next(title for word, title in kinds.items() if word in place.split("/"))
            require(kind in ticked, f"{place} was moved, and only this was ticked: {ticked}")
        self.counts["moves"] += 1
        return True

    @staticmethod
    def work_of_pools(window):
        """The processor time of the threads that scan and move. While it grows, a cleanup may be under way that was
        pressed by chance: among the former results, while the scan ran whose results are shown now."""
        spent = 0
        for path in Path(f"/proc/{window.process.pid}/task").glob("*/stat"):
            with suppress(FileNotFoundError, ProcessLookupError):  # A thread may end meanwhile.
                _, name, numbers = re.split(r" \((.*)\) ", path.read_text())
                if name == "Thread (pooled)":
                    spent += sum(map(int, numbers.split()[11:13]))
        return spent

    @staticmethod
    def rows(window):
        """The check boxes of all findings by title, including those that are scrolled out of sight."""
        def below(accessible):
            for i in range(accessible.get_child_count()):
                child = accessible.get_child_at_index(i)
                if child:
                    yield Element(child, None)
                    yield from below(child)

        return window.look(lambda: {one.name.partition(",")[0]: one for one in below(window.application)
                                    if one.role == "check box" and re.fullmatch(ROW, one.name)})

    def ticked(self, window):
        """The titles of the findings that are ticked."""
        rows = self.rows(window)
        return window.look(lambda: [title for title, row in rows.items()
                                    if {"checked", "indeterminate"} & row.states])

    def toggle(self, window, title):
        """Returns what is ticked afterwards."""
        was = title in self.ticked(window)
        self.rows(window)[title].press()
        eventually_seen(f"{title} is toggled", lambda: (title in self.ticked(window)) != was)
        return self.ticked(window)

    @staticmethod
    def see_results(window):
        """Shows all results, whatever was pressed before; False if something is still under way."""
        window.keys("Escape", "Escape", "Escape")
        window.wait_without("heading", UNDER_WAY)
        if not window.find("heading", RESULTS):
            section, scan = window.find("radio button", "Scan"), None
            if section:
                section.press()
                scan = window.find("push button", "SCAN MY MAC")
            if not scan:
                return False
            scan.press()
            window.wait("heading", RESULTS)
        if window.find("dialog") or not window.find("radio button", "All"):
            return False
        window.press("radio button", "All")  # Otherwise rows may be ticked that are not visible.
        window.wait("radio button", "All", state="checked")
        return True

    def put_back(self):
        cli = Path(self.program).parent / "tidlo-cli"
        run = Run([cli, "restore", "--since", "1d", "--all", "--yes"], os.environ, limit=600)
        require(self.house.check() == 0, f"not all came back: {run.output[-500:]}{run.errors[-500:]}")

    def play(self, times, **environment):
        while self.counts["actions"] < times:
            self.house.write_preferences()
            with Followed(self.program, **environment) as window:
                self.counts["windows"] += 1
                end = min(times, self.counts["actions"] + 1000)
                scan = window.find("push button", "SCAN MY MAC")
                if scan:
                    scan.press()
                try:
                    while self.counts["actions"] < end:
                        for _ in range(BETWEEN_LOOKS // BURST):
                            self.act(window, BURST)
                        window.find("frame")  # It still answers.
                        if not self.look(window):
                            break
                except Exception as failure:
                    status = self.ended(window)
                    if status is None:
                        print(self.state_of(window), file=sys.stderr)
                        raise
                    require(status == 0, f"the program ended with {status} ({failure})")
            self.house.check()
            self.put_back()

    @staticmethod
    def ended(window):
        """How it ended, for instance by its close button; None if it still runs."""
        try:
            return window.process.wait(5)
        except subprocess.TimeoutExpired:
            return None

    @staticmethod
    def state_of(window):
        """What its threads do, and what it wrote last."""
        window.told.seek(0)
        lines = window.told.read().splitlines()
        of_window = [line for line in lines if "xdg_toplevel@" in line or "xdg_surface@" in line]
        return "\n".join(["It still runs.", where_it_waits(window.process.pid), *of_window[-30:], *lines[-10:]])


def main(program, seed, times):
    house = furnish()
    monkey = Monkey(program, house, random.Random(int(seed)))
    with tempfile.TemporaryDirectory() as folder:
        service = Explainer(folder)
        service.reply = 200, {"candidates": [{"content": {"parts": [{"text": anything(monkey.random)}]}}]}
        monkey.play(int(times), TIDLO_AI_PROXY_HOST=service.host, SSL_CERT_FILE=str(service.certificate))
    print(", ".join(f"{number:,} {what}" for what, number in monkey.counts.items()))


def anything(chance):
    """As much text as the window accepts: 1 MB with the JSON around it, and as hard to show as possible."""
    pieces = [*AWKWARD[:9], "<img src='file:///etc/passwd'>", "\n\n\n", "# Title\n", "| a | b |\n", "\u0000",
              "W" * 5000]
    chosen, size = [], 0
    while size < 1_030_000:
        chosen.append(chance.choice(pieces))
        size += len(json.dumps(chosen[-1]))
    return "".join(chosen)


if __name__ == "__main__":
    main(*sys.argv[1:])
