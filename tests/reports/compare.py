# SPDX-License-Identifier: MIT
"""Opens an exported report with a program that isn't ours and compares it with the model, cell by cell.

    compare.py FORMAT FOLDER    FOLDER holds sample.FORMAT and expected.json of report_samples
"""

import html.parser
import json
import re
import subprocess
import sys

import xlrd


def fail(message):
    sys.exit(f"compare.py: {message}")


def same(what, found, expected):
    if found != expected:
        fail(f"{what}:\n  found    {found!r}\n  expected {expected!r}")


def output(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout


def is_number(text):
    """A plain number that 15 digits can hold."""
    plain = re.fullmatch(r"[+-]?(\d+(\.\d*)?|\.\d+)", text) is not None
    return plain and len(re.sub(r"\D", "", text).lstrip("0")) <= 15


def hidden(what, text):
    """A column of width 0 is in no format; where it is read, its text isn't."""
    for word in ("out of sight", "hidden away"):
        if word in text:
            fail(f"{what} has {word!r}")


class Tables(html.parser.HTMLParser):
    """The texts of all cells of all tables."""

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.tables, self.cell, self.text = [], None, ""

    def handle_starttag(self, tag, attributes):
        if tag == "table":
            self.tables.append([])
        elif tag == "tr":
            self.tables[-1].append([])
        elif tag in ("td", "th"):
            self.cell = ""

    def handle_endtag(self, tag):
        if tag in ("td", "th"):
            self.tables[-1][-1].append(self.cell)
            self.cell = None

    def handle_data(self, data):
        self.text += data
        if self.cell is not None:
            self.cell += data


def expected_tables(expected):
    return [[field["headings"], *field["rows"]] for field in expected["fields"]]


def compare_html(path, expected):
    checked = subprocess.run(["tidy", "-errors", "-quiet", path], stderr=subprocess.PIPE, text=True, check=False)
    same("what tidy says", checked.stderr, "")
    same("tidy's exit code", checked.returncode, 0)
    page = Tables()
    with open(path, encoding="utf-8") as file:
        page.feed(file.read())
    same("tables", page.tables, expected_tables(expected))
    for field in expected["fields"]:
        if field["description"] not in page.text:
            fail(f"no description {field['description']!r}")


def compare_rtf(path, expected):
    page = Tables()
    page.feed(output("unrtf", "--html", path).decode("utf-8", "replace"))

    def plain(table):
        return [[" ".join(text.replace("\xa0", " ").split()) for text in row] for row in table]

    found = [plain(table) for table in page.tables]
    same("tables", found, [plain(table) for table in expected_tables(expected)])


def compare_xls(path, expected):
    book = xlrd.open_workbook(path, formatting_info=True)
    sheet = book.sheet_by_index(0)
    row = 0
    for field in expected["fields"]:
        while sheet.cell_value(row, 0) != "Description:":
            row += 1
        same("description", sheet.cell_value(row, 1), field["description"])
        row += 2
        same("headings", sheet.row_values(row)[: len(field["headings"])], field["headings"])
        for texts in field["rows"]:
            row += 1
            for column, text in enumerate(texts):
                compare_sheet_cell(sheet.cell(row, column), text, (row, column))
                if is_number(text):
                    form = book.format_map[book.xf_list[sheet.cell_xf_index(row, column)].format_key].format_str
                    same(f"{(row, column)}: as shown", shown_number(sheet.cell_value(row, column), form), text)
    hidden("the sheet", " ".join(str(value) for row in range(sheet.nrows) for value in sheet.row_values(row)))
    formats = {book.format_map[xf.format_key].format_str for xf in book.xf_list}
    for wanted in ("0.00", "000"):
        if wanted not in formats:
            fail(f"no number format {wanted}")
    compare_large_xls(path.replace("sample.xls", "large.xls"))


def shown_number(value, form):
    """A number as a worksheet shows it, in the formats that reports use."""
    if form == "General":
        return f"{value:.11g}"
    sections = form.split(";")
    section = sections[2 if value == 0 and len(sections) > 2 else 1 if value < 0 and len(sections) > 1 else 0]
    sign, whole, point, decimals = re.fullmatch(r"([+-]?)(#|0+)(\.?)(0*)", section).groups()
    if value < 0 and len(sections) == 1:
        sign = "-"
    digits = f"{abs(value):.{len(decimals)}f}"
    before, _, after = digits.partition(".")
    if whole == "#":
        before = before.lstrip("0")
    return sign + before.zfill(len(whole) if whole != "#" else 0) + point + after


def compare_large_xls(path):
    """What has no room in a record or on a sheet goes on in the next one."""
    book = xlrd.open_workbook(path)
    same("sheets", book.sheet_names(), ["Report", "Report 2", "Report 3"])
    first, beside, below = book.sheets()
    same("sizes", [(s.nrows, s.ncols) for s in (first, beside, below)], [(65536, 256), (1, 44), (4, 1)])
    wide = [f"wide {column} €" for column in range(300)]
    same("wide row", first.row_values(0) + beside.row_values(0), wide)
    same("long text", first.cell_value(1, 0), "x" * 30000 + "€")
    rows = first.col_values(0)[2:] + below.col_values(0)
    same("rows", rows, [f"row {row} 0 €" for row in range(2, 65540)])


def compare_sheet_cell(cell, text, place):
    if text == "":
        if cell.ctype not in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK):
            fail(f"{place}: {cell!r} is not empty")
    elif is_number(text):
        same(f"{place}: kind", cell.ctype, xlrd.XL_CELL_NUMBER)
        same(f"{place}: value", cell.value, float(text))
    else:
        same(f"{place}: kind", cell.ctype, xlrd.XL_CELL_TEXT)
        same(f"{place}: value", cell.value, text)


