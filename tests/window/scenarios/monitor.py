# SPDX-License-Identifier: MIT
"""The monitor: rows as they come, pause, clear, save; its frames against the controller's log and pymodbus."""
import json
import os

from driver import modbus
from driver.accessible import Table
from driver.keyboard import Only_Keyboard
from driver.waiting import expect, wait_for

HEADINGS = ["Time", "ms", "Unit", "Function", "Registers", "On the wire", "Values", "Result", "Bytes"]


def _online(program, *options):
    """A controller that takes its time: rows come slowly enough to be looked at."""
    controller = program.simulator("KVRT207D", "--turnaround", "50", *options)
    program.use_port(controller)
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.go_online()
    return controller


def _show(program):
    program.choose("Communication", "Modbus Monitor")
    return program.dialog("ModbusMonitor")


def _pause(monitor):
    """Goes on when it is pressed again."""
    monitor.part.named("BOT_Pause").toggle()


def _rows(monitor):
    return Table(monitor.part.named("TBL_Exchanges"))


def rows_appear_while_polling(program):
    _online(program)
    monitor = _show(program)
    expect("the menu entry is enabled", lambda: program.is_enabled("Communication", "Modbus Monitor"), False)
    rows = _rows(monitor)
    wait_for("rows", lambda: rows.row_count > 5)
    assert rows.headings() == HEADINGS[:-1], rows.headings()
    seen = rows.row_count
    wait_for("more rows", lambda: rows.row_count > seen + 5)
    expect("the time and what follows it", lambda: [rows.cell(0, column).name for column in (2, 3)], ["1", "3 read"])
    program.hands.keys("alt+F4")
    wait_for("the monitor to be gone", lambda: not program.has_dialog("ModbusMonitor"))
    expect("the menu entry is enabled", lambda: program.is_enabled("Communication", "Modbus Monitor"), True)
    program.expect_panel(2, "Online")


def pause_holds_rows_back(program):
    controller = _online(program)
    monitor = _show(program)
    rows = _rows(monitor)
    wait_for("rows", lambda: rows.row_count > 2)
    _pause(monitor)
    count = monitor.part.named("LBL_Count")
    wait_for("the word paused", lambda: count.name.endswith(" rows, paused"))
    held = rows.row_count
    asked = len(controller.frames())
    wait_for("more exchanges on the line", lambda: len(controller.frames()) > asked + 20)
    assert rows.row_count == held, f"{rows.row_count - held} rows came while paused"
    _pause(monitor)
    wait_for("the rows that were held back", lambda: rows.row_count >= held + 10)


def clear_empties_the_table(program):
    _online(program)
    monitor = _show(program)
    rows = _rows(monitor)
    wait_for("rows", lambda: rows.row_count > 20)
    _pause(monitor)
    wait_for("the word paused", lambda: monitor.part.named("LBL_Count").name.endswith(", paused"))
    monitor.press("Clear")
    expect("the rows", lambda: rows.row_count, 0)
    expect("the count", lambda: monitor.part.named("LBL_Count").name, "0 rows, paused")


def _saved(program, monitor, rows):
    """What Save writes once so many rows are there: a dictionary of the columns for each row."""
    table = _rows(monitor)
    wait_for(f"{rows} rows", lambda: table.row_count >= rows)
    _pause(monitor)
    wait_for("the word paused", lambda: monitor.part.named("LBL_Count").name.endswith(", paused"))
    path = program.desktop.path("documents", "monitor.txt")
    monitor.press("Save...")
    program.dialog("CommonDialog").choose_file(path, "Save")
    with open(path, encoding="utf-8") as file:
        lines = file.read().splitlines()
    assert lines[0].split("\t") == HEADINGS, lines[0]
    assert len(lines) - 1 == table.row_count, f"{len(lines) - 1} rows saved of {table.row_count}"
    return [dict(zip(HEADINGS, line.split("\t"))) for line in lines[1:]]


def _bytes(row):
    sent, received = row["Bytes"].removeprefix("Tx: ").split(" Rx: ")
    return sent, "" if received == "nothing" else received


def _range(text):
    first, _, last = text.partition("-")
    return int(first), int(last or first) - int(first) + 1


def _numbers(text):
    """"65531 (-5), 3" is 65531 and 3."""
    return [int(part.split(" (")[0]) for part in text.split(", ")] if text else []


def _on_the_line(controller):
    """Each request that the controller saw with the bytes that it answered."""
    exchanges = []
    for frame in controller.frames():
        if frame["direction"] == "in":
            exchanges.append((frame["hex"], []))
        else:
            exchanges[-1][1].append(frame["hex"])
    return [(sent, " ".join(answers)) for sent, answers in exchanges]


def _expect_same_bytes(controller, rows):
    """The rows are a run of the controller's exchanges, with no gap."""
    wanted = [_bytes(row) for row in rows]
    seen = _on_the_line(controller)
    places = [start for start in range(len(seen)) if seen[start:start + len(wanted)] == wanted]
    assert places, f"the controller never saw {wanted}"


