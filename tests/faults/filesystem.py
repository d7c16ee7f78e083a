"""A read-only file system in user space that shows a folder as it is, and can be slow, fail, or never answer.
It speaks the kernel's own protocol, so that it needs nothing but this file."""

import ctypes
import errno
import os
import stat
import struct
import threading
from contextlib import contextmanager

from case import Missing

LOOKUP, FORGET, GETATTR, READLINK, OPEN, READ, STATFS, RELEASE = 1, 2, 3, 5, 14, 15, 17, 18
GETXATTR, LISTXATTR, FLUSH, INIT, OPENDIR, READDIR, RELEASEDIR, ACCESS, INTERRUPT, BATCH_FORGET = (
    22, 23, 25, 26, 27, 28, 29, 34, 36, 42)
WITHOUT_ANSWER = (FORGET, BATCH_FORGET)
HEADER = struct.Struct("=IIQQIIII")
DETACH = 2
libc = ctypes.CDLL(None, use_errno=True)


class Mirror:
    """Serves the content of a folder. Before each answer it calls `hold` with the request and the path; that may wait,
    and returns an errno or 0. None means no answer, unless the kernel cancels the request since its process is killed.
    """

    def __init__(self, folder, hold):
        self.paths, self.numbers, self.hold = {1: os.fspath(folder)}, {os.fspath(folder): 1}, hold
        self.device = os.open("/dev/fuse", os.O_RDWR | os.O_CLOEXEC)

    def serve(self):
        while True:
            try:
                request = os.read(self.device, 1 << 17)
            except OSError as error:
                if error.errno == errno.ENODEV:  # Unmounted.
                    return
                continue
            _, code, unique, node, *_ = HEADER.unpack_from(request)
            threading.Thread(target=self._answer, args=(code, unique, node, request[HEADER.size:]), daemon=True).start()

    def _answer(self, code, unique, node, body):
        if code in WITHOUT_ANSWER:
            return
        if code == INTERRUPT:
            self._write(struct.unpack_from("=Q", body)[0], errno.EINTR)
            return
        error = 0 if code == INIT else self.hold(code, self._asked(code, node, body))
        if error is None:
            return
        answer = b""
        if not error:
            try:
                answer = self._content(code, node, body)
            except OSError as failure:
                error = failure.errno
        self._write(unique, error, answer)

    def _asked(self, code, node, body):
        path = self.paths.get(node, "")
        return os.path.join(path, os.fsdecode(body.rstrip(b"\0"))) if code == LOOKUP else path

    def _write(self, unique, error, answer=b""):
        try:
            os.write(self.device, struct.pack("=IiQ", 16 + len(answer), -error, unique) + answer)
        except OSError:  # The process that asked is gone, or has been answered.
            pass

    def _content(self, code, node, body):
        path = self.paths.get(node)
        if code == INIT:
            return struct.pack("=IIIIHHIIHH28x", 7, 31, 1 << 16, 0, 16, 12, 1 << 16, 1, 32, 0)
        if path is None:
            raise OSError(errno.ENOENT, "")
        if code == LOOKUP:
            path = os.path.join(path, os.fsdecode(body.rstrip(b"\0")))
            status = os.lstat(path)
            number = self.numbers.setdefault(path, len(self.numbers) + 1)
            self.paths[number] = path
            return struct.pack("=QQQQII", number, 0, 0, 0, 0, 0) + self._attributes(status, number)
        if code == GETATTR:
            return struct.pack("=QII", 0, 0, 0) + self._attributes(os.lstat(path), node)
        if code == READLINK:
            return os.fsencode(os.readlink(path))
        if code in (OPEN, OPENDIR):
            return struct.pack("=QII", 0, 0, 0)
        if code == READDIR:
            return self._listing(path, *struct.unpack_from("=QQI", body)[1:])
        if code == READ:
            offset, size = struct.unpack_from("=QI", body, 8)
            with open(path, "rb") as file:
                file.seek(offset)
                return file.read(size)
        if code == STATFS:
            return struct.pack("=QQQQQIIII24x", 1 << 20, 1 << 19, 1 << 19, 1 << 16, 1 << 16, 4096, 255, 4096, 0)
        if code in (RELEASE, RELEASEDIR, FLUSH, ACCESS):
            return b""
        raise OSError(errno.ENOSYS if code in (GETXATTR, LISTXATTR) else errno.EROFS, "")

    @staticmethod
    def _attributes(status, number):
        times = [int(moment) for moment in (status.st_atime, status.st_mtime, status.st_ctime)]
        return struct.pack("=QQQQQQIIIIIIIIII", number, status.st_size, status.st_blocks, *times, 0, 0, 0,
                           status.st_mode, status.st_nlink, status.st_uid, status.st_gid, 0, 4096, 0)

    @staticmethod
    def _listing(path, offset, size):
        answer = b""
        for place, name in enumerate(sorted(os.listdir(path))[offset:], offset + 1):
            encoded, mode = os.fsencode(name), os.lstat(os.path.join(path, name)).st_mode
            entry = struct.pack("=QQII", place + 1000, place, len(encoded), stat.S_IFMT(mode) >> 12) + encoded
            entry += b"\0" * (-len(entry) % 8)
            if len(answer) + len(entry) > size:
                break
            answer += entry
        return answer


@contextmanager
def shown(folder, at, hold):
    """Mounts the folder at another place. Requests that still wait at the end get an error."""
    if not os.access("/dev/fuse", os.R_OK | os.W_OK):
        raise Missing("there is no /dev/fuse.")
    mirror = Mirror(folder, hold)
    options = f"fd={mirror.device},rootmode=40000,user_id={os.getuid()},group_id={os.getgid()},allow_other"
    at.mkdir(parents=True, exist_ok=True)
    if libc.mount(b"mirror", os.fsencode(at), b"fuse", 0, options.encode()) != 0:
        os.close(mirror.device)
        raise Missing("nobody here may mount a file system of their own.")
    threading.Thread(target=mirror.serve, daemon=True).start()
    try:
        yield
    finally:
        abort(at)
        libc.umount2(os.fsencode(at), DETACH)


def abort(at):
    """Ends the connection, whatever waits for it. Its number is that of the device, found in the table of mounts."""
    with open("/proc/self/mountinfo", encoding="utf-8") as table:
        device = next((line.split()[2] for line in table if line.split()[4] == os.fspath(at)), None)
    if device:
        try:
            with open(f"/sys/fs/fuse/connections/{device.partition(':')[2]}/abort", "w", encoding="utf-8") as control:
                control.write("1")
        except OSError:
            pass  # The control file system may not be there; the end of this program ends the connection as well.
