# SPDX-License-Identifier: MIT
"""Find Controllers, Listen, and the port dialog's test that goes on: by keyboard alone, and by mouse."""
import os
import pty
import tty

from driver.accessible import Table
from driver.keyboard import Only_Keyboard
from driver.waiting import expect, wait_for

READ = bytes.fromhex("01030064000285d4")
ANSWER = bytes.fromhex("010304000100022a32")


def _opened(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")


def a_controller_is_found_and_used(program):
    controller = program.simulator("KVRT207D", "--slave", "3")
    program.use_port(controller)
    _opened(program)
    program.choose("Communication", "Find Controllers...")
    with Only_Keyboard(program):
        dialog = program.dialog("FindControllers")
        program.type_into("n", "1-5")
        program.hands.keys("Return")
        rows = Table(dialog.part.named("TBL_Found"))
        wait_for("the controller", lambda: rows.row_count == 1)
        expect("its row", lambda: [rows.cell(0, column).name for column in range(3)], ["3", "9600,n,8,1", "KVRT207D"])
        wait_for("the end of the search", lambda: dialog.part.named("BOT_Use").is_enabled)
        program.hands.chord(["alt"], "u")
        dialog.wait_until_gone()
        program.expect_panel(3, "RTU: 3")
    expect("the stored number", lambda: program.stored("ModbusPort", "Slave"), "3")
    expect("the stored settings", lambda: program.stored("ModbusPort", "Settings").strip('"'), "9600,n,8,1")
    expect("the settings that were good", lambda: program.stored("Find", "LastSettings").strip('"'), "9600,n,8,1")
    asked = {frame["function"] for frame in controller.frames() if frame["direction"] == "in"}
    assert asked == {3}, f"the search asked {asked}"
    program.go_online()


def a_controller_is_found_and_used_by_mouse(program):
    controller = program.simulator("KVRT207D", "--slave", "3")
    program.use_port(controller)
    _opened(program)
    program.choose_by_mouse("Communication", "Find Controllers...")
    dialog = program.dialog("FindControllers")
    program.hands.click(dialog.part.named("BOT_Find"))
    rows = Table(dialog.part.named("TBL_Found"))
    wait_for("the controller", lambda: rows.row_count == 1)
    wait_for("the button", lambda: dialog.part.named("BOT_Use").is_enabled)
    program.hands.click(rows.cell(0, 0))
    program.hands.click(dialog.part.named("BOT_Use"))
    dialog.wait_until_gone()
    program.expect_panel(3, "RTU: 3")


def a_search_is_stopped_and_closed(program):
    controller = program.simulator("KVRT207D", "--fault", "silent")
    program.use_port(controller)
    _opened(program)
    program.choose("Communication", "Find Controllers...")
    with Only_Keyboard(program):
        dialog = program.dialog("FindControllers")
        program.hands.keys("Return")
        tried = dialog.part.named("LBL_Tried")
        wait_for("a unit that is tried", lambda: ", unit " in tried.name)
        program.hands.chord(["alt"], "t")
        notes = dialog.part.named("TXT_Notes")
        expect("what is said", lambda: notes.text, "The search was stopped before its end.")
        program.hands.keys("Escape")
        dialog.wait_until_gone()
    expect("the stored number", lambda: program.stored("ModbusPort", "Slave"), "1")


def a_stopped_search_s_controller_is_used(program):
    controller = program.simulator("KVRT207D", "--slave", "3")
    program.use_port(controller)
    _opened(program)
    program.choose("Communication", "Find Controllers...")
    with Only_Keyboard(program):
        dialog = program.dialog("FindControllers")
        program.hands.keys("Return")
        rows = Table(dialog.part.named("TBL_Found"))
        wait_for("the controller", lambda: rows.row_count == 1)
        program.hands.chord(["alt"], "t")
        notes = dialog.part.named("TXT_Notes")
        expect("what is said", lambda: notes.text, "The search was stopped before its end.")
        expect("Use This One is enabled", lambda: dialog.part.named("BOT_Use").is_enabled, True)
        program.hands.chord(["alt"], "u")
        dialog.wait_until_gone()
        program.expect_panel(3, "RTU: 3")


def both_are_off_while_online(program):
    controller = program.simulator()
    program.use_port(controller)
    _opened(program)
    entries = ("Find Controllers...", "Listen...")
    assert all(program.is_enabled("Communication", entry) for entry in entries)
    program.go_online()
    assert not any(program.is_enabled("Communication", entry) for entry in entries)
    program.choose("Communication", "Disconnect")
    expect("they can be chosen again", lambda: [program.is_enabled("Communication", entry) for entry in entries],
           [True, True])


def a_line_is_listened_to(program):
    far, near = pty.openpty()
    tty.setraw(near)
    program.store("ModbusPort", Port=os.ttyname(near), Settings='"9600,n,8,1"')
    _opened(program)
    program.choose("Communication", "Listen...")
    with Only_Keyboard(program):
        dialog = program.dialog("Listen")
        program.hands.keys("Return")
        wait_for("the word Stop", lambda: dialog.part.named("BOT_Listen").name == "Stop")
        for _ in range(5):
            os.write(far, READ + ANSWER)
        rows = Table(dialog.part.named("TBL_Asked"))
        wait_for("what is asked", lambda: rows.row_count == 1 and rows.cell(0, 3).name == "5")
        expect("the registers", lambda: rows.cell(0, 2).name, "100-101")
        program.hands.chord(["alt"], "t")
        sums = dialog.part.named("LBL_Sums")
        wait_for("the sums", lambda: sums.name.startswith("10 frames: 5 requests and 5 answers, 0 of them"))
        program.hands.chord(["alt"], "s")
        files = program.dialog("CommonDialog")
        program.hands.chord(["alt"], "n")
        path = program.desktop.path("documents", "site.pcapng")
        program.hands.write(path)
        program.hands.keys("Return")
        files.wait_until_gone()
        expect("what is said", lambda: dialog.part.named("TXT_Notes").text, f"Saved: {path}")
        program.hands.keys("Escape")
        dialog.wait_until_gone()
    with open(path, "rb") as file:
        assert file.read(4) == b"\x0a\x0d\x0d\x0a", "no pcapng"
    os.set_blocking(far, False)
    try:
        sent = os.read(far, 100)
    except BlockingIOError:
        sent = b""
    assert sent == b"", f"{sent.hex()} was sent while listening"
    os.close(near)
    os.close(far)


def a_line_is_listened_to_by_mouse(program):
    far, near = pty.openpty()
    tty.setraw(near)
    program.store("ModbusPort", Port=os.ttyname(near), Settings='"9600,n,8,1"')
    _opened(program)
    program.choose_by_mouse("Communication", "Listen...")
    dialog = program.dialog("Listen")
    button = dialog.part.named("BOT_Listen")
    program.hands.click(button)
    wait_for("the word Stop", lambda: button.name == "Stop")
    os.write(far, READ + ANSWER)
    rows = Table(dialog.part.named("TBL_Asked"))
    wait_for("what is asked", lambda: rows.row_count == 1)
    program.hands.click(button)
    wait_for("the sums", lambda: dialog.part.named("LBL_Sums").name.startswith("2 frames: 1 requests and 1 answers"))
    program.hands.click(dialog.part.named("BOT_Save"))
    path = program.desktop.path("documents", "site.pcapng")
    program.dialog("CommonDialog").choose_file(path, "Save")
    expect("what is said", lambda: dialog.part.named("TXT_Notes").text, f"Saved: {path}")
    program.hands.click(dialog.part.named("BOT_Close"))
    dialog.wait_until_gone()
    os.close(near)
    os.close(far)


def the_test_goes_on_by_mouse_and_its_report_is_copied(program):
    controller = program.simulator("KVRT207D", "--slave", "2")
    program.use_port(controller)
    _opened(program)
    program.choose_by_mouse("Communication", "Port Settings...")
    dialog = program.dialog("PortSettings")
    program.hands.click(dialog.part.named("BOT_Test"))
    sentence = ("Unit 1 doesn't answer, but unit 2 does: if that is the controller, set its number as the slave number; "
                "else check the supply and the wires of unit 1.")
    diagnosis = dialog.part.named("TXT_Diagnosis")
    wait_for("the sentence", lambda: diagnosis.text.startswith(sentence), deadline=60)
    program.hands.click(dialog.part.named("BOT_Copy"))
    expect("the clipboard ends in the sentence", lambda: program.hands._clipboard().rstrip().endswith(sentence), True)
    program.hands.click(dialog.part.named("BOT_Cancel"))
    dialog.wait_until_gone()


def the_test_goes_on_to_one_sentence(program):
    """The controller has another number than the settings."""
    controller = program.simulator("KVRT207D", "--slave", "2")
    program.use_port(controller)
    _opened(program)
    program.choose("Communication", "Port Settings...")
    with Only_Keyboard(program):
        dialog = program.dialog("PortSettings")
        program.hands.chord(["alt"], "t")
        verdict, diagnosis = dialog.part.named("TXT_Verdict"), dialog.part.named("TXT_Diagnosis")
        wait_for("the verdict", lambda: verdict.text.startswith("Silence: nothing came back within 600 ms."))
        wait_for("what is tried", lambda: diagnosis.text.startswith("Looking further: "))
        wait_for("the sentence", lambda: diagnosis.text.startswith(
            "Unit 1 doesn't answer, but unit 2 does: if that is the controller"), deadline=60)
        program.hands.keys("Escape")
        dialog.wait_until_gone()
    asked = {frame["function"] for frame in controller.frames() if frame["direction"] == "in"}
    assert asked <= {3}, f"the test asked {asked}"


def a_port_on_a_network_is_entered_by_its_form(program):
    _opened(program)
    program.choose("Communication", "Port Settings...")
    with Only_Keyboard(program):
        dialog = program.dialog("PortSettings")
        program.hands.chord(["alt"], "n")
        form = program.dialog("NetworkPort")
        program.type_into("h", "localhost")
        program.type_into("p", "1502")
        program.hands.keys("Return")
        form.wait_until_gone()
        expect("the baud rate is enabled", lambda: dialog.part.named("CMB_Baud").is_enabled, False)
        program.hands.keys("Return")
        dialog.wait_until_gone()
    expect("the stored port", lambda: program.stored("ModbusPort", "Port"), "tcp:localhost:1502")


def a_port_on_a_network_is_entered_by_mouse(program):
    _opened(program)
    program.choose_by_mouse("Communication", "Port Settings...")
    dialog = program.dialog("PortSettings")
    program.hands.click(dialog.part.named("BOT_Network"))
    form = program.dialog("NetworkPort")
    program.hands.click(form.part.named("EDT_Host"))
    program.hands.write("localhost")
    program.hands.click(form.part.named("BOT_Ok"))
    form.wait_until_gone()
    program.hands.click(dialog.part.named("BOT_Ok"))
    dialog.wait_until_gone()
    expect("the stored port", lambda: program.stored("ModbusPort", "Port"), "tcp:localhost:502")
