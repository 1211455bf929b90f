# SPDX-License-Identifier: MIT
"""The program starts on the default template, and takes no document command until a file is open."""
import os

from driver.waiting import expect

ALWAYS_OFF = [("File", "Close"), ("File", "Save"), ("File", "Save As..."), ("Communication", "Upload to PC"),
              ("Communication", "Download to Device"), ("Communication", "Disconnect"), ("File", "Print...")]


def shows_the_default_template(program):
    template = program.template("kvrt")
    program.start()
    program.expect_title("Zorvane")
    expect("the upper grid", lambda: program.fields.texts(), program.terminal.fields(template))
    expect("the upper grid's headings", lambda: program.fields.headings(), ["No.", "Field", "Editable", "Remarks"])
    expect("the first row", lambda: program.fields.texts()[0],
           ["1", "Output Setup", "Yes", "Descriptions are stored offline only"])


def shows_each_field_of_the_default_template(program):
    template = program.template("kvrt")
    nothing = program.desktop.path("documents", "nothing.kvrt")
    open(nothing, "wb").close()
    program.start()
    expect("the number of fields", lambda: program.fields.row_count, 4)
    for field in (2, 3, 4, 1):
        program.select_field(field)
        expect(f"the settings of field {field}", lambda: program.settings.texts(),
               program.terminal.settings(template, nothing, field))
    expect("the lower grid's headings", lambda: program.settings.headings(), ["Output", "Value", "Description"])
    expect("the first setting", lambda: program.settings.texts()[0], ["R1 function", "Raise", ""])


def offers_no_document_command(program):
    program.start()
    assert program.is_enabled("File", "Open..."), "Open is disabled"
    for captions in ALWAYS_OFF:
        assert not program.is_enabled(*captions), f"{' > '.join(captions)} is enabled without a document"
    for number, text in ((1, ""), (4, ""), (5, ""), (6, "")):
        program.expect_panel(number, text)


def says_that_the_default_template_is_missing(program):
    template = program.template("kvrt")
    os.remove(template)
    folder = os.path.dirname(template)
    program.start(shown=False)
    program.message(f"The ZTP file ({template}) was not found in: \n{folder}").answer("Ok")
    program.expect_title("Zorvane")
    expect("rows of the upper grid", lambda: program.fields.row_count, 0)


def ends_by_the_exit_entry(program):
    program.start()
    program.choose("File", "Exit")
    assert program.wait_for_end() == 0, "the program ended with a failure"


def ends_by_the_keyboard(program):
    program.without_leak_check()
    program.start()
    program.hands.keys("ctrl+q")
    assert program.wait_for_end() == 0, "the program ended with a failure"
