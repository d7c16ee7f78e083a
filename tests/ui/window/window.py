"""The program's window: seen through the accessibility tree, used with keys and the mouse."""

import os
import re
import subprocess
import tempfile

from events import Atspi, GLib, eventually, eventually_seen, listen, listen_for_end_of
from screen import Screen

EXPLANATION = "Explanation: (?s:.*)"  # The name of the card with what the service answered.
# Qt writes it if the objects for a network service are loaded while the program ends.
AS_IT_ENDS = "qt.core.qobject.connect: QObject::connect(QObject, Unknown): invalid nullptr parameter\n"
# Qt writes it if a screen reader took too long to handle a key, and if it then handles it after all.
BUSY_READER = re.compile(r'QSpiApplication::(keyEventError  ".*"|notifyKeyboardListenerCallback with no queued key called)\n')


class Element:
    """An element of the accessibility tree, in its current state."""

    def __init__(self, accessible, origin):
        self.accessible, self.origin = accessible, origin

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
        """Its rectangle on the screen."""
        box, (left, top) = self.accessible.get_extents(Atspi.CoordType.SCREEN), self.origin()
        box.x, box.y = box.x + left, box.y + top
        return box

    @property
    def center(self):
        box = self.extents
        return box.x + box.width // 2, box.y + box.height // 2

    def press(self):
        """Presses it as assistive technology does."""
        actions = [self.accessible.get_action_name(i) for i in range(self.accessible.get_n_actions())]
        action = next(i for i, name in enumerate(actions) if name in ("Press", "Toggle"))
        assert self.accessible.do_action(action)

    def __repr__(self):
        try:
            return f"{self.role} “{self.name}”"
        except GLib.Error:
            return "something that is gone"


class Window:
    """The window of a program that must write nothing to standard error."""

    def __init__(self, program, **environment):
        self.listener = listen()
        self.screen = Screen()
        self.told = tempfile.TemporaryFile("w+")
        self.process = subprocess.Popen([program], env=os.environ | Screen.ENVIRONMENT | environment,
                                        stderr=self.told)
        listen_for_end_of(self.process)
        try:
            self._find()
        except BaseException:
            self.process.kill()  # The "with" block was not entered, so it is not left either.
            raise

    def _find(self):
        """Waits until the window exists."""
        desktop = Atspi.get_desktop(0)
        desktop.set_cache_mask(Atspi.Cache.NONE)
        self.application = eventually("the program is in the tree", lambda: self._application_of(desktop))
        self.frame = self.wait("frame")
        eventually_seen("the window is active", lambda: "active" in self.frame.states)
        self.native = eventually("the window manager knows the window", lambda: self.screen.window_of(self.process.pid))
        self.screen.follow(self.native, self.told)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.screen.close()
        self.told.seek(0)
        told = self.screen.without_protocol(self.told.read()).replace(AS_IT_ENDS, "")
        told = BUSY_READER.sub("", told)
        self.told.close()
        assert not told, f"The program wrote to standard error:\n{told}"

    def _application_of(self, desktop):
        candidates = (desktop.get_child_at_index(i) for i in range(desktop.get_child_count()))
        return next((one for one in candidates if one and one.get_process_id() == self.process.pid), None)

    def _origin(self):
        return self.screen.origin(self.native)

    def shown(self):
        """The visible elements, in the order of the tree. Each is fetched when it is reached, which takes a while."""
        def below(accessible):
            for i in range(accessible.get_child_count()):
                child = accessible.get_child_at_index(i)
                if child and child.get_state_set().contains(Atspi.StateType.SHOWING):
                    yield Element(child, self._origin)
                    yield from below(child)

        return below(self.application)

    def elements(self):
        return list(self.shown())

    def look(self, ask):
        """The result of a query on the tree, repeated if an element disappeared meanwhile."""
        while True:
            try:
                return ask()
            except GLib.Error:
                assert self.process.poll() is None, "The program has ended."

    def matching(self, role, name):
        """The visible elements whose role and name match regular expressions completely."""
        return (one for one in self.shown() if re.fullmatch(role, one.role) and re.fullmatch(name, one.name))

    def all(self, role, name=".*"):
        return self.look(lambda: list(self.matching(role, name)))

    def find(self, role, name=".*"):
        return self.look(lambda: next(self.matching(role, name), None))

    def wait(self, role, name=".*", state="showing"):
        def found():
            element = self.find(role, name)
            return element if element and state in element.states else None

        return eventually(f"{role} “{name}” is {state}", lambda: self.look(found))

    def wait_without(self, role, name=".*", state="showing"):
        def is_gone():
            return all(state not in element.states for element in self.matching(role, name))

        eventually(f"{role} “{name}” is not {state}", lambda: self.look(is_gone))

    def click(self, role, name=".*", button=1):
        self.click_at(*self.wait(role, name).center, button)

    def click_at(self, x, y, button=1):
        self.screen.move_to(x, y)
        self.screen.click(button)

    def press(self, role, name=".*"):
        self.wait(role, name).press()

    def scan(self):
        """Scans, and waits until nothing moves any more: the card grows with the explanation, or with the reason why
        there is none, and moves the findings below it."""
        self.click("push button", "SCAN MY MAC")
        self.wait("heading", "AI-assisted results — .* found")
        self.wait("label", EXPLANATION)

    def keys(self, *names):
        self.screen.keys(*names)

    def focused(self):
        """The element with the keyboard focus, if there is one."""
        return self.look(lambda: next((one for one in self.shown() if "focused" in one.states), None))

    def tab(self):
        """Moves the keyboard focus to the next control, and returns that."""
        before = repr(self.focused())
        self.keys("Tab")
        return eventually("the focus moves on", lambda: (now := self.focused()) and repr(now) != before and now)

    def ended(self):
        """Waits for the program to end, and returns its exit status."""
        eventually("the program has ended", lambda: self.process.poll() is not None)
        return self.process.returncode

    @property
    def geometry(self):
        """Left, top, width and height on the screen."""
        return self.screen.geometry(self.native)

    @property
    def frame_extents(self):
        """The width of the system's frame around it: left, right, top and bottom."""
        return self.screen.frame_extents(self.native)

    @property
    def is_minimised(self):
        return self.screen.is_minimised(self.native)

    def activate(self):
        """Activates it as a task bar does."""
        self.screen.activate(self.native)

    def set_full_screen(self, on):
        """Sets or ends full screen through the system."""
        self.screen.set_full_screen(self.native, on)
