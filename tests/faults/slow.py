"""A home on a file system that is slow, silent or faulty."""

import errno
import signal
import time

from case import case, require, told
from filesystem import OPENDIR, shown
from house import House, Run, files_below
from limits import COMMANDS

PATIENCE = 10  # Seconds until Ctrl-C has to have ended a program that is held up.


def where_it_is_held(tools):
    """The whole home, and folders of it that a scan comes to."""
    whole = House(tools.folder / "true")
    yield whole, tools.folder / "home", whole.path
    for folder in ("Downloads", "Sites", "Library/Caches", ".config", ".local/share"):
        (whole.path / folder).mkdir(parents=True, exist_ok=True)
        yield whole, whole.path / folder, whole.path / folder


def told_of(house, source, at):
    """What programs are told where the file system is the whole home, or lies in it."""
    return house.environment | {"HOME": str(at if source == house.path else house.path), "TMPDIR": str(at.parent)}


def interrupted(command, environment):
    """How it ended after Ctrl-C, and the seconds that this took. Where things are moved, the first asks to stop after the
    item at hand, the second ends it."""
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
        with shown(source, at, lambda code: None):
            for words in COMMANDS.values():
                words = [environment["HOME"] + "/Documents" if word == "Documents" else word for word in words]
                run, seconds = interrupted([tools.program, *words], environment)
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

    def hold(code):
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

    def listed(result):
        return [(each["title"], each["paths"]) for each in result["candidates"]]

    require(listed(run.json) == listed(before), f"another result: {listed(run.json)}")
    return f"the scan took {took:.0f} s and found the same"


@case("fuse-errors", "a file system answers with errors", "EIO, EACCES, ENOMEM, ESTALE, ENODEV and ENOTCONN, for all, for every other and for every seventh question")
def faulty(_, tools):
    counts = {}
    for error in (errno.EIO, errno.EACCES, errno.ENOMEM, errno.ESTALE, errno.ENODEV, errno.ENOTCONN):
        for period in (1, 2, 7):
            house = House(tools.folder / f"home{error}-{period}", large=2)
            asked = 0

            def hold(code, error=error, period=period):
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
