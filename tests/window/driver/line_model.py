# SPDX-License-Identifier: MIT
"""A model of controller that is nothing but registers, for tests of the line."""
import json
import os

MODEL = "LINETEST"
FIRST_REGISTER = 100
BLOCK_DISTANCE = 200
SET_DISTANCE = 5000


class Line_Model:
    """`blocks` blocks of `registers` registers, all polled. Every register has a row of its own: all in one field, or
    a field for each block. No two registers start with the same value or one near it, so that a value in the wrong
    row is noticed. Values that can't be modified move a little while they are read, up to 5 from where they start.
    `with_set` adds a third column that can be modified and isn't polled, at registers SET_DISTANCE further on."""

    def __init__(self, folder, blocks, registers, in_one_field=False, pause_ms=0,
                 modifiable=False, with_set=False):
        self.with_set = with_set
        self.template = os.path.join(folder, MODEL + ".ZTP")
        self.register_file = os.path.join(folder, "linetest.json")
        starts = [FIRST_REGISTER + BLOCK_DISTANCE * block for block in range(blocks)]
        tables = [[start + i for i in range(registers)] for start in starts]
        self.addresses = [address for table in tables for address in table]
        self.fields = [self.addresses] if in_one_field else tables or [[FIRST_REGISTER]]
        self.start_values = {address: 1000 + 40 * i for i, address in enumerate(self.addresses)}
        with open(self.register_file, "w", encoding="ascii") as file:
            json.dump(self.start_values, file)
        with open(self.template, "w", encoding="ascii", newline="") as file:
            file.write("\r\n".join(self._lines(starts, registers, pause_ms, modifiable)) + "\r\n")

    def document(self, path):
        """Writes a document of this model that says nothing itself; its name must end in the model's."""
        open(path, "wb").close()
        return path

    def options(self):
        """What a simulated controller of this model needs beside the template."""
        return ["--registers", self.register_file]

    def _lines(self, starts, registers, pause_ms, modifiable):
        yield from ["[HARDWARE]", f"CONTROLLER={MODEL}", "[PORT_CONFIGURATION]",
                    f"COMMUNICATIONS_1_REQUEST={pause_ms}", "COMMUNICATIONS_1_OUT=0", "COMMUNICATIONS_1_SIZE=64",
                    f"HOLDINGREGISTERS={FIRST_REGISTER + BLOCK_DISTANCE * (len(starts) + 1)}"]
        for number, start in enumerate(starts, 1):
            yield f"HOLDINGREGISTERSBLOCK_{number}={start}-{start + registers - 1}"
        for number in range(1, len(starts) + 1):
            yield f"HOLDINGREQUESTBLOCK_{number}=ALWAYS"
        yield from ["[CONFIGURATION_COLUMNS]", "NUMERIC_ROWS=YES", "CONFIGURATION_NC=2", "COL_1_DESC=No.",
                    "COL_1_WIDTH=450", "COL_1_TYPE=NUMERIC", "COL_2_DESC=Field", "COL_2_WIDTH=1600",
                    "COL_2_TYPE=ASCII", "[CONFIGURATION_FIELDS]"]
        columns = 3 if self.with_set else 2
        for number, addresses in enumerate(self.fields, 1):
            yield from [f"FIELD_{number}_DESC=Block {number}", f"FIELD_{number}_RC={len(addresses)},{columns}"]
        for number in range(1, len(self.fields) + 1):
            yield from [f"[FIELD_{number}_COLUMNS]", "COL_1_DESC=Register", "COL_1_WIDTH=1100", "COL_1_TYPE=NUMERIC",
                        "COL_1_MODIFIABLE=NO", "COL_2_DESC=Value", "COL_2_WIDTH=1100", "COL_2_ALIGNMENT=RIGHT",
                        "COL_2_TYPE=NUMERIC", f"COL_2_MODIFIABLE={'YES' if modifiable else 'NO'}",
                        "COL_2_MDBUSREQUEST=ALWAYS"]
            if self.with_set:
                yield from ["COL_3_DESC=Set", "COL_3_WIDTH=1100", "COL_3_TYPE=NUMERIC", "COL_3_MODIFIABLE=YES"]
        for number, addresses in enumerate(self.fields, 1):
            yield f"[FIELD_{number}_CONFIGURATION]"
            yield from (f"ROWADDRESS_{row}=,{address}" + (f",{address + SET_DISTANCE}" if self.with_set else "")
                        for row, address in enumerate(addresses, 1))
        yield "[CONFIGURATION_DEFAULT]"
        yield from (f"FIELD_{number}=,Block {number}" for number in range(1, len(self.fields) + 1))
        for number, addresses in enumerate(self.fields, 1):
            yield f"[FIELD_{number}_DEFAULT]"
            yield from (f"ROW_{row}={address}," + (",0" if self.with_set else "")
                        for row, address in enumerate(addresses, 1))
