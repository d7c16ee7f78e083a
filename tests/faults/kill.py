"""SIGKILL at random moments of everything that changes files."""

import shutil
import statistics
import time

from case import case, require, told
from house import PREFERENCES, House, Run, fingerprint, files_below

HOW = "killed after a random part of the time that it takes"


def kill_after(seconds):
    def kill(process):
        time.sleep(seconds)
        process.kill()

    return kill


class Killer:
    """Kills one command at random moments of the time that it usually takes."""

    def __init__(self, tools, house, command):
        self.random, self.house, self.command = tools.random, house, command

    def learn(self, prepare, times=3):
        def measured():
            prepare()
            began = time.monotonic()
            require(Run(self.command, self.house.environment).status == 0, f"{self.command} does not work")
            return time.monotonic() - began

        self.usual = statistics.median(measured() for _ in range(times))

    def strike(self):
        """Whether it was still running."""
        amid = kill_after(self.random.uniform(0, self.usual * 1.1))
        return Run(self.command, self.house.environment, amid=amid).status == -9


def cli(tools, house, *arguments):
    run = Run([tools.program, *arguments], house.environment)
    require(run.status == 0, f"{arguments} ends with {run.status}: {run.errors}")
    return run


def put_all_back(tools, house):
    for record in house.orphans():
        record.unlink()
    if house.check() > 0:
        cli(tools, house, "restore", "--since", "1d", "--all", "--yes")
    require(house.check() == 0, "not all came back")


@case("kill-scan", "SIGKILL amid a scan", f"`tidlo-cli scan`, {HOW}", 500)
def amid_a_scan(times, tools):
    house = House(tools.folder / "home", large=20)
    killer = Killer(tools, house, [tools.program, "scan", "--json"])
    killer.learn(lambda: None)
    struck = sum(killer.strike() for _ in range(times))
    require(house.check() == 0, "a scan moved something")
    cli(tools, house, "scan")
    return f"{struck} died, the others had ended; nothing changed"


@case("kill-cleanup", "SIGKILL amid a cleanup", f"`tidlo-cli clean --yes`, {HOW}; then all is put back", 500)
def amid_a_cleanup(times, tools):
    house = House(tools.folder / "home", large=20)
    killer = Killer(tools, house, [tools.program, "clean", "--yes"])
    killer.learn(lambda: put_all_back(tools, house))
    counts = {"with nothing moved": 0, "with a part moved": 0, "with all moved": 0}
    orphans = 0
    for _ in range(times):
        put_all_back(tools, house)
        killer.strike()
        moved = house.check()
        counts["with all moved" if moved == len(house.movable) else "with a part moved" if moved else
               "with nothing moved"] += 1
        orphans += len(house.orphans())
    put_all_back(tools, house)
    return f"{told(counts)}; each file at its place or whole in the Trash, {orphans} records without an item"


@case("kill-restore", "SIGKILL amid putting back", f"`tidlo-cli restore --all`, {HOW}; then the rest is put back", 500)
def amid_a_restore(times, tools):
    house = House(tools.folder / "home", large=20)
    killer = Killer(tools, house, [tools.program, "restore", "--since", "1d", "--all", "--yes"])

    def clean():
        put_all_back(tools, house)
        cli(tools, house, "clean", "--yes")

    killer.learn(clean)
    counts = {"with nothing back": 0, "with a part back": 0, "with all back": 0}
    for _ in range(times):
        clean()
        killer.strike()
        left = house.check()
        counts["with all back" if not left else "with a part back" if left < len(house.movable) else
               "with nothing back"] += 1
    put_all_back(tools, house)
    return f"{told(counts)}; the rest came back each time"


@case("kill-spare", "SIGKILL amid a change of what is spared", f"`tidlo-cli spare` and `--remove`, {HOW}", 500)
def amid_a_change(times, tools):
    house = House(tools.folder / "home", large=1)
    place = str(house.path / "Documents")
    counts = {"as before": 0, "as after": 0}
    drafts = 0
    for round_ in range(times):
        is_adding = round_ % 2 == 0
        command = [tools.program, "spare", place] if is_adding else [tools.program, "spare", "--remove", place]
        killer = Killer(tools, house, command)
        if round_ < 2:
            killer.learn(lambda: None, times=1)
            usual = killer.usual
            cli(tools, house, "spare", *(["--remove", place] if is_adding else [place]))
        killer.usual = usual
        killer.strike()
        text = (house.path / PREFERENCES).read_text(encoding="utf-8")
        require(all(line in text for line in ("tidlo.setup.completed=true", "tidloTheme=light", "somebody.else=7")),
                f"a preference is lost: {text}")
        shown = cli(tools, house, "spare").output
        is_spared = place in shown
        require(is_spared or "Everything may be suggested" in shown, f"the list is damaged: {shown}")
        counts["as after" if is_spared == is_adding else "as before"] += 1
        if is_spared != is_adding:  # So that the next command changes something.
            cli(tools, house, *command[1:])
        drafts += len(house.left_drafts())
        for draft in house.left_drafts():
            shutil.rmtree(draft) if draft.is_dir() else draft.unlink()
    require(house.check() == 0, "something moved")
    return (f"the list {told(counts)}, never between; all other preferences stayed; {drafts} drafts left behind, which "
            "nothing reads")


