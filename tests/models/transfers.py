# SPDX-License-Identifier: MIT
"""Uploads and downloads one after the other on a line that fails: what the document, the controller and the form hold after
each. A request is tried again as often as the settings say; what was answered well is in the register image."""
from tables import by_format
from values import (Failure, characters, half_of, is_numeric, long_of, quotient, rest, signed, strict_long, time_seconds,
                    to_long, val)

READY = "Ready"
SILENT = "Error. The controller does not respond."
BOARDS = ("R7702-16", "R7702-32", "R7702-64")


class Session:
    """The controller's registers, the link's image of them and the document."""

    def __init__(self, case):
        self.case = case
        self.tries = case["retries"] + 1
        self.registers = {int(address): value for address, value in case["registers"].items()}
        self.image = {}
        self.board = case["model"] in BOARDS
        self.values = [[[cell["value"] for cell in row] for row in field["cells"]] for field in case["fields"]]
        self.faults = []
        self.lost = False
        self.records = False

    # The line.

    def exchange(self, first, last, reads, do):
        """"good", "refused" or "silent"."""
        for _ in range(self.tries):
            fault = next((each for each in self.faults if each["reads"] == reads and each["times"] != 0
                          and each["first"] <= last and first <= each["last"]), None)
            kind = fault["kind"] if fault else "none"
            if fault and fault["times"] > 0:
                fault["times"] -= 1
            if kind in ("silent", "damaged", "cut"):
                do()  # the controller did it, only its answer is missing
            if kind == "exception":
                self.lost = False
                return "refused"
            if kind in ("none", "noise"):
                do()
                self.lost = False
                return "good"
            self.records |= reads
        self.lost = True
        return "silent"

    def read(self, first, last):
        """A try that failed leaves a record."""
        end = self.exchange(first, last, True, lambda: None)
        self.records |= end == "refused"
        if end == "good":
            self.image.update({each: self.registers.get(each, 0) for each in range(first, last + 1)})
        return end

    def write(self, first, values, waits_itself=False):
        """Each try leaves a record, a good one too. A text's write waits by itself, so that only its refusal is seen."""
        words = [value & 0xFFFF for value in values]

        def do():
            self.registers.update({first + i: word for i, word in enumerate(words)})
        end = self.exchange(first, first + len(words) - 1, False, do)
        self.records |= end == "refused" or not waits_itself
        if end == "good":
            self.image.update({first + i: word for i, word in enumerate(words)})

    def held(self, address, is_signed=True):
        return signed(self.image.get(address, 0)) if is_signed else self.image.get(address, 0)

    # The transfers.

    def online_if_clean(self):
        return not self.records and any(block[2] == "ALWAYS" for block in self.case["blocks"])

    def upload(self):
        for first, last, _ in self.case["blocks"]:
            if self.read(first, last) == "silent":
                return SILENT, False
        for f, field in enumerate(self.case["fields"]):
            for r, row in enumerate(field["cells"]):
                for c, cell in enumerate(row):
                    text = self.taken(field["columns"][c], cell)
                    if text is not None:
                        self.values[f][r][c] = text
        return READY, self.online_if_clean()

    def taken(self, column, cell):
        address = cell["address"]
        if not is_numeric(address):
            half = half_of(address)
            if half is None:
                return None
            value = self.held(long_of(half[0]))
            return str(quotient(value, 256) & 255 if half[1] == "HI" else value & 255)
        first = long_of(address)
        value = self.held(first)
        bits = column["bits"].strip(" ")
        if bits and is_numeric(bits):
            count = long_of(bits)
            if 0 < count < 16:
                sign = 2 ** (count - 1)
                return str(-(value - sign) if value & sign else value)
            return str(65536 + value if count == 0 and value < 0 else value)
        if cell["ascii"]:
            return characters(self.image.get(each, 0) for each in range(first, long_of(cell["end"]) + 1))
        if cell["messages"] is not None:
            return str(value)
        return by_format(cell, self.image.get(first, 0))[0]

    def download(self):
        self.negative = 0
        for f, field in enumerate(self.case["fields"]):
            if self.lost:
                return SILENT, False
            for c, column in enumerate(field["columns"]):
                if not column["modifiable"]:
                    continue
                for r, row in enumerate(field["cells"]):
                    self.send(f, r, c, column, row[c])
        return READY, self.online_if_clean()

    def send(self, f, r, c, column, cell):
        text = self.values[f][r][c]
        number = val(text)
        address = cell["address"]
        bits = column["bits"].strip(" ")
        if bits and is_numeric(bits) and number < 0:
            count = long_of(bits)
            self.negative = to_long(-number + 2.0 ** (count - 1)) if count < 16 else to_long(65536 + number)
        if address.strip(" ") in [each.strip(" ") for each in self.case["not downloadable"]]:
            return
        if not is_numeric(address):
            return self.send_half(address, number)
        if cell["ascii"]:
            return self.send_text(f, r, c, cell, text)
        first = long_of(address)
        if cell["messages"] is not None:
            return self.write(first, [to_long(number)])
        word = cell["format"].strip(" ").upper()
        if not self.board and word in ("TIME", "TIMEMM", "TIMESS", "NUMERIC_UNSIGNED"):
            return self.write(first, [self.formatted(word, text)])
        if number < 0 and bits:
            return self.write(first, [self.negative])
        if not self.board:
            return self.write(first, [to_long(number)])
        return self.send_on_board(first, word, text)

    def formatted(self, word, text):
        if word == "TIME":
            return time_seconds(text)
        if word == "NUMERIC_UNSIGNED":
            return to_long(val(text))
        part = strict_long(text)
        # The rule of a live edit: the register of the cell that the grids stand at, here the first one's neighbour.
        beside = self.case["fields"][0]["cells"][0][0]
        old = self.held(strict_long(beside["address"]))
        return part * 60 + rest(old, 60) if word == "TIMEMM" else quotient(old, 60) * 60 + part

    def send_half(self, address, number):
        half = half_of(address)
        if half is None:
            return
        first = long_of(half[0])
        old = self.held(first)
        word = to_long(number * 256 + (old & 255)) if half[1] == "HI" else to_long((old & ~255) + number)
        if not self.board:
            return self.write(first, [word])
        block = next((each for each in self.case["download blocks"] if each[2] == 1 and each[0] != ""
                      and int(each[0]) <= first <= int(each[1])), None)
        values = [self.held(each) for each in range(int(block[0]), int(block[1]) + 1)]
        values[first - int(block[0])] = word
        self.write(int(block[0]), values)

    def send_on_board(self, first, word, text):
        block = next(each for each in self.case["download blocks"] if each[2] == 0 and int(each[0]) <= first)
        values = [self.held(each, False) for each in range(int(block[0]), int(block[1]) + 1)]
        place = first - int(block[0])
        number = val(text)
        if word == "TIME":
            values[place] = time_seconds(text)
        elif word == "TIMEMM":
            values[place] = to_long(number * 60 + rest(values[place], 60))
        elif word == "TIMESS":
            values[place] = to_long(quotient(values[place], 60) * 60 + number)
        else:
            values[place] = to_long(number + 65536 if number < 0 else number)
        self.write(int(block[0]), values)

    def send_text(self, f, r, c, cell, text):
        first, last = long_of(cell["address"]), long_of(cell["end"])
        if self.board:
            if c + 1 >= len(self.case["fields"][f]["columns"]):
                return
            text = text.ljust(16) + self.values[f][r][c + 1].ljust(16)
            block = next((each for each in self.case["download blocks"] if each[2] == 2 and each[0] != ""
                          and int(each[0]) <= first <= int(each[1])), None)
            if block is not None:
                first, last = int(block[0]), int(block[1])
        text = text.ljust(2 * (last - first + 1))
        codes = [ord(each) for each in text[:2 * (last - first + 1)]]
        if max(codes, default=0) >= 128:
            raise Failure(6)
        self.write(first, [codes[2 * i] * 256 + codes[2 * i + 1] for i in range(last - first + 1)], True)


def outcome(case):
    session = Session(case)
    steps = []
    for step in case["steps"]:
        session.faults = [dict(fault) for fault in step["faults"]]
        session.records = False
        session.lost = False  # a port that is opened again starts with a clean slate
        for f, r, c, text in step["set"]:
            session.values[f - 1][r - 1][c - 1] = text
        panel, online, failure = "", False, 0
        try:
            panel, online = session.upload() if step["up"] else session.download()
        except Failure as failed:
            failure = failed.number
        steps.append({"panel": panel, "online": online, "records": session.records, "failure": failure,
                      "values": [[list(row) for row in field] for field in session.values],
                      "registers": {str(address): value for address, value in session.registers.items() if value}})
        if failure:
            break
    return steps
