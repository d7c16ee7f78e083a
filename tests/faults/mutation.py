"""A tree that changes while it is scanned."""

import os
import subprocess
import threading
import time
from pathlib import Path

from case import case, require
from house import House, Run

FOLDERS = ["Sites", "Downloads", "Documents", "Library/Caches/pip", ".cache", "Sites/localhost"]
NAMES = ["node_modules", "vendor", "build", "dist", "web", "shop", "shop copy 2", "shop-3", "a.zip", "b.dmg",
         "composer.json", "package.json", "x", "y", "deep", "coverage", "film.mov", "a.app"]
FAR = "outside"  # Part of the name of everything outside the home folder, and of nothing in it.
LARGE = 8 << 20  # The size of each file outside; all files in the home folder together are smaller.


class Mutator(threading.Thread):
    """Changes things beneath a folder until it is stopped. Only it changes them, so it knows every path that
    ever existed, and notes each before it is made."""

    def __init__(self, home, far, random):
        super().__init__(daemon=True)
        self.home, self.far, self.random = home, far, random
        self.ever, self.links, self.is_over, self.changes, self.failure = set(), set(), False, 0, None
        self.mounts = []

    def run(self):
        try:
            while not self.is_over:
                self.change()
                self.changes += 1
        except BaseException as failure:
            self.failure = failure
        finally:
            for place in self.mounts:
                subprocess.run(["umount", "--lazy", place], check=False, stderr=subprocess.DEVNULL)

    def some_folder(self):
        place = self.home / self.random.choice(FOLDERS)
        for _ in range(self.random.randrange(4)):
            below = [one for one in self.entries(place) if one.is_dir() and not one.is_symlink()]
            if not below:
                break
            place = self.random.choice(below)
        return place

    @staticmethod
    def entries(folder):
        try:
            return sorted(folder.iterdir())
        except OSError:
            return []

    def note(self, place):
        self.ever.add(os.fspath(place))

    def note_below(self, old, new):
        """Notes everything that moves along with a folder."""
        self.note(new)
        if os.path.islink(old):
            self.links.add(os.fspath(new))
        for top, folders, files in os.walk(old):
            for name in folders + files:
                place = os.path.join(top, name)
                self.note(os.fspath(new) + place[len(os.fspath(old)):])
                if os.path.islink(place):
                    self.links.add(os.fspath(new) + place[len(os.fspath(old)):])

    def change(self):
        folder = self.some_folder()
        place = folder / self.random.choice(NAMES)
        what = self.random.choices(("file", "folder", "link", "rename", "delete", "mount", "close"),
                                   (30, 20, 8, 20, 15, 1, 2))[0]
        try:
            getattr(self, what)(folder, place)
        except OSError:
            pass  # It existed, or did not.

    def file(self, _, place):
        self.note(place)
        with place.open("wb") as file:
            file.write(b"x" * self.random.randrange(1, 20000))
        old = time.time() - self.random.choice((1, 46, 90)) * 24 * 3600
        os.utime(place, (old, old))

    def folder(self, _, place):
        self.note(place)
        place.mkdir()

    def link(self, _, place):
        self.note(place)
        self.links.add(os.fspath(place))
        place.symlink_to(self.random.choice((self.far, self.home, self.home / "Sites", ".", "..")))

    def rename(self, folder, place):
        others = self.entries(folder)
        if others:
            source = self.random.choice(others)
            self.note_below(source, place)
            source.rename(place)

    def delete(self, folder, _):
        others = self.entries(folder)
        if not others:
            return
        place = self.random.choice(others)
        if place.is_dir() and not place.is_symlink():
            for top, folders, files in os.walk(place, topdown=False):
                if self.is_on_another(top):
                    return
                for name in files + [one for one in folders if os.path.islink(os.path.join(top, one))]:
                    os.unlink(os.path.join(top, name))
                if not any(os.path.ismount(os.path.join(top, one)) for one in folders):
                    os.rmdir(top) if not os.path.ismount(top) else None
        else:
            place.unlink()

    def is_on_another(self, place):
        return any(os.fspath(place).startswith(os.fspath(mount)) for mount in self.mounts)

    def mount(self, folder, place):
        """Mounts another file system, or an outside folder, for a while."""
        if len(self.mounts) > 3:
            subprocess.run(["umount", "--lazy", self.mounts.pop(0)], check=False, stderr=subprocess.DEVNULL)
            return
        if place.is_symlink():  # It may lead to a folder that a scan begins with, which may lie on any disk.
            return
        self.note(place)
        place.mkdir(exist_ok=True)
        self.links.add(os.fspath(place))
        command = ["--bind", self.far, place] if self.random.randrange(2) else ["-t", "tmpfs", "tmpfs", place]
        self.mounts.append(place)
        subprocess.run(["mount", *command], check=False, stderr=subprocess.DEVNULL)

    def close(self, folder, _):
        folder.chmod(self.random.choice((0o000, 0o700, 0o755)))


