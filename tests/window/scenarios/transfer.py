# SPDX-License-Identifier: MIT
"""Upload, polling, a lost line and its return, download: the window with a simulated controller."""
import os
import shutil

from driver.programs import Desktop_Services
from driver.waiting import expect, wait_for

OUTPUTS, CHANNELS, REGULATION, TIMERS, MEASUREMENTS = 1, 2, 3, 4, 5
VALUE = 1
NO_RESPONSE = "The controller does not respond..."


def _example(program):
    return os.path.join(program.folder, "EXAMPLE.KVRT207D")


def _factory_document(program):
    """A document with the template's own values."""
    path = program.desktop.path("documents", "site7.kvrt207d")
    shutil.copy2(os.path.join(program.folder, "DEFAULT.KVRT207D"), path)
    return path


def _opened(program, path):
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")


def upload_brings_the_controller_s_values(program):
    """Everything that the user may change, and that no reading moves, is the controller's afterwards."""
    controller = program.simulator("KVRT207D", "--config", _example(program))
    program.use_port(controller)
    path = _factory_document(program)
    _opened(program, path)
    program.go_online()
    program.expect_title("* site7.kvrt207d - Zorvane")
    assert program.is_enabled("File", "Save"), "Save is disabled after an upload"
    template = program.template("KVRT207D")
    for field, columns in ((CHANNELS, range(1, 6)), (REGULATION, [VALUE]), (TIMERS, [VALUE]), (OUTPUTS, [VALUE])):
        wanted = program.terminal.settings(template, _example(program), field)
        program.select_field(field)
        for column in columns:
            expect(f"column {column} of field {field}",
                   lambda: [row[column] for row in program.settings.texts()], [row[column] for row in wanted])
    program.expect_cell(0, 2, "")


def online_menus_and_panels(program):
    """Rx shows only in a tick of 90 ms in which nothing was sent: hence a slow controller."""
    controller = program.simulator("KVRT207D", "--turnaround", "250")
    program.use_port(controller)
    _opened(program, _factory_document(program))
    program.go_online()
    expect("Disconnect is enabled", lambda: program.is_enabled("Communication", "Disconnect"), True)
    assert not program.is_enabled("Communication", "Upload to PC"), "Upload is enabled while online"
    assert not program.is_enabled("Communication", "Download to Device"), "Download is enabled while online"
    program.expect_panel(3, "RTU: 1")
    wait_for("the blinking Tx panel", lambda: program.panel(5) == "Tx")
    wait_for("the blinking Rx panel", lambda: program.panel(6) == "Rx")
    program.choose("Communication", "Disconnect")
    program.expect_panel(2, "Offline")
    for number in (5, 6):
        program.expect_panel(number, "")
    assert program.is_enabled("Communication", "Upload to PC"), "Upload is disabled after Disconnect"
    assert not program.is_enabled("Communication", "Disconnect"), "Disconnect is enabled while offline"


def live_values_change(program):
    controller = program.simulator()
    program.use_port(controller)
    _opened(program, _factory_document(program))
    program.go_online()
    program.select_field(MEASUREMENTS)
    for _ in range(3):
        before = program.settings.texts()
        wait_for("other measurements", lambda: program.settings.texts() != before)


def _uploading_slowly(program):
    """An upload that waits for the answer to its question, so that there is time to look at it."""
    controller = program.simulator("KVRT207D", "--pace", "2400")
    program.use_port(controller)
    _opened(program, _factory_document(program))
    program.choose("Communication", "Upload to PC")
    progress = program.dialog("Porcentaje")
    progress.press("Cancel")
    return progress, program.message("The transfer is not complete. Do you want to abort anyway?")


def upload_shows_its_progress(program):
    progress, question = _uploading_slowly(program)
    expect("the progress form's words", lambda: progress.part.named("Label1").name,
           "Uploading data from the controller...")
    expect("the progress form's buttons", progress.buttons, ["Cancel"])
    program.expect_panel(2, "Upload")
    program.expect_panel(4, "Uploading... Wait a moment please")
    assert not program.window.find(role="menu bar").is_enabled, "the menu is live during an upload"
    question.answer("No")
    progress.wait_until_gone()
    program.expect_panel(2, "Online")
    expect("the menu bar is enabled", lambda: program.window.find(role="menu bar").is_enabled, True)


def an_upload_keeps_awake_and_its_end_is_told(program):
    program.desktop.environment["DBUS_SYSTEM_BUS_ADDRESS"] = program.desktop.environment["DBUS_SESSION_BUS_ADDRESS"]
    services = Desktop_Services(program.desktop)
    progress, question = _uploading_slowly(program)
    expect("what the desktop was asked", services.said,
           ["inhibit sleep:idle: A transfer with a controller is running"])
    question.answer("No")
    for number in program.windows_on_screen():
        program.desktop.run("xdotool", "windowminimize", number)
    progress.wait_until_gone()
    expect("the end", lambda: [line.split(":")[0] for line in services.said()[1:]],
           ["released", "note * site7.kvrt207d - Zorvane"])
    assert services.said()[2].startswith("note * site7.kvrt207d - Zorvane: The transfer has ended"), services.said()


def upload_is_cancelled(program):
    progress, question = _uploading_slowly(program)
    question.answer("Yes")
    progress.wait_until_gone()
    expect("Upload is enabled", lambda: program.is_enabled("Communication", "Upload to PC"), True)
    program.expect_title("site7.kvrt207d - Zorvane")


