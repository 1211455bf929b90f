# SPDX-License-Identifier: MIT
"""Previews of reports: their windows, keys and places, the page set-up and the export, as their user meets them."""
import os

from driver.waiting import expect, wait_for

ALL_FIELDS = ("File", "Print...", "Print All...")
ONE_FIELD = ("File", "Print...", "Print Page")


def _has_preview(program):
    return any(child.description == "Preview" and child.is_shown for child in program.root.children)


def _page(window):
    return int(window.named("Page").read("CurrentValue", "org.a11y.atspi.Value"))


def _open_and_preview(program, *entry, title):
    path = program.document("KVRT100")
    program.start()
    program.open(path)
    program.expect_field(4)
    program.choose(*entry)
    return program.preview(title)


def shows_all_fields_and_turns_pages(program):
    window = _open_and_preview(program, *ALL_FIELDS, title="Preview Print All Pages")
    expect("the busy form is shown", lambda: program.has_dialog("Mensaje"), False)
    tools = [part.name for part in window.named("Toolbar").walk() if part.role == "push button"]
    assert tools[:4] == ["Setup...", "Export...", "Refresh", "Font Size..."], tools
    contents = [part.name for part in window.named("TOC").walk() if part.role == "list item"]
    assert contents[:2] == ["Output Setup", "Channel Setup"], contents
    assert not program.is_enabled(*ALL_FIELDS), "the entry of an open preview is enabled"
    assert program.is_enabled(*ONE_FIELD), "the other entry is disabled"
    expect("the page", lambda: _page(window), 1)
    program.hands.keys("Next")
    expect("the page after Page Down", lambda: _page(window), 2)
    program.hands.keys("Prior")
    expect("the page after Page Up", lambda: _page(window), 1)
    program.hands.keys("ctrl+plus", "ctrl+minus", "Escape")
    expect("a preview is shown", lambda: _has_preview(program), False)
    expect("the entry is enabled", lambda: program.is_enabled(*ALL_FIELDS), True)


def opens_the_selected_field_by_keyboard(program):
    path = program.document("KVRT100")
    program.start()
    program.open(path)
    program.expect_field(4)
    program.hands.keys("ctrl+p")
    window = program.preview("Preview Print Page")
    expect("the pages", lambda: window.named("PageCount").name, "of 1")


def keeps_the_place_of_a_preview(program):
    _open_and_preview(program, *ONE_FIELD, title="Preview Print Page")
    program.hands.place_window(60, 80, 640, 700)
    expect("the preview's size", lambda: program.preview("Preview Print Page").rectangle[2:], (640, 700))
    program.hands.keys("Escape")
    expect("the stored width", lambda: program.stored("PrintDialog", "Width"), str(640 * 15))
    expect("the stored height", lambda: program.stored("PrintDialog", "Height"), str(700 * 15))
    program.choose(*ALL_FIELDS)
    window = program.preview("Preview Print All Pages")
    expect("the next preview's size", lambda: window.rectangle[2:], (640, 700))


def sets_the_page_up(program):
    window = _open_and_preview(program, *ALL_FIELDS, title="Preview Print All Pages")
    window.find(role="push button", name="Setup...").press()
    dialog = program.dialog("PageSetup")
    dialog.part.named("Landscape").act("Toggle")
    dialog.answer("OK")
    expect("the stored margin", lambda: program.stored("Settings", "PrintLeftMargin"), "1440")
    expect("the stored margin", lambda: program.stored("Settings", "PrintRigthMargin"), "1440")
    expect("the pages of the broad paper", lambda: window.named("PageCount").name, "of 3")


def exports_what_it_shows(program):
    window = _open_and_preview(program, *ALL_FIELDS, title="Preview Print All Pages")
    file = program.desktop.path("documents", "site.pdf")
    window.find(role="push button", name="Export...").press()
    dialog = program.dialog("CommonDialog")
    assert dialog.title == "Export as...", dialog.title
    dialog.choose_type("PDF File(*.pdf)")
    dialog.choose_file(file, "Save")
    wait_for("the file", lambda: os.path.exists(file) and os.path.getsize(file))
    with open(file, "rb") as written:
        assert written.read(5) == b"%PDF-"


def exit_closes_the_previews(program):
    _open_and_preview(program, *ALL_FIELDS, title="Preview Print All Pages")
    program.choose("File", "Exit")
    assert program.wait_for_end() == 0, "the program ended with a failure"
    assert program.stored("PrintDialog", "Width") is not None, "the preview's place wasn't stored"