def compare_txt(path, expected):
    """Builds what the file should hold in another way, and lets diff compare."""
    lines = ["Zorvane", ""]
    alignments = [["<", ">", "^"], [">", "<", "<"], ["<", "<"], ["<", "<"]]
    for field, aligned in zip(expected["fields"], alignments):
        if len(lines) > 2:
            lines.append("")
        lines += [f"Description: {field['description']}", "Edits:  Comments:"]
        rows = [[re.sub(r"[\x00-\x1f]", " ", text) for text in row] for row in field["rows"]]
        widths = [max(map(len, column)) for column in zip(field["headings"], *rows)]
        lines.append("  ".join(f"{text:<{width}}" for text, width in zip(field["headings"], widths)))
        lines.append("  ".join("-" * width for width in widths))
        for row in rows:
            lines.append("  ".join(f"{text:{side}{width}}" for text, side, width in zip(row, aligned, widths)))
    lines += ["", "/SITE/SITE7.ABC  11/21/2026  9:05"]
    wanted = path + ".expected"
    with open(wanted, "w", encoding="utf-8", newline="\r\n") as file:
        file.writelines(line.rstrip(" ") + "\n" for line in lines)
    if subprocess.run(["diff", wanted, path], check=False).returncode != 0:
        fail("the text differs")


def compare_pdf(path, expected):
    fonts = output("pdffonts", path).decode().splitlines()[2:]
    if not fonts or any(line.split()[-5] != "yes" for line in fonts):
        fail(f"fonts that aren't embedded: {fonts}")
    pages = output("pdftotext", "-layout", path, "-").decode("utf-8").split("\f")[:-1]
    same("pages", len(pages), expected["pages"])
    for number, page in enumerate(pages, 1):
        for text in (f"Page: {number} / {len(pages)}", "Zorvane", "/SITE/SITE7.ABC", "11/21/2026 9:05"):
            if text not in " ".join(page.split()):
                fail(f"page {number} has no {text!r}")
    whole = " ".join(" ".join(pages).split())
    hidden("the file", whole)
    for field in expected["fields"]:
        for row in [[field["description"]], field["headings"], *field["rows"]]:
            for text in row:
                if " ".join(text.split()) not in whole:
                    fail(f"no {text!r}")
    compare_cut_pdf(path.replace("sample.pdf", "cut.pdf"))
    same("heading rows of the long table", whole.count("Row Wide"), sum("row number" in page for page in pages))


def mark_columns(path):
    """The columns of dots, at 144 to the inch, that have the red of the mark of a cut text."""
    picture = output("pdftoppm", "-r", "144", path)
    width, height = map(int, re.match(rb"P6\s+(\d+)\s+(\d+)\s+255\s", picture).groups())
    dots = picture[-3 * width * height:]
    return {place % width for place in range(width * height)
            if dots[3 * place] > 150 and max(dots[3 * place + 1:3 * place + 3]) < 60}


def compare_cut_pdf(path):
    """A number that has no room is cut, with a mark at that side, and is whole for whoever copies it."""
    if "1500" not in output("pdftotext", path, "-").decode():
        fail("no 1500")
    edge = (1440 + 2000) // 10
    columns = mark_columns(path)
    if not columns or min(columns) < edge - 1 or max(columns) > edge + 10:
        fail(f"the mark of a cut number is in {sorted(columns)}, not at {edge}")


def compare_tif(path, expected):
    directories = output("tiffinfo", path).decode().split("=== TIFF directory ")[1:]
    same("pages", len(directories), expected["pages"])
    for directory in directories:
        for fact in ("Image Width: 1700 Image Length: 2200", "Resolution: 200, 200 pixels/inch", "Scheme: LZW"):
            if fact not in directory:
                fail(f"no {fact!r} in {directory}")
    # Decodes every page: a damaged one makes tiffcp fail.
    output("tiffcp", "-c", "none", path, path + ".unpacked")


def main():
    kind, folder = sys.argv[1:]
    with open(f"{folder}/expected.json", encoding="utf-8") as file:
        expected = json.load(file)
    compare = {
        "xls": compare_xls,
        "rtf": compare_rtf,
        "html": compare_html,
        "txt": compare_txt,
        "pdf": compare_pdf,
        "tif": compare_tif,
    }[kind]
    compare(f"{folder}/sample.{kind}", expected)
    print(f"{kind}: {sum(len(field['rows']) for field in expected['fields'])} rows as in the model")


if __name__ == "__main__":
    main()
