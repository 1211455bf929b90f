# SPDX-License-Identifier: MIT
"""Random small templates with their documents, as texts and as what a reader has to understand of them."""
from values import long_of, is_numeric, quotient, rest

KINDS = ["number", "number", "number", "unsigned", "list", "list", "time", "pair", "text", "halves", "half list", "none", "none"]
TEXTS = ["Off", "On", "Auto", "Trip", "9600", "Raise", "lower", "Stand by"]
LETTERS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789 .+/-"
REMARKS = ["", "", "", "motor K1", "112.5 V", "\u00b0C at the bearing", "=A1", "-", "+5", "@home", "0012", "2019-06", "say \"hi\"",
           "a | b", "1:30", "7", "x" * 40]


def word(random, most):
    return "".join(random.choice(LETTERS) for _ in range(random.randint(0, most))).strip(" ")


class Registers:
    """Hands out register numbers, now and then with a gap."""

    def __init__(self, random, base):
        self.random, self.next, self.used = random, base + random.randint(1, 300), []

    def take(self, count=1):
        if self.random.random() < 0.2:
            self.next += self.random.randint(1, 9)
        first = self.next
        self.next += count
        self.used += range(first, self.next)
        return first


def plain_cell():
    return {"kind": "none", "address": "", "end": "", "ascii": False, "format": "", "min": "", "max": "", "messages": None}


def code_list(random):
    texts = random.sample(TEXTS, random.randint(1, 4))
    return [[k, text] for k, text in enumerate(texts)]


def fill_cells(random, field, registers, board):
    """Gives each cell its registers. What shares a register stands in one column or in one row."""
    rows, heads = field["rows"], field["columns"]
    cells = [[plain_cell() for _ in heads] for _ in range(rows)]
    for c, head in enumerate(heads):
        r = 0
        while r < rows:
            kind = "none" if head["label"] else random.choice(KINDS)
            if kind == "text" and board:  # its texts go out in pairs: not modelled
                kind = "number"
            if head["bits"] and kind not in ("number", "none"):
                kind = "number"
            if kind in ("pair", "halves", "half list") and r + 1 >= rows:
                kind = "number"
            cell = cells[r][c]
            cell["kind"] = kind
            if kind == "none":
                cell["address"] = random.choice(["", "", "", "none", "12/hi"]) if random.random() < 0.1 else ""
            elif kind in ("pair", "halves", "half list"):
                first = registers.take()
                below = cells[r + 1][c]
                below["kind"] = kind
                words = [("/HI", ""), ("/LO", "")] if kind != "pair" else [("", "TIMEMM"), ("", "TIMESS")]
                if random.random() < 0.5:
                    words.reverse()
                for each, (half, form) in zip((cell, below), words):
                    each["address"], each["format"] = f"{first}{half}", form
                    if kind == "half list":
                        each["messages"] = []
                if kind == "half list":
                    cell["messages"] = below["messages"] = code_list(random)
                r += 1
            elif kind == "text":
                count = random.randint(1, 4)
                first = registers.take(count)
                cell.update(address=str(first), end=str(first + count - 1), ascii=True)
            else:
                cell["address"] = str(registers.take())
                cell["format"] = {"unsigned": "NUMERIC_UNSIGNED", "time": "TIME"}.get(kind, random.choice(["", "", "NUMERIC"]))
                if kind == "list":
                    cell["messages"], cell["format"] = code_list(random), ""
            r += 1
    return cells


def limits(random, field):
    """A pair of lines sets the limits of all cells of its row."""
    lines = []
    for r, row in enumerate(field["cells"]):
        if random.random() < 0.6:
            continue
        low, high = [], []
        for cell in row:
            wide = cell["kind"] == "unsigned" or (cell["kind"] == "number" and random.random() < 0.6)
            bottom = random.randint(0, 20) if cell["kind"] == "unsigned" else random.randint(-200, 20)
            low.append(str(bottom) if wide else "")
            high.append(str(random.randint(50, 40000 if cell["kind"] == "unsigned" else 300)) if wide else "")
            cell["min"], cell["max"] = low[-1] or "-32768", high[-1] or "32767"
        lines.append((r + 1, ",".join(low), ",".join(high)))
    return lines


def blocks(random, used):
    """Scan blocks over all registers, a new one after each gap and now and then between."""
    made = []
    for each in sorted(set(used)):
        if made and made[-1][1] == each - 1 and random.random() < 0.85:
            made[-1][1] = each
        else:
            made.append([each, each, random.choice(["CONFIG", "CONFIG", "ALWAYS"])])
    return made


def download_blocks(random, ends):
    """The higher block first: a number takes the first one that begins low enough."""
    made = []
    for kind in (0, 1):
        cut = random.randint(ends[0] + 1, ends[1]) if ends[0] < ends[1] and random.random() < 0.5 else None
        made += [[cut, ends[1], kind], [ends[0], cut - 1, kind]] if cut else [[*ends, kind]]
    return made


