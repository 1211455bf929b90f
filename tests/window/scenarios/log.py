# SPDX-License-Identifier: MIT
"""The log of a transfer with records: its report, its buttons, and what it saves."""
import subprocess

from driver import modbus
from driver.waiting import expect, wait_for

FAILED_BLOCK = """\
Retry: 1 (1)
Read Holding Register:: FC 3
Response: Server device failure (exception 4)
Start Address: 220 End Address: 243

"""


def _head(method):
    """Even parity is called "Event" in these reports."""
    return (f"Transfer Method: {method}\n"
            "Target Slave Number: 1\n"
            "Port: Com controller\n"
            "Baud: 115200 Parity: Event Format: 8,1 stop\n"
            "Control RTS/TX Delay(ms): 0\n"
            "TimeOut(ms): 300\n"
            "Retries: 1\n"
            "\n")


def _opened(program, *faults):
    controller = program.simulator("KVRT207D", *(part for fault in faults for part in ("--fault", fault)))
    program.use_port(controller, Settings='"115200,e,8,1"')
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    return controller


def _uploaded_with_a_record(program, *faults):
    controller = _opened(program, *(faults or ["exception=4:1@220"]))
    program.choose("Communication", "Upload to PC")
    return controller, _log(program)


def _log(program):
    wait_for("the button for the log", lambda: program.shows("BOT_Log"))
    program.window.named("BOT_Log").press()
    return program.dialog("FrmStatus")


def _report(form):
    return form.part.named("RtbStatus").text


def an_upload_with_records_offers_its_log(program):
    _, form = _uploaded_with_a_record(program)
    expect("the form's title", lambda: form.title, "Zorvane Transfer Status")
    expect("the form's words", lambda: form.part.named("lblDialogMessage").name,
           "There were errors and/or warnings during the transfer. It is recommended that you review the "
           "communications log.")
    expect("the report", lambda: _report(form), _head("Upload to PC") + FAILED_BLOCK)
    assert form.buttons() == ["Connect", "Retry", "Save As...", "Print Log...", "Cancel"], form.buttons()
    assert not program.is_enabled("Communication", "Disconnect"), "the window went online in spite of the record"
    form.answer("Cancel")
    expect("the log is still offered", lambda: program.shows("BOT_Log"), True)
    expect("Upload is enabled", lambda: program.is_enabled("Communication", "Upload to PC"), True)


def connect_goes_online_in_spite_of_records(program):
    _, form = _uploaded_with_a_record(program)
    form.answer("Connect")
    program.expect_panel(2, "Online")
    assert program.is_enabled("Communication", "Disconnect"), "Disconnect is disabled while online"
    assert not program.is_enabled("Communication", "Upload to PC"), "Upload is enabled while online"
    expect("the log is offered", lambda: program.shows("BOT_Log"), False)


def retry_uploads_again(program):
    """The fault strikes once: the second upload is clean and goes online."""
    controller, form = _uploaded_with_a_record(program)
    form.answer("Retry")
    program.expect_panel(2, "Online")
    asked = [frame["address"] for frame in controller.frames() if frame["direction"] == "in"]
    assert asked[:14] == [100, 200, 220, 250, 270, 300, 320] * 2, asked[:14]
    expect("the log is offered", lambda: program.shows("BOT_Log"), False)


def the_title_bar_s_box_is_cancel(program):
    _, form = _uploaded_with_a_record(program)
    program.hands.keys("alt+F4")
    form.wait_until_gone()
    expect("Upload is enabled", lambda: program.is_enabled("Communication", "Upload to PC"), True)
    _log(program).answer("Cancel")


def a_download_records_each_exchange(program):
    """Good ones too. A text waits for its own write, which leaves no record."""
    controller = _opened(program)
    program.choose("Communication", "Download to Device")
    form = _log(program)
    report = _report(form)
    assert report.startswith(_head("Download to Device")), report[:400]
    records = report.removeprefix(_head("Download to Device")).split("\n\n")[:-1]
    writes = [write for write in controller.writes() if write["function"] == 6]
    assert writes, "nothing was written"
    assert len(records) == len(writes), f"{len(records)} records of {len(writes)} writes"
    for record, write in zip(records, writes):
        lines = record.split("\n")
        assert lines[:2] == ["Retry: 1 (1)", "Preset Single Register: FC-6"], lines
        assert lines[2].startswith("Register: ") and " Value: " in lines[2], lines
        assert lines[4] == "Tx: " + write["hex"], (lines, write)
        assert lines[5].startswith("Rx: "), lines


def _save(program, form, name, file_type=None):
    path = program.desktop.path("documents", name)
    form.press("Save As...")
    dialog = program.dialog("CommonDialog")
    expect("the file dialog's title", lambda: dialog.title, "Save Modbus Monitor log as...")
    if file_type:
        dialog.choose_type(file_type)
    dialog.choose_file(path, "Save")
    return path


def _expect_frames_of(controller, lines):
    """Line by line what went over the line, whose meaning pymodbus confirms."""
    wanted = []
    for frame in controller.frames():
        wanted.append(("Tx: " if frame["direction"] == "in" else "Rx: ") + frame["hex"])
        if frame["direction"] == "in":
            assert modbus.request(frame["hex"]) == (1, 3, frame["address"], frame["quantity"]), frame
        else:
            said = f"exception {frame['exception']}" if "exception" in frame else frame["values"]
            assert modbus.values_read(frame["hex"]) == said, frame
    assert lines == wanted, f"{lines} are not {wanted}"


def save_as_log_writes_report_and_frames(program):
    controller, form = _uploaded_with_a_record(program)
    path = _save(program, form, "transfer.log")
    wait_for("the file", lambda: _read(path))
    text = _read(path)
    assert "\n" not in text.replace("\r\n", ""), "a line doesn't end in CR LF"
    report, monitor = text.replace("\r\n", "\n").split("-" * 58 + "\n")
    assert report == _head("Upload to PC") + FAILED_BLOCK, report
    lines = monitor.split("\n")
    assert lines[0] == "MODBUS MONITOR DATA" and lines[-1] == "", lines
    _expect_frames_of(controller, lines[1:-1])
    assert _report(form) == report, "the window shows more than the report"

    form.press("Save As...")
    program.dialog("CommonDialog").choose_file(path, "Save")
    program.message(f"File {path} exist overwrite it?").answer("No")
    assert _read(path) == text, "the file was written in spite of the No"


def _read(path):
    try:
        with open(path, encoding="cp1252", newline="") as file:
            return file.read()
    except FileNotFoundError:
        return ""


def save_as_rtf_says_the_same(program):
    """Read by another program."""
    controller, form = _uploaded_with_a_record(program)
    path = _save(program, form, "transfer.rtf", "Modbus Monitor Log RTF file (*.rtf)")
    wait_for("the file", lambda: _read(path))
    assert _read(path).startswith("{\\rtf1"), _read(path)[:40]
    shown = subprocess.run(["unrtf", "--text", path], capture_output=True, check=True, timeout=60)
    text = shown.stdout.decode("utf-8").split("-----------------\n", 1)[1]
    report, monitor = text.split("-" * 58 + "\n")
    assert report.strip() == (_head("Upload to PC") + FAILED_BLOCK).strip(), report
    lines = monitor.strip().split("\n")
    assert lines[0] == "MODBUS MONITOR DATA", lines
    _expect_frames_of(controller, lines[1:])
