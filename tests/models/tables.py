# SPDX-License-Identifier: MIT
"""What a filled lower grid shows and what the document's cells hold afterwards, offline and online."""
from values import (Failure, characters, colour, half_of, is_numeric, long_of, message_text, quotient, rest,
                    signed, strict_long, time_text, two_digits)

ALIGNMENTS = {"LEFT": 0, "RIGHT": 6, "RIGTH": 6, "CENTER": 3}


def number_or_message(cell, number):
    """The text shown and the value kept."""
    text = str(number)
    return (message_text(cell, number), text) if cell["messages"] is not None else (text, text)


def offline(cell):
    address = cell["address"]
    if is_numeric(address):
        return (message_text(cell, long_of(cell["value"])) if cell["messages"] is not None else cell["value"]), None
    if "/" not in address:
        return cell["value"], None
    if half_of(address) is None:
        return "", None
    return number_or_message(cell, strict_long(cell["value"]))


def by_format(cell, register):
    value = signed(register)
    word = cell["format"].strip(" ").upper()
    if word == "TIME":
        return (time_text(value),) * 2
    if word == "TIMEMM":
        return (str(quotient(value, 60)),) * 2
    if word == "TIMESS":
        return (two_digits(rest(value, 60)),) * 2
    if word == "NUMERIC_UNSIGNED":
        return (str(register),) * 2
    return str(value), None


def online(cell, case):
    address = cell["address"]
    image = case["image"]
    first = long_of(address)  # before anything is asked
    if is_numeric(address):
        if case["request"] != cell["request"]:
            return cell["value"], None
        if case["lost"]:
            return "???", None
        if cell["ascii"]:
            registers = range(first, long_of(cell["end"]) + 1)
            return characters(image.get(str(each), 0) for each in registers), None
        register = image.get(str(first), 0)
        if cell["messages"] is not None:
            return message_text(cell, signed(register)), str(signed(register))
        return by_format(cell, register)
    if "/" not in address:
        return cell["value"], None
    half = half_of(address)
    if half is None:
        return "", None
    value = signed(image.get(str(long_of(half[0])), 0))
    return number_or_message(cell, quotient(value, 256) if half[1] == "HI" else value & 255)


def outcome(case):
    table = case["table"]
    values = [[cell["value"] for cell in row] for row in table["cells"]]
    shown = [[""] * len(table["columns"]) for _ in table["cells"]]
    result = {"failure": 0, "values": values, "shown": shown, "visible": True}
    try:
        for r, row in enumerate(table["cells"]):
            for c, cell in enumerate(row):
                text, kept = online(cell, case) if case["online"] else offline(cell)
                shown[r][c] = text
                if kept is not None:
                    values[r][c] = kept
    except Failure as failure:
        return result | {"failure": failure.number, "visible": False}
    result["columns"] = [[column["heading"], column["width"], ALIGNMENTS.get(column["alignment"].upper().strip(" "), 0)]
                         for column in table["columns"]]
    words = case["colours"]
    normal, modifiable = [colour(words[0]), colour(words[1])], [colour(words[2]), colour(words[3])]
    result["colours"] = [[modifiable if column["modifiable"] else normal for column in table["columns"]]
                         for _ in table["cells"]]
    return result
