# SPDX-License-Identifier: MIT
"""The main job without a mouse, and whether the keyboard's place can be seen."""
import os

from driver.keyboard import Only_Keyboard, guard_refuses_the_mouse
from driver.picture import Picture
from driver.waiting import expect, wait_for

OUTPUTS, REGULATION, MEASUREMENTS = 1, 3, 5
VALUE = 1
TEXT_FILE = "Text File(*.txt) (*.rtf)"
SEEN_PIXELS = 20  # a focus of fewer different pixels would hardly be noticed


def _menu(program, menu, letter):
    """Alt and the menu's letter, then the letter of an entry."""
    program.pull_down(menu)
    program.hands.keys(letter)


def _to_cell(program, row, column):
    """From anywhere in the lower grid to one of its cells."""
    program.expect_focus_in_settings()
    program.hands.keys("ctrl+Home", *["Down"] * row, *["Right"] * column)
    cell = program.settings.cell(row, column)
    expect(f"the focus on cell {row}, {column}", lambda: program.focus.owner, cell)


def _to_settings(program):
    """From the upper grid to the lower one: Tab leaves it at the end of a row."""
    program.hands.keys("End", "Tab")
    program.expect_focus_in_settings()


def _select(program, number):
    """A row of the upper grid, and back into the lower grid."""
    program.select_field(number)
    _to_settings(program)


def _type_value(program, row, text):
    _to_cell(program, row, VALUE)
    program.hands.keys("F2")
    expect("the focus in the cell's editor", lambda: program.focus.owner.description, "FLX_Settings_Editor")
    program.hands.keys("ctrl+a")
    program.hands.write(text)
    program.hands.keys("Return")


def _tab_to(program, control):
    """Goes on with Tab until the control has the focus."""
    for _ in range(20):
        if "focused" in control.states:
            return
        program.hands.keys("Tab")
    expect(f"the focus on {control!r}", lambda: "focused" in control.states, True)


def the_main_job_from_start_to_end(program):
    path = program.document()
    export = os.path.join(os.path.dirname(path), "site7.txt")
    program.without_leak_check()
    program.start()
    with Only_Keyboard(program):
        program.hands.keys("ctrl+o")
        program.type_file(path)
        program.expect_title("site7.kvrt207d - Zorvane")
        # The grids are hidden and shown again after the title; until then no menu answers.
        wait_for("the focus in the upper grid", lambda: "focused" in program.fields.table.states)

        _menu(program, "Communication", "p")
        port = program.dialog("PortSettings")
        program.hands.keys("ctrl+a")
        program.hands.write("Simulated controller")
        program.hands.keys("Return")
        port.wait_until_gone()

        _select(program, REGULATION)
        _type_value(program, 0, "1200")
        program.expect_cell(0, VALUE, "1200")
        program.expect_title("* site7.kvrt207d - Zorvane")
        _select(program, OUTPUTS)
        _to_cell(program, 0, VALUE)
        program.hands.keys("F2")
        wait_for("the open list", lambda: program.focus.owner.role in ("list", "list item"))
        program.hands.keys("t", "Return")  # the one entry with that letter; more letters would have to come fast
        program.expect_cell(0, VALUE, "Trip")
        program.expect_focus_in_settings()

        _menu(program, "Communication", "d")
        program.expect_panel(2, "Download")
        program.expect_panel(4, "Ready")
        expect("the progress form is shown", lambda: program.has_dialog("Porcentaje"), False)
        _open_log(program)
        form = program.dialog("FrmStatus")
        assert form.part.named("RtbStatus").text.startswith("Transfer Method: Download to Device\n")
        program.hands.keys("Escape")
        form.wait_until_gone()

        _menu(program, "Communication", "u")
        program.expect_panel(2, "Online")
        expect("the progress form is shown", lambda: program.has_dialog("Porcentaje"), False)
        _select(program, MEASUREMENTS)
        before = program.settings.texts()
        wait_for("other measurements", lambda: program.settings.texts() != before)
        _select(program, REGULATION)
        program.expect_cell(0, VALUE, "1200")
        _type_value(program, 0, "1250")
        program.expect_panel(4, "Write: 1250 @250 ...Completed")
        _menu(program, "Communication", "i")
        program.expect_panel(2, "Offline")

        program.hands.keys("ctrl+p")
        program.preview("Preview Print Page")
        program.hands.chord(["alt"], "e")
        dialog = program.dialog("CommonDialog")
        _tab_to(program, dialog.types())
        program.hands.keys("Home", *["Down"] * dialog.file_types().index(TEXT_FILE))
        expect("the file type", dialog.file_type, TEXT_FILE)
        program.hands.chord(["alt"], "n")
        program.type_file(export)
        wait_for("the exported file", lambda: os.path.exists(export) and os.path.getsize(export))
        program.preview("Preview Print Page")  # the busy form has gone, which would take the key
        program.hands.keys("Escape")
        wait_for("the main window", lambda: "active" in program.window.states)

        program.hands.keys("ctrl+s")
        program.expect_title("site7.kvrt207d - Zorvane")
        with open(path, "rb") as file:
            assert b"Set point,1250," in file.read(), "the value isn't in the file"
        program.hands.keys("ctrl+q")
        assert program.wait_for_end() == 0, "the program ended with a failure"


