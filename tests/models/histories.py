# SPDX-License-Identifier: MIT
"""Undoing and doing again, by whole copies of the document before and after each step."""
import copy

from values import is_numeric

NAMES = ["change of Page, Set point", "fill of 3 values", "import of 2 values", "upload of 9 values", "take of 4 values"]


def cells_of(document):
    return {(f, r, c): text for f, field in enumerate(document, 1) for r, row in enumerate(field, 1)
            for c, text in enumerate(row, 1)}


class Editing:
    def __init__(self, case):
        self.case = case
        self.now = [[[cell["value"] for cell in row] for row in field["cells"]] for field in case["fields"]]
        self.done, self.undone = [], []
        self.ground = self.written = self.newest = 0  # numbers of states: before the first step, in the file, and the latest

    @property
    def state(self):
        return self.done[-1]["to"] if self.done else self.ground

    def step(self, name, before):
        """What a deed made of the document is a step, if it is anything."""
        old, new = cells_of(before), cells_of(self.now)
        cells = {place for place in new if new[place] != old[place]}
        if not cells:
            return
        self.newest += 1
        self.done.append({"name": name, "before": old, "after": new, "cells": cells, "to": self.newest})
        self.undone = []
        while len(self.done) > self.case["limit"]:
            self.ground = self.done.pop(0)["to"]

    def set(self, place, text):
        self.now[place[0] - 1][place[1] - 1][place[2] - 1] = text

    def drop_stale(self, steps, left):
        """Takes the next steps away of which no cell holds what they left."""
        while steps and not any(cells_of(self.now)[place] == steps[-1][left][place] for place in steps[-1]["cells"]):
            steps.pop()
            if left == "after":
                self.written = None

    def move(self, steps, others, left, then):
        if not steps:
            return None
        step = steps.pop()
        now = cells_of(self.now)
        mine = {place for place in step["cells"] if now[place] == step[left][place]}
        for place in mine:
            self.set(place, step[then][place])
        out = sorted(step["cells"] - mine)
        if out:  # what isn't taken back makes it another document than any file has
            self.written = None
        step["cells"] = mine
        if mine:
            others.append(step)
        return {"name": step["name"], "changed": [list(each) for each in sorted(mine)], "left out": [list(each) for each in out],
                "as written": self.state == self.written}

    def paste(self, deed):
        f, first_row, first_column, last_row, last_column = deed["selection"]
        block, field = deed["block"], self.case["fields"][f - 1]
        if len(block) == 1 and len(block[0]) == 1:
            block = [[block[0][0]] * (last_column - first_column + 1) for _ in range(last_row - first_row + 1)]
        before, refused, taken = copy.deepcopy(self.now), [], 0
        for r, row in enumerate(block, first_row):
            for c, text in enumerate(row, first_column):
                if r <= len(field["cells"]) and c <= len(field["columns"]) and self.takes(f, r, c, text):
                    taken += text != self.now[f - 1][r - 1][c - 1]
                    self.set((f, r, c), text)
                else:
                    refused.append([f, r, c])
        self.step(f"paste of {taken} value{'' if taken == 1 else 's'}", before)
        return sorted(refused)

    def takes(self, f, r, c, text):
        if text == self.now[f - 1][r - 1][c - 1]:
            return True
        head = self.case["fields"][f - 1]["columns"][c - 1]
        if not head["modifiable"]:
            return False
        return "," not in text if head["type"] == "TEXT" else is_numeric(text) and -32768 <= float(text) <= 32767

    def do(self, deed):
        kind = deed["deed"]
        if kind == "undo":
            return self.move(self.done, self.undone, "after", "before")
        if kind == "redo":
            return self.move(self.undone, self.done, "before", "after")
        if kind == "paste":
            return self.paste(deed)
        if kind == "put":
            before = copy.deepcopy(self.now)
            for place, text in deed["values"]:
                self.set(place, text)
            self.step(deed["name"], before)
        if kind == "poll":
            self.set(deed["place"], deed["text"])
        if kind == "look":
            self.drop_stale(self.done, "after")
            self.drop_stale(self.undone, "before")
        if kind == "save":
            self.written = self.state
        if kind in ("for good", "cut save"):
            self.written = None
        return None


def outcome(case):
    editing, told = Editing(case), []
    for deed in case["deeds"]:
        came = editing.do(deed)
        told.append({"came": came, "undo": editing.done[-1]["name"] if editing.done else None,
                     "redo": editing.undone[-1]["name"] if editing.undone else None,
                     "steps": len(editing.done) + len(editing.undone), "values": copy.deepcopy(editing.now)})
    return told


# The case.

def place(dice, case):
    f = dice.randrange(len(case["fields"]))
    field = case["fields"][f]
    return [f + 1, dice.randint(1, field["rows"]), dice.randint(1, len(field["columns"]))]


def value(dice):
    return str(dice.randint(0, 4))


def deed(dice, case):
    kind = dice.choice(["put", "put", "put", "paste", "undo", "undo", "undo", "redo", "redo", "poll", "look", "save", "for good",
                        "cut save"] if dice.random() < 0.3 else ["put", "put", "paste", "undo", "undo", "redo"])
    made = {"deed": kind}
    if kind == "put":
        made |= {"name": dice.choice(NAMES), "values": [[place(dice, case), value(dice)] for _ in range(dice.choice([1, 1, 2, 5]))]}
    elif kind == "poll":
        made |= {"place": place(dice, case), "text": value(dice)}
    elif kind == "paste":
        at = place(dice, case)
        rows, columns = dice.randint(1, 3), dice.randint(1, 3)
        field = case["fields"][at[0] - 1]
        made |= {"selection": at + [dice.randint(at[1], field["rows"]), dice.randint(at[2], len(field["columns"]))],
                 "block": [[dice.choice([value(dice), value(dice), value(dice), "abc", "70000", "a,b"]) for _ in range(columns)]
                           for _ in range(rows)]}
    return made


def history(dice):
    case = {"kind": "history", "limit": dice.choice([1, 2, 3, 1000, 1000]), "fields": []}
    for _ in range(dice.randint(1, 2)):
        rows, columns = dice.randint(1, 3), dice.randint(1, 3)
        heads = [{"heading": f"C{c}", "width": 100, "alignment": "", "modifiable": dice.random() < 0.8, "bits": "", "request": "",
                  "type": dice.choice(["NUMERIC", "ASCII", "TEXT"])} for c in range(columns)]
        cells = [[{"address": "", "ascii": False, "end": "", "value": value(dice), "format": "", "request": "", "min": "", "max": "",
                   "messages": None} for _ in heads] for _ in range(rows)]
        case["fields"].append({"rows": rows, "columns": heads, "cells": cells})
    case["deeds"] = [deed(dice, case) for _ in range(dice.randint(1, 30))]
    return case
