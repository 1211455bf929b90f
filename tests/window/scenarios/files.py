# SPDX-License-Identifier: MIT
"""Ways to a document beside Open, and what another program does to its file."""
import os
import signal
import subprocess

from driver.keyboard import Only_Keyboard
from driver.waiting import expect, wait_for

OPEN_PROGRAM = "zorvane-open"
REGULATION, VALUE = 3, 1


def _entries(program, submenu):
    return program.entry("File", submenu).children[0].children


def _hand_over(program, path):
    """Runs zorvane-open to its end."""
    command = [os.path.join(program.programs, OPEN_PROGRAM), path]
    return subprocess.run(command, env=program.desktop.environment, capture_output=True, text=True, timeout=60)


def _has_ended(process):
    """Gone, or waiting for its heir to take notice: on a bare system nobody does."""
    try:
        with open(f"/proc/{process}/stat", encoding="utf-8", errors="replace") as file:
            return file.read().rsplit(")", 1)[1].split()[0] == "Z"
    except (FileNotFoundError, ProcessLookupError):
        return True


def _bar(program):
    """Word and text of the newest line."""
    wait_for("the bar", lambda: program.shows("BAR_1"))
    return tuple(program.window.named(f"BAR_1_{part}").name for part in ("Word", "Text"))


def recent_files_open_again_by_keyboard(program):
    first, second = program.document(name="first.kvrt207d"), program.document(name="second.kvrt207d")
    program.start()
    expect("the entry without files", lambda: program.is_enabled("File", "Recent Files", "None yet"), False)
    for path in (first, second):
        program.open(path)
        program.expect_title(f"{os.path.basename(path)} - Zorvane")
    expect("the recent files",
           lambda: [entry.name for entry in _entries(program, "Recent Files")], [f"1 {second}", f"2 {first}"])
    with Only_Keyboard(program):
        program.pull_down("File")
        program.hands.keys("l", "2")
        program.expect_title("first.kvrt207d - Zorvane")
    program.expect_panel(1, "")
    expect("what is stored", lambda: program.stored("Recent", "File1"), first)


def a_recent_file_that_is_gone_is_greyed(program):
    first, second = program.document(name="first.kvrt207d"), program.document(name="second.kvrt207d")
    program.start()
    for path in (first, second):
        program.open(path)
        program.expect_title(f"{os.path.basename(path)} - Zorvane")
    os.remove(first)
    program.pull_down("File")
    program.hands.keys("l")
    expect("which are enabled", lambda: [entry.is_enabled for entry in _entries(program, "Recent Files")],
           [True, False])


def a_new_document_has_factory_values_and_no_place(program):
    program.start()
    with Only_Keyboard(program):
        program.pull_down("File")
        program.hands.keys("n")
        expect("the models", lambda: [entry.name for entry in _entries(program, "New from Model")],
               ["1 KVRT", "2 KVRT100", "3 KVRT207D", "4 R7702-16"])
        program.hands.keys("3")
        program.expect_title("untitled.kvrt207d - Zorvane")
    program.select_field(1)
    template = program.template("KVRT207D")
    factory = os.path.join(program.folder, "DEFAULT.KVRT207D")
    expect("the factory values", lambda: program.settings.texts(), program.terminal.settings(template, factory, 1))
    expect("Save is enabled", lambda: program.is_enabled("File", "Save"), False)


def a_file_is_handed_to_the_running_window(program):
    path = program.document(name="handed.kvrt207d")
    program.start()
    wait_for("the place where files are handed over",
             lambda: os.path.exists(os.path.join(program.desktop.environment["XDG_RUNTIME_DIR"], "zorvane-handover")))
    done = _hand_over(program, path)
    assert (done.returncode, done.stderr) == (0, ""), done
    program.expect_title("handed.kvrt207d - Zorvane")


