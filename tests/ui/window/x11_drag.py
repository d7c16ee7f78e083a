"""A drag from a file browser onto a window, with version 5 of the XDND protocol."""

from Xlib import X
from Xlib.protocol.event import ClientMessage, SelectionNotify

from events import eventually
from x11 import Screen

VERSION = 5


class Drag:
    """A drag of files, given by URLs."""

    def __init__(self, urls):
        self.content = "".join(f"{url}\r\n" for url in urls).encode()
        self.screen = Screen()
        self.display = self.screen.display
        self.window = self.screen.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.answers = {}
        self.screen.events.take = self._take
        self.window.set_selection_owner(self._atom("XdndSelection"), X.CurrentTime)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.screen.close()

    def _atom(self, name):
        return self.display.intern_atom(name)

    def _take(self, event):
        if event.type == X.SelectionRequest:
            event.requestor.change_property(event.property, event.target, 8, self.content)
            event.requestor.send_event(SelectionNotify(time=event.time, requestor=event.requestor, target=event.target,
                                                       selection=event.selection, property=event.property))
            self.display.flush()
        elif event.type == X.ClientMessage:
            is_accepted = bool(event.data[1][1] & 1)
            self.answers[self.display.get_atom_name(event.client_type)] = is_accepted

    def _tell(self, target, message, *values):
        data = (self.window.id, *values) + (0,) * (4 - len(values))
        target.send_event(ClientMessage(window=target, client_type=self._atom(message), data=(32, data)))
        self.display.flush()

    def _answer(self, message):
        eventually(f"the window has sent {message}", lambda: message in self.answers)
        return self.answers[message]

    def drop_on(self, window, x, y):
        """Drops at a position on the screen; returns whether the window took it."""
        target = self.display.create_resource_object("window", window.native.id)
        assert self.screen.property(target, "XdndAware")[0] >= VERSION
        self._tell(target, "XdndEnter", VERSION << 24, self._atom("text/uri-list"))
        self._tell(target, "XdndPosition", 0, x << 16 | y, X.CurrentTime, self._atom("XdndActionCopy"))
        if not self._answer("XdndStatus"):
            self._tell(target, "XdndLeave")
            return False
        self._tell(target, "XdndDrop", 0, X.CurrentTime)
        return self._answer("XdndFinished")
