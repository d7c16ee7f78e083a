"""Scarce resources: descriptors, threads, memory, space on the disk."""

import os
import resource
import subprocess
from contextlib import contextmanager

from case import Missing, case, require, told
from house import House, Run, fingerprint

STRANGER = 61234  # A user without processes and without an entry in the user database.
ABORTED, TRAPPED = -6, -5  # Qt and the C++ library end a program by the first signal, GLib by the second.

COMMANDS = {
    "scan": ("scan",),
    "clean": ("clean", "--yes"),
    "restore": ("restore", "--since", "1d", "--all", "--yes"),
    "spare": ("spare", "Documents"),
}


def limited(what, least, user=None):
    """Returns what a child process does before it becomes the program."""
    def limit():
        if user:
            os.setgroups([])
            os.setgid(user)
        resource.setrlimit(what, (least, least))
        if user:
            os.setuid(user)

    return limit


def judged(run, loaded):
    """How it ended, in a word; anything but an exit with a message breaks the promise. The loader, run alone with the
    same limits, shows whether the program could start at all."""
    said = (run.errors + run.output).strip()
    if run.status in (0, 1, 2):
        require(said, f"it ends with {run.status} and says nothing")
        return "worked" if run.status == 0 else "told why not"
    if run.status == 127 or loaded().status != 0:
        return "not even loaded"
    require(run.status in (ABORTED, TRAPPED) and said, f"it ends with {run.status}: {said[-300:]}")
    return "aborted by the runtime"


def attempt(tools, house, words, before=None, **environment):
    """Runs one command, which must not lose anything. Returns how it ended."""
    def run(**more):
        return Run([tools.program, *words], house.environment | environment | more, before=before, cwd=house.path)

    try:
        ended = run()
    except (subprocess.SubprocessError, OSError):
        return "not even started"  # The system gives it no process.
    moved = house.check()
    how = judged(ended, lambda: run(LD_TRACE_LOADED_OBJECTS="1"))
    if words[0] == "clean" and how == "worked":
        require(moved == len(house.movable),
                f"it tells success and moved {moved} of {len(house.movable)}: {ended.output}")
    if words[0] == "restore" and how == "worked":
        require(moved == 0, f"it tells success and left {moved}: {ended.output}")
    return how


def step_by_step(tools, house, steps, prepared, usual=None):
    """Runs each command with each limit, after preparing what it needs without a limit."""
    counts = {name: {} for name in COMMANDS}
    for step in steps:
        for name, words in COMMANDS.items():
            wanted = {"restore": "clean", "clean": "restore"}.get(name)
            if wanted:
                attempt(tools, house, COMMANDS[wanted], before=usual)
            how = attempt(tools, house, words, **prepared(step))
            counts[name][how] = counts[name].get(how, 0) + 1
    attempt(tools, house, COMMANDS["restore"], before=usual)
    require(house.check() == 0, "not all came back")
    return "; ".join(f"{name}: {told(each)}" for name, each in counts.items())


def spread(most, times):
    """This many numbers, from 0 to the most."""
    return sorted({round(most * step / max(times - 1, 1)) for step in range(times)})


@case("limit-descriptors", "few descriptors", "`ulimit -n` from 0 to 64, each command on each step", 65)
def few_descriptors(times, tools):
    house = House(tools.folder / "home")
    return step_by_step(tools, house, spread(64, times),
                        lambda step: {"before": limited(resource.RLIMIT_NOFILE, step)})


@case("limit-processes", "few threads", "`ulimit -u` from 0 to 24 for a user without other processes", 25)
def few_threads(times, tools):
    if os.getuid() != 0:
        raise Missing("it takes root to be another user.")
    tools.folder.chmod(0o755)
    house = House(tools.folder / "home", owner=STRANGER)
    return step_by_step(tools, house, spread(24, times),
                        lambda step: {"before": limited(resource.RLIMIT_NPROC, step, STRANGER)},
                        usual=limited(resource.RLIMIT_CORE, 0, STRANGER))


@case("limit-memory", "little memory", "`ulimit -v` from nothing to 160 MB", 160)
def little_memory(times, tools):
    house = House(tools.folder / "home")
    return step_by_step(tools, house, [step << 18 for step in spread(160 << 2, times)],
                        lambda step: {"before": limited(resource.RLIMIT_AS, step)})


@contextmanager
def small_disk(folder, size):
    """Mounts a file system in memory over a folder."""
    folder.mkdir(parents=True, exist_ok=True)
    subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size},mode=0755", "tmpfs", folder], check=True)
    try:
        yield
    finally:
        subprocess.run(["umount", "--lazy", folder], check=True)


