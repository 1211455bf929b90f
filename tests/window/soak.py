#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Polls a controller with faults for a long time, through the real window.

    soak.py PROGRAMS [--minutes N] [--seed N] [--monitor]

One of ten exchanges goes wrong in some way, at about ten times the usual pace. Every value that the window shows must
be one that the controller sent for that very register a moment ago, or "???" while the line is lost. Every few seconds
a value is typed: one that the window calls written must be what the controller has, and after a failure the old one
must stand in the cell again. Each minute a line tells the resident memory of the window. Exit code 1 when a value was
wrong, the window stopped following the controller, or memory grew by more than a twentieth after the first three
minutes. With --monitor the monitor is open all the time and writes the traffic to a file, which must hold every request
that the controller saw since then.
"""
import argparse
import collections
import json
import os
import sys
import time

from driver.desktop import Desktop
from driver.line_model import SET_DISTANCE, Line_Model
from driver.waiting import Vanished, wait_for
from driver.zorvane import Zorvane

BLOCKS, REGISTERS = 4, 50
PAUSE_MS = 2
# A wrong echo strikes writes only, which are few.
FAULTS = ("silent:1%", "late=60:1.2%", "late=150:0.8%", "crc:1.3%", "truncate=5:1%", "noise=7:1%", "wrong-unit:1%",
          "short:1%", "exception=4:0.8%", "echo:0.8%", "busy=1000000:0.8%", "wrong-echo:20%", "unplug=300:0.05%")
TIME_OUT_MS = 100
SET_COLUMN = 2
# After an edit the row below is current. A click there would move nothing, and nobody would be told of it.
SET_ROWS = (0, 2, 4, 6)
WRITE_EVERY_S = 6.0
WRITE_ENDS_S = 5.0
LOST = "???"
# What the window shows is at most one pass of the scan and one refresh old; the rest is for a busy machine.
LAG_S = 5.0
LONGEST_STILL_S = 30.0
MOST_GROWTH = 0.05


class Sent_Values:
    """What the simulated controller sent for each register, from its log, the last few seconds of it."""

    def __init__(self, path):
        self._file = open(path, encoding="utf-8")
        self._rest = ""
        self._sent = collections.defaultdict(collections.deque)
        self.requests = 0
        self.taken = {}
        self.faults = collections.Counter()

    def follow(self):
        now = time.monotonic()
        lines = (self._rest + self._file.read()).split("\n")
        self._rest = lines.pop()
        for line in lines:
            self._take(json.loads(line), now)

    def _take(self, frame, now):
        if frame.get("direction") == "in":
            self.requests += 1
            if "fault" in frame:
                self.faults[frame["fault"].split(":")[0]] += 1
            if frame.get("taken"):
                self.taken.update(enumerate(frame["values"], frame["address"]))
        elif "address" in frame:
            for address, value in enumerate(frame.get("values", []), frame["address"]):
                self._note(self._sent[address], value, now)

    @staticmethod
    def _note(values, value, now):
        """The newest one stays, however old it is: nothing else was sent since."""
        values.append((now, value))
        while values[0][0] < now - LAG_S and len(values) > 1:
            values.popleft()

    def lately(self, address):
        """The values of the last seconds, and the one before them."""
        return {value for _, value in self._sent[address]}


class Soak:
    def __init__(self, program, seed):
        self.program = program
        model = Line_Model(program.folder, BLOCKS, REGISTERS, in_one_field=True, pause_ms=PAUSE_MS, with_set=True)
        self.addresses = model.addresses
        faults = [part for fault in FAULTS for part in ("--fault", fault)]
        controller = program.simulator("LINETEST", *model.options(), "--seed", str(seed), *faults)
        self.sent = Sent_Values(controller.log)
        program.use_port(controller, Retries="2", TimeOut=str(TIME_OUT_MS))
        program.start()
        program.open(model.document(program.desktop.path("documents", "site.linetest")))
        program.expect_title("site.linetest - Zorvane")
        self._go_online()
        self.cells = []
        self.checked = self.lost = 0
        self.wrong = []
        self.before = {}
        self.longest_still = 0.0
        self.written = self.failed = self.interrupted = self.tries = 0
        self.wrote_at = 0.0
        self.requests_before = 0
        program.enlarge()

    def record_traffic(self):
        """Opens the monitor, and has it write to a file."""
        program = self.program
        program.choose("Communication", "Modbus Monitor")
        monitor = program.dialog("ModbusMonitor")
        program.hands.place_window(40, 950, 900, 60)  # below the main window, whose cells are clicked on
        path = program.desktop.path("traffic", "line.jsonl")
        monitor.part.named("BOT_To_File").toggle()
        program.dialog("CommonDialog").choose_file(path, "Save")
        wait_for("traffic in the file", lambda: os.path.exists(path) and os.path.getsize(path))
        self.sent.follow()
        self.traffic, self.requests_before = os.path.dirname(path), self.sent.requests

    def recorded(self):
        """Exchanges in the files of the traffic; every line must be one of them, stray bytes or a note."""
        kinds = collections.Counter()
        for name in os.listdir(self.traffic):
            with open(os.path.join(self.traffic, name), encoding="utf-8") as file:
                kinds.update(json.loads(line)["kind"] for line in file)
        assert set(kinds) <= {"exchange", "stray", "note"}, kinds
        return kinds["exchange"]

    def _go_online(self):
        """An upload that met a fault stays offline; a clean one goes online."""
        def online():
            program = self.program
            if program.panel(2) == "Online":
                return True
            if program.has_dialog("Porcentaje"):
                try:
                    progress = program.dialog("Porcentaje")
                    if "Ok" in progress.buttons():
                        progress.answer("Ok")
                except AssertionError:
                    pass  # it went by itself
            elif program.is_enabled("Communication", "Upload to PC"):
                program.choose("Communication", "Upload to PC")
            return False
        wait_for("a clean upload", online, 120)

    def look(self):
        """Checks every value that is shown."""
        table = self.program.settings
        if len(self.cells) != table.row_count:
            self.cells = [table.cell(row, 1) for row in range(table.row_count)]
        now = time.monotonic()
        self.sent.follow()
        allowed = [self.sent.lately(address) for address in self.addresses]
        shown = [cell.name for cell in self.cells]
        self.sent.follow()
        for address, text, old in zip(self.addresses, shown, allowed):
            self.checked += 1
            if text == LOST:
                self.lost += 1
            elif text not in {str(value) for value in old | self.sent.lately(address)}:
                self.wrong.append((address, text, sorted(old)))
            self._follow_cell(address, text, now)

    def _follow_cell(self, address, text, now):
        """How long a cell kept its text: all of them move with each reading, and most readings differ."""
        old_text, since = self.before.get(address, ("", now))
        if text != old_text:
            since = now
        self.before[address] = (text, since)
        self.longest_still = max(self.longest_still, now - since)

    def write(self):
        """Types a value from time to time. The form of a lost line may take the keyboard meanwhile."""
        if time.monotonic() - self.wrote_at < WRITE_EVERY_S or self.program.panel(2) != "Online":
            return
        row, value = SET_ROWS[self.tries % len(SET_ROWS)], 1 + self.tries % 30000
        old = self.program.settings.cell(row, SET_COLUMN).name
        self.tries += 1
        began = time.monotonic()
        try:
            self.program.enter(row, SET_COLUMN, str(value))
            end = wait_for("the end of the write", lambda: self._end_of_write(row, value), WRITE_ENDS_S)
        except AssertionError as failure:
            self.interrupted += 1
            print(f"not written: {failure}", flush=True)
            self.program.hands.keys("Escape")
        else:
            self._check_write(row, value, old, end)
        self.wrote_at = time.monotonic()
        # Nobody looked at the other cells meanwhile.
        self.before = {address: (text, since + self.wrote_at - began) for address, (text, since) in self.before.items()}

    def _end_of_write(self, row, value):
        line = self.program.panel(4)
        begun = f"Write: {value} @{self.addresses[row] + SET_DISTANCE} ..."
        return line.removeprefix(begun) if line.startswith(begun) and not line.endswith("Pending") else None

    def _check_write(self, row, value, old, end):
        """A failed write may have been taken all the same: its answer went wrong."""
        self.sent.follow()
        address = self.addresses[row] + SET_DISTANCE
        shown = self.program.settings.cell(row, SET_COLUMN).name
        good = end == "Completed"
        self.written += good
        self.failed += not good
        if good and self.sent.taken.get(address) != value:
            self.wrong.append((address, f"{value} called written", [self.sent.taken.get(address)]))
        if shown != (str(value) if good else old):
            self.wrong.append((address, shown, [value if good else old]))

    def memory_mb(self):
        with open(f"/proc/{self.program.process.pid}/status", encoding="ascii") as status:
            return next(int(line.split()[1]) for line in status if line.startswith("VmRSS")) / 1024

    def tell(self, started, memory):
        seconds = time.monotonic() - started
        faulty = sum(self.sent.faults.values())
        print(f"{seconds / 60:5.1f} min: {memory:6.1f} MB, {self.sent.requests} requests "
              f"({self.sent.requests / seconds:.0f} a second, {100 * faulty / max(self.sent.requests, 1):.1f} % faulty), "
              f"{self.checked} values seen, {self.lost} lost, {self.written} written, {self.failed} not, "
              f"{len(self.wrong)} wrong", flush=True)


def run(soak, minutes):
    """Looks until the time is over. The memory of each minute is told; the last and that after the start are given."""
    started = time.monotonic()
    warm = started + min(180, minutes * 60 / 6)
    end = started + minutes * 60
    first = None
    told = started
    while time.monotonic() < end:
        if soak.program.process.poll() is not None:
            raise SystemExit(f"the window ended with exit code {soak.program.process.returncode}")
        try:
            soak.look()
            soak.write()
        except Vanished as gone:
            print(f"not seen: {gone}", flush=True)
        now = time.monotonic()
        if first is None and now >= warm:
            first = soak.memory_mb()
            soak.tell(started, first)
        if now - told >= 60:
            soak.tell(started, soak.memory_mb())
            told = now
        time.sleep(max(0.0, 1 - (time.monotonic() - now)))
    last = soak.memory_mb()
    soak.tell(started, last)
    return first, last


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs")
    parser.add_argument("--minutes", type=float, default=60)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--monitor", action="store_true")
    options = parser.parse_args()
    with Desktop() as desktop:
        soak = Soak(Zorvane(desktop, os.path.abspath(options.programs)), options.seed)
        if options.monitor:
            soak.record_traffic()
        first, last = run(soak, options.minutes)
        soak.program.stop()
        soak.sent.follow()
        asked = soak.sent.requests - soak.requests_before if options.monitor else 0
        told = soak.recorded() if options.monitor else 0
    growth = last / first - 1
    print("faults:", ", ".join(f"{name} {count}" for name, count in sorted(soak.sent.faults.items())))
    print(f"memory: {first:.1f} MB after the start, {last:.1f} MB at the end, {100 * growth:+.1f} %")
    print(f"longest time that a cell kept its text: {soak.longest_still:.1f} s; "
          f"{soak.interrupted} edits cut short by another window")
    if options.monitor:
        print(f"traffic: {told} exchanges in the file, {asked} requests at the controller")
    for address, text, sent in soak.wrong[:20]:
        print(f"wrong: register {address} showed {text!r}, sent were {sent}")
    good = told >= asked and not soak.wrong and growth <= MOST_GROWTH and soak.longest_still < LONGEST_STILL_S
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
