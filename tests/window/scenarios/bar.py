# SPDX-License-Identifier: MIT
"""The message bar: what it says of a document, by mouse and by keyboard alone, and what a screen reader is told."""
from driver.keyboard import Only_Keyboard
from driver.tree_check import shared_keys, window_faults
from driver.waiting import expect, wait_for

OUTPUTS, REGULATION = 1, 3
VALUE, REMARK = 1, 2


def _line(program, number=1):
    """Word and text of a line of the bar."""
    return tuple(program.window.named(f"BAR_{number}_{part}").name for part in ("Word", "Text"))


def _expect_no_bar(program):
    expect("the bar is shown", lambda: program.shows("MessageBar"), False)


def _open_in_part(program):
    path = program.document("R7702-16", "site7.r7702-16")
    with open(path, "rb") as file:
        lines = file.read().split(b"\n")
    rows = [number for number, line in enumerate(lines) if line.startswith(b"ROW_2=")]
    lines[rows[1]] = lines[rows[1]].rstrip(b"\r") + b"," * 40 + b"\r"
    with open(path, "wb") as file:
        file.write(b"\n".join(lines))
    program.start()
    program.open(path)
    program.expect_panel(4, "This file fit on the template.")
    return rows[1] + 1


def a_document_read_in_part_is_told_and_shown(program):
    line = _open_in_part(program)
    program.enlarge()
    wait_for("the line", lambda: program.shows("BAR_1"))
    expect("the line", lambda: _line(program),
           ("Warning", f"site7.r7702-16 was read in part: line {line} stopped it, since it has more values than its "
                       "page has columns. What the file says from there on isn't in the document, which has the "
                       "template's values."))
    program.expect_panel(4, "This file fit on the template.")
    program.hands.click(program.window.named("BAR_1_Button1"))
    program.expect_field(2)
    program.expect_focus_in_settings()
    expect("the cell with the keyboard", lambda: program.focus.owner, program.settings.cell(1, 0))


def a_document_that_fits_has_no_bar(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    _expect_no_bar(program)


def _type_a_comma(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    program.select_field(REGULATION)
    program.enter(0, REMARK, "left, right")
    wait_for("the line", lambda: program.shows("BAR_1"))
    return path


LOSS = (" A file can't hold a comma or \";\": when it is read again, what stands after it in its row is lost or in "
        "the wrong column.")


def a_comma_is_told_and_replaced_by_mouse(program):
    path = _type_a_comma(program)
    expect("the line", lambda: _line(program),
           ("Warning", "The text \"left, right\" (Regulation, row 1, Description) has a comma or \";\" in it." + LOSS))
    program.hands.click(program.window.named("BAR_1_Button1"))
    program.expect_cell(0, REMARK, "left  right")
    program.expect_focus_in_settings()
    _expect_no_bar(program)
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.hands.keys("ctrl+s")
    program.expect_title("site7.kvrt207d - Zorvane")
    settings = program.terminal.settings(program.template("KVRT207D"), path, REGULATION)
    assert settings[0][REMARK] == "left  right", settings[0]


def what_is_undone_is_no_longer_told(program):
    _type_a_comma(program)
    program.hands.keys("ctrl+z")
    program.expect_title("site7.kvrt207d - Zorvane")
    _expect_no_bar(program)
    program.enter(0, VALUE, "1401")
    program.message("The value is out of range (value range 800 to 1400)").answer("Ok")
    told = 'Regulation, Set point: "1401" is out of range. "1125" was there, "1400" is there'
    expect("the line", lambda: _line(program), ("Warning", told + ", and the document is not marked as changed."))
    program.enter(2, VALUE, "30")
    expect("the line in a document that is marked", lambda: _line(program), ("Warning", told + "."))
    program.enter(0, VALUE, "1200")
    program.expect_cell(0, VALUE, "1200")
    _expect_no_bar(program)


def a_comma_is_told_again_when_it_is_saved(program):
    _type_a_comma(program)
    program.hands.click(program.window.named("BAR_1_Close"))
    _expect_no_bar(program)
    program.hands.keys("ctrl+s")
    program.expect_title("site7.kvrt207d - Zorvane")
    wait_for("the line", lambda: program.shows("BAR_1"))
    expect("the line", lambda: _line(program),
           ("Warning", "The text \"left, right\" (Regulation, row 1, Description) was saved with a comma or \";\" in "
                       "it." + LOSS))


def the_keyboard_alone_reaches_and_leaves_it(program):
    _type_a_comma(program)
    with Only_Keyboard(program):
        program.hands.keys("ctrl+Home", "shift+Tab", "shift+Tab")
        expect("the keyboard", lambda: program.focus.owner.description, "BAR_1_Close")
        program.hands.keys("Escape")
        program.expect_focus_in_settings()
        program.hands.keys("ctrl+Home", "shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab")
        expect("the keyboard", lambda: program.focus.owner.description, "BAR_1_Button1")
        program.hands.keys("Return")
        program.expect_cell(0, REMARK, "left  right")
        program.expect_focus_in_settings()
    _expect_no_bar(program)


def _open_above_a_limit(program):
    path = program.document()
    with open(path, "rb") as file:
        text = file.read()
    with open(path, "wb") as file:
        file.write(text.replace(b"ROW_2=Bandwidth,15,", b"ROW_2=Bandwidth,31000,"))
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    wait_for("the line", lambda: program.shows("BAR_1"))
    expect("the line", lambda: _line(program),
           ("Warning", "One value is outside its limits: Regulation, row 2, Value (31000)."))


def a_value_outside_its_limits_is_told_and_shown(program):
    _open_above_a_limit(program)
    program.hands.click(program.window.named("BAR_1_Button1"))
    program.expect_field(REGULATION)
    expect("the cell with the keyboard", lambda: program.focus.owner, program.settings.cell(1, VALUE))


def a_value_outside_its_limits_is_shown_by_keyboard_alone(program):
    _open_above_a_limit(program)
    program.select_field(OUTPUTS)
    with Only_Keyboard(program):
        program.hands.keys("End", "Tab")
        program.expect_focus_in_settings()
        program.hands.keys("ctrl+Home", "shift+Tab", "shift+Tab", "shift+Tab")
        expect("the keyboard", lambda: program.focus.owner.description, "BAR_1_Button1")
        program.hands.keys("Return")
        program.expect_field(REGULATION)
        expect("the cell with the keyboard", lambda: program.focus.owner, program.settings.cell(1, VALUE))


def a_screen_reader_finds_word_text_and_buttons(program):
    _type_a_comma(program)
    faults = window_faults(program.window)
    assert faults == [], "\n".join(faults)
    assert shared_keys(program.window) == {}, shared_keys(program.window)
    line = program.window.named("BAR_1")
    assert line.name.startswith("Warning: The text"), line.name
    assert "alert" in line.role, line.role
    assert program.window.named("BAR_1_Close").name == "Take this message away"


def a_message_without_room_in_panel_4_stands_in_it(program):
    path = program.document()
    program.start()
    program.open(path, read_only=True)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.settle_on(0, VALUE)
    wait_for("the line", lambda: program.shows("BAR_1"))
    expect("the line", lambda: _line(program), ("Note", "READ ONLY FILE. Can't modify the value."))
    program.enlarge()
    _expect_no_bar(program)
    program.expect_panel(4, "READ ONLY FILE. Can't modify the value.")
