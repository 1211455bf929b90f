# SPDX-License-Identifier: MIT
"""Takes a document's values through LibreOffice and back, in the locales of three countries: no difference.

    values_round_trip.py PROGRAMS    PROGRAMS is the folder of the built programs and the models

A file of `zorvanectl export` is opened by LibreOffice and rewritten, as CSV at once and by way of a spreadsheet of its
own, with and without its recognition of dates and other special numbers. `zorvanectl import` has to take all of it, and the
document has to come out byte for byte. Then one value is changed on the way, and only that one may differ.
"""

import pathlib
import subprocess
import sys
import tempfile

TEMPLATE = "KVRT207D.ZTP"
DOCUMENT = "EXAMPLE.KVRT207D"
# locale, its number, the separator and the decimal sign of its files
LOCALES = (("en-US", 1033, ",", "."), ("de-DE", 1031, ";", ","), ("ru-RU", 1049, ";", ","))
CHARSETS = {"utf-8": 76, "cp1252": 1}
PROFILE = """<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry" xmlns:xs="http://www.w3.org/2001/XMLSchema">
<item oor:path="/org.openoffice.Setup/L10N"><prop oor:name="ooSetupSystemLocale" oor:op="fuse"><value>%s</value></prop></item>
</oor:items>
"""
# What a spreadsheet could run, round, or take for something else.
HARD_VALUES = """Regulation/Drop X = -12.5
Regulation/Drop R = 36.25
Regulation/CT ratio = 1.234
Regulation/Set point/Description = =1+1
Regulation/Bandwidth/Description = +10 V
Regulation/Drop R/Description = -x
Regulation/Drop X/Description = @SUM(A1)
Regulation/VT ratio/Description = 0012
Regulation/CT ratio/Description = 2019-06
Regulation/Highest tap/Description = 1/2
Regulation/Lowest tap/Description = 1e3
Regulation/Undervoltage/Description = 3 May
Regulation/Overvoltage/Description = true
Regulation/Overcurrent/Description = say "no"
Regulation/Phase shift/Description = '=0.1\u00b0
Timers/Fan cooling = 30:00
Timers/Lamp test = 0:08
Timers/Lamp test/Description = 0:45
Timers/Attempts/Description = 10%
"""


def zorvanectl(programs, *arguments, expected=0):
    done = subprocess.run([programs / "zorvanectl", *map(str, arguments)], capture_output=True, text=True, timeout=60)
    if done.returncode != expected:
        sys.exit(f"zorvanectl {' '.join(map(str, arguments))}: ended with {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout


class Office:
    """LibreOffice with a profile of its own, in one locale."""

    def __init__(self, folder, locale):
        profile = pathlib.Path(folder, "profile-" + locale)
        (profile / "user").mkdir(parents=True)
        (profile / "user" / "registrymodifications.xcu").write_text(PROFILE % locale, encoding="utf-8")
        self.profile = profile.as_uri()

    def convert(self, path, target, filter_in=None):
        out = path.parent / ("made-" + path.stem)
        out.mkdir(exist_ok=True)
        command = ["soffice", f"-env:UserInstallation={self.profile}", "--headless"]
        command += [f"--infilter={filter_in}"] if filter_in else []
        subprocess.run([*command, "--convert-to", target, "--outdir", out, path], check=True, timeout=120,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return out / f"{path.stem}.{target.split(':')[0]}"


def csv_filter(separator, charset, language, special):
    return f"CSV:{ord(separator)},34,76,1,,{language},false,{str(special).lower()}"


def round_trip(office, exported, separator, charset, language, special, by_way_of):
    filter_in = csv_filter(separator, charset, language, special)
    target = f"csv:Text - txt - csv (StarCalc):{ord(separator)},34,{CHARSETS[charset]},1"
    if by_way_of:
        return office.convert(office.convert(exported, by_way_of, filter_in), target)
    return office.convert(exported, target, filter_in)


def check(programs, folder, document, locale):
    name, language, separator, decimal = locale
    office = Office(folder, name)
    exported = folder / f"values-{name}.csv"
    zorvanectl(programs, "export", programs / TEMPLATE, document, "--out", exported, "--separator", separator, "--decimal",
               decimal)
    trips = 0
    for special in (False, True):
        for charset in CHARSETS:
            for by_way_of in (None, "ods"):
                made = round_trip(office, exported, separator, charset, language, special, by_way_of)
                out = folder / "out.KVRT207D"
                zorvanectl(programs, "import", programs / TEMPLATE, document, made, "--save", out)
                if out.read_bytes() != document.read_bytes():
                    sys.exit(f"{name}, special numbers {special}, {charset}, by way of {by_way_of}: the document differs")
                trips += 1
    changed = made.read_text(encoding=charset).replace(f"{separator}250{separator}1125", f"{separator}250{separator}1180")
    made.write_text(changed, encoding=charset)
    zorvanectl(programs, "import", programs / TEMPLATE, document, made, "--save", out)
    wanted = document.read_bytes().replace(b"ROW_1=Set point,1125,", b"ROW_1=Set point,1180,")
    if out.read_bytes() != wanted or wanted == document.read_bytes():
        sys.exit(f"{name}: one value was changed, and the document isn't the old one with that value")
    return trips


def main():
    programs = pathlib.Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "hard.txt").write_text(HARD_VALUES, encoding="utf-8")
        document = folder / "site.KVRT207D"
        zorvanectl(programs, "set", programs / TEMPLATE, programs / DOCUMENT, "--from", folder / "hard.txt", "--save", document)
        trips = sum(check(programs, folder, document, locale) for locale in LOCALES)
    print(f"{trips} round trips and {len(LOCALES)} changes in {', '.join(locale[0] for locale in LOCALES)}: no difference")


if __name__ == "__main__":
    main()
