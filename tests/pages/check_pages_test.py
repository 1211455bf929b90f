#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What tools/check-pages says of a page.

    check_pages_test.py PROGRAM
"""
import importlib.machinery
import importlib.util
import sys
import unittest

LOADER = importlib.machinery.SourceFileLoader("check_pages", sys.argv.pop(1))
CHECK = importlib.util.module_from_spec(importlib.util.spec_from_loader("check_pages", LOADER))
LOADER.exec_module(CHECK)

FILES = {"src/checker/rules_lines.cpp", "src/checker/rules_words.cpp", "src/checker/rule.h", "src/ctl/calls/dump.cpp",
         "docs/naming.md", "docs/manual/window.md", "tools/build"}
TREE = CHECK.Tree(FILES, {"tools/build"}, {"Rule", "check", "Show_Rows", "dev"})


def said(page, path="docs/page.md"):
    return [fault.removeprefix(path + ":") for fault in CHECK.faults_of(path, page, TREE)]


class CheckPages(unittest.TestCase):
    def test_a_page_that_names_what_is_there_has_no_faults(self):
        self.assertEqual(said("`rule.h`, `checker/rule.h` and `src/checker/`; `tools/build dev`, `Show_Rows`,\n`Rule::check`\n"
                              "[names](naming.md), [the window](manual/window.md#its-parts), [Qt](https://www.qt.io/)"), [])

    def test_a_file_that_is_gone_is_named_with_its_line(self):
        self.assertEqual(said("# Rules\n\n`rule.h`\nand `rules.h`, in `src/checker/rules.cpp`"),
                         ["4: no file rules.h", "4: no file src/checker/rules.cpp"])

    def test_a_file_in_another_folder_isnt_that_file(self):
        self.assertEqual(said("`ctl/rule.h`"), ["1: no file ctl/rule.h"])

    def test_a_pattern_needs_one_file_and_each_name_in_braces_its_own(self):
        self.assertEqual(said("`src/checker/rules_*.cpp`, `rules_{lines,words}.cpp`, `src/ctl/calls/NAME.cpp`,\n`rules_….cpp`"), [])
        self.assertEqual(said("`src/checker/rule_*.cpp`, `rules_{lines,pages}.cpp`, `src/ctl/NAME.cpp`"),
                         ["1: no file src/checker/rule_*.cpp", "1: no file rules_pages.cpp", "1: no file src/ctl/NAME.cpp"])

    def test_a_word_that_nothing_has_is_told(self):
        self.assertEqual(said("`Show_Row` and\n`Rule::checkLines`"),
                         ["1: no Show_Row in the code", "2: no checkLines in the code"])

    def test_the_manual_may_name_files_of_its_readers(self):
        page = "`site7.cpp` in `Documents/site7`, and `src/gone.h`"
        self.assertEqual(said(page, "docs/manual/window.md"), ["1: no file src/gone.h"])

    def test_a_command_names_a_file_that_can_be_run(self):
        self.assertEqual(said("`tools/build dev`\n`docs/naming.md dev`\n```\ndocs/naming.md dev\n```\n`docs/naming.md`"),
                         ["4: docs/naming.md can't be run", "2: docs/naming.md can't be run"])

    def test_a_link_that_leads_nowhere_is_told(self):
        self.assertEqual(said("[here](naming.md)\n[there](../naming.md#words)"), ["2: the link leads nowhere: ../naming.md"])

    def test_in_a_block_only_what_looks_like_a_name_of_ours_counts(self):
        page = "```\nwhat a rule.h says -> Show_Rows, [x](gone)\nShow_Row, oldName in rules.h\n```\n`rule.h`"
        self.assertEqual(said(page), ["3: no Show_Row in the code", "3: no oldName in the code", "3: no file rules.h"])
        self.assertEqual(said(page, "docs/manual/window.md"), [])


unittest.main()
