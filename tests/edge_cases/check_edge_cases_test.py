#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What tools/check-edge-cases says of a page.

    check_edge_cases_test.py PROGRAM
"""
import importlib.machinery
import importlib.util
import sys
import unittest

LOADER = importlib.machinery.SourceFileLoader("check_edge_cases", sys.argv.pop(1))
CHECK = importlib.util.module_from_spec(importlib.util.spec_from_loader("check_edge_cases", LOADER))
LOADER.exec_module(CHECK)

TESTS = {"Val.Rounds": "runs", "Half.Old": "switched off", "Half.Slow": "skipped", "window.open.shows": "runs",
         "Codes/EachCode.IsFound/utf_8 # GetParam() =": "skipped", "Codes/EachCode.IsFound/width": "runs",
         "Codes/EachCode.IsTold/utf_8": "skipped"}


def said(*rows):
    page = "# Cases\n\n| Id | What holds | Proved by |\n|---|---|---|\n" + "\n".join(rows) + "\n"
    return list(CHECK.faults_of(page, TESTS))


class CheckEdgeCases(unittest.TestCase):
    def test_good_pages_have_no_faults(self):
        self.assertEqual(said("| reader-01 | It rounds | `Val.Rounds` `window.open.shows` |",
                              "| reader-02 | One of its parameters is enough | `EachCode.IsFound` |"), [])

    def test_a_test_that_is_gone_is_named_with_its_case(self):
        self.assertEqual(said("| reader-01 | It rounds | `Val.Rounds` `Val.Round` |"),
                         ["reader-01: the test Val.Round is gone"])

    def test_a_test_that_never_runs_proves_nothing(self):
        self.assertEqual(said("| half-01 | Old | `Half.Old` |", "| half-02 | Slow | `Half.Slow` |",
                              "| half-03 | No parameter | `EachCode.IsTold` |"),
                         ["half-01: the test Half.Old is switched off", "half-02: the test Half.Slow is skipped",
                          "half-03: the test EachCode.IsTold is skipped"])

    def test_each_case_has_a_test_and_says_what_holds(self):
        self.assertEqual(said("| reader-01 | It rounds | Val.Rounds |", "| reader-02 | | `Val.Rounds` |"),
                         ["reader-01: no test proves it", "reader-02: it doesn't say what holds"])

    def test_an_id_stands_once(self):
        self.assertEqual(said("| reader-01 | a | `Val.Rounds` |", "| reader-01 | b | `Val.Rounds` |"),
                         ["reader-01: a second time in line 6; the first is in line 5"])

    def test_a_row_that_cannot_be_read_is_told(self):
        self.assertEqual(said("| Reader 1 | a | `Val.Rounds` |", "| reader-01 | a | b | `Val.Rounds` |"),
                         ['line 5: "Reader 1" is no id; they look like reader-07',
                          'line 6: "" is no id; they look like reader-07', "the page has no cases"])

    def test_an_empty_page_is_a_fault(self):
        self.assertEqual(said(), ["the page has no cases"])


if __name__ == "__main__":
    unittest.main()
