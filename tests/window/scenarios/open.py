# SPDX-License-Identifier: MIT
"""Opening documents: the chosen file type, the grids, the read-only box, files that don't fit."""
import os
import shutil

from driver.waiting import expect, wait_for

MODELS = ["KVRT", "KVRT100", "KVRT207D", "R7702-16"]


def _sees_the_document(program, model):
    path = program.document(model)
    template = program.template(model)
    program.start()
    program.open(path)
    program.expect_title(f"{os.path.basename(path)} - Zorvane")
    fields = program.terminal.fields(template, path)
    expect("the upper grid", lambda: program.fields.texts(), fields)
    for field in range(1, len(fields) + 1):
        program.select_field(field)
        expect(f"the headings of field {field}", lambda: program.settings.headings(),
               program.terminal.headings(template, path, field))
        expect(f"the settings of field {field}", lambda: program.settings.texts(),
               program.terminal.settings(template, path, field))


def shows_a_kvrt_document(program):
    _sees_the_document(program, "KVRT")


def shows_a_kvrt100_document(program):
    _sees_the_document(program, "KVRT100")


def shows_a_kvrt207d_document(program):
    _sees_the_document(program, "KVRT207D")


def shows_a_board_document(program):
    _sees_the_document(program, "R7702-16")


def ends_on_the_fourth_field(program):
    """Opening applies the font size, and that moves the selection on by three rows."""
    path = program.document()
    program.start()
    program.open(path)
    program.expect_field(4)
    expect("the lower grid right after opening", lambda: program.settings.texts(),
           program.terminal.settings(program.template("KVRT207D"), path, 4))
    for number, text in ((1, ""), (2, "Offline"), (3, "RTU: 1"), (4, "")):
        program.expect_panel(number, text)


def shows_letters_beyond_ascii(program):
    path = program.document()
    program.start()
    program.open(path)
    program.select_field(1)
    program.expect_cell(10, 2, "Fan group 1 °C driven")


