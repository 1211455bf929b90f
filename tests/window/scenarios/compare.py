# SPDX-License-Identifier: MIT
"""Compare: both sides, filter, differences by key, ticks, taking over, the controller read and nothing written."""
import os

from driver.accessible import Table
from driver.keyboard import Only_Keyboard
from driver.waiting import expect, wait_for

SIDES = ["This document", "Controller", "Factory values", "Another file", "Register file"]


def _opened(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    return path


def _window(program):
    return program.dialog("FrmCompare")


def _rows(window):
    return Table(window.part.named("TBL_Comparison"))


def _label(window, name):
    return window.part.named(name).name


def _choose_side(program, window, letter, side, wanted):
    """By keyboard: the list of a side, from its top."""
    program.hands.chord(["alt"], letter)
    box = window.part.named("CMB_" + side)
    expect(f"the focus on the list {side}", lambda: "focused" in box.states, True)
    program.hands.keys("Home", *["Down"] * SIDES.index(wanted))
    expect("the chosen side", lambda: box.name, wanted)


def _compare_with_the_factory(program):
    program.choose("Communication", "Compare...")
    window = _window(program)
    _choose_side(program, window, "g", "Right", "Factory values")
    wait_for("rows", lambda: _rows(window).row_count)
    return window


def the_entry_is_enabled_where_download_is(program):
    def both():
        return [program.is_enabled("Communication", entry) for entry in ("Download to Device", "Compare...")]
    path = program.document()
    program.start()
    expect("both entries without a document", both, [False, False])
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    expect("both entries with one", both, [True, True])
    program.choose("File", "Close")
    expect("both entries after it", both, [False, False])


def a_document_is_compared_with_the_factory_values(program):
    path = _opened(program)
    window = _compare_with_the_factory(program)
    rows = _rows(window)
    expect("the headings", rows.headings, ["Page", "Setting", "Left", "Right", "Sign", "Register"])
    listed = program.terminal.ask("compare", program.template("KVRT207D"), path, "--factory", exits=3)["rows"]
    expect("as many rows as the call lists", lambda: rows.row_count, len(listed))
    expect("the first row's page", lambda: rows.cell(0, 0).name, listed[0]["page"])
    expect("what the right side is", lambda: _label(window, "LBL_Words_Right"), "factory values")
    window.answer("Close")
    program.expect_title("site7.kvrt207d - Zorvane")


def all_of_it_by_keyboard(program):
    """From the menu over filter, differences and ticks to values in the document, and saved."""
    path = _opened(program)
    other = os.path.join(os.path.dirname(path), "other.kvrt207d")
    with open(path, "rb") as file:
        text = file.read()
    with open(other, "wb") as file:
        file.write(text.replace(b"ROW_12=R6 pulse,2:00,", b"ROW_12=R6 pulse,2:05,"))
    program.without_leak_check()
    with Only_Keyboard(program):
        program.pull_down("Communication")
        program.hands.keys("c")
        window = _window(program)
        _choose_side(program, window, "g", "Right", "Another file")
        expect("what is missing", lambda: _label(window, "LBL_Counts"), "Choose a file.")
        program.hands.chord(["alt"], "2")
        dialog = program.dialog("CommonDialog")
        program.hands.write(other)
        expect("the typed name", lambda: dialog.part.find(role="text").text, other)
        program.hands.keys("Return")
        dialog.wait_until_gone()
        rows = _rows(window)
        expect("the row that differs", lambda: rows.row_count, 1)
        program.hands.chord(["alt"], "f")
        program.hands.write("is:differs pulse")
        expect("the row that the filter lets through", lambda: rows.row_count, 1)
        table = window.part.named("TBL_Comparison")
        program.hands.keys(*["Tab"] * 2)
        expect("the focus in the table", lambda: "focused" in table.states
               or program.focus.owner.role == "table cell", True)
        program.hands.keys("F8")
        expect("which difference", lambda: _label(window, "LBL_Position"), "1 of 1")
        program.hands.keys("space")
        wait_for("what can be done with a tick", lambda: window.part.named("BOT_Take").is_enabled)
        program.hands.chord(["alt"], "t")
        expect("what was taken", lambda: _label(window, "LBL_Note"), "1 value was taken.")
        expect("no row that differs", lambda: rows.row_count, 0)
        program.hands.keys("Escape")
        window.wait_until_gone()
        program.expect_title("* site7.kvrt207d - Zorvane")
        program.hands.keys("ctrl+s")
        program.expect_title("site7.kvrt207d - Zorvane")
    with open(path, "rb") as file:
        assert b"R6 pulse,2:05," in file.read(), "the value isn't in the file"


def what_was_taken_is_undone_as_one_step(program):
    """Taken, undone by Ctrl+Z: the title is clean again, and the comparison shows the differences again."""
    _opened(program)
    window = _compare_with_the_factory(program)
    before = _label(window, "LBL_Counts")
    window.press("Tick differences")
    wait_for("what can be done with ticks", lambda: window.part.named("BOT_Take").is_enabled)
    window.press("Take into document")
    wait_for("what was taken", lambda: " taken." in _label(window, "LBL_Note"))
    taken = _label(window, "LBL_Note").split(" ")[0]
    expect("no row that differs", lambda: "differ" not in _label(window, "LBL_Counts"), True)
    window.answer("Close")
    program.expect_title("* site7.kvrt207d - Zorvane")
    step = next(entry for entry in program.entry("Edit").children[0].children if entry.name.startswith("Undo"))
    expect("the step's name", lambda: step.name, f"Undo take of {taken} values")
    program.hands.keys("ctrl+z")
    program.expect_title("site7.kvrt207d - Zorvane")
    window = _compare_with_the_factory(program)
    expect("the counts as before", lambda: _label(window, "LBL_Counts"), before)
    window.answer("Close")
    program.hands.keys("ctrl+y")
    program.expect_title("* site7.kvrt207d - Zorvane")


def differences_are_marked_in_the_grid(program):
    """The switch in View says what it needs, a comparison says what the cells are held against."""
    regulation, value = 3, 1
    _opened(program)
    program.enlarge()
    program.select_field(regulation)
    program.choose("View", "Mark differences")
    expect("the bar", lambda: program.window.named("BAR_1_Text").name.split(":")[0], "No cell is marked yet")
    window = _compare_with_the_factory(program)
    window.answer("Close")
    expect("the bar", lambda: program.window.named("BAR_1_Text").name, "Cells that differ from factory values are marked.")
    program.expect_state(0, value, "Modifiable, differs from factory values: 1150")
    program.enter(0, value, "1150")
    program.expect_state(0, value, "Modifiable, changed")
    program.hands.keys("ctrl+z")
    program.expect_state(0, value, "Modifiable, differs from factory values: 1150")
    assert program.stored("View", "Differences") == "1", program.stored("View", "Differences")
    program.choose("View", "Mark differences")
    wait_for("no line", lambda: not program.shows("BAR_1"))


def three_sides_stand_beside_each_other(program):
    """The factory values, the document and another file: the document takes from either of them."""
    path = _opened(program)
    other = os.path.join(os.path.dirname(path), "other.kvrt207d")
    with open(path, "rb") as file:
        text = file.read()
    with open(other, "wb") as file:
        file.write(text.replace(b"ROW_12=R6 pulse,2:00,", b"ROW_12=R6 pulse,2:05,"))
    program.choose("Communication", "Compare...")
    window = _window(program)
    _choose_side(program, window, "g", "Right", "Another file")
    program.hands.chord(["alt"], "2")
    program.dialog("CommonDialog").choose_file(other, "Open")
    expect("two sides", lambda: _rows(window).row_count, 1)
    program.hands.chord(["alt"], "m")
    expect("the left side", lambda: _label(window, "LBL_Words_Left"), "factory values")
    expect("the headings", lambda: _rows(window).headings(),
           ["Page", "Setting", "Left", "Left sign", "Document", "Right sign", "Right", "Register"])
    counts = [line.split(": ", 1) for line in _label(window, "LBL_Counts").split("\n")]
    assert [side for side, _ in counts] == ["Left", "Right"], counts
    assert "1 differs" in counts[1][1], counts
    program.hands.chord(["alt"], "f")
    program.hands.write("2:05")
    expect("the row of the file", lambda: _rows(window).row_count, 1)
    assert [_rows(window).cell(0, column).name for column in (4, 5, 6)] == ["2:00", "≠ differs", "2:05"]
    window.press("Tick differences")
    wait_for("what can be done with a tick", lambda: window.part.named("BOT_Take").is_enabled)
    assert window.part.named("BOT_Take_Left").is_enabled
    program.hands.chord(["alt"], "t")
    expect("what was taken", lambda: _label(window, "LBL_Note"), "1 value was taken.")
    window.answer("Close")
    program.expect_title("* site7.kvrt207d - Zorvane")


def f8_goes_from_difference_to_difference(program):
    _opened(program)
    window = _compare_with_the_factory(program)
    table = window.part.named("TBL_Comparison")
    program.hands.keys(*["Tab"] * 4)
    wait_for("the focus in the table", lambda: "focused" in table.states or program.focus.owner.role == "table cell")
    first = wait_for("the first row", lambda: " of " in _label(window, "LBL_Position") and _label(window, "LBL_Position"))
    count = int(first.split(" of ")[1])
    expect("which difference the first row is", lambda: first, f"1 of {count}")
    program.hands.keys("F8")
    expect("the second difference", lambda: _label(window, "LBL_Position"), f"2 of {count}")
    program.hands.keys("alt+Down")
    expect("the third difference", lambda: _label(window, "LBL_Position"), f"3 of {count}")
    program.hands.keys("shift+F8", "alt+Up", "alt+Up")
    expect("round to the last one", lambda: _label(window, "LBL_Position"), f"{count} of {count}")
    window.answer("Close")


def ticks_that_the_filter_hides_are_told(program):
    _opened(program)
    window = _compare_with_the_factory(program)
    counts = _label(window, "LBL_Counts")
    window.press("Tick differences")
    expect("the ticks", lambda: _label(window, "LBL_Counts"), counts + ". 50 ticked.")
    program.hands.chord(["alt"], "f")
    program.hands.write("page:Timers is:differs")
    expect("the rows of one page", lambda: _rows(window).row_count, 8)
    expect("the ticks", lambda: _label(window, "LBL_Counts"), counts + ". 50 ticked, 42 of them not listed.")
    window.answer("Close")


def a_read_only_document_takes_nothing(program):
    path = program.document()
    program.start()
    program.open(path, read_only=True)
    program.expect_panel(1, "READ ONLY")
    window = _compare_with_the_factory(program)
    window.press("Tick differences")
    wait_for("the ticks", lambda: window.part.named("BOT_Tick").name == "No ticks")
    assert not window.part.named("BOT_Take").is_enabled, "a document that is read only takes values"
    window.answer("Close")


def the_controller_is_read_and_nothing_is_written(program):
    controller = program.simulator()
    program.use_port(controller)
    _opened(program)
    program.choose("Communication", "Compare...")
    window = _window(program)
    expect("what is missing", lambda: _label(window, "LBL_Counts"),
           "The controller hasn't been read yet. Nothing is written by reading it.")
    window.press("Read controller")
    wait_for("rows", lambda: _rows(window).row_count)
    expect("who is there", lambda: _label(window, "LBL_Note"), "The controller at unit 1 is a KVRT207D.")
    wait_for("when it was read", lambda: ", read at " in _label(window, "LBL_Words_Right"))
    window.answer("Close")
    functions = {frame["function"] for frame in controller.frames() if frame.get("direction") == "in"}
    assert functions == {3}, f"the controller was asked by functions {functions}"


def a_reading_is_cancelled(program):
    controller = program.simulator("KVRT207D", "--fault", "silent")
    program.use_port(controller, TimeOut="20000")
    _opened(program)
    program.choose("Communication", "Compare...")
    window = _window(program)
    window.press("Read controller")
    wait_for("the progress", lambda: window.part.named("PRB_Reading").is_shown)
    program.hands.keys("Escape")
    expect("what became of it", lambda: _label(window, "LBL_Note"), "Stopped before all was read. Nothing was written.")
    wait_for("the button to read again", lambda: window.part.named("BOT_Read").is_enabled)
    program.hands.keys("Escape")
    window.wait_until_gone()


def the_program_ends_during_a_reading(program):
    controller = program.simulator("KVRT207D", "--fault", "silent")
    program.use_port(controller, TimeOut="20000")
    _opened(program)
    program.choose("Communication", "Compare...")
    window = _window(program)
    window.press("Read controller")
    wait_for("the progress", lambda: window.part.named("PRB_Reading").is_shown)
    program.process.terminate()
    assert program.wait_for_end() == 0, "the program ended with a failure"


def a_comparison_is_exported(program):
    path = _opened(program)
    window = _compare_with_the_factory(program)
    target = os.path.join(os.path.dirname(path), "difference.html")
    window.press("Export...")
    dialog = program.dialog("CommonDialog")
    dialog.choose_type("HTML File(*.html)")
    dialog.choose_file(target, "Save")
    wait_for("the file", lambda: os.path.exists(target))
    wait_for("what became of it", lambda: "was exported to" in _label(window, "LBL_Note"))
    with open(target, encoding="utf-8", errors="replace") as file:
        assert "R6 pulse" in file.read(), "the difference isn't in the file"
    window.answer("Close")


def the_window_says_all_to_a_screen_reader(program):
    _opened(program)
    window = _compare_with_the_factory(program)
    names = {part.description: part.name for part in window.part.walk() if part.description}
    for given_name, name in (("CMB_Left", "This document"), ("EDT_Filter", "Filter"), ("TBL_Comparison", "Compared values"),
                             ("BOT_Take", "Take into document"), ("CHK_All", "Also what is equal")):
        assert names.get(given_name) == name, f"{given_name} is called {names.get(given_name)!r}"
    window.answer("Close")
