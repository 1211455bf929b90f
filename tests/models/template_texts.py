# SPDX-License-Identifier: MIT
"""Random templates with documents over them, mostly sound, each line now and then unusual. One character is a byte."""

NUMBERS = ["1", "2", "3", "0", "12abc", "abc", "", "1.5", "2.5", "-1", "1e1", "1d0", " 2", "+3", ".5", "5.", "32767", "0007", "90", "-90",
           "61", "3600", "1:30", "-1:30", "0:5", "1:", "x:1", ":", "1:99", "&H10", "1 2", "\xa03", "2\t"]
LARGE_NUMBERS = ["32768", "40000", "-32769", "2147483648", "1e400"]
WORDS = ["Yes", "YES", "yes ", "no", "LEFT", "Rigth", "center", "ALWAYS", "always", "CONFIG", "\xe4\xdf\xff\x9a\x83\xb5", "TIME", "time",
         "TIMEMM", "NUMERIC", "ASCII", "On", "off", "(1)x", "\x80\x81\x8d", "a-b", "-", "", " ", "100", "10-20", "a;b", "x ; y", '"q"',
         "a=b", "#", "_", "1100"]
LIST_ITEMS = ["(0)Off", "(1)On", "(2) Auto ", "(1)Again", "(-1)neg", "()", "(x)y", "(1.5)r", "(3)", "z(4)t(5)", "Broken", "(7)seven",
              "(100000)big", "(1)\xe4"]
ADDRESSES = ["100", "100", "101", "100/HI", "100/LO", "101/HI", "", "0", "-5", " 100", "100 ", "0100", "100/hi", "+100", "100/HI/LO",
             "5/LO", "1e2"]
SECTIONS = ["HARDWARE", "CONFIGURATION_COLUMNS", "CONFIGURATION_FIELDS", "PORT_CONFIGURATION", "FIELD_n_COLUMNS",
            "FIELD_n_CONFIGURATION", "FIELD_n_MESSAGES", "ADDRESS_NOTDOWNLOADABLE", "FIELD_n_DEFAULT", "CONFIGURATION_DEFAULT",
            "DEFAULT_n_COLUMNS", "COLORS", "OTHER_SECTION"]
DOCUMENT_SECTIONS = ["CONFIGURATION_DEFAULT", "FIELD_n_DEFAULT", "FIELD_n_DEFAULT", "DEFAULT_n_COLUMNS", "FIELD_n_COLUMNS",
                     "FIELD_n_MESSAGES"]


