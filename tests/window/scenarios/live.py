# SPDX-License-Identifier: MIT
"""Editing while online: what reaches the controller, what the cell shows meanwhile and when a write fails."""
import os

from driver.waiting import expect, wait_for

OUTPUTS, CHANNELS, REGULATION, TIMERS = 1, 2, 3, 4
VALUE = 1
SINGLE, MULTIPLE = 6, 16
MODIFIABLE = ((0xFF, 0xFF, 0xC0), (0x40, 0x40, 0x40))
WRITING = ((0x80, 0xFF, 0x80), (0x00, 0x00, 0xC0))
FAILED = ((0xFF, 0xC0, 0x80), (0xFF, 0x00, 0x00))


def _online(program, field, *faults, **port):
    """Online with a controller that holds the document's values; a field of the document is shown."""
    options = ["--config", os.path.join(program.folder, "EXAMPLE.KVRT207D")]
    for fault in faults:
        options += ["--fault", fault]
    controller = program.simulator("KVRT207D", *options)
    path = program.document()
    program.use_port(controller, **port)
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    program.go_online()
    program.select_field(field)
    expect("the settings of the field", lambda: program.settings.texts()[0][0],
           program.terminal.settings(program.template("KVRT207D"), path, field)[0][0])
    return controller


def _leave_out_of_the_scan(program):
    """The window never reads the registers 250 and 251, so that only writes meet a fault there, and it shows 0."""
    template = program.template("KVRT207D")
    with open(template, "rb") as file:
        text = file.read()
    assert text.count(b"=250-261") == 1
    with open(template, "wb") as file:
        file.write(text.replace(b"=250-261", b"=252-261"))


def _expect_write(controller, function, address, *values):
    def seen():
        return [frame["values"] for frame in controller.writes()
                if (frame["function"], frame["address"]) == (function, address)]
    expect(f"the writes of function {function} to register {address}", seen, [list(values)])


def a_number_reaches_the_controller(program):
    controller = _online(program, REGULATION)
    program.enter(0, VALUE, "1200")
    program.expect_panel(4, "Write: 1200 @250 ...Completed")
    program.expect_cell(0, VALUE, "1200")
    program.expect_state(0, VALUE, "Modifiable")
    _expect_write(controller, SINGLE, 250, 1200)
    program.expect_title("* site7.kvrt207d - Zorvane")


def a_negative_number_has_the_form_of_its_column(program):
    controller = _online(program, CHANNELS)
    program.enter(0, 4, "-5")
    program.expect_panel(4, "Write: -5 @236 ...Completed")
    _expect_write(controller, SINGLE, 236, 133)
    program.enter(0, 2, "-5")
    program.expect_panel(4, "Write: -5 @220 ...Completed")
    _expect_write(controller, SINGLE, 220, 65531)


def a_refused_number_is_not_written(program):
    controller = _online(program, REGULATION)
    program.enter(0, VALUE, "1401")
    program.message("The value is out of range (value range 800 to 1400)").answer("Ok")
    program.expect_cell(0, VALUE, "1400")
    assert controller.writes() == [], f"written: {controller.writes()}"


def a_time_reaches_the_controller(program):
    controller = _online(program, TIMERS)
    program.enter(0, VALUE, "1:75")
    _expect_write(controller, SINGLE, 270, 135)
    program.expect_cell(0, VALUE, "2:15")
    program.expect_state(0, VALUE, "Modifiable")


def a_list_entry_reaches_the_controller(program):
    controller = _online(program, OUTPUTS)
    program.choose_entry(0, VALUE, "Trip")
    program.expect_panel(4, "Write: 4 @100 ...Completed")
    _expect_write(controller, SINGLE, 100, 4)
    program.expect_cell(0, VALUE, "Trip")


def a_list_entry_keeps_the_other_half_of_its_register(program):
    controller = _online(program, CHANNELS)
    program.expect_cell(0, 5, "Both")
    program.expect_cell(1, 5, "High")
    program.choose_entry(0, 5, "Low")
    program.expect_panel(4, "Write: 2 @208/HI ...Completed")
    _expect_write(controller, SINGLE, 208, 2 * 256 + 1)
    program.expect_cell(0, 5, "Low")
    program.expect_cell(1, 5, "High")


def a_text_reaches_the_controller(program):
    controller = _online(program, OUTPUTS)
    program.enter(17, VALUE, "NORD-T3")
    _expect_write(controller, MULTIPLE, 117, 0x4E4F, 0x5244, 0x2D54, 0x3320)
    program.expect_panel(4, "Writing ascii block: 117-120 @NORD-T3 ...Completed")
    program.expect_cell(17, VALUE, "NORD-T3 ")


def a_text_that_fails_is_told_in_the_panel(program):
    _online(program, OUTPUTS, "wrong-echo@117")
    program.enter(17, VALUE, "NORD-T3")
    program.expect_panel(4, "Writing ascii block: 117-120 @NORD-T3 ...Failed")
    program.expect_cell(17, VALUE, "BRUNN-T2")


def a_write_in_progress_shows_its_colours(program):
    """A silent controller and many retries keep the write going for a while."""
    _leave_out_of_the_scan(program)
    _online(program, REGULATION, "silent@250", Retries="20")
    program.settle_on(5, 0)
    program.expect_colours(0, VALUE, *MODIFIABLE)
    program.enter(0, VALUE, "1200")
    program.expect_panel(4, "Write: 1200 @250 ...Pending")
    program.expect_state(0, VALUE, "Writing")
    program.expect_colours(0, VALUE, *WRITING)


