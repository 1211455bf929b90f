#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""`zorvanectl listen` on a pseudo-terminal: what it hears, that it sends nothing, and that tshark reads its file.

    listen_test.py PROGRAMS MODELS
"""
import array
import fcntl
import json
import os
import pty
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import termios
import time
import tty
import unittest


def with_crc(frame):
    crc = 0xFFFF
    for byte in frame:
        crc ^= byte
        for _ in range(8):
            crc = (crc >> 1) ^ 0xA001 if crc & 1 else crc >> 1
    return frame + crc.to_bytes(2, "little")


TIOCGEXCL = 0x80045440  # which termios doesn't name
READ = with_crc(bytes([1, 3, 0, 100, 0, 2]))
ANSWER = with_crc(bytes([1, 3, 4, 0, 1, 0, 2]))
WRITE = with_crc(bytes([2, 6, 0, 5, 0, 9]))
REFUSAL = with_crc(bytes([1, 0x83, 2]))


class ListenTest(unittest.TestCase):
    programs = models = ""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.far, self.near = pty.openpty()
        tty.setraw(self.near)
        self.port = os.ttyname(self.near)

    def tearDown(self):
        os.close(self.far)
        os.close(self.near)
        self.folder.cleanup()

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def command(self, *options):
        return [os.path.join(self.programs, "zorvanectl"), "listen", "--port", self.port, "--json", *options]

    def listen(self, stream, *options, before=()):
        """Listens while the bytes go over the line; the line has them in parcels that fit no frame."""
        with subprocess.Popen([*before, *self.command(*options)], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              text=True) as program:
            for at in range(0, len(stream), 700):
                os.write(self.far, stream[at:at + 700])
            out, err = program.communicate(timeout=120)
        return program.returncode, json.loads(out), err

    def test_it_tells_who_asks_what(self):
        code, told, err = self.listen((READ + ANSWER) * 20 + READ + REFUSAL + WRITE, "--frames", "43",
                                      "--template", os.path.join(self.models, "KVRT207D.ZTP"))
        self.assertEqual(code, 0, err)
        self.assertEqual({key: told[key] for key in ("frames", "requests", "answers", "unpaired")},
                         {"frames": 43, "requests": 22, "answers": 21, "unpaired": 1})
        self.assertEqual(set(told), {"frames", "requests", "answers", "unpaired", "load_percent", "units"})
        self.assertEqual([unit["unit"] for unit in told["units"]], [1, 2])
        asked = told["units"][0]["asks"]
        self.assertEqual(len(asked), 1)
        self.assertEqual((asked[0]["registers"], asked[0]["times"], asked[0]["answered"], asked[0]["refused"]),
                         ("100-101", 21, 21, 1))
        self.assertTrue(asked[0]["names"])
        self.assertEqual((told["units"][1]["requests"], told["units"][1]["unpaired"]), (1, 1))

    def test_it_ends_at_its_time_and_at_ctrl_c(self):
        code, told, _ = self.listen(READ + ANSWER, "--seconds", "0.5")
        self.assertEqual((code, told["frames"], told["unpaired"]), (0, 2, 0))
        self.assertEqual(self.ended_by(signal.SIGINT)[:2], (0, ""))

    def test_another_signal_ends_it_with_the_same_report_and_one(self):
        wanted = self.ended_by(signal.SIGINT)
        for number in (signal.SIGTERM, signal.SIGHUP):
            self.assertEqual(self.ended_by(number), (1, *wanted[1:]), number)

    def ended_by(self, number):
        """Exit code, notes, and what was told of an exchange without what differs by time; the file has it, too."""
        path = self.path(f"{number}.pcapng")
        with subprocess.Popen(self.command("--out", path), stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              text=True) as program:
            os.write(self.far, READ + ANSWER)
            self.wait_for_size(path, 150)
            program.send_signal(number)
            out, err = program.communicate(timeout=30)
        told = json.loads(out)
        self.assertEqual(told["frames"], 2)
        counts = {key: told[key] for key in ("frames", "requests", "answers", "unpaired")}
        return program.returncode, err, counts, [unit["unit"] for unit in told["units"]], os.path.getsize(path)

    def wait_for_size(self, path, size):
        for _ in range(1000):
            if os.path.exists(path) and os.path.getsize(path) >= size:
                return
            time.sleep(0.02)
        self.fail(f"{path} has no {size} bytes")

    @unittest.skipUnless(shutil.which("strace"), "strace isn't there")
    def test_it_sends_nothing_and_touches_no_modem_line(self):
        log = self.path("trace")
        code, told, err = self.listen((READ + ANSWER) * 5, "--frames", "10",
                                      # the leak check of a build with sanitizers can't work under a tracer
                                      before=("strace", "-E", "ASAN_OPTIONS=detect_leaks=0", "-f", "-qq", "-o", log, "-e",
                                              "trace=open,openat,write,writev,pwrite64,sendto,ioctl,close,dup,dup2,dup3"))
        self.assertEqual((code, told["frames"]), (0, 10), err)
        with open(log, encoding="utf-8", errors="replace") as file:
            trace = file.read()
        opened = re.findall(re.escape(f'"{self.port}", ') + r"(\S+?)(?:, \d+)?\) += (\d+)", trace)
        self.assertEqual(len(opened), 1, trace[-2000:])
        flags, number = opened[0]
        self.assertIn("O_RDONLY", flags)
        self.assertNotRegex(trace, rf"\b(write|writev|pwrite64|sendto|dup\w*)\({number}\b")
        self.assertNotRegex(trace, r"TIOCM|TIOCSBRK|TIOCSTI|TCSBRK|TCFLSH")

    def test_nobody_else_has_the_line_meanwhile(self):
        def held():
            answer = array.array("i", [0])
            fcntl.ioctl(self.near, TIOCGEXCL, answer)
            return answer[0]

        path = self.path("heard.pcapng")
        with subprocess.Popen(self.command("--out", path), stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              text=True) as program:
            os.write(self.far, READ + ANSWER)
            self.wait_for_size(path, 150)
            self.assertEqual(held(), 1)
            program.send_signal(signal.SIGINT)
            program.communicate(timeout=30)
        self.assertEqual(held(), 0)

    def test_a_line_that_somebody_holds_is_left_alone(self):
        fcntl.ioctl(self.near, termios.TIOCEXCL)
        os.write(self.far, READ + ANSWER)
        code, told, err = self.listen(b"", "--seconds", "1")
        self.assertEqual((code, told["frames"]), (1, 0))
        self.assertIn("Busy: another program has the port open. Close that program and try again.", err)
        self.assertEqual(os.read(self.near, 100), READ + ANSWER)  # nobody took them away

    @unittest.skipUnless(shutil.which("tshark"), "tshark isn't there")
    def test_tshark_reads_its_file(self):
        path = self.path("heard.pcapng")
        code, _, err = self.listen((READ + ANSWER) * 3 + READ + REFUSAL, "--frames", "8", "--out", path)
        self.assertEqual(code, 0, err)
        done = subprocess.run(["tshark", "-r", path, "-T", "fields", "-e", "frame.protocols", "-e", "modbus.func_code",
                               "-e", "mbrtu.unit_id", "-e", "mbrtu.crc16"], capture_output=True, text=True, timeout=60,
                              check=True, env={**os.environ, "HOME": self.folder.name})
        rows = [line.split("\t") for line in done.stdout.splitlines()]
        self.assertEqual(len(rows), 8, done.stdout)
        for protocols, function, unit, _ in rows:
            self.assertIn("mbrtu:modbus", protocols)
            self.assertEqual((function, unit), ("3", "1"))

    def test_frames_are_found_in_much_noise(self):
        dice = random.Random(4)
        stream = b""
        for _ in range(2000):
            stream += dice.randbytes(dice.randrange(11)) + READ + dice.randbytes(dice.randrange(11)) + ANSWER
        code, told, err = self.listen(stream, "--seconds", "3")
        self.assertEqual(code, 0, err)
        self.assertGreaterEqual(told["frames"], 3996)
        self.assertLessEqual(told["frames"], 4004)
        self.assertLessEqual(told["unpaired"], 40)

    def test_what_cannot_be_done_is_one(self):
        done = subprocess.run([*self.command("--seconds", "1"), "--port", "/dev/nowhere"], capture_output=True, text=True,
                              timeout=30, check=False)
        self.assertEqual(done.returncode, 2)  # two ports
        self.port = "/dev/nowhere"
        done = subprocess.run(self.command("--seconds", "1"), capture_output=True, text=True, timeout=30, check=False)
        self.assertEqual((done.returncode, json.loads(done.stdout)["frames"]), (1, 0))
        self.assertIn("The port /dev/nowhere: No such port", done.stderr)

    def test_a_port_on_a_network_is_refused(self):
        self.port = "tcp:127.0.0.1:502"
        done = subprocess.run(self.command("--seconds", "1"), capture_output=True, text=True, timeout=30, check=False)
        self.assertEqual((done.returncode, json.loads(done.stdout)["frames"]), (1, 0))
        self.assertIn("only a serial port can be listened to", done.stderr)

    def test_a_wrong_command_line_is_two(self):
        for options in (["--seconds", "nan"], ["--seconds", "-1"], ["--frames", "0"], ["--frames", "1e3"], ["--settings", "9600"]):
            done = subprocess.run(self.command(*options), capture_output=True, text=True, timeout=30, check=False)
            self.assertEqual((done.returncode, done.stdout), (2, ""), options)

    def test_a_file_that_cannot_be_written_is_one(self):
        done = subprocess.run(self.command("--seconds", "1", "--out", self.path("no/where.pcapng")), capture_output=True,
                              text=True, timeout=30, check=False)
        self.assertEqual((done.returncode, json.loads(done.stdout)["frames"]), (1, 0))
        self.assertIn("can't be written", done.stderr)


if __name__ == "__main__":
    ListenTest.models = sys.argv.pop()
    ListenTest.programs = sys.argv.pop()
    unittest.main()
