# SPDX-License-Identifier: MIT
"""Values from and for a spreadsheet: Export values, Import values with its preview, by keyboard alone and by mouse."""
import os

from driver.keyboard import Only_Keyboard
from driver.waiting import expect, wait_for

REGULATION = 3
VALUE, REMARK = 1, 2
TABLE = ("field;row;column;value\r\n"
         "3;1;2;1,234\r\n"  # one thousand, or one and a bit
         "3;1;3;North bay\r\n"
         "3;2;2;77\r\n"
         "3;3;2;99999\r\n")
CHANGES = ["Regulation/Set point/Description: Agreed with the grid office: 112.5 V becomes North bay",
           "Regulation/Bandwidth/Value: 15 becomes 77"]
LEFT_OUT = ['Line 2: Regulation/Set point/Value: "1,234" is readable two ways, as 1.234 or 1234',
            "Line 5: Regulation/Drop R/Value: \"99999\" is above its limit 240"]


def _opened(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    program.select_field(REGULATION)
    return path


def _table(program):
    path = program.desktop.path("documents", "table.csv")
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write(TABLE)
    return path


def _entries(dialog, given_name):
    return [part.name for part in dialog.part.named(given_name).children]


def _expect_preview(dialog):
    expect("what fits", lambda: dialog.part.named("LBL_Summary").name,
           "table.csv: 2 of 4 fit, 2 of them change.")
    assert dialog.part.named("LBL_Details").name == "Columns separated by semicolons; decimal sign: not needed."
    assert _entries(dialog, "LST_Changes") == CHANGES, _entries(dialog, "LST_Changes")
    assert _entries(dialog, "LST_LeftOut") == LEFT_OUT, _entries(dialog, "LST_LeftOut")


def a_table_is_imported_by_keyboard_alone(program):
    _opened(program)
    table = _table(program)
    before = program.settings.texts()
    with Only_Keyboard(program):
        for answer in ("alt+n", "Escape"):
            program.pull_down("File")
            program.hands.keys("i")
            program.type_file(table)
            dialog = program.dialog("FrmFit")
            _expect_preview(dialog)
            program.hands.keys(answer)
            dialog.wait_until_gone()
            expect("the lower grid", lambda: program.settings.texts(), before)
            program.expect_title("site7.kvrt207d - Zorvane")
        program.pull_down("File")
        program.hands.keys("i")
        program.type_file(table)
        dialog = program.dialog("FrmFit")
        program.hands.keys("alt+a")
        dialog.wait_until_gone()
        program.expect_cell(0, REMARK, "North bay")
        program.expect_cell(1, VALUE, "77")
        program.expect_cell(0, VALUE, "1125")
        program.expect_title("* site7.kvrt207d - Zorvane")
        program.hands.keys("ctrl+z")
        expect("the lower grid", lambda: program.settings.texts(), before)
        program.expect_title("site7.kvrt207d - Zorvane")


def a_table_is_imported_by_mouse(program):
    _opened(program)
    table = _table(program)
    before = program.settings.texts()
    program.choose_by_mouse("File", "Import values...")
    program.dialog("CommonDialog").choose_file(table, "Open")
    dialog = program.dialog("FrmFit")
    _expect_preview(dialog)
    program.hands.click(dialog.part.named("BOT_Nothing"))
    dialog.wait_until_gone()
    expect("the lower grid", lambda: program.settings.texts(), before)
    program.choose_by_mouse("File", "Import values...")
    program.dialog("CommonDialog").choose_file(table, "Open")
    dialog = program.dialog("FrmFit")
    program.hands.click(dialog.part.named("BOT_AllThatFit"))
    dialog.wait_until_gone()
    program.expect_cell(1, VALUE, "77")
    program.expect_cell(2, VALUE, before[2][VALUE])


def values_are_exported_by_keyboard_alone(program):
    path = _opened(program)
    told = os.path.join(os.path.dirname(path), "told.csv")
    program.terminal.ask("export", program.template("KVRT207D"), path, "--out", told)
    exported = os.path.join(os.path.dirname(path), "exported.csv")
    with Only_Keyboard(program):
        program.pull_down("File")
        program.hands.keys("e")
        program.type_file(exported)
        wait_for("the exported values", lambda: os.path.exists(exported) and os.path.getsize(exported))
    with open(told, "rb") as wanted, open(exported, "rb") as written:
        assert written.read() == wanted.read(), "the window and the terminal export differently"


def values_are_exported_by_mouse_and_imported_again(program):
    path = _opened(program)
    exported = os.path.join(os.path.dirname(path), "exported.csv")
    program.choose_by_mouse("File", "Export values...")
    dialog = program.dialog("CommonDialog")
    dialog.choose_type("Semicolon, decimal comma (*.csv)")
    dialog.choose_file(exported, "Save")
    wait_for("the exported values", lambda: os.path.exists(exported) and os.path.getsize(exported))
    before = program.settings.cell(0, VALUE).name
    program.enter(0, VALUE, "1200")
    program.expect_cell(0, VALUE, "1200")
    program.choose_by_mouse("File", "Import values...")
    program.dialog("CommonDialog").choose_file(exported, "Open")
    dialog = program.dialog("FrmFit")
    expect("what changes", lambda: _entries(dialog, "LST_Changes"),
           [f"Regulation/Set point/Value: 1200 becomes {before}"])
    program.hands.click(dialog.part.named("BOT_AllThatFit"))
    dialog.wait_until_gone()
    program.expect_cell(0, VALUE, before)
