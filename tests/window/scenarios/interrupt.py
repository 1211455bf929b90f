# SPDX-License-Identifier: MIT
"""A transfer or a live write that is cut short: the window or the document closed, another one opened, the adapter
unplugged."""
import os
import signal

from driver.waiting import expect, wait_for

REGULATION, VALUE = 3, 1
SAVE_QUESTION = "Do you want to save this file?"
NO_ANSWER = "Error. The controller does not respond."
NO_RESPONSE = "The controller does not respond..."
FOR_EVER = 3600000


def _opened(program, *faults, turnaround="0", **port):
    options = ["--config", os.path.join(program.folder, "EXAMPLE.KVRT207D"), "--turnaround", turnaround]
    for fault in faults:
        options += ["--fault", fault]
    controller = program.simulator("KVRT207D", *options)
    program.use_port(controller, **port)
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    return controller


def _begin(program, transfer, panel):
    program.choose("Communication", transfer)
    program.dialog("Porcentaje")
    program.expect_panel(2, panel)


def _press_close_box(program):
    """The box of the main window's title bar. The form is disabled during a transfer, and takes no input."""
    left, top, width, _ = program.window.rectangle
    program.hands.click_at(left + width - 9, top - 12)
    wait_for("the main window to be active", lambda: "active" in program.window.states)


def _expect_usable(program):
    """Offline, with both transfers on offer, and the document still there."""
    expect("the progress form is shown", lambda: program.has_dialog("Porcentaje"), False)
    for transfer in ("Upload to PC", "Download to Device"):
        expect(f"{transfer} is enabled", lambda: program.is_enabled("Communication", transfer), True)
    expect("Disconnect is enabled", lambda: program.is_enabled("Communication", "Disconnect"), False)
    assert program.process.poll() is None, "the program has ended"
    program.select_field(REGULATION)


def closing_in_an_upload_leaves_it_alone(program):
    """Only the progress form takes input then. Cancelled, the window closes as usual."""
    controller = _opened(program, turnaround="300")
    _begin(program, "Upload to PC", "Upload")
    _press_close_box(program)
    program.expect_panel(2, "Online")
    asked = [frame["address"] for frame in controller.frames() if frame["direction"] == "in"]
    assert asked[:7] == [100, 200, 220, 250, 270, 300, 320], asked[:7]


def closing_in_a_download_leaves_it_alone(program):
    controller = _opened(program, turnaround="50")
    _begin(program, "Download to Device", "Download")
    wait_for("the first writes", lambda: len(controller.writes()) > 2)
    _press_close_box(program)
    program.expect_panel(4, "Ready")
    assert len(controller.writes()) > 50, f"{len(controller.writes())} writes"
    _expect_usable(program)


def ended_by_the_system_in_an_upload(program):
    """As at the end of a session: the program goes, and its document is as it was."""
    _opened(program, turnaround="300")
    path = os.path.join(program.desktop.folder, "documents", "site7.kvrt207d")
    with open(path, "rb") as file:
        before = file.read()
    _begin(program, "Upload to PC", "Upload")
    program.stop()
    with open(path, "rb") as file:
        assert file.read() == before, "the document was written"
    program.start()
    program.open(path)
    wait_for("the document", lambda: "site7.kvrt207d" in program.title)


def unplugged_in_an_upload(program):
    """The line goes at the fourth block and stays away."""
    _opened(program, f"unplug={FOR_EVER}@250")
    program.choose("Communication", "Upload to PC")
    progress = program.dialog("Porcentaje")
    expect("the progress form's words", lambda: progress.part.named("Label1").name, NO_ANSWER)
    progress.answer("Ok")
    program.expect_panel(2, "Offline")
    program.expect_panel(4, NO_ANSWER)
    program.expect_title("site7.kvrt207d - Zorvane")
    _expect_usable(program)


def unplugged_in_a_download(program):
    """The line goes at a write. The walk goes on to the next field, where the lost link ends it."""
    _opened(program, f"unplug={FOR_EVER}@220")
    program.choose("Communication", "Download to Device")
    progress = program.dialog("Porcentaje")
    expect("the progress form's words", lambda: progress.part.named("Label1").name, NO_ANSWER, deadline=90)
    progress.answer("Ok")
    program.expect_panel(2, "Offline")
    program.expect_panel(4, NO_ANSWER)
    _expect_usable(program)


def _leave_out_of_the_scan(program):
    """The window never reads the registers 250 and 251, so that only writes meet a fault there."""
    template = program.template("KVRT207D")
    with open(template, "rb") as file:
        text = file.read()
    assert text.count(b"=250-261") == 1
    with open(template, "wb") as file:
        file.write(text.replace(b"=250-261", b"=252-261"))


def _writing(program, *faults, **port):
    """In the middle of a live write that meets the faults."""
    _leave_out_of_the_scan(program)
    controller = _opened(program, *faults, **port)
    program.enlarge()
    program.go_online()
    program.select_field(REGULATION)
    program.enter(0, VALUE, "1200")
    wait_for("the write on the line", controller.writes)
    return controller


