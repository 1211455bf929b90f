# SPDX-License-Identifier: MIT
"""Keyboard and mouse of a desktop. Keys go to whatever has the keyboard, as a person's do."""
import subprocess
import time

from .waiting import expect

DOUBLE_CLICK_S = 0.6  # a little more than the program's


class Hands:
    def __init__(self, desktop):
        self._desktop = desktop
        self._last_click = None, 0.0

    def keys(self, *names):
        """Keys one after the other, named as the X server does: "F2", "Return", "ctrl+s"."""
        self._desktop.run("xdotool", "key", "--delay", "15", *names)

    def chord(self, held, key):
        """A key while others are held down, which are let go after it."""
        self._desktop.run("xdotool", *(part for name in held for part in ("keydown", name)), "key", key,
                          *(part for name in reversed(held) for part in ("keyup", name)))

    def write(self, text):
        self._desktop.run("xdotool", "type", "--delay", "15", "--", text)

    def copy(self, text):
        """Puts a text on the clipboard, as another program would."""
        file = self._desktop.path("clipboard.txt")
        with open(file, "w", encoding="utf-8", newline="") as written:
            written.write(text)
        self._desktop.start(["xclip", "-selection", "clipboard", "-quiet", file], "clipboard")
        expect("the clipboard", self._clipboard, text)

    def _clipboard(self):
        """What another program would get; nothing as long as nobody has put anything there."""
        ask = ["xclip", "-selection", "clipboard", "-o"]
        return subprocess.run(ask, env=self._desktop.environment, capture_output=True, timeout=60).stdout.decode()

    def point_at(self, x, y):
        self._desktop.run("xdotool", "mousemove", str(x), str(y))

    def click(self, thing, times=1):
        """The left button in the middle of a control or cell."""
        left, top, width, height = thing.rectangle
        self.click_at(left + width // 2, top + height // 2, times)

    def click_holding(self, key, thing):
        """A click while a key is held down."""
        self._desktop.run("xdotool", "keydown", key)
        try:
            self.click(thing)
        finally:
            self._desktop.run("xdotool", "keyup", key)

    def click_at(self, x, y, times=1):
        self._leave_a_double_click_s_time(x, y)
        # Told to go where it is already, xdotool waits a quarter of a minute for the pointer to arrive.
        move = [] if self._pointer() == (x, y) else ["mousemove", "--sync", str(x), str(y)]
        self._desktop.run("xdotool", *move, "click", "--repeat", str(times), "--delay", "60", "1")

    def _leave_a_double_click_s_time(self, x, y):
        """Two clicks on one place that follow each other too soon would be a double click."""
        now = time.monotonic()
        place, moment = self._last_click
        if place == (x, y) and now - moment < DOUBLE_CLICK_S:
            time.sleep(moment + DOUBLE_CLICK_S - now)
        self._last_click = (x, y), time.monotonic()

    def _pointer(self):
        place = dict(line.split("=") for line in
                     self._desktop.run("xdotool", "getmouselocation", "--shell").decode().split())
        return int(place["X"]), int(place["Y"])

    def place_window(self, left, top, width, height):
        """Moves and sizes the active window, as dragging its frame would."""
        self._desktop.run("xdotool", "getactivewindow", "windowmove", str(left), str(top), "windowsize", str(width),
                          str(height))

    def drag(self, start, end):
        """The left button held from one place of the screen to another."""
        steps = []
        for part in (1, 2, 3, 4):
            x, y = (start[i] + (end[i] - start[i]) * part // 4 for i in (0, 1))
            steps += ["mousemove", "--sync", str(x), str(y)]
        self._desktop.run("xdotool", "mousemove", "--sync", str(start[0]), str(start[1]), "mousedown", "1", *steps,
                          "mouseup", "1")
