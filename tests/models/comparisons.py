# SPDX-License-Identifier: MIT
"""What a comparison of a document with a second one, or with a file of registers, has to tell."""
from sheets import values
from values import (Failure, characters, half_of, is_numeric, long_of, message_text, quotient, rest, signed, strict_long,
                    time_seconds, time_text, to_long, two_digits, val)

WORDS = ["equal", "differs", "one_side", "read_only", "changing", "not_read", "left_out"]


def registers_of(cell):
    """First and last register, or nothing."""
    if is_numeric(cell["address"]):
        first = long_of(cell["address"])
        return first, long_of(cell["end"]) if cell["ascii"] else first
    half = half_of(cell["address"])
    return (long_of(half[0]),) * 2 if half else None


def in_sixteen_bits(number):
    return number & 0xFFFF if -32768 <= number <= 65535 else None


def bit_count(head):
    bits = head["bits"].strip(" ")
    return long_of(bits) if bits and is_numeric(bits) else None


def held(head, cell, text):
    """What a download would make of a text: a number, a list for characters, nothing for what doesn't fit."""
    try:
        if half_of(cell["address"]):
            part = to_long(val(text))
            return part if 0 <= part <= 255 else None
        if cell["ascii"]:
            first, last = registers_of(cell)
            codes = list(text.encode("cp1252")[:2 * (last - first + 1)].ljust(2 * (last - first + 1)))
            return None if max(codes) >= 128 else [high * 256 + low for high, low in zip(codes[::2], codes[1::2])]
        word = cell["format"].upper()
        if cell["messages"] is not None or word == "NUMERIC_UNSIGNED":
            return in_sixteen_bits(to_long(val(text)))
        if word == "TIME":
            return in_sixteen_bits(time_seconds(text))
        if word in ("TIMEMM", "TIMESS"):
            return strict_long(text)
        bits = bit_count(head)
        if val(text) < 0 and bits is not None:
            return in_sixteen_bits(to_long(-val(text) + 2.0 ** (bits - 1)) if bits < 16 else to_long(65536 + val(text)))
        return in_sixteen_bits(to_long(val(text)))
    except Failure:
        return None


def held_in(head, cell, image):
    """What registers hold of a cell."""
    first, last = registers_of(cell)
    if cell["ascii"]:
        return [image[each] for each in range(first, last + 1)]
    half = half_of(cell["address"])
    if half:
        return image[first] >> 8 if half[1] == "HI" else image[first] & 255
    word = cell["format"].upper()
    if word in ("TIMEMM", "TIMESS"):
        return (quotient if word == "TIMEMM" else rest)(signed(image[first]), 60)
    return image[first]


def taken(head, cell, image):
    """The text that an upload makes of registers."""
    number = held_in(head, cell, image)
    if cell["ascii"]:
        return "".join(bytes([ord(each)]).decode("cp1252", "ignore") or each for each in characters(number))
    half = half_of(cell["address"])
    if half:  # an upload reads a register of 0x8000 and above as a negative number, and its high half one too high
        return str(quotient(signed(image[registers_of(cell)[0]]), 256) & 255 if half[1] == "HI" else number)
    bits = bit_count(head)
    value = signed(number)
    if bits is not None:
        if 0 < bits < 16 and value & 2 ** (bits - 1):
            value = -(value - 2 ** (bits - 1))
        return str(value)
    if cell["messages"] is not None:
        return str(value)
    word = cell["format"].upper()
    return {"TIME": time_text(value), "TIMEMM": str(number), "TIMESS": two_digits(number),
            "NUMERIC_UNSIGNED": str(number)}.get(word, str(value))


def shown(cell, text):
    """What the lower grid shows of a text offline; of an address that is none the text, where the grid shows nothing."""
    if is_numeric(cell["address"]) or half_of(cell["address"]):
        return message_text(cell, long_of(text)) if cell["messages"] is not None else text
    return text


def has_value(cell, text):
    if cell["ascii"] or cell["messages"] is not None:
        return True
    return bool(text.strip(" "))


def same(cell, left, right):
    if cell["ascii"]:
        def bare(words):
            return bytes(byte for each in words for byte in divmod(each, 256)).rstrip(b"\0 -")
        return bare(left) == bare(right)
    return left == right


