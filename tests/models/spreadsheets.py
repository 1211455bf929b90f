# SPDX-License-Identifier: MIT
"""Values as a file for a spreadsheet: what an export has to say, and what an import takes of a file."""
import json
import re

import sheets
from comparisons import shown
from sheets import values
from values import is_numeric, is_time, number_text, time_seconds, time_text, val

HEADINGS = ["field", "row", "column", "page", "name", "heading", "register", "value"]
NUMBER_COLUMNS = ("NUMERIC_UNSIGNED", "NUMERIC", "ASCII", "NUMERIC_OR_ASCII")
PLAIN = re.compile(r"[+-]?(\d+)(?:([.,])(\d+))?")
GROUPED = re.compile(r"[+-]?\d{1,3}(?:(,)\d{3})+(?:(\.)\d+)?|[+-]?\d{1,3}(?:(\.)\d{3})+(?:(,)\d+)?")


# Documents as they are written.

def written(made, texts):
    lines = ["[Configuration_Default]"]
    lines += [f"FIELD_{f}=,{field['desc']}" for f, field in enumerate(made["fields"], 1)] + [""]
    for f, field in enumerate(made["fields"]):
        lines.append(f"[Field_{f + 1}_Default]")
        lines += [f"ROW_{r + 1}=" + ",".join(shown(cell, text) if cell["messages"] is not None else text
                                             for cell, text in zip(row, texts[f][r])) for r, row in enumerate(field["cells"])]
        lines.append("")
    for f, field in enumerate(made["fields"]):
        lines.append(f"[Default_{f + 1}_Columns]")
        lines += [f"COL_{c}_WIDTH={900 + c}" for c in range(1, len(field["columns"]) + 1)] + [""]
    return "".join(line + "\r\n" for line in lines).encode("cp1252")


# Our own CSV.

def csv_field(text, separator, quotes):
    if quotes or any(each in text for each in (separator, '"', "\r", "\n")):
        return '"' + text.replace('"', '""') + '"'
    return text


def csv_records(text, separator):
    """Fields between separators, lines ended by CR LF."""
    records, record, k = [], [], 0
    while k < len(text):
        if text[k] == '"':
            end = k + 1
            while text[end] != '"' or text[end + 1:end + 2] == '"':
                end += 1 if text[end] != '"' else 2
            record.append(text[k + 1:end].replace('""', '"'))
            end += 1
        else:
            end = min(place for place in (text.find(separator, k), text.find("\r\n", k)) if place >= 0)
            record.append(text[k:end])
        k = end + 1
        if text[end:end + 2] == "\r\n":
            records.append(record)
            record, k = [], end + 2
        elif text[k:k + 2] == "\r\n":  # an empty last field
            records.append(record + [""])
            record, k = [], k + 2
        assert text[end] in (separator, "\r"), text[end:]
    return records


# The export.

def path_of(head, cell):
    """Which way a typed text goes."""
    kind, form = head["type"].upper(), cell["format"].upper()
    if cell["messages"] is not None:
        return "list"
    if kind in NUMBER_COLUMNS:
        return "time" if form == "TIME" else "characters" if cell["ascii"] else "number"
    if kind == "TIME":
        if form not in ("NUMERIC", "ASCII", "NUMERIC_OR_ASCII", ""):
            return "time"
        return "characters" if cell["ascii"] else "number"
    return "text"


def takes_numbers(head, cell):
    """Some cells take times and numbers."""
    way = path_of(head, cell)
    return way == "number" or (way == "time" and cell["format"].upper() != "TIME")


