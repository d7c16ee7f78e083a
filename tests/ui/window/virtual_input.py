"""A pointer and a keyboard that a Wayland compositor takes for real ones: a client that sends the few requests
that this needs. When a method returns, the compositor has done everything."""

import array
import os
import socket
import struct
import tempfile
import time
from pathlib import Path

# The globals that are bound, with their versions.
MANAGERS = {"wl_seat": 1, "zwlr_virtual_pointer_manager_v1": 1, "zwp_virtual_keyboard_manager_v1": 1}
DISPLAY = 1  # The object that exists from the beginning.
SYNC, GET_REGISTRY = 0, 1
BIND, CREATE = 0, 0
MOVE_TO, BUTTON, AXIS, FRAME, AXIS_SOURCE, AXIS_DISCRETE = 1, 2, 3, 4, 5, 7
KEYMAP, KEY, MODIFIERS = 0, 1, 2
ERROR, GLOBAL, DONE = 0, 0, 0
XKB_V1, WHEEL = 1, 0
BUTTONS = {1: 0x110, 2: 0x112, 3: 0x111}  # Linux's codes by X11's numbers.
STEP = 15  # How far a notch of a wheel scrolls.

MASKS = {"shift": 1, "ctrl": 4}
SYMBOLS = ["Tab", "Return", "Escape", "Menu", "space", "Up", "Down", "Left", "Right", "Home", "End", "Delete",
           *"abcdefghijklmnopqrstuvwxyz", "Shift_L", "Control_L"]
HOLDING = {"shift": "Shift_L", "ctrl": "Control_L"}
FIRST_CODE = 9  # X11 counts from 8, and 0 is no key.


def keymap():
    """One key for each symbol, in their order."""
    codes = "".join(f"<K{i}> = {i + FIRST_CODE};" for i in range(len(SYMBOLS)))
    symbols = "".join(f"key <K{i}> {{ [ {symbol} ] }};" for i, symbol in enumerate(SYMBOLS))
    return f"""xkb_keymap {{
        xkb_keycodes {{ minimum = 8; maximum = {FIRST_CODE + len(SYMBOLS)}; {codes} }};
        xkb_types {{ include "complete" }};
        xkb_compatibility {{ include "complete" }};
        xkb_symbols {{ {symbols} }};
    }};\0""".encode()


def _word(value):
    return struct.pack("=I", value)


def _text(value):
    data = value.encode() + b"\0"
    return _word(len(data)) + data + b"\0" * (-len(data) % 4)


def _fixed(value):
    return struct.pack("=i", int(value * 256))


def _now():
    return _word(int(time.monotonic() * 1000) & 0xFFFFFFFF)


class VirtualInput:
    """Exists until it is closed."""

    def __init__(self):
        self.socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.socket.connect(str(Path(os.environ["XDG_RUNTIME_DIR"], os.environ["WAYLAND_DISPLAY"])))
        self.received = self.socket.makefile("rb")
        self.objects = DISPLAY
        self.found = {}
        self.registry = self._make(DISPLAY, GET_REGISTRY)
        self._wait()
        seat, pointers, keyboards = (self._bind(name) for name in MANAGERS)
        self.pointer = self._make(pointers, CREATE, _word(seat))
        self.keyboard = self._make(keyboards, CREATE, _word(seat))
        with tempfile.TemporaryFile() as file:
            content = keymap()
            file.write(content)
            file.flush()
            self._send(self.keyboard, KEYMAP, _word(XKB_V1), _word(len(content)), file=file.fileno())
            self._wait()

    def close(self):
        self.received.close()
        self.socket.close()

    def move_to(self, x, y, width, height):
        """Moves the pointer to a position on a screen of this size."""
        self._send(self.pointer, MOVE_TO, _now(), *map(_word, (x, y, width, height)))
        self._end_of_frame()

    def set_button(self, button, is_down):
        self._send(self.pointer, BUTTON, _now(), _word(BUTTONS[button]), _word(is_down))
        self._end_of_frame()

    def scroll(self, axis, notches):
        """Scrolls along axis 0, down, or 1, to the right."""
        self._send(self.pointer, AXIS_SOURCE, _word(WHEEL))
        self._send(self.pointer, AXIS_DISCRETE, _now(), _word(axis), _fixed(STEP * notches), struct.pack("=i", notches))
        self._end_of_frame()

    def key(self, chord):
        """Presses and releases keys, given as “ctrl+z”."""
        *held, symbol = chord.split("+")
        mask = sum(MASKS[name] for name in held)
        for name in held:
            self._set_key(HOLDING[name], True)
        self._set_modifiers(mask)
        self._set_key(symbol, True)
        self._set_key(symbol, False)
        for name in reversed(held):
            self._set_key(HOLDING[name], False)
        self._set_modifiers(0)
        self._wait()

    def _set_key(self, symbol, is_down):
        code = SYMBOLS.index(symbol) + FIRST_CODE - 8
        self._send(self.keyboard, KEY, _now(), _word(code), _word(is_down))

    def _set_modifiers(self, mask):
        self._send(self.keyboard, MODIFIERS, *map(_word, (mask, 0, 0, 0)))

    def _end_of_frame(self):
        self._send(self.pointer, FRAME)
        self._wait()

    def _send(self, target, request, *arguments, file=None):
        body = b"".join(arguments)
        message = struct.pack("=II", target, (8 + len(body)) << 16 | request) + body
        passed = [] if file is None else [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", [file]))]
        self.socket.sendmsg([message], passed)

    def _make(self, target, request, *arguments):
        """A new object, which is always the last argument here."""
        self.objects += 1
        self._send(target, request, *arguments, _word(self.objects))
        return self.objects

    def _bind(self, interface):
        return self._make(self.registry, BIND, _word(self.found[interface]), _text(interface),
                          _word(MANAGERS[interface]))

    def _wait(self):
        """Waits until the compositor has done all requests."""
        done = self._make(DISPLAY, SYNC), DONE
        happened = None
        while happened != done:
            target, rest = struct.unpack("=II", self.received.read(8))
            body = self.received.read((rest >> 16) - 8)
            happened = target, rest & 0xFFFF
            if happened == (DISPLAY, ERROR):
                raise RuntimeError(f"The compositor refuses: {body[12:].decode(errors='replace')}")
            if happened == (self.registry, GLOBAL):
                name, length = struct.unpack("=II", body[:8])
                self.found[body[8:7 + length].decode()] = name