def frames_are_those_of_the_line(program):
    """The same bytes as the controller logged, and the same meaning as pymodbus finds in them."""
    controller = _online(program)
    monitor = _show(program)
    rows = _saved(program, monitor, 30)
    _expect_same_bytes(controller, rows)
    for row in rows:
        sent, received = _bytes(row)
        first, count = _range(row["On the wire"])
        assert modbus.request(sent) == (int(row["Unit"]), int(row["Function"].split()[0]), first, count), row
        assert modbus.values_read(received) == _numbers(row["Values"]), row
        assert row["Result"] == "good", row
        assert row["Registers"] == row["On the wire"], row


def damaged_frames_are_shown_as_they_came(program):
    """Each fault strikes the first try of one block; the retry is good."""
    faults = ("crc:1@200", "noise=6:1@220", "truncate=5:1@250", "exception=4:1@270", "silent:1@300")
    controller = program.simulator("KVRT207D", *(part for fault in faults for part in ("--fault", fault)))
    program.use_port(controller)
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    monitor = _show(program)
    program.choose("Communication", "Upload to PC")
    wait_for("the button for the log", lambda: program.shows("BOT_Log"))
    rows = [row for row in _saved(program, monitor, 10) if row["Unit"]]
    _expect_same_bytes(controller, rows)
    seen = [(row["Registers"], row["Result"]) for row in rows]
    assert seen == [("100-120", "good"), ("200-219", "wrong CRC"), ("200-219", "good"),
                    ("220-243", "good, 6 noise bytes before the answer"), ("250-261", "answer cut short"),
                    ("250-261", "good"), ("270-277", "Server device failure (exception 4)"),
                    ("300-307", "no answer"), ("300-307", "good"), ("320-339", "good")], seen


def base_of_the_addresses_shows_in_both_columns(program):
    """A template whose numbers start at 1: the register's number and the address on the wire differ by one."""
    template = program.template("KVRT207D")
    with open(template, "rb") as file:
        text = file.read()
    with open(template, "wb") as file:
        file.write(text.replace(b"[PORT_CONFIGURATION]\r\n", b"[PORT_CONFIGURATION]\r\nADDRESSBASE=1\r\n"))
    controller = _online(program)
    rows = _saved(program, _show(program), 6)
    _expect_same_bytes(controller, rows)
    for row in rows:
        first, count = _range(row["On the wire"])
        assert _range(row["Registers"]) == (first + 1, count), row
        assert modbus.request(_bytes(row)[0])[2:] == (first, count), row


def traffic_goes_to_a_file_and_is_read_again_by_keyboard(program):
    """The file has each exchange, and the monitor shows it again."""
    controller = _online(program)
    path = program.desktop.path("documents", "line.jsonl")
    with Only_Keyboard(program):
        program.pull_down("Communication")
        program.hands.keys("m")
        monitor = program.dialog("ModbusMonitor")
        program.hands.keys("alt+f")
        program.type_file(path)
        monitor = program.dialog("ModbusMonitor")
        wait_for("the file's name", lambda: monitor.part.named("LBL_Count").name.endswith(" rows, to line.jsonl"))
        wait_for("rows in the file", lambda: len(_lines(path)) >= 20)
        program.hands.keys("alt+f")
        wait_for("the end of the file", lambda: monitor.part.named("LBL_Count").name.endswith(" rows"))
        rows = [json.loads(line) for line in _lines(path)]
        program.hands.keys("alt+o")
        program.type_file(path)
        again = program.dialog("TrafficFile")
        expect("what the file holds", lambda: again.part.named("LBL_Count").name, f"{len(rows)} rows")
        table = Table(again.part.named("TBL_Exchanges"))
        for row in (0, len(rows) - 1):
            assert table.cell(row, 2).name == str(rows[row]["unit"]), table.cell(row, 2).name
            assert table.cell(row, 3).name == "3 read", table.cell(row, 3).name
        program.hands.keys("Escape")
        again.wait_until_gone()
    seen = _on_the_line(controller)
    wanted = [(row["sent"], row["received"]) for row in rows]
    assert any(seen[start:start + len(wanted)] == wanted for start in range(len(seen))), f"never seen: {wanted}"


def traffic_goes_to_a_file_and_is_read_again_by_mouse(program):
    _online(program)
    path = program.desktop.path("documents", "line.jsonl")
    program.choose_by_mouse("Communication", "Modbus Monitor")
    monitor = program.dialog("ModbusMonitor")
    to_file = monitor.part.named("BOT_To_File")
    program.hands.click(to_file)
    program.dialog("CommonDialog").choose_file(path, "Save")
    wait_for("rows in the file", lambda: len(_lines(path)) >= 5)
    program.hands.click(to_file)
    wait_for("the end of the file", lambda: monitor.part.named("LBL_Count").name.endswith(" rows"))
    rows = len(_lines(path))
    program.hands.click(monitor.part.named("BOT_Open"))
    program.dialog("CommonDialog").choose_file(path, "Open")
    again = program.dialog("TrafficFile")
    expect("what the file holds", lambda: again.part.named("LBL_Count").name, f"{rows} rows")
    table = Table(again.part.named("TBL_Exchanges"))
    program.hands.click(table.cell(0, 1))
    wait_for("the bytes of the row", lambda: again.part.named("TXT_Bytes").text.startswith("Tx: 01 03 "))


def _lines(path):
    if not os.path.exists(path):
        return []
    with open(path, encoding="utf-8") as file:
        return [line for line in file.read().split("\n") if line]
