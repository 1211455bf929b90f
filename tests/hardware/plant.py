# SPDX-License-Identifier: MIT
"""The controllers at the adapters, simulated on this side, and the documents of them."""
import json
import os
import subprocess
import time

FIRST = 100  # the register of the first set point
SET_POINTS = 24
READINGS = (90, 91)  # polled

TEMPLATE = "\r\n".join([
    "[HARDWARE]", "CONTROLLER=PUMP",
    "[IDENTITY]", "REGISTER_1=80", "VALUE_1=2207", "WHAT_1=Board type", "SERIAL=81",
    "[PORT_CONFIGURATION]", "COMMUNICATIONS_1_REQUEST=20", "COMMUNICATIONS_1_OUT=1000", "HOLDINGREGISTERS=400",
    "HOLDINGREGISTERSBLOCK_1=90-91", "HOLDINGREQUESTBLOCK_1=ALWAYS", "HOLDINGREGISTERSBLOCK_2=80-81",
    *(f"HOLDINGREGISTERSBLOCK_{n + 3}={FIRST + 3 * n}-{FIRST + 3 * n + 2}" for n in range(SET_POINTS // 3)),
    "[CONFIGURATION_COLUMNS]", "CONFIGURATION_NC=2", "COL_1_DESC=No.",
    "[CONFIGURATION_FIELDS]", "FIELD_1_DESC=Readings", "FIELD_1_RC=2,2", "FIELD_2_DESC=Set points",
    f"FIELD_2_RC={SET_POINTS},2",
    "[FIELD_1_COLUMNS]", "COL_1_DESC=Quantity", "COL_2_DESC=Value", "COL_2_MDBUSREQUEST=ALWAYS",
    "[FIELD_1_CONFIGURATION]", "ROWADDRESS_1=,90", "ROWADDRESS_2=,91",
    "[FIELD_2_COLUMNS]", "COL_1_DESC=Name", "COL_2_DESC=Value", "COL_2_MODIFIABLE=YES",
    "[FIELD_2_CONFIGURATION]", *(f"ROWADDRESS_{n + 1}=,{FIRST + n}" for n in range(SET_POINTS)), ""])


def document(first):
    """Set points that count up from `first`."""
    return "\r\n".join(["[Configuration_Default]", "FIELD_1=,Readings", "FIELD_2=,Set points", "",
                        "[Field_1_Default]", "ROW_1=Pressure,0", "ROW_2=Flow,0", "",
                        "[Field_2_Default]",
                        *(f"ROW_{n + 1}=Set point {n + 1},{first + n}" for n in range(SET_POINTS)), ""])


def set_points(first):
    return {FIRST + n: first + n for n in range(SET_POINTS)}


class Controller:
    """zorvane-sim on the loopback, with frames of a serial line."""

    def __init__(self, programs, folder, name, serial):
        self.log_file = os.path.join(folder, name + ".log")
        held = {"80": 2207, "81": serial, "90": 400 + serial, "91": 70} | {str(number): 0 for number in set_points(0)}
        files = {"PUMP.ZTP": TEMPLATE, name + ".PUMP": document(0), name + ".json": json.dumps(held)}
        for file_name, text in files.items():
            with open(os.path.join(folder, file_name), "w", encoding="cp1252", newline="") as file:
                file.write(text)
        self.process = subprocess.Popen(
            [os.path.join(programs, "zorvane-sim"), "--template", os.path.join(folder, "PUMP.ZTP"),
             "--config", os.path.join(folder, name + ".PUMP"), "--registers", os.path.join(folder, name + ".json"),
             "--tcp", "0", "--rtu-over-tcp", "--turnaround", "20", "--log", self.log_file],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True)
        ready = self.process.stdout.readline()
        self.address = ("127.0.0.1", int(ready.rsplit(":", 1)[1]))

    def frames(self, direction):
        """The frames so far, a line each; the last may still be growing."""
        with open(self.log_file, encoding="utf-8") as file:
            whole = file.read().rpartition("\n")[0]
        return [frame for frame in map(json.loads, whole.splitlines()) if frame.get("direction") == direction]

    def wait_for_requests(self, count, function=None, seconds=30):
        """Until so many requests have come, or those of a function; false when they don't."""
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            if self.requests(function) >= count:
                return True
            time.sleep(0.01)
        return False

    def requests(self, function=None):
        return sum(1 for frame in self.frames("in") if function in (None, frame.get("function")))

    def held(self):
        """The set points as the writes have left them, from the log alone: nothing of the product tells it."""
        registers = {number: 0 for number in set_points(0)}
        for frame in self.frames("out"):
            if frame.get("function") in (6, 16) and "exception" not in frame:
                for offset, value in enumerate(frame["values"]):
                    registers[frame["address"] + offset] = value
        return registers

    def stop(self):
        self.process.terminate()
        self.process.wait()
        self.process.stdout.close()
