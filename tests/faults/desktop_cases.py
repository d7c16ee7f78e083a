"""The cases that need the window."""

import os
import subprocess
from pathlib import Path

from case import Missing, case, require

HERE = Path(__file__).resolve().parent
DESKTOP = HERE.parent / "ui" / "window" / "desktop.py"
PYTHON = "/usr/bin/python3"  # Only the system's own Python has the bindings for the accessibility tree.


def in_desktop(tools, system, program, *arguments):
    """The last line that a program prints in a private desktop session."""
    command = [PYTHON, "-B", DESKTOP, system, "1800x1100", PYTHON, "-B", HERE / program, *map(str, arguments)]
    run = subprocess.run(list(map(str, command)), check=False, capture_output=True, text=True, timeout=3600,
                         env=os.environ | {"TMPDIR": str(tools.folder)}, errors="replace")
    if "Not installed" in run.stderr:
        raise Missing(run.stderr.strip().splitlines()[-1])
    require(run.returncode == 0, (run.stdout + run.stderr)[-3000:])
    return run.stdout.strip().splitlines()[-1]


def monkey(system):
    @case(f"monkey-{system}", f"keys and clicks by chance, {system}",
          "anywhere in the window; markup, direction marks and 255-byte names, 100,000 paths in one finding, an "
          "explanation of 1 MB of anything", 3000)
    def play(times, tools):
        told = in_desktop(tools, system, "monkey.py", tools.build / "tidlo", tools.seed, times)
        return f"{told}; only what was ticked moved, all came back, nothing on standard error"


monkey("x11")
monkey("wayland")


@case("kill-switches", "SIGKILL of the window amid a change of the theme",
      "its button pressed every 10 ms, each press writes the preferences; killed at a random moment of that", 500)
def switches(times, tools):
    told = in_desktop(tools, "x11", "switches.py", tools.build / "tidlo", tools.seed, times)
    return f"the preferences {told}; each time they were whole, and nothing else in them changed"


def bare(what, title, provoked):
    @case(f"bare-{what}", title, provoked)
    def lacks(_, tools):
        return in_desktop(tools, "x11", "bare.py", tools.build / "tidlo", what)


bare("bus", "no D-Bus", "both addresses lead nowhere; the window is opened, used by keys and closed")
bare("fonts", "no fonts", "an empty configuration of fontconfig; the same")
bare("display", "no display", "`DISPLAY` leads nowhere")
