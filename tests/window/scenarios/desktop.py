# SPDX-License-Identifier: MIT
"""Text size, help and the splitter, as their user meets them."""
import os

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


def _minimize_the_maximized_window(program):
    program.start()
    number = next(iter(program.windows_on_screen()))
    small = program.window.rectangle
    program.choose("Windows", "Maximize")
    wait_for("the maximized window", lambda: program.window.rectangle[2] > small[2] * 2)
    large = program.window.rectangle
    program.choose("Windows", "Minimize")
    expect("the window's state", lambda: program.state_on_the_desktop(number), "Iconic")
    program.desktop.run("xdotool", "windowactivate", number)
    expect("the window's state", lambda: program.state_on_the_desktop(number), "Normal")
    expect("the place of the window that is back", lambda: program.window.rectangle, large)


def a_maximized_window_is_minimized_and_comes_back_as_it_was(program):
    _minimize_the_maximized_window(program)


def a_maximized_window_is_minimized_by_icewm_too(program):
    program.desktop.use_icewm()
    _minimize_the_maximized_window(program)


def _desktop_without_a_viewer_for_help_files(program):
    """Its own tools say what a desktop's would. They note what they were asked to open."""
    opened = program.desktop.path("opened.txt")
    tools = {"xdg-mime": "#!/bin/sh\nexit 0\n", "xdg-open": f'#!/bin/sh\necho "$1" >> {opened}\n'}
    for name, text in tools.items():
        path = program.desktop.path("tools", name)
        with open(path, "w", encoding="ascii") as file:
            file.write(text)
        os.chmod(path, 0o755)
    program.desktop.environment["PATH"] = os.pathsep.join(
        [os.path.dirname(path), program.desktop.environment["PATH"]])
    return opened


def f1_opens_the_pages_where_nothing_opens_the_help_file(program):
    opened = _desktop_without_a_viewer_for_help_files(program)
    for name in ("Zorvane.chm", "help/index.html"):
        path = os.path.join(program.folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="ascii") as file:
            file.write("<html></html>")
    program.start()
    program.hands.keys("F1")
    wait_for("something that was opened", lambda: os.path.exists(opened) and os.path.getsize(opened))
    with open(opened, encoding="utf-8") as lines:
        asked = lines.read().split()
    assert len(asked) == 1 and asked[0].endswith("/help/index.html"), f"opened: {asked}"


def _opened_with_all_columns_in_sight(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    program.select_field(1)


def _border(program, column):
    """The right border of a heading of the lower grid, on the screen."""
    left, top, width, height = program.settings.cell(0, column).rectangle
    return left + width - 1, top - height // 2


def a_cut_text_is_shown_whole_beside_the_mouse(program):
    _opened_with_all_columns_in_sight(program)
    x, y = _border(program, 0)
    program.hands.drag((x, y), (x - 40, y))
    wait_for("the narrow column", lambda: _border(program, 0)[0] < x - 30)
    left, first, _, height = program.settings.cell(0, 0).rectangle
    for place in (first - height // 2, first + height // 2):
        before = program.windows_on_screen()
        program.hands.point_at(left + 10, place)
        wait_for("the tip", lambda: program.windows_on_screen() - before)
        program.hands.point_at(20, 20)
        expect("the windows without the tip", program.windows_on_screen, before)


def a_double_click_on_a_heading_s_border_fits_the_column(program):
    """As wide as it takes, and kept in the file as a dragged width is."""
    _opened_with_all_columns_in_sight(program)
    x, y = _border(program, 0)
    program.hands.drag((x, y), (x + 200, y))
    wait_for("the wide column", lambda: _border(program, 0)[0] > x + 150)
    wide = _border(program, 0)[0]
    program.hands.click_at(wide, y, times=2)
    wait_for("the fitted column", lambda: _border(program, 0)[0] < wide - 50)
    pixels = program.settings.cell(0, 0).rectangle[2]
    other = os.path.join(program.desktop.folder, "documents", "fitted.kvrt207d")
    program.save_as(other)
    program.expect_title("fitted.kvrt207d - Zorvane")
    document = program.terminal.ask("dump", program.template("KVRT207D"), other)
    width = document["Fields"]["1"]["Cells"][0][0]["Width"]
    assert abs(width - pixels * 15) <= 15, f"{width} twips in the file, {pixels} pixels on the screen"


def the_report_for_support_is_in_the_clipboard(program):
    controller = program.simulator()
    program.use_port(controller)
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.go_online()
    program.choose("Help", "Copy Report for Support")
    wait_for("the bar", lambda: program.shows("BAR_1"))
    report = program.desktop.run("xclip", "-selection", "clipboard", "-o").decode()
    lines = report.split("\n")
    assert lines[0].startswith("Program: Zorvane "), lines[0]
    assert lines[4] == "Model: KVRT207D", lines[4]
    assert lines[5] == "Port: controller, 115200,n,8,1, unit 1", lines[5]
    assert sum("Tx: 01 03 " in line for line in lines) > 5, "no traffic is told"
    assert "site7" not in report and program.desktop.folder not in report, "a name is told"
