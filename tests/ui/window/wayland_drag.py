"""A drag from a file browser onto a window, made with another toolkit."""

import itertools
import os

import gi

from events import eventually, eventually_seen, tell

gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk  # noqa: E402

PLACE = 10, 10  # On the screen, beside the other window.
SIZE = 60
INSIDE, FARTHER = 20, 45


class Drag:
    """A drag of files, given by URLs."""

    def __init__(self, urls):
        self.urls = urls
        self.is_under_pointer = False
        self.has_begun = False
        self.is_taken = None
        self.window = Gtk.Window(default_width=SIZE, default_height=SIZE, decorated=False)
        self.window.drag_source_set(Gdk.ModifierType.BUTTON1_MASK, [], Gdk.DragAction.COPY)
        self.window.drag_source_add_uri_targets()
        self.window.connect("drag-data-get", lambda _, __, data, *___: data.set_uris(self.urls))
        self.window.connect("enter-notify-event", self._come_under)
        self.window.connect("drag-begin", self._begin)
        self.window.connect("drag-failed", self._end, False)
        self.window.connect("drag-end", self._end, True)
        self.window.show_all()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.window.destroy()

    def _come_under(self, *_):
        self.is_under_pointer = True
        tell()

    def _begin(self, *_):
        self.has_begun = True
        tell()

    def _end(self, *arguments):
        """Ends a failed drag as well."""
        if self.is_taken is None:
            self.is_taken = arguments[-1]
        tell()
        return True

    @staticmethod
    def _pull(screen, x, y, what, condition):
        """Moves to and fro at a position until something happens: both programs react only while the pointer moves."""
        ways = itertools.cycle((0, 1))

        def happens():
            screen.move_to(x + next(ways), y)
            return condition()

        eventually_seen(what, happens)

    def drop_on(self, window, x, y):
        """Drops once at a position on the screen; returns whether the window took it."""
        screen = window.screen
        own = eventually_seen("there is something to drag", lambda: screen.window_of(os.getpid()))
        screen.place(own, *PLACE)
        before = screen.answers_to_drags
        left, top, *_ = screen.geometry(own)
        self._pull(screen, left + INSIDE, top + INSIDE, "the pointer is over it", lambda: self.is_under_pointer)
        screen.hold()
        self._pull(screen, left + FARTHER, top + FARTHER, "the drag has begun", lambda: self.has_begun)
        self._pull(screen, x, y, "the window has answered", lambda: screen.answers_to_drags > before)
        screen.let_go()
        eventually("the drag has ended", lambda: self.is_taken is not None)
        self.window.destroy()
        # Otherwise the next drag takes this window for its own.
        eventually_seen("what was dragged is gone", lambda: screen.window_of(os.getpid()) is None)
        return self.is_taken
