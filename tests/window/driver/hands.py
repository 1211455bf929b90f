"""Keyboard and mouse of a desktop. Keys go to whatever has the keyboard, as a person's do."""


class Hands:
    def __init__(self, desktop):
        self._desktop = desktop

    def keys(self, *names):
        """Keys one after the other, named as the X server does: "F2", "Return", "ctrl+s"."""
        self._desktop.run("xdotool", "key", "--delay", "15", *names)

    def chord(self, held, key):
        """A key while others are held down, which are let go after it."""
        self._desktop.run("xdotool", *(part for name in held for part in ("keydown", name)), "key", key,
                          *(part for name in reversed(held) for part in ("keyup", name)))

    def write(self, text):
        self._desktop.run("xdotool", "type", "--delay", "15", "--", text)

    def click(self, thing, times=1):
        """The left button in the middle of a control or cell."""
        left, top, width, height = thing.rectangle
        self.click_at(left + width // 2, top + height // 2, times)

    def click_at(self, x, y, times=1):
        self._desktop.run("xdotool", "mousemove", "--sync", str(x), str(y), "click", "--repeat", str(times), "--delay",
                          "60", "1")

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
