#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the models with the programs on random cases.

    compare_programs.py PROGRAMS (comparisons | documents | plans | spreadsheets | listening) [COUNT [SEED]]

PROGRAMS is the folder of zorvanectl. The models share no code with it. Without a COUNT a few cases are taken, or, with
ZORVANE_MODELS=full in the environment, as many as docs/quality.md claims. Each case has a seed of its own, so that one can
be run alone: its number is told with it.
"""
import json
import os
import random
import shutil
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor

import comparisons
import documents
import listening
import plans
import programs
import spreadsheets
import template_texts

KINDS = {"comparisons": (programs.comparison, comparisons.outcome, programs.compared, 60, 10000, 2),
         "documents": (template_texts.case, documents.outcome, programs.opened, 30, 3000, 2),
         "plans": (plans.plan, plans.outcome, plans.planned, 8, 1000, 12),
         "spreadsheets": (spreadsheets.spreadsheet, spreadsheets.outcome, spreadsheets.done, 30, 10000, 2),
         "listening": (listening.bus, listening.outcome, listening.heard, 15, 1000, 2)}


def differences(expected, told, path=""):
    """Each place where two differ, as a line."""
    if isinstance(expected, dict) and isinstance(told, dict):
        return [line for name in sorted(expected.keys() | told.keys())
                for line in differences(expected.get(name), told.get(name), f"{path}.{name}")]
    if isinstance(expected, list) and isinstance(told, list) and len(expected) == len(told):
        return [line for k, (one, other) in enumerate(zip(expected, told)) for line in differences(one, other, f"{path}[{k}]")]
    if expected == told:
        return []
    return [f"  {path}: the model says {json.dumps(expected)}\n  {' ' * len(path)}  the program {json.dumps(told)}"]


def done(kind, programs_folder, seed):
    make, model, run, _, _, _ = KINDS[kind]
    case = make(random.Random(seed))
    folder = tempfile.mkdtemp()
    try:
        told = run(case, programs.Place(programs_folder, folder))
    finally:
        shutil.rmtree(folder)
    return case, differences(json.loads(json.dumps(model(case))), told)


def main():
    folder, kind = os.path.abspath(sys.argv[1]), sys.argv[2]
    _, _, _, few, full, workers = KINDS[kind]
    usual = full if os.environ.get("ZORVANE_MODELS") == "full" else few
    count = int(sys.argv[3]) if len(sys.argv) > 3 else usual
    first = int(sys.argv[4]) if len(sys.argv) > 4 else 1
    different = 0
    with ThreadPoolExecutor(workers) as pool:
        seeds = range(first, first + count)
        for seed, (case, lines) in zip(seeds, pool.map(lambda each: done(kind, folder, each), seeds)):
            if not lines:
                continue
            different += 1
            if different <= 5:
                print(f"Case {seed}:", *lines[:6], sep="\n")
                if count == 1:
                    print(json.dumps(case))
    print(f"{count} {kind}, {different} differences")
    return 1 if different or not count else 0


if __name__ == "__main__":
    sys.exit(main())
