#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Runs one scenario of the window on a desktop of its own.

    run.py PROGRAMS MODULE.SCENARIO [EVIDENCE]

PROGRAMS is the folder of the built programs. A scenario is a public function of a module in `scenarios`. When it
fails, a picture of the screen, the accessibility tree and what the programs printed stay in the folder EVIDENCE.
"""
import importlib
import os
import shutil
import sys
import traceback

from driver.desktop import Desktop
from driver.picture import save
from driver.zorvane import Zorvane


def keep_evidence(desktop, program, folder):
    os.makedirs(folder, exist_ok=True)
    save(desktop, os.path.join(folder, "screen.png"))
    shutil.copytree(desktop.path("logs"), os.path.join(folder, "logs"), dirs_exist_ok=True)
    with open(os.path.join(folder, "tree.txt"), "w", encoding="utf-8") as tree:
        for root in desktop.accessibility.programs():
            tree.write("\n".join(root.dump()) + "\n")
    print(f"a picture, the tree and the logs are in {folder}", file=sys.stderr)


def main(programs, name, evidence=None):
    module, scenario = name.split(".")
    run = getattr(importlib.import_module("scenarios." + module), scenario)
    shutil.rmtree(evidence or "", ignore_errors=True)
    with Desktop() as desktop:
        program = Zorvane(desktop, os.path.abspath(programs))
        try:
            run(program)
        except Exception:
            traceback.print_exc()
            if evidence:
                keep_evidence(desktop, program, evidence)
            return 1
    return 0


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