def outside(folder):
    """Makes things that a scan would list if they were in the home folder."""
    for place in ("node_modules", "web/node_modules", "vendor", "shop", "shop copy 2", "build"):
        path = folder / f"{FAR} {place}" if "/" not in place else folder / place
        path.mkdir(parents=True, exist_ok=True)
    for place in ("node_modules", f"{FAR}/node_modules", "Downloads"):
        (folder / place).mkdir(parents=True, exist_ok=True)
        (folder / place / f"{FAR}.zip").write_bytes(b"x" * LARGE)
    return folder


@case("mutation", "a tree that changes amid scans",
      "a process makes, renames, links, mounts over, closes and deletes things in the home; so many seconds of scans, "
      "one after another", 60)
def changing(times, tools):
    house = House(tools.folder / "home", large=0)
    for folder in FOLDERS:
        (house.path / folder).mkdir(parents=True, exist_ok=True)
    far = outside(tools.folder / FAR)
    mutator = Mutator(house.path, far, tools.random)
    mutator.start()
    scans = listed = moved_amid = 0
    end = time.monotonic() + times
    try:
        while time.monotonic() < end:
            run = Run([tools.program, "scan", "--json"], house.environment)
            require(mutator.failure is None, f"the mutator failed: {mutator.failure!r}")
            require(run.status == 0, f"a scan ends with {run.status}: {run.errors[-2000:]}")
            scans += 1
            for candidate in run.json["candidates"]:
                require(candidate["bytes"] < LARGE, f"what lies outside was counted: {candidate}")
                for path in candidate["paths"]:
                    listed += 1
                    require(path.startswith(f"{house.path}/") and FAR not in path, f"{path} lies outside")
                    if path in mutator.ever or os.path.relpath(path, house.path) in FOLDERS + [".cache"]:
                        continue
                    # Its folder was renamed between the two looks at it: each part of the path existed, but at
                    # different times.
                    require(is_known_in_parts(path, mutator.ever, house.path), f"{path} never existed")
                    moved_amid += 1
    finally:
        mutator.is_over = True
        mutator.join()
    return (f"{scans} scans amid {mutator.changes:,} changes listed {listed:,} paths; all lay in the home and existed, "
            f"but {moved_amid} whose folder was renamed amid the look at it")


def is_known_in_parts(path, ever, home):
    """Whether a folder on the path existed, and the rest of the path existed beneath another folder."""
    parts = Path(path).relative_to(home).parts
    ever = ever.copy()  # It keeps growing.
    tails = {place.removeprefix(str(home)) for place in ever}
    return any(str(home.joinpath(*parts[:cut])) in ever | {str(home / folder) for folder in FOLDERS}
               and any(tail.endswith("/" + "/".join(parts[cut:])) for tail in tails)
               for cut in range(1, len(parts)))
