#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Runs the examples of the manual and compares what the programs print.

    check_examples.py PROGRAMS PAGE.md...

An example is a block marked as console, or any block that begins with "$ ./". A line that begins with "$ " is a
command for the shell; the lines after it are what it prints, on both outputs. "..." stands for anything: as a line for
any lines, elsewhere for the rest of its line. A command that ends in "&" goes on until the page ends; the next one waits
for its first line. The blocks of a page are run one after the other in one folder with the programs and the models.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile

BLOCK = re.compile(r"^```(?P<kind>\w*)\n(?P<body>.*?)^```$", re.MULTILINE | re.DOTALL)
MODELS = (".ZTP", ".KVRT", ".KVRT100", ".KVRT207D", ".R7702-16")
PROGRAMS = ("zorvanectl", "zorvane-sim")
COMMAND_S = 60


def blocks_of(text):
    """The examples: the line of the page on which each begins, and its lines."""
    for found in BLOCK.finditer(text):
        if found["kind"] == "console" or found["body"].startswith("$ ./"):
            yield text[:found.start()].count("\n") + 2, found["body"].splitlines()


def steps_of(first_line, lines):
    """Commands with the lines that they should print: (line of the page, command, lines)."""
    steps = []
    for number, line in enumerate(lines, first_line):
        if line.startswith("$ "):
            steps.append((number, line[2:], []))
        else:
            assert steps, f"line {number}: an example begins with a command"
            steps[-1][2].append(line)
    return steps


def same_line(wanted, seen):
    before, dots, _ = wanted.partition("...")
    return seen.startswith(before) if dots else seen.rstrip() == wanted.rstrip()


def agrees(wanted, seen):
    """Whether the lines seen are those wanted."""
    if not wanted:
        return not seen
    if wanted[0].strip() == "...":
        return any(agrees(wanted[1:], seen[start:]) for start in range(len(seen) + 1))
    return bool(seen) and same_line(wanted[0], seen[0]) and agrees(wanted[1:], seen[1:])


class Shell:
    """A folder with the programs in which the commands of a page run."""

    def __init__(self, programs):
        self.folder = tempfile.mkdtemp(prefix="zorvane-manual-")
        for file in os.listdir(programs):
            if file in PROGRAMS or file.upper().endswith(MODELS):
                shutil.copy2(os.path.join(programs, file), self.folder)
        self._environment = {**os.environ, "LC_ALL": "C.UTF-8", "TZ": "UTC", "HOME": self.folder,
                             "QT_QPA_PLATFORM": "offscreen", "COLUMNS": "100"}
        self._running = []

    def run(self, command):
        """What it prints, as lines."""
        if command.endswith("&"):
            process = subprocess.Popen(["bash", "-c", "exec " + command[:-1]], cwd=self.folder, env=self._environment,
                                       stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
            self._running.append(process)
            return [process.stdout.readline().decode("utf-8").rstrip("\n")]
        done = subprocess.run(["bash", "-c", command], cwd=self.folder, env=self._environment, timeout=COMMAND_S,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return done.stdout.decode("utf-8", errors="replace").splitlines()

    def close(self):
        for process in self._running:
            process.terminate()
            process.communicate()
        shutil.rmtree(self.folder)


def faults_of(page, programs):
    """What a page says that isn't so, and how many commands it has."""
    with open(page, encoding="utf-8") as file:
        text = file.read()
    faults, count = [], 0
    shell = Shell(programs)
    try:
        for first_line, lines in blocks_of(text):
            for number, command, wanted in steps_of(first_line, lines):
                count += 1
                seen = shell.run(command)
                if not agrees(wanted, seen):
                    shown = "\n".join("    " + line for line in seen[:60])
                    faults.append(f"{page}:{number}: $ {command}\n  it prints:\n{shown}")
    finally:
        shell.close()
    return faults, count


def main(programs, *pages):
    faults, count = [], 0
    for page in pages:
        found, commands = faults_of(page, programs)
        faults += found
        count += commands
    for fault in faults:
        print(fault, file=sys.stderr)
    print(f"{count} commands, {len(faults)} that print something else")
    return 1 if faults or count == 0 else 0


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
