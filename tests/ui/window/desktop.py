#!/usr/bin/env python3
"""Runs a command in a private desktop: a screen, a session bus, a window manager and a home folder, all removed
afterwards. It ends with the status of the command.

    desktop.py x11|wayland WIDTHxHEIGHT COMMAND...
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from contextlib import closing, contextmanager
from pathlib import Path

from events import eventually

NEEDED = {
    "x11": ["Xvfb", "openbox", "orca", "xdotool"],
    "wayland": ["sway", "grim", "wl-paste"],
}
NEEDED_BY_BOTH = ["dbus-run-session", "openssl", "gio"]
QUIET = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
SWAY = """xwayland disable
output * resolution {size}
for_window [app_id=".*"] floating enable
exec echo "$WAYLAND_DISPLAY $SWAYSOCK" >&{tells}
"""
BUS = """<busconfig>
  <type>session</type>
  <listen>unix:tmpdir={folder}</listen>
  <servicedir>{services}</servicedir>
  <policy context="default">
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""
SERVICES = Path("/usr/share/dbus-1/services")
STARTED_WHEN_ASKED = ["org.a11y.Bus", "org.gtk.vfs.Daemon", "org.gtk.vfs.Metadata"]


@contextmanager
def running(command, **options):
    """A process that runs as long as the "with" block."""
    process = subprocess.Popen(command, **options)
    try:
        yield process
    finally:
        process.terminate()
        process.wait()


def told_by(descriptor):
    """The words of the line that a server writes to the other end once it has started."""
    with os.fdopen(descriptor) as answer:
        return answer.readline().split()


def openbox(folder):
    """Writes the configuration of openbox, and returns the file. A click beside the windows does nothing: it would open
    a menu with many programs, or show another desktop."""
    configuration = Path(folder, "openbox.xml")
    usual = Path("/etc/xdg/openbox/rc.xml").read_text(encoding="utf-8")
    configuration.write_text(re.sub('<context name="(Desktop|Root)">.*?</context>', "", usual, flags=re.DOTALL),
                             encoding="utf-8")
    return configuration


@contextmanager
def x11(size, environment, folder):
    """The variables that name an X server with one screen and a window manager. The server chooses the name, so that
    many can be started at once."""
    from x11 import Screen

    told, tells = os.pipe()
    server = ["Xvfb", "-displayfd", str(tells), "-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset"]
    with running(server, pass_fds=[tells], stderr=subprocess.DEVNULL):
        os.close(tells)
        [number] = told_by(told)
        display = {"DISPLAY": f":{number}"}
        manager = ["openbox", "--sm-disable", "--config-file", openbox(folder)]
        with running(manager, env=environment | display, cwd=folder, **QUIET):
            # Without a window manager, windows are not placed, and their minimum size does not count.
            with closing(Screen(display["DISPLAY"])) as screen:
                eventually("the window manager has started",
                           lambda: screen.property(screen.root, "_NET_SUPPORTING_WM_CHECK"))
            yield display


@contextmanager
def wayland(size, environment, folder):
    """The variables that name a compositor with one screen, where all windows float."""
    told, tells = os.pipe()
    configuration = Path(folder, "sway")
    configuration.write_text(SWAY.format(size=size, tells=tells), encoding="utf-8")
    headless = {"WLR_BACKENDS": "headless", "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman"}
    # It does not run for root.
    another = ["unshare", "--user", "--map-user=1000", "--map-group=1000"] if os.getuid() == 0 else []
    with running([*another, "sway", "--config", configuration], pass_fds=[tells], env=environment | headless,
                 cwd=folder, **QUIET):
        os.close(tells)
        display, control = told_by(told)
        yield {
            "WAYLAND_DISPLAY": display,
            "SWAYSOCK": control,
            "QT_QPA_PLATFORM": "wayland",
            "GDK_BACKEND": "wayland",
            "NO_AT_BRIDGE": "1",  # Otherwise GTK in a test blocks changes of the accessibility tree.
        }


def bus(folder):
    """Writes the configuration of the session bus, and returns the file. Only services that tests need can start: the
    installed portals would report the settings and devices of the person who works on this machine."""
    services = Path(folder, "services")
    services.mkdir()
    for name in STARTED_WHEN_ASKED:
        (services / f"{name}.service").symlink_to(SERVICES / f"{name}.service")
    configuration = Path(folder, "bus.conf")
    configuration.write_text(BUS.format(folder=folder, services=services), encoding="utf-8")
    return configuration


def environment_of(home):
    """The environment of the programs of this desktop."""
    unwanted = ("XDG_", "DBUS_", "AT_SPI_", "QT_", "WAYLAND_", "SWAY", "GDK_", "DISPLAY", "XAUTHORITY",
                "SESSION_MANAGER", "SSL_CERT_")
    inherited = {name: value for name, value in os.environ.items() if not name.startswith(unwanted)}
    runtime, temporary = home.parent / "runtime", home.parent / "temporary"
    runtime.mkdir(mode=0o700)
    temporary.mkdir()
    return inherited | {
        "HOME": str(home),
        "XDG_RUNTIME_DIR": str(runtime),
        "XDG_CACHE_HOME": str(home.parent / "cache"),  # Otherwise the desktop's own caches could be found by a scan.
        "TMPDIR": str(temporary),
        "LC_ALL": "C.UTF-8",
        "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
        "QT_QUICK_BACKEND": "software",
    }


def main(system, size, *command):
    missing = [program for program in NEEDED[system] + NEEDED_BY_BOTH if not shutil.which(program)]
    if missing:
        sys.exit(f"Not installed: {' '.join(missing)}; see scripts/packages-debian-test.")
    with tempfile.TemporaryDirectory(prefix="tidlo-desktop-") as folder:
        home = Path(folder, "home")
        home.mkdir()
        environment = environment_of(home)
        with {"x11": x11, "wayland": wayland}[system](size, environment, folder) as screen:
            session = ["dbus-run-session", "--config-file", bus(folder), "--"]
            return subprocess.run([*session, *command], env=environment | screen, check=False).returncode


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
