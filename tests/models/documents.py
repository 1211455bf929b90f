# SPDX-License-Identifier: MIT
"""Reading, saving and updating of documents: what each leaves. Nothing here is the program's code."""
from templates import CELL, Model, entry, lines_of, long_of, read, shown, trimmed, upper
from values import Failure, message_text


# The writer and the updater.

def written(model, lines):
    """Appends the lines of the document as far as they can be made."""
    lines.append("[Configuration_Default]")
    for f in range(1, model.field_count + 1):
        texts = entry(model.fields, f).texts or []
        if len(texts) < model.column_count:
            raise Failure(9)
        lines.append(f"FIELD_{f}=" + ",".join(texts[:model.column_count]))
    lines.append("")
    for f in range(1, model.field_count + 1):
        field = entry(model.fields, f)
        lines.append(f"[Field_{f}_Default]")
        for r in range(1, field.rows + 1):
            cells = [field.cell(r, c) for c in range(1, field.columns + 1)]
            items = [message_text({"messages": cell["Messages"]}, long_of(cell["Value"])) if cell["Has_Messages"] else cell["Value"]
                     for cell in cells]
            lines.append(f"ROW_{r}=" + ",".join(items))
        lines.append("")
    for f in range(1, model.field_count + 1):
        field = entry(model.fields, f)
        lines.append(f"[Default_{f}_Columns]")
        lines += [f"COL_{c}_WIDTH={field.cell(0, c)['Width']}" for c in range(1, field.columns + 1)] + [""]


SWAPS = [("[FIELD_1_DEFAULT]", "[FIELD_2_DEFAULT]"), ("[FIELD_2_DEFAULT]", "[FIELD_1_DEFAULT]"),
         ("[FIELD_1_COLUMNS]", "[FIELD_2_COLUMNS]"), ("[FIELD_2_COLUMNS]", "[FIELD_1_COLUMNS]"),
         ("FIELD_1=,CHANNEL SETUP,YES,DESCRIPTIONS ARE STORED OFFLINE ONLY",
          "FIELD_2=,Channel Setup,Yes,Descriptions are stored offline only"),
         ("FIELD_2=,OUTPUT SETUP,YES,DESCRIPTIONS ARE STORED OFFLINE ONLY",
          "FIELD_1=,Output Setup,Yes,Descriptions are stored offline only")]


def updated(text, extension):
    lines = []
    for old in lines_of(text):
        large = upper(old)
        swap = next((new for found, new in SWAPS if found in large), None)
        if not trimmed(old):
            lines.append(old)
        elif swap is not None:
            lines.append(swap)
        elif "_WIDTH" not in large and "DEFAULT_" not in large:
            lines.append(old)
    last = [4415] if upper(trimmed(extension)) == "KVRT207D" else [675, 1695]
    for field, numbers in enumerate([[1100, 800, 4415], [345, 555, 495, 495, 495, 555, 1115, 2625], [1100, 800, 4415],
                                     [1100, 800] + last], 1):
        lines.append(f"[Default_{field}_Columns]")
        lines += [f"COL_{c}_WIDTH={width}" for c, width in enumerate(numbers, 1)] + (["\r"] if field < 4 else [])
    return lines


# What comes of a case.

def failure_of(run):
    try:
        return run(), None
    except Failure as failure:
        return None, failure.number


def read_template(model, text):
    read(model, text, False)
    if model.blocks is None:
        raise Failure(9)
    model.always = sum(block["Request"] == "ALWAYS" for block in model.blocks)


def texts_shown(record):
    return {name: shown(member) if isinstance(member, str) else member for name, member in record.items()}


def cell_told(cell):
    told = texts_shown({name: member for name, member in cell.items() if member != CELL[name]})
    if cell["Has_Messages"]:
        told["Messages"] = [{"Code": code, "Text": shown(text)} for code, text in cell["Messages"]]
    return told


def field_told(field):
    rows, last = field.size
    return {"Description": shown(field.description), "Rows": field.rows, "Columns": field.columns,
            "Config_Values": [shown(text) for text in field.texts or []],
            "Cells": [[cell_told(field.cells.get((r, c), CELL)) for c in range(1, last + 1)] for r in range(rows + 1)]}


def told(model):
    empty = {"Model": "", "First_Address": "", "Last_Address": "", "Block_Kind": 0}
    return {"Controller_Model": shown(model.controller), "Field_Count": model.field_count, "Config_Column_Count": model.column_count,
            "Numeric_Rows": model.numeric_rows, "Always_Block_Count": model.always,
            "Config_Columns": [texts_shown(head) for head in model.heads[1:]],
            "Fields": {str(f): field_told(field) for f, field in enumerate(model.fields) if field.touched},
            "Download_Blocks": [texts_shown(block) for block in model.downloads + [empty]],
            "Not_Downloadable": [shown(text) for text in model.kept_back],
            "Holding_Blocks": [texts_shown(block) for block in (model.blocks or [])[1:]],
            "Comm_Request_Ms": model.pause, "Comm_Out_Ms": model.time_out, "Comm_Size": model.size,
            "Holding_Registers": model.image, "Colors": texts_shown(model.colours)}


def outcome(case):
    model, lines = Model(), []
    _, template = failure_of(lambda: read_template(model, case["template"]))
    ok, document = failure_of(lambda: read(model, case["document"], True))
    ok = ok or document is not None  # a failure leaves it as it was before
    dump = told(model)
    _, saving = failure_of(lambda: written(model, lines))
    return {"template": template, "document": document, "ok": ok, "model": dump, "saved": lines, "save_failed": saving is not None,
            "updated": updated(case["older"], case["extension"])}
