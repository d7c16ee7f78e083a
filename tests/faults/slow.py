"""A home on a file system that is slow, silent or faulty."""

import errno
import os
import shutil
import signal
import time

from case import Broken, case, require, told
from filesystem import OPENDIR, shown
from house import House, Run, files_below
from limits import COMMANDS

def listed(result):
    return [(each["title"], each["paths"], each["bytes"]) for each in result["candidates"]]


PATIENCE = 10  # Seconds within which Ctrl-C must end a blocked program.


def where_it_is_held(tools):
    """The whole home folder, and folders in it that a scan reads."""
    whole = House(tools.folder / "true")
    yield whole, tools.folder / "home", whole.path
    for folder in ("Downloads", "Sites", "Library/Caches", ".config", ".local/share"):
        (whole.path / folder).mkdir(parents=True, exist_ok=True)
        yield whole, whole.path / folder, whole.path / folder


def told_of(house, source, at):
    """The environment of programs if the file system is the whole home folder, or lies in it."""
    return house.environment | {"HOME": str(at if source == house.path else house.path), "TMPDIR": str(at.parent)}


def interrupted(command, environment):
    """How it ended after Ctrl-C, and after how many seconds. While items are moved, the first Ctrl-C asks to stop after
    the current item, the second ends the program."""
    began = 0

    def amid(process):
        nonlocal began
        time.sleep(1)
        began = time.monotonic()
        while process.poll() is None and time.monotonic() < began + PATIENCE:
            process.send_signal(signal.SIGINT)
            time.sleep(0.5)

    run = Run(command, environment, amid=amid)
    return run, time.monotonic() - began


@case("fuse-never", "a file system never answers",
      "at the home and at five places of it; Ctrl-C after a second, and again until it ends")
def never(_, tools):
    longest, held = 0, 0
    for house, at, source in where_it_is_held(tools):
        environment = told_of(house, source, at)
        with shown(source, at, lambda *_: None):
            for words in COMMANDS.values():
                words = [environment["HOME"] + "/Documents" if word == "Documents" else word for word in words]
                try:
                    run, seconds = interrupted([tools.program, *words], environment)
                except Broken as fault:
                    raise Broken(f"{fault}, where {at.relative_to(tools.folder)} never answers") from None
                held += run.status not in (0, 1, 2)
                longest = max(longest, seconds)
                require(seconds < PATIENCE, f"{words} goes on for {seconds:.0f} s after Ctrl-C")
        Run([tools.program, *COMMANDS["restore"]], house.environment)
        require(house.check() == 0, "not all came back")
    return f"{held} commands were held up, and ended {longest:.1f} s after it at the latest; nothing lost"


@case("fuse-late", "a file system answers after 30 s", "the first question about `~/Downloads`; others at once", 1)
def late(_, tools):
    house = House(tools.folder / "home")
    first = []

    def hold(code, _):
        if code == OPENDIR and not first:
            first.append(time.monotonic())
            time.sleep(30)
        return 0

    at = house.path / "Downloads"
    before = Run([tools.program, "scan", "--json"], house.environment).json
    began = time.monotonic()
    (tools.folder / "true").mkdir()
    for file in list(at.iterdir()):
        file.rename(tools.folder / "true" / file.name)
    with shown(tools.folder / "true", at, hold):
        run = Run([tools.program, "scan", "--json"], house.environment, limit=120)
    took = time.monotonic() - began
    require(run.status == 0, f"it ends with {run.status}")
    require(first and took > 29, "it was not held up")

    require(listed(run.json) == listed(before), f"another result: {listed(run.json)}")
    return f"the scan took {took:.0f} s and found the same"


@case("fuse-errors", "a file system answers with errors",
      "EIO, EACCES, ENOMEM, ESTALE, ENODEV and ENOTCONN, for all, for every other and for every seventh question")
def faulty(_, tools):
    counts = {}
    for error in (errno.EIO, errno.EACCES, errno.ENOMEM, errno.ESTALE, errno.ENODEV, errno.ENOTCONN):
        for period in (1, 2, 7):
            house = House(tools.folder / f"home{error}-{period}", large=2)
            asked = 0

            def hold(*_, error=error, period=period):
                nonlocal asked
                asked += 1
                return error if asked % period == 0 else 0

            true = tools.folder / f"true{error}-{period}"
            (house.path / "Sites").rename(true)
            (house.path / "Sites").mkdir()
            kept = {str(file.relative_to(true)): file.read_bytes() for file in files_below(true)}
            known = dict(house.known)
            house.known = {place: what for place, what in known.items() if not place.startswith("Sites/")}
            with shown(true, house.path / "Sites", hold):
                for name, words in COMMANDS.items():
                    run = Run([tools.program, *words], house.environment, cwd=house.path)
                    require(run.status in (0, 1), f"{name} ends with {run.status}: {run.errors}")
                    how = f"{name} {'worked' if run.status == 0 else 'told why not'}"
                    counts[how] = counts.get(how, 0) + 1
            require(kept == {str(file.relative_to(true)): file.read_bytes() for file in files_below(true)}, "lost")
            Run([tools.program, *COMMANDS["restore"]], house.environment)
            require(house.check() == 0, "not all came back")
    return told(counts)


def agree(with_errors, without, hit, true, at):
    """A folder that its parent lists is found even if it cannot be opened; it counts as empty."""
    closed = {path.replace(str(true), str(at), 1) for path in hit}

    def known(result):
        return {title: (sorted(set(paths) - closed), size) for title, paths, size in result}

    return known(with_errors) == known(without)


@case("fuse-some", "some entries of the home answer with an error",
      "one in eight, chosen by chance; the scan is compared with one of the same tree without them", 40)
def some(times, tools):
    found = 0
    for round_ in range(times):
        house = House(tools.folder / f"true{round_}", large=3)
        entries = [os.path.join(top, name) for top, folders, files in os.walk(house.path) for name in folders + files]
        hit = [path for path in entries if tools.random.randrange(8) == 0 and not path.endswith(".json")
               and os.path.relpath(path, house.path).split("/")[0] not in (".config", "tmp")]
        at = tools.folder / "home"
        environment = house.environment | {"HOME": str(at), "TMPDIR": str(tools.folder)}

        def hold(_, path, hit=frozenset(hit)):
            return errno.EIO if path in hit else 0

        with shown(house.path, at, hold):
            with_errors = listed(Run([tools.program, "scan", "--json"], environment).json)
        for path in hit:
            if os.path.lexists(path):
                shutil.rmtree(path) if os.path.isdir(path) else os.unlink(path)
        with shown(house.path, at, lambda *_: 0):
            without = listed(Run([tools.program, "scan", "--json"], environment).json)
        require(agree(with_errors, without, hit, house.path, at),
                f"with errors {with_errors}, without the entries {without}")
        found += sum(len(paths) for _, paths, _ in without)
    return (f"the same {found} paths, and the same bytes, each time; a folder that cannot itself be opened is listed "
            "with nothing counted of it")
