#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Takes the pictures of the manual: pictures.py PROGRAMS FOLDER [NAME...]

Each is the window in front with its frame, in few colours. With names only those are written.
"""
import os
import re
import sys

import tour
from driver.desktop import SCREEN, Desktop
from driver.waiting import wait_for
from driver.zorvane import Zorvane

COLOURS = 32
AWAY = (1270, 900)  # where the mouse makes no tool tip
WORKPLACE = "/tmp/zorvane"  # a name that can be shown
LARGEST = 60_000  # bytes


def frame_of(desktop, part):
    """Left, top, width and height of a window with its frame; a menu, or what the tray shows, has none."""
    if part is None:
        return 0, SCREEN[1] - 120, 200, 120
    if part.role == "popup menu":
        return part.rectangle
    active = desktop.run("xdotool", "getactivewindow").decode().strip()
    border = desktop.run("xprop", "-id", active, "_NET_FRAME_EXTENTS").decode()
    left, right, top, bottom = map(int, re.findall(r"\d+", border.split("=")[1]))
    x, y, width, height = part.rectangle
    return x - left, y - top, width + left + right, height + top + bottom


def still_picture(desktop, crop):
    """The screen's bytes once two looks at it are the same: nothing is being painted any more."""
    last = []

    def look():
        last.append(desktop.run("import", "-window", "root", "-crop", crop, "+repage", "-depth", "8", "rgb:-"))
        return last[-1] if last[-2:-1] == last[-1:] else None
    return wait_for("a picture that stays", look, 5)


def take(desktop, path, part):
    left, top, width, height = frame_of(desktop, part)
    desktop.run("xdotool", "mousemove", *map(str, AWAY))
    crop = f"{width}x{height}+{left}+{top}"
    try:
        still_picture(desktop, crop)
    except AssertionError:
        pass  # live values: any moment will do
    desktop.run("import", "-window", "root", "-crop", crop, "+repage", "-strip", "+dither", "-colors", str(COLOURS),
                "-define", "png:exclude-chunks=date,time", "-define", "png:compression-level=9", "PNG8:" + path)
    size = os.path.getsize(path)
    assert size <= LARGEST, f"{path} has {size} bytes"


def main(programs, folder, *names):
    folder = os.path.abspath(folder)
    os.makedirs(folder, exist_ok=True)
    taken = []
    with Desktop(WORKPLACE) as desktop:
        program = Zorvane(desktop, os.path.abspath(programs))

        def visit(name, window):
            if not names or name in names:
                take(desktop, os.path.join(folder, name + ".png"), window)
                taken.append(name)
        tour.take_all(program, visit)
        tour.in_the_tray(program, visit)
    missing = set(names) - set(taken)
    assert not missing, f"no such pictures: {missing}"


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