def makes_the_document_commands_live(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    for captions in (("File", "Close"), ("File", "Save As..."), ("Communication", "Upload to PC"),
                     ("Communication", "Download to Device")):
        expect(f"{captions} is enabled", lambda: program.is_enabled(*captions), True)
    assert not program.is_enabled("File", "Save"), "a file just opened has nothing to save"


def moves_through_the_fields_by_keyboard(program):
    path = program.document()
    program.start()
    program.open(path)
    program.select_field(2)
    program.hands.keys("Down", "Down")
    program.expect_field(4)
    expect("the settings of the fourth field", lambda: program.settings.texts(),
           program.terminal.settings(program.template("KVRT207D"), path, 4))
    program.hands.keys("Up")
    expect("the settings of the third field", lambda: program.settings.texts(),
           program.terminal.settings(program.template("KVRT207D"), path, 3))


def moves_through_the_fields_by_mouse(program):
    path = program.document()
    program.start()
    program.open(path)
    for field in (2, 1, 3, 2):
        program.click_field(field)
        expect(f"the settings of field {field}", lambda: program.settings.texts(),
               program.terminal.settings(program.template("KVRT207D"), path, field))


def a_click_on_the_heading_selects_nothing(program):
    program.start()
    program.select_field(2)
    left, top, _, _ = program.fields.table.rectangle
    for _ in range(3):
        program.hands.click_at(left + 60, top + 10)
    program.hands.keys("Down")
    program.expect_field(3)


def a_click_below_the_rows_selects_the_last_one(program):
    program.start()
    program.click_field(2)
    program.click_field(1)
    left, top, _, height = program.fields.cell(3, 1).rectangle
    program.hands.click_at(left + 20, top + height + 6)
    program.expect_field(4)
    expect("the first setting", lambda: program.settings.cell(0, 0).name, "First delay")


def offers_a_file_type_for_each_template(program):
    program.start()
    program.choose("File", "Open...")
    dialog = program.dialog("CommonDialog")
    expect("the dialog's title", lambda: dialog.title, "Open")
    expect("the file types", lambda: sorted(name.upper() for name in dialog.file_types()),
           sorted(f"{model} CONFIGURATION (*.{model})" for model in MODELS))
    dialog.answer("Cancel")
    program.expect_title("Zorvane")


def remembers_the_file_type(program):
    path = program.document("R7702-16")
    program.start()
    program.choose("File", "Open...")
    dialog = program.dialog("CommonDialog")
    dialog.choose_type("R7702-16 Configuration (*.R7702-16)")
    dialog.choose_file(path, "Open")
    program.expect_title("site7.r7702-16 - Zorvane")
    program.choose("File", "Exit")
    program.wait_for_end()
    program.start()
    program.choose("File", "Open...")
    dialog = program.dialog("CommonDialog")
    expect("the file type of a new start", dialog.file_type, "R7702-16 Configuration (*.R7702-16)")


def asks_again_for_a_name_that_does_not_exist(program):
    path = program.document()
    program.start()
    program.choose("File", "Open...")
    dialog = program.dialog("CommonDialog")
    dialog.choose_file(os.path.join(os.path.dirname(path), "nowhere.kvrt207d"), "Open")
    again = program.dialog("CommonDialog")
    again.choose_file(path, "Open")
    program.expect_title("site7.kvrt207d - Zorvane")


def cancelled_keeps_the_document(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.choose("File", "Open...")
    program.dialog("CommonDialog").answer("Cancel")
    program.select_field(3)
    expect("the settings of the third field", lambda: program.settings.texts(),
           program.terminal.settings(program.template("KVRT207D"), path, 3))


def read_only_refuses_edits(program):
    path = program.document()
    program.start()
    program.open(path, read_only=True)
    program.expect_panel(1, "READ ONLY")
    assert not program.is_enabled("File", "Save"), "Save is enabled"
    program.select_field(1)
    program.settle_on(0, 2)
    program.expect_panel(4, "READ ONLY FILE. Can't modify the value.")
    program.hands.keys("F2")
    program.hands.write("x")
    expect("the focus stays on the cell", lambda: program.focus.owner, program.settings.cell(0, 2))
    program.expect_cell(0, 2, "Motor contactor up K1")
    program.expect_title("site7.kvrt207d - Zorvane")
    assert not program.is_enabled("File", "Save"), "Save is enabled"


def read_only_may_be_saved_under_another_name(program):
    path = program.document()
    program.start()
    program.open(path, read_only=True)
    program.expect_panel(1, "READ ONLY")
    copy = os.path.join(os.path.dirname(path), "copy.kvrt207d")
    program.save_as(copy)
    program.expect_title("copy.kvrt207d - Zorvane")
    program.expect_panel(1, "")
    program.expect_panel(4, "")
    assert os.path.exists(copy), "the copy wasn't written"


def says_that_the_template_is_missing(program):
    path = program.desktop.path("documents", "site7.abc")
    shutil.copy2(program.document(), path)
    program.start()
    program.open(path)
    folder = program.folder.rstrip("/")
    program.message(f"The ZTP file ({folder}/ABC.ZTP) was not found in: \n{folder}").answer("Ok")


def says_that_a_file_does_not_fit(program):
    path = program.document("R7702-16")
    with open(path, "ab") as file:
        file.write(b"[Field_1_Default]\r\nROW_1=" + b",".join([b"x"] * 40) + b"\r\n")
    program.start()
    program.open(path)
    program.expect_panel(4, "This file fit on the template.")


def brings_an_older_file_up_to_date(program):
    path = program.desktop.path("documents", "OLDSITE.KVRT100")
    shutil.copy2(os.path.join(program.folder, "OLDSITE.KVRT100"), path)
    program.start()
    program.open(path)
    program.expect_title("oldsite_updated.kvrt100 - Zorvane")
    program.expect_panel(4, "The file was updated.")
    found = sorted(os.listdir(os.path.dirname(path)))
    assert [name.upper() for name in found] == ["OLDSITE.KVRT100", "OLDSITE_UPDATED.KVRT100"], f"files: {found}"


def needs_a_template_in_the_folder(program):
    for model in MODELS:
        os.remove(program.template(model))
    program.start(shown=False)
    program.dialog("Msgb").answer("Ok")
    program.choose("File", "Open...")
    folder = program.folder.rstrip("/")
    program.message(f"Does not exist any .ZTP file in this directory: \n{folder}").answer("Ok")
    assert not program.has_dialog("CommonDialog"), "a file dialog is open"


def _type_with_completions(program, path):
    """Types a file's name into the Open dialog, which has a list of completions open then."""
    program.hands.keys("ctrl+o")
    dialog = program.dialog("CommonDialog")
    before = program.windows_on_screen()
    program.hands.write(path[:-1])
    wait_for("the list of completions", lambda: program.windows_on_screen() - before)
    program.hands.write(path[-1])
    field = dialog.part.find(role="text")
    expect("the typed name", lambda: path.endswith(field.text), True)
    wait_for("the list of completions", lambda: program.windows_on_screen() - before)
    return dialog


def the_window_is_active_after_a_typed_name_and_enter(program):
    """Enter closes list and dialog at once; the keyboard goes on in the window."""
    path = program.document("KVRT")
    program.start()
    _type_with_completions(program, path)
    program.hands.keys("Return")
    program.expect_title("site7.kvrt - Zorvane")
    expect("the window is active", lambda: "active" in program.window.states, True)
    program.select_field(1)
    expect("a cell has the focus", lambda: program.focus.owner.role, "cell")


def a_click_beside_the_completions_presses_the_button(program):
    path = program.document("KVRT")
    program.start()
    dialog = _type_with_completions(program, path)
    program.hands.click(dialog.part.find(role="push button", name="Open"))
    program.expect_title("site7.kvrt - Zorvane")
    expect("the window is active", lambda: "active" in program.window.states, True)
