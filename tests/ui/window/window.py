"""The program's window: seen through the accessibility tree, used with keys and the mouse."""

import os
import re
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PATIENCE = 60  # Seconds, for a machine under heavy load.
BETWEEN_LOOKS = 0.05


def eventually(what, condition):
    """What the condition gives as soon as that is something; fails if it takes too long."""
    deadline = time.monotonic() + PATIENCE
    while not (found := condition()):
        if time.monotonic() > deadline:
            raise AssertionError(f"It did not come about that {what}.")
        time.sleep(BETWEEN_LOOKS)
    return found


def xdotool(*arguments):
    command = ["xdotool", *(str(argument) for argument in arguments)]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


class Element:
    """Something in the accessibility tree, as it is now."""

    def __init__(self, accessible):
        self.accessible = accessible

    @property
    def role(self):
        return self.accessible.get_role_name()

    @property
    def name(self):
        return self.accessible.get_name() or ""

    @property
    def description(self):
        return self.accessible.get_description() or ""

    @property
    def states(self):
        return {state.value_nick for state in self.accessible.get_state_set().get_states()}

    @property
    def extents(self):
        return self.accessible.get_extents(Atspi.CoordType.SCREEN)

    @property
    def center(self):
        box = self.extents
        return box.x + box.width // 2, box.y + box.height // 2

    def press(self):
        """As assistive technology does."""
        actions = [self.accessible.get_action_name(i) for i in range(self.accessible.get_n_actions())]
        action = next(i for i, name in enumerate(actions) if name in ("Press", "Toggle"))
        assert self.accessible.do_action(action)

    def __repr__(self):
        try:
            return f"{self.role} “{self.name}”"
        except GLib.Error:
            return "something that is gone"


class Window:
    def __init__(self, program, **environment):
        self.process = subprocess.Popen([program], env=os.environ | environment)
        desktop = Atspi.get_desktop(0)
        desktop.set_cache_mask(Atspi.Cache.NONE)
        self.application = eventually("the program is in the tree", lambda: self._application_of(desktop))
        self.frame = self.wait("frame")
        eventually("the window is active", lambda: "active" in self.frame.states)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def _application_of(self, desktop):
        candidates = (desktop.get_child_at_index(i) for i in range(desktop.get_child_count()))
        return next((one for one in candidates if one and one.get_process_id() == self.process.pid), None)

    def elements(self):
        """All that is shown, in the order of the tree."""
        def below(accessible):
            for i in range(accessible.get_child_count()):
                child = accessible.get_child_at_index(i)
                if child and child.get_state_set().contains(Atspi.StateType.SHOWING):
                    yield Element(child)
                    yield from below(child)

        return list(below(self.application))

    def all(self, role, name=".*"):
        """What is shown with a role and a name that match regular expressions as a whole."""
        while True:
            try:
                return [one for one in self.elements() if re.fullmatch(role, one.role) and re.fullmatch(name, one.name)]
            except GLib.Error:  # Something went away meanwhile.
                assert self.process.poll() is None, "The program has ended."

    def find(self, role, name=".*"):
        return next(iter(self.all(role, name)), None)

    def wait(self, role, name=".*", state="showing"):
        def found():
            element = self.find(role, name)
            return element if element and state in element.states else None

        return eventually(f"{role} “{name}” is {state}", found)

    def wait_without(self, role, name=".*", state="showing"):
        eventually(f"{role} “{name}” is not {state}",
                   lambda: all(state not in element.states for element in self.all(role, name)))

    def click(self, role, name=".*", button=1):
        self.click_at(*self.wait(role, name).center, button)

    @staticmethod
    def click_at(x, y, button=1):
        xdotool("mousemove", x, y, "click", button)

    def press(self, role, name=".*"):
        self.wait(role, name).press()

    @staticmethod
    def keys(*names):
        xdotool("key", *names)

    def focused(self):
        """What the keyboard reaches, if anything does."""
        return next((one for one in self.elements() if "focused" in one.states), None)

    def wait_for_focus(self):
        return eventually("something has the keyboard", self.focused)

    def ended(self):
        """The status that the program ends with."""
        return self.process.wait(timeout=PATIENCE)

    @property
    def id(self):
        """What the window system calls it."""
        return xdotool("search", "--pid", self.process.pid).split()[-1]

    @property
    def geometry(self):
        """Left, top, width and height on the screen."""
        shell = xdotool("getwindowgeometry", "--shell", self.id)
        values = dict(line.split("=") for line in shell.split())
        return tuple(int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))

    def change_state(self, change):
        """As from the window manager's menu: see "wmctrl -b"."""
        subprocess.run(["wmctrl", "-i", "-r", self.id, "-b", change], check=True)

    def property(self, name):
        """What the window system knows of it."""
        shown = subprocess.run(["xprop", "-id", self.id, name], check=True, capture_output=True, text=True)
        return shown.stdout.partition(name)[2]
