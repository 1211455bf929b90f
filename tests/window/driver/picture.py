# SPDX-License-Identifier: MIT
"""What the screen shows, pixel by pixel."""
from collections import Counter

from .desktop import SCREEN


class Picture:
    """The whole screen at one moment. A colour is a triple of red, green and blue, 0 to 255 each."""

    def __init__(self, desktop):
        self._width = SCREEN[0]
        self._bytes = desktop.run("import", "-window", "root", "-depth", "8", "rgb:-")
        assert len(self._bytes) == SCREEN[0] * SCREEN[1] * 3, f"a picture of {len(self._bytes)} bytes"

    def pixel(self, x, y):
        place = (y * self._width + x) * 3
        return tuple(self._bytes[place:place + 3])

    def colours(self, rectangle):
        """How often each colour occurs inside a rectangle: left, top, width, height."""
        left, top, width, height = rectangle
        return Counter(self.pixel(x, y) for y in range(top, top + height) for x in range(left, left + width))

    def difference(self, other, rectangle):
        """How many pixels inside a rectangle are other ones in another picture."""
        left, top, width, height = rectangle
        return sum(self.pixel(x, y) != other.pixel(x, y)
                   for y in range(top, top + height) for x in range(left, left + width))

    def back_colour(self, rectangle):
        """The colour after a cell's text: the most frequent one, frame lines left out."""
        left, top, width, height = rectangle
        return self.colours((left + 2, top + 2, width - 4, height - 4)).most_common(1)[0][0]

    def has_text_colour(self, rectangle, wanted):
        return any(resembles(colour, wanted) for colour in self.colours(rectangle))


def save(desktop, path):
    """The screen as a picture file."""
    desktop.run("import", "-window", "root", path)


def resembles(colour, wanted, tolerance=40):
    """Smoothed letters hardly ever have a pixel in exactly their own colour."""
    return all(abs(a - b) <= tolerance for a, b in zip(colour, wanted))