class Maker:
    def __init__(self, dice):
        self.dice = dice

    def one(self, *choices):
        return self.dice.choice(choices)

    def seldom(self, usual, unusual, share=0.03):
        return self.dice.choice(unusual) if self.dice.random() < share else usual

    def number(self):
        return self.seldom(self.dice.choice(NUMBERS), LARGE_NUMBERS)

    def word(self):
        return self.dice.choice(WORDS)

    def index(self):
        return self.seldom(self.seldom(str(self.dice.randint(1, 3)), ["1.5", "0", "2x", ""], 0.2), ["101", "-1", "99999999999"], 0.01)

    def items(self, make, counts=(1, 2, 3, 3, 3, 3)):
        return ",".join(make() for _ in range(self.dice.choice(counts)))

    def width(self):
        return self.seldom(self.one("100", " 200 ", "1.5", "2.5"), ["wide", "", "32768"], 0.01)

    def key_and_value(self, section):
        n, word = self.index(), self.word()
        blocks = "DOWNLOAD_" + n + "_MULTIPLEREGISTERBLOCK"
        lines = {
            "HARDWARE": [("CONTROLLER", word), (blocks + "NUMERIC", self.one("1-2", "1", "-", "a-b-c", " 1 - 2 ", "1-2;3")),
                         (blocks + "MESSAGELIST", "5-6"), (blocks + "ASCII", "1-9")],
            "CONFIGURATION_COLUMNS": [("NUMERIC_ROWS", word), ("CONFIGURATION_NC", "3"), (f"COL_{n}_WIDTH", self.width())] +
                                     [(f"COL_{n}_{member}", word) for member in ("DESC", "ALIGNMENT", "TYPE")],
            "CONFIGURATION_FIELDS": [(f"FIELD_{n}_DESC", word), (f"FIELD_{n}_RC", self.seldom(
                "3,3", ["2,3", "3", "0,0", "3,3,9", "2x,2y", "1.5,2.5", ",", "-1,2", "2,40000"], 0.2))],
            "FIELD_n_COLUMNS": [(f"COL_{n}_WIDTH", self.width())] + [(f"COL_{n}_{member}", word) for member in (
                "DESC", "ALIGNMENT", "TYPE", "MODIFIABLE", "MDBUSREQUEST", "BITSNEGATIVEFORMAT", "FOO")],
            "FIELD_n_CONFIGURATION": [(f"ROWADDRESS_{n}", self.items(lambda: self.dice.choice(ADDRESSES))),
                                      (f"ROWASCIIRANGE_{n}", self.items(self.word)), (f"ROWADDRESSFORMAT_{n}", self.items(self.word))] +
                                     [(f"ROWADDRESS{member}VALUE_{n}", self.items(self.number))
                                      for member in ("NUMERICMAX", "NUMERICMIN", "TIMEMIN", "TIMEMAX")],
            "FIELD_n_MESSAGES": [("ADDRESS_" + self.one("100", "101", "5", "-5", "0", "100x", "1e2", "100_1", ""), self.items(
                lambda: self.seldom(self.dice.choice(LIST_ITEMS), [")(", "(99999999999)"], 0.02)))],
            "ADDRESS_NOTDOWNLOADABLE": [(self.one("ADDRESS_1", "ADDRESS_", "ADDRESS", "ADDRESS_1_2"), word)],
            "PORT_CONFIGURATION": [("PORT", "3"), ("HOLDINGREGISTERS", self.number()),
                                   (f"HOLDINGREGISTERSBLOCK_{n}", self.one("1-9", "10-20", "x", "100", "5-", "-", "1.5-2.5")),
                                   ("HOLDINGREQUESTBLOCK_" + self.seldom("1", ["2", "9"]), word)] +
                                  [(f"COMMUNICATIONS_{n}_{member}", self.number()) for member in ("REQUEST", "OUT", "SIZE")],
            "FIELD_n_DEFAULT": [("ROW_" + self.seldom(n, ["9"], 0.1),
                                 self.seldom(self.items(lambda: self.one(self.number(), word, "On", " off ", "1")), ["1,2,3,4"]))],
            "CONFIGURATION_DEFAULT": [(self.seldom(f"FIELD_{n}", ["FIELD_2_X"]), self.items(self.word, (3, 3, 3, 3, 3, 4, 4, 2)))],
            "DEFAULT_n_COLUMNS": [(f"COL_{n}_WIDTH", self.number())],
            "COLORS": [("TXT_1_NORMAL", word), ("BCKGRND__WRITTINGCOMM", word), ("TXT_NORMAL", word)],
            "OTHER_SECTION": [("V_PREFIX_1", word)]}
        return self.dice.choice(lines[section])

    def line(self, section):
        key, value = self.key_and_value(section)
        key = self.seldom(key, [key.lower(), key + " ", " " + key], 0.1)
        line = key + "=" + self.seldom(value, [" " + value, value + " ", value + "\t"], 0.2)
        return self.seldom(line, ["; c", "", " ;c=1", "=x", "nothing"], 0.06)

    def header(self, section):
        name = section.replace("n", self.index()) if "_n_" in section else section
        head = "[" + self.seldom(name, [name.lower(), name.title()], 0.3) + "]"
        return self.seldom(head, [head + "  ", head[:-1] + "X", " " + head], 0.1)

    def text(self, sections, lines):
        text = ""
        for section in sections:
            for line in [self.header(section)] + [self.line(section) for _ in range(self.dice.choice(lines))]:
                text += line + self.seldom("\r\n", ["\n", "\r\r\n"], 0.15)
        return self.seldom(text, [text.rstrip("\r\n")], 0.2)

    def sound_beginning(self):
        """What nearly every template has, so that most lines after it have something to speak of."""
        lines = ["[CONFIGURATION_COLUMNS]", "CONFIGURATION_NC=3", "[CONFIGURATION_FIELDS]"]
        for f in range(1, 4):
            lines += [f"FIELD_{f}_DESC=Page {f}", f"FIELD_{f}_RC=3,3"]
        for f in range(1, 4):
            lines.append(f"[FIELD_{f}_CONFIGURATION]")
            lines += [f"ROWADDRESS_{r}=" + self.items(lambda: self.dice.choice(ADDRESSES), (3,)) for r in range(1, 4)]
        lines += self.seldom(["[PORT_CONFIGURATION]", "HOLDINGREGISTERSBLOCK_1=1-9"], [[]])
        lines += self.seldom(["[CONFIGURATION_DEFAULT]", "FIELD_1=a,b,c", "FIELD_2=a,,c", "FIELD_3=,,,"], [[]], 0.1)
        return "".join(line + "\r\n" for line in lines)

    def template(self):
        sections = [section for section in SECTIONS for _ in range(self.one(0, 1, 1, 2) if "_n_" in section else self.one(0, 1))
                    if section != "CONFIGURATION_FIELDS" or self.dice.random() < 0.2]
        if self.dice.random() < 0.3:
            self.dice.shuffle(sections)
        return self.sound_beginning() + self.text(sections, (1, 2, 3, 4, 5))

    def document(self):
        return self.text([self.dice.choice(DOCUMENT_SECTIONS) for _ in range(self.dice.randint(1, 5))], (0, 1, 2, 3, 4, 5))

    def older(self, document):
        """A document of the generation that an update rewrites, with what it looks for."""
        lines = ["FIELD_1=,Channel Setup,Yes,Descriptions are stored offline only",
                 "field_2=,Output setup,YES,descriptions are stored offline only tail", "FIELD_1=,Channel Setup,No,Other", " ", "\r",
                 "[FIELD_12_DEFAULT]", "x[field_1_columns]y", "[Field_1_Default]", "[Field_2_Default]", "[Default_1_Columns]"]
        return document + "".join(self.dice.choice(lines) + "\r\n" for _ in range(self.dice.randint(0, 8)))


def case(dice):
    make = Maker(dice)
    document = make.document()
    return {"template": make.template(), "document": document, "older": make.older(document),
            "extension": make.one("KVRT", "KVRT207D", "kvrt207d", "KVRT100", "A.KVRT207D")}
