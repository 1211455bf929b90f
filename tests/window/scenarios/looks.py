# SPDX-License-Identifier: MIT
"""The looks that View switches on: by keyboard alone and by mouse. Both are off at first, and kept."""
from driver.keyboard import Only_Keyboard
from driver.picture import Picture
from driver.waiting import expect, wait_for

REGULATION = 3
REMARK = 2
PALE = (0xFF, 0xFF, 0xC0)  # of the template


def _opened(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    program.select_field(REGULATION)


def _gap(program):
    """Pixels between the last column and the lower grid's right edge."""
    left, _, width, _ = program.settings.cell(0, REMARK).rectangle
    grid_left, _, grid_width, _ = program.settings.table.rectangle
    return grid_left + grid_width - left - width


def _ground(program):
    return Picture(program.desktop).back_colour(program.settings.cell(0, REMARK).rectangle)


def _room(program, switch):
    _opened(program)
    assert _gap(program) > 100, "the last column reaches the edge without the switch"
    switch()
    wait_for("the last column at the edge", lambda: _gap(program) < 30)
    expect("what is stored", lambda: program.stored("View", "LastColumn"), "1")
    switch()
    wait_for("the last column as the template has it", lambda: _gap(program) > 100)


def _grounds(program, switch):
    program.desktop.darken()
    _opened(program)
    expect("the template's ground", lambda: _ground(program), PALE)
    switch()
    wait_for("a dark ground", lambda: max(_ground(program)) < 100)
    expect("what is stored", lambda: program.stored("View", "DarkGrounds"), "1")
    switch()
    expect("the template's ground", lambda: _ground(program), PALE)


def _by_keys(program, letter):
    def switch():
        with Only_Keyboard(program):
            program.pull_down("View")
            program.hands.keys(letter)
    return switch


def the_last_column_takes_the_room_by_keyboard_alone(program):
    _room(program, _by_keys(program, "l"))


def the_last_column_takes_the_room_by_mouse(program):
    _room(program, lambda: program.choose_by_mouse("View", "Last column takes the room"))


def pale_grounds_are_dark_in_the_dark_by_keyboard_alone(program):
    _grounds(program, _by_keys(program, "d"))


def pale_grounds_are_dark_in_the_dark_by_mouse(program):
    _grounds(program, lambda: program.choose_by_mouse("View", "Dark grounds in the dark"))
