#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Opens, edits, saves and closes a document again and again, and kills the window at random moments.

    kills.py PROGRAMS [--kills N] [--seed N]

Half of the kills come at any moment of the program's life, the other half while the file is being written. After each
one the document's file must be whole, as it was or as it was to become; or, cut short by the kill, the beginning of
the new text, and then a recovery copy must hold all of it. A change that was seen for a second must be in a copy in any
case. Nothing else may lie in the document's folder. Exit code 1 when anything was lost.
"""
import argparse
import collections
import ctypes
import os
import random
import shutil
import sys
import threading
import time

from driver.desktop import Desktop
from driver.waiting import Given_Up, Vanished, given_up, wait_for
from driver.zorvane import SAVED_FOLDER, Zorvane

EDITED_CELL = (0, 2)  # of field 1: a free text
LONGEST_LIFE_S = 7.0  # a start and two or three rounds
LONGEST_WRITE_S = 0.003
LONGEST_WITHOUT_A_COPY_S = 1.0
SLACK_S = 0.5  # for a busy machine, and for looking
NOT_KEPT_YET = "whole, old; the change not kept yet"
MARK = b"Kill 00000"
IN_MODIFY = 0x2


class File_Watch:
    """Tells when a file is first written to."""

    def __init__(self, path):
        libc = ctypes.CDLL(None, use_errno=True)
        self._file = libc.inotify_init1(os.O_CLOEXEC)
        self._watch = libc.inotify_add_watch(self._file, path.encode(), IN_MODIFY)
        assert self._watch > 0, os.strerror(ctypes.get_errno())

    def wait(self):
        os.read(self._file, 4096)

    def close(self):
        os.close(self._file)


class Document:
    """A file whose text is known for each round: all rounds differ in one cell, and by the same number of bytes."""

    def __init__(self, program):
        self.path = program.document()
        template = program.template("KVRT207D")
        program.terminal.ask("set", template, self.path, 1, 1, 3, MARK.decode(), "--save", self.path)
        with open(self.path, "rb") as file:
            self._text = file.read()
        assert self._text.count(MARK) == 1
        self.round = 0

    @staticmethod
    def entry(number):
        return f"Kill {number:05d}"

    def text(self, number):
        return self._text.replace(MARK, self.entry(number).encode())

    def now(self):
        with open(self.path, "rb") as file:
            return file.read()

    def restore(self, text):
        with open(self.path, "wb") as file:
            file.write(text)


class Life:
    """One life of the program, from its start to the kill."""

    def __init__(self, program, document, dice):
        self.program, self.document = program, document
        self.doing = "start"
        self._while_writing = dice.random() < 0.5
        self._moment = dice.uniform(0, LONGEST_WRITE_S if self._while_writing else LONGEST_LIFE_S)
        self._killer = None
        self._seen = self._killed = None  # when the change was seen, and when the kill came

    def change_had_its_second(self):
        """Whether the last change had been there for so long that a copy must hold it."""
        return self._seen is not None and self._killed - self._seen > LONGEST_WITHOUT_A_COPY_S

    def run(self):
        given_up.clear()
        if not self._while_writing:
            self._kill_later(lambda: None)
        try:
            self.program.start()
            while True:
                self._round()
        except (Given_Up, Vanished, AssertionError):
            if not given_up.is_set() and self.program.process.poll() is None:
                raise
        self._killer.join()
        given_up.clear()

    def _round(self):
        program, document = self.program, self.document
        self._seen = None
        self.doing = "open"
        program.open(document.path)
        name = os.path.basename(document.path)
        program.expect_title(f"{name} - Zorvane")
        self.doing = "edit"
        program.select_field(1)
        document.round += 1
        program.enter(*EDITED_CELL, document.entry(document.round))
        program.expect_title(f"* {name} - Zorvane")
        self._seen = time.monotonic()
        if not self._while_writing:
            self.doing = "wait for the copy"
            wait_for("a copy of the change", lambda: program.copy_with(document.entry(document.round).encode()))
            assert time.monotonic() - self._seen < LONGEST_WITHOUT_A_COPY_S + SLACK_S, "the copy came late"
        self.doing = "save"
        if self._while_writing:
            watch = File_Watch(document.path)
            self._kill_later(watch.wait, watch.close)
        program.choose("File", "Save")
        program.expect_title(f"{name} - Zorvane")
        self.doing = "close"
        program.expect_panel(4, "")
        program.choose("File", "Close")
        program.expect_title("Zorvane")

    def _kill_later(self, begin, end=lambda: None):
        # The program of this life: by the time of the kill there is no other.
        def kill():
            begin()
            # The moment is what is drawn by lot, not a wait for something to happen.
            threading.Event().wait(self._moment)
            while self.program.process is None:
                threading.Event().wait(0.01)
            self._killed = time.monotonic()
            self.program.kill()
            end()
            given_up.set()
        self._killer = threading.Thread(target=kill, daemon=True)
        self._killer.start()


class Judge:
    """What a kill left behind."""

    def __init__(self, program, document):
        self._document = document
        self._copies = program.desktop.environment["XDG_DATA_HOME"]
        self.lost = []

    def look(self, life):
        """One word for what became of the file; what is lost is noted."""
        document = self._document
        text, new, old = document.now(), document.text(document.round), document.text(document.round - 1)
        outcome = self._outcome(text, new, old)
        if outcome == NOT_KEPT_YET and life.change_had_its_second():
            outcome = "the change lost"
        others = [name for name in os.listdir(os.path.dirname(document.path))
                  if name != os.path.basename(document.path)]
        if outcome in ("other bytes", "cut, no copy", "the change lost") or others:
            self.lost.append((life.doing, outcome, others, text))
        document.restore(new)
        shutil.rmtree(self._copies)
        os.mkdir(self._copies, 0o700)
        return outcome

    def _outcome(self, text, new, old):
        if text == new:
            return "whole, new"
        if text == old:
            return "whole, old; the change in a copy" if self._copy_of(new) else NOT_KEPT_YET
        if new.startswith(text):
            return "cut, a copy has all" if self._copy_of(new) else "cut, no copy"
        return "other bytes"

    def _copy_of(self, wanted):
        for folder, _, names in os.walk(self._copies):
            for name in names:
                with open(os.path.join(folder, name), "rb") as file:
                    lines = file.read().splitlines(keepends=True)
                text = b"".join(line for line in lines if not line.startswith(b";"))
                if not name.endswith(".unfinished") and os.path.basename(folder) != SAVED_FOLDER and text == wanted:
                    return True
        return False


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs")
    parser.add_argument("--kills", type=int, default=1000)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    dice = random.Random(options.seed)
    outcomes, moments = collections.Counter(), collections.Counter()
    with Desktop() as desktop:
        program = Zorvane(desktop, os.path.abspath(options.programs))
        document = Document(program)
        judge = Judge(program, document)
        for number in range(1, options.kills + 1):
            life = Life(program, document, dice)
            program.process = None
            life.run()
            moments[life.doing] += 1
            outcomes[judge.look(life)] += 1
            if number % 50 == 0:
                print(f"{number} kills: {document.round} rounds, {len(judge.lost)} losses", flush=True)
        program.start()
        wait_for("the list of copies to be offered", lambda: program.is_enabled("File", "Recover..."))
    print("killed in:", ", ".join(f"{what} {count}" for what, count in moments.most_common()))
    for what, count in outcomes.most_common():
        print(f"{count:6d}  {what}")
    for loss in judge.lost[:10]:
        print("lost:", loss)
    return 1 if judge.lost else 0


if __name__ == "__main__":
    sys.exit(main())
