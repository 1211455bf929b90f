# SPDX-License-Identifier: MIT
"""What was changed, shown and taken back: by keyboard alone, by mouse, after an upload, after a pasted block."""
from driver.keyboard import Only_Keyboard
from driver.waiting import expect, wait_for

OUTPUTS, REGULATION, TIMERS = 1, 3, 4
VALUE, REMARK = 1, 2
MODEL = "KVRT207D"


def _opened(program, field):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    program.select_field(field)
    return path


def _step(program, word):
    """The entry of the menu that begins with that word, with whatever the step is called."""
    return next(entry for entry in program.entry("Edit").children[0].children if entry.name.startswith(word))


def _expect_step(program, caption, enabled=True):
    def look():
        entry = _step(program, caption.split()[0])
        return entry.name, entry.is_enabled
    expect(f"the entry {caption}", look, (caption, enabled))


def _choose_by_mouse(program, word):
    program.hands.click(program.entry("Edit"))
    wait_for("the menu Edit", lambda: _step(program, word).is_shown)
    program.hands.click(_step(program, word))


def _to_value(program, row):
    """By keys alone, from the upper grid to a value of the lower one."""
    program.hands.keys("End", "Tab")
    program.expect_focus_in_settings()
    program.hands.keys("ctrl+Home", *["Down"] * row, *["Right"] * VALUE)
    cell = program.settings.cell(row, VALUE)
    expect(f"the focus on cell {row}", lambda: program.focus.owner, cell)


def _type(program, text):
    program.hands.keys("F2")
    expect("the focus in the cell's editor", lambda: program.focus.owner.description, "FLX_Settings_Editor")
    program.hands.keys("ctrl+a")
    program.hands.write(text)


def a_typed_value_comes_back_by_keyboard_alone(program):
    _opened(program, REGULATION)
    before = program.settings.cell(0, VALUE).name
    with Only_Keyboard(program):
        _to_value(program, 0)
        _type(program, "1200")
        program.hands.keys("Return")
        program.expect_cell(0, VALUE, "1200")
        program.expect_title("* site7.kvrt207d - Zorvane")
        program.hands.keys("ctrl+z")
        program.expect_cell(0, VALUE, before)
        program.expect_title("site7.kvrt207d - Zorvane")
        assert not program.is_enabled("File", "Save"), "Save is enabled though the document is as its file says"
        for redo in ("ctrl+shift+z", "ctrl+y"):
            program.hands.keys(redo)
            program.expect_cell(0, VALUE, "1200")
            program.expect_title("* site7.kvrt207d - Zorvane")
            program.hands.keys("ctrl+z")
            program.expect_cell(0, VALUE, before)


def a_typed_value_comes_back_by_mouse_from_another_page(program):
    _opened(program, REGULATION)
    before = program.settings.cell(0, VALUE).name
    _expect_step(program, "Undo", False)
    program.enter(0, VALUE, "1200")
    program.expect_cell(0, VALUE, "1200")
    wait_for("a step", lambda: _step(program, "Undo").is_enabled)
    assert _step(program, "Undo").name.startswith("Undo change of Regulation, "), _step(program, "Undo").name
    program.select_field(TIMERS)
    _choose_by_mouse(program, "Undo")
    program.expect_field(REGULATION)
    program.expect_cell(0, VALUE, before)
    _choose_by_mouse(program, "Redo")
    program.expect_cell(0, VALUE, "1200")


def an_editor_keeps_its_keys(program):
    _opened(program, REGULATION)
    before = program.settings.cell(0, VALUE).name
    program.enter(0, VALUE, "1200")
    program.expect_cell(0, VALUE, "1200")
    editor = program.begin_edit(0, VALUE)
    program.hands.keys("ctrl+a")
    program.hands.write("1")
    expect("the editor's text", lambda: editor.text, "1")
    program.hands.keys("ctrl+z")
    expect("the editor's text", lambda: editor.text, "1200")
    program.hands.keys("ctrl+y")
    expect("the editor's text", lambda: editor.text, "1")
    program.hands.keys("ctrl+k", "ctrl+f", "Escape")
    program.expect_cell(0, VALUE, "1200")
    program.expect_focus_in_settings()
    program.hands.keys("ctrl+z")
    program.expect_cell(0, VALUE, before)


