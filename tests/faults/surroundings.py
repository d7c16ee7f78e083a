"""Other languages, other time zones, and a desktop that lacks something."""

import subprocess
import time
from datetime import datetime, timedelta, timezone

from case import Missing, case, require
from house import House, Run

LOCALES = ("tr_TR.UTF-8", "ar_EG.UTF-8", "ja_JP.UTF-8", "de_DE.UTF-8", "tr_TR.ISO-8859-9", "ja_JP.EUC-JP")
ZONES = {"Pacific/Kiritimati": 14, "America/St_Johns": None, "UTC": 0, "Etc/GMT+12": -12, "Nowhere/At_All": 0,
         ":/etc/passwd": 0, "": 0, "x" * 5000: 0, "<+2359>-23:59": 23 + 59 / 60}


def texts(tools, house, **environment):
    """The output of each command, without the parts that differ from run to run."""
    def said(*words):
        run = Run([tools.program, *words], house.environment | environment)
        require(run.status == 0, f"{words} ends with {run.status}: {run.errors}")
        return run.output

    return [said("scan", "--paths"), said("clean", "--dry-run"), said("--help"), said("restore"), said("spare")]


@case("locales", "other languages",
      f"{', '.join(LOCALES)} (made by `localedef`), C, POSIX and one that does not exist: what each command prints")
def locales(_, tools):
    made = tools.folder / "locales"
    made.mkdir()
    for name in LOCALES:
        language, _, codes = name.partition(".")
        done = subprocess.run(["localedef", "--no-archive", "-c", "-i", language, "-f", codes, made / name],
                              check=False, capture_output=True)
        if not (made / name).exists():
            raise Missing(f"localedef made no {name}: {done.stderr.decode(errors='replace')[:100]}")
    house = House(tools.folder / "home")
    expected = texts(tools, house)
    for name in (*LOCALES, "C", "POSIX", "xx_YY.UTF-8", ""):
        told = texts(tools, house, LC_ALL=name, LANG=name, LANGUAGE=name, LOCPATH=str(made))
        require(told == expected, f"another output in {name}: {told}")
        before = house.check()
        run = Run([tools.program, "clean", "--yes"], house.environment | {"LC_ALL": name, "LOCPATH": str(made)})
        require(run.status == 0 and house.check() > before, f"nothing was cleaned in {name}")
        Run([tools.program, "restore", "--since", "1d", "--all", "--yes"],
            house.environment | {"LC_ALL": name, "LOCPATH": str(made)})
        require(house.check() == 0, f"not all came back in {name}")
    return f"the same output, cleanup and way back in all {len(LOCALES) + 4} as in C.UTF-8"


@case("time-zones", "other time zones",
      "14 h ahead, 12 h behind, half an hour off, one at the limit, and broken values of `TZ`")
def zones(_, tools):
    house = House(tools.folder / "home", large=2)
    expected = texts(tools, house)[0]
    for name, hours in ZONES.items():
        environment = house.environment | {"TZ": name}
        require(Run([tools.program, "scan", "--paths"], environment).output == expected,
                f"another result in {name[:40]}")
        began = time.time()
        require(Run([tools.program, "clean", "--yes"], environment).status == 0, f"no cleanup in {name[:40]}")
        for since in ("1min", "1h"):
            items = Run([tools.program, "restore", "--since", since, "--json"], environment).json["items"]
            require(len(items) >= 5, f"since {since} only {len(items)} in {name[:40]}")
        if hours is not None:
            local = datetime.fromtimestamp(began, timezone.utc).replace(tzinfo=None) + timedelta(hours=hours)
            for item in items:
                told = datetime.fromisoformat(item["moved"])
                require(abs((told - local).total_seconds()) < 60, f"in {name[:40]} it was moved at {told}, not {local}")
        Run([tools.program, "restore", "--since", "1h", "--all", "--yes"], environment)
        require(house.check() == 0, f"not all came back in {name[:40]}")
    return f"{len(ZONES)} zones: the same findings, and the local time of each move"