SWITCHES = {"tidloTheme": ("the theme", "light", "dark"),
            "tidlo.explanations": ("the switch “Explain scans”", "false", "true")}


def amid_switching(key, what, *values):
    @case(f"kill-{key}", f"SIGKILL amid a change of {what}",
          "a program that sets it one way and the other by what the window sets it with, killed after some of that",
          500)
    def switching(times, tools):
        house = House(tools.folder / "home", large=1)
        preferences = house.path / PREFERENCES
        cli(tools, house, "spare", str(house.path / "Documents"))
        before = sorted(preferences.read_text(encoding="utf-8").splitlines())
        counts, drafts = {f"{key}={value}": 0 for value in values}, 0
        for _ in range(times):
            amid = kill_after(tools.random.uniform(0, 0.1))
            run = Run([tools.build / "tests/tools/preference_driver", key], house.environment, amid=amid)
            require(run.status == -9, f"it ended by itself: {run.status} {run.errors}")
            lines = preferences.read_text(encoding="utf-8").splitlines()
            [line] = [line for line in lines if line.startswith(f"{key}=")] or [f"{key}=as before"]
            counts[line] = counts.get(line, 0) + 1
            require(line.partition("=")[2] in (*values, "as before"), f"half a value: {line}")
            require(sorted(one for one in lines if one != line) == [one for one in before if not one.startswith(key)],
                    f"another preference changed: {lines}")
            drafts += len(house.left_drafts())
            for draft in house.left_drafts():
                shutil.rmtree(draft) if draft.is_dir() else draft.unlink()
        require("Documents" in cli(tools, house, "spare").output, "what was spared is forgotten")
        require(house.check() == 0, "something moved")
        return f"{told(counts)}; never between, all else as before; {drafts} drafts left behind, which nothing reads"


for each, about in SWITCHES.items():
    amid_switching(each, *about)


def all_of(folder):
    return {str(file.relative_to(folder)): fingerprint(file) for file in files_below(folder)}


def make_bundle(tools, place, mark, files=200):
    """A bundle with a program that places it, and otherwise only programs that end at once."""
    contents = place / "Contents"
    (contents / "MacOS").mkdir(parents=True)
    (contents / "Resources").mkdir()
    shutil.copy(tools.build / "Tidlo.app/Contents/Info.plist", contents)
    shutil.copy(tools.build / "tests/tools/bundle_driver", contents / "MacOS/driver")
    (contents / "MacOS/Tidlo").write_text("#!/bin/sh\n")
    (contents / "MacOS/Tidlo").chmod(0o755)
    for number in range(files):
        (contents / "Resources" / str(number)).write_text(f"{mark} {number}\n" * 50)
    return all_of(place)


@case("kill-placement", "SIGKILL amid placing the application",
      f"the bundle copied over another one, as its own offer does, {HOW}", 500)
def amid_a_placement(times, tools):
    house = House(tools.folder / "home", large=1)
    source, target = house.path / "tmp/from/Tidlo.app", house.path / "tmp/Applications/Tidlo.app"
    new = make_bundle(tools, source, "new")
    killer = Killer(tools, house, [source / "Contents/MacOS/driver", "place", target])
    target.parent.mkdir()

    def put_old_one():
        for left in target.parent.iterdir():
            shutil.rmtree(left)
        return make_bundle(tools, target, "old")

    old = put_old_one()
    killer.learn(put_old_one)
    counts = {"the old one whole": 0, "the new one whole": 0}
    workshops = 0
    for round_ in range(times):
        if round_ % 10 == 0 or all_of(target) == new:
            put_old_one()
        killer.strike()
        now = all_of(target)
        require(now in (old, new), "the application in place is not whole")
        require(all_of(source) == new, "the application that runs is not whole")
        counts["the new one whole" if now == new else "the old one whole"] += 1
        workshops = max(workshops, len(list(target.parent.iterdir())) - 1)
    require(Run(killer.command, house.environment).status == 0, "it can no longer be placed")
    require([left.name for left in target.parent.iterdir()] == ["Tidlo.app"], "what was left over is still there")
    return (f"{told(counts)}, never none and never a part; the next one that ends removes the {workshops} folders left "
            "over")
