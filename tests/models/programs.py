# SPDX-License-Identifier: MIT
"""Runs the programs on a random case and tells what came of it."""
import json
import os
import subprocess

import sheets
from comparisons import held, registers_of


class Place:
    """A folder of a case's files, and the program that works on them."""

    def __init__(self, programs, folder):
        self.programs, self.folder = programs, folder

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        with open(self.path(name), "wb") as file:
            file.write(text.encode("cp1252") if isinstance(text, str) else text)
        return self.path(name)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def ctl(self, *arguments):
        environment = os.environ | {"XDG_STATE_HOME": self.path("state"), "XDG_CONFIG_HOME": self.path("config"),
                                    "XDG_DATA_HOME": self.path("data")}
        run = subprocess.run([os.path.join(self.programs, "zorvanectl"), *arguments], cwd=self.folder, env=environment,
                             stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=120, check=False)
        return run.returncode, run.stdout, run.stderr

    def template(self, made):
        return self.write("SHEET.ZTP", sheets.template_text(made))


# Comparisons.

def filter_words(dice, made):
    used = made["used"] or [1]
    words = []
    for _ in range(dice.choice([0, 0, 1, 1, 2, 3])):
        kind = dice.choice(["is", "reg", "page", "text"])
        first = dice.choice(used)
        words.append([kind, {"is": dice.choice(["differs", "missing", "readonly", "equal", "left_out", "not_read"]),
                             "reg": dice.choice([str(first), f"{first}-{first + dice.randint(0, 9)}"]),
                             "page": dice.choice(["Outputs", "outputs", "Page 1", "PAGE 2", "Out", "page"]),
                             "text": dice.choice(["S1", "value", "on", "motor", "0", "1:30", "Off"])}[kind]])
    return words


def comparison(dice):
    made = sheets.sheet(dice)
    case = {"sheet": made, "left": sheets.document(dice, made), "against": dice.choice(["file", "factory", "registers"]),
            "all": dice.random() < 0.5, "filter": filter_words(dice, made), "right": None, "registers": {}}
    if case["against"] == "file":
        case["right"] = sheets.document(dice, made, [[row or made["factory"][f][r] for r, row in enumerate(field)]
                                                     for f, field in enumerate(case["left"])])
    case["registers"] = registers(dice, made, sheets.values(made, made["factory"], case["left"]))
    return case


def registers(dice, made, texts):
    """What a controller holds: mostly what a download would have left."""
    image = {}
    for f, field in enumerate(made["fields"]):
        for r, row in enumerate(field["cells"]):
            for c, cell in enumerate(row):
                place = registers_of(cell)
                if place is None:
                    continue
                raw = held(field["columns"][c], cell, texts[f][r][c])
                if raw is None or dice.random() < 0.2:
                    raw = [dice.choice([0, 1, 5, 0x4142, 0x2020, 0x2D2D, 0x4100, 125, 3725, dice.randrange(65536)])
                           for _ in range(place[0], place[1] + 1)]
                    raw = raw if cell["ascii"] else raw[0]
                if cell["ascii"]:
                    if dice.random() < 0.3:
                        raw = [0 if each == 0x2020 else each for each in raw]
                    image.update({place[0] + i: each for i, each in enumerate(raw)})
                elif "/" in cell["address"]:
                    old = image.get(place[0], 0)
                    part = raw & 255
                    image[place[0]] = part * 256 + (old & 255) if cell["address"].endswith("HI") else (old & 0xFF00) + part
                elif cell["format"] == "TIMEMM":
                    image[place[0]] = (raw * 60 + image.get(place[0], 0) % 60) & 0xFFFF
                elif cell["format"] == "TIMESS":
                    image[place[0]] = (image.get(place[0], 0) // 60 * 60 + raw) & 0xFFFF
                else:
                    image[place[0]] = raw & 0xFFFF
    gone = dice.random() < 0.3
    return {str(number): value for number, value in image.items() if not (gone and dice.random() < 0.15)}


def quoted(kind, text):
    word = text if kind == "text" else f"{kind}:{text}"
    return f'{kind}:"{text}"' if " " in text and kind != "text" else f'"{word}"' if " " in word else word


def compared(case, place):
    arguments = ["compare", place.template(case["sheet"]), place.write("LEFT.SHEET", sheets.document_text(case["left"])), "--json"]
    if case["against"] == "file":
        arguments += ["--with", place.write("RIGHT.SHEET", sheets.document_text(case["right"]))]
    elif case["against"] == "factory":
        arguments += ["--factory"]
    else:
        arguments += ["--registers", place.write("registers.json", json.dumps(case["registers"]))]
    if case["filter"]:
        arguments += ["--filter", " ".join(quoted(kind, text) for kind, text in case["filter"])]
    if case["all"]:
        arguments += ["--all"]
    code, out, err = place.ctl(*arguments)
    told = json.loads(out) if out else {"counts": None, "rows": [], "error": err}
    return {"exit": code, "counts": told["counts"], "rows": told["rows"]}


# Templates and documents, read, saved and brought up to date.

def number_of(failure):
    return failure and failure["number"]


def opened(case, place):
    def put(name, text):
        return place.write(name, text.encode("latin-1"))

    def lines(name):
        return place.read(name).decode("latin-1").split("\r\n")[:-1]

    given = put("SHEET.ZTP", case["template"]), put("READ.SHEET", case["document"])
    model = json.loads(place.ctl("dump", *given, "--json")[1])
    template, document, _ = (model.pop(name) for name in ("template", "configuration", "messages"))
    saved = json.loads(place.ctl("save", *given, place.path("SAVED.SHEET"), "--json")[1])
    older = put("OLDER." + case["extension"], case["older"])
    place.ctl("update", older, "--app-dir", place.folder)
    return {"template": number_of(template["failure"]), "document": number_of(document["failure"]), "ok": document["ok"],
            "model": model, "saved": lines("SAVED.SHEET"), "save_failed": saved["Save_Failed"],
            "updated": lines("OLDER_Updated." + case["extension"])}
