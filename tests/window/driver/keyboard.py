# SPDX-License-Identifier: MIT
"""A guard: from here on a scenario has the keyboard and its eyes, and nothing else."""
from .hands import Hands

POINTER = {"mousemove", "mousemove_relative", "mousedown", "mouseup", "click", "windowmove", "windowsize",
           "windowactivate", "windowfocus"}
HANDS_OF_OTHERS = ("org.a11y.atspi.Action", "org.a11y.atspi.EditableText")


class Only_Keyboard:
    """`with` it, nothing but keys reaches the program: neither the pointer nor an action over the bus."""

    def __init__(self, program):
        self._desktop = program.desktop
        self._bus = program.desktop.accessibility
        self.keys_sent = 0

    def __enter__(self):
        self._place = self._pointer()
        self._run, self._call, self._send = self._desktop.run, self._bus.call, self._bus.send
        self._desktop.run, self._bus.call, self._bus.send = self._guarded_run, self._guarded_call, self._guarded_send
        return self

    def __exit__(self, *failure):
        self._desktop.run, self._bus.call, self._bus.send = self._run, self._call, self._send
        if failure[0] is None:
            assert self._pointer() == self._place, "the pointer moved"
            assert self.keys_sent > 0, "no key was sent"

    def _pointer(self):
        return self._desktop.run("xdotool", "getmouselocation", "--shell").split()[:2]

    def _guarded_run(self, *command):
        if command[0] == "xdotool":
            used = POINTER.intersection(command)
            assert not used, f"the mouse was used: {used}"
            self.keys_sent += "key" in command or "type" in command
        return self._run(*command)

    def _guarded_call(self, place, interface, method, arguments=None):
        changes = interface in HANDS_OF_OTHERS and not method.startswith("Get") or method == "GrabFocus"
        assert not changes, f"{method} was asked of the program instead of a key"
        return self._call(place, interface, method, arguments)

    def _guarded_send(self, _place, _interface, method, _arguments=None):
        raise AssertionError(f"{method} was sent to the program instead of a key")


def guard_refuses_the_mouse(program):
    """Whether the guard is awake: it must refuse a click and an action."""
    with Only_Keyboard(program) as guard:
        guard.keys_sent = 1
        for way in (lambda: Hands(program.desktop).click_at(5, 5), lambda: program.window.find(name="File").act("ShowMenu")):
            try:
                way()
            except AssertionError as refused:
                assert "mouse was used" in str(refused) or "instead of a key" in str(refused), refused
            else:
                raise AssertionError("the guard let a mouse or an action through")
