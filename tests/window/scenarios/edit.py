# SPDX-License-Identifier: MIT
"""Editing without a controller: what is typed, what is refused in which words, what the document then says."""
from driver.waiting import expect

OUTPUTS, CHANNELS, REGULATION, TIMERS, MEASUREMENTS = 1, 2, 3, 4, 5
VALUE = 1  # the grid's column of values in these fields


def _editing(program, field):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    program.select_field(field)
    expect("the lower grid", lambda: program.settings.texts(),
           program.terminal.settings(program.template("KVRT207D"), path, field))
    return path


def _expect_marked(program):
    program.expect_title("* site7.kvrt207d - Zorvane")
    assert program.is_enabled("File", "Save"), "Save is disabled"


def _expect_unmarked(program):
    program.expect_title("site7.kvrt207d - Zorvane")
    assert not program.is_enabled("File", "Save"), "Save is enabled"


def a_number_is_taken_as_typed(program):
    path = _editing(program, REGULATION)
    program.enter(0, VALUE, "0987")
    program.expect_cell(0, VALUE, "0987")
    _expect_marked(program)
    result = program.terminal.ask("set", program.template("KVRT207D"), path, REGULATION, 1, 2, "0987")
    assert (result["grid"], result["Value"]) == ("0987", "987"), f"the terminal program: {result}"
    program.select_field(TIMERS)
    program.select_field(REGULATION)
    program.expect_cell(0, VALUE, "987")


def a_number_above_the_limit_becomes_the_limit(program):
    _editing(program, REGULATION)
    program.enter(0, VALUE, "1401")
    program.message("The value is out of range (value range 800 to 1400)").answer("Ok")
    program.expect_cell(0, VALUE, "1400")
    _expect_unmarked(program)


def a_number_below_the_limit_becomes_the_upper_limit(program):
    _editing(program, REGULATION)
    program.enter(0, VALUE, "5")
    program.message("The value is out of range (value range 800 to 1400)").answer("Ok")
    program.expect_cell(0, VALUE, "1400")


def a_number_without_limits_has_those_of_the_register(program):
    _editing(program, REGULATION)
    program.enter(11, VALUE, "40000")
    program.message("The value is out of range (value range -32768 to 32767)").answer("Ok")
    program.expect_cell(11, VALUE, "32767")
    program.enter(4, VALUE, "-1")
    program.message("The value is out of range (value range 0 to 65535)").answer("Ok")
    program.expect_cell(4, VALUE, "65535")


def letters_in_a_number_become_zero(program):
    _editing(program, REGULATION)
    program.enter(0, VALUE, "abc")
    program.expect_cell(0, VALUE, "0")
    _expect_unmarked(program)


def a_time_is_normalised(program):
    _editing(program, TIMERS)
    program.enter(0, VALUE, "1:75")
    program.expect_cell(0, VALUE, "2:15")
    _expect_unmarked(program)


def a_time_out_of_range_is_refused(program):
    _editing(program, TIMERS)
    program.enter(0, VALUE, "9:01")
    program.message("The value is out of range.").answer("Ok")
    program.expect_cell(0, VALUE, "9:01")
    program.select_field(REGULATION)
    program.select_field(TIMERS)
    program.expect_cell(0, VALUE, "0:45")


def a_text_that_is_no_time_becomes_zero(program):
    _editing(program, TIMERS)
    program.enter(0, VALUE, ":30")
    program.expect_cell(0, VALUE, "0:00")


def a_list_entry_is_chosen(program):
    _editing(program, OUTPUTS)
    program.choose_entry(0, VALUE, "Trip")
    program.expect_cell(0, VALUE, "Trip")
    _expect_marked(program)


def a_list_entry_of_half_a_register_is_chosen(program):
    path = _editing(program, CHANNELS)
    program.choose_entry(0, 5, "Low")
    program.expect_cell(0, 5, "Low")
    program.expect_cell(1, 5, "High")
    program.hands.keys("ctrl+s")
    program.expect_title("site7.kvrt207d - Zorvane")
    settings = program.terminal.settings(program.template("KVRT207D"), path, CHANNELS)
    assert [row[5] for row in settings[:2]] == ["Low", "High"], f"saved: {settings[:2]}"


def escape_leaves_a_list_as_it_was(program):
    _editing(program, OUTPUTS)
    program.open_list(0, VALUE)
    program.hands.keys("Down", "Escape")
    program.expect_focus_in_settings()
    program.expect_cell(0, VALUE, "Raise")
    _expect_unmarked(program)


