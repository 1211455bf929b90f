#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What zorvanectl makes of a controller that refuses a block: a slave by pymodbus, which refuses the registers that it
doesn't have.

    terminal_test.py PROGRAMS
"""
import json
import os
import signal
import subprocess
import sys
import tempfile
import tty
import unittest

SLAVE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "pymodbus_slave.py")

# Two blocks, one polled; a cell of each, and one in both halves of a register of the second.
TEMPLATE = """[HARDWARE]
CONTROLLER=TWO
[PORT_CONFIGURATION]
COMMUNICATIONS_1_REQUEST=20
COMMUNICATIONS_1_OUT=300
HOLDINGREGISTERS=400
HOLDINGREGISTERSBLOCK_1=100-101
HOLDINGREQUESTBLOCK_1=ALWAYS
HOLDINGREGISTERSBLOCK_2=110-111
HOLDINGREQUESTBLOCK_2=ALWAYS
[CONFIGURATION_COLUMNS]
CONFIGURATION_NC=2
COL_1_DESC=No.
[CONFIGURATION_FIELDS]
FIELD_1_DESC=Levels
FIELD_1_RC=2,2
[FIELD_1_COLUMNS]
COL_1_DESC=Name
COL_2_DESC=Level
COL_2_MODIFIABLE=YES
COL_2_MDBUSREQUEST=ALWAYS
[FIELD_1_CONFIGURATION]
ROWADDRESS_1=,100
ROWADDRESS_2=,110
"""
DOCUMENT = """[Configuration_Default]
FIELD_1=,Levels

[Field_1_Default]
ROW_1=first,5
ROW_2=second,6
"""
REFUSED = "Illegal data address (exception 2)"


class TerminalTest(unittest.TestCase):
    programs = ""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.template = self.file("TWO.ZTP", TEMPLATE)
        self.document = self.file("site.TWO", DOCUMENT)
        self.port = os.path.join(self.folder.name, "port")
        self.slave = None

    def tearDown(self):
        if self.slave:
            self.slave.send_signal(signal.SIGTERM)
            self.slave.wait()
            self.slave.stdout.close()
        self.folder.cleanup()

    def file(self, name, text):
        path = os.path.join(self.folder.name, name)
        with open(path, "w", encoding="cp1252", newline="\r\n") as file:
            file.write(text)
        return path

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def start(self, registers, *options):
        """A controller with these registers and no others."""
        held = self.file("held.json", json.dumps(registers))
        self.slave = subprocess.Popen([sys.executable, SLAVE, self.port, "--registers", held, *options],
                                      stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.assertEqual(self.slave.stdout.readline().decode(), f"ready {self.port}\n")

    def ctl(self, call, *arguments):
        return subprocess.run([os.path.join(self.programs, "zorvanectl"), call, self.template, self.document, *arguments,
                               "--port", self.port], capture_output=True, text=True, timeout=60, check=False)

    def test_an_upload_keeps_what_it_could_not_read(self):
        self.start({"100": 17, "101": 0})
        run = self.ctl("upload", "--json", "--save", self.path("out.TWO"), "--registers", self.path("r.json"))
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assertIn(f"Registers 110-111 were not read: {REFUSED}\n", run.stderr)
        with open(self.path("r.json"), encoding="utf-8") as file:
            self.assertEqual(json.load(file), {"100": 17, "101": 0})
        with open(self.path("out.TWO"), encoding="cp1252") as file:
            text = file.read()
        self.assertIn("ROW_1=first,17\n", text)
        self.assertIn("ROW_2=second,6\n", text)
        told = json.loads(run.stdout)
        self.assertEqual(told["read"], [{"first": 100, "last": 101}])
        self.assertEqual(told["refused"], [{"first": 110, "last": 111, "answer": REFUSED}])
        self.assertEqual((told["unanswered"], told["not_read"], told["failed_writes"]), ([], [], []))
        self.assertEqual(told["panel4"], "Ready")
        self.assertEqual(told["panel4_lines"][0], "Uploading... Wait a moment please")
        self.assertEqual(told["panel4_lines"][-1], "Ready")

    def test_a_silent_controller_has_refused_nothing(self):
        line, client = os.openpty()  # with nobody behind it
        tty.setraw(client)
        os.symlink(os.ttyname(client), self.port)
        run = self.ctl("upload", "--json", "--retries", "1", "--timeout", "50")
        os.close(line)
        os.close(client)
        self.assertEqual(run.returncode, 1)
        told = json.loads(run.stdout)
        self.assertEqual(told["unanswered"], [{"first": 100, "last": 101}])
        self.assertEqual((told["refused"], told["not_read"]), ([], [{"first": 110, "last": 111}]))
        self.assertNotIn("refused", run.stderr)

    def test_a_download_lists_the_writes_that_were_refused(self):
        self.start({"100": 17, "101": 0})
        run = self.ctl("download", "--json")
        self.assertEqual(run.returncode, 1)
        told = json.loads(run.stdout)
        self.assertEqual(told["failed_writes"],
                         [{"register": "110", "value": "6", "result": "refused", "answer": REFUSED}])
        self.assertIn("Write: 5 @100 ...Completed", told["panel4_lines"])
        self.assertIn("Write: 6 @110 ...Failed", told["panel4_lines"])
        self.assertIn(f"zorvanectl: Write: 6 @110 ...Failed: {REFUSED}\n", run.stderr)

    def test_a_watch_shows_no_value_of_a_refused_block(self):
        self.start({"100": 17, "101": 0})
        run = self.ctl("watch", "1", "--json", "--count", "2")
        self.assertEqual(run.returncode, 0, run.stderr)
        for line in run.stdout.splitlines():
            refresh = json.loads(line)
            self.assertRegex(refresh["time"], r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}([+-]\d\d:\d\d|Z)$")
            first, second = refresh["cells"]
            self.assertEqual((first["text"], first.get("reason")), ("17", None))
            self.assertEqual((second["text"], second["reason"]),
                             ("???", f"Registers 110-111 were not read: {REFUSED}"))
        self.assertTrue(run.stderr.endswith("zorvanectl: The watch has ended after 2 refreshes, as many as were asked "
                                            "for.\n"), run.stderr)

    def test_a_controller_is_told_by_its_objects(self):
        self.start({"100": 1}, "--object", "0=Acme", "--object", "1=TWO", "--object", "2=" + "7" * 100)
        for expected, code, result in (("two", 0, "fits"), ("THREE", 5, "doesn't fit")):
            template = self.file("TOLD.ZTP", TEMPLATE + f"[IDENTITY]\nOBJECTS=YES\nOBJECT_1={expected}\n")
            ran = subprocess.run([os.path.join(self.programs, "zorvanectl"), "identify", template, "--port", self.port,
                                  "--json"], capture_output=True, text=True, timeout=60, check=False)
            self.assertEqual(ran.returncode, code, ran.stderr)
            self.assertEqual(json.loads(ran.stdout)["evidence"], [
                {"register": "object 1", "what": "", "expected": expected, "found": "TWO", "result": result}])

    def test_a_watch_for_people_tells_time_and_reason(self):
        self.start({"100": 17, "101": 0})
        lines = self.ctl("watch", "1", "--count", "1").stdout.splitlines()
        self.assertRegex(lines[0], r"^\d{4}-\d\d-\d\dT")
        self.assertEqual(lines[1:], ["Name    Level", "first   17", "second  ???",
                                     f"??? Registers 110-111 were not read: {REFUSED}"])


if __name__ == "__main__":
    TerminalTest.programs = os.path.abspath(sys.argv.pop(1))
    unittest.main()
