# SPDX-License-Identifier: MIT
"""Close and Exit: the question about unsaved changes with each answer, and what the next start finds."""
import os

from driver.waiting import expect, wait_for

QUESTION = "Do you want to save this file?"


def _opened(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.select_field(1)
    return path


def _changed(program):
    path = _opened(program)
    program.enter(0, 2, "Breaker Q7")
    program.expect_title("* site7.kvrt207d - Zorvane")
    return path


def _bytes(path):
    with open(path, "rb") as file:
        return file.read()


def _expect_closed(program):
    program.expect_title("Zorvane")
    wait_for("the grids to be hidden", lambda: not program.shows("FLX_Configuration") and not program.shows("FLX_Settings"))
    for captions in (("File", "Close"), ("File", "Save"), ("File", "Save As..."), ("Communication", "Upload to PC")):
        expect(f"{captions} is enabled", lambda: program.is_enabled(*captions), False)
    for number in (1, 2, 4):
        program.expect_panel(number, "")


def close_without_changes_asks_nothing(program):
    _opened(program)
    program.choose("File", "Close")
    _expect_closed(program)


def a_file_opens_after_close(program):
    path = _opened(program)
    program.choose("File", "Close")
    _expect_closed(program)
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.select_field(1)
    expect("the lower grid", lambda: program.settings.texts(),
           program.terminal.settings(program.template("KVRT207D"), path, 1))


def close_answered_no_drops_the_changes(program):
    path = _changed(program)
    before = _bytes(path)
    program.choose("File", "Close")
    box = program.message(QUESTION)
    assert box.buttons() == ["Yes", "No", "Cancel"], f"buttons: {box.buttons()}"
    box.answer("No")
    _expect_closed(program)
    assert _bytes(path) == before, "the file was written"


def close_answered_cancel_stays(program):
    _changed(program)
    program.choose("File", "Close")
    program.message(QUESTION).answer("Cancel")
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.expect_cell(0, 2, "Breaker Q7")


def close_by_escape_stays(program):
    _changed(program)
    program.choose("File", "Close")
    box = program.message(QUESTION)
    program.hands.keys("Escape")
    box.wait_until_gone()
    program.expect_title("* site7.kvrt207d - Zorvane")


def close_answered_yes_saves_as(program):
    path = _changed(program)
    other = os.path.join(os.path.dirname(path), "kept.kvrt207d")
    program.choose("File", "Close")
    program.message(QUESTION).answer("Yes")
    program.dialog("CommonDialog").choose_file(other, "Save")
    _expect_closed(program)
    assert b"Breaker Q7" in _bytes(other), "the change isn't in the file"


def open_asks_about_the_changes(program):
    _changed(program)
    other = program.document("KVRT100")
    program.open(other)
    program.message(QUESTION).answer("No")
    program.expect_title("site7.kvrt100 - Zorvane")
    expect("the lower grid", lambda: program.settings.texts(),
           program.terminal.settings(program.template("KVRT100"), other, 4))


def exit_answered_no_ends(program):
    path = _changed(program)
    before = _bytes(path)
    program.choose("File", "Exit")
    program.message(QUESTION).answer("No")
    assert program.wait_for_end() == 0, "the program ended with a failure"
    assert _bytes(path) == before, "the file was written"


def exit_answered_cancel_goes_on(program):
    _changed(program)
    program.choose("File", "Exit")
    program.message(QUESTION).answer("Cancel")
    program.expect_title("* site7.kvrt207d - Zorvane")


def exit_answered_yes_saves_and_ends(program):
    path = _changed(program)
    other = os.path.join(os.path.dirname(path), "kept.kvrt207d")
    program.choose("File", "Exit")
    program.message(QUESTION).answer("Yes")
    program.dialog("CommonDialog").choose_file(other, "Save")
    assert program.wait_for_end() == 0, "the program ended with a failure"
    assert b"Breaker Q7" in _bytes(other), "the change isn't in the file"


def a_failed_save_keeps_the_program_open(program):
    path = _changed(program)
    program.hands.keys("alt+F4")
    program.message(QUESTION).answer("Yes")
    program.dialog("CommonDialog").choose_file(os.path.join(os.path.dirname(path), "nowhere", "x.kvrt207d"), "Save")
    failure = program.dialog("Msgb")
    wanted = "Can't Save file : path/file error or directory is read only.\nExtra info: Path not found"
    expect("the failure", failure.text, wanted)
    failure.answer("Ok")
    program.message("The Zorvane can't write the file, please verify the read only properties...").answer("Ok")
    program.expect_title("* site7.kvrt207d - Zorvane")


def the_window_comes_back_where_it_was(program):
    program.without_leak_check()
    program.start()
    program.hands.place_window(140, 90, 900, 700)
    wait_for("the window's new size", lambda: program.window.rectangle[2:] == (900, 700))
    place = program.window.rectangle
    program.choose("File", "Exit")
    assert program.wait_for_end() == 0, "the program ended with a failure"
    program.start()
    expect("the window's place", lambda: program.window.rectangle, place)
    program.hands.keys("alt+F4")
    assert program.wait_for_end() == 0, "the program ended with a failure"
    program.start()
    expect("the window's place after a third start", lambda: program.window.rectangle, place)


def a_cancelled_exit_stores_the_place(program):
    _changed(program)
    program.hands.place_window(200, 120, 820, 640)
    wait_for("the window's new size", lambda: program.window.rectangle[2:] == (820, 640))
    place = program.window.rectangle
    program.hands.keys("alt+F4")
    program.message(QUESTION).answer("Cancel")
    wait_for("the stored width", lambda: program.stored("MainWindow", "Width") == "12300")
    program.stop()
    program.start()
    expect("the window's place", lambda: program.window.rectangle, place)


def a_stored_place_that_is_no_number_falls_back(program):
    program.store("MainWindow", Top="abc", Left="1500", Width="9000", Height="9000")
    program.start()
    expect("the size in pixels of 6990 by 7380 twips", lambda: program.window.rectangle[2:], (466, 492))
