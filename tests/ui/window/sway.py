"""The Wayland compositor: the position and properties of a window, and what the program requests for it."""

import json
import os
import re
import socket
import struct
import subprocess

from virtual_input import VirtualInput

RUN_COMMAND, GET_OUTPUTS, GET_TREE = 0, 3, 4
MAGIC = b"i3-ipc"
SCROLLS = {4: (0, -1), 5: (0, 1), 6: (1, -1), 7: (1, 1)}  # Axis and direction, by X11's button numbers.
PROTOCOL = re.compile(r"^\[ *\d+\.\d{3}\] .*\n", re.MULTILINE)


class Screen:
    """The only screen of this environment."""

    ENVIRONMENT = {"WAYLAND_DEBUG": "client"}  # Makes a program log its requests and the events that it gets.
    ZOOMS = False  # Sway does not enlarge a window when its program asks for that.

    def __init__(self):
        self.socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.socket.connect(os.environ["SWAYSOCK"])
        self.input = VirtualInput()
        [output] = self._ask(GET_OUTPUTS)
        self.size = output["rect"]["width"], output["rect"]["height"]

    def close(self):
        self.input.close()
        self.socket.close()

    def _ask(self, kind, payload=""):
        data = payload.encode()
        self.socket.sendall(MAGIC + struct.pack("=II", len(data), kind) + data)
        header = self.socket.recv(len(MAGIC) + 8, socket.MSG_WAITALL)
        length, _ = struct.unpack("=II", header[len(MAGIC):])
        return json.loads(self.socket.recv(length, socket.MSG_WAITALL))

    def _run(self, command):
        [answer] = self._ask(RUN_COMMAND, command)
        assert answer["success"], answer

    def _windows(self):
        waiting = [self._ask(GET_TREE)]
        while waiting:
            node = waiting.pop()
            waiting += node["nodes"] + node["floating_nodes"]
            if "pid" in node:
                yield node

    def _node(self, window):
        return next(node for node in self._windows() if node["id"] == window)

    @staticmethod
    def without_protocol(text):
        """The program's own messages."""
        return PROTOCOL.sub("", text)

    def window_of(self, process):
        """None if there is none yet."""
        return next((node["id"] for node in self._windows() if node["pid"] == process), None)

    def follow(self, window, written):
        """From now on follows the requests of a window's program in the file that it writes to."""
        self.window = window
        self.written, self.read = written.fileno(), 0
        self.is_held = self.is_button_down = False
        self.is_asked_to_minimise = False
        self.answers = 0

    def _heed(self):
        """Reads what the program has written since the last call."""
        text = os.pread(self.written, os.fstat(self.written).st_size - self.read, self.read)
        text = text[:text.rfind(b"\n") + 1]
        self.read += len(text)
        for line in text.decode(errors="replace").splitlines():
            if " wl_pointer@" in line and ".leave(" in line:
                self.is_held = True
            elif " wl_pointer@" in line and ".enter(" in line:
                self.is_held = False
            elif "-> xdg_toplevel@" in line and ".set_minimized(" in line:
                self.is_asked_to_minimise = True
                self._run(f"[con_id={self.window}] move scratchpad")  # Where it is not visible.
            elif "-> wl_data_offer@" in line and ".accept(" in line:
                self.answers += 1

    @property
    def is_pointer_held(self):
        """Whether the pointer is grabbed: the window beneath sees it leave, until the button is released."""
        self._heed()
        return self.is_held and self.is_button_down

    @property
    def answers_to_drags(self):
        """How often the window has said whether it accepts the dragged data."""
        self._heed()
        return self.answers

    def is_minimised(self, _window):
        """Whether it asked to be minimised. Sway ignores that, so _heed() hides the window as other compositors do."""
        self._heed()
        return self.is_asked_to_minimise

    def activate(self, window):
        """Focuses a window, as a task bar does."""
        self.window = window
        self._run(f"[con_id={window}] focus")
        self._heed()
        self.is_asked_to_minimise = False

    def origin(self, window):
        """The origin of the positions that a program reports: it does not know where its window is."""
        return self.geometry(window)[:2]

    def geometry(self, window):
        """Left, top, width and height on the screen."""
        node = self._node(window)
        frame, inside = node["rect"], node["window_rect"]
        return frame["x"] + inside["x"], frame["y"] + inside["y"], inside["width"], inside["height"]

    def title(self, window):
        """The title that task bars show."""
        return self._node(window)["name"]

    def application(self, window):
        """The name by which the desktop finds the program's entry."""
        return self._node(window)["app_id"]

    def frame_extents(self, window):
        """The width of the compositor's frame around it: left, right, top and bottom."""
        node = self._node(window)
        frame, inside, title = node["rect"], node["window_rect"], node["deco_rect"]
        right, bottom = (frame[size] - inside[at] - inside[size] for at, size in (("x", "width"), ("y", "height")))
        return [inside["x"], right, inside["y"] + title["height"], bottom]

    def set_full_screen(self, window, on):
        """Sets or ends full screen, as a key of the compositor does."""
        self._run(f"[con_id={window}] fullscreen {'enable' if on else 'disable'}")

    def place(self, window, x, y):
        self._run(f"[con_id={window}] move absolute position {x} {y}")

    def color_at(self, x, y):
        """Red, green and blue of a pixel of the screen, from 0 to 255."""
        command = ["grim", "-g", f"{x},{y} 1x1", "-t", "ppm", "-"]
        return tuple(subprocess.run(command, check=True, capture_output=True).stdout[-3:])

    @staticmethod
    def clipboard():
        """The clipboard as another program pastes it; empty if there is nothing."""
        return subprocess.run(["wl-paste", "--no-newline"], check=False, capture_output=True, text=True).stdout

    def move_to(self, x, y):
        """Moves the pointer."""
        self.input.move_to(x, y, *self.size)

    def hold(self, button=1):
        self.is_held = False  # The program may not have logged yet that an earlier drag is over.
        self.is_button_down = True
        self.input.set_button(button, True)

    def let_go(self, button=1):
        self.input.set_button(button, False)
        self.is_button_down = False

    def click(self, button=1, times=1):
        """Clicks at the pointer's position; 4 to 7 are the wheel: up, down, left and right."""
        for _ in range(times):
            if button in SCROLLS:
                self.input.scroll(*SCROLLS[button])
            else:
                self.hold(button)
                self.let_go(button)

    def keys(self, *names):
        for name in names:
            self.input.key(name)
