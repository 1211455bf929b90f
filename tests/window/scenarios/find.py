# SPDX-License-Identifier: MIT
"""Find: over all pages, by keyboard alone and by mouse, with its two filters."""
from driver.accessible import Table
from driver.keyboard import Only_Keyboard
from driver.waiting import expect, wait_for

OUTPUTS, REGULATION, TIMERS = 1, 3, 4
VALUE = 1


def _opened(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    wait_for("the focus in the upper grid", lambda: "focused" in program.fields.table.states)


def _found(dialog):
    return Table(dialog.part.named("LST_Found")).texts()


def _expect_position(dialog, wanted):
    expect("where the search stands", lambda: dialog.part.named("LBL_Position").name, wanted)


def _type(program, row, text):
    """By keys alone: a value of the selected page."""
    program.hands.keys("ctrl+Home", *["Down"] * row, *["Right"] * VALUE)
    expect("the focus on the cell", lambda: program.focus.owner, program.settings.cell(row, VALUE))
    program.hands.keys("F2")
    expect("the focus in the cell's editor", lambda: program.focus.owner.description, "FLX_Settings_Editor")
    program.hands.keys("ctrl+a")
    program.hands.write(text)
    program.hands.keys("Return")
    program.expect_cell(row, VALUE, text)


def a_setting_is_found_by_keyboard_alone(program):
    _opened(program)
    with Only_Keyboard(program):
        program.hands.keys("ctrl+f")
        dialog = program.dialog("FrmFind")
        expect("the focus in the field", lambda: program.focus.owner.description, "EDT_Find")
        program.hands.write("pulse")
        expect("what was found", lambda: [row[0] for row in _found(dialog)],
               [f"Output Setup/R{number} pulse/Value" for number in range(1, 8)])
        _expect_position(dialog, "7 found")
        for key, position in (("Return", "1 of 7"), ("F3", "2 of 7"), ("F3", "3 of 7"), ("shift+F3", "2 of 7"),
                              ("shift+F3", "1 of 7"), ("shift+F3", "7 of 7"), ("Return", "1 of 7")):
            program.hands.keys(key)
            _expect_position(dialog, position)
        program.expect_field(OUTPUTS)
        program.hands.keys("Escape")
        dialog.wait_until_gone()
        for key, row in (("F3", 3), ("F3", 5), ("shift+F3", 3)):
            program.hands.keys(key)
            expect("the focus on what was found", lambda: program.focus.owner, program.settings.cell(row, VALUE))


def only_what_was_changed_or_is_not_as_from_the_works(program):
    _opened(program)
    with Only_Keyboard(program):
        for field, row, text in ((REGULATION, 0, "1200"), (TIMERS, 1, "0:50")):
            program.select_field(field)
            program.hands.keys("End", "Tab")
            program.expect_focus_in_settings()
            _type(program, row, text)
        program.hands.keys("ctrl+f")
        dialog = program.dialog("FrmFind")
        program.hands.keys("alt+c")
        _expect_position(dialog, "2 found")
        changed = [["Regulation/Set point/Value", "1200", "250"], ["Timers/Next delay/Time", "0:50", "271"]]
        expect("what was changed", lambda: _found(dialog), changed)
        program.hands.keys("alt+d")
        expect("what was changed and isn't as from the works", lambda: _found(dialog), changed)
        program.hands.keys("alt+c")
        wait_for("all that isn't as from the works", lambda: len(_found(dialog)) == 70)
        program.hands.keys("alt+f")
        program.hands.write("voltage")
        expect("those with that word", lambda: [row[:2] for row in _found(dialog)],
               [["Channel Setup/1/Description", "Busbar 2 voltage × 0.1 V"], ["Regulation/Undervoltage/Value", "880"],
                ["Regulation/Overvoltage/Value", "1265"], ["Measurements/Voltage/Value", "1123"],
                ["Measurements/Voltage/Nameplate", "KVRT207D-110/20"]])
        program.hands.keys("ctrl+a")
        program.hands.write("no such thing")
        _expect_position(dialog, "nothing found")


def a_setting_is_found_by_mouse(program):
    _opened(program)
    program.hands.click(program.entry("Edit"))
    wait_for("the menu Edit", lambda: program.entry("Edit", "Find...").is_shown)
    program.hands.click(program.entry("Edit", "Find..."))
    dialog = program.dialog("FrmFind")
    program.hands.write("271")
    expect("the register's setting", lambda: _found(dialog), [["Timers/Next delay/Time", "0:12", "271"]])
    program.hands.click(Table(dialog.part.named("LST_Found")).cell(0, 0), times=2)
    program.expect_field(TIMERS)
    _expect_position(dialog, "1 of 1")
    program.hands.click(dialog.part.named("EDT_Find"))
    program.hands.keys("ctrl+a")
    program.hands.write("pulse")
    _expect_position(dialog, "7 found")
    for button, position in (("BOT_Next", "1 of 7"), ("BOT_Next", "2 of 7"), ("BOT_Previous", "1 of 7")):
        program.hands.click(dialog.part.named(button))
        _expect_position(dialog, position)
    program.expect_field(OUTPUTS)
    program.hands.click(dialog.part.named("CHK_Changed"))
    _expect_position(dialog, "nothing found")
    program.hands.click(dialog.part.named("BOT_Close"))
    dialog.wait_until_gone()