def a_text_in_registers_has_a_length(program):
    _editing(program, OUTPUTS)
    editor = program.begin_edit(17, VALUE)
    program.hands.keys("ctrl+a")
    program.hands.write("ABCDEFGHIJ")
    expect("eight characters in four registers", lambda: editor.text, "ABCDEFGH")
    program.hands.keys("Return")
    program.expect_cell(17, VALUE, "ABCDEFGH")
    _expect_unmarked(program)


def a_fixed_column_has_no_editor(program):
    _editing(program, REGULATION)
    program.settle_on(0, 0)
    program.hands.keys("F2")
    program.hands.write("x")
    expect("the focus stays on the cell", lambda: program.focus.owner, program.settings.cell(0, 0))
    program.expect_cell(0, 0, "Set point")
    program.expect_state(0, 0, "Fixed")
    program.expect_state(0, 1, "Modifiable")


def escape_drops_what_was_typed(program):
    _editing(program, REGULATION)
    editor = program.begin_edit(0, VALUE)
    program.hands.write("99")
    expect("the text in the editor", lambda: editor.text, "112599")
    program.hands.keys("Escape")
    program.expect_focus_in_settings()
    program.expect_cell(0, VALUE, "1125")
    _expect_unmarked(program)


def typing_begins_an_edit_over_the_old_text(program):
    _editing(program, REGULATION)
    program.settle_on(1, VALUE)
    program.hands.write("42")
    program.hands.keys("Return")
    program.expect_cell(1, VALUE, "42")
    expect("the focus one row further down", lambda: program.focus.owner, program.settings.cell(2, VALUE))


def tab_takes_the_text_and_goes_on(program):
    _editing(program, REGULATION)
    program.begin_edit(1, VALUE)
    program.hands.keys("ctrl+a")
    program.hands.write("43")
    program.hands.keys("Tab")
    program.expect_cell(1, VALUE, "43")
    expect("the focus one column further", lambda: program.focus.owner, program.settings.cell(1, 2))


def a_double_click_begins_an_edit(program):
    _editing(program, REGULATION)
    program.hands.click(program.settings.cell(2, VALUE), times=2)
    expect("the focus in the cell's editor", lambda: program.focus.owner.description, "FLX_Settings_Editor")


def save_takes_an_edit_in_progress(program):
    path = _editing(program, OUTPUTS)
    program.begin_edit(0, 2)
    program.hands.keys("ctrl+a")
    program.hands.write("Breaker Q7")
    program.choose("File", "Close")
    program.message("Do you want to save this file?").answer("Cancel")
    program.expect_cell(0, 2, "Breaker Q7")
    program.hands.keys("ctrl+s")
    program.expect_title("site7.kvrt207d - Zorvane")
    settings = program.terminal.settings(program.template("KVRT207D"), path, OUTPUTS)
    assert settings[0][2] == "Breaker Q7", f"saved: {settings[0]}"


def cells_have_the_colours_of_the_template(program):
    _editing(program, REGULATION)
    program.settle_on(5, 0)
    program.expect_colours(0, VALUE, (0xFF, 0xFF, 0xC0), (0x40, 0x40, 0x40))
    program.expect_colours(0, 0, (0xFF, 0xFF, 0xFF), (0x40, 0x40, 0x40))


def a_pasted_line_end_is_a_blank_in_the_editor_too(program):
    """A line end in a value would split its row in the file."""
    path = _editing(program, OUTPUTS)
    rows = len(program.settings.texts())
    program.hands.copy("North bay\r\nsecond\tfan\n")
    program.begin_edit(0, 2)
    program.hands.keys("ctrl+a", "ctrl+v", "Return")
    program.expect_cell(0, 2, "North bay second fan")
    program.hands.keys("ctrl+s")
    program.expect_title("site7.kvrt207d - Zorvane")
    saved = program.terminal.settings(program.template("KVRT207D"), path, OUTPUTS)
    assert (len(saved), saved[0][2]) == (rows, "North bay second fan"), f"the file holds {saved}"


def a_pasted_block_never_becomes_zero(program):
    _editing(program, REGULATION)
    before = program.settings.texts()
    program.hands.copy("1100\t1200\n1300\t1400\n")
    program.settle_on(0, VALUE)
    program.hands.keys("ctrl+v")
    editor = program.begin_edit(1, VALUE)
    program.hands.keys("ctrl+v")
    expect("the text in the editor", lambda: editor.text, before[1][VALUE])
    program.hands.keys("Return")
    program.settle_on(0, VALUE)
    expect("the lower grid", lambda: program.settings.texts(), before)
