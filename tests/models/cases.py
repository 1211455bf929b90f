# SPDX-License-Identifier: MIT
"""Random cases: each seed gives the same ones on every machine."""

FORMATS = ["", "", "", "TIME", "TIMEMM", "TIMESS", "NUMERIC_UNSIGNED", "time", " timess ", "numeric_unsigned", "NUMERIC",
           "ASCII", "NUMERIC_OR_ASCII", "WATTS"]
TYPES = ["NUMERIC", "NUMERIC", "numeric", "NUMERIC_UNSIGNED", "ASCII", "NUMERIC_OR_ASCII", "TIME", "Time", "TEXT", "", " TIME"]
BITS = ["", "", "", "", "  ", "0", "1", "4", "8", " 8 ", "15", "16", "32", "eight", "0.5", "1.5", "15.4", "15.6", "16.5", "1e1", "-3",
        "-40000", "99999", "1e400"]
ADDRESSES = ["", "none", "12/hi", "x/HI", "12/HI ", "12/ HI", "/LO", "12/LOW", "1e2", "1.2e1/HI", "-5", "-5/LO", "12/LO/HI", "32768",
             "2147483647.5", "99999999999", "1e10/HI", "1e400"]
WORDS = ["BLACK", "WHITE", "YELLOW", "blue", " GREEN", "RED ", "Orange", "PURPLE", "0", "TEAL", ""]
ODD_NUMBERS = ["1e3", "-2E2", "1d2", "-4D-1", ".5e1", "5.e-1", "1e400", "-1e400", "1e-400", "32767.5", "-32768.5", "65535.5", "-0",
               "1e-7", "1e-20", "0.1234567890123456789", "12345.678901234567", "1e", "2e+", "e5", "+", "-.", "1 2", "5\t", "\xa05",
               "0x10", "&HFF", "1,5", "2147483647", "2147483648", "1e15", "-1.5d0"]
ODD_TIMES = ["1e400:0", "-1e400:1e400", "1e1:3e1", " 1 : 30 ", "1:-30", "-1:-30", "0.5:0.5", "35791394:8", "1:2:3", "1:\xa05"]
ODD_ENTRIES = ["", " 1 ", "0.5", "1.5", "-1", "-2", "300", "70000", "8388608", "99999999999", "1e0", "Off"]
HIGH_LETTERS = "AB \x80\x81\x9f\xa0\xb5\xdf\xe9\xff"
LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZ abcdefghijklmnopqrstuvwxyz0123456789-+./"


def number(random):
    kind = random.randrange(10)
    if kind < 5:
        return str(random.randint(-300, 300))
    if kind < 7:
        return str(random.choice([-40000, -32769, -32768, -1, 0, 32767, 32768, 40000, 65535, 65536, 70000]))
    if kind < 9:
        return f"{random.randint(-99, 99)}.{random.choice(['5', '25', '0', '75'])}"
    return random.choice([" 7 ", "007", "+5", ".5", "-.5", "5.", *ODD_NUMBERS])


def time(random):
    return f"{random.randint(0, 99)}:{random.randint(0, 59):02d}"


def text(random, most=12, letters=LETTERS):
    return "".join(random.choice(letters) for _ in range(random.randint(0, most)))


def any_value(random):
    kind = random.randrange(10)
    if kind < 4:
        return number(random)
    if kind < 6:
        return time(random)
    if kind < 8:
        return random.choice([*ODD_NUMBERS, *ODD_TIMES, text(random, 10, HIGH_LETTERS)])
    return random.choice(["", "  ", "12abc", "abc", ":30", "1:", "1:xx", "1:99", "-1:30", "1.5:10", text(random)])


def address(random, registers):
    kind = random.randrange(12)
    if kind < 7:
        return str(random.choice(registers))
    if kind < 10:
        return f"{random.choice(registers)}/{random.choice(['HI', 'LO'])}"
    if kind < 11:
        return random.choice([f" {random.choice(registers)} ", f"{random.choice(registers)}.0", f"0{random.choice(registers)}"])
    return random.choice(ADDRESSES)


def messages(random):
    return [[random.choice([i, i, i, random.randint(-3, 300)]), text(random, 6)] for i in range(random.randint(0, 4))]