def side_of_document(head, cell, text):
    value = has_value(cell, text)
    return {"read": True, "value": value, "text": text, "shown": shown(cell, text) if value else None,
            "raw": held(head, cell, text) if value and registers_of(cell) else None}


def side_of_registers(made, head, cell, image):
    first, last = registers_of(cell)
    numbers = range(first, last + 1)
    if any(each not in image or each in made["write only"] for each in numbers):
        return {"read": False, "value": False, "text": "", "shown": None, "raw": None}
    text = taken(head, cell, image)
    return {"read": True, "value": True, "text": text, "shown": shown(cell, text), "raw": held_in(head, cell, image)}


def sign(made, head, cell, left, right):
    registers = registers_of(cell)
    if registers and any(registers[0] <= each <= registers[1] for each in made["leave out"]):
        return "left_out"
    if not left["read"] or not right["read"]:
        return "not_read"
    if left["value"] != right["value"]:
        return "one_side"
    if registers and left["raw"] is not None and right["raw"] is not None:
        equal = same(cell, left["raw"], right["raw"])
    else:
        equal = left["text"] == right["text"]
    if equal:
        return "equal"
    if not head["modifiable"] or cell["address"].strip(" ") in [each.strip(" ") for each in made["kept back"]]:
        return "read_only"
    return "differs"


def register_text(cell):
    if registers_of(cell) is None:
        return None
    return f"{cell['address']}-{cell['end']}" if cell["ascii"] else cell["address"]


def rows(case):
    made = case["sheet"]
    ours = values(made, made["factory"], case["left"])
    theirs = values(made, made["factory"], *([case["right"]] if case["against"] == "file" else []))
    image = {int(number): value for number, value in case["registers"].items()}
    found = []
    for f, field in enumerate(made["fields"]):
        for r, row in enumerate(field["cells"]):
            for c, cell in enumerate(row):
                head = field["columns"][c]
                left = side_of_document(head, cell, ours[f][r][c])
                if case["against"] == "registers":
                    if registers_of(cell) is None:
                        continue
                    right = side_of_registers(made, head, cell, image)
                else:
                    right = side_of_document(head, cell, theirs[f][r][c])
                    if not (ours[f][r][c] and left["value"]) and not (theirs[f][r][c] and right["value"]):
                        continue
                label = field["columns"][0]
                name = ours[f][r][0] if c and not label["modifiable"] and ours[f][r][0] else f"row {r + 1}"
                word = sign(made, head, cell, left, right)
                for side in (left, right):  # a text in one register is told as the number that it holds
                    if isinstance(side["raw"], list) and len(side["raw"]) == 1:
                        side["raw"] = side["raw"][0]
                found.append({"field": f + 1, "row": r + 1, "column": c + 1, "page": field["desc"], "name": name,
                              "heading": head["heading"], "register": register_text(cell), "left": left["shown"],
                              "right": right["shown"], "left_raw": left["raw"], "right_raw": right["raw"],
                              "sign": word})
    return found


def filtered(case, found):
    """The words of a filter: of several of one kind one has to fit."""
    signs, ranges, pages, texts = [], [], [], []
    for kind, text in case["filter"]:
        if kind == "is":
            signs.append({"missing": "one_side", "readonly": "read_only"}.get(text, text))
        elif kind == "reg":
            first, _, last = text.partition("-")
            ranges.append((int(first), int(last or first)))
        else:
            (pages if kind == "page" else texts).append(text.upper())
    listed = []
    for row in found:
        number = row["register"].partition("/")[0].split("-") if row["register"] else None
        everything = "\n".join(row[name] or "" for name in ("page", "name", "heading", "left", "right")).upper()
        if signs and row["sign"] not in signs:
            continue
        if ranges and not (number and any(int(number[0]) <= last and first <= int(number[-1]) for first, last in ranges)):
            continue
        if pages and not any(page in row["page"].upper() for page in pages):
            continue
        if any(text not in everything for text in texts):
            continue
        if row["sign"] == "equal" and not case["all"] and not signs:
            continue
        listed.append(row)
    return listed


def outcome(case):
    found = rows(case)
    counts = {word: sum(row["sign"] == word for row in found) for word in WORDS} | {"rows": len(found)}
    code = 3 if counts["differs"] + counts["one_side"] else 7 if counts["not_read"] else 0
    return {"exit": code, "counts": counts, "rows": filtered(case, found)}