def exported(case):
    made, texts = case["sheet"], values(case["sheet"], case["sheet"]["factory"], case["left"])
    lines = []
    for f, field in enumerate(made["fields"]):
        for r, row in enumerate(field["cells"]):
            for c, (head, cell) in enumerate(zip(field["columns"], row)):
                if not head["modifiable"]:
                    continue
                label = field["columns"][0]
                name = texts[f][r][0] if c and not label["modifiable"] and texts[f][r][0] else f"row {r + 1}"
                text = texts[f][r][c]
                if cell["messages"] is not None:
                    text = shown(cell, text)
                elif takes_numbers(head, cell) and is_numeric(text) and case["decimal"] == ",":
                    text = text.replace(".", ",")
                where = f"{cell['address']}-{cell['end']}" if cell["ascii"] else cell["address"]
                lines.append([str(f + 1), str(r + 1), str(c + 1), field["desc"], name, head["heading"], where, text])
    return lines


def bare(text, expected):
    """A text without the apostrophe that keeps a spreadsheet from running or rewriting it."""
    if text == "'" + expected and (expected[0] in "=+-@'" or any(each.isdigit() for each in expected)):
        return expected
    dangerous = text[:1] in ("=", "+", "-", "@") and not re.fullmatch(r"[+-]?\d+([.,]\d+)?", text)
    return "runs: " + text if dangerous else text


# The import.

def readings(text):
    """The decimal signs under which a text is a number: for each the number."""
    text = text.strip(" ")
    found = {}
    plain = PLAIN.fullmatch(text)
    if plain:
        sign = plain.group(2)
        if sign is None:
            return {"": float(text)}
        found[sign] = float(text.replace(",", "."))
    grouped = GROUPED.fullmatch(text)
    if grouped:
        comma = grouped.group(1)
        found["." if comma else ","] = float(text.replace("," if comma else ".", "").replace(",", "."))
    return found


def proven_sign(texts):
    signs = {next(iter(found)) for found in map(readings, texts) if len(found) == 1} - {""}
    return signs.pop() if len(signs) == 1 else ""


def number_of(text, sign):
    found = readings(text)
    if len(found) == 1:
        return next(iter(found.values()))
    return found.get(sign) if sign and sign in text else None  # as a group of three it is never taken for certain


def limits_of(head, cell):
    low, high, kind = cell["min"], cell["max"], head["type"].upper()
    if kind not in ("NUMERIC", "NUMERIC_UNSIGNED", "TIME"):
        return None
    if cell["format"] == "NUMERIC_UNSIGNED":
        return max(val(low), 0) if low else 0, min(val(high), 65535) if high else 65535
    return val(low) if low else -32768, val(high) if high else 32767


def taken_number(head, cell, text, sign):
    number = number_of(text, sign)
    low, high = (0, 65535) if cell["format"] == "NUMERIC_UNSIGNED" else (-32768, 32767)
    if number is None or not low <= number <= high:
        return None
    limits = limits_of(head, cell)
    return number_text(number) if limits is None or limits[0] <= number <= limits[1] else None


def clock_time(text):
    """The m:ss that a spreadsheet shows as hours, and whether a clock could show it."""
    clock = re.fullmatch(r"(\d+):(\d\d):00", text)
    return (f"{int(clock[1])}:{clock[2]}", int(clock[1]) < 24) if clock else (text, False)


def taken_time(cell, text):
    text, two_ways = clock_time(text)
    if two_ways or not is_time(text):
        return None
    seconds = time_seconds(text)
    if cell["min"] and cell["max"] and not val(cell["min"]) <= seconds <= val(cell["max"]):
        return None
    return time_text(seconds)


