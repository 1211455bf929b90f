#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""`zorvanectl find` on pseudo-terminals: against zorvane-sim, against pymodbus, and on lines with another master.

    find_test.py PROGRAMS MODELS
"""
import json
import os
import pty
import re
import signal
import subprocess
import sys
import tempfile
import termios
import threading
import time
import tty
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
SLAVE = os.path.join(HERE, os.pardir, "peers", "pymodbus_slave.py")


def with_crc(frame):
    crc = 0xFFFF
    for byte in frame:
        crc ^= byte
        for _ in range(8):
            crc = (crc >> 1) ^ 0xA001 if crc & 1 else crc >> 1
    return frame + crc.to_bytes(2, "little")


class Line:
    """A pseudo-terminal whose far end a function serves: it gets the bytes that came in, and gives what goes back."""

    def __init__(self, serve):
        self.far, self.near = pty.openpty()
        tty.setraw(self.near)
        self.path = os.ttyname(self.near)
        self.heard = b""
        self.serve = serve
        self.thread = threading.Thread(target=self.run, daemon=True)
        self.thread.start()

    def run(self):
        try:
            while True:
                got = os.read(self.far, 512)
                self.heard += got
                answer = self.serve(self, got)
                if answer:
                    os.write(self.far, answer)
        except OSError:
            pass

    def close(self):
        os.close(self.near)
        os.close(self.far)


class FindTest(unittest.TestCase):
    programs = models = ""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.port = os.path.join(self.folder.name, "port")
        self.kept = os.path.join(self.folder.name, "config", "Zorvane", "Zorvane.conf")
        self.running = None

    def tearDown(self):
        if self.running:
            self.running.send_signal(signal.SIGTERM)
            self.running.wait()
            self.running.stdout.close()
        self.folder.cleanup()

    def start(self, *command):
        self.running = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.assertIn(b"ready", self.running.stdout.readline())

    def simulator(self, *options):
        self.log = os.path.join(self.folder.name, "log")
        self.start(os.path.join(self.programs, "zorvane-sim"), "--template", self.template(), "--pty", self.port,
                   "--log", self.log, *options)

    def template(self):
        return os.path.join(self.models, "KVRT207D.ZTP")

    def find(self, *options, port=None):
        done = subprocess.run([os.path.join(self.programs, "zorvanectl"), "find", "--port", port or self.port, "--json",
                               *options], capture_output=True, text=True, timeout=120, check=False,
                              env=dict(os.environ, XDG_CONFIG_HOME=os.path.join(self.folder.name, "config")))
        return done, json.loads(done.stdout) if done.stdout else None

    def functions_asked(self):
        with open(self.log, encoding="utf-8") as file:
            return {line.get("function") for line in map(json.loads, file) if line.get("function")}

    def test_the_simulated_controller_is_found_by_reads_alone(self):
        self.simulator("--slave", "3")
        done, told = self.find("--template", self.template(), "--units", "1-5", "--listen", "0.2")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual([(each["unit"], each["settings"]) for each in told["found"]], [(3, "9600,n,8,1")])
        self.assertEqual(set(told), {"found", "foreign_master", "requests", "seconds"})
        self.assertEqual(set(told["found"][0]), {"unit", "settings", "verdict", "model", "answer_ms", "damaged"})
        self.assertEqual(set(told["found"][0]["answer_ms"]), {"median", "p99"})
        self.assertEqual(told["found"][0]["damaged"], 0)
        self.assertIsNone(told["foreign_master"])
        self.assertGreaterEqual(told["seconds"], 0.2)
        self.assertGreaterEqual(told["requests"], 14)

    def test_a_signal_while_models_are_asked_for_ends_it_with_what_was_found(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            asked = threading.Event()

            def serve(_, got, asked=asked):
                if got[0] != 2:
                    return b""
                if int.from_bytes(got[2:4], "big") >= 320:  # the nameplate, which the model is told by
                    asked.set()
                    return b""
                count = got[5]
                return with_crc(bytes([2, 3, 2 * count]) + bytes(2 * count))

            line = Line(serve)
            command = [os.path.join(self.programs, "zorvanectl"), "find", "--port", line.path, "--json", "--listen", "0",
                       "--units", "1-3", "--settings", "9600,n,8,1", "--template", self.template()]
            with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                  env=dict(os.environ, XDG_CONFIG_HOME=self.folder.name)) as program:
                self.assertTrue(asked.wait(60))
                program.send_signal(number)
                out, err = program.communicate(timeout=60)
            self.assertEqual(program.returncode, 1, number)
            self.assertEqual([(each["unit"], each["verdict"]) for each in json.loads(out)["found"]], [(2, "can't tell")])
            self.assertIn("The search was stopped before its end.", err)
            line.close()

    def test_damaged_answers_are_counted(self):
        self.simulator("--slave", "2", "--fault", "crc:30%", "--seed", "5")
        done, told = self.find("--units", "1-3", "--listen", "0", "--settings", "19200,e,8,1")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(told["found"][0]["unit"], 2)
        self.assertGreater(told["found"][0]["damaged"], 0)
        self.assertIn("two controllers with this number?", done.stderr)

    def test_a_slave_by_pymodbus_is_found_by_its_refusal(self):
        held = os.path.join(self.folder.name, "held.json")
        with open(held, "w", encoding="utf-8") as file:
            json.dump({"100": 17}, file)
        self.start(sys.executable, SLAVE, self.port, "--registers", held, "--slave", "9")
        done, told = self.find("--units", "9", "--listen", "0")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual([(each["unit"], each["settings"], each["verdict"]) for each in told["found"]],
                         [(9, "19200,e,8,1", "can't tell")])

    def test_units_are_found_over_modbus_tcp(self):
        log = os.path.join(self.folder.name, "log")
        self.running = subprocess.Popen([os.path.join(self.programs, "zorvane-sim"), "--template", self.template(), "--tcp",
                                         "0", "--slave", "3", "--log", log], stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, text=True)
        port = self.running.stdout.readline().split()[1]
        self.log = log
        done, told = self.find("--template", self.template(), "--units", "1-5", "--listen", "0.1", port=port)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual([(each["unit"], each["settings"], each["verdict"], each["model"]) for each in told["found"]],
                         [(3, None, "is", "KVRT207D")])
        self.assertEqual(self.functions_asked(), {3})
        self.running.send_signal(signal.SIGTERM)
        self.running.wait()
        self.running.stdout.close()
        self.running = None
        done, told = self.find("--units", "1", port=port)
        self.assertEqual((done.returncode, told["found"], told["requests"]), (1, [], 0))
        self.assertIn("Refused", done.stderr)

    def test_units_are_found_by_frames_of_a_line_over_tcp(self):
        self.running = subprocess.Popen([os.path.join(self.programs, "zorvane-sim"), "--template", self.template(), "--tcp",
                                         "0", "--rtu-over-tcp", "--slave", "3"], stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, text=True)
        done, told = self.find("--units", "1-5", "--listen", "0", port=self.running.stdout.readline().split()[1])
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual([(each["unit"], each["settings"]) for each in told["found"]], [(3, None)])

    def test_the_settings_that_were_good_last_come_first(self):
        self.simulator("--slave", "3")
        self.find("--units", "3", "--listen", "0", "--settings", "2400,o,8,1")
        with open(self.kept, encoding="utf-8") as file:
            self.assertEqual(file.read(), '[Find]\nLastSettings="2400,o,8,1"\n')
        _, told = self.find("--units", "3", "--listen", "0")
        self.assertEqual([(each["unit"], each["settings"]) for each in told["found"]], [(3, "2400,o,8,1")])
        _, told = self.find("--units", "4", "--listen", "0", "--settings", "9600,n,8,1")
        self.assertEqual(told["found"], [])
        with open(self.kept, encoding="utf-8") as file:
            self.assertEqual(file.read(), '[Find]\nLastSettings="2400,o,8,1"\n', "a search in vain")

    def test_nobody_on_the_line_is_three(self):
        line = Line(lambda *_: b"")
        done, told = self.find("--units", "1-2", "--settings", "9600,n,8,1", "--listen", "0", port=line.path)
        self.assertEqual((done.returncode, told["found"], told["requests"]), (3, [], 2))
        self.assertEqual(line.heard, with_crc(bytes([1, 3, 0, 0, 0, 1])) + with_crc(bytes([2, 3, 0, 0, 0, 1])))
        self.assertIn("No controller was found.", done.stderr)
        line.close()

    def test_another_master_ends_the_search_before_anything_is_sent(self):
        line = Line(lambda *_: b"")
        ended = threading.Event()

        def ask():
            while not ended.wait(0.3):
                os.write(line.far, with_crc(bytes([7, 3, 0, 0, 0, 10])))

        master = threading.Thread(target=ask)
        master.start()
        done, told = self.find(port=line.path)
        ended.set()
        master.join()
        self.assertEqual((done.returncode, told["requests"], told["found"]), (1, 0, []))
        self.assertIn("it asks unit 7, 10 registers from address 0 on", told["foreign_master"])
        self.assertEqual(line.heard, b"")
        line.close()

    def test_a_gateway_without_the_unit_is_no_find(self):
        line = Line(lambda _, got: with_crc(bytes([got[0], 0x83, 2 if got[0] == 2 else 11])))
        done, told = self.find("--units", "1-3", "--settings", "9600,n,8,1", "--listen", "0", port=line.path)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual([each["unit"] for each in told["found"]], [2])
        line.close()

    def test_the_speeds_are_tried_in_order_on_one_opening_of_the_port(self):
        speeds = []

        def note(line, _):
            speed = termios.tcgetattr(line.near)[4]
            if not speeds or speeds[-1] != speed:
                speeds.append(speed)
            return b""

        line = Line(note)
        done, _ = self.find("--template", os.path.join(self.models, "KVRT100.ZTP"), "--units", "1", "--listen", "0",
                            port=line.path)
        self.assertEqual(done.returncode, 3, done.stderr)
        self.assertEqual(speeds[:4], [termios.B4800, termios.B19200, termios.B9600, termios.B19200])
        line.close()

    def test_a_port_that_is_not_there_is_one(self):
        done, told = self.find("--units", "1", port="/dev/nowhere")
        self.assertEqual((done.returncode, told["found"], told["requests"]), (1, [], 0))
        self.assertRegex(done.stderr, re.escape("The port /dev/nowhere: No such port"))

    def test_a_signal_ends_it_with_what_was_found(self):
        line = Line(lambda _, got: with_crc(bytes([1, 0x83, 2])) if got[0] == 1 else b"")
        with subprocess.Popen([os.path.join(self.programs, "zorvanectl"), "find", "--port", line.path, "--json",
                               "--settings", "9600,n,8,1", "--listen", "0"], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True) as program:
            while len(line.heard) < 8 * 15:
                time.sleep(0.02)
            program.send_signal(signal.SIGINT)
            out, _ = program.communicate(timeout=30)
        self.assertEqual(program.returncode, 1)
        self.assertEqual([each["unit"] for each in json.loads(out)["found"]], [1])
        line.close()

    def test_a_wrong_command_line_is_two(self):
        for options in (["--units", "0-5"], ["--settings", "9600"], ["--listen", "-1"], ["--listen", "nan"], ["--template"],
                        ["extra"]):
            done, told = self.find(*options)
            self.assertEqual((done.returncode, told), (2, None), options)
        self.assertEqual(self.find("--settings", "1,n,8,1")[0].returncode, 2)


if __name__ == "__main__":
    FindTest.models = sys.argv.pop()
    FindTest.programs = sys.argv.pop()
    unittest.main()