def a_save_keeps_the_steps(program):
    path = _opened(program, REGULATION)
    before = program.settings.cell(0, VALUE).name
    program.enter(0, VALUE, "1200")
    program.expect_cell(0, VALUE, "1200")
    program.hands.keys("ctrl+s")
    program.expect_panel(4, "")
    program.expect_title("site7.kvrt207d - Zorvane")
    program.hands.keys("ctrl+z")
    program.expect_cell(0, VALUE, before)
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.hands.keys("ctrl+y")
    program.expect_title("site7.kvrt207d - Zorvane")
    saved = program.terminal.settings(program.template(MODEL), path, REGULATION)
    assert saved[0][VALUE] == "1200", saved[0]


def an_upload_is_one_step(program):
    controller = program.simulator()
    program.use_port(controller)
    _opened(program, REGULATION)
    before = program.settings.texts()
    program.go_online()
    expect("Undo is enabled", lambda: _step(program, "Undo").is_enabled, False)
    expect("Paste block is enabled", lambda: program.is_enabled("Edit", "Paste block"), False)
    program.choose("Communication", "Disconnect")
    wait_for("the step", lambda: _step(program, "Undo").is_enabled)
    name = _step(program, "Undo").name
    assert name.startswith("Undo upload of ") and name.endswith(" values"), name
    assert program.settings.texts() != before, "the upload changed nothing on this page"
    program.hands.keys("ctrl+z")
    expect("the lower grid", lambda: program.settings.texts(), before)


def changed_cells_say_so_and_are_counted(program):
    _opened(program, REGULATION)
    program.expect_state(0, VALUE, "Modifiable")
    program.enter(0, VALUE, "1200")
    program.expect_state(0, VALUE, "Modifiable, changed")
    program.expect_state(1, VALUE, "Modifiable")
    program.choose("View", "Mark changed cells")
    program.expect_state(0, VALUE, "Modifiable")
    program.choose("View", "Mark changed cells")
    program.expect_state(0, VALUE, "Modifiable, changed")
    wait_for("the line", lambda: program.shows("BAR_1"))
    expect("the line", lambda: program.window.named("BAR_1_Text").name, "1 value differs from the file.")
    program.hands.keys("ctrl+s")
    program.expect_state(0, VALUE, "Modifiable")
    assert program.stored("View", "ChangedCells") == "1", program.stored("View", "ChangedCells")


def _line(program):
    wait_for("the line", lambda: program.shows("BAR_1"))
    return program.window.named("BAR_1_Text").name


def changed_cells_are_marked_by_keyboard_alone(program):
    _opened(program, REGULATION)
    with Only_Keyboard(program):
        _to_value(program, 0)
        _type(program, "1200")
        program.hands.keys("Return")
        program.expect_state(0, VALUE, "Modifiable, changed")
        for wanted in ("Modifiable", "Modifiable, changed"):
            program.pull_down("View")
            program.hands.keys("c")
            program.expect_state(0, VALUE, wanted)
        expect("the line", lambda: _line(program), "1 value differs from the file.")
        program.hands.keys("ctrl+z")
        program.expect_state(0, VALUE, "Modifiable")
        expect("the bar is shown", lambda: program.shows("BAR_1"), False)


def changed_cells_are_shown_by_mouse(program):
    _opened(program, REGULATION)
    program.enter(0, VALUE, "1200")
    program.expect_state(0, VALUE, "Modifiable, changed")
    program.click_field(TIMERS)
    for shown in (False, True):
        program.choose_by_mouse("View", "Mark changed cells")
        expect("the bar is shown", lambda: program.shows("BAR_1"), shown)
    expect("the line", lambda: _line(program), "1 value differs from the file.")
    program.hands.click(program.window.named("BAR_1_Button1"))
    program.expect_field(REGULATION)
    expect("the cell with the keyboard", lambda: program.focus.owner, program.settings.cell(0, VALUE))


