"""The X server: the position and properties of a window, and grabs of the pointer over it."""

import subprocess

from Xlib import X, Xutil
from Xlib.display import Display
from Xlib.protocol.event import ClientMessage

from events import GLib, eventually, tell

FROM_A_PAGER = 2  # Tells the window manager that a task bar asks, which may do more than a program.


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


class _Events(GLib.Source):
    """The events of one connection, including those that arrived with a reply and are already buffered."""

    def __init__(self, display, take):
        super().__init__()
        self.display, self.take = display, take
        self.add_unix_fd(display.fileno(), GLib.IOCondition.IN)

    def prepare(self):
        return self.check(), -1

    def check(self):
        return self.display.pending_events() > 0

    def dispatch(self, *_):
        while self.check():
            self.take(self.display.next_event())
        return tell()


class Screen:
    """The screen of this environment, unless another is named."""

    ENVIRONMENT = {}  # What a program needs so that its requests can be followed.
    ZOOMS = True  # A window becomes as large as the screen when its program asks for that.

    def __init__(self, name=None):
        self.display = Display(name)
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.PropertyChangeMask | X.EnterWindowMask | X.LeaveWindowMask)
        self.is_pointer_held = False
        self.pasted = {}
        self.events = _Events(self.display, self._take)
        self.events.attach(None)
        self.display.sync()

    def close(self):
        self.events.destroy()
        self.display.close()

    def _take(self, event):
        """Notes answers to requests to paste, and grabs of the pointer: the window beneath sees the pointer leave and
        come back."""
        if event.type == X.SelectionNotify:
            self.pasted[event.requestor.id] = event.property
        elif event.type in (X.EnterNotify, X.LeaveNotify) and event.mode in (X.NotifyGrab, X.NotifyUngrab):
            self.is_pointer_held = event.mode == X.NotifyGrab

    @staticmethod
    def without_protocol(text):
        """The program's own messages: everything it has written."""
        return text

    def property(self, window, name):
        """Its values; none if there is no such property."""
        found = window.get_full_property(self.display.intern_atom(name), X.AnyPropertyType)
        return list(found.value) if found else []

    def window_of(self, process):
        """The window of a process, as the window manager knows it; None if there is none yet."""
        windows = [self.display.create_resource_object("window", one)
                   for one in self.property(self.root, "_NET_CLIENT_LIST")]
        return next((one for one in windows if self.property(one, "_NET_WM_PID") == [process]), None)

    def follow(self, window, _written):
        """From now on reports the window's events, and whether the pointer over it is grabbed."""
        window.change_attributes(event_mask=X.StructureNotifyMask | X.PropertyChangeMask | X.EnterWindowMask |
                                 X.LeaveWindowMask)
        self.display.sync()

    def geometry(self, window):
        """Left, top, width and height on the screen."""
        place, size = self.root.translate_coords(window, 0, 0), window.get_geometry()
        return place.x, place.y, size.width, size.height

    def color_at(self, x, y):
        """Red, green and blue of a pixel of the screen, from 0 to 255."""
        blue, green, red, *_ = self.root.get_image(x, y, 1, 1, X.ZPixmap, 0xFFFFFF).data
        return red, green, blue

    def origin(self, _window):
        """The origin of the positions that a program reports."""
        return 0, 0

    def title(self, window):
        """The title that task bars show."""
        return bytes(self.property(window, "_NET_WM_NAME")).decode()

    def application(self, window):
        """The name by which the desktop finds the program's entry."""
        return bytes(self.property(window, "WM_CLASS")).decode().split("\0")[1]

    def frame_extents(self, window):
        """The width of the system's frame around it: left, right, top and bottom."""
        return self.property(window, "_NET_FRAME_EXTENTS")

    def is_minimised(self, window):
        return self.property(window, "WM_STATE")[:1] == [Xutil.IconicState]

    def activate(self, window):
        """Activates a window as a task bar does."""
        self._ask_manager(window, "_NET_ACTIVE_WINDOW", FROM_A_PAGER)

    def set_full_screen(self, window, on):
        """Sets or ends full screen, as the window manager's menu does."""
        self._ask_manager(window, "_NET_WM_STATE", int(on), self.display.intern_atom("_NET_WM_STATE_FULLSCREEN"))

    def _ask_manager(self, window, message, *values):
        """Sends the window manager one of the messages that are meant for it."""
        data = (32, [*values, *[0] * (5 - len(values))])
        event = ClientMessage(window=window, client_type=self.display.intern_atom(message), data=data)
        self.root.send_event(event, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.sync()

    def clipboard(self):
        """The clipboard as another program pastes it; empty if nobody has copied anything."""
        asks = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask)
        clipboard, text = (self.display.intern_atom(name) for name in ("CLIPBOARD", "UTF8_STRING"))
        asks.convert_selection(clipboard, text, text, X.CurrentTime)
        self.display.flush()
        eventually("the request to paste is answered", lambda: asks.id in self.pasted)
        given = self.property(asks, "UTF8_STRING") if self.pasted.pop(asks.id) != X.NONE else []
        asks.destroy()
        return bytes(given).decode()

    @staticmethod
    def move_to(x, y):
        """Moves the pointer."""
        xdotool("mousemove", x, y)

    @staticmethod
    def hold(button=1):
        xdotool("mousedown", button)

    @staticmethod
    def let_go(button=1):
        xdotool("mouseup", button)

    @staticmethod
    def click(button=1, times=1):
        """Clicks at the pointer's position; 4 to 7 are the wheel: up, down, left and right."""
        xdotool("click", "--repeat", times, button)

    @staticmethod
    def keys(*names):
        xdotool("key", *names)
