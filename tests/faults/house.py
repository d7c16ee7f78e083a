"""A home folder of which every file is known, so that any loss or change is noticed."""

import hashlib
import json
import os
import subprocess
import tempfile
import time
from pathlib import Path
from urllib.parse import unquote_to_bytes

from case import Broken, Missing, require

OWN = (".config", ".local", ".cache", "tmp")  # The folders to which programs write their own files.
OLD = time.time() - 90 * 24 * 3600
WHATSAPP = "Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media"
PREFERENCES = ".config/com.tidlo.storagecleaner.conf"

# By path; whether a cleanup moves it. There are as many of each as the home is large.
CONTENT = {
    "Sites/web{}/node_modules/deep/a{}.js": True,
    "Sites/web{}/node_modules/b.js": True,
    "Sites/web{}/package.json": False,
    "Sites/web{}/build/out{}.o": True,
    "Sites/lib{}/vendor/c.php": True,
    "Sites/lib{}/composer.json": False,
    "Downloads/old {}.zip": True,
    "Downloads/notes {}.txt": False,
    "Library/Caches/pip/wheel{}": True,
    WHATSAPP + "/photo{}.jpg": False,
    "Documents/letter {}.txt": False,
}


def fingerprint(path):
    """Identifies a file or a link by its content."""
    if path.is_symlink():
        return "-> " + os.readlink(path)
    return hashlib.sha256(path.read_bytes()).hexdigest()


def files_below(folder):
    """Every file and link beneath it; folders do not count, since each contains some."""
    for top, folders, files in os.walk(folder):
        links = [name for name in folders if os.path.islink(os.path.join(top, name))]
        for name in files + links:
            yield Path(top, name)


class House:
    def __init__(self, path, large=4, owner=None):
        self.path = Path(path)
        self.owner = owner
        self.known = {}     # The identity of each file, by its path in the home folder.
        self.movable = set()
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": str(self.path),
            "TMPDIR": str(self.path / "tmp"),
            "LC_ALL": "C.UTF-8",
            "TIDLO_AI_PROXY_HOST": "",
            "QT_QPA_PLATFORM": "offscreen",
            "QT_QUICK_BACKEND": "software",
        }
        self.path.mkdir(parents=True, exist_ok=True)
        (self.path / "tmp").mkdir(exist_ok=True)
        for number in range(large):
            for pattern, is_moved in CONTENT.items():
                self.write(pattern.replace("{}", str(number)), is_moved)
        self.write_preferences()
        if owner:
            given = subprocess.run(["chown", "-R", f"{owner}:{owner}", self.path], check=False, capture_output=True)
            if given.returncode != 0:
                raise Missing("only root can give a home folder to another user.")

    def write(self, relative, is_moved=False):
        path = self.path / relative
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(os.fsencode(relative + "\n") * 40)
        os.utime(path, (OLD, OLD))
        self.known[relative] = fingerprint(path)
        if is_moved:
            self.movable.add(relative)

    def write_preferences(self):
        path = self.path / PREFERENCES
        path.parent.mkdir(exist_ok=True)
        path.write_text("[General]\ntidlo.setup.completed=true\ntidloTheme=light\nsomebody.else=7\n", encoding="utf-8")

    def trashes(self):
        yield self.path / ".local/share/Trash"
        for top in (self.path.parent, self.path, self.path / "Downloads"):  # The last two may be on file systems of
                                                                            # their own.
            yield from top.glob(".Trash-*")

    def in_trash(self):
        """The identity of each file in the Trash, by its former path; an item without a record breaks the promise."""
        found = {}
        for trash in self.trashes():
            for item in (trash / "files").glob("*"):
                record = trash / "info" / (item.name + ".trashinfo")
                require(record.exists(), f"{item} is in the Trash without a record")
                lines = record.read_text(encoding="utf-8").splitlines()
                require(len(lines) == 3 and lines[0] == "[Trash Info]" and lines[1].startswith("Path=")
                        and lines[2].startswith("DeletionDate="), f"{record} is not whole")
                origin = Path(os.fsdecode(unquote_to_bytes(lines[1].removeprefix("Path="))))
                origin = origin if origin.is_absolute() else trash.parent / origin
                items = files_below(item) if item.is_dir() and not item.is_symlink() else [item]
                for file in items:
                    place = str((origin / file.relative_to(item)).relative_to(self.path))
                    found[place] = fingerprint(file)
        return found

    def orphans(self):
        """Records whose item never arrived: allowed, and ignored by all programs."""
        return [record for trash in self.trashes() for record in (trash / "info").glob("*")
                if not (trash / "files" / record.name.removesuffix(".trashinfo")).exists()]

    def at_place(self):
        files = ((file, file.relative_to(self.path)) for file in files_below(self.path))
        return {str(relative): fingerprint(file) for file, relative in files
                if relative.parts[0] not in OWN and not any(part.startswith(".Trash-") for part in relative.parts)}

    def check(self):
        """Checks that nothing is lost and nothing else is touched; returns how many files are in the Trash."""
        here, trashed = self.at_place(), self.in_trash()
        for place, what in self.known.items():
            require(place in here or place in trashed, f"{place} is lost")
            require(not (place in here and place in trashed), f"{place} is there twice")
            require(here.get(place, trashed.get(place)) == what, f"{place} is not what it was")
        require(here.keys() | trashed.keys() <= self.known.keys(),
                f"there is more than before: {sorted((here.keys() | trashed.keys()) - self.known.keys())[:3]}")
        require(trashed.keys() <= self.movable, f"not selected, but moved: {sorted(trashed.keys() - self.movable)[:3]}")
        return len(trashed)

    def left_drafts(self):
        """Files that were being written when a program was killed."""
        pending = [path for path in (self.path / ".config").glob("*") if path.name != Path(PREFERENCES).name]
        return pending + list((self.path / "tmp").iterdir())


def where_it_waits(process):
    """What each of its threads does in the kernel."""
    def told(thread, name):
        try:
            return (thread / name).read_text(encoding="utf-8", errors="replace").strip()
        except OSError as failure:
            return str(failure)

    return "\n".join(" ".join(told(thread, name) for name in ("comm", "wchan", "syscall", "stack"))
                     for thread in Path(f"/proc/{process}/task").glob("*"))


class Run:
    """A program that has ended, by itself or because it was killed."""

    def __init__(self, command, environment, before=None, limit=20, amid=None, **options):
        with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
            process = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL, stdout=output,
                                       stderr=errors, preexec_fn=before, **options)
            try:
                if amid:
                    amid(process)
                self.status = process.wait(limit)
            except subprocess.TimeoutExpired:
                waits = where_it_waits(process.pid)
                process.kill()
                process.wait()
                raise Broken(f"{' '.join(map(str, command))} hangs: {waits}") from None
            except BaseException:
                process.kill()
                process.wait()
                raise
            for file in (output, errors):
                file.seek(0)
            self.output = output.read().decode(errors="replace")
            self.errors = errors.read().decode(errors="replace")

    @property
    def json(self):
        return json.loads(self.output)
