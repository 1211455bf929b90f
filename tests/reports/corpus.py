# SPDX-License-Identifier: MIT
"""Has other programs open reports that a fuzz target made up, and compares the texts of all tables.

    corpus.py FORMAT PROGRAM CORPUS    FORMAT is html, rtf or xls; PROGRAM is corpus_documents; CORPUS is a folder

An html file goes through tidy and LibreOffice, an rtf file through unrtf and LibreOffice, an xls file through xlrd
and LibreOffice. LibreOffice opens all files in one call.
"""

import csv
import pathlib
import re
import subprocess
import sys
import tempfile

import xlrd

from compare import Tables, fail, is_number, output, same
from libreoffice import HTML

# Comma, double quote, UTF-8, from line 1, the first sheet.
CSV = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false,false,1"
MOST_INPUTS = 100
HASH_LENGTH = 40
SHEET_COLUMNS = 256


def report_rows(data):
    """The rows of an input, each its kind and its texts, read without the help of the program."""
    rows = []
    for row in data.split(b"\x1e")[1:]:
        kind = chr(row[0]) if row[:1] in (b"L", b"H", b"T", b"G") else "R"
        texts = [] if kind == "G" else [decoded(text) for text in row[1:].split(b"\x1f")]
        rows.append((kind, texts[:1] if kind == "T" else texts))
    return rows


def decoded(data):
    """Windows-1252, in which five bytes stand for the control codes of the same number."""
    return "".join(bytes([byte]).decode("cp1252", "ignore") or chr(byte) for byte in data)


def table_rows(rows):
    """The rows of all tables. Where one ends and the next begins is each program's own."""
    return seen(texts for kind, texts in rows if kind in "HR")


def visible(text):
    """The text without control characters and blanks of all kinds, of which each program makes something else."""
    return re.sub(r"[\s\x00-\x1f\x7f-\x9f\xad\ufffd]", "", text)


def number_of(text):
    """The value of a text in any of the forms that a number may have."""
    try:
        return float(text.strip(" ").lower().replace("d", "e"))
    except ValueError:
        return None


def seen(rows):
    """Without empty cells at a row's end: programs fill a table up to its widest row."""
    seen_rows = [[visible(text) for text in row] for row in rows]
    for row in seen_rows:
        while row and not row[-1]:
            row.pop()
    return seen_rows


def page_rows(html):
    page = Tables()
    page.feed(html)
    return seen(row for table in page.tables for row in table)


def check_html(path, rows):
    checked = subprocess.run(["tidy", "-errors", "-quiet", path], stderr=subprocess.PIPE, text=True, check=False)
    complaints = [line for line in checked.stderr.splitlines() if "trimming empty" not in line]
    same(f"{path.name}: what tidy says", complaints, [])
    same(f"{path.name}: rows", page_rows(path.read_text(encoding="utf-8")), table_rows(rows))


def check_rtf(path, rows):
    """unrtf drops a run of letters beyond ASCII that holds byte 0xFF or one that stands for no character."""
    found = page_rows(output("unrtf", "--html", path).decode("utf-8", "replace"))
    expected = table_rows(rows)
    if any(re.search(r"[\x80-\x9f\xff]", text) for _, texts in rows for text in texts):
        found, expected = (seen([re.sub(r"[^\x00-\x7f]", "", text) for text in row] for row in each)
                           for each in (found, expected))
    same(f"{path.name}: rows of unrtf", found, expected)


def check_xls(path, rows):
    book = xlrd.open_workbook(path, formatting_info=True)
    for row, (kind, texts) in enumerate(rows):
        for column, text in enumerate(texts):
            sheet = book.sheet_by_index(column // SHEET_COLUMNS)
            cell = sheet.cell(row, column % SHEET_COLUMNS)
            place = f"{path.name}: row {row}, column {column}"
            if cell.ctype == xlrd.XL_CELL_NUMBER:
                same(f"{place}: kind", kind, "R")
                same(place, cell.value, number_of(text))
            else:
                same(place, cell.value, text)
                if kind == "R" and is_number(text) and len(text) < 200:
                    fail(f"{place}: {text!r} is no number")


def check_page_in_libreoffice(path, made, rows):
    same(f"{path.name}: rows of LibreOffice", page_rows(made.read_text(encoding="utf-8")), table_rows(rows))


def check_sheet_in_libreoffice(path, made, rows):
    """The first sheet, numbers without their formats. A control character may be shown as a question mark."""
    with open(made, encoding="utf-8", newline="") as file:
        lines = list(csv.reader(file))
    for row, (kind, texts) in enumerate(rows):
        for column, text in enumerate(texts[:SHEET_COLUMNS]):
            found = lines[row][column] if row < len(lines) and column < len(lines[row]) else ""
            if kind == "R" and number_of(text) is not None and number_of(found) is not None:
                same(f"{path.name}: row {row}, column {column}", number_of(found), number_of(text))
            else:
                found, text = (visible(each.replace("?", "")) for each in (found, text))
                same(f"{path.name}: row {row}, column {column}", found, text)


CHECKS = {
    "html": (check_html, HTML, ".html", check_page_in_libreoffice),
    "rtf": (check_rtf, HTML, ".html", check_page_in_libreoffice),
    "xls": (check_xls, CSV, "-Report.csv", check_sheet_in_libreoffice),
}


def convert(paths, target, folder):
    """LibreOffice has a profile of its own."""
    profile = pathlib.Path(folder, "profile").as_uri()
    subprocess.run(["soffice", f"-env:UserInstallation={profile}", "--headless", "--convert-to", target,
                    "--outdir", folder, *paths], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


def main():
    kind, program, corpus = sys.argv[1:]
    check, target, ending, check_conversion = CHECKS[kind]
    # Those with a name that tells something come before those named by their hashes.
    inputs = sorted((path for path in pathlib.Path(corpus).iterdir() if path.is_file()),
                    key=lambda path: (len(path.name) == HASH_LENGTH, path.name))[:MOST_INPUTS]
    if not inputs:
        fail(f"no inputs in {corpus}")
    cells = 0
    with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryDirectory() as converted:
        subprocess.run([program, kind, folder, *inputs], check=True)
        paths = [pathlib.Path(folder, f"{path.name}.{kind}") for path in inputs]
        rows = [report_rows(path.read_bytes()) for path in inputs]
        for path, expected in zip(paths, rows):
            check(path, expected)
        convert(paths, target, converted)
        for path, expected in zip(paths, rows):
            check_conversion(path, pathlib.Path(converted, path.stem + ending), expected)
            cells += sum(len(texts) for _, texts in expected)
    print(f"{kind}: {len(inputs)} reports with {cells} texts as the fuzz target made them up")


if __name__ == "__main__":
    main()
