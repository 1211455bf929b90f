#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Sends that are struck at a random moment, with real processes: the program is killed, the controller loses its power or
its line, or falls silent. Whatever happens: no value is called verified that the controller doesn't hold, at most one
write is in doubt, going on reaches the registers of an undisturbed send, and taking back those from before.

    sending_storm.py PROGRAMS [ROUNDS [FIRST]]

Half of the rounds are against zorvane-sim, half against a slave by pymodbus; what the controller holds is read by pymodbus.
ROUNDS is 8 unless given, here or by ZORVANE_STORM; several storms may run beside each other. A round's seed is its number, from FIRST on, so one that failed can be
run again.
"""
import collections
import json
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from pymodbus.client import ModbusSerialClient

SLAVE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "pymodbus_slave.py")
FIRST, COUNT, MARK = 100, 12, 130
SETTINGS = ("--settings", "115200,n,8,1")
TEMPLATE = f"""[HARDWARE]
CONTROLLER=STORM
[PORT_CONFIGURATION]
COMMUNICATIONS_1_REQUEST=1
COMMUNICATIONS_1_OUT=150
HOLDINGREGISTERSBLOCK_1={FIRST}-{FIRST + COUNT - 1}
HOLDINGREQUESTBLOCK_1=ALWAYS
[CONFIGURATION_FIELDS]
FIELD_1_DESC=Levels
FIELD_1_RC={COUNT},2
[FIELD_1_COLUMNS]
COL_1_DESC=Name
COL_2_DESC=Level
COL_2_TYPE=NUMERIC
COL_2_MODIFIABLE=YES
COL_2_MDBUSREQUEST=ALWAYS
[FIELD_1_CONFIGURATION]
""" + "".join(f"ROWADDRESS_{row + 1}=,{FIRST + row}\n" for row in range(COUNT)) + f"""[IDENTITY]
REGISTER_1={MARK}
VALUE_1=7
"""
DOCUMENT = "[Configuration_Default]\nFIELD_1=,Levels\n\n[Field_1_Default]\n" + "".join(
    f"ROW_{row + 1}=level,{row + 50}\n" for row in range(COUNT))
BEFORE = {FIRST + row: row for row in range(COUNT)}
AFTER = {FIRST + row: row + 50 for row in range(COUNT)}
STRIKES = ("kill", "power", "silence", "unplug")


class Controller:
    """The process at the far end; `stop` takes its line away, `start` brings it back with what it held."""

    def __init__(self, folder, command, dies):
        self.port = os.path.join(folder, "port")
        self._command = command
        self._dies = dies  # by which signal it loses its power without losing what it stored
        self.process = None

    def start(self):
        if os.path.islink(self.port):
            os.unlink(self.port)
        self.process = subprocess.Popen(self._command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        line = self.process.stdout.readline()
        assert line.startswith(b"ready"), line

    def stop(self):
        """Its name goes first: the pseudo-terminal behind it may be another round's at once."""
        if self._dies == signal.SIGKILL:
            os.unlink(self.port)
        self.process.send_signal(self._dies)
        self.process.wait()
        self.process.stdout.close()

    def held(self):
        """Its registers, as pymodbus reads them."""
        client = ModbusSerialClient(port=self.port, baudrate=115200, timeout=2, retries=3)
        assert client.connect(), "pymodbus can't open the line"
        try:
            for _ in range(5):
                answer = client.read_holding_registers(FIRST, COUNT, slave=1)
                if hasattr(answer, "registers"):
                    return dict(zip(range(FIRST, FIRST + COUNT), answer.registers))
                assert not answer.isError(), answer  # else the late answer to a program that was killed
            raise AssertionError(f"no answer to the reading: {answer}")
        finally:
            client.close()


