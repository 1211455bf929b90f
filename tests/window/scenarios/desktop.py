"""Text size, help and the splitter, as their user meets them."""
from driver.waiting import expect, wait_for


def a_text_size_is_chosen_by_keyboard_and_kept(program):
    path = program.document()
    program.start()
    program.open(path)
    before = wait_for("a selected field", program.selected_field)
    program.choose("View", "Font size...")
    dialog = program.dialog("FontDialog")
    expect("the dialog's title", lambda: dialog.title, "Font Size")
    expect("the size in force", lambda: dialog.part.named("Text1").text, " 8.5")
    program.hands.keys("Down", "Down", "Return")
    dialog.wait_until_gone()
    expect("the stored place in the list", lambda: program.stored("Settings", "FontSize"), "3")
    fields = program.fields.row_count
    program.expect_field((before - 1 + 3) % fields + 1)


def a_text_size_is_cancelled(program):
    program.start()
    program.choose("View", "Font size...")
    program.dialog("FontDialog").answer("Cancel")
    assert program.stored("Settings", "FontSize") is None, "Cancel stored a size"
    wait_for("the grids to be shown still", lambda: program.shows("FLX_Settings"))


def help_without_its_file_says_so(program):
    program.start()
    program.hands.keys("F1")
    program.message("Zorvane.hlp file doesn't exist!").answer("Ok")


def the_splitter_moves_by_keyboard(program):
    program.start()
    height = program.window.named("Frame2").rectangle[3]
    program.hands.keys("F8", "Down", "Down", "Down", "Return")
    expect("the upper frame's height", lambda: program.window.named("Frame2").rectangle[3], height + 24)
