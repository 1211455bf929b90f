#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""What tools/check-architecture, tools/check-language and tools/check-types find: each is run in a small tree of its own.

    checks_test.py TOOLS
"""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

TOOLS = os.path.abspath(sys.argv.pop(1))


def said(check, files):
    """What a check prints of a git folder with these files; without its advice, which stands in indented lines."""
    with tempfile.TemporaryDirectory() as top:
        os.mkdir(os.path.join(top, "tools"))
        for name in {check, "check-pages"}:
            shutil.copy(os.path.join(TOOLS, name), os.path.join(top, "tools", name))
        for path, text in files.items():
            whole = os.path.join(top, path)
            os.makedirs(os.path.dirname(whole), exist_ok=True)
            with open(whole, "w", encoding="utf-8") as file:
                file.write(text)
        for command in (["init", "--quiet"], ["add", "--all"]):
            subprocess.run(["git", *command], cwd=top, check=True)
        run = subprocess.run([os.path.join(top, "tools", check)], capture_output=True, text=True, check=False)
    lines = [line for line in run.stdout.splitlines() if not line.startswith(" ")]
    assert run.returncode == (1 if lines else 0), f"exit {run.returncode}: {run.stdout}{run.stderr}"
    return lines


def architecture(files):
    return said("check-architecture", {"src/" + path: text for path, text in files.items()})


def in_lines(texts):
    return "".join(text + "\n" for text in texts)


def each_of(path, lines, fault):
    """That fault in each of so many lines."""
    return [f"src/{path}:{number}: {fault}" for number in range(1, len(lines) + 1)]


class Architecture(unittest.TestCase):
    def test_a_sound_source_is_passed(self):
        self.assertEqual(architecture({"values/numbers.h": "#pragma once\n" + "//\n" * 30, "values/numbers_test.cpp": "",
                                       "template/files.cpp": '#include "values/numbers.h"\n#include <string>\n'}), [])

    def test_an_arrow_that_points_back(self):
        files = {"ui/base/text.h": "//\n" * 30, "values/numbers.cpp": '//\n#include "ui/base/text.h"\n'}
        self.assertEqual(architecture(files), ["src/values/numbers.cpp:2: values may not use ui/base"])

    def test_a_folder_that_is_no_room(self):
        self.assertEqual(architecture({"cellar/wine.cpp": "int bottles;\n"}),
                         ["src/cellar/wine.cpp: its folder is no room; ROOMS has them all"])

    def test_qt_in_a_pure_room(self):
        headers = [f"#include <{name}>" for name in ("QString", "qstring.h", "QtCore/QString", "QtCore/qstring.h", "QtWidgets")]
        files = {"values/numbers.cpp": in_lines(headers), "ui/base/text.cpp": in_lines(headers),
                 "values/others.cpp": "#include <queue>\n"}
        self.assertEqual(architecture(files), each_of("values/numbers.cpp", headers, "values is built without Qt"))

    def test_what_only_one_system_has(self):
        lines = ["#include <unistd.h>", "#include <signal.h>", "#include <sys/stat.h>", "#ifdef __linux__",
                 "#if defined(Q_OS_LINUX)"]
        files = {"values/numbers.cpp": in_lines(lines), "values/numbers_linux.cpp": in_lines(lines),
                 "values/others.cpp": "#include <csignal>\n"}
        self.assertEqual(architecture(files),
                         each_of("values/numbers.cpp", lines, "what only this system can do stands in a file ..._linux"))

    def test_a_panel_is_read_by_the_presenter_alone(self):
        lines = ['form.panel(Panel::Message) == "Ready"', 'form->panel(Panel::Message).empty()',
                 'panel(Panel::Message) == "Ready"', 'report.panel4 == "Ready"', '"Ready" == report.panel4',
                 'report.panel4.starts_with("Err")', 'form.panel4().starts_with("Err")',
                 'panels_[Panel::Message] == "Ready"', 'form.lastMessage() != "Ready"', '"Ready" == form.lastMessage()',
                 'form.messages().back() == "Ready"', 'window.StatusBar1().text(4) == ready',
                 'window.StatusBar1().text(4).isEmpty()']
        files = {path: in_lines(lines) for path in ("ctl/line/transfer.cpp", "ctl/line/transfer_test.cpp",
                                                    "comm/main_form/presenter.cpp")}
        self.assertEqual(architecture(files), each_of("ctl/line/transfer.cpp", lines,
                                                      "only comm/main_form/presenter.cpp looks at the text of a panel"))

    def test_panels_are_written_and_handed_on(self):
        lines = ['form.setPanel(Panel::Message, "Ready")', 'std::string panel(Panel panel) const override',
                 'std::string Held_Form::panel(Panel panel) const {', 'report.panel4 = form.lastMessage()',
                 'if (panel == Panel::ReadOnly) changed()', 'text = window.StatusBar1().text(4)']
        self.assertEqual(architecture({"ctl/line/transfer.cpp": in_lines(lines)}), [])

    def test_nothing_in_the_link_is_mutable(self):
        files = {path: "struct Z { mutable int z; };\n" for path in ("comm/modbus_control/scan/scan.cpp", "values/numbers.cpp")}
        self.assertEqual(architecture(files), ["src/comm/modbus_control/scan/scan.cpp:1: looking at the link moves nothing: "
                                               "no mutable in it"])

    def test_the_words_of_a_format_stand_in_one_room(self):
        lines = ['word == "TIME"', 'word == "NUMERIC"', '"ASCII" != word', '{"TIMEMM", 1}']
        files = {"grids/cells.cpp": in_lines(lines), "cells/format/cell_format.cpp": in_lines(lines),
                 "checker/rules.cpp": 'bool z = key.ends_with("NUMERIC");\n'}
        self.assertEqual(architecture(files),
                         each_of("grids/cells.cpp", lines, "only cells/format knows the words of a cell's format"))

    def test_a_short_header_for_one_user(self):
        self.assertEqual(architecture({"values/half.h": "#pragma once\n", "values/numbers.cpp": '#include "values/half.h"\n'}),
                         ["src/values/half.h: short, and for one user; it belongs into values/numbers.cpp"])

    def test_a_folder_with_too_much_in_it(self):
        self.assertEqual(architecture({f"values/number_{number}.cpp": "" for number in range(41)}),
                         ["src/values: 41 entries, more than 40"])

    def test_a_page_that_names_what_is_gone(self):
        files = {"src/values/numbers.cpp": "", "docs/page.md": "`src/values/letters.cpp`\n"}
        self.assertEqual(said("check-architecture", files), ["docs/page.md:1: no file src/values/letters.cpp"])


class Language(unittest.TestCase):
    def test_each_word_that_went(self):
        lines = ["// " + word for word in (
            "Document_Frame", "Caption_Frame", "class Frame", "const Frame&", "Surroundings", "surroundings", "Call_Entry",
            "Show_Call", "Report_Parts", "Menu_Parts", "Late_Asker", "box.attach(form)", "struct Opening", "Common_Dialog",
            "Window_Rectangle", "Report_Rectangle", "Test_Exchange", "Test_Verdict", "mends", "anew", "afresh", "whilst",
            "canceled_", "what comes behind")]
        told = [f"src/app/tray.cpp:{number}: {line}" for number, line in enumerate(lines, 1)]
        self.assertEqual(sorted(said("check-language", {"src/app/tray.cpp": in_lines(lines)})), sorted(told))

    def test_words_that_stay(self):
        lines = ["Path_Parts place;", "report.Canceled()", "CommonDialog& dialog();", "QFrame frame;", "a_frame",
                 "the line behind the gateway", "what it leaves behind"]
        self.assertEqual(said("check-language", {"src/app/tray.cpp": in_lines(lines)}), [])

    def test_pages_scripts_and_build_files_are_read(self):
        files = {"docs/page.md": "mended\n", "docs/man/a.1": "mended\n", "cmake/Folders.cmake": "# mended\n",
                 "tests/CMakeLists.txt": "# mended\n", "tests/peer.py": "# mended\n", "tools/package": "#!/bin/sh\n# mended\n"}
        told = said("check-language", files)
        self.assertEqual(sorted(line.split(":")[0] for line in told), sorted(files))

    def test_names_of_code_are_no_words_of_pages(self):
        self.assertEqual(said("check-language", {"docs/page.md": "The surroundings of a Show_Call.\n"}), [])


class Types(unittest.TestCase):
    def twice(self, second, path="src/app/icon.cpp"):
        first = "namespace zorvane::app {\nclass Tray final {\n};\n} // namespace zorvane::app\n"
        return said("check-types", {"src/app/tray.h": first, path: second})

    def test_a_name_in_two_files(self):
        for declared in ("struct Tray {\n};", "struct Tray {};", "class Tray : public Icon {\n};", "enum class Tray { In };"):
            self.assertEqual(self.twice(f"namespace zorvane::app {{\n{declared}\n}} // namespace zorvane::app\n"),
                             ["zorvane::app::Tray is defined by src/app/icon.cpp:2 and src/app/tray.h:2"])

    def test_a_test_against_the_product(self):
        self.assertEqual(self.twice("namespace zorvane::app {\nstruct Tray {};\n} // namespace zorvane::app\n",
                                    "src/ui/icon_test.cpp"),
                         ["zorvane::app::Tray is defined by src/ui/icon_test.cpp:2 and src/app/tray.h:2"])

    def test_what_is_no_second_definition(self):
        for text in ("namespace zorvane::app {\nclass Tray;\nenum class Tray : int;\n} // namespace zorvane::app\n",
                     "namespace zorvane::ui {\nclass Tray {\n};\n} // namespace zorvane::ui\n",
                     "namespace zorvane::app {\nnamespace {\nclass Tray {\n};\n} // namespace\n} // namespace zorvane::app\n"):
            self.assertEqual(self.twice(text), [], text)


if __name__ == "__main__":
    unittest.main()
