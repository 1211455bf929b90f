# SPDX-License-Identifier: MIT
"""The small forms: about box, credits, debug form, and the menu by keyboard."""
from driver.waiting import expect


def about_box_names_the_program(program):
    program.start()
    program.choose("Help", "About")
    box = program.dialog("Acercade")
    expect("the about box's title", lambda: box.title, "About...")
    expect("the name and version", lambda: box.part.named("Label8").name, "Zorvane™ v1.61 (August 10, 2017)")
    box.answer("Close")


def credits_come_by_a_key(program):
    program.start()
    program.choose("Help", "About")
    box = program.dialog("Acercade")
    program.hands.keys("F12")
    credits = program.dialog("Msgb")
    expect("the credits' title", lambda: credits.title, " Desarrollador ")
    assert "August 10, 2017" in credits.text(), f"the credits are {credits.text()!r}"
    credits.answer("Ok")
    box.answer("Close")


def a_key_chord_shows_the_debug_form(program):
    path = program.document()
    program.start()
    program.open(path)
    program.select_field(1)
    program.settle_on(0, 0)
    program.hands.chord(["ctrl", "shift", "alt"], "Home")
    form = program.dialog("FrmDebug")
    expect("the form's title", lambda: form.title, "Test Debug Form...")


def the_menu_opens_by_keyboard(program):
    program.start()
    program.select_field(2)
    program.pull_down("File")
    program.hands.keys("o")
    program.dialog("CommonDialog").answer("Cancel")
    program.hands.keys("ctrl+o")
    program.dialog("CommonDialog").answer("Cancel")


def a_question_answers_to_its_keys(program):
    path = program.document()
    program.start()
    program.open(path)
    program.select_field(1)
    program.enter(0, 2, "Breaker Q7")
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.choose("File", "Close")
    box = program.message("Do you want to save this file?")
    program.hands.keys("Tab", "Tab", "space")
    box.wait_until_gone()
    program.expect_title("* site7.kvrt207d - Zorvane")
