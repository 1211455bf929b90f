#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Holds the package's files against the version that CMake knows.

    check_version.py VERSION PACKAGING
"""
import os
import re
import sys
import xml.etree.ElementTree


def main(version, packaging):
    with open(os.path.join(packaging, "debian/changelog"), encoding="utf-8") as changelog:
        newest = re.match(r"zorvane \((.+)-\d+\) ", changelog.readline())
    assert newest and newest[1] == version, f"debian/changelog doesn't begin with version {version}"
    releases = xml.etree.ElementTree.parse(os.path.join(packaging, "zorvane.metainfo.xml")).iterfind("releases/release")
    first = next(releases).get("version")
    assert first == version, f"zorvane.metainfo.xml begins with version {first}, not {version}"


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
