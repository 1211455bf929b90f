#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Drives the installed window as an ordinary user does, on a desktop of its own for each scenario.

    installed_window.py

Wants the package installed, a template SITE9.ZTP beside its own, and the folder tests/window beside this one.
"""
import os
import shutil
import stat
import sys
import traceback

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../window"))

from driver.desktop import Desktop
from driver.waiting import expect, wait_for
from driver.zorvane import Zorvane
from scenarios import compare, files, history, port, sending, transfer, values

FOLDER = "/usr/lib/zorvane"


def has_the_name_of_its_menu_entry(program):
    """By that name a desktop finds the icon of a window."""
    program.start()
    expect("the title", lambda: program.title, "Zorvane")
    window = program.desktop.run("xdotool", "search", "--onlyvisible", "--name", "^Zorvane$").split()[0].decode()
    names = program.desktop.run("xprop", "-id", window, "WM_CLASS").decode()
    assert '"zorvane"' in names, names


def finds_the_administrator_s_model(program):
    path = program.desktop.path("documents", "hall.SITE9")
    shutil.copy2(os.path.join(FOLDER, "EXAMPLE.KVRT207D"), path)
    program.start()
    program.choose("File", "Open...")
    dialog = program.dialog("CommonDialog")
    assert any("*.SITE9" in name for name in dialog.file_types()), dialog.file_types()
    dialog.choose_file(path, "Open")
    program.expect_title("hall.site9 - Zorvane")


def keeps_settings_and_documents_with_the_user(program):
    assert not os.access(FOLDER, os.W_OK), "the program's folder can be written"
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    copy = program.desktop.path("documents", "copy.kvrt207d")
    program.save_as(copy)
    program.expect_title("copy.kvrt207d - Zorvane")
    wait_for("the end of the save", lambda: program.panel(4) == "" and os.path.getsize(copy) > 0)
    program.choose("File", "Exit")
    assert program.wait_for_end() == 0, "the program ended with a failure"
    assert program.stored("MainWindow", "Width"), "no settings were kept"


def opens_the_help_file(program):
    """What the desktop is given to open is read from a program that takes the place of xdg-open; another one says that
    the desktop has a viewer."""
    opened = program.desktop.path("opened")
    commands = {"xdg-open": f'printf %s "$1" >{opened}.part && mv {opened}.part {opened}',
                "xdg-mime": "echo viewer.desktop"}
    for name, line in commands.items():
        opener = program.desktop.path("commands", name)
        with open(opener, "w", encoding="ascii") as script:
            script.write(f"#!/bin/sh\n{line}\n")
        os.chmod(opener, stat.S_IRWXU)
    program.desktop.environment["PATH"] = os.path.dirname(opener) + ":" + os.environ["PATH"]
    program.start()
    program.choose("Help", "Index")
    wait_for("the opened help file", lambda: os.path.exists(opened))
    with open(opened, encoding="ascii") as file:
        told = file.read()
    assert told.removeprefix("file://") == FOLDER + "/Zorvane.chm", told
    assert os.path.getsize(FOLDER + "/Zorvane.chm") > 0


SCENARIOS = (has_the_name_of_its_menu_entry, finds_the_administrator_s_model,
             keeps_settings_and_documents_with_the_user, opens_the_help_file,
             port.the_simulated_controller_needs_no_other_program,
             transfer.upload_brings_the_controller_s_values, transfer.download_writes_what_a_dry_run_says,
             history.a_typed_value_comes_back_by_keyboard_alone, compare.a_document_is_compared_with_the_factory_values,
             sending.changes_are_sent_and_read_back, values.values_are_exported_by_keyboard_alone,
             files.a_file_is_handed_to_the_running_window, files.a_file_handed_to_nobody_starts_a_window)


def main():
    failed = 0
    for scenario in SCENARIOS:
        with Desktop() as desktop:
            try:
                scenario(Zorvane(desktop, FOLDER, installed=True))
                print(f"   {scenario.__name__}: good")
            except Exception:
                traceback.print_exc()
                print(f"   {scenario.__name__}: FAILED")
                failed += 1
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
