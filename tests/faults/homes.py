"""Unusable home folders, and wrong clocks."""

import os
import pwd
import resource
import subprocess
import time
from contextlib import contextmanager
from pathlib import Path

from case import Missing, case, require, told
from house import House, Run
from limits import COMMANDS, STRANGER, attempt, limited


def each_command(tools, house, before=None, **environment):
    counts = {}
    for name, words in COMMANDS.items():
        counts[name] = attempt(tools, house, words, before=before, **environment)
    if house.check():
        attempt(tools, house, COMMANDS["restore"])
    require(house.check() == 0, "not all came back")
    return ", ".join(f"{name} {how}" for name, how in counts.items())


@contextmanager
def mounted(*arguments):
    subprocess.run(["mount", *arguments], check=True)
    try:
        yield
    finally:
        subprocess.run(["umount", "--lazy", arguments[-1]], check=True)


@case("home-read-only", "the home is read-only", "mounted so; each command")
def read_only(_, tools):
    house = House(tools.folder / "home")
    with mounted("--bind", house.path, house.path):
        subprocess.run(["mount", "-o", "remount,bind,ro", house.path], check=True)
        what = each_command(tools, house, TMPDIR=str(tools.folder))
    require(house.check() == 0, "something moved")
    return what


@case("home-unset", "no `$HOME`",
      "unset, and empty; the home of the database of users lies over the real one for that time")
def unset(_, tools):
    house = House(tools.folder / "home")
    real = pwd.getpwuid(os.getuid()).pw_dir
    with mounted("--bind", house.path, real):
        house.path, environment = Path(real), house.environment
        with_empty = each_command(tools, house, HOME="")
        house.environment = {name: value for name, value in environment.items() if name != "HOME"}
        require(each_command(tools, house) == with_empty, "unset is not as empty")
    require("clean worked" in with_empty, "the home of the database of users is not used")
    return with_empty


WRONG = {
    "a name alone": "home",
    "a place that does not exist": "/nowhere/at/all",
    "a file": "/etc/passwd",
    "a device": "/dev/null",
    "the root of the file system": "/",
    "4,000 characters": "/" + "x/" * 2000,
    "not UTF-8": "/\udcff\udcfe",
}


@case("home-wrong", "`$HOME` leads to nothing good",
      f"{', '.join(WRONG)}: each command, as a user without rights and without an entry in the database")
def wrong(_, tools):
    if os.getuid() != 0:
        raise Missing("it takes root to be another user.")
    house = House(tools.folder / "home", large=1)
    counts = {}
    for home in WRONG.values():
        for words in COMMANDS.values():
            run = Run([tools.program, *words], house.environment | {"HOME": home, "TMPDIR": "/tmp"},
                      before=limited(resource.RLIMIT_CORE, 0, STRANGER))
            require(run.status in (0, 1, 2) and (run.errors + run.output).strip(),
                    f"{words} ends with {run.status} where the home is {home[:40]}: {run.errors}")
            require(house.check() == 0, "something moved")
            how = "worked, with nothing to do" if run.status == 0 else "told why not"
            counts[how] = counts.get(how, 0) + 1
    return told(counts)


@case("home-closed", "the home and its folders cannot be read",
      "`chmod 0` on each of them in turn, as an ordinary user")
def closed(_, tools):
    if os.getuid() != 0:
        raise Missing("it takes root to be another user.")
    house = House(tools.folder / "home", owner=STRANGER)
    counts = {}
    stranger = limited(resource.RLIMIT_CORE, 0, STRANGER)
    for folder in (".", "Sites", "Sites/web0", "Sites/web0/node_modules", "Downloads", "Library/Caches", ".config",
                   ".local"):
        path = house.path / folder
        path.mkdir(exist_ok=True)
        for words in COMMANDS.values():
            mode = path.stat().st_mode
            path.chmod(0)
            try:
                run = Run([tools.program, *words], house.environment, before=stranger)
            finally:
                path.chmod(mode)
            require((run.errors + run.output).strip(), "it says nothing")
            require(run.status in (0, 1, 2), f"it ends with {run.status}: {run.errors}")
            house.check()
            how = "worked" if run.status == 0 else "told why not"
            counts[how] = counts.get(how, 0) + 1
            Run([tools.program, *COMMANDS["restore"]], house.environment, before=stranger)
            require(house.check() == 0, "not all came back")
    return told(counts)


DAY = 24 * 3600


@case("clock", "the clock is wrong, or is set back meanwhile",
      "1970, 1980, an hour back, 2037, 2106, 2200 and the year 9999, each before and after the cleanup")
def clock(_, tools):
    shim = tools.folder / "clock.so"
    source = Path(__file__).parent / "clock.c"
    built = subprocess.run(["cc", "-shared", "-fPIC", "-O1", "-o", shim, source], check=False)
    if built.returncode:
        raise Missing("there is no C compiler.")
    moments = {"1970": 1, "1980": 10 * 365 * DAY, "an hour back": time.time() - 3600, "2037": 67 * 365.2 * DAY,
               "2106": 136 * 365.2 * DAY, "2200": 230 * 365.2 * DAY, "9999": 8029 * 365.2 * DAY}
    house = House(tools.folder / "home", large=2)
    paths = sorted({str(house.path / place) for place in ("Sites/web0/node_modules", "Sites/lib1/vendor")})

    def at(moment, *words):
        shift = {"LD_PRELOAD": str(shim), "CLOCK_SHIFT": str(int(moment - time.time()))} if moment else {}
        run = Run([tools.program, *words], house.environment | shift)
        require(run.status == 0, f"{words} ends with {run.status} where the clock is {moment}: {run.errors}")
        return run

    for name, moment in moments.items():
        for cleaned, restored in ((moment, moment), (moment, None), (None, moment)):
            at(cleaned, "scan")
            moved = at(cleaned, "clean", "--yes") and house.check()
            require(moved >= 8, f"in {name} only {moved} files moved")  # Nothing counts as old if the clock is far
                                                                        # back.
            listed = at(restored, "restore", "--json").json["items"]
            require(len(listed) >= 5, f"in {name} only {len(listed)} items are listed")
            at(restored, "restore", "--yes", *paths)
            at(restored, "restore", "--yes", *[item["path"] for item in listed if item["path"] not in paths])
            require(house.check() == 0, f"in {name} not all came back")
    return f"{3 * len(moments)} cleanups, all listed and all put back"
