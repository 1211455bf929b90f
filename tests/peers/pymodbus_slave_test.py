#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Talks raw bytes to pymodbus_slave.py."""

import json
import os
import select
import signal
import subprocess
import sys
import tempfile
import tty
import unittest

SLAVE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "pymodbus_slave.py")


def sealed(*body):
    crc = 0xFFFF
    for byte in body:
        crc ^= byte
        for _ in range(8):
            crc = (crc >> 1) ^ 0xA001 if crc & 1 else crc >> 1
    return bytes(body) + bytes((crc & 255, crc >> 8))


class PymodbusSlaveTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.line = os.path.join(self.folder.name, "line")
        self.dump = os.path.join(self.folder.name, "dump.json")
        registers = os.path.join(self.folder.name, "registers.json")
        with open(registers, "w", encoding="utf-8") as file:
            json.dump({"40001": 1000, "40002": 1001, "40003": 1002}, file)
        self.process = subprocess.Popen(
            [sys.executable, SLAVE, self.line, "--registers", registers, "--dump", self.dump, "--address-base", "40001"],
            stdout=subprocess.PIPE)
        self.assertEqual(self.process.stdout.readline().decode(), f"ready {self.line}\n")
        self.client = os.open(self.line, os.O_RDWR | os.O_NOCTTY)
        tty.setraw(self.client)

    def tearDown(self):
        os.close(self.client)
        self.process.kill()
        self.process.wait()
        self.process.stdout.close()
        self.folder.cleanup()

    def ask(self, request, count, timeout=5):
        os.write(self.client, request)
        answer = b""
        while len(answer) < count and select.select([self.client], [], [], timeout)[0]:
            answer += os.read(self.client, count - len(answer))
        return answer

    def end(self):
        self.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.process.wait(), 0)
        self.assertFalse(os.path.islink(self.line))
        with open(self.dump, encoding="utf-8") as file:
            return json.load(file)

    def test_reads_and_writes(self):
        self.assertEqual(self.ask(sealed(1, 3, 0, 0, 0, 2), 9), sealed(1, 3, 4, 0x03, 0xE8, 0x03, 0xE9))
        self.assertEqual(self.ask(sealed(1, 6, 0, 0, 0, 7), 8), sealed(1, 6, 0, 0, 0, 7))
        self.assertEqual(self.ask(sealed(1, 16, 0, 1, 0, 2, 4, 0, 8, 0, 9), 8), sealed(1, 16, 0, 1, 0, 2))
        self.assertEqual(self.end(), {"40001": 7, "40002": 8, "40003": 9})

    def test_refuses_unknown_registers(self):
        self.assertEqual(self.ask(sealed(1, 3, 0, 2, 0, 2), 5), sealed(1, 0x83, 2))

    def test_takes_a_broadcast_without_an_answer(self):
        os.write(self.client, sealed(0, 6, 0, 0, 0, 7))
        self.assertEqual(self.ask(sealed(1, 3, 0, 0, 0, 1), 7), sealed(1, 3, 2, 0, 7))

    def test_half_a_request_does_not_spoil_the_next(self):
        os.write(self.client, sealed(1, 3, 0, 0, 0, 2)[:5])
        answer = b""
        for _ in range(10):
            answer = self.ask(sealed(1, 3, 0, 0, 0, 1), 7, 0.2)
            if answer:
                break
        self.assertEqual(answer, sealed(1, 3, 2, 0x03, 0xE8))

    def test_dumps_what_it_holds(self):
        self.assertEqual(self.end(), {"40001": 1000, "40002": 1001, "40003": 1002})


if __name__ == "__main__":
    unittest.main()