def _read_after_the_unplug(controller):
    frames = controller.frames()
    unplugged = [place for place, frame in enumerate(frames) if "event" in frame]
    return unplugged and any(frame.get("direction") == "out" for frame in frames[unplugged[-1]:])


def unplugged_in_a_live_write(program):
    """The write fails, the cell says so, and polling goes on when the adapter is back. The next value is written."""
    controller = _writing(program, "unplug=1500:1@250")
    program.expect_panel(4, "Write: 1200 @250 ...Failed")
    program.expect_state(0, VALUE, "Write failed")
    wait_for("polling again", lambda: _read_after_the_unplug(controller))
    wait_for("the panels and forms of a link that is there",
             lambda: program.panel(2) == "Online" and not program.has_dialog("LostCom"))
    program.enter(0, VALUE, "1300")
    expect("the writes that the controller took",
           lambda: [write["values"] for write in controller.writes() if write["taken"]], [[1300]])


def unplugged_for_good_in_a_live_write(program):
    _writing(program, f"unplug={FOR_EVER}:1@250")
    program.expect_panel(2, "Retrying")
    program.dialog("LostCom").answer("OK")
    program.choose("Communication", "Disconnect")
    program.expect_panel(2, "Offline")
    program.expect_panel(4, "Write: 1200 @250 ...Failed")  # the outcome goes to the cell that is the current one
    _expect_usable(program)


def closing_in_a_live_write_ends_the_program(program):
    _writing(program, "silent@250", Retries="20")
    program.expect_panel(4, "Write: 1200 @250 ...Pending")
    program.choose("File", "Exit")
    program.message(SAVE_QUESTION).answer("No")
    assert program.wait_for_end() == 0, "the program ended with a failure"


def _open_another(program):
    other = program.document("KVRT100", "other.kvrt100")
    program.open(other)
    program.message(SAVE_QUESTION).answer("No")
    wait_for("the other document", lambda: program.title.endswith("other.kvrt100 - Zorvane"))
    return other


def _expect_settings_of(program, other):
    program.select_field(1)
    expect("the settings of the new document", lambda: program.settings.texts(),
           program.terminal.settings(program.template("KVRT100"), other, 1))


def _edit_and_save(program, row, value):
    """An offline edit and its save. A write that was left behind by another document has found its end by then,
    since a save lasts a second."""
    program.enter(row, VALUE, value)
    program.expect_title("* second.kvrt207d - Zorvane")
    program.hands.keys("ctrl+s")
    program.expect_title("second.kvrt207d - Zorvane")
    program.expect_panel(4, "")


def _expect_second_untouched(program, second, field, before):
    """Nothing but our own edit has changed the second document, in the window and in its file."""
    program.expect_title("second.kvrt207d - Zorvane")
    assert not program.is_enabled("File", "Save"), "the document counts as changed"
    shown = program.settings.texts()
    assert shown == before, f"the window shows {shown[0]}, was {before[0]}"
    saved = program.terminal.settings(program.template("KVRT207D"), second, field)
    assert saved == before, f"the file holds {saved[0]}, was {before[0]}"


def opening_another_document_in_a_live_write(program):
    """The write is left behind: the cell at its place in the second document keeps value, looks and mark."""
    _writing(program, "silent@250", Retries="20")
    program.expect_panel(4, "Write: 1200 @250 ...Pending")
    second = program.document(name="second.kvrt207d")
    program.open(second)
    program.message(SAVE_QUESTION).answer("No")
    program.expect_title("second.kvrt207d - Zorvane")
    program.expect_panel(4, "")
    expect("Upload is enabled", lambda: program.is_enabled("Communication", "Upload to PC"), True)
    expect("Disconnect is enabled", lambda: program.is_enabled("Communication", "Disconnect"), False)
    program.select_field(REGULATION)
    before = program.terminal.settings(program.template("KVRT207D"), second, REGULATION)
    expect("the settings of the second document", lambda: program.settings.texts(), before)
    assert before[0][VALUE] != "1200", "the two documents can't be told apart"
    _edit_and_save(program, 1, before[1][VALUE])
    program.expect_cell(0, VALUE, before[0][VALUE])
    program.expect_state(0, VALUE, "Modifiable")
    _expect_second_untouched(program, second, REGULATION, before)


def opening_another_document_in_a_write_of_a_text(program):
    """A text goes out as a block, which has waits of its own. Reads of its registers go well."""
    outputs, text_row = 1, 17
    controller = _opened(program, "wrong-echo@117", turnaround="100", Retries="20")
    program.enlarge()
    program.go_online()
    program.select_field(outputs)
    program.enter(text_row, VALUE, "NORD-T3")
    wait_for("the write on the line", controller.writes)
    second = program.document(name="second.kvrt207d")
    program.open(second)
    program.message(SAVE_QUESTION).answer("No")
    program.expect_title("second.kvrt207d - Zorvane")
    program.select_field(REGULATION)
    before = program.terminal.settings(program.template("KVRT207D"), second, REGULATION)
    _edit_and_save(program, 1, before[1][VALUE])
    program.select_field(outputs)
    _expect_second_untouched(program, second, outputs,
                             program.terminal.settings(program.template("KVRT207D"), second, outputs))


