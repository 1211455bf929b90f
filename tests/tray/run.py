#!/usr/bin/python3
"""The window in a real tray, and on a desktop without one.

    run.py PROGRAMS SCENARIO [PICTURE]

PROGRAMS is the folder of the built programs. A picture of the screen stays when the scenario fails.
"""
import sys
import traceback

from desktop import Desktop, wait_for

TRAY_ENTRY = ("alt+w", "t")
MINIMIZE = ("alt+w", "m")


def put_away(desktop):
    desktop.keys(*MINIMIZE)
    wait_for("the window to hide", lambda: not desktop.is_listed() and not desktop.is_shown())


def start_in_tray(desktop):
    desktop.start_tray()
    desktop.start_program()
    desktop.keys(*TRAY_ENTRY)
    return wait_for("the icon", desktop.icon)


def back(desktop):
    wait_for("the window to come back", desktop.is_shown)
    desktop.tool("windowactivate", "--sync", desktop.window)


def comes_back_by_a_click(desktop):
    icon = start_in_tray(desktop)
    put_away(desktop)
    desktop.click(icon, 1)
    back(desktop)


def comes_back_by_a_double_click(desktop):
    icon = start_in_tray(desktop)
    put_away(desktop)
    desktop.click(icon, 1, times=2)
    back(desktop)


def comes_back_by_the_menu(desktop):
    icon = start_in_tray(desktop)
    for entry in (1, 2):  # "All", "Application Window"
        put_away(desktop)
        desktop.click(icon, 3)
        wait_for("the tray's menu", desktop.windows)
        assert not desktop.is_shown(), "the menu showed the window"
        desktop.keys(*["Down"] * entry, "Return")
        back(desktop)


def leaves_the_tray(desktop):
    start_in_tray(desktop)
    desktop.keys(*TRAY_ENTRY)
    wait_for("the icon to go", lambda: desktop.icon() is None)
    desktop.keys(*MINIMIZE)
    wait_for("the window to be minimized", lambda: not desktop.is_shown())
    assert desktop.is_listed(), "a minimized window hid outside the tray"


def takes_its_icon_away_at_the_end(desktop):
    start_in_tray(desktop)
    desktop.keys("ctrl+q")
    wait_for("the end of the program", lambda: desktop.program.poll() is not None)
    assert desktop.program.returncode == 0, f"the program ended with {desktop.program.returncode}"
    wait_for("the icon to go", lambda: desktop.icon() is None)


def says_that_there_is_no_tray(desktop):
    desktop.start_program()
    desktop.keys(*TRAY_ENTRY)
    wait_for("the message", lambda: len(desktop.windows()) == 2)
    desktop.keys("Return")
    wait_for("the message to go", lambda: len(desktop.windows()) == 1)
    assert desktop.icon() is None, "there is an icon"
    desktop.keys(*MINIMIZE)
    wait_for("the window to be minimized", lambda: not desktop.is_shown())
    assert desktop.is_listed(), "the window hid, and nothing brings it back"


def main(programs, name, picture=None):
    with Desktop(programs) as desktop:
        try:
            globals()[name](desktop)
        except Exception:
            traceback.print_exc()
            if picture:
                desktop.picture(picture)
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
