"""A transfer or a live write that is cut short: the window closed, another document opened, the adapter unplugged."""
import os

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


def opening_another_document_in_a_live_write(program):
    """The polling ends with the old document, and the window goes on with the new one. The write ends as failed,
    which takes the keyboard to the lower grid; its words are about the cell that is there then."""
    _writing(program, "silent@250", Retries="20")
    program.expect_panel(4, "Write: 1200 @250 ...Pending")
    _open_another(program)
    wait_for("the end of the write", lambda: program.panel(4).endswith(" ...Failed"))
    expect("Upload is enabled", lambda: program.is_enabled("Communication", "Upload to PC"), True)
    expect("Disconnect is enabled", lambda: program.is_enabled("Communication", "Disconnect"), False)
    program.select_field(1)
    program.select_field(2)


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