@contextmanager
def room_left(folder, room):
    """Fills a file system with a file until only this many bytes are left; returns the file."""
    status = os.statvfs(folder)
    filler = folder / "tmp/filler"
    filler.parent.mkdir(exist_ok=True)
    with filler.open("wb") as file:
        os.posix_fallocate(file.fileno(), 0, max(status.f_bavail * status.f_frsize - room, 1))
    yield filler
    filler.unlink()


@contextmanager
def names_left(folder, count):
    """Lets a file system in memory take at most this many new files."""
    status = os.statvfs(folder)
    used = status.f_files - status.f_ffree + count
    subprocess.run(["mount", "-o", f"remount,nr_inodes={used}", folder], check=True)
    yield
    subprocess.run(["mount", "-o", "remount,nr_inodes=4096", folder], check=True)


def in_a_small_home(times, tools, limit):
    """Runs each command after limit(folder, step) limited the home folder; without the limit, all is put back."""
    counts = {name: {} for name in COMMANDS}
    for step in spread(32, times):
        for name, words in COMMANDS.items():
            with small_disk(tools.folder / "home", 4 << 20):
                house = House(tools.folder / "home", large=2)
                if name == "restore":
                    attempt(tools, house, COMMANDS["clean"])
                with limit(house.path, step):
                    how = attempt(tools, house, words, TMPDIR=str(tools.folder))
                counts[name][how] = counts[name].get(how, 0) + 1
                if house.check():
                    attempt(tools, house, COMMANDS["restore"])
                require(house.check() == 0, "not all came back")
    return "; ".join(f"{name}: {told(each)}" for name, each in counts.items())


@case("full-home", "the disk of the home is full", "a home of 4 MB in memory with 0 to 32 free pages", 33)
def full_home(times, tools):
    return in_a_small_home(times, tools, lambda folder, step: room_left(folder, step * 4096))


@case("full-names", "the disk of the home takes no more files", "a home in memory that takes 0 to 32 more of them", 33)
def full_of_names(times, tools):
    return in_a_small_home(times, tools, names_left)


def on_a_full_disk(times, tools, folder):
    """A part of the home folder is on a separate file system, with 0 to 16 free pages."""
    counts = {name: {} for name in COMMANDS}
    house = House(tools.folder / "home", large=2)
    for step in spread(16, times):
        for name, words in COMMANDS.items():
            with small_disk(house.path / folder, 64 << 10):
                if folder == ".config":
                    house.write_preferences()
                with room_left(house.path / folder, step * 4096):
                    how = attempt(tools, house, words)
                counts[name][how] = counts[name].get(how, 0) + 1
            if house.check():
                attempt(tools, house, COMMANDS["restore"])
    require(house.check() == 0, "not all came back")
    return "; ".join(f"{name}: {told(each)}" for name, each in counts.items())


@case("full-preferences", "the disk of the preferences is full",
      "another file system at `~/.config`, 0 to 16 free pages", 17)
def full_preferences(times, tools):
    return on_a_full_disk(times, tools, ".config")


@case("full-temporary", "the disk for temporary files is full",
      "another file system at `$TMPDIR`, 0 to 16 free pages", 17)
def full_temporary(times, tools):
    return on_a_full_disk(times, tools, "tmp")


@case("full-trash", "the Trash is another, full disk",
      "another file system at `~/.local/share/Trash`, 0 to 16 free pages", 17)
def full_trash(times, tools):
    return on_a_full_disk(times, tools, ".local/share/Trash")


@case("full-disk-elsewhere", "something to clean lies on a full disk of its own",
      "another file system at `~/Downloads`, 0 to 16 free pages", 17)
def full_downloads(times, tools):
    counts = {}
    for step in spread(16, times):
        house = House(tools.folder / f"home{step}", large=2)
        downloads = house.path / "Downloads"
        kept = {file.name: file.read_bytes() for file in downloads.iterdir()}
        with small_disk(downloads, 128 << 10):
            for name in kept:
                house.write(f"Downloads/{name}", name.endswith(".zip"))
            with room_left(downloads, step * 4096) as filler:
                house.known["Downloads/tmp/filler"] = fingerprint(filler)
                how = attempt(tools, house, COMMANDS["clean"])
                del house.known["Downloads/tmp/filler"]
            counts[how] = counts.get(how, 0) + 1
            attempt(tools, house, COMMANDS["restore"])
            require(house.check() == 0, "not all came back")
    return f"clean: {told(counts)}"
