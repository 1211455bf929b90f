# SPDX-License-Identifier: MIT
"""Send Changes, by keyboard alone: who is there, what goes out, what became of it, and the way back."""
import json
import os

from driver.accessible import Table
from driver.keyboard import Only_Keyboard
from driver.waiting import expect, wait_for

TICK, PAGE, SETTING, HEADING, HAS, WANTED, READ_BACK, NOTE = range(8)
VERIFIED, REFUSED, OTHERWISE, UNKNOWN, NOT_SENT = ("✓ verified", "✗ refused", "≠ stored otherwise", "? unknown",
                                                   "– not sent")
LEVEL, LIST, OTHER_LIST, OFFSET = "112", "205", "206", "226"
DIFFERENCES = {LEVEL: 100, LIST: 0, OFFSET: 5}
READY = "These values of the controller differ from the document. Nothing goes out before you press Send."
ALL_SENT = "All of it was sent and read back."


class Sending:
    """The window, opened by the menu's keys."""

    def __init__(self, program):
        self._program = program
        wait_for("the main window", lambda: "active" in program.window.states)
        wait_for("the document's title", lambda: program.title.lstrip("* ").lower().startswith("site7."))
        program.pull_down("Communication")
        program.hands.keys("s")
        self.dialog = program.dialog("FrmSend")

    def words(self, label):
        return self.dialog.part.named(label).name

    def expect_headline(self, wanted):
        expect("the headline", lambda: self.words("LBL_Headline"), wanted, deadline=60)

    def expect_sum(self, wanted):
        expect("the sum", lambda: self.words("LBL_Sum"), wanted)

    def table(self):
        return Table(self.dialog.part.named("LST_Values"))

    def column(self, number):
        table = self.table()
        return [table.cell(row, number).name for row in range(table.row_count)]

    def press(self, letter):
        self._program.hands.chord(["alt"], letter)

    def close(self):
        self._program.hands.keys("Escape")
        self.dialog.wait_until_gone()


def _open(program, document):
    """The grids are hidden and shown again after the title; until then no menu answers."""
    program.open(document)
    program.expect_title("site7.kvrt207d - Zorvane")
    wait_for("the focus in the upper grid", lambda: "focused" in program.fields.table.states)


def _started(program, *options, differences=None, config=True):
    """The program with its example document, and a controller that differs from it in a few registers."""
    document = program.document()
    registers = program.desktop.path("registers_set.json")
    with open(registers, "w", encoding="ascii") as file:
        json.dump(DIFFERENCES if differences is None else differences, file)
    simulator = program.simulator("KVRT207D", "--registers", registers, *(["--config", document] if config else []),
                                  *options)
    program.use_port(simulator)
    program.start()
    _open(program, document)
    return simulator


def changes_are_sent_and_read_back(program):
    simulator = _started(program)
    panels = [program.panel(number) for number in range(1, 7)]
    title = program.title
    with Only_Keyboard(program):
        sending = Sending(program)
        sending.expect_headline(READY)
        identity = sending.words("LBL_Identity")
        assert identity.startswith("The controller at unit 1 is a KVRT207D."), identity
        sending.expect_sum("3 values: 3 with a tick, 0 without, 0 can't be sent. 3 writes.")
        program.hands.keys("space")
        sending.expect_sum("3 values: 2 with a tick, 1 without, 0 can't be sent. 2 writes.")
        assert simulator.writes() == [], "something went out before Send"
        sending.press("s")
        sending.expect_headline(ALL_SENT)
        assert sending.column(TICK) == [VERIFIED, VERIFIED], sending.column(TICK)
        assert sending.column(WANTED) == sending.column(READ_BACK), sending.table().texts()
        sending.expect_sum("2 of 2 values verified.")
        sending.close()
    assert len(simulator.writes()) == 2, simulator.writes()
    assert (program.title, [program.panel(number) for number in range(1, 7)]) == (title, panels)
    again = Sending(program)
    again.expect_headline(READY)
    again.expect_sum("1 value: 1 with a tick, 0 without, 0 can't be sent. 1 write.")
    again.close()


def each_end_has_its_words_and_a_retry(program):
    simulator = _started(program, "--quirk", "not-above=114@" + LEVEL, "--quirk", "forgets:1@" + LIST)
    with Only_Keyboard(program):
        sending = Sending(program)
        sending.expect_headline(READY)
        sending.press("s")
        sending.expect_headline("Not all of it was sent and read back.")
        assert sorted(sending.column(TICK)) == sorted([REFUSED, OTHERWISE, VERIFIED]), sending.column(TICK)
        sending.expect_sum("1 of 3 values verified, 1 refused, 1 stored otherwise.")
        sending.press("f")
        sending.expect_headline(READY)
        sending.expect_sum("2 values: 2 with a tick, 0 without, 0 can't be sent. 2 writes.")
        sending.press("s")
        sending.expect_headline("Not all of it was sent and read back.")
        assert sorted(sending.column(TICK)) == sorted([REFUSED, VERIFIED]), sending.column(TICK)
        sending.close()
    assert len(simulator.writes()) == 5


def a_silent_controller_leaves_what_is_unknown_and_what_was_not_sent(program):
    simulator = _started(program, "--turnaround", "100", config=False)
    with Only_Keyboard(program):
        sending = Sending(program)
        sending.expect_headline(READY)
        sending.press("s")
        wait_for("the second write", lambda: len(simulator.writes()) >= 2)
        simulator.pause()
        waiting = wait_for("what is waited for", lambda: "It is waited for" in sending.words("LBL_Notice")
                           and sending.words("LBL_Notice"))
        assert waiting.endswith(" It is waited for, for 10 seconds at most."), waiting
        wait_for("the end", lambda: sending.words("LBL_Headline").startswith("Not all of it was sent and read back. "),
                 deadline=60)
        simulator.resume()
        states = sending.column(TICK)
        assert set(states) == {UNKNOWN, NOT_SENT}, states
        notice = sending.words("LBL_Notice")
        assert notice == "The controller works with what it has now; it takes nothing back by itself.", notice
        sending.close()


