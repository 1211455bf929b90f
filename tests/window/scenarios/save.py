# SPDX-License-Identifier: MIT
"""Saving: the mark in the title, Save, Save As, the factory file that is never written over."""
import os

from driver.waiting import expect, wait_for

REFUSED = "Default file can't be overwritted!"


def _opened(program, name=None, model="KVRT207D"):
    path = program.document(model, name)
    program.start()
    program.open(path)
    program.expect_title(f"{os.path.basename(path).lower()} - Zorvane")
    program.select_field(1)
    return path


def _files(path):
    return sorted(os.listdir(os.path.dirname(path)))


def _bytes(path):
    with open(path, "rb") as file:
        return file.read()


def _change(program, text="Breaker Q7"):
    """A free text: the quickest change that marks the document."""
    program.enter(0, 2, text)
    program.expect_cell(0, 2, text)


def an_edit_marks_the_title(program):
    _opened(program)
    _change(program)
    program.expect_title("* site7.kvrt207d - Zorvane")
    assert program.is_enabled("File", "Save"), "Save is disabled"


def save_writes_the_file(program):
    path = _opened(program)
    _change(program)
    wanted = program.desktop.path("wanted.kvrt207d")
    program.terminal.ask("set", program.template("KVRT207D"), path, 1, 1, 3, "Breaker Q7", "--save", wanted)
    program.choose("File", "Save")
    program.expect_panel(4, "Saving file SITE7.KVRT207D ...")
    program.expect_title("site7.kvrt207d - Zorvane")
    program.expect_panel(4, "")
    assert not program.is_enabled("File", "Save"), "Save is enabled after saving"
    assert _bytes(path) == _bytes(wanted), "the file differs from what the terminal program saves"
    assert _files(path) == ["site7.kvrt207d"], f"files: {_files(path)}"


def _saves_the_file_that_was_opened(program, name):
    path = _opened(program, name)
    before = _bytes(path)
    _change(program)
    program.hands.keys("ctrl+s")
    program.expect_title(f"{name.lower()} - Zorvane")
    assert _files(path) == [name], f"files: {_files(path)}"
    after = _bytes(path)
    assert b"Breaker Q7" in after and b"Breaker Q7" not in before, "the change isn't in the file"


def save_keeps_a_lower_case_name(program):
    _saves_the_file_that_was_opened(program, "site7.kvrt207d")


def save_keeps_an_upper_case_name(program):
    _saves_the_file_that_was_opened(program, "SITE7.KVRT207D")


def save_keeps_a_mixed_name(program):
    _saves_the_file_that_was_opened(program, "Site7.Kvrt207d")


def save_as_goes_on_with_the_new_file(program):
    path = _opened(program)
    before = _bytes(path)
    _change(program)
    other = os.path.join(os.path.dirname(path), "Site8.kvrt207d")
    program.choose("File", "Save As...")
    dialog = program.dialog("CommonDialog")
    expect("the dialog's title", lambda: dialog.title, "Save as")
    expect("the file types", dialog.file_types, ["KVRT207D Configuration (*.KVRT207D)"])
    dialog.choose_file(other, "Save")
    program.expect_panel(4, "Saving file Site8.kvrt207d ...")
    program.expect_title("site8.kvrt207d - Zorvane")
    program.expect_panel(4, "")
    assert _bytes(path) == before, "the first file was written"
    assert b"Breaker Q7" in _bytes(other), "the change isn't in the new file"
    assert program.is_enabled("File", "Save"), "Save is disabled after Save As"


def save_as_cancelled_changes_nothing(program):
    path = _opened(program)
    _change(program)
    program.choose("File", "Save As...")
    program.dialog("CommonDialog").answer("Cancel")
    program.expect_title("* site7.kvrt207d - Zorvane")
    assert _files(path) == ["site7.kvrt207d"], f"files: {_files(path)}"


