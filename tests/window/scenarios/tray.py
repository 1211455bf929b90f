# SPDX-License-Identifier: MIT
"""The window in a real tray, and on a desktop without one."""
from driver.tray import Tray, listed_windows, shown_windows
from driver.waiting import expect, wait_for


def _start_in_tray(program):
    tray = Tray(program.desktop)
    program.start()
    program.choose("Windows", "Minimize to tray")
    wait_for("the icon", tray.icon)
    return tray


def _is_checked(program):
    return "checked" in program.entry("Windows", "Minimize to tray").states


def _put_away(program):
    program.choose("Windows", "Minimize")
    expect("windows that the window manager knows", lambda: listed_windows(program.desktop), [])


def _wait_until_back(program):
    """A clicked icon may be the active window as Qt sees it; the keyboard is the window's all the same."""
    wait_for("the window to come back", lambda: program.window.is_shown)
    program.hands.keys("ctrl+o")
    program.dialog("CommonDialog").answer("Cancel")


def comes_back_by_a_click(program):
    tray = _start_in_tray(program)
    expect("the entry's mark", lambda: _is_checked(program), True)
    _put_away(program)
    tray.click()
    _wait_until_back(program)


def comes_back_by_a_double_click(program):
    tray = _start_in_tray(program)
    _put_away(program)
    tray.click(times=2)
    _wait_until_back(program)


def comes_back_by_the_icons_menu(program):
    tray = _start_in_tray(program)
    for place in (1, 2):  # "All", "Application Window"
        _put_away(program)
        tray.open_menu()
        program.hands.keys(*["Down"] * place, "Return")
        _wait_until_back(program)


def leaves_the_tray(program):
    tray = _start_in_tray(program)
    program.choose("Windows", "Minimize to tray")
    expect("the icon", tray.icon, None)
    expect("the entry's mark", lambda: _is_checked(program), False)
    program.choose("Windows", "Minimize")
    expect("windows on the screen", lambda: shown_windows(program.desktop), [])
    assert len(listed_windows(program.desktop)) == 1, "a minimized window hid outside the tray"


def takes_its_icon_away_at_the_end(program):
    tray = _start_in_tray(program)
    program.choose("File", "Exit")
    assert program.wait_for_end() == 0, "the program ended with a failure"
    expect("the icon", tray.icon, None)


def says_that_there_is_no_tray(program):
    program.start()
    program.choose("Windows", "Minimize to tray")
    program.message("Unable to add icon to system tray!").answer("Ok")
    expect("the entry's mark", lambda: _is_checked(program), False)
    program.choose("Windows", "Minimize")
    expect("windows on the screen", lambda: shown_windows(program.desktop), [])
    assert len(listed_windows(program.desktop)) == 1, "the window hid, and nothing brings it back"
