# SPDX-License-Identifier: MIT
"""What the lines of a template, and of a document over it, leave in the model. Files are texts of one character a byte.

It shares no code with the program.
"""
import math
import re

from values import Failure, quotient, rest, two_digits

NUMBER = re.compile(r"[+-]?(?:\d+\.?\d*|\.\d+)(?:[eEdD][+-]?\d+)?")
CELL = {"Row": 0, "Column": 0, "Min_Value": "", "Max_Value": "", "Address": "", "Address_End": "", "Modifiable": False, "Value": "",
        "Width": 0, "Alignment": "", "Column_Type": "", "Modbus_Request": "", "Bits_Negative_Format": "", "Is_Ascii_Range": False,
        "Has_Messages": False, "Format": "", "Messages": None}
COLOUR_KEYS = {"TXT_#_MODIFIABLEVALUES": ("Color_Txt_Modifiable", "BLACK"), "TXT_#_EXCEPTIONCOMM": ("Color_Txt_Exception", "RED"),
               "TXT_#_WRITTINGCOMM": ("Color_Txt_Writing", "BLUE"), "TXT_#_ERRORWRITTINGCOMM": ("Color_Txt_Error", "RED"),
               "TXT_#_NORMAL": ("Color_Txt_Normal", "BLACK"), "BCKGRND_#_MODIFIABLEVALUES": ("Color_Back_Modifiable", "YELLOW"),
               "BCKGRND_#_EXCEPTIONCOMM": ("Color_Back_Exception", "YELLOW"),
               "BCKGRND_#_WRITTINGCOMM": ("Color_Back_Writing", "YELLOW"), "BCKGRND_#_NORMAL": ("Color_Back_Normal", "WHITE"),
               "BCKGRND_#_ERRORWRITTINGCOMM": ("Color_Back_Error", "YELLOW")}
TWO_UNDERSCORES = ("HARDWARE", "CONFIGURATION_COLUMNS", "CONFIGURATION_FIELDS", "FIELD_#_COLUMNS", "DEFAULT_#_COLUMNS", "COLORS")
ONE_UNDERSCORE = ("FIELD_#_CONFIGURATION", "FIELD_#_MESSAGES", "FIELD_#_DEFAULT", "CONFIGURATION_DEFAULT")


# Texts and numbers.

def shown(text):
    """Bytes of Windows-1252 as characters; those without one are the control codes of their number."""
    return "".join(each if ord(each) in (0x81, 0x8D, 0x8F, 0x90, 0x9D) else each.encode("latin-1").decode("cp1252") for each in text)


def upper(text):
    """Letter by letter within the code page."""
    def one(each):
        large = shown(each).upper()
        try:
            return large.encode("cp1252").decode("latin-1") if len(large) == 1 else each
        except UnicodeEncodeError:
            return each
    return "".join(one(each) for each in text)


def trimmed(text):
    return text.strip(" ")


def val(text):
    found = NUMBER.match(text.lstrip(" "))
    return float(re.sub("[dD]", "e", found.group())) if found else 0.0


def is_numeric(text):
    return NUMBER.fullmatch(trimmed(text)) is not None


def whole(number, bits):
    if math.isinf(number) or not -2**(bits - 1) <= round(number) < 2**(bits - 1):
        raise Failure(6)
    return round(number)


def long_of(text):
    return whole(val(text), 32)


def strict_width(text):
    if not is_numeric(text):
        raise Failure(13)
    return whole(val(text), 16)


def entry(entries, index):
    if entries is None or not 0 <= index < len(entries):
        raise Failure(9)
    return entries[index]


# The model.

class Field:
    def __init__(self):
        self.description, self.rows, self.columns, self.texts = "", 0, 0, None
        self.size, self.cells, self.touched = (-1, -1), {}, False

    def cell(self, row, column):
        if not (0 <= row <= self.size[0] and 0 <= column <= self.size[1]):
            raise Failure(9)
        return self.cells.setdefault((row, column), dict(CELL))

    def resize(self, rows, columns):
        if rows < 0 or columns < 0:
            raise Failure(9)
        self.size, self.cells = (rows, columns), {}


class Model:
    """As Open has it before it reads."""

    def __init__(self):
        self.controller, self.field_count, self.column_count, self.numeric_rows = "", 0, 0, False
        self.fields = [Field() for _ in range(101)]
        self.heads = [self.head()]
        self.downloads, self.kept_back, self.blocks = [], [], None
        self.block_count = self.always = self.pause = self.time_out = self.size = 0
        self.image = None
        self.colours = dict(COLOUR_KEYS.values())

    @staticmethod
    def head():
        return {"Description": "", "Width": 0, "Alignment": "", "Column_Type": ""}

    def field(self, number):
        found = entry(self.fields, number)
        found.touched = True
        return found


# Lines.

def lines_of(text):
    lines = text.split("\n")
    last = lines.pop()
    return [line[:-1] if line.endswith("\r") else line for line in lines] + ([last] if last else [])


