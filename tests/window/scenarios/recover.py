# SPDX-License-Identifier: MIT
"""A program that is killed leaves the unsaved changes after, and File > Recover... brings them back."""
import os
import time

from driver.accessible import Table
from driver.waiting import expect, wait_for


def _killed_with_a_change(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.select_field(1)
    program.enter(0, 2, "Breaker Q7")
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.kill_with_a_copy()
    return path


def a_killed_program_s_changes_come_back(program):
    path = _killed_with_a_change(program)
    with open(path, "rb") as file:
        before = file.read()
    program.start()
    program.choose("File", "Recover...")
    form = program.dialog("FrmRecover")
    copies = Table(form.part.named("LST_Copies"))
    expect("the number of copies", lambda: copies.row_count, 1)
    assert "site7" in copies.texts()[0][1].lower(), f"the copy is {copies.texts()}"
    assert "KVRT207D" in copies.texts()[0][2].upper(), f"the copy is {copies.texts()}"
    form.answer("Open")
    wait_for("the mark in the title", lambda: program.title.startswith("* "))
    program.select_field(1)
    program.expect_cell(0, 2, "Breaker Q7")
    with open(path, "rb") as file:
        assert file.read() == before, "the document's own file was written"
    assert not program.is_enabled("File", "Save"), "Save is enabled for a copy without a place"
    other = os.path.join(os.path.dirname(path), "kept.kvrt207d")
    program.save_as(other)
    program.expect_title("kept.kvrt207d - Zorvane")
    with open(other, "rb") as file:
        assert b"Breaker Q7" in file.read(), "the change isn't in the file"


def a_copy_is_deleted_after_a_question(program):
    _killed_with_a_change(program)
    program.start()
    program.choose("File", "Recover...")
    form = program.dialog("FrmRecover")
    form.press("Delete")
    question = program.dialog("Msgb")
    assert question.text().startswith("Do you want to delete the copy of "), question.text()
    question.answer("Yes")
    copies = Table(form.part.named("LST_Copies"))
    expect("the number of copies", lambda: copies.row_count, 0)
    form.answer("Cancel")
    expect("kept files", program.recovery_copies, [])


def saving_leaves_only_the_file_as_it_was(program):
    path = program.document()
    with open(path, "rb") as file:
        before = file.read()
    program.start()
    program.open(path)
    program.select_field(1)
    program.enter(0, 2, "Breaker Q7")
    program.expect_title("* site7.kvrt207d - Zorvane")
    wait_for("a recovery copy", program.recovery_copies)
    program.hands.keys("ctrl+s")
    program.expect_title("site7.kvrt207d - Zorvane")
    program.choose("File", "Exit")
    assert program.wait_for_end() == 0, "the program ended with a failure"
    expect("copies of unsaved changes", program.recovery_copies, [])
    program.start()
    program.choose("File", "Recover...")
    form = program.dialog("FrmRecover")
    copies = Table(form.part.named("LST_Copies"))
    expect("the number of copies", lambda: copies.row_count, 1)
    assert copies.texts()[0][3] == "before Save", f"the copy is {copies.texts()}"
    form.answer("Open")
    wait_for("the mark in the title", lambda: program.title.startswith("* "))
    program.select_field(1)
    program.expect_cell(0, 2, "Motor contactor up K1")
    other = program.desktop.path("as-it-was.kvrt207d")
    listed = program.terminal.ask("recover")["copies"]
    earlier = next(copy for copy in listed if copy["why"] == "before Save")
    program.terminal.ask("recover", earlier["copy"], "--out", other)
    with open(other, "rb") as file:
        assert file.read() == before, "the file isn't as it was before the save"


def a_failed_save_is_on_offer_at_once(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.select_field(1)
    program.enter(0, 2, "Breaker Q7")
    program.expect_title("* site7.kvrt207d - Zorvane")
    os.remove(path)
    os.mkdir(os.path.join(os.path.dirname(path), "SITE7.KVRT207D"))  # nothing can be written in its place
    program.choose("File", "Save")
    program.expect_title("site7.kvrt207d - Zorvane")
    program.choose("File", "Recover...")
    form = program.dialog("FrmRecover")
    copies = Table(form.part.named("LST_Copies"))
    expect("the number of copies", lambda: copies.row_count, 1)
    assert copies.texts()[0][3] == "Save failed", f"the copy is {copies.texts()}"
    form.answer("Open")
    wait_for("the mark in the title", lambda: program.title.startswith("* "))
    program.select_field(1)
    program.expect_cell(0, 2, "Breaker Q7")


def a_change_is_in_a_copy_within_a_second_also_after_a_save(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.select_field(1)
    for text in ("Breaker Q7", "Breaker Q8", "Breaker Q9"):
        program.enter(0, 2, text)
        program.expect_title("* site7.kvrt207d - Zorvane")
        seen = time.monotonic()
        wait_for("a copy of the change", lambda: program.copy_with(text.encode()))
        waited = time.monotonic() - seen
        assert waited < 1.5, f"the copy came after {waited:.1f} s"
        program.hands.keys("ctrl+s")
        program.expect_title("site7.kvrt207d - Zorvane")
        expect("copies of unsaved changes", program.recovery_copies, [])


def the_bar_tells_of_a_copy_at_the_start(program):
    _killed_with_a_change(program)
    program.start()
    wait_for("the line", lambda: program.shows("BAR_1"))
    text = program.window.named("BAR_1_Text").name
    assert text.startswith("A copy of unsaved changes is kept: SITE7.KVRT207D, "), text
    program.hands.click(program.window.named("BAR_1_Button1"))
    form = program.dialog("FrmRecover")
    form.answer("Open")
    wait_for("the mark in the title", lambda: program.title.startswith("* "))
    expect("the bar is shown", lambda: program.shows("MessageBar"), False)