def a_send_is_cancelled_between_two_values(program):
    simulator = _started(program, "--turnaround", "120", config=False)
    with Only_Keyboard(program):
        sending = Sending(program)
        sending.expect_headline(READY)
        sending.press("s")
        wait_for("the first write", simulator.writes)
        program.hands.keys("Escape")
        sending.expect_headline("Not all of it was sent and read back. Stopped.")
        states = sending.column(TICK)
        written = len(simulator.writes())
        assert set(states) == {VERIFIED, NOT_SENT} and states.count(VERIFIED) >= written, states
        sending.close()
    assert written < 30, written


def another_model_needs_its_name(program):
    document = program.document()
    simulator = program.simulator("KVRT100")
    program.use_port(simulator)
    program.start()
    _open(program, document)
    with Only_Keyboard(program):
        sending = Sending(program)
        wait_for("the question", lambda: "type the name of the model KVRT207D." in sending.words("LBL_Headline"))
        expect("the focus", lambda: program.focus.owner.description, "TXT_Model")
        program.hands.write("KVRT")
        program.hands.keys("Return")
        assert "type the name" in sending.words("LBL_Headline")
        program.hands.keys("ctrl+a")
        program.hands.write("kvrt207d")
        program.hands.keys("Return")
        wait_for("the values", lambda: sending.words("LBL_Sum").endswith("."))
        sending.close()
    assert simulator.writes() == []


def what_was_sent_is_put_back(program):
    simulator = _started(program)
    before = program.registers(simulator)
    with Only_Keyboard(program):
        sending = Sending(program)
        sending.expect_headline(READY)
        sending.press("s")
        sending.expect_headline(ALL_SENT)
        sending.press("t")
        sending.expect_headline("These values are put back as they were before the send, in reverse order.")
        assert len(simulator.writes()) == 3
        sending.press("r")
        sending.expect_headline("All of it was put back.")
        sending.close()
    after = program.registers(simulator)
    assert all(after[int(number)] == value for number, value in DIFFERENCES.items()), after
    assert before.keys() == after.keys()


def an_interrupted_send_goes_on(program):
    simulator = _started(program, "--turnaround", "80", config=False)
    sending = Sending(program)
    sending.expect_headline(READY)
    sending.press("s")
    wait_for("some writes", lambda: len(simulator.writes()) >= 3)
    program.kill()
    path = program.desktop.path("documents", "site7.kvrt207d")
    program.start()
    _open(program, path)
    with Only_Keyboard(program):
        sending = Sending(program)
        sending.expect_headline(READY)
        notice = sending.words("LBL_Notice")
        assert notice.endswith("was interrupted. Resume goes on with it, Restore takes it back."), notice
        sending.press("u")
        sending.expect_headline("These values of the interrupted send are still to go out.")
        sending.press("r")
        sending.expect_headline(ALL_SENT)
        states = sending.column(TICK)
        assert set(states) == {VERIFIED}, states
        sending.close()
    assert program.terminal.ask("plan", program.template("KVRT207D"), path, "--port", simulator.port, "--settings",
                                "115200,n,8,1")["writes"] == []


def the_record_is_written(program):
    _started(program)
    path = program.desktop.path("documents", "record.pdf")
    with Only_Keyboard(program):
        sending = Sending(program)
        sending.expect_headline(READY)
        sending.press("s")
        sending.expect_headline(ALL_SENT)
        sending.press("c")
        form = program.dialog("FrmRecord")
        program.hands.write("Pump house")
        program.hands.chord(["alt"], "f")
        expect("the focus", lambda: program.focus.owner.description, "TXT_File")
        program.hands.keys("ctrl+a")
        program.hands.write(path)
        program.hands.keys("Return")
        form.wait_until_gone()
        box = program.dialog("Msgb")
        assert box.text().startswith("Written: " + path + ", record "), box.text()
        program.hands.keys("Return")
        box.wait_until_gone()
        sending.close()
    with open(path, "rb") as pdf:
        assert pdf.read(5) == b"%PDF-"
    with open(path.replace(".pdf", ".json"), encoding="utf-8") as record:
        assert json.load(record)["head"]["site"] == "Pump house"
    assert os.path.getsize(path) > 5000


def an_open_question_keeps_the_line_awake(program):
    simulator = _started(program)
    with Only_Keyboard(program):
        sending = Sending(program)
        sending.expect_headline(READY)
        seen = len(simulator.frames())
        wait_for("two readings of one register", lambda: len(simulator.frames()) >= seen + 4)
        sending.close()
    assert simulator.writes() == []


def a_program_that_is_ended_leaves_an_interrupted_run(program):
    simulator = _started(program, "--turnaround", "120", config=False)
    sending = Sending(program)
    sending.expect_headline(READY)
    sending.press("s")
    wait_for("the first write", simulator.writes)
    program.stop()
    folder = os.path.join(program.desktop.environment["HOME"], ".local", "state", "zorvane", "runs")
    runs = os.listdir(folder)
    assert len(runs) == 1, runs
    with open(os.path.join(folder, runs[0], "result.json"), encoding="utf-8") as result:
        told = json.load(result)
    assert told["state"] == "interrupted", told
    assert told["counts"]["not_sent"] > 0, told["counts"]