def a_block_is_copied_and_pasted_by_mouse(program):
    _opened(program, REGULATION)
    before = program.settings.texts()
    program.settle_on(0, REMARK)
    program.hands.click_holding("shift", program.settings.cell(1, REMARK))
    program.choose_by_mouse("Edit", "Copy")
    wanted = [before[row][REMARK] for row in (0, 1)]
    expect("the clipboard", program.hands._clipboard, "\n".join(wanted))
    program.settle_on(4, REMARK)
    program.choose_by_mouse("Edit", "Paste block")
    for row, text in zip((4, 5), wanted):
        program.expect_cell(row, REMARK, text)
    _choose_by_mouse(program, "Undo")
    expect("the lower grid", lambda: program.settings.texts(), before)


def a_block_is_copied_by_keyboard_alone(program):
    _opened(program, REGULATION)
    before = program.settings.texts()
    with Only_Keyboard(program):
        _to_value(program, 0)
        program.hands.keys("shift+Down", "shift+Right", "ctrl+c")
        expect("the clipboard", program.hands._clipboard,
               "\n".join("\t".join(before[row][VALUE:REMARK + 1]) for row in (0, 1)))
        program.hands.keys("ctrl+Home", "Down", "Down", "Right", "Right")
        expect("the focus on the cell", lambda: program.focus.owner, program.settings.cell(2, REMARK))
        program.hands.copy(before[0][REMARK] + "\n" + before[1][REMARK] + "\n")
        program.hands.keys("ctrl+shift+v")
        for row in (0, 1):
            program.expect_cell(2 + row, REMARK, before[row][REMARK])
        program.hands.keys("ctrl+z")
        expect("the lower grid", lambda: program.settings.texts(), before)


def a_block_is_pasted_by_keyboard_alone(program):
    _opened(program, REGULATION)
    before = [row[VALUE] for row in program.settings.texts()]
    program.hands.copy("1100\r\n")
    with Only_Keyboard(program):
        _to_value(program, 0)
        program.hands.keys("ctrl+shift+v")
        program.expect_cell(0, VALUE, "1100")
        program.hands.keys("ctrl+z")
        program.expect_cell(0, VALUE, before[0])
    program.hands.copy("1100\r\n99999\r\n")
    with Only_Keyboard(program):
        program.hands.keys("ctrl+shift+v")
        question = program.dialog("FrmFit")
        assert question.part.named("LBL_Summary").name.startswith("1 of 2 fit; row 2 "), \
            question.part.named("LBL_Summary").name
        program.hands.keys("Return")
        question.wait_until_gone()
        assert [row[VALUE] for row in program.settings.texts()] == before, "Nothing changed something"
        program.hands.keys("ctrl+shift+v")
        question = program.dialog("FrmFit")
        program.hands.keys("alt+a")
        question.wait_until_gone()
        program.expect_cell(0, VALUE, "1100")
        program.expect_cell(1, VALUE, before[1])


def one_text_fills_a_selection_and_a_block_is_copied(program):
    _opened(program, REGULATION)
    before = program.settings.texts()
    program.hands.copy("bay 4")
    program.settle_on(0, REMARK)
    program.hands.keys("shift+Down", "shift+Down", "ctrl+v")
    for row in range(3):
        program.expect_cell(row, REMARK, "bay 4")
    program.expect_cell(3, REMARK, before[3][REMARK])
    program.hands.keys("ctrl+c")
    expect("the clipboard", program.hands._clipboard, "bay 4\nbay 4\nbay 4")
    program.hands.keys("ctrl+z")
    expect("the lower grid", program.settings.texts, before)


def a_refused_block_is_pasted_from_the_message_bar(program):
    _opened(program, REGULATION)
    program.hands.copy("1100\tfirst\n")
    program.settle_on(0, VALUE)
    program.hands.keys("ctrl+v")
    wait_for("the line", lambda: program.shows("BAR_1"))
    program.hands.click(program.window.named("BAR_1_Button1"))
    program.expect_cell(0, VALUE, "1100")
    program.expect_cell(0, REMARK, "first")
