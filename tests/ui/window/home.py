"""The home folder of the desktop, with items of four kinds to clean, and files that must not be touched."""

import os
import subprocess
import time
from pathlib import Path

HOME = Path(os.environ["HOME"])
TRASH = HOME / ".local/share/Trash"
TEMPORARY = Path(os.environ["TMPDIR"])

WHATSAPP = "Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media"
SIZES = {
    "Sites/one/node_modules/a.js": 32768,
    "Sites/one/main.js": 4096,
    "Sites/two/node_modules/b.js": 8192,
    f"{WHATSAPP}/photo.jpg": 20480,
    "Library/Caches/pip/wheel": 12288,
    "Downloads/setup.zip": 8192,
    "Documents/letter.txt": 4096,
}
OLD = ["Downloads/setup.zip"]


def write(relative, size):
    path = HOME / relative
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(b"x" * size)


PREFERENCES = HOME / ".config/com.tidlo.storagecleaner.conf"


def fill():
    """Makes the files, and says that setup has been completed."""
    for relative, size in SIZES.items():
        write(relative, size)
    days_ago = time.time() - 46 * 24 * 3600
    for relative in OLD:
        os.utime(HOME / relative, (days_ago, days_ago))
    PREFERENCES.parent.mkdir(exist_ok=True)
    PREFERENCES.write_text("[General]\ntidlo.setup.completed=true\n", encoding="utf-8")


def forget_setup():
    """Makes the next run a first run."""
    PREFERENCES.unlink()


def fill_with_many():
    """Adds enough that a scan takes a while."""
    for folder in range(200):
        for file in range(50):
            write(f"Sites/many/{folder}/{file}", 1)


def inventory():
    """All files of the user by path: their inode and modification time."""
    files = (path for path in HOME.rglob("*") if not path.relative_to(HOME).parts[0].startswith("."))
    return {
        str(path.relative_to(HOME)): (path.lstat().st_ino, path.lstat().st_mtime_ns)
        for path in files
        if not path.is_dir()
    }


def trashed():
    """The names in the Trash."""
    files = TRASH / "files"
    return sorted(path.name for path in files.iterdir()) if files.exists() else []


def programs_running(program):
    """The processes of a program in this desktop."""
    here = f"HOME={HOME}".encode()

    def is_ours(process):
        try:
            is_program = os.readlink(process / "exe") == os.path.realpath(program)
            return is_program and here in (process / "environ").read_bytes().split(b"\0")
        except OSError:  # It has ended.
            return False

    return [path.name for path in Path("/proc").iterdir() if path.name.isdigit() and is_ours(path)]


def restore_all():
    """Restores everything from the Trash with the desktop's own tool."""
    listing = subprocess.run(["gio", "trash", "--list"], check=True, capture_output=True, text=True).stdout
    addresses = [line.split("\t")[0] for line in listing.splitlines()]
    subprocess.run(["gio", "trash", "--restore", *addresses], check=True)