def upload_from_a_silent_controller_fails(program):
    controller = program.simulator("KVRT207D", "--fault", "silent")
    program.use_port(controller)
    path = _factory_document(program)
    _opened(program, path)
    program.choose("Communication", "Upload to PC")
    progress = program.dialog("Porcentaje")
    expect("the progress form's words", lambda: progress.part.named("Label1").name,
           "Error. The controller does not respond.")
    expect("the progress form's buttons", progress.buttons, ["Ok"])
    progress.answer("Ok")
    expect("Upload is enabled", lambda: program.is_enabled("Communication", "Upload to PC"), True)
    program.expect_title("site7.kvrt207d - Zorvane")


def a_port_that_is_not_there_is_named(program):
    port = program.desktop.path("nowhere")
    program.store("ModbusPort", Port=port, Slave="1", Settings='"9600,n,8,1"', Retries="0", TimeOut="200")
    _opened(program, _factory_document(program))
    program.choose("Communication", "Upload to PC")
    box = program.dialog("Msgb")
    assert port in box.text(), f"the message is {box.text()!r}"
    box.answer("Ok")


def a_lost_line_comes_back(program):
    controller = program.simulator("KVRT207D", "--config", _example(program))
    program.use_port(controller)
    _opened(program, _factory_document(program))
    program.go_online()
    program.select_field(OUTPUTS)
    program.expect_cell(0, VALUE, "Raise")
    controller.stop()
    _expect_lost(program)
    program.simulator("KVRT207D", "--config", _example(program))
    _expect_found(program)


def a_silent_controller_comes_back(program):
    controller = program.simulator("KVRT207D", "--config", _example(program))
    program.use_port(controller)
    _opened(program, _factory_document(program))
    program.go_online()
    program.select_field(OUTPUTS)
    program.expect_cell(0, VALUE, "Raise")
    controller.pause()
    _expect_lost(program)
    controller.resume()
    _expect_found(program)


def _expect_lost(program):
    program.expect_panel(2, "Retrying")
    program.expect_panel(4, NO_RESPONSE)
    notice = program.dialog("LostCom")
    expect("the notice", lambda: notice.part.named("Label1").name, "Lost communication to device...")
    program.expect_cell(0, VALUE, "???")
    program.expect_state(0, VALUE, "Link lost")
    program.expect_cell(0, 2, "")


def _expect_found(program):
    program.expect_panel(2, "Online")
    program.expect_panel(4, "")
    expect("the notice is shown", lambda: program.has_dialog("LostCom"), False)
    program.expect_cell(0, VALUE, "Raise")
    program.expect_state(0, VALUE, "Modifiable")


def disconnect_ends_a_lost_line(program):
    controller = program.simulator()
    program.use_port(controller)
    _opened(program, _factory_document(program))
    program.go_online()
    controller.stop()
    program.expect_panel(2, "Retrying")
    program.dialog("LostCom").answer("OK")
    program.choose("Communication", "Disconnect")
    program.expect_panel(2, "Offline")
    assert program.is_enabled("Communication", "Upload to PC"), "Upload is disabled after Disconnect"


def download_writes_what_a_dry_run_says(program):
    controller = program.simulator()
    program.use_port(controller)
    path = program.document()
    nothing_read = program.desktop.path("registers.json")
    with open(nothing_read, "w", encoding="ascii") as file:
        file.write("{}")
    plan = program.terminal.ask("plan", program.template("KVRT207D"), path, nothing_read)
    _opened(program, path)
    _download(program)
    wanted = [(write["function"], write["address"], write["values"]) for write in plan["writes"]]
    assert wanted, "the dry run writes nothing"
    expect("the controller's writes",
           lambda: [(frame["function"], frame["address"], frame["values"]) for frame in controller.writes()], wanted)


def _download(program):
    """The walk leaves a record of each exchange, good ones too, so the link stays down after it."""
    program.choose("Communication", "Download to Device")
    program.expect_panel(2, "Download")
    program.expect_panel(4, "Ready")
    expect("Download is enabled", lambda: program.is_enabled("Communication", "Download to Device"), True)
    assert not program.has_dialog("Porcentaje"), "the progress form is still shown"


def download_makes_a_second_controller_like_the_first(program):
    """Up from one controller, down to another one: what both show is the same afterwards."""
    first = program.simulator("KVRT207D", "--config", _example(program), name="first")
    program.use_port(first)
    path = _factory_document(program)
    _opened(program, path)
    program.go_online()
    program.choose("Communication", "Disconnect")
    program.expect_panel(2, "Offline")
    program.hands.keys("ctrl+s")
    program.expect_title("site7.kvrt207d - Zorvane")
    program.choose("File", "Exit")
    program.wait_for_end()

    second = program.simulator("KVRT207D", name="second")
    program.store("ModbusPort", Port=second.port)
    _opened(program, path)
    _download(program)
    up, down = (program.registers(controller) for controller in (first, second))
    compared = [*range(100, 115), *range(117, 121), *range(200, 212), *range(220, 244), *range(250, 262),
                *range(270, 278)]
    different = [address for address in compared if up[address] != down[address]]
    assert different == [], f"registers that differ: {different}"


def close_ends_the_polling(program):
    controller = program.simulator()
    program.use_port(controller)
    _opened(program, _factory_document(program))
    program.go_online()
    program.choose("File", "Close")
    program.message("Do you want to save this file?").answer("No")
    program.expect_title("Zorvane")
    program.expect_panel(2, "")
    assert not program.is_enabled("Communication", "Disconnect"), "Disconnect is enabled without a document"
    assert not program.is_enabled("Communication", "Upload to PC"), "Upload is enabled without a document"


def exit_while_online_ends_the_program(program):
    controller = program.simulator()
    program.use_port(controller)
    _opened(program, _factory_document(program))
    program.go_online()
    program.choose("File", "Exit")
    program.message("Do you want to save this file?").answer("No")
    assert program.wait_for_end() == 0, "the program ended with a failure"