class Round:
    def __init__(self, programs, seed, folder):
        self.seed = seed
        self.dice = random.Random(seed)
        self.folder = folder
        self.ctl_path = os.path.join(programs, "zorvanectl")
        self.template = self.file("STORM.ZTP", TEMPLATE)
        self.document = self.file("site.STORM", DOCUMENT)
        self.controller = self._simulator(programs) if seed % 2 == 0 else self._pymodbus()

    def file(self, name, text):
        path = os.path.join(self.folder, name)
        with open(path, "w", encoding="cp1252", newline="\r\n" if name.endswith("STORM") else "\n") as file:
            file.write(text)
        return path

    def _simulator(self, programs):
        held = self.file("held.json", json.dumps({**BEFORE, MARK: 7}))
        return Controller(self.folder, [os.path.join(programs, "zorvane-sim"), "--template", self.template, "--registers", held,
                                        "--pty", os.path.join(self.folder, "port"), "--storage",
                                        os.path.join(self.folder, "storage.json")], signal.SIGKILL)

    def _pymodbus(self):
        held = self.file("held.json", json.dumps({**BEFORE, MARK: 7}))
        return Controller(self.folder, [sys.executable, SLAVE, os.path.join(self.folder, "port"), "--registers", held, "--dump",
                                        held], signal.SIGTERM)

    def call(self, name, *arguments):
        command = [self.ctl_path, name, *arguments, "--port", self.controller.port, *SETTINGS, "--json"]
        return subprocess.Popen(command, env={**os.environ, "XDG_STATE_HOME": os.path.join(self.folder, "state")},
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)

    @staticmethod
    def end_of(program):
        out, err = program.communicate(timeout=120)
        return program.returncode, json.loads(out) if out.strip() else None, err

    def run_folder(self):
        runs = os.path.join(self.folder, "state", "zorvane", "runs")
        names = sorted(os.listdir(runs)) if os.path.isdir(runs) else []
        return os.path.join(runs, names[-1]) if names else None

    def journal(self):
        """The whole lines of the journal, so far."""
        folder = self.run_folder()
        path = folder and os.path.join(folder, "journal")
        if not path or not os.path.exists(path):
            return []
        with open(path, encoding="utf-8") as file:
            return [json.loads(line[9:]) for line in file if line.endswith("\n")]

    def wait_for_lines(self, wanted, program):
        while len(self.journal()) < wanted and program.poll() is None:
            time.sleep(0.001)

    def strike(self, program):
        kind = self.dice.choice(STRIKES)
        if kind == "kill":
            program.kill()
        elif kind == "silence":
            self.controller.process.send_signal(signal.SIGSTOP)
            time.sleep(self.dice.uniform(0.1, 1.5))
            self.controller.process.send_signal(signal.SIGCONT)
        else:
            self.controller.stop()
            time.sleep(self.dice.uniform(0.0, 1.0) if kind == "power" else 0)
            self.controller.start()
        return kind

    def check_verified(self, told, held):
        for row in (told or {}).get("rows", []):
            if row["state"] == "verified":
                assert held[int(row["register"])] == row["sent"], f"falsely verified: {row}, held {held}"

    def check_doubt(self):
        open_intents = set()
        for record in self.journal():
            if record["event"] == "write":
                open_intents.add(record["write"])
            elif record["event"] == "answer":
                open_intents.discard(record["write"])
        assert len(open_intents) <= 1, f"{len(open_intents)} writes in doubt"

    def go(self):
        self.controller.start()
        try:
            program = self.call("send", self.template, self.document, "--yes")
            self.wait_for_lines(self.dice.randrange(0, 2 * COUNT + 4), program)
            kind = self.strike(program)
            _, told, _ = self.end_of(program)
            held = self.controller.held()
            self.check_verified(told, held)
            if self.run_folder() is None:
                assert held == BEFORE, held
                return kind, "nothing begun"
            self.check_doubt()
            name, wanted = self.dice.choice((("resume", AFTER), ("restore", BEFORE)))
            code, told, err = self.end_of(self.call(name, "last"))
            held = self.controller.held()
            self.check_verified(told, held)
            assert (code, held) == (0, wanted), f"{name} ended with {code}: {err}, held {held}"
            return kind, name
        finally:
            self.controller.stop()


def main(programs, rounds, first):
    seen = collections.Counter()
    begun = time.monotonic()
    for seed in range(first, first + rounds):
        folder = tempfile.mkdtemp(prefix="storm-")
        try:
            seen[Round(programs, seed, folder).go()] += 1
        except BaseException:
            print(f"round {seed} failed; its files are in {folder}", file=sys.stderr)
            raise
        shutil.rmtree(folder)
    for (kind, end), count in sorted(seen.items()):
        print(f"{count:6} x {kind}, then {end}")
    print(f"{rounds} rounds from seed {first}: 0 falsely verified, at most 1 write in doubt "
          f"({time.monotonic() - begun:.0f} s)")


if __name__ == "__main__":
    main(os.path.abspath(sys.argv[1]), int(sys.argv[2] if len(sys.argv) > 2 else os.environ.get("ZORVANE_STORM", "8")),
         int(sys.argv[3]) if len(sys.argv) > 3 else 0)
