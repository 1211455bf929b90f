# SPDX-License-Identifier: MIT
"""What becomes of a typed text or a chosen entry: in the cell, in the grid, on the wire and on the screen."""
from values import (Failure, half_of, is_numeric, is_time, long_of, number_text, quotient, rest, signed, strict_double,
                    strict_long, time_seconds, time_text, to_integer, to_long, val)

UNIT = 3
NUMBER_COLUMNS = ("NUMERIC_UNSIGNED", "NUMERIC", "ASCII", "NUMERIC_OR_ASCII")
NUMBER_FORMATS = ("NUMERIC", "ASCII", "NUMERIC_OR_ASCII", "")


def low_word(value):
    return value & 0xFFFF


class Commit:
    """One commit, step by step."""

    def __init__(self, case):
        self.case = case
        self.row, self.col = case["row"] - 1, case["column"] - 1
        self.values = [[cell["value"] for cell in row] for row in case["table"]["cells"]]
        self.cell = case["table"]["cells"][self.row][self.col]
        self.column = case["table"]["columns"][self.col]
        self.low, self.high = self.cell["min"], self.cell["max"]
        self.shown = ""
        self.online = case["online"]
        self.tab_stop = True
        self.scan = False
        self.focus = 0
        self.grid_col = self.col
        self.writes, self.panel, self.boxes = [], [], []
        self.marked, self.save, self.colours = False, "as before", "as before"

    # The document, the grid and the form.

    @property
    def value(self):
        return self.values[self.row][self.col]

    @value.setter
    def value(self, text):
        self.values[self.row][self.col] = text

    def both(self, text):
        self.value = self.shown = text

    def mark(self):
        self.marked = True
        self.save = "off" if self.case["stem"].upper() == "DEFAULT" else "on"

    def tell(self, text):
        self.boxes.append(f'Msgb 64 "Zorvane": "{text}"')

    def image(self, address):
        return signed(self.case["image"].get(str(address), 0))

    def status(self, value, end):
        self.panel.append(f'panel 4 = "Write: {value} @{self.cell["address"]} ...{end}"')

    def preset(self, address, value):
        self.writes.append(f"link PresetSingleRegister {UNIT} {address} {value}")
        self.written = True

    def refuse(self):
        if self.online:
            self.tab_stop = True
            self.scan = True

    # The sequence of a live write.

    def live(self, start, failed, succeeded, close):
        self.scan = True
        self.written = False
        self.colours = "writing"
        start()
        if self.case["failed before"] or (self.case["fails"] and self.written):
            self.colours = "error"
            failed()
        else:
            self.colours = "modifiable"
            succeeded()
        close()

    def back_to_grid(self, col):
        self.grid_col = col
        self.focus += 1

    # Typed texts.

    def typed(self, text):
        self.shown = text
        kind = self.column["type"].upper()
        word = self.cell["format"].upper()
        if kind in NUMBER_COLUMNS:
            return self.time(text) if word == "TIME" else self.number(text)
        if kind == "TIME":
            return self.number(text) if word in NUMBER_FORMATS else self.time(text)
        self.both(text)
        self.mark()
        self.scan = True

    def time(self, text):
        if not text.strip(" "):
            text = "0:00"
        if not is_time(text):
            if self.cell["format"].upper() != "TIME" and is_numeric(text):
                return self.number(text)
            return self.both("0:00")
        seconds = time_seconds(text)
        if self.low.strip(" ") and self.high.strip(" ") and not val(self.low) <= seconds <= val(self.high):
            self.refuse()
            return self.tell("The value is out of range.")
        text = time_text(seconds)
        if not self.online:
            return self.both(text)
        self.live(lambda: self.preset(long_of(self.cell["address"]), time_seconds(text)),
                  lambda: self.status("", "Failed"), lambda: self.both(text), lambda: None)

    def fill_limits(self):
        kind = self.column["type"].upper()
        if kind not in ("NUMERIC", "NUMERIC_UNSIGNED", "TIME"):
            return False
        if self.cell["format"] == "NUMERIC_UNSIGNED":
            if not self.high.strip(" ") or val(self.high) > 65535:
                self.high = "65535"
            if not self.low.strip(" ") or val(self.low) < 0:
                self.low = "0"
            return True
        if not self.low and not self.high and kind == "TIME":
            self.low, self.high = "-32768", "32767"
        if kind == "NUMERIC":
            self.high = self.high if self.high.strip(" ") else "32767"
            self.low = self.low if self.low.strip(" ") else "-32768"
        return True

    def raw_negative(self, number):
        bits = self.column["bits"].strip(" ")
        if not bits or not is_numeric(bits):
            return 0
        if val(bits) >= 16:
            return to_long(65536 - abs(number)) if number < 0 else 0
        count = to_integer(val(bits))
        return to_long(abs(number) + 2 ** (count - 1)) if number < 0 and count >= 1 else 0

    def number(self, text):
        if not text.strip(" "):
            text = "0"
        if self.cell["ascii"]:
            return self.characters(text)
        if not is_numeric(text):
            return self.both("0")
        if self.fill_limits() and (val(text) > val(self.high) or val(text) < val(self.low)):
            self.refuse()
            high = self.high or "32767"
            self.tell(f"The value is out of range (value range {self.low or '-32768'} to {high})")
            return self.both(high)
        low, high = (0, 65535) if self.cell["format"] == "NUMERIC_UNSIGNED" else (-32768, 32767)
        if not low <= strict_double(text) <= high:
            return self.tell(f"The value is out of range (value range {low} to {high})")
        raw = self.raw_negative(strict_double(text))
        self.grid_col = self.col
        old = strict_long(self.value)
        if self.online:
            self.write_number(text, raw, old)
        else:
            self.value = number_text(val(text))
            self.shown = text
        self.mark()

    def write_number(self, text, raw, old):
        word = self.cell["format"].upper()
        sent = text

        def start():
            nonlocal sent
            if not is_numeric(self.cell["address"]):
                return
            if word == "TIMEMM":
                sent = number_text(strict_double(sent) * 60 + rest(self.image(strict_long(self.cell["address"])), 60))
            elif word == "TIMESS":
                register = self.image(strict_long(self.cell["address"]))
                sent = number_text(strict_double(sent) + quotient(register, 60) * 60)
            self.status(sent, "Pending")
            negative = strict_double(sent) < 0 and self.column["bits"].strip(" ")
            self.preset(long_of(self.cell["address"]), raw if negative else long_of(sent))

        def failed():
            self.both(str(old))
            self.status(sent, "Failed")

        def succeeded():
            nonlocal sent
            if word == "TIMEMM":
                sent = str(quotient(strict_long(sent), 60))
            elif word == "TIMESS":
                sent = str(rest(strict_long(sent), 60))
            self.value = number_text(val(sent))
            self.shown = sent
            self.status(sent, "Completed")

        self.live(start, failed, succeeded, lambda: self.back_to_grid(self.col))

    def characters(self, text):
        self.grid_col = self.col
        if self.online:
            self.scan = True
            self.value = text
            first, last = long_of(self.cell["address"]), long_of(self.cell["end"])
            words, place = [], 0
            for _ in range(first, last + 1):
                pair = [ord(each) for each in text[place:place + 2].ljust(2)]
                place += 2
                if max(pair) >= 128:
                    raise Failure(6)
                words.append(pair[0] * 256 + pair[1])
            self.writes.append(f"link PresetMultipleRegisters {UNIT_OF_SETTINGS} {first} [{' '.join(map(str, words))}]")
            end = "Failed" if self.case["failed before"] or self.case["fails"] else "Completed"
            self.panel.append(f'panel 4 = "Writing ascii block: {first}-{last} @{text} ...{end}"')
        self.both(text)

    # Chosen entries.

    def entry_text(self, code):
        """Before the first entry stands an empty one."""
        texts = ["", *(text for _, text in self.cell["messages"])]
        if not 0 <= code + 1 < len(texts):
            raise Failure(9)
        return texts[code + 1]

    def choose(self, entry):
        """The grid shows what was chosen, if it is an entry, before anything else happens."""
        try:
            self.shown = self.entry_text(strict_long(entry))
        except Failure:
            pass
        self.chosen(entry or "0")

    def chosen(self, entry):
        code = strict_long(entry)
        if self.online:
            self.write_entry(code)
        else:
            self.value = str(code)
            self.shown = self.entry_text(code)
        self.mark()

    def write_entry(self, code):
        address = self.cell["address"]

        def start():
            if is_numeric(address):
                self.status(code, "Pending")
                return self.preset(long_of(address), code)
            half = half_of(address)
            if half is None:
                return None
            register = self.image(long_of(half[0]))
            value = code * 256 + (register & 255) if half[1] == "HI" else (register & ~255) + code
            return self.preset(long_of(half[0]), to_long(value))

        def succeeded():
            self.shown = ""
            self.status(code, "Completed")

        self.live(start, lambda: self.status(code, "Failed"), succeeded, lambda: self.back_to_grid(-1))


UNIT_OF_SETTINGS = 7  # what the bench's port settings say


def outcome(case):
    commit = Commit(case)
    failure = 0
    try:
        if "entry" in case:
            commit.choose(case["entry"])
        else:
            commit.typed(case["text"])
    except Failure as failed:
        failure = failed.number
    return {"failure": failure, "values": commit.values, "limits": [commit.low, commit.high], "shown": commit.shown,
            "col": commit.grid_col, "tab stop": commit.tab_stop, "focus": commit.focus, "scan": commit.scan,
            "writes": commit.writes, "panel": commit.panel, "boxes": commit.boxes, "marked": commit.marked,
            "save": commit.save, "colours": commit.colours}
