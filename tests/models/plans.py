# SPDX-License-Identifier: MIT
"""Which registers a plan writes with which values, in which order, and what a send of it leaves in the controller."""
import json

import programs
import sheets
from comparisons import WORDS, filtered, held, registers_of, rows
from sheets import values
from slave import Slave
from values import Failure, half_of, is_numeric, quotient, rest, signed, strict_long, time_seconds, val


def is_limited(head, cell):
    """Whether the numbers of a column are held against the limits of its cells."""
    return head["type"].upper() in ("NUMERIC", "NUMERIC_UNSIGNED", "TIME")


def strays(head, cell, text, item):
    """A value outside its limits, or what the file has for a list and no list has."""
    if cell["messages"] is not None:
        texts = [entry.strip(" ").upper() for _, entry in cell["messages"]]
        codes = [float(code) for code, _ in cell["messages"]]
        item = item.strip(" ")
        return bool(item) and item.upper() not in texts and not (is_numeric(item) and float(item) in codes)
    if cell["ascii"] or not text.strip(" "):
        return False
    if cell["format"].upper() == "TIME":
        return bool(cell["min"] and cell["max"]) and not val(cell["min"]) <= time_seconds(text) <= val(cell["max"])
    low, high = ("0", "65535") if cell["format"].upper() == "NUMERIC_UNSIGNED" else ("-32768", "32767")
    if is_limited(head, cell):
        low, high = cell["min"] or low, cell["max"] or high
    return not val(low) <= val(text) <= val(high)


def part_of(cell):
    half = half_of(cell["address"])
    return half[1] if half else cell["format"].upper() if cell["format"].upper() in ("TIMEMM", "TIMESS") else ""


def composed(part, raw, old):
    if part in ("HI", "LO"):
        return raw * 256 + (old & 255) if part == "HI" else (old & 0xFF00) + raw
    if part == "TIMEMM":
        return (raw * 60 + rest(signed(old), 60)) & 0xFFFF
    if part == "TIMESS":
        return (quotient(signed(old), 60) * 60 + raw) & 0xFFFF
    return raw


def fails(made, head, cell, text):
    """Whether a download of the cell would end in a failure."""
    try:
        if made["board"]:
            return False
        if cell["ascii"]:
            first, last = registers_of(cell)
            return max(text.encode("cp1252")[:2 * (last - first + 1)], default=0) >= 128
        if part_of(cell) in ("TIMEMM", "TIMESS"):
            strict_long(text)
    except Failure:
        return True
    return False


def chosen(case, place):
    return not case["only"] or any(place[:len(each)] == tuple(each) for each in case["only"])


def named(case, place):
    return any(len(each) > 1 and place[:len(each)] == tuple(each) for each in case["only"])


def last_items(made, *files):
    """What the files have for each cell, letter by letter. A template's own mistakes are the checker's."""
    held_items = [[["" for _ in field["columns"]] for _ in field["cells"]] for field in made["fields"]]
    for rows_of_file in files:
        for f, field in enumerate(rows_of_file):
            for r, row in enumerate(field):
                if row is not None:
                    held_items[f][r] = row
    return held_items


def read_registers(case):
    """What both readings of the controller bring: a block that holds one refused register brings nothing. Those that can only be
    written aren't asked for: what stands between them is read by itself."""
    refused, blind = set(case["refused"]), set(case["sheet"]["write only"])
    found = {}
    for first, last, _ in case["sheet"]["blocks"]:
        run = []
        for number in range(first, last + 2):
            if number in blind or number > last:
                found.update({each: case["controller"][str(each)] for each in run if not refused & set(run)})
                run = []
            else:
                run.append(number)
    return found


def both_parts(case, made, texts, place, cell):
    """Whether the other part of a register is sent as well."""
    f, r, c = (each - 1 for each in place)
    for other in (r - 1, r + 1):
        rows_of_field = made["fields"][f]["cells"]
        if 0 <= other < len(rows_of_field) and rows_of_field[other][c]["address"] == cell["address"]:
            there = (f + 1, other + 1, c + 1)
            return chosen(case, there) and (bool(texts[f][other][c].strip(" ")) or named(case, there))
    return False