def numbered(key, second_needed, second_counts):
    """A key with "#" for its number, in upper case, and the number."""
    first = key.find("_")
    second = key.find("_", first + 1) if first >= 0 else -1
    if first < 0 or (second_needed and second < 0):
        return upper(key), 0
    end = second if second_counts and second >= 0 else len(key)
    return upper(key[:first + 1] + "#" + key[end:]), long_of(key[first + 1:end])


def header(line, number):
    """The section's name with "#" for its number, and the number in force from now on."""
    text = trimmed(line)
    if len(text) < 2:
        raise Failure(5)
    name = text[1:-1]
    parts = name.split("_", 2)
    return (name, number) if len(parts) < 3 else (f"{parts[0]}_#_{parts[2]}", long_of(parts[1]))


def read(model, text, document):
    """False at the first line that a document may not have."""
    section, number = "", 0
    for line in lines_of(text):
        if line.startswith(";"):
            continue
        if line.startswith("["):
            section, number = header(line, number)
            continue
        key, equals, value = line.partition("=")
        if key and equals and not interpreted(model, upper(section), number, key, trimmed(value).split(";")[0]) and document:
            return False
    return True


def interpreted(model, section, number, key, value):
    if section in TWO_UNDERSCORES:
        name, index = numbered(key, True, True)
    elif section in ONE_UNDERSCORE:
        name, index = numbered(key, False, False)
    elif section in SECTIONS:
        name, index = numbered(key, False, True)
    else:
        return True
    return SECTIONS[section](model, number, name, index, value) is not False


# Sections. Each takes the model, the section's number, the key, its number and the value.

def hardware(model, _number, name, _index, value):
    kinds = ["DOWNLOAD_#_MULTIPLEREGISTERBLOCK" + kind for kind in ("NUMERIC", "MESSAGELIST", "ASCII")]
    first, dash, last = value.partition("-")
    if name == "CONTROLLER":
        model.controller = upper(trimmed(value))
    elif name in kinds and dash:
        model.downloads.append({"Model": model.controller, "First_Address": first, "Last_Address": last,
                                "Block_Kind": kinds.index(name)})


def upper_grid(model, _number, name, index, value):
    if name == "NUMERIC_ROWS":
        model.numeric_rows = upper(value) == "YES"
    elif name == "CONFIGURATION_NC":
        model.column_count = whole(val(value), 16)
        if model.column_count < 0:
            raise Failure(9)
        model.heads = [Model.head() for _ in range(model.column_count + 1)]
    elif name == "COL_#_WIDTH":
        width = strict_width(value)
        entry(model.heads, index)["Width"] = width
    elif name in ("COL_#_DESC", "COL_#_ALIGNMENT", "COL_#_TYPE"):
        member = {"DESC": "Description", "ALIGNMENT": "Alignment", "TYPE": "Column_Type"}[name[6:]]
        entry(model.heads, index)[member] = value


def fields(model, _number, name, index, value):
    rows, comma, columns = value.partition(",")
    if name == "FIELD_#_DESC":
        model.field_count = whole(model.field_count + 1, 16)
        model.field(index).description = value
    elif name == "FIELD_#_RC" and comma:
        field = model.field(index)
        field.rows = whole(val(rows), 16)
        field.columns = whole(val(columns), 16)
        field.resize(field.rows, field.columns)


def definition(model, number, index, member, value):
    cell = model.field(number).cell(0, index)
    cell["Row"], cell["Column"], cell[member] = 0, index, value


def columns(model, number, name, index, value):
    text = trimmed(value)
    if name == "COL_#_WIDTH":
        definition(model, number, index, "Width", strict_width(value))
    elif name == "COL_#_MODIFIABLE":
        definition(model, number, index, "Modifiable", upper(text) == "YES")
    elif name == "COL_#_MDBUSREQUEST":
        definition(model, number, index, "Modbus_Request", upper(text))
    elif name in ("COL_#_DESC", "COL_#_ALIGNMENT", "COL_#_TYPE", "COL_#_BITSNEGATIVEFORMAT"):
        member = {"DESC": "Value", "ALIGNMENT": "Alignment", "TYPE": "Column_Type", "BITSNEGATIVEFORMAT": "Bits_Negative_Format"}
        definition(model, number, index, member[name[6:]], text)


def widths(model, number, name, index, value):
    if name == "COL_#_WIDTH":
        definition(model, number, index, "Width", whole(val(value), 16))


def limit_of_time(item):
    minutes, colon, seconds = item.partition(":")
    timely = colon and is_numeric(minutes) and is_numeric(seconds)
    return str(whole(val(minutes) * 60 + val(seconds), 32)) if timely else "0"


def ascii_range(item):
    first, dash, last = item.partition("-")
    return {"Address": first, "Address_End": last, "Is_Ascii_Range": True} if dash else {"Address": item}


