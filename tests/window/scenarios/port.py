# SPDX-License-Identifier: MIT
"""The port settings: a typed path, the test of a port, the simulated controller."""
import os

from driver.line_model import Line_Model
from driver.waiting import expect, wait_for

OUTPUTS, VALUE = 1, 1


def _settings(program):
    program.choose("Communication", "Port Settings...")
    return program.dialog("PortSettings")


def _enter_line(program, port, baud="115200"):
    """Without a template's own time-out 300 ms would count."""
    dialog = _settings(program)
    program.type_into("p", port)
    program.type_into("s", "1")
    program.type_into("b", baud)
    program.type_into("u", "300")
    return dialog


def _opened(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")


def a_typed_path_is_the_port(program):
    controller = program.simulator("KVRT207D", "--slave", "17")
    _opened(program)
    dialog = _settings(program)
    program.type_into("p", controller.port)
    program.type_into("s", "17")
    program.type_into("b", "115200")
    program.hands.keys("Return")
    dialog.wait_until_gone()
    program.expect_panel(3, "RTU: 17")
    program.go_online()
    expect("the stored port", lambda: program.stored("ModbusPort", "Port"), controller.port)
    expect("the stored number", lambda: program.stored("ModbusPort", "Slave"), "17")


def a_cancelled_dialog_changes_nothing(program):
    controller = program.simulator()
    program.use_port(controller)
    _opened(program)
    dialog = _settings(program)
    program.type_into("p", "/dev/nowhere")
    program.type_into("s", "99")
    program.hands.keys("Escape")
    dialog.wait_until_gone()
    program.go_online()
    program.expect_panel(3, "RTU: 1")


def _test(program, *faults):
    """What the test of a port says, as lines; the template's own time-out is 600 ms."""
    controller = program.simulator("KVRT207D", *(part for fault in faults for part in ("--fault", fault)))
    _opened(program)
    dialog = _enter_line(program, controller.port)
    dialog.press("Test")
    verdict = dialog.part.named("TXT_Verdict")
    wait_for("the end of the test", lambda: verdict.text not in ("", "Testing..."))
    return verdict.text.split("\n"), controller


def a_good_port_is_called_good(program):
    lines, controller = _test(program)
    assert lines[0].startswith("Good: Unit 1 answered after ") and lines[0].endswith(" ms."), lines
    assert lines[1:] == [], lines
    asked = [(frame["function"], frame["address"], frame["quantity"]) for frame in controller.frames()
             if frame["direction"] == "in"]
    assert asked == [(3, 100, 1)], f"the test asked {asked}"
    expect("the stored port", lambda: program.stored("ModbusPort", "Port"), None)


def a_silent_port_gets_advice(program):
    lines, _ = _test(program, "silent")
    assert lines == [
        "Silence: nothing came back within 600 ms.",
        "1. Is the controller switched on, and its cable in this port?",
        "2. Slave number: has the controller the number 1?",
        "3. Is the controller set to 115200 baud, no parity, 8 data bits, 1 stop bit? One wrong setting is silence.",
        "4. RS-485: exchange the wires A and B.",
        "5. RS-485 adapter that doesn't switch to sending by itself: choose another RTS mode.",
        "6. A slow controller, a radio or a gateway: try a longer time-out."], lines


def a_refusing_controller_is_there(program):
    lines, _ = _test(program, "exception=2")
    assert lines == ["Unit 1 is there, but it refused: Illegal data address (exception 2).",
                     "1. Port, line and slave number are right.",
                     "2. Register 100 isn't known to it: does the template fit this controller?"], lines


def a_damaged_answer_is_told(program):
    lines, _ = _test(program, "crc")
    assert lines[0].startswith("Something came back that is no whole answer: wrong CRC, "), lines


def a_missing_port_is_named(program):
    _opened(program)
    port = program.desktop.path("nowhere")
    dialog = _enter_line(program, port)
    dialog.press("Test")
    verdict = dialog.part.named("TXT_Verdict")
    wait_for("the verdict", lambda: verdict.text.startswith(f"The port {port} can't be opened."))
    dialog.answer("Cancel")
    assert program.is_enabled("Communication", "Upload to PC"), "Upload is disabled after a test"


def a_test_online_gives_the_port_back(program):
    controller = program.simulator()
    program.use_port(controller)
    _opened(program)
    program.go_online()
    dialog = _settings(program)
    dialog.press("Test")
    verdict = dialog.part.named("TXT_Verdict")
    wait_for("a good test", lambda: verdict.text.startswith("Good: Unit 1 answered after "))
    dialog.answer("Cancel")
    program.expect_panel(2, "Online")
    before = len(controller.frames())
    wait_for("polling after the test", lambda: len(controller.frames()) > before + 10)
    program.expect_panel(2, "Online")


def _children(process):
    """The numbers of the programs that a program has started and that still run."""
    found = []
    for entry in os.listdir("/proc"):
        try:
            with open(f"/proc/{entry}/stat", encoding="ascii", errors="replace") as stat:
                state, parent = stat.read().rsplit(")", 1)[1].split()[:2]
        except (OSError, IndexError):
            continue
        if int(parent) == process.pid and state != "Z":
            found.append(int(entry))
    return found


def the_simulated_controller_needs_no_other_program(program):
    """Its registers are the template's own values; it ends with the program."""
    path = program.desktop.path("documents", "site7.kvrt207d")
    open(path, "wb").close()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    dialog = _settings(program)
    program.type_into("p", "Simulated controller")
    program.hands.keys("Return")
    dialog.wait_until_gone()
    program.go_online()
    program.select_field(OUTPUTS)
    wanted = program.terminal.settings(program.template("KVRT207D"), path, OUTPUTS)
    expect("the values of the template", lambda: [row[VALUE].rstrip() for row in program.settings.texts()],
           [row[VALUE] for row in wanted])
    started = _children(program.process)
    assert len(started) == 1, f"running programs: {started}"
    program.choose("File", "Exit")
    program.message("Do you want to save this file?").answer("No")
    assert program.wait_for_end() == 0, "the program ended with a failure"
    wait_for("the simulated controller's end", lambda: not os.path.exists(f"/proc/{started[0]}"))


def _upload(program, blocks, registers):
    model = Line_Model(program.folder, blocks, registers)
    controller = program.simulator("LINETEST", *model.options())
    program.use_port(controller)
    program.start()
    program.open(model.document(program.desktop.path("documents", "site.linetest")))
    program.expect_title("site.linetest - Zorvane")
    return model, controller


def _expect_values(program, model, field):
    """Values move by up to 5 while they are read."""
    program.select_field(field)
    def near():
        shown = [int(row[VALUE]) for row in program.settings.texts()]
        starts = [model.start_values[address] for address in model.fields[field - 1]]
        return len(shown) == len(starts) and all(abs(a - b) <= 5 for a, b in zip(shown, starts))
    wait_for(f"the controller's values in field {field}", near)


def one_block_is_uploaded(program):
    model, _ = _upload(program, 1, 10)
    program.go_online()
    _expect_values(program, model, 1)


def a_hundred_blocks_are_uploaded(program):
    model, controller = _upload(program, 100, 5)
    program.go_online()
    _expect_values(program, model, 1)
    _expect_values(program, model, 3)
    asked = [frame["address"] for frame in controller.frames() if frame["direction"] == "in"]
    assert asked[:100] == [table[0] for table in model.fields], f"asked were {asked[:100]}"


def no_block_ends_the_upload(program):
    """A template without blocks leaves those of the start in force; this controller refuses them all."""
    _, controller = _upload(program, 0, 0)
    program.choose("Communication", "Upload to PC")
    wait_for("the button for the log", lambda: program.shows("BOT_Log"))
    program.expect_panel(4, "Ready")
    expect("the progress form is shown", lambda: program.has_dialog("Porcentaje"), False)
    expect("Upload is enabled", lambda: program.is_enabled("Communication", "Upload to PC"), True)
    assert not program.is_enabled("Communication", "Disconnect"), "the window went online"
    answers = [frame["exception"] for frame in controller.frames() if frame["direction"] == "out"]
    assert answers and set(answers) == {2}, f"the controller answered {answers}"
