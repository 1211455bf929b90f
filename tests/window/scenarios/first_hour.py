# SPDX-License-Identifier: MIT
"""The first hour of the manual (docs/manual/first-hour.md), step by step, as the page tells it."""
import os
import shutil

import tour
from driver.accessible import Table
from driver.waiting import expect, wait_for

OUTPUTS, REGULATION, TIMERS, MEASUREMENTS = 1, 3, 4, 5
VALUE, REMARK = 1, 2
TICK, PAGE, SETTING, HEADING, CONTROLLER, DOCUMENT = range(6)
SIMULATED = "Simulated controller"


def the_window_does_what_the_page_says(program):
    document = program.document("KVRT207D", "site7.KVRT207D")
    _look_at_the_start(program)
    _open_and_change(program, document)
    _choose_the_port(program)
    _upload_and_watch(program)
    _send(program, document)
    _print(program, os.path.dirname(document))
    _recover(program, os.path.dirname(document))


def _look_at_the_start(program):
    program.start()
    program.expect_title("Zorvane")
    wait_for("the fields", lambda: program.fields.row_count == 4)
    program.expect_panel(2, "Offline")
    program.expect_panel(3, "RTU: 1")


def _open_and_change(program, document):
    program.open(document)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.expect_field(TIMERS)
    tour.resize(program, 820, 560)
    program.select_field(REGULATION)
    expect("the number of settings", lambda: program.settings.row_count, 12)
    program.enter(0, VALUE, "1200")
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.expect_cell(0, VALUE, "1200")
    program.enter(0, VALUE, "1401")
    program.message("The value is out of range (value range 800 to 1400)").answer("Ok")
    program.expect_cell(0, VALUE, "1400")
    program.enter(0, VALUE, "1200")
    program.expect_cell(0, VALUE, "1200")
    program.select_field(OUTPUTS)
    program.choose_entry(0, VALUE, "Trip")
    program.expect_cell(0, VALUE, "Trip")
    program.hands.keys("ctrl+s")
    program.expect_title("site7.kvrt207d - Zorvane")
    with open(document, "rb") as file:
        assert b"Set point,1200," in file.read(), "the file hasn't the new value"


def _choose_the_port(program):
    program.choose("Communication", "Port Settings...")
    dialog = program.dialog("PortSettings")
    program.hands.chord(["alt"], "p")
    program.hands.keys("ctrl+a")
    program.hands.write(SIMULATED)
    dialog.press("Test")
    verdict = dialog.part.named("TXT_Verdict")
    wait_for("a good test", lambda: verdict.text.startswith("Good: Unit 1 answered after "))
    dialog.answer("OK")


def _upload_and_watch(program):
    program.go_online()
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.select_field(REGULATION)
    program.expect_cell(0, VALUE, "1150")
    program.select_field(MEASUREMENTS)
    before = program.settings.texts()
    wait_for("other measurements", lambda: program.settings.texts() != before)
    program.select_field(REGULATION)
    program.enter(0, VALUE, "1180")
    program.expect_panel(4, "Write: 1180 @250 ...Completed")
    program.choose("Communication", "Modbus Monitor")
    monitor = program.dialog("ModbusMonitor").part
    wait_for("rows in the monitor", lambda: Table(monitor.find(role="table")).row_count >= 3)
    program.hands.keys("Escape")
    wait_for("the main window", lambda: "active" in program.window.states)
    program.choose("Communication", "Disconnect")
    program.expect_panel(2, "Offline")


def _send(program, document):
    program.save_as(os.path.join(os.path.dirname(document), "upload.KVRT207D"))
    program.expect_title("upload.kvrt207d - Zorvane")
    program.expect_panel(4, "")
    program.open(document)
    program.expect_title("site7.kvrt207d - Zorvane")
    dialog, rows = _send_changes(program)
    identity = dialog.part.named("LBL_Identity").name
    assert identity.startswith("The controller at unit 1 is a KVRT207D."), identity
    set_point = next(row for row in rows if row[SETTING] == "Set point")
    assert (set_point[CONTROLLER], set_point[DOCUMENT]) == ("1180", "1200"), set_point
    assert f"{len(rows) - 2} with a tick, 2 without" in dialog.part.named("LBL_Sum").name
    dialog.press("Send")
    expect("the end", lambda: dialog.part.named("LBL_Headline").name, "All of it was sent and read back.", deadline=60)
    states = [row[TICK] for row in Table(dialog.part.named("LST_Values")).texts()]
    assert len(states) == len(rows) - 2 and set(states) == {"\u2713 verified"}, states
    dialog.answer("Close")
    dialog, rows = _send_changes(program)
    assert [row[SETTING] for row in rows] == ["Line speed", "Unit number"], rows
    dialog.answer("Close")
    program.expect_title("site7.kvrt207d - Zorvane")


def _send_changes(program):
    """The dialog, and its rows once they are there."""
    program.choose("Communication", "Send Changes...")
    dialog = program.dialog("FrmSend")
    wait_for("the rows", lambda: dialog.part.named("LBL_Sum").name)
    return dialog, Table(dialog.part.named("LST_Values")).texts()


def _print(program, folder):
    program.choose("File", "Print...", "Print All...")
    window = program.preview("Preview Print All Pages")
    expect("the number of pages", lambda: window.named("PageCount").name, "of 3")
    window.find(role="push button", name="Export...").press()
    dialog = program.dialog("CommonDialog")
    dialog.choose_type("PDF File(*.pdf)")
    dialog.choose_file(os.path.join(folder, "site7"), "Save")
    wait_for("the file", lambda: os.path.exists(os.path.join(folder, "site7.pdf")))
    program.hands.keys("Escape")
    wait_for("the main window", lambda: "active" in program.window.states)


def _recover(program, folder):
    program.select_field(OUTPUTS)
    program.enter(0, REMARK, "Breaker Q7")
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.kill_with_a_copy()
    program.start()
    program.choose("File", "Recover...")
    form = program.dialog("FrmRecover")
    expect("the copy's name", lambda: Table(form.part.named("LST_Copies")).texts()[0][1], "SITE7.KVRT207D")
    form.answer("Open")
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.select_field(OUTPUTS)
    program.expect_cell(0, REMARK, "Breaker Q7")
    program.save_as(os.path.join(folder, "recovered.KVRT207D"))
    program.expect_title("recovered.kvrt207d - Zorvane")
    program.expect_panel(4, "")
    program.choose("File", "Exit")
    assert program.wait_for_end() == 0, "the program ended with a failure"
    shutil.rmtree(folder)
