#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Values go up from one controller, into a file, and down to another one: the second must hold what the first did.

    round_trip_test.py PROGRAMS MODEL sim|pymodbus

For a model of the folder PROGRAMS: a slave with random registers, upload, save, the saved file read again, download
to a slave with other registers. Every register that a download writes must then be the same in both. The registers
of the two slaves are random but what a controller of that model can hold: a list register one of its codes, a text
register printable characters, a sign-and-magnitude register no more than its bits.

Left out of the comparison, because a download by its own rules doesn't write them as they were read:
- cells of minutes and seconds that share a register: each takes the other half from the selected cell;
- on the board family, the last text column of a row: it goes out only as the neighbour of the one before it.
"""
import json
import os
import random
import signal
import subprocess
import sys
import tempfile

TEXT = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789.:/+"
BOARD_FAMILY = ("R7702-16", "R7702-32", "R7702-64")
HERE = os.path.dirname(os.path.abspath(__file__))


class Model:
    """What the program understood of a template, and the registers that its cells live in."""

    def __init__(self, programs, name):
        self.ctl = os.path.join(programs, "zorvanectl")
        self.sim = os.path.join(programs, "zorvane-sim")
        files = {file.upper(): file for file in os.listdir(programs)}
        self.template = os.path.join(programs, files[name.upper() + ".ZTP"])
        self.example = os.path.join(programs, files["EXAMPLE." + name.upper()])
        run = subprocess.run([self.ctl, "dump", "--json", self.template, self.example], capture_output=True, check=True)
        self.dump = json.loads(run.stdout)
        self.cells = list(self.find_cells())
        self.held_back = {text.strip() for text in self.dump["Not_Downloadable"]}

    def find_cells(self):
        for field in self.dump["Fields"].values():
            rows = field["Cells"]
            for row in rows[1:]:
                for definition, cell in zip(rows[0], row):
                    if cell.get("Address"):
                        yield {**cell, "definition": definition, "column": rows[0].index(definition) + 1,
                               "last": len(rows[0])}

    def address_base(self):
        """What the template takes off a register's number for the wire."""
        with open(self.template, encoding="cp1252") as file:
            bases = [line.split("=")[1] for line in file if line.upper().startswith("ADDRESSBASE=")]
        return int(bases[-1]) if bases else 0

    def scanned(self):
        return [address for block in self.dump["Holding_Blocks"]
                for address in range(block["First_Address"], block["Last_Address"] + 1)]

    def registers(self, dice):
        """Random registers for all that is scanned."""
        values = {address: dice.randrange(0, 32768) for address in self.scanned()}
        for cell in self.cells:
            self.settle(cell, values, dice)
        return values

    def settle(self, cell, values, dice):
        address = cell["Address"]
        if cell.get("Is_Ascii_Range"):
            for register in range(int(address), int(cell["Address_End"]) + 1):
                values[register] = ord(dice.choice(TEXT)) * 256 + ord(dice.choice(TEXT))
        elif "/" in address:
            number, half = address.split("/")
            code = dice.choice(cell["Messages"])["Code"] if cell.get("Has_Messages") else dice.randrange(0, 128)
            old = values[int(number)]
            values[int(number)] = code * 256 + old % 256 if half == "HI" else old // 256 * 256 + code
        elif cell.get("Has_Messages"):
            values[int(address)] = dice.choice(cell["Messages"])["Code"]
        else:
            values[int(address)] = self.number(cell, dice)

    @staticmethod
    def number(cell, dice):
        bits = cell["definition"].get("Bits_Negative_Format", "")
        if bits and 0 < int(bits) < 16:
            return dice.randrange(0, 2 ** int(bits))
        if cell.get("Format", "").upper() in ("TIME", "TIMEMM", "TIMESS"):
            return dice.randrange(0, 32768)
        return dice.randrange(0, 65536)

    def written(self):
        """The registers that a download writes as they were read."""
        board = self.dump["Controller_Model"] in BOARD_FAMILY
        found = set()
        for cell in self.cells:
            if not cell["definition"].get("Modifiable") or cell["Address"].strip() in self.held_back:
                continue
            if cell.get("Format", "").upper() in ("TIMEMM", "TIMESS"):
                continue
            if cell.get("Is_Ascii_Range"):
                if not (board and cell["column"] == cell["last"]):
                    found.update(range(int(cell["Address"]), int(cell["Address_End"]) + 1))
            else:
                found.add(int(cell["Address"].split("/")[0]))
        return found


class Slave:
    """A controller on a pseudo-terminal, ours or pymodbus."""

    def __init__(self, kind, model, folder, name, registers):
        self.link = os.path.join(folder, name)
        self.file = self.link + ".json"
        self.kind = kind
        with open(self.file, "w", encoding="ascii") as file:
            json.dump({str(address): value for address, value in registers.items()}, file)
        self.process = subprocess.Popen(self.command(kind, model), stdout=subprocess.PIPE, text=True)
        if not self.process.stdout.readline().startswith("ready"):
            raise SystemExit(f"the {kind} slave did not start")

    def command(self, kind, model):
        if kind == "sim":
            return [model.sim, "--template", model.template, "--registers", self.file, "--pty", self.link]
        slave = os.path.join(HERE, "..", "peers", "pymodbus_slave.py")
        return ["/usr/bin/python3", slave, self.link, "--registers", self.file,
                "--address-base", str(model.address_base())]

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        self.process.wait(timeout=10)


def transfer(model, call, document, slave, *options):
    line = ["--port", slave.link, "--settings", "115200,n,8,1", "--json"]
    run = subprocess.run([model.ctl, call, model.template, document, *line, *options], capture_output=True, text=True,
                         timeout=240, check=False)
    if run.returncode != 0 or json.loads(run.stdout)["outcome"] != "finished":
        raise SystemExit(f"{call} failed ({run.returncode}):\n{run.stdout[-2000:]}\n{run.stderr[-2000:]}")


def main():
    programs, name, kind = sys.argv[1:4]
    model = Model(programs, name)
    dice = random.Random(f"{name} {kind}")
    # Live values move in the simulator by themselves; those that a download writes stand still once written.
    first_registers = model.registers(dice)
    other_registers = model.registers(dice)
    with tempfile.TemporaryDirectory() as folder:
        saved = os.path.join(folder, os.path.basename(model.example))
        image = os.path.join(folder, "first.json")
        after = os.path.join(folder, "after.json")
        first = Slave(kind, model, folder, "first", first_registers)
        transfer(model, "upload", model.example, first, "--save", saved, "--registers", image)
        first.stop()
        second = Slave(kind, model, folder, "second", other_registers)
        transfer(model, "download", saved, second)
        transfer(model, "upload", model.example, second, "--registers", after)
        second.stop()
        with open(image, encoding="ascii") as file:
            sent = {int(k): v for k, v in json.load(file).items()}
        with open(after, encoding="ascii") as file:
            got = {int(k): v for k, v in json.load(file).items()}
    written = sorted(model.written())
    wrong = [f"register {a}: {sent[a]} became {got[a]}" for a in written if sent[a] != got[a]]
    print(f"{name} over {kind}: {len(written)} registers written, {len(wrong)} differ")
    if not written or wrong:
        raise SystemExit("\n".join(wrong) or "no register was written")


if __name__ == "__main__":
    main()