def taken(head, cell, now, text, sign):
    """The cell's new value; nothing for a text that it doesn't take."""
    held_text = shown(cell, now) if cell["messages"] is not None else now
    if text == held_text:
        return now
    way = path_of(head, cell)
    if takes_numbers(head, cell) and is_numeric(now) and number_of(text, sign) == val(now):
        return now
    if way == "time" and is_time(now) and is_time(clock_time(text)[0]) and time_seconds(clock_time(text)[0]) == time_seconds(now):
        return now
    if way == "list":
        codes = [str(code) for code, entry in cell["messages"]
                 if text.strip(" ").upper() == entry.upper() or (is_numeric(text) and float(text) == code)]
        return codes[0] if codes and (head["modifiable"] or codes[0] == now) else None
    if not head["modifiable"]:
        return None
    if way == "number":
        return taken_number(head, cell, text, sign)
    if way == "time":
        number = taken_number(head, cell, text, sign) if cell["format"].upper() != "TIME" and ":" not in text else None
        return number if number is not None else taken_time(cell, text)
    if any(each in text for each in ",;\r\n") or text != text.strip(" "):
        return None
    if cell["ascii"] and len(text) > 2 * (int(cell["end"]) - int(cell["address"]) + 1):
        return None
    return text


def is_windows_1252(text):
    try:
        text.encode("cp1252")
        return True
    except UnicodeEncodeError:
        return False


def imported(case):
    made = case["sheet"]
    texts = values(made, made["factory"], case["left"])
    sign = proven_sign([text for _, place, text in case["lines"] if place and cell_at(made, place)
                        and takes_numbers(*cell_at(made, place))])
    seen, left_out, count = {}, [], 0
    for line, place, text in case["lines"]:
        if place is None:  # a line without any text
            continue
        found = cell_at(made, place)
        text = text[1:] if text.startswith("'") else text
        if not is_windows_1252(text):  # says nothing for its cell
            left_out.append(line)
            continue
        if found is None or seen.setdefault(tuple(place), text) != text:  # a second value; the same again does no harm
            left_out.append(line)
            continue
        f, r, c = (each - 1 for each in place)
        fresh = taken(*found, texts[f][r][c], text, sign)
        if fresh is None:
            left_out.append(line)
            continue
        count += 1
        texts[f][r][c] = fresh
    saved = not left_out or (case["all that fit"] and count)
    code = 0 if not left_out else 4 if saved else 1
    return {"exit": code, "taken": count if saved else 0, "left out": left_out,
            "document": written(made, texts).decode("cp1252") if saved else None}


def cell_at(made, place):
    f, r, c = place
    if not 1 <= f <= len(made["fields"]):
        return None
    field = made["fields"][f - 1]
    return (field["columns"][c - 1], field["cells"][r - 1][c - 1]) if 1 <= r <= field["rows"] and 1 <= c <= len(field["columns"]) \
        else None


def outcome(case):
    return {"export": exported(case), "round trip": {"exit": 0, "left out": [], "document": written(
        case["sheet"], values(case["sheet"], case["sheet"]["factory"], case["left"])).decode("cp1252")},
            "import": imported(case)}


# The case, and what the program does with it.

def value_text(dice, head, cell):
    way = path_of(head, cell)
    if way == "list":
        texts = [entry for _, entry in cell["messages"]]
        return dice.choice(texts + [texts[-1].lower(), "0", "1", "7", "no such text", ""])
    if way == "time":
        return dice.choice(["0:30", "1:05", "10:00", "62:05", "1:300", "90", "abc", "", "00:45:00", "62:05:00", "1:5", "5"])
    if way == "number":
        return dice.choice(["5", "-5", "0", "12.5", "12,5", "1,234", "1.234", "1,234.5", "1.234,5", "40000", "70000", "-40000",
                            "007", "abc", "", "1 2", "250", "-100", "33", "100"])
    return dice.choice(["motor", "", "\u00b0C", "a,b", "a;b", "\u03a9", "=A1", "two\nlines", "say \"hi\"", "x" * 9, "-", "K1 K2"])


