#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the models with the system on random cases.

    compare_models.py HOST (tables | edits | transfers | histories) [COUNT [SEED]]

HOST is the program model_host, which does the cases with the system's own code. The models share none of it. Without a
COUNT a few cases are taken, or, with ZORVANE_MODELS=full in the environment, as many as docs/quality.md claims.
"""
import json
import os
import random
import subprocess
import sys

import cases
import edits
import histories
import tables
import transfers

KINDS = {"tables": (cases.table, tables.outcome, 1500, 100000), "edits": (cases.edit, edits.outcome, 3000, 100000),
         "transfers": (cases.transfer, transfers.outcome, 30, 1000),
         "histories": (histories.history, histories.outcome, 300, 10000)}
BATCH = 1000


def outcomes(host, batch):
    lines = "".join(json.dumps(case, ensure_ascii=False) + "\n" for case in batch)
    done = subprocess.run([host], input=lines, capture_output=True, encoding="utf-8", check=False)
    answers = [json.loads(line) for line in done.stdout.split("\n") if line]
    if done.returncode or len(answers) != len(batch):
        sys.exit(f"{host} ended with {done.returncode} after {len(answers)} of {len(batch)} cases: {done.stderr}\n"
                 f"{json.dumps(batch[min(len(answers), len(batch) - 1)], indent=1)}")
    return answers


def main():
    host, kind = sys.argv[1:3]
    make, model, few, full = KINDS[kind]
    usual = full if os.environ.get("ZORVANE_MODELS") == "full" else few
    count = int(sys.argv[3]) if len(sys.argv) > 3 else usual
    source = random.Random(int(sys.argv[4]) if len(sys.argv) > 4 else 1)
    different = 0
    for start in range(0, count, BATCH):
        batch = [make(source) for _ in range(min(BATCH, count - start))]
        for case, told in zip(batch, outcomes(host, batch)):
            expected = json.loads(json.dumps(model(case)))
            if told == expected:
                continue
            different += 1
            if different <= 5:
                parts = expected if isinstance(expected, dict) else dict(enumerate(expected))
                print(json.dumps(case))
                for name, value in parts.items():
                    if told[name] != value:
                        print(f"  {name}: the model says {json.dumps(value)}\n  {' ' * len(str(name))}  the system "
                              f"{json.dumps(told[name])}")
    print(f"{count} {kind}, {different} differences")
    return 1 if different or not count else 0


sys.exit(main())