def _open_log(program):
    """The button stands in the status bar, after the lower grid in the order of Tab."""
    wait_for("the button for the log", lambda: program.shows("BOT_Log"))
    program.expect_focus_in_settings()
    program.hands.keys("ctrl+End", "Tab")
    expect("the focus on the button", lambda: program.focus.owner.description, "BOT_Log")
    program.hands.keys("space")


def the_guard_refuses_mouse_and_actions(program):
    program.start()
    guard_refuses_the_mouse(program)


def _seen(program, before, rectangle, what):
    """The program paints a little later than it tells of the focus."""
    wait_for(f"a visible {what}", lambda: Picture(program.desktop).difference(before, rectangle) >= SEEN_PIXELS)


def the_focus_can_be_seen(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    with Only_Keyboard(program):
        program.select_field(OUTPUTS)
        _to_settings(program)
        program.hands.keys("ctrl+Home")
        lower = program.settings.cell(0, 0).rectangle
        with_focus = Picture(program.desktop)
        program.hands.keys("Right")
        _seen(program, with_focus, lower, "current cell of the lower grid that moved away")
        program.hands.keys("ctrl+Home", "shift+Tab")
        expect("the upper grid has the focus", lambda: "focused" in program.fields.table.states, True)
        _seen(program, with_focus, lower, "focus of the lower grid that went")
        upper = program.fields.cell(OUTPUTS - 1, 1).rectangle
        upper_has_it = Picture(program.desktop)
        program.hands.keys("Down")
        _seen(program, upper_has_it, upper, "selected row of the upper grid")

        before = Picture(program.desktop)
        program.pull_down("File")
        entry = program.entry("File", "Open...")
        opened = Picture(program.desktop)
        assert opened.difference(before, entry.rectangle) >= SEEN_PIXELS, "the menu doesn't show"
        close = program.entry("File", "Close").rectangle
        program.hands.keys("Down")
        _seen(program, opened, close, "chosen entry of the menu")
        program.hands.keys("Escape", "Escape")

        _menu(program, "View", "f")
        dialog = program.dialog("FontDialog")
        for name in ("OKButton", "CancelButton"):
            button = dialog.part.named(name)
            without = Picture(program.desktop)
            _tab_to(program, button)
            _seen(program, without, button.rectangle, f"focus of {name}")
        program.hands.keys("Escape")
        dialog.wait_until_gone()


def a_command_is_done_by_a_part_of_its_name(program):
    program.start()
    with Only_Keyboard(program):
        program.hands.chord(["ctrl"], "k")
        found = program.dialog("CommandList")
        program.hands.write("page set")
        wait_for("the one command", lambda: [item.name for item in found.part.named("LST_Commands").children]
                 == ["File > Page Setup..."])
        program.hands.keys("Return")
        program.dialog("PageSetup")
        program.hands.keys("Escape")


def a_cell_is_cleared_by_the_menu_of_its_grid(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.select_field(OUTPUTS)
    program.settle_on(0, 2)
    assert program.settings.texts()[0][2] != "", "there is nothing to clear"
    with Only_Keyboard(program):
        before = program.windows_on_screen()
        program.hands.keys("Menu")
        wait_for("the menu", lambda: program.windows_on_screen() - before)
        program.hands.keys("Escape")
        wait_for("no menu", lambda: not program.windows_on_screen() - before)
        program.hands.keys("shift+F10")
        wait_for("the menu", lambda: program.windows_on_screen() - before)
        program.hands.keys("l")
        program.expect_cell(0, 2, "")
        program.expect_title("* site7.kvrt207d - Zorvane")
