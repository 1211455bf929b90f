#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Holds the manual pages against what the programs say of themselves: every call and every option, both ways.

    check_man.py PROGRAMS PAGES

PROGRAMS is the folder of the built programs, PAGES that of the manual pages.
"""
import os
import re
import subprocess
import sys

OPTION = re.compile(r"(?<![\w-])(--[a-z][a-z0-9-]*|-[a-z](?=[,\s]))")


def help_of(programs, *command):
    program, *arguments = command
    done = subprocess.run([os.path.join(programs, program), *arguments, "--help"], capture_output=True, text=True,
                          timeout=60)
    assert done.returncode == 0, f"{' '.join(command)} --help: {done.stderr}"
    return done.stdout


def options_of_help(text):
    """The options that begin a line, all their spellings."""
    found = set()
    for line in text.splitlines():
        names = re.match(r"\s{2,6}(-\S+)", line)
        if names:
            found.update(re.findall(r"--?[a-z][a-z0-9-]*", names[1]))
    return found


def calls_of_help(text):
    after = text.split("Subcommands:", 1)
    return set(re.findall(r"^  ([a-z-]+) ", after[1], re.MULTILINE)) if len(after) == 2 else set()


def sections(page, kind):
    """The blocks of a page by their headings; a block ends at the next heading of its rank or above."""
    parts = re.split(rf"^\.{kind} (.+)$", page, flags=re.MULTILINE)[1:]
    blocks = {heading.strip('"'): text for heading, text in zip(parts[::2], parts[1::2])}
    return {heading: re.split(r"^\.SH ", text, flags=re.MULTILINE)[0] for heading, text in blocks.items()}


def options_of_page(text):
    """The options that a paragraph of their own tells of."""
    found = set()
    for tag in re.findall(r"^\.TP\n(.+)$", text, re.MULTILINE):
        found.update(OPTION.findall(tag.replace("\\-", "-").replace('"', "") + " "))
    return found


def read(pages, program):
    with open(os.path.join(pages, program + ".1"), encoding="ascii") as page:
        return page.read()


def differences(what, page, program):
    return [f"{what}: the page has {name}, the program doesn't" for name in sorted(page - program)] + \
           [f"{what}: the page lacks {name}" for name in sorted(program - page)]


def check_simulator(programs, pages):
    page, told = read(pages, "zorvane-sim"), help_of(programs, "zorvane-sim")
    wrong = differences("zorvane-sim", options_of_page(page), options_of_help(told))
    for number, option in enumerate(("fault", "quirk"), 1):
        kinds = set(re.findall(r"^  ([a-z-]+)(?:\[?=N\]?)? +\S", told.split("Kinds:")[number], re.MULTILINE))
        part = sections(page, "SH")[option.upper() + "S"].replace("\\-", "-")
        on_page = set(re.findall(r"^\.TP\n\.B[IR]? ([a-z-]+)", part, re.MULTILINE))
        wrong += differences(f"zorvane-sim --{option}", on_page, kinds)
    return wrong


def check_open(programs, pages):
    page, told = read(pages, "zorvane-open"), help_of(programs, "zorvane-open")
    return differences("zorvane-open", options_of_page(page), options_of_help(told))


def check_terminal(programs, pages):
    page, told = read(pages, "zorvanectl"), help_of(programs, "zorvanectl")
    parts, calls = sections(page, "SH"), sections(page, "SS")
    common, line = options_of_page(parts["OPTIONS"]), options_of_page(parts["LINE OPTIONS"])
    wrong = differences("zorvanectl", set(calls), calls_of_help(told))
    wrong += differences("zorvanectl without a call", common & {"-h", "--help", "--version"}, options_of_help(told))
    for call in sorted(set(calls) & calls_of_help(told)):
        own = options_of_page(calls[call]) | (common - {"--version"})
        own |= line if "LINE OPTION" in calls[call] else set()
        wrong += differences(f"zorvanectl {call}", own, options_of_help(help_of(programs, "zorvanectl", call)))
    return wrong


def main(programs, pages):
    wrong = check_open(programs, pages) + check_simulator(programs, pages) + check_terminal(programs, pages)
    if options_of_page(read(pages, "zorvane")):
        wrong.append("zorvane takes no argument, but its page has options")
    print("\n".join(wrong) or "The pages and the programs agree.")
    return 1 if wrong else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