def sheet(random, board=False):
    """Those of the board family send their values in blocks."""
    base = random.choice([0, 0, 1, 40001])
    registers = Registers(random, base)
    made = {"name": "R7702-16" if board else "SHEET", "base": base, "fields": [], "board": board, "download": []}
    for f in range(random.randint(1, 3)):
        heads = [{"heading": "Setting", "type": "TEXT", "modifiable": random.random() < 0.15, "bits": "", "label": True}]
        for c in range(random.randint(1, 3)):
            bits = random.choice(["", "", "", "", "8", "16", "12"])
            heads.append({"heading": random.choice(["Value", "High", "Low", "Remark", ""]), "bits": bits, "label": False,
                          "type": random.choice(["NUMERIC", "NUMERIC", "ASCII", "NUMERIC_OR_ASCII", "TIME", "TEXT"]),
                          "modifiable": random.random() < 0.75})
        field = {"desc": f"Page {f + 1}" if random.random() < 0.7 else "Outputs", "rows": random.randint(1, 4), "columns": heads}
        field["cells"] = fill_cells(random, field, registers, board)
        field["limits"] = limits(random, field)
        made["fields"].append(field)
    used = registers.used
    made["used"] = used
    made["blocks"] = blocks(random, used) or [[base + 1, base + 1, "CONFIG"]]
    if board and used:
        made["blocks"] = [[min(used), max(used), "CONFIG"]]
        made["download"] = download_blocks(random, made["blocks"][0][:2])
    made["leave out"] = sorted(random.sample(used, min(len(used), 2))) if random.random() < 0.3 else []
    made["write only"] = sorted(random.sample(used, 1)) if used and random.random() < 0.15 else []
    made["last"] = sorted(random.sample(used, min(len(used), 2))) if random.random() < 0.3 else []
    kept = [cell["address"] for field in made["fields"] for row in field["cells"] for cell in row if cell["address"]]
    made["kept back"] = random.sample(kept, 1) if kept and random.random() < 0.3 else []
    made["factory"] = items(random, made)
    return made


# Values, as a file may have them.

def number_item(random, cell):
    kind = random.randrange(12)
    if kind < 2:
        return ""
    if kind == 2:
        return f"{random.randint(-20, 99)}.{random.choice(['5', '25', '0'])}"
    if kind == 3 and cell["kind"] == "number":
        return str(random.randint(-120, -1))
    if kind == 4 and cell["kind"] == "unsigned":
        return str(random.choice([32768, 65535, 40000]))
    return str(random.choice([0, 1, 2, 7, 30, 59, 100, 125, 255, 300]))


def item(random, cell):
    kind = cell["kind"]
    if kind == "none":
        return random.choice(REMARKS)
    if kind == "text":
        return word(random, 2 * (int(cell["end"]) - int(cell["address"]) + 1) + 1)
    if cell["messages"] is not None:
        codes = [str(code) for code, _ in cell["messages"]]
        texts = [text for _, text in cell["messages"]]
        return random.choice(codes + texts + texts + [texts[0].upper(), "", "no such text", "17"])
    if kind == "time":
        return random.choice(["", "0:30", "1:30", "90", "0:90", "62:05", "abc", "1:5", "0", "2.5"])
    if kind == "pair":
        return random.choice(["", "0", "05", "5", "59", "12", "45"])
    if kind == "halves":
        return random.choice(["0", "1", "77", "127", "200", "255"])
    return number_item(random, cell)


def items(random, made):
    """A text for each cell, or none for a row that the file leaves out."""
    return [[[f"S{r + 1}" if head["label"] else item(random, cell) for head, cell in zip(field["columns"], row)]
             for r, row in enumerate(field["cells"])] for field in made["fields"]]


def document(random, made, like=None):
    """What a file has. Most of it is as in another one."""
    fresh = items(random, made)
    other = like or made["factory"]
    same = random.choice([0.2, 0.7, 0.95])
    rows = [[[old if head["label"] or random.random() < same else new for head, old, new in zip(field["columns"], before, now)]
             for before, now in zip(others, news)] for field, others, news in zip(made["fields"], other, fresh)]
    return [[None if random.random() < 0.05 else row for row in field] for field in rows]


# The texts of files.

