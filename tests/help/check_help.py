#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Every page of the manual is there as HTML, with a title, every link in it leads somewhere, and every picture is there.

    check_help.py FOLDER PAGE.md...
"""
import os
import sys
from html.parser import HTMLParser


class Page(HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.links, self.places, self.pictures, self.headings, self.tables = [], set(), [], 0, 0
        with open(path, encoding="utf-8") as file:
            self.text = file.read()
        self.feed(self.text)

    def handle_starttag(self, tag, attrs):
        named = dict(attrs)
        self.headings += tag == "h1"
        self.tables += tag == "table"
        if "id" in named:
            self.places.add(named["id"])
        if tag == "img":
            self.pictures.append(named)
        if tag == "a":
            self.links.append(named["href"])


def html_name(source):
    stem = os.path.splitext(os.path.basename(source))[0]
    return "index.html" if stem == "README" else stem + ".html"


def faults_of(name, page, pages, folder):
    if page.headings != 1:
        yield f"{name}: {page.headings} headings of the first rank"
    if "<title>" not in page.text:
        yield f"{name}: no title"
    for picture in page.pictures:
        if not os.path.isfile(os.path.join(folder, picture["src"])):
            yield f"{name}: the picture {picture['src']} isn't there"
        if not picture.get("alt"):
            yield f"{name}: the picture {picture['src']} has no words for who doesn't see it"
    for link in page.links:
        file, _, place = link.partition("#")
        if "://" in link:
            continue
        target = pages.get(file or name)
        if target is None:
            yield f"{name}: the link {link} leads to no page"
        elif place and place not in target.places:
            yield f"{name}: the link {link} leads to no place"


def pictures_nobody_shows(pages, sources):
    """Pictures beside the manual that no page has."""
    shown = {os.path.basename(picture["src"]) for page in pages.values() for picture in page.pictures}
    kept = os.path.join(os.path.dirname(os.path.abspath(sources[0])), "..", "pictures")
    return [f"{file} is shown on no page" for file in sorted(os.listdir(kept))
            if file.endswith(".png") and file not in shown]


def main(folder, *sources):
    expected = {html_name(source) for source in sources}
    present = {file for file in os.listdir(folder) if file in expected}
    faults = [f"{file} is missing" for file in sorted(expected - present)]
    pages = {name: Page(os.path.join(folder, name)) for name in present}
    for name, page in sorted(pages.items()):
        faults += faults_of(name, page, pages, folder)
    for source in sources:
        with open(source, encoding="utf-8") as file:
            has_table = "\n|---" in file.read()
        name = html_name(source)
        if has_table and name in pages and not pages[name].tables:
            faults.append(f"{name}: its tables are lost")
    faults += pictures_nobody_shows(pages, sources)
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults or not pages else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