def column(random):
    return {"heading": text(random), "width": random.randint(0, 3000),
            "alignment": random.choice(["LEFT", "RIGHT", " rigth", "CENTER ", "center", "", "MIDDLE"]),
            "modifiable": random.random() < 0.7, "type": random.choice(TYPES), "bits": random.choice(BITS),
            "request": random.choice(["ALWAYS", "NONE"])}


def cell(random, registers):
    where = address(random, registers)
    ascii_range = random.random() < 0.1
    limits = random.random() < 0.4
    return {"address": where, "ascii": ascii_range,
            "end": str(random.choice(registers) + random.randint(-1, 3)) if ascii_range else "", "value": any_value(random),
            "format": random.choice(FORMATS), "request": random.choice(["ALWAYS", "NONE"]),
            "min": random.choice(["", " ", number(random)]) if limits else "",
            "max": random.choice(["", " ", number(random)]) if limits else "",
            "messages": messages(random) if random.random() < 0.2 else None}


def image(random, registers):
    low, high = min(registers) - 2, max(registers) + 8
    return {str(each): random.choice([0, 1, 60, 125, 3725, 0x4142, 0x7FFF, 0x8000, 0xFFFF, random.randrange(65536)])
            for each in range(max(low, 0), high) if random.random() < 0.8}


def table(random):
    registers = [random.randint(2, 400) for _ in range(5)]
    rows, columns = random.randint(0, 4), random.randint(0, 4)
    return {"kind": "table", "online": random.random() < 0.6, "lost": random.random() < 0.15,
            "request": random.choice(["ALWAYS", "ALWAYS", "NONE", ""]), "image": image(random, registers),
            "colours": [random.choice(WORDS) for _ in range(4)],
            "table": {"rows": rows, "columns": [column(random) for _ in range(columns)],
                      "cells": [[cell(random, registers) for _ in range(columns)] for _ in range(rows)]}}


def edit(random):
    registers = [random.randint(2, 400) for _ in range(3)]
    rows, columns = random.randint(1, 2), random.randint(1, 2)
    case = {"kind": "edit", "online": random.random() < 0.5, "fails": random.random() < 0.25,
            "failed before": random.random() < 0.1, "stem": random.choice(["SITE7", "SITE7", "DEFAULT", "default"]),
            "image": image(random, registers), "row": random.randint(1, rows), "column": random.randint(1, columns),
            "table": {"rows": rows, "columns": [column(random) for _ in range(columns)],
                      "cells": [[cell(random, registers) for _ in range(columns)] for _ in range(rows)]}}
    edited = case["table"]["cells"][case["row"] - 1][case["column"] - 1]
    if edited["messages"] is not None:
        case["entry"] = str(random.randint(0, len(edited["messages"])))
        if case["online"]:
            case["entry"] = str(random.randint(0, max(0, len(edited["messages"]) - 1)))
        if random.random() < 0.2:
            case["entry"] = random.choice(ODD_ENTRIES)
    else:
        case["text"] = any_value(random)
    if edited["ascii"]:
        edited["address"] = str(random.choice(registers))
        edited["end"] = str(int(edited["address"]) + random.randint(0, 4))
    if random.random() < 0.7:
        edited["value"] = str(random.randint(-300, 300))  # what is no number ends most commits
    return case


# Transfers: cells that a template could have, on registers that some block covers.

def transfer_cell(random, registers, board, column_index, modifiable_bits):
    kind = random.randrange(10)
    where = random.choice(registers)
    made = {"address": str(where), "ascii": False, "end": "", "value": str(random.randint(0, 200)), "format": "",
            "request": "NONE", "min": "", "max": "", "messages": None}
    if kind == 0:
        made |= {"address": f"{where}/{random.choice(['HI', 'LO'])}", "value": str(random.randint(0, 255))}
    elif kind == 1:
        made |= {"ascii": True, "end": str(where + random.randint(0, 3)), "value": text(random, 8)}
    elif kind == 2:
        made |= {"messages": [[0, "Off"], [1, "On"], [2, "Auto"]], "value": str(random.randint(0, 2))}
    elif kind == 3 and not modifiable_bits:
        made |= {"format": "TIME", "value": time(random)}
    elif kind == 4 and not modifiable_bits:
        made |= {"format": "NUMERIC_UNSIGNED", "value": str(random.randint(0, 65535))}
    elif kind == 5 and not modifiable_bits:
        made |= {"format": random.choice(["TIMEMM", "timess"]), "value": str(random.randint(0, 59))}
    elif kind == 6:
        made |= {"address": random.choice(["", "none", "5/hi"])}
    else:
        made["value"] = str(random.randint(-100, 300))
    return made