def a_write_that_went_well_shows_the_usual_colours(program):
    _online(program, REGULATION)
    program.enter(0, VALUE, "1200")
    program.expect_panel(4, "Write: 1200 @250 ...Completed")
    program.settle_on(5, 0)
    program.expect_colours(0, VALUE, *MODIFIABLE)


def _a_write_fails(program, fault, old):
    controller = _online(program, REGULATION, fault + "@250")
    program.expect_cell(0, VALUE, old)
    program.enter(0, VALUE, "1200")
    program.expect_panel(4, "Write: 1200 @250 ...Failed")
    program.expect_cell(0, VALUE, old)
    program.expect_state(0, VALUE, "Write failed")
    program.settle_on(5, 0)
    program.expect_colours(0, VALUE, *FAILED)
    assert controller.writes(), "the write never reached the line"
    program.select_field(TIMERS)
    program.select_field(REGULATION)
    program.expect_state(0, VALUE, "Modifiable")


def an_exception_fails_the_write(program):
    _leave_out_of_the_scan(program)
    _a_write_fails(program, "exception=4", old="0")


def silence_fails_the_write(program):
    _leave_out_of_the_scan(program)
    _a_write_fails(program, "silent", old="0")


def a_wrong_echo_fails_the_write(program):
    _a_write_fails(program, "wrong-echo", old="1125")


def a_failed_list_choice_marks_the_document(program):
    """The refresh brings the controller's entry back; the colours of the failure stay."""
    _online(program, OUTPUTS, "wrong-echo@100")
    program.hands.keys("ctrl+s")
    program.expect_title("site7.kvrt207d - Zorvane")
    program.expect_panel(4, "")
    program.choose_entry(0, VALUE, "Trip")
    program.expect_panel(4, "Write: 4 @100 ...Failed")
    program.expect_cell(0, VALUE, "Raise")
    program.expect_state(0, VALUE, "Write failed")
    program.expect_title("* site7.kvrt207d - Zorvane")


def a_failed_time_stays_as_typed(program):
    controller = program.simulator("KVRT207D", "--fault", "wrong-echo@270")
    path = program.document()
    program.use_port(controller)
    program.start()
    program.open(path)
    program.enlarge()
    program.go_online()
    program.select_field(TIMERS)
    program.enter(0, VALUE, "1:30")
    program.expect_panel(4, "Write:  @270 ...Failed")
    program.expect_cell(0, VALUE, "1:30")
    program.expect_state(0, VALUE, "Write failed")


def an_edit_survives_the_refresh(program):
    """The edited cell's own register moves meanwhile: its column of readings is made modifiable for that."""
    template = program.template("KVRT207D")
    controller = program.simulator()
    with open(template, "rb") as file:
        text = file.read()
    fixed = b"COL_7_MODIFIABLE=NO"
    assert text.count(fixed) == 1
    with open(template, "wb") as file:
        file.write(text.replace(fixed, b"COL_7_MODIFIABLE=YES"))
    path = program.document()
    program.use_port(controller)
    program.start()
    program.open(path)
    program.enlarge()
    program.go_online()
    program.select_field(CHANNELS)
    editor = program.begin_edit(0, 6)
    program.hands.keys("ctrl+a")
    program.hands.write("12345")
    program.hands.keys("Left", "Left")
    expect("the cursor", lambda: editor.cursor, 3)
    for _ in range(3):
        before = _readings(program)
        wait_for("new readings in the grid", lambda: _readings(program) != before)
        assert editor.text == "12345", f"the editor's text is now {editor.text!r}"
        assert editor.cursor == 3, f"the cursor is now at {editor.cursor}"
        assert "focused" in editor.states and program.focus.owner == editor, f"the focus went to {program.focus.owner!r}"
    program.hands.write("6")
    expect("the text typed on", lambda: editor.text, "123645")
    program.hands.keys("Escape")
    wait_for("a reading in the cell", lambda: program.settings.cell(0, 6).name != "123645")
    before = _readings(program)
    wait_for("new readings in the grid", lambda: _readings(program) != before)


def _readings(program):
    return [program.settings.cell(row, 6).name for row in range(8)]


def _expect_beside_the_question(program, question):
    """The two don't cover each other, and the notice's button works."""
    notice = program.notice("LostCom")

    def apart():
        left, top, width, height = notice.rectangle
        other_left, other_top, other_width, other_height = question.part.rectangle
        return (left + width <= other_left or other_left + other_width <= left or
                top + height <= other_top or other_top + other_height <= top)
    expect("the notice stands beside the question", apart, True)
    program.hands.click(notice.find(role="push button", name="OK"))
    expect("the notice is shown", lambda: program.has_dialog("LostCom"), False)
    expect("the question has the keyboard", lambda: "active" in question.part.states, True)
    program.hands.keys("Escape")
    question.wait_until_gone()


def a_lost_link_is_told_beside_a_question(program):
    controller = _online(program, OUTPUTS)
    program.choose("File", "Close")
    question = program.message("Do you want to save this file?")
    controller.pause()
    program.notice("LostCom")
    expect("the question has the keyboard", lambda: "active" in question.part.states, True)
    _expect_beside_the_question(program, question)


def a_question_leaves_the_notice_of_a_lost_link_alone(program):
    controller = _online(program, OUTPUTS)
    controller.pause()
    program.notice("LostCom")
    program.choose("File", "Close")
    _expect_beside_the_question(program, program.message("Do you want to save this file?"))
