# SPDX-License-Identifier: MIT
"""Has LibreOffice open an exported report and compares what it read with the model, cell by cell.

    libreoffice.py FORMAT FOLDER    FOLDER holds sample.FORMAT and expected.json of report_samples
"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
from xml.etree import ElementTree

from compare import Tables, expected_tables, fail, same

TABLE = "{urn:oasis:names:tc:opendocument:xmlns:table:1.0}"
TEXT = "{urn:oasis:names:tc:opendocument:xmlns:text:1.0}"
HTML = "html:HTML (StarWriter)"


def converted(path, target):
    """The file that LibreOffice makes of another one, as text. It has a profile of its own."""
    with tempfile.TemporaryDirectory() as folder:
        profile = pathlib.Path(folder, "profile").as_uri()
        subprocess.run(["soffice", f"-env:UserInstallation={profile}", "--headless", "--convert-to", target,
                        "--outdir", folder, path], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        made = [file for file in pathlib.Path(folder).iterdir() if file.is_file()]
        same("files made", len(made), 1)
        return made[0].read_text(encoding="utf-8")


def text_of(paragraph):
    """Further blanks in a row are elements of their own."""
    parts = [paragraph.text or ""]
    for part in paragraph:
        blanks = int(part.get(f"{TEXT}c", "1")) if part.tag == f"{TEXT}s" else 0
        parts += [" " * blanks, "\t" if part.tag == f"{TEXT}tab" else "", text_of(part), part.tail or ""]
    return "".join(parts)


def shown_rows(sheet):
    """The cells of the first sheet as they are shown; its CSV has the numbers without their formats."""
    rows = []
    for row in next(ElementTree.fromstring(sheet).iter(f"{TABLE}table")).iter(f"{TABLE}table-row"):
        texts = []
        for cell in row:
            if cell.tag not in (f"{TABLE}table-cell", f"{TABLE}covered-table-cell"):
                continue
            shown = "\n".join(text_of(line) for line in cell.findall(f"{TEXT}p"))
            texts += [shown] * int(cell.get(f"{TABLE}number-columns-repeated", "1"))
        rows += [texts] * min(int(row.get(f"{TABLE}number-rows-repeated", "1")), 1000)
    return rows


def compare_sheet_header(sheet):
    """The page header as LibreOffice read it, with # for its numbers."""
    header = re.search(r"<style:header>(.*?)</style:header>", sheet, re.DOTALL)
    if not header:
        fail("no page header")
    texts = []
    for text in re.findall(r"<text:p\b.*?</text:p>", header.group(1)):
        text = re.sub(r"<text:page-(number|count)\b[^>]*>\d+<", "#<", text.replace("<text:s/>", " "))
        texts.append(re.sub(r"<[^>]*>", "", text))
    same("page header", texts, ["Zorvane", "Page:  # / #"])


def compare_xls(path, expected):
    sheet = converted(path, "fods")
    compare_sheet_header(sheet)
    rows = shown_rows(sheet)
    row = 0
    for field in expected["fields"]:
        while rows[row][0] != "Description:":
            row += 1
        same("description", rows[row][1], field["description"])
        row += 2
        same("headings", rows[row][: len(field["headings"])], field["headings"])
        for texts in field["rows"]:
            row += 1
            for column, text in enumerate(texts):
                same(f"row {row}, column {column}", rows[row][column], text)


def compare_page(path, expected):
    page = Tables()
    page.feed(converted(path, HTML))

    def plain(table):
        return [[" ".join(text.split()) for text in row] for row in table]

    same("tables", [plain(table) for table in page.tables], [plain(table) for table in expected_tables(expected)])


def main():
    kind, folder = sys.argv[1:]
    with open(f"{folder}/expected.json", encoding="utf-8") as file:
        expected = json.load(file)
    if not expected["fields"]:
        fail("nothing to compare")
    (compare_xls if kind == "xls" else compare_page)(f"{folder}/sample.{kind}", expected)
    print(f"{kind}: {sum(len(field['rows']) for field in expected['fields'])} rows as in the model")


if __name__ == "__main__":
    main()