class Plan:
    """The writes of the cells that are to be sent, in the order in which a download would send them."""

    def __init__(self, case):
        self.case, self.made = case, case["sheet"]
        self.image = read_registers(case)
        self.texts = values(self.made, self.made["factory"], case["left"])
        self.items = last_items(self.made, case["left"])
        self.rows = rows(case | {"against": "registers", "registers": {str(k): v for k, v in self.image.items()}})
        for each in self.rows:
            if not chosen(case, place_of(each)):
                each["sign"] = "left_out"
        self.signs = {place_of(each): each["sign"] for each in self.rows}
        self.writes, self.parts, self.kept = [], {}, []
        self.unread = self.failed = self.held_back = False
        for f, field in enumerate(self.made["fields"]):
            for c, head in enumerate(field["columns"]):
                for r, row in enumerate(field["cells"]):
                    if head["modifiable"]:
                        self.take((f + 1, r + 1, c + 1), head, row[c])
        self.finish()

    def take(self, place, head, cell):
        text = self.texts[place[0] - 1][place[1] - 1][place[2] - 1]
        blank = not cell["ascii"] and cell["messages"] is None and not text.strip(" ")
        if self.signs.get(place) not in ("differs", "one_side", "not_read") or cell["address"] in self.made["kept back"]:
            return
        if blank and not named(self.case, place):
            return
        first, last = registers_of(cell)
        blind = [each for each in range(first, last + 1) if each not in self.image]
        if any(each not in self.made["write only"] for each in blind):
            self.unread = True
        elif not named(self.case, place) and strays(head, cell, text, self.items[place[0] - 1][place[1] - 1][place[2] - 1]):
            self.held_back = True
        elif self.is_below_zero(cell) and not both_parts(self.case, self.made, self.texts, place, cell):
            self.held_back = True  # minutes beside seconds below 0 would read back as others
        elif fails(self.made, head, cell, text):
            self.failed = True
        else:
            raw = held(head, cell, text) or 0
            block = self.block_of(head, cell, text) if self.made["board"] else None
            if block:
                self.add_to_block(block, place, cell, raw)
            else:
                self.add(place, cell, raw)

    def is_below_zero(self, cell):
        return part_of(cell) in ("TIMEMM", "TIMESS") and self.image.get(registers_of(cell)[0], 0) > 0x7FFF

    def block_of(self, head, cell, text):
        """The registers that go out together; none for a list with a register of its own, and for a negative number of a column
        with a format for them."""
        if half_of(cell["address"]):
            return next(each[:2] for each in self.made["download"] if each[2] == 1
                        and each[0] <= registers_of(cell)[0] <= each[1])
        if cell["messages"] is not None or (val(text) < 0 and head["bits"]):
            return None
        return next(each[:2] for each in self.made["download"] if each[2] == 0 and each[0] <= registers_of(cell)[0])

    def add_to_block(self, block, place, cell, raw):
        first, last = block
        number = registers_of(cell)[0]
        found = next((each for each in self.writes if each["block"] == block), None)
        if found is None:
            found = {"function": 16, "address": first, "late": [], "cells": [], "block": block, "set": set(),
                     "values": [self.image.get(each, 0) for each in range(first, last + 1)]}
            self.writes.append(found)
        old = found["values"][number - first]
        if self.is_below_zero(cell) and number not in found["set"]:
            old = 0
        found["values"][number - first] = composed(part_of(cell), raw, old)
        found["cells"].append(list(place))
        found["set"].add(number)
        self.parts.setdefault(number, set()).add(part_of(cell))
        found["late"] = [k for k, each in enumerate(self.made["last"], 1) if first <= each <= last][:1]

    def add(self, place, cell, raw):
        first, last = registers_of(cell)
        self.parts.setdefault(first, set()).add(part_of(cell))
        earlier = next((each for each in self.writes if each["address"] == first and not each["block"]), None)
        if earlier:
            earlier["values"] = [composed(part_of(cell), raw, earlier["values"][0])]
            earlier["cells"].append(list(place))
            return
        old = 0 if self.is_below_zero(cell) else self.image.get(first, 0)
        late = [k for k, each in enumerate(self.made["last"], 1) if first <= each <= last]
        self.writes.append({"function": 16 if cell["ascii"] else 6, "address": first, "late": late[:1], "cells": [list(place)],
                            "block": None, "set": {first},
                            "values": raw if cell["ascii"] else [composed(part_of(cell), raw, old)]})

    def changes(self, write):
        return any(self.image.get(write["address"] + k) != word for k, word in enumerate(write["values"])
                   if not write["block"] or write["address"] + k in write["set"])

    def finish(self):
        self.writes.sort(key=lambda each: each.pop("late"))
        self.writes = [each for each in self.writes if self.changes(each)]
        for each in self.writes:
            block, wholly = each.pop("block"), each.pop("set")
            self.kept.append([k for k in range(len(each["values"])) if block and each["address"] + k not in wholly])
            for number in range(each["address"], each["address"] + len(each["values"])):
                kept = bool(block) and number not in wholly
                half = self.parts.get(number) in ({"HI"}, {"LO"}, {"TIMEMM"}, {"TIMESS"})
                self.unread |= number not in self.image and (kept or half)  # what nobody can read is never written back
        asked = {each for first, last, _ in self.made["blocks"] for each in range(first, last + 1)} - set(self.made["write only"])
        self.failed |= not asked  # without a register to read nobody knows whether anybody is there


