"""The X server: where a window is, what is known of it, and who holds the pointer over it."""

from Xlib import X
from Xlib.display import Display
from Xlib.protocol.event import ClientMessage

from events import GLib, tell


class _Events(GLib.Source):
    """Those of one connection, also the ones that came along with an answer and lie read already."""

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
    """The one of this environment, unless another is named."""

    def __init__(self, name=None):
        self.display = Display(name)
        self.root = self.display.screen().root
        self.root.change_attributes(event_mask=X.PropertyChangeMask | X.EnterWindowMask | X.LeaveWindowMask)
        self.is_pointer_held = False
        self.events = _Events(self.display, self._take)
        self.events.attach(None)
        self.display.sync()

    def close(self):
        self.events.destroy()
        self.display.close()

    def _take(self, event):
        """To the window beneath, a grab of the pointer looks as if it had gone elsewhere."""
        if event.type in (X.EnterNotify, X.LeaveNotify) and event.mode in (X.NotifyGrab, X.NotifyUngrab):
            self.is_pointer_held = event.mode == X.NotifyGrab

    def property(self, window, name):
        """Its values; none if there is no such property."""
        found = window.get_full_property(self.display.intern_atom(name), X.AnyPropertyType)
        return list(found.value) if found else []

    def window_of(self, process):
        """Which the window manager looks after; none if there is none yet."""
        windows = [self.display.create_resource_object("window", one)
                   for one in self.property(self.root, "_NET_CLIENT_LIST")]
        return next((one for one in windows if self.property(one, "_NET_WM_PID") == [process.pid]), None)

    def follow(self, window):
        """From now on what happens to it is told, and whether the pointer over it is in another's hands."""
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

    def ask_manager(self, window, message, *values):
        """Sends the window manager one of the messages that are meant for it."""
        data = (32, [*values, *[0] * (5 - len(values))])
        event = ClientMessage(window=window, client_type=self.display.intern_atom(message), data=data)
        self.root.send_event(event, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.sync()

    def atom(self, name):
        return self.display.intern_atom(name)
