#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""zorvanectl on a pseudo-terminal with a controller of a few lines that shares no code with ours, and a bad line:
noise, answers later than the time-out, second copies, a second master.

    hostile_line_test.py ZORVANECTL
"""

import heapq
import json
import os
import random
import select
import subprocess
import sys
import tempfile
import threading
import time
import tty
import unittest

ZORVANECTL = None
BLOCKS, REGISTERS = 4, 5
FIRST = 100
TIME_OUT = 0.2


def sealed(body):
    crc = 0xFFFF
    for byte in body:
        crc ^= byte
        for _ in range(8):
            crc = (crc >> 1) ^ 0xA001 if crc & 1 else crc >> 1
    return bytes(body) + bytes((crc & 255, crc >> 8))


def value_of(register):
    return register * 7 + 3


def template(path):
    lines = ["[HARDWARE]", "CONTROLLER=HOSTILE", "[PORT_CONFIGURATION]", "COMMUNICATIONS_1_REQUEST=0",
             "COMMUNICATIONS_1_OUT=0", "COMMUNICATIONS_1_SIZE=64", "HOLDINGREGISTERS=200"]
    for block in range(BLOCKS):
        first = FIRST + block * REGISTERS
        lines.append(f"HOLDINGREGISTERSBLOCK_{block + 1}={first}-{first + REGISTERS - 1}")
    lines += [f"HOLDINGREQUESTBLOCK_{block + 1}=NONE" for block in range(BLOCKS)]
    count = BLOCKS * REGISTERS
    lines += ["[CONFIGURATION_COLUMNS]", "NUMERIC_ROWS=YES", "CONFIGURATION_NC=2", "COL_1_DESC=No.",
              "COL_1_WIDTH=450", "COL_1_TYPE=NUMERIC", "COL_2_DESC=Field", "COL_2_WIDTH=1600", "COL_2_TYPE=ASCII",
              "[CONFIGURATION_FIELDS]", "FIELD_1_DESC=All", f"FIELD_1_RC={count},1", "[FIELD_1_COLUMNS]",
              "COL_1_DESC=Value", "COL_1_WIDTH=1100", "COL_1_TYPE=NUMERIC", "COL_1_MODIFIABLE=YES",
              "[FIELD_1_CONFIGURATION]"]
    lines += [f"ROWADDRESS_{row}={FIRST + row - 1}" for row in range(1, count + 1)]
    lines += ["[CONFIGURATION_DEFAULT]", "FIELD_1=,All", "[FIELD_1_DEFAULT]"]
    lines += [f"ROW_{row}={row}" for row in range(1, count + 1)]
    with open(path, "w", encoding="ascii", newline="") as file:
        file.write("\r\n".join(lines) + "\r\n")


class Controller(threading.Thread):
    """Answers functions 3 and 6 of unit 1. `script(controller, request, answer)` says what goes out and when."""

    def __init__(self, script):
        super().__init__(daemon=True)
        self.far, self.near = os.openpty()
        tty.setraw(self.near)
        self.line = os.ttyname(self.near)
        self.script = script
        self.planned = []
        self.requests = 0
        self.written = {}
        self.ended = False

    def send_at(self, when, data):
        heapq.heappush(self.planned, (when, data))

    def answer(self, request):
        first = request[2] * 256 + request[3]
        if request[1] == 6:
            self.written[first] = request[4] * 256 + request[5]
            return request
        body = [1, 3, 2 * request[5]]
        for register in range(first, first + request[5]):
            body += divmod(value_of(register), 256)
        return sealed(body)

    def run(self):
        heard = b""
        while not self.ended:
            now = time.monotonic()
            while self.planned and self.planned[0][0] <= now:
                os.write(self.far, heapq.heappop(self.planned)[1])
            wait = min(0.05, self.planned[0][0] - now if self.planned else 0.05)
            if not select.select([self.far], [], [], max(0, wait))[0]:
                continue
            heard += os.read(self.far, 512)
            while len(heard) >= 8:
                request, heard = heard[:8], heard[8:]
                self.requests += 1
                self.script(self, request, self.answer(request))

    def end(self):
        self.ended = True
        self.join()
        os.close(self.far)
        os.close(self.near)


class HostileLine(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.template = os.path.join(self.folder.name, "HOSTILE.ZTP")
        self.document = os.path.join(self.folder.name, "A.HOSTILE")
        self.registers = os.path.join(self.folder.name, "registers.json")
        template(self.template)
        open(self.document, "wb").close()

    def tearDown(self):
        self.folder.cleanup()

    def call(self, command, script, *options):
        controller = Controller(script)
        controller.start()
        environment = dict(os.environ, HOME=self.folder.name, XDG_STATE_HOME=self.folder.name,
                           XDG_CONFIG_HOME=self.folder.name)
        try:
            done = subprocess.run(
                [ZORVANECTL, command, self.template, self.document, "--port", controller.line, "--settings",
                 "9600,n,8,1", "--timeout", str(int(TIME_OUT * 1000)), *options],
                capture_output=True, text=True, timeout=120, env=environment, check=False)
        finally:
            controller.end()
        return done, controller

    def upload(self, script, *options):
        done, controller = self.call("upload", script, "--registers", self.registers, *options)
        read = {}
        if os.path.exists(self.registers):
            with open(self.registers, encoding="ascii") as file:
                read = {int(register): value for register, value in json.load(file).items()}
        wrong = {register: value for register, value in read.items() if value != value_of(register)}
        return done, controller, read, wrong

    def test_noise_behind_good_answers_is_no_unplugged_adapter(self):
        chance = random.Random(14)

        def script(controller, _request, answer):
            now = time.monotonic()
            controller.send_at(now, answer)
            controller.send_at(now + 0.006 + 0.006 * chance.random(), b"\xa5\x5a\x00\xff\x11")

        for _ in range(8):
            done, controller = self.call("download", script)
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertEqual(len(controller.written), BLOCKS * REGISTERS)

    def test_answers_of_more_than_two_time_outs_bring_no_wrong_value(self):
        for factor in (2.3, 2.5, 2.9):
            def script(controller, _request, answer, factor=factor):
                controller.send_at(time.monotonic() + factor * TIME_OUT, answer)

            done, _, read, wrong = self.upload(script)
            self.assertEqual(wrong, {}, done.stderr)
            if done.returncode == 0:
                self.assertEqual(len(read), BLOCKS * REGISTERS, done.stderr)
            else:
                self.assertIn("does not respond", done.stderr)

    def test_a_second_copy_of_each_answer_brings_no_wrong_value(self):
        for delay in (0, 0.014):
            def script(controller, _request, answer, delay=delay):
                now = time.monotonic()
                controller.send_at(now + delay, answer)
                controller.send_at(now + delay + 0.015, answer)

            done, _, read, wrong = self.upload(script)
            self.assertEqual(wrong, {}, done.stderr)
            self.assertEqual(len(read), BLOCKS * REGISTERS, done.stderr)

    def test_another_masters_answers_bring_no_wrong_value(self):
        other = sealed([1, 3, 0, 150, 0, REGISTERS])

        def script(controller, request, answer):
            now = time.monotonic()
            controller.send_at(now, answer)
            if controller.requests % 2 == 1:
                controller.send_at(now + 0.002, other)
                controller.send_at(now + 0.020, controller.answer(other))

        done, _, read, wrong = self.upload(script)
        self.assertEqual(wrong, {}, done.stderr)
        self.assertEqual(len(read), BLOCKS * REGISTERS, done.stderr)


if __name__ == "__main__":
    ZORVANECTL = sys.argv.pop(1)
    unittest.main()