def file_bytes(dice, made, texts):
    """A file as a spreadsheet may have written it, and what stands on each of its lines."""
    separator = dice.choice([",", ";", "\t", "|"])
    order = HEADINGS[:]
    if dice.random() < 0.5:
        dice.shuffle(order)
    if dice.random() < 0.3:
        order = [each for each in order if each in ("field", "row", "column", "value")]
    rows = []
    if dice.random() < 0.2:
        rows.append(f"sep={separator}")
    rows.append(separator.join(csv_field(each, separator, dice.random() < 0.2) for each in order))
    told, line = [], len(rows) + 1
    for f, field in enumerate(made["fields"]):
        for r, row in enumerate(field["cells"]):
            for c, (head, cell) in enumerate(zip(field["columns"], row)):
                if dice.random() < 0.3 or (not head["modifiable"] and dice.random() < 0.9):
                    continue
                text = value_text(dice, head, cell) if dice.random() < case_change(dice) else \
                    shown(cell, texts[f][r][c]) if cell["messages"] is not None else texts[f][r][c]
                place = [f + 1, r + 1, c + 1]
                if dice.random() < 0.03:
                    place[dice.randrange(3)] = 77
                parts = {"field": str(place[0]), "row": str(place[1]), "column": str(place[2]), "page": "any", "name": "n,o",
                         "heading": "", "register": "9", "value": text}
                rows.append(separator.join(csv_field(parts[each], separator, dice.random() < 0.2) for each in order))
                told.append([line, place, text])
                line += 1 + text.count("\n")
                if dice.random() < 0.05:
                    rows.append(separator * (len(order) - 1) if dice.random() < 0.5 else "")
                    line += 1
                if dice.random() < 0.04:
                    parts["value"] = text = text if dice.random() < 0.5 else "another"
                    rows.append(separator.join(csv_field(parts[each], separator, True) for each in order))
                    told.append([line, place, text])
                    line += 1 + text.count("\n")
    text = dice.choice(["\r\n", "\n"]).join(rows) + dice.choice(["\r\n", "\n", ""])
    return text, told


def case_change(dice):
    return dice.choice([0.02, 0.1, 0.5])


def spreadsheet(dice):
    made = sheets.sheet(dice)
    left = sheets.document(dice, made)
    text, lines = file_bytes(dice, made, values(made, made["factory"], left))
    separator = dice.choice([",", ";", "|", "\t"])
    return {"sheet": made, "left": left, "separator": separator, "decimal": dice.choice(".," if separator != "," else "."),
            "file": text, "lines": lines, "mark": dice.random() < 0.5, "all that fit": dice.random() < 0.5}


def done(case, place):
    template = place.template(case["sheet"])
    document = place.write("LEFT.SHEET", sheets.document_text(case["left"]))
    separator = "tab" if case["separator"] == "\t" else case["separator"]
    code, _, err = place.ctl("export", template, document, "--out", "out.csv", "--separator", separator, "--decimal",
                             case["decimal"])
    told = {}
    if code:
        return {"export": err}
    raw = place.read("out.csv")
    assert raw.startswith(b"\xef\xbb\xbf") and raw.endswith(b"\r\n"), raw
    records = csv_records(raw[3:].decode("utf-8"), case["separator"])
    assert records[0] == HEADINGS, records[0]
    wanted = exported(case)
    told["export"] = [[bare(text, other) for text, other in zip(record, row)]
                      for record, row in zip(records[1:], wanted)] + records[1 + len(wanted):]
    told["round trip"] = imported_by(place, template, document, "out.csv", [])
    del told["round trip"]["taken"]
    place.write("in.csv", (b"\xef\xbb\xbf" if case["mark"] else b"") + case["file"].encode("utf-8"))
    told["import"] = imported_by(place, template, document, "in.csv", ["--all-that-fit"] if case["all that fit"] else [])
    return told


def imported_by(place, template, document, file, options):
    code, out, err = place.ctl("import", template, document, file, "--save", f"{file}.SHEET", "--json", *options)
    answer = json.loads(out) if out else {"taken": err, "left_out": []}
    try:
        saved = place.read(f"{file}.SHEET").decode("cp1252")
    except FileNotFoundError:
        saved = None
    return {"exit": code, "taken": answer["taken"], "left out": [each["line"] for each in answer["left_out"]], "document": saved}