def template_text(made):
    lines = ["; a made template", "[HARDWARE]", f"CONTROLLER={made['name']}"]
    lines += [f"DOWNLOAD_{k}_MULTIPLEREGISTERBLOCK{'MESSAGELIST' if kind else 'NUMERIC'}={first}-{last}"
              for k, (first, last, kind) in enumerate(made["download"], 1)]
    lines += ["[PORT_CONFIGURATION]", "COMMUNICATIONS_1_REQUEST=1", "COMMUNICATIONS_1_OUT=400", "HOLDINGREGISTERS=50000"]
    if made["base"]:
        lines.append(f"ADDRESSBASE={made['base']}")
    lines += [f"HOLDINGREGISTERSBLOCK_{k}={first}-{last}" for k, (first, last, _) in enumerate(made["blocks"], 1)]
    lines += [f"HOLDINGREQUESTBLOCK_{k}={request}" for k, (_, _, request) in enumerate(made["blocks"], 1)]
    lines += ["[IDENTITY]"]
    for key, name in (("LEAVEOUT", "leave out"), ("WRITEONLY", "write only"), ("LAST", "last")):
        if made[name]:
            lines.append(f"{key}={','.join(map(str, made[name]))}")
    lines += ["[CONFIGURATION_COLUMNS]", "NUMERIC_ROWS=YES", "CONFIGURATION_NC=2", "COL_1_DESC=No.", "COL_1_WIDTH=450",
              "COL_2_DESC=Field", "COL_2_WIDTH=1500", "[CONFIGURATION_FIELDS]"]
    for f, field in enumerate(made["fields"], 1):
        lines += [f"FIELD_{f}_DESC={field['desc']}", f"FIELD_{f}_RC={field['rows']},{len(field['columns'])}"]
    for f, field in enumerate(made["fields"], 1):
        lines.append(f"[FIELD_{f}_COLUMNS]")
        for c, head in enumerate(field["columns"], 1):
            lines += [f"COL_{c}_DESC={head['heading']}", f"COL_{c}_WIDTH={900 + c}", f"COL_{c}_TYPE={head['type']}",
                      f"COL_{c}_MODIFIABLE={'YES' if head['modifiable'] else 'NO'}", f"COL_{c}_MDBUSREQUEST=ALWAYS"]
            if head["bits"]:
                lines.append(f"COL_{c}_BITSNEGATIVEFORMAT={head['bits']}")
    for f, field in enumerate(made["fields"], 1):
        lines.append(f"[FIELD_{f}_CONFIGURATION]")
        for r, row in enumerate(field["cells"], 1):
            lines.append(f"ROWASCIIRANGE_{r}=" + ",".join(f"{each['address']}-{each['end']}" if each["ascii"] else each["address"]
                                                          for each in row))
            lines.append(f"ROWADDRESSFORMAT_{r}=" + ",".join(each["format"] for each in row))
        for r, low, high in field["limits"]:
            lines += [f"ROWADDRESSNUMERICMINVALUE_{r}={low}", f"ROWADDRESSNUMERICMAXVALUE_{r}={high}"]
        lines.append(f"[FIELD_{f}_MESSAGES]")
        told = {}
        for row in field["cells"]:
            for each in row:
                if each["messages"]:
                    told[each["address"].partition("/")[0]] = each["messages"]
        lines += [f"ADDRESS_{a}=" + ",".join(f"({code}){text}" for code, text in entries) for a, entries in told.items()]
    lines.append("[CONFIGURATION_DEFAULT]")
    lines += [f"FIELD_{f}=,{field['desc']}" for f, field in enumerate(made["fields"], 1)]
    lines += value_lines(made["factory"])
    lines.append("[ADDRESS_NOTDOWNLOADABLE]")
    lines += [f"ADDRESS_{k}={address}" for k, address in enumerate(made["kept back"], 1)]
    return "".join(line + "\r\n" for line in lines)


def value_lines(rows):
    lines = []
    for f, field in enumerate(rows, 1):
        lines.append(f"[FIELD_{f}_DEFAULT]")
        lines += [f"ROW_{r}=" + ",".join(row) for r, row in enumerate(field, 1) if row is not None]
    return lines


def document_text(rows):
    return "".join(line + "\r\n" for line in value_lines(rows))


# What a reader keeps.

def kept_text(cell, text):
    if cell["messages"] is not None:
        for code, entry in cell["messages"]:
            if entry.strip(" ").upper() == text.strip(" ").upper():
                return str(code)
            if is_numeric(text) and float(text) == code:
                return str(code)
        return "0"
    if cell["format"].upper() == "TIME" and ":" not in text:
        if not is_numeric(text):
            return "0:00"
        seconds = long_of(text)
        return f"{quotient(seconds, 60)}:{rest(seconds, 60):02d}"
    return text


def values(made, *files):
    """The value of each cell after the files were read over each other. A line's value ends without blanks."""
    held = [[[("") for _ in field["columns"]] for _ in field["cells"]] for field in made["fields"]]
    for rows in files:
        for f, field in enumerate(rows):
            for r, row in enumerate(field):
                if row is None:
                    continue
                line = ",".join(row).strip(" ")
                for c, text in enumerate(line.split(",")):
                    held[f][r][c] = kept_text(made["fields"][f]["cells"][r][c], text)
    return held
