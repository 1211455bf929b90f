# SPDX-License-Identifier: MIT
"""The windows of comparing, sending, searching, listening and bringing values in, each in its fullest states.

Each part calls `visit(name, window)` at each of its stops. Only keys and the tree are used, so that it works at any
scale of the screen.
"""
import json
import os
import shutil

from driver.accessible import Table
from driver.waiting import expect, wait_for

MODEL = "KVRT207D"
REGULATION = 3
TITLE = "site7.kvrt207d - Zorvane"
TABLE = ("Field;Row;Column;Page;Name;Heading;Register;Value\r\n"
         "3;1;3;Regulation;Set point;Description;;Agreed with the grid office: 112.5 V becomes North bay\r\n"
         '3;1;2;Regulation;Set point;Value;;"1,234"\r\n3;2;2;Regulation;Bandwidth;Value;;77\r\n'
         "3;3;2;Regulation;Drop R;Value;;99999\r\n")


def _opened(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title(TITLE)
    wait_for("the focus in a grid", lambda: any("focused" in grid.table.states
                                                 for grid in (program.fields, program.settings)))
    return path


def _finish(program):
    program.kill()
    for folder in ("XDG_CONFIG_HOME", "XDG_DATA_HOME"):
        shutil.rmtree(os.path.join(program.desktop.environment[folder], "Zorvane"), ignore_errors=True)


def _label(dialog, name):
    return dialog.part.named(name).name


def _choose_side(program, dialog, letter, side, steps):
    program.hands.chord(["alt"], letter)
    box = dialog.part.named("CMB_" + side)
    expect(f"the focus on the list {side}", lambda: "focused" in box.states, True)
    program.hands.keys("Home", *["Down"] * steps)


def comparing(program, visit):
    silent = program.simulator(MODEL, "--fault", "silent", name="silent")
    program.use_port(silent, TimeOut="20000")
    path = _opened(program)
    program.choose("Communication", "Compare...")
    dialog = program.dialog("FrmCompare")
    visit("compare_nothing", dialog.part)
    dialog.press("Read controller")
    wait_for("the progress", lambda: dialog.part.named("PRB_Reading").is_shown)
    visit("compare_reading", dialog.part)
    program.hands.keys("Escape")
    expect("what became of it", lambda: _label(dialog, "LBL_Note"),
           "Stopped before all was read. Nothing was written.")
    _choose_side(program, dialog, "g", "Right", 2)
    rows = Table(dialog.part.named("TBL_Comparison"))
    wait_for("rows", lambda: rows.row_count)
    dialog.press("Tick differences")
    wait_for("the ticks", lambda: dialog.part.named("BOT_Take").is_enabled)
    program.hands.chord(["alt"], "f")
    program.hands.write("is:rubbish")
    wait_for("the filter's fault", lambda: dialog.part.named("LBL_Filter_Fault").is_shown)
    visit("compare", dialog.part)
    program.hands.keys("ctrl+a", "BackSpace")
    other = os.path.join(os.path.dirname(path), "other.kvrt207d")
    with open(path, "rb") as file:
        text = file.read()
    with open(other, "wb") as file:
        file.write(text.replace(b"ROW_12=R6 pulse,2:00,", b"ROW_12=R6 pulse,2:05,"))
    _choose_side(program, dialog, "g", "Right", 3)
    program.hands.chord(["alt"], "2")
    program.dialog("CommonDialog").choose_file(other, "Open")
    expect("two sides", lambda: rows.row_count, 1)
    program.hands.chord(["alt"], "m")
    wait_for("three sides", lambda: "Document" in rows.headings())
    dialog.press("Tick differences")
    wait_for("the ticks", lambda: dialog.part.named("BOT_Take").is_enabled)
    visit("compare_three_sides", dialog.part)
    dialog.answer("Close")
    _finish(program)


def sending(program, visit):
    registers = program.desktop.path("held.json")
    with open(registers, "w", encoding="ascii") as file:
        json.dump({"112": 100, "205": 0, "226": 5, "250": 1200}, file)
    controller = program.simulator(MODEL, "--config", os.path.join(program.folder, "EXAMPLE." + MODEL), "--registers",
                                   registers, "--quirk", "not-above=114@112", "--quirk", "forgets:1@205",
                                   name="differing")
    program.use_port(controller)
    _opened(program)
    dialog = _send_window(program)
    wait_for("the rows", lambda: _label(dialog, "LBL_Sum"))
    visit("send", dialog.part)
    dialog.press("Send")
    wait_for("the end", lambda: " of " in _label(dialog, "LBL_Sum"))
    visit("send_end", dialog.part)
    dialog.press("Record...")
    record = program.dialog("FrmRecord")
    visit("record", record.part)
    record.answer("Cancel")
    program.hands.chord(["alt"], "t")
    wait_for("the way back", lambda: "put back" in _label(dialog, "LBL_Headline"))
    visit("send_restore", dialog.part)
    dialog.answer("Close")
    _finish(program)


def sending_to_another_model(program, visit):
    program.use_port(program.simulator("KVRT100", name="other"))
    _opened(program)
    dialog = _send_window(program)
    wait_for("the question", lambda: "type the name" in _label(dialog, "LBL_Headline"))
    visit("send_model", dialog.part)
    dialog.answer("Close")
    _finish(program)


def sending_that_was_interrupted(program, visit):
    controller = program.simulator(MODEL, "--turnaround", "80", name="slow")
    program.use_port(controller)
    path = _opened(program)
    dialog = _send_window(program)
    wait_for("the rows", lambda: _label(dialog, "LBL_Sum"))
    dialog.press("Send")
    wait_for("some writes", lambda: len(controller.writes()) >= 3)
    visit("send_progress", dialog.part)
    program.kill()
    program.start()
    program.open(path)
    program.expect_title(TITLE)
    dialog = _send_window(program)
    wait_for("the interrupted run", lambda: "was interrupted" in _label(dialog, "LBL_Notice"))
    visit("send_interrupted", dialog.part)
    program.hands.chord(["alt"], "u")
    wait_for("the rest", lambda: "still to go out" in _label(dialog, "LBL_Headline"))
    visit("send_resume", dialog.part)
    dialog.answer("Close")
    _finish(program)


def _send_window(program):
    wait_for("the entry", lambda: program.is_enabled("Communication", "Send Changes..."))
    program.choose("Communication", "Send Changes...")
    return program.dialog("FrmSend")


def on_the_line(program, visit):
    controller = program.simulator(MODEL, "--slave", "2", name="moved")
    program.use_port(controller)
    _opened(program)
    program.choose("Communication", "Find Controllers...")
    dialog = program.dialog("FindControllers")
    program.type_into("n", "1-3")
    program.hands.keys("Return")
    wait_for("the controller", lambda: Table(dialog.part.named("TBL_Found")).row_count == 1)
    wait_for("the end of the search", lambda: dialog.part.named("BOT_Use").is_enabled)
    visit("find_controllers", dialog.part)
    dialog.answer("Close")
    program.choose("Communication", "Listen...")
    dialog = program.dialog("Listen")
    visit("listen", dialog.part)
    dialog.answer("Close")
    _finish(program)


def testing_the_port(program, visit):
    controller = program.simulator(MODEL, "--slave", "2", name="moved")
    program.use_port(controller)
    _opened(program)
    program.choose("Communication", "Port Settings...")
    dialog = program.dialog("PortSettings")
    program.hands.chord(["alt"], "t")
    diagnosis = dialog.part.named("TXT_Diagnosis")
    wait_for("the sentence", lambda: diagnosis.text.startswith("Unit 1 doesn't answer, but unit 2 does"), deadline=60)
    visit("link_doctor", dialog.part)
    dialog.answer("Cancel")
    _finish(program)


def in_the_grids(program, visit):
    path = _opened(program)
    program.select_field(REGULATION)
    program.hands.keys("ctrl+f")
    dialog = program.dialog("FrmFind")
    program.hands.write("pulse")
    wait_for("what was found", lambda: Table(dialog.part.named("LST_Found")).row_count == 7)
    visit("find", dialog.part)
    program.hands.keys("Escape")
    dialog.wait_until_gone()
    program.pull_down("Edit", "e")
    visit("menu_edit", program.entry("Edit").children[0])
    program.hands.keys("Escape", "Escape")
    table = os.path.join(os.path.dirname(path), "table.csv")
    with open(table, "w", encoding="utf-8", newline="") as file:
        file.write(TABLE)
    program.choose("File", "Import values...")
    program.dialog("CommonDialog").choose_file(table, "Open")
    dialog = program.dialog("FrmFit")
    visit("import", dialog.part)
    program.hands.keys("Escape")
    dialog.wait_until_gone()
    program.hands.copy("1100\r\n99999\r\n")
    program.hands.keys("Tab", "ctrl+Home", "Right", "ctrl+shift+v")
    dialog = program.dialog("FrmFit")
    visit("paste", dialog.part)
    program.hands.keys("Escape")
    dialog.wait_until_gone()
    _finish(program)


PARTS = (comparing, sending, sending_to_another_model, sending_that_was_interrupted, on_the_line, testing_the_port,
         in_the_grids)
