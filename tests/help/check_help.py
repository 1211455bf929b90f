#!/usr/bin/python3
"""Every page of the manual is there as HTML, with a title, and every link in it leads somewhere.

    check_help.py FOLDER PAGE.md...
"""
import os
import sys
from html.parser import HTMLParser


class Page(HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.links, self.places, self.headings, self.tables = [], set(), 0, 0
        with open(path, encoding="utf-8") as file:
            self.text = file.read()
        self.feed(self.text)

    def handle_starttag(self, tag, attrs):
        named = dict(attrs)
        self.headings += tag == "h1"
        self.tables += tag == "table"
        if "id" in named:
            self.places.add(named["id"])
        if tag == "a":
            self.links.append(named["href"])


def html_name(source):
    stem = os.path.splitext(os.path.basename(source))[0]
    return "index.html" if stem == "README" else stem + ".html"


def faults_of(name, page, pages):
    if page.headings != 1:
        yield f"{name}: {page.headings} headings of the first rank"
    if "<title>" not in page.text:
        yield f"{name}: no title"
    for link in page.links:
        file, _, place = link.partition("#")
        if "://" in link:
            continue
        target = pages.get(file or name)
        if target is None:
            yield f"{name}: the link {link} leads to no page"
        elif place and place not in target.places:
            yield f"{name}: the link {link} leads to no place"


def main(folder, *sources):
    expected = {html_name(source) for source in sources}
    present = {file for file in os.listdir(folder) if file in expected}
    faults = [f"{file} is missing" for file in sorted(expected - present)]
    pages = {name: Page(os.path.join(folder, name)) for name in present}
    for name, page in sorted(pages.items()):
        faults += faults_of(name, page, pages)
    for source in sources:
        with open(source, encoding="utf-8") as file:
            has_table = "\n|---" in file.read()
        name = html_name(source)
        if has_table and name in pages and not pages[name].tables:
            faults.append(f"{name}: its tables are lost")
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults or not pages else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
