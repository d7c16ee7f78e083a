"""Waiting: only an event of the desktop is a reason to look again."""

import os
from contextlib import contextmanager

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 60  # Seconds, for a machine under heavy load.
BETWEEN_LOOKS = 50  # Milliseconds.

_loop = GLib.MainContext.default()
_is_told = False  # Looking into the accessibility tree also runs the loop, but is not an event.


def tell(*_):
    """Wakes the waiting function."""
    global _is_told
    _is_told = True
    return GLib.SOURCE_CONTINUE


def listen():
    """Makes programs report changes to the accessibility bus, as long as the returned object is kept."""
    listener = Atspi.EventListener.new(tell)
    for kind in ("object", "window"):
        listener.register(kind)
    return listener


def listen_for_end_of(process):
    """Makes the end of the process an event as well."""
    descriptor = os.pidfd_open(process.pid)

    def ended(*_):
        os.close(descriptor)
        tell()
        return GLib.SOURCE_REMOVE

    GLib.unix_fd_add_full(GLib.PRIORITY_DEFAULT, descriptor, GLib.IOCondition.IN, ended)


@contextmanager
def _told_every(milliseconds, tells=tell):
    timer = GLib.timeout_add(milliseconds, tells)
    try:
        yield
    finally:
        GLib.source_remove(timer)


def eventually(what, condition):
    """Waits until the condition returns something true and returns that; fails if it takes too long."""
    global _is_told
    is_late = False

    def give_up():
        nonlocal is_late
        is_late = True
        return tell()

    with _told_every(PATIENCE * 1000, give_up):
        while True:
            _is_told = False
            if found := condition():
                return found
            if is_late:
                raise AssertionError(f"It did not come about that {what}.")
            while not _is_told:
                _loop.iteration(True)
            while _loop.iteration(False) and not is_late:  # One look for all events that come at once.
                pass


def eventually_seen(what, condition):
    """As eventually, for changes without events, such as positions during scrolling: looks again and again."""
    with _told_every(BETWEEN_LOOKS):
        return eventually(what, condition)