def save_as_keeps_dragged_widths(program):
    path = _opened(program)
    left, top, width, height = program.settings.cell(0, 1).rectangle
    program.hands.drag((left + width, top - height // 2), (left + width + 40, top - height // 2))
    wait_for("a wider column", lambda: program.settings.cell(0, 1).rectangle[2] >= width + 30)
    pixels = program.settings.cell(0, 1).rectangle[2]
    other = os.path.join(os.path.dirname(path), "wide.kvrt207d")
    program.save_as(other)
    program.expect_title("wide.kvrt207d - Zorvane")
    document = program.terminal.ask("dump", program.template("KVRT207D"), other)
    stored = document["Fields"]["1"]["Cells"][0][1]["Width"]
    assert abs(stored - (pixels + 1) * 15) <= 30, f"{pixels} pixels wide, {stored} twips stored"


def the_default_file_is_not_overwritten(program):
    path = _opened(program)
    default = os.path.join(os.path.dirname(path), "DEFAULT.KVRT207D")
    with open(default, "wb") as file:
        file.write(b"factory")
    _change(program)
    for name in ("DEFAULT.KVRT207D", "default.kvrt207d"):
        program.save_as(os.path.join(os.path.dirname(path), name))
        program.expect_panel(4, "Default file can't be overwritted...")
        program.message(REFUSED).answer("Ok")
        program.expect_panel(4, "")
        program.expect_panel(1, "READ ONLY")
    assert _bytes(default) == b"factory", "the factory file was written"
    assert _files(path) == ["DEFAULT.KVRT207D", "site7.kvrt207d"], f"files: {_files(path)}"


def the_default_file_is_made_once(program):
    path = _opened(program)
    default = os.path.join(os.path.dirname(path), "DEFAULT.KVRT207D")
    program.save_as(default)
    program.expect_title("default.kvrt207d - Zorvane")
    program.expect_panel(1, "READ ONLY")
    program.expect_panel(4, "")
    assert os.path.exists(default), "the factory file wasn't made"
    _change(program)
    program.expect_title("* default.kvrt207d - Zorvane")
    assert not program.is_enabled("File", "Save"), "Save is enabled for the factory file"


def a_failed_save_as_says_why(program):
    path = _opened(program)
    _change(program)
    program.save_as(os.path.join(os.path.dirname(path), "nowhere", "site9.kvrt207d"))
    box = program.dialog("Msgb")
    text = box.text()
    assert text.startswith("Can't Save file : path/file error or directory is read only.\nExtra info: "), text
    box.answer("Ok")
    program.expect_title("* site7.kvrt207d - Zorvane")


def yes_in_open_leaves_the_file_that_save_as_names_as_it_is(program):
    """Open has emptied the model by the time of the question, so Save As has nothing to write any more."""
    path = _opened(program)
    before = _bytes(path)
    _change(program)
    program.expect_title("* site7.kvrt207d - Zorvane")
    other = program.document("KVRT100")
    program.open(other)
    program.message("Do you want to save this file?").answer("Yes")
    program.dialog("CommonDialog").choose_file(path, "Save")
    program.message("Can't Save file : path/file error or directory is read only.\n"
                    "Extra info: Subscript out of range").answer("Ok")
    program.message("The Zorvane can't write the file, please verify the read only properties...").answer("Ok")
    program.expect_title("site7.kvrt100 - Zorvane")
    assert _bytes(path) == before, f"the file has {len(_bytes(path))} bytes, it had {len(before)}"
    assert program.copy_with(b"Breaker Q7"), "the change is in no copy"


def a_save_that_failed_is_told_by_the_bar(program):
    path = _opened(program)
    _change(program)
    program.expect_title("* site7.kvrt207d - Zorvane")
    os.remove(path)
    os.mkdir(os.path.join(os.path.dirname(path), "SITE7.KVRT207D"))  # nothing can be written in its place
    program.choose("File", "Save")
    program.expect_title("site7.kvrt207d - Zorvane")
    wait_for("the line", lambda: program.shows("BAR_1"))
    folder = os.path.dirname(path)
    expect("the line", lambda: program.window.named("BAR_1_Text").name,
           f"{folder}/SITE7.KVRT207D could not be saved: Path/File access error. No file was made. A whole copy of "
           "the document is kept.")
    program.expect_panel(4, "")
    program.hands.click(program.window.named("BAR_1_Button1"))
    program.dialog("CommonDialog").choose_file(os.path.join(folder, "other.kvrt207d"), "Save")
    program.expect_title("other.kvrt207d - Zorvane")
    expect("the bar is shown", lambda: program.shows("MessageBar"), False)
    assert b"Breaker Q7" in _bytes(os.path.join(folder, "other.kvrt207d")), "the change isn't in the new file"