def a_file_handed_to_nobody_starts_a_window(program):
    path = program.document(name="handed.kvrt207d")
    done = _hand_over(program, path)
    assert (done.returncode, done.stderr) == (0, ""), done
    window = wait_for("the window", lambda: program.desktop.windows("--name", "^handed.kvrt207d - Zorvane$"))[0]
    process = int(program.desktop.run("xdotool", "getwindowpid", window))
    os.kill(process, signal.SIGTERM)
    wait_for("the end of the program", lambda: _has_ended(process))


def a_file_handed_over_during_a_question_waits_in_the_bar(program):
    path = program.document(name="handed.kvrt207d")
    program.start()
    wait_for("the place where files are handed over",
             lambda: os.path.exists(os.path.join(program.desktop.environment["XDG_RUNTIME_DIR"], "zorvane-handover")))
    program.choose("File", "Open...")
    dialog = program.dialog("CommonDialog")
    done = _hand_over(program, path)
    why = "A question is open in the window. Answer it first."
    assert (done.returncode, done.stderr) == (1, f"zorvane-open: {path}: {why}\n"), done
    dialog.answer("Cancel")
    expect("the bar", lambda: _bar(program), ("Note", f"{path} wasn't opened. {why}"))
    program.hands.click(program.window.named("BAR_1_Button1"))
    program.expect_title("handed.kvrt207d - Zorvane")
    wait_for("no bar", lambda: not program.shows("BAR_1"))


def a_save_of_its_own_is_no_change_on_disk(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    program.select_field(REGULATION)
    program.enter(0, VALUE, "1200")
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.hands.keys("ctrl+s")
    expect("the end of the save", lambda: (program.title, program.panel(4)), ("site7.kvrt207d - Zorvane", ""))
    assert not program.shows("BAR_1"), _bar(program)
    with open(path, "ab") as file:
        file.write(b"; another program's\r\n")
    word, said = _bar(program)
    assert word == "Warning" and said.startswith(f"{path} was changed on disk by another program at "), said


def _changed_on_disk(program):
    """A document that is open, and another program that saves it."""
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.enlarge()
    program.select_field(1)
    with open(path, "rb") as file:
        text = file.read()
    beside = path + ".new"
    with open(beside, "wb") as file:
        file.write(text.replace(b"Motor contactor up K1", b"Breaker Q7"))
    os.replace(beside, path)  # as editors save
    word, said = _bar(program)
    assert word == "Warning" and said.startswith(f"{path} was changed on disk by another program at "), said


def a_change_on_disk_is_read_again_by_keyboard_alone(program):
    _changed_on_disk(program)
    with Only_Keyboard(program):
        program.hands.keys("End", "Tab")
        program.expect_focus_in_settings()
        program.hands.keys("ctrl+Home", "shift+Tab", "shift+Tab", "shift+Tab")
        expect("the keyboard", lambda: program.focus.owner.name, "Reload")
        program.hands.keys("Return")
        wait_for("no bar", lambda: not program.shows("BAR_1"))
        program.select_field(1)
        wait_for("the new value", lambda: any("Breaker Q7" in row for row in program.settings.texts()))


def a_change_on_disk_is_told_and_read_again(program):
    _changed_on_disk(program)
    offered = [program.window.named(f"BAR_1_Button{number}") for number in (1, 2)]
    assert [button.name for button in offered] == ["Compare", "Reload"], offered
    program.hands.click(offered[1])
    program.select_field(1)
    wait_for("the new value", lambda: any("Breaker Q7" in row for row in program.settings.texts()))
    wait_for("no bar", lambda: not program.shows("BAR_1"))


def an_own_save_is_no_change_on_disk(program):
    path = program.document()
    program.start()
    program.open(path)
    program.expect_title("site7.kvrt207d - Zorvane")
    program.select_field(1)
    program.enter(0, 2, "Breaker Q7")
    program.expect_title("* site7.kvrt207d - Zorvane")
    program.choose("File", "Save")
    program.expect_title("site7.kvrt207d - Zorvane")
    program.expect_panel(4, "")
    with open(path, "ab") as file:  # the next one is somebody else's, and the first line of all
        file.write(b"\r\n")
    word, said = _bar(program)
    assert "was changed on disk" in said, said
    assert not program.shows("BAR_2"), "the own save was told, too"
