#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Follows every file that the window and the terminal program open for writing, make, rename or delete.

    writes.py PROGRAMS

The window opens, edits, saves, saves under another name, closes and ends; the terminal program reads, saves and prints
a report. Nothing but the documents that were named, the settings, the recovery copies and what the system's own
libraries keep may be touched. Needs strace. Exit code 1 when something else was written.
"""
import os
import re
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "window"))

from driver.desktop import Desktop  # noqa: E402
from driver.zorvane import Zorvane  # noqa: E402

CALLS = "open,openat,creat,rename,renameat,renameat2,unlink,unlinkat,mkdir,mkdirat,link,linkat,symlink,symlinkat," \
        "truncate,chmod,fchmodat,rmdir"
WRITING = re.compile(r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC|O_APPEND")
# What Qt, fontconfig, D-Bus and the kernel use by themselves.
SYSTEM = ("/dev/null", "/dev/tty", "/dev/shm/", "/proc/self/", "/memfd:", "/dev/dri")


class Follower:
    """A program under strace, which stays the direct child of whoever starts it."""

    def __init__(self, log):
        self.log = log

    def command(self, *program):
        return ["strace", "-D", "-f", "-q", "-o", self.log, "-e", "trace=" + CALLS, *program]

    def written(self):
        """The paths of all calls that succeeded and could change something."""
        paths = set()
        with open(self.log, encoding="utf-8", errors="replace") as file:
            for line in file:
                call = re.match(r"\d+ +(\w+)\((.*)\) += +(-?\d+)", line)
                if not call or int(call[3]) < 0:
                    continue
                if call[1] in ("open", "openat") and not WRITING.search(call[2]):
                    continue
                paths.update(re.findall(r'"([^"]*)"', call[2]))
        return paths


def check(title, paths, allowed, folder):
    """Prints what was written; the paths that may not have been are given."""
    wrong = []
    for path in sorted(paths):
        full = os.path.normpath(os.path.join(folder, path))
        good = full.startswith((*allowed, *SYSTEM)) or full == os.path.join(folder, "config")
        print(f"{title}: {'  ' if good else '! '}{full.replace(folder, 'FOLDER')}")
        if not good:
            wrong.append(full)
    return wrong


def window(programs):
    with Desktop() as desktop:
        program = Zorvane(desktop, programs)
        path = program.document()
        other = os.path.join(os.path.dirname(path), "other.kvrt207d")
        follower = Follower(desktop.path("trace.txt"))
        script = desktop.path("followed")
        with open(script, "w", encoding="utf-8") as file:
            file.write(f"#!/bin/sh\nexec {' '.join(follower.command(program._executable))}\n")
        os.chmod(script, 0o755)
        program._executable = script
        program.start()
        program.open(path)
        program.expect_title("site7.kvrt207d - Zorvane")
        program.select_field(1)
        program.enter(0, 2, "Breaker Q7")
        program.expect_title("* site7.kvrt207d - Zorvane")
        program.choose("File", "Save")
        program.expect_title("site7.kvrt207d - Zorvane")
        program.expect_panel(4, "")
        program.save_as(other)
        program.expect_title("other.kvrt207d - Zorvane")
        program.expect_panel(4, "")
        program.choose("File", "Exit")
        program.wait_for_end()
        environment = desktop.environment
        # Qt's own file dialog remembers its folders in QtProject.conf.
        allowed = (path, other, environment["XDG_CONFIG_HOME"] + "/Zorvane",
                   environment["XDG_CONFIG_HOME"] + "/QtProject.conf", environment["XDG_DATA_HOME"],
                   environment["XDG_CACHE_HOME"], environment["XDG_RUNTIME_DIR"])
        return check("window", follower.written(), allowed, desktop.folder)


def terminal(programs):
    with Desktop() as desktop:
        program = Zorvane(desktop, programs)
        path, out = program.document(), desktop.path("out", "")
        wrong = []
        for number, (call, *rest) in enumerate([
                ("dump", path), ("save", path, out + "saved.kvrt207d"),
                ("report", path, "--format", "xls", "--out", out + "report.xls")]):
            follower = Follower(desktop.path(f"trace{number}.txt"))
            ctl = os.path.join(programs, "zorvanectl")
            subprocess.run(follower.command(ctl, call, program.template("KVRT207D"), *rest), check=True,
                           env=desktop.environment, stdout=subprocess.DEVNULL, timeout=60)
            wrong += check(call, follower.written(), (out,), desktop.folder)
        return wrong


def main(programs):
    wrong = terminal(programs) + window(programs)
    for path in wrong:
        print("written outside:", path)
    return 1 if wrong else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(os.path.abspath(sys.argv[1])))
