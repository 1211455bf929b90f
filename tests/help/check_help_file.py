#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The help file holds every page of the manual, as another program lists it.

    check_help_file.py FILE.chm CHMLS PAGE.md...
"""
import subprocess
import sys

from check_help import html_name


def main(help_file, chmls, *sources):
    with open(help_file, "rb") as file:
        if file.read(4) != b"ITSF":
            print(f"{help_file} is no help file", file=sys.stderr)
            return 1
    listing = subprocess.run([chmls, "list", help_file], capture_output=True, text=True, check=True).stdout
    names = {line.split()[-1] for line in listing.splitlines() if line.split()}
    missing = [page for page in map(html_name, sources) if "/" + page not in names]
    pictures = len([name for name in names if name.endswith(".png")])
    if not pictures:
        print("there are no pictures in it", file=sys.stderr)
        return 1
    for page in missing + ([] if "/contents.hhc" in names else ["contents.hhc"]):
        print(f"{page} is missing", file=sys.stderr)
    return 1 if missing or "/contents.hhc" not in names else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