def fresh_value(random, made):
    if made["ascii"]:
        return text(random, 8)
    if made["messages"] is not None:
        return str(random.randint(0, 2))
    if made["format"] == "TIME":
        return time(random)
    if made["format"] or "/" in made["address"]:
        return str(random.randint(0, 59))
    return str(random.randint(-100, 300))


def blocks(random):
    made, first = [], random.randint(1, 50)
    for _ in range(random.randint(1, 4)):
        last = first + random.randint(5, 20)
        made.append([first, last, random.choice(["NONE", "NONE", "ALWAYS"])])
        first = last + random.randint(1, 30)
    return made


def fault(random, reads, first, last, tries):
    kind = random.choice(["lost", "silent", "damaged", "cut", "noise", "exception"])
    times = random.choice([1, tries - 1, -1 if random.random() < 0.3 else 1])
    if reads and kind == "exception":
        times = -1  # a block that is refused in parts is asked for as a whole, so one refusal alone decides nothing
    return {"first": first, "last": last, "reads": reads, "kind": kind,
            "times": times if kind == "exception" else max(times, 1) if times > 0 else times,
            "exception": random.choice([2, 3, 4])}


def step(random, up, case, all_registers):
    tries = case["retries"] + 1
    faults = []
    if random.random() < 0.6:
        if up:
            faults = [fault(random, True, first, last, tries) for first, last, _ in case["blocks"] if random.random() < 0.5]
        else:
            faults = [fault(random, False, each, each, tries) for each in all_registers if random.random() < 0.2]
    if tries == 1:
        faults = [each for each in faults if each["kind"] in ("noise", "exception") or each["times"] < 0]
    changes = []
    for f, field in enumerate(case["fields"]):
        for r, row in enumerate(field["cells"]):
            for c, made in enumerate(row):
                if not up and random.random() < 0.4:
                    changes.append([f + 1, r + 1, c + 1, fresh_value(random, made)])
    return {"up": up, "faults": faults, "set": changes}


def transfer(random):
    board = random.random() < 0.3
    case = {"kind": "transfer", "model": "R7702-16" if board else "KVRT", "retries": random.randint(0, 3),
            "blocks": blocks(random), "download blocks": [], "not downloadable": []}
    covered = [each for first, last, _ in case["blocks"] for each in range(first, last - 3)]
    registers = random.sample(covered, min(len(covered), 8))
    if board:
        for first, last, _ in case["blocks"]:
            for kind in (0, 1, 2):
                case["download blocks"].append([str(first), str(last), kind])
        case["download blocks"].sort(key=lambda each: -int(each[0]))  # the numeric search takes the first below
    case["fields"] = []
    for _ in range(random.randint(1, 3)):
        rows, columns = random.randint(1, 3), random.randint(1, 3)
        heads = [column(random) | {"bits": random.choice(["", "", "", "8", "16"])} for _ in range(columns)]
        case["fields"].append({"rows": rows, "columns": heads,
                               "cells": [[transfer_cell(random, registers, board, c, bool(heads[c]["bits"]))
                                          for c in range(columns)] for _ in range(rows)]})
    case["fields"][0]["cells"][0][0] |= {"address": str(registers[0]), "ascii": False, "end": "", "messages": None,
                                         "format": "", "value": "5"}
    if random.random() < 0.3:
        case["not downloadable"] = [f" {random.choice(registers)} "]
    case["registers"] = {str(each): random.randrange(65536) for first, last, _ in case["blocks"]
                         for each in range(first, last + 1)}
    case["steps"] = []
    for up in random.choice([[True], [True, False], [True, False, True], [True, True, False]]):
        case["steps"].append(step(random, up, case, covered))
    return case