def place_of(row):
    return row["field"], row["row"], row["column"]


def outcome(case):
    plan = Plan(case)
    if plan.failed:
        return {"plan": {"exit": 1}, "send": {"exit": 1, "written": [], "image": case["controller"]}}
    counts = {word: sum(row["sign"] == word for row in plan.rows) for word in WORDS} | {"rows": len(plan.rows)}
    before = {str(number): plan.image[number] for each in plan.writes
              for number in range(each["address"], each["address"] + len(each["values"])) if number in plan.image}
    return {"plan": {"exit": 3 if plan.writes else 7 if counts["not_read"] else 0, "counts": counts, "before": before,
                     "rows": filtered({"filter": [], "all": False}, plan.rows), "writes": plan.writes},
            "send": sent(case, plan)}


def sent(case, plan):
    """What a register of a block keeps is what it holds just before the write."""
    after, written = dict(case["controller"]), []
    if plan.unread:
        return {"exit": 7, "written": [], "image": after}
    for each, kept in zip(plan.writes, plan.kept):
        values_sent = [after[str(each["address"] + k)] if k in kept else word for k, word in enumerate(each["values"])]
        after.update({str(each["address"] + k): word for k, word in enumerate(values_sent)})
        written.append([each["function"], each["address"], values_sent])
    seen = read_registers(case)
    blind = any(each["address"] + k not in seen for each, kept in zip(plan.writes, plan.kept)
                for k in range(len(each["values"])) if k not in kept)
    return {"exit": 4 if blind or plan.held_back else 0, "written": written, "image": after}


# The case, and what the program does with it.

def plan(dice):
    made = sheets.sheet(dice, dice.random() < 0.3)
    left = sheets.document(dice, made)
    texts = values(made, made["factory"], left)
    held_there = {}
    while not held_there or any(str(each) not in held_there for each in made["used"]):
        held_there = programs.registers(dice, made, texts) if made["used"] else {"0": 0}
    controller = {str(number): held_there.get(str(number), 0) for first, last, _ in made["blocks"]
                  for number in range(first, last + 1)}
    only = []
    if dice.random() < 0.4:
        for _ in range(dice.randint(1, 3)):
            f = dice.randrange(len(made["fields"]))
            field = made["fields"][f]
            whole = [f + 1, dice.randint(1, field["rows"]), dice.randint(1, len(field["columns"]))]
            only.append(whole[:dice.randint(1, 3)])
    refused = [dice.choice(made["used"])] if made["used"] and dice.random() < 0.15 else []
    return {"sheet": made, "left": left, "controller": controller, "only": only, "refused": refused}


def planned(case, place):
    made = case["sheet"]
    slave = Slave({int(k): v for k, v in case["controller"].items()}, made["base"],
                  refused=case["refused"] + made["write only"])
    try:
        arguments = [place.template(made), place.write("LEFT.SHEET", sheets.document_text(case["left"])), "--port", slave.port,
                     "--json"]
        for each in case["only"]:
            arguments += ["--only", ",".join(map(str, each))]
        code, out, err = place.ctl("plan", *arguments)
        told = json.loads(out) if out else {"error": err}
        plan_told = {"exit": code} | ({} if code == 1 else {name: told.get(name) for name in ("counts", "rows", "writes", "before")})
        assert not slave.writes, "a plan has written"
        code, out, err = place.ctl("send", *arguments, "--yes")
        after = {str(number): value for number, value in slave.registers.items()}
        return {"plan": plan_told, "send": {"exit": code, "written": slave.writes, "image": after}}
    finally:
        slave.close()