def closing_the_document_in_a_live_write(program):
    """No word of the write remains, and the window opens the next document as usual."""
    _writing(program, "silent@250", Retries="20")
    program.expect_panel(4, "Write: 1200 @250 ...Pending")
    program.choose("File", "Close")
    program.message(SAVE_QUESTION).answer("No")
    program.expect_title("Zorvane")
    program.expect_panel(4, "")
    other = program.document("KVRT100", "other.kvrt100")
    program.open(other)
    program.expect_title("other.kvrt100 - Zorvane")
    _expect_settings_of(program, other)
    program.expect_title("other.kvrt100 - Zorvane")


def disconnecting_in_a_live_write(program):
    """The write fails, and the cell gets its old value back."""
    _writing(program, "silent@250", Retries="20")
    program.expect_panel(4, "Write: 1200 @250 ...Pending")
    program.choose("Communication", "Disconnect")
    program.expect_panel(4, "Write: 1200 @250 ...Failed")
    program.expect_cell(0, VALUE, "0")
    program.expect_state(0, VALUE, "Write failed, changed")  # the file has another value
    _expect_usable(program)


def opening_in_a_transfer_is_not_possible(program):
    """Keys and another window's buttons leave a download alone, whatever was open before."""
    controller = _opened(program, "exception=4:1@220", turnaround="50")
    program.choose("Communication", "Upload to PC")
    wait_for("the button for the log", lambda: program.shows("BOT_Log"))
    program.window.named("BOT_Log").press()
    log = program.dialog("FrmStatus")
    _begin(program, "Download to Device", "Download")
    wait_for("the first writes", lambda: len(controller.writes()) > 2)
    program.hands.keys("ctrl+o")
    states = {caption: "enabled" in log.part.named(caption).states for caption in ("BtnConnect", "BtnRetry", "BtnCancel")}
    assert not any(states.values()), f"enabled buttons in a transfer: {states}"
    program.expect_panel(4, "Ready")
    assert not program.has_dialog("CommonDialog"), "the file dialog came up"
    assert len(controller.writes()) > 50, f"{len(controller.writes())} writes"
    expect("the log's buttons are enabled again", lambda: "enabled" in log.part.named("BtnRetry").states, True)
    log.answer("Cancel")
    _expect_usable(program)


def opening_another_document_while_online(program):
    controller = _opened(program)
    program.go_online()
    other = _open_another(program)
    expect("Disconnect is enabled", lambda: program.is_enabled("Communication", "Disconnect"), False)
    expect("Upload is enabled", lambda: program.is_enabled("Communication", "Upload to PC"), True)
    for number in (5, 6):
        program.expect_panel(number, "")
    asked = len(controller.frames())
    _expect_settings_of(program, other)
    assert len(controller.frames()) == asked, "the old controller is still polled"


def _change_after_the_last_copy(program):
    """The copy in the folder has the first value; the second one comes too soon after it for a copy of its own."""
    program.enlarge()
    program.select_field(REGULATION)
    program.enter(0, VALUE, "1200")
    wait_for("a recovery copy", program.recovery_copies)
    program.enter(0, VALUE, "1300")
    program.expect_cell(0, VALUE, "1300")


def _expect_end_with_the_change_kept(program):
    assert program.wait_for_end() == 0, f"exit code {program.process.returncode}"
    folder = program.desktop.environment["XDG_DATA_HOME"]
    texts = [open(os.path.join(place, name), "rb").read() for place, _, names in os.walk(folder) for name in names]
    assert any(b"1300" in text for text in texts), "the last change isn't in the copy"


def _ended_in_a_download_by(program, number):
    controller = _opened(program, turnaround="50")
    _change_after_the_last_copy(program)
    _begin(program, "Download to Device", "Download")
    wait_for("the first writes", lambda: len(controller.writes()) > 2)
    program.process.send_signal(number)
    _expect_end_with_the_change_kept(program)
    assert len(controller.writes()) < 50, f"{len(controller.writes())} writes"


def ended_by_sigterm_in_a_download(program):
    """No question, no box: the transfer is given up, the changes are kept, the program ends."""
    _ended_in_a_download_by(program, signal.SIGTERM)


def ended_by_sigint_in_a_download(program):
    _ended_in_a_download_by(program, signal.SIGINT)


def ended_by_sighup_in_a_download(program):
    _ended_in_a_download_by(program, signal.SIGHUP)


def ended_by_sigterm_while_cancel_asks(program):
    """The question that holds the scan goes unanswered."""
    _opened(program, turnaround="300")
    _change_after_the_last_copy(program)
    _begin(program, "Upload to PC", "Upload")
    program.dialog("Porcentaje").press("Cancel")
    program.message("The transfer is not complete. Do you want to abort anyway?")
    program.process.send_signal(signal.SIGTERM)
    _expect_end_with_the_change_kept(program)


def ended_by_sigterm_without_a_transfer(program):
    _opened(program)
    _change_after_the_last_copy(program)
    program.choose("File", "Exit")
    program.message(SAVE_QUESTION)
    program.process.send_signal(signal.SIGTERM)
    _expect_end_with_the_change_kept(program)
