#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Comparing and sending with a controller that shares no code with ours: pymodbus, which refuses the registers that it
doesn't have.

    sending_test.py PROGRAMS
"""
import json
import os
import signal
import subprocess
import sys
import unittest

import terminal_test

ALL = {"100": 17, "101": 3, "110": 6, "111": 4}


class SendingTest(terminal_test.TerminalTest):
    def state(self):
        return self.path("state")

    def environment(self):
        return {**os.environ, "XDG_STATE_HOME": self.state()}

    def ctl(self, call, *arguments):
        run = subprocess.run([os.path.join(self.programs, "zorvanectl"), call, *arguments, "--json"], env=self.environment(),
                             stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60, check=False)
        return run.returncode, json.loads(run.stdout) if run.stdout else None, run.stderr

    def site(self, call, *arguments):
        return self.ctl(call, self.template, self.document, "--port", self.port, *arguments)

    def test_what_differs_is_sent_and_read_back_and_then_nothing_is_left(self):
        self.start(ALL)
        code, told, _ = self.site("compare")
        self.assertEqual((code, told["counts"]["differs"], told["counts"]["equal"]), (3, 1, 1))
        code, told, _ = self.site("plan")
        self.assertEqual((code, told["writes"]),
                         (3, [{"function": 6, "address": 100, "values": [5], "cells": [[1, 1, 2]]}]))
        code, told, err = self.site("send", "--yes")
        self.assertEqual((code, told["requests"]["writes"]), (0, 1), err)
        self.assertEqual(told["rows"], [{"field": 1, "row": 1, "column": 2, "register": "100", "before": 17, "sent": 5,
                                         "read_back": 5, "state": "verified", "answer": None}])
        self.assertEqual(told["identity"]["verdict"], "can't tell")
        self.assertEqual(self.site("compare")[0], 0)
        self.assertEqual(self.site("plan")[0], 0)
        code, told, _ = self.ctl("verify", "last", "--port", self.port)
        self.assertEqual((code, told["counts"]), (0, {"as_left": 1, "changed": 0, "not_read": 0, "rows": 1}))
        code, told, _ = self.ctl("restore", "last", "--port", self.port)
        self.assertEqual((code, told["counts"]["verified"]), (0, 1))
        self.assertEqual(self.site("plan")[1]["before"], {"100": 17})

    def test_a_value_whose_block_is_refused_is_not_sent(self):
        self.start({"100": 17, "101": 3})
        code, told, _ = self.site("compare")
        self.assertEqual((code, told["counts"]["differs"], told["counts"]["not_read"]), (3, 1, 1))
        code, told, _ = self.site("send", "--yes")  # half of its cells are refused: it is another model's
        self.assertEqual((code, told["identity"]["verdict"], told["requests"]["writes"]), (5, "isn't", 0))
        code, told, err = self.site("send", "--yes", "--although", "TWO")
        self.assertEqual((code, told["requests"]["writes"]), (7, 0))
        self.assertIn("a write needs them: 110. ", err)
        code, told, err = self.site("send", "--yes", "--although", "TWO", "--only", "1,1")
        self.assertEqual((code, told["counts"]["verified"]), (0, 1), err)

    def test_without_a_place_for_the_run_nothing_is_sent(self):
        self.start(ALL)
        self.file("state", "a file, where a folder would be")
        code, told, err = self.site("send", "--yes")
        self.assertEqual((code, told["run"], told["requests"]["writes"]), (1, None, 0))
        self.assertIn("Nothing was sent.", err)

    def test_a_signal_before_the_first_write_ends_with_1_and_says_so(self):
        self.start(ALL)
        os.kill(self.slave.pid, signal.SIGSTOP)
        try:
            program = subprocess.Popen([os.path.join(self.programs, "zorvanectl"), "send", self.template, self.document,
                                        "--port", self.port, "--yes", "--json", "--timeout", "2000", "--retries", "9"],
                                       env=self.environment(), stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
            with self.assertRaises(subprocess.TimeoutExpired):  # it waits for its first answer
                program.wait(timeout=1)
            program.send_signal(signal.SIGTERM)
            out, err = program.communicate(timeout=30)
        finally:
            os.kill(self.slave.pid, signal.SIGCONT)
        self.assertEqual(program.returncode, 1, err)
        self.assertEqual(json.loads(out)["requests"]["writes"], 0)


def load_tests(loader, _tests, _pattern):
    """Its own tests alone, not those that it inherits."""
    suite = unittest.TestSuite()
    for name in loader.getTestCaseNames(SendingTest):
        if name in SendingTest.__dict__:
            suite.addTest(SendingTest(name))
    return suite


if __name__ == "__main__":
    terminal_test.TerminalTest.programs = os.path.abspath(sys.argv.pop(1))
    unittest.main()
