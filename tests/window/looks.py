#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Shows the windows of comparing, sending, searching, listening and bringing values in to whoever wants to look:

    looks.py PROGRAMS FOLDER [--scale FACTOR] [--dark] [--grey] [PART...]

A picture of the whole screen for each; grey ones tell whether colour alone says anything. No test.
"""
import argparse
import os

import work_tour
from driver.desktop import SCREEN, Desktop
from driver.zorvane import Zorvane
from pictures import still_picture


def main():
    parts = {part.__name__: part for part in work_tour.PARTS}
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs", type=os.path.abspath)
    parser.add_argument("folder", type=os.path.abspath)
    parser.add_argument("--scale", default="1")
    parser.add_argument("--dark", action="store_true")
    parser.add_argument("--grey", action="store_true")
    parser.add_argument("parts", nargs="*", metavar="PART", help=", ".join(parts))
    chosen = parser.parse_intermixed_args()
    os.makedirs(chosen.folder, exist_ok=True)
    for name in chosen.parts or parts:
        with Desktop() as desktop:
            desktop.enlarge(chosen.scale)
            if chosen.dark:
                desktop.darken()

            def visit(stop, _window, desktop=desktop):
                try:
                    still_picture(desktop, "x".join(map(str, SCREEN)))
                except AssertionError:
                    pass  # a bar that moves
                grey = ("-colorspace", "Gray") if chosen.grey else ()
                desktop.run("import", "-window", "root", *grey, os.path.join(chosen.folder, stop + ".png"))
            parts[name](Zorvane(desktop, chosen.programs), visit)


if __name__ == "__main__":
    main()