ITEMS = {"ROWADDRESS_#": lambda item: {"Address": item}, "ROWASCIIRANGE_#": ascii_range,
         "ROWADDRESSNUMERICMAXVALUE_#": lambda item: {"Max_Value": item if is_numeric(item) else "32767"},
         "ROWADDRESSNUMERICMINVALUE_#": lambda item: {"Min_Value": item if is_numeric(item) else "-32768"},
         "ROWADDRESSTIMEMINVALUE_#": lambda item: {"Min_Value": limit_of_time(item)},
         "ROWADDRESSTIMEMAXVALUE_#": lambda item: {"Max_Value": limit_of_time(item)},
         "ROWADDRESSFORMAT_#": lambda item: {"Format": trimmed(item)}}


def configuration(model, number, name, index, value):
    if name not in ITEMS:
        return
    field = model.field(number)
    for column, item in enumerate(value.split(","), 1):
        field.cell(index, column).update(ITEMS[name](item))


def fill_list(cell, value):
    cell["Has_Messages"], cell["Messages"] = True, []
    for item in value.split(","):
        first, last = item.find("("), item.find(")")
        if first < 0 or last < 0:
            return
        cell["Messages"].append([0, ""])
        if last < first:
            raise Failure(5)
        cell["Messages"][-1][0] = long_of(item[first + 1:last])
        cell["Messages"][-1][1] = item[last + 1:]


def lists(model, number, name, index, value):
    if name != "ADDRESS_#":
        return
    field = entry(model.fields, number)
    for row in range(field.rows + 1):
        for column in range(field.columns + 1):
            if row > field.size[0] or column > field.size[1]:
                raise Failure(9)
            cell = field.cells.get((row, column), CELL)
            if not cell["Has_Messages"] and cell["Address"] in (f"{index}", f"{index}/LO", f"{index}/HI"):
                field.touched = True
                fill_list(cell, value)


def kept_back(model, _number, name, _index, value):
    if name == "ADDRESS_#":
        model.kept_back.append(value)


def line(model, _number, name, index, value):
    first, dash, last = value.partition("-")
    if name == "COMMUNICATIONS_#_REQUEST":
        model.pause = long_of(value)
        whole(model.pause * 4, 32)
    elif name == "COMMUNICATIONS_#_OUT":
        model.time_out = long_of(value)
    elif name == "COMMUNICATIONS_#_SIZE":
        model.size = long_of(value)
    elif name == "HOLDINGREGISTERS":
        if math.isinf(val(value)):
            raise Failure(6)
        model.image = val(value)
    elif name == "HOLDINGREGISTERSBLOCK_#":
        model.block_count += 1
        block = {"First_Address": 0, "Last_Address": 0, "Function_Code": 0, "Request": ""}
        model.blocks = (model.blocks or [dict(block)]) + [block]
        if dash:
            block["First_Address"] = long_of(first)
            block["Last_Address"] = long_of(last)
            block["Function_Code"], block["Request"] = 3, "NONE"
    elif name == "HOLDINGREQUESTBLOCK_#":
        entry(model.blocks, index)["Request"] = upper(trimmed(value))


def code_of(cell, text):
    for code, listed in cell["Messages"]:
        if upper(trimmed(listed)) == upper(trimmed(text)) or (is_numeric(text) and val(text) == code):
            return code
    return 0


def value_of(cell, item):
    if cell["Has_Messages"]:
        return str(code_of(cell, item))
    if upper(cell["Format"]) != "TIME" or ":" in item:
        return item
    if not is_numeric(item):
        return "0:00"
    seconds = long_of(item)
    return f"{quotient(seconds, 60)}:{two_digits(rest(seconds, 60))}"


def values(model, number, name, index, value):
    if name != "ROW_#":
        return True
    field = entry(model.fields, number)
    for column, item in enumerate(value.split(","), 1):
        if column > field.columns:
            return False
        if index <= field.rows:
            cell = field.cell(index, column)
            field.touched = True
            cell["Value"] = value_of(cell, item)
    return True


def upper_texts(model, _number, name, index, value):
    if name == "FIELD_#":
        model.field(index).texts = value.split(",")


def colours(model, _number, name, _index, value):
    if name in COLOUR_KEYS:
        model.colours[COLOUR_KEYS[name][0]] = value


SECTIONS = {"HARDWARE": hardware, "CONFIGURATION_COLUMNS": upper_grid, "CONFIGURATION_FIELDS": fields, "FIELD_#_COLUMNS": columns,
            "FIELD_#_CONFIGURATION": configuration, "FIELD_#_MESSAGES": lists, "ADDRESS_NOTDOWNLOADABLE": kept_back,
            "PORT_CONFIGURATION": line, "FIELD_#_DEFAULT": values, "CONFIGURATION_DEFAULT": upper_texts,
            "DEFAULT_#_COLUMNS": widths, "COLORS": colours}
