#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The preview printed on a printer of this machine: a private cupsd on the loopback hands the job to a backend that
keeps its file, and the file has the pages and the words that the preview shows.

    print_test.py PRINT_PREVIEW MODELS
"""

import collections
import json
import os
import pathlib
import shutil
import socket
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
DEADLINE = 30  # seconds
CUPS_PROGRAMS = ("/usr/lib/cups", "/usr/libexec/cups", "/usr/local/lib/cups")

BACKEND = """#!/bin/sh
[ $# -gt 0 ] || { echo 'direct keep "Unknown" "Keeps the files of its jobs"'; exit 0; }
folder=${DEVICE_URI#keep:}
cat "${6:--}" >"$folder/$1.part" && chmod 644 "$folder/$1.part" && mv "$folder/$1.part" "$folder/$1.job"
"""


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def wait_for(what, condition):
    end = time.monotonic() + DEADLINE
    while not condition():
        if time.monotonic() > end:
            raise AssertionError(f"{what} did not come within {DEADLINE} s")
        time.sleep(0.02)


class Printer:
    """A cupsd of this test's own with one printer, "keeper"."""

    name = "keeper"

    def __init__(self, cupsd, folder):
        self.folder = folder
        self.kept = folder / "kept"
        self.port = free_port()
        for name in ("root", "state", "cache", "spool", "tmp", "log", "bin/backend", "kept"):
            (folder / name).mkdir(parents=True)
        self.kept.chmod(0o777)  # a cupsd of root's runs its backends as another user
        for helpers in (pathlib.Path(each) / "daemon" for each in CUPS_PROGRAMS):
            if helpers.exists():  # what cupsd starts backends with
                (folder / "bin/daemon").symlink_to(helpers)
                break
        backend = folder / "bin/backend/keep"
        backend.write_text(BACKEND)
        backend.chmod(0o755)
        (folder / "root/printers.conf").write_text(
            f"<Printer {self.name}>\nInfo keeps its jobs\nDeviceURI keep:{self.kept}\nState Idle\n"
            "Accepting Yes\nShared No\nJobSheets none none\nErrorPolicy abort-job\n</Printer>\n"
        )
        (folder / "files.conf").write_text(
            f"ServerRoot {folder}/root\nServerBin {folder}/bin\nStateDir {folder}/state\n"
            f"CacheDir {folder}/cache\nRequestRoot {folder}/spool\nTempDir {folder}/tmp\n"
            f"AccessLog {folder}/log/access\nErrorLog {folder}/log/error\nPageLog {folder}/log/page\n"
        )
        (folder / "cupsd.conf").write_text(
            f"Listen 127.0.0.1:{self.port}\nWebInterface No\nBrowsing No\nDefaultAuthType None\n"
            "<Location />\nOrder allow,deny\nAllow from 127.0.0.1\n</Location>\n"
        )
        self.process = subprocess.Popen(
            [cupsd, "-f", "-c", folder / "cupsd.conf", "-s", folder / "files.conf"]
        )
        wait_for("cupsd", self.answers)

    def answers(self):
        assert self.process.poll() is None, "cupsd ended: " + self.log()
        with socket.socket() as client:
            return client.connect_ex(("127.0.0.1", self.port)) == 0

    def log(self):
        error = self.folder / "log/error"
        return error.read_text(errors="replace") if error.exists() else "(no log)"

    def jobs(self):
        return sorted(self.kept.glob("*.job"))

    def stop(self):
        self.process.terminate()
        self.process.wait(DEADLINE)


def words_of(text):
    return collections.Counter(text.split())


def printed_pages(file):
    text = subprocess.run(
        ["pdftotext", "-layout", file, "-"], check=True, capture_output=True, text=True
    ).stdout
    return text.split("\f")[:-1]


def check(program, models, printer, work, document):
    environment = dict(
        os.environ,
        CUPS_SERVER=f"127.0.0.1:{printer.port}",
        QT_QPA_PLATFORM="offscreen",
        HOME=str(work),
        XDG_RUNTIME_DIR=str(work),
        LC_ALL="C.UTF-8",
    )
    before = len(printer.jobs())
    shown = subprocess.run(
        [program, models, work, f"{models}/{document}", printer.name],
        env=environment,
        check=True,
        stdout=subprocess.PIPE,
        text=True,
        timeout=DEADLINE,
    ).stdout
    pages = json.loads(shown)
    assert pages, f"{document}: the preview has no pages"
    wait_for("the job", lambda: len(printer.jobs()) > before)
    job = printer.jobs()[-1]
    assert job.read_bytes().startswith(b"%PDF-"), f"{document}: the job is no PDF"
    printed = printed_pages(job)
    assert len(printed) == len(pages), f"{document}: {len(printed)} pages printed of {len(pages)} shown"
    for number, (texts, paper) in enumerate(zip(pages, printed), start=1):
        expected, found = words_of(" ".join(texts)), words_of(paper)
        assert expected == found, (
            f"{document}, page {number}: shown and not printed {expected - found}, "
            f"printed and not shown {found - expected}"
        )
    print(f"{document}: {len(pages)} pages, {sum(map(len, pages))} texts")


def main():
    cupsd = shutil.which("cupsd", path=os.environ["PATH"] + ":/usr/sbin:/sbin")
    if cupsd is None:
        print("skipped: cupsd isn't installed (Debian's cups-daemon)")
        return SKIPPED
    program, models = sys.argv[1:3]
    with tempfile.TemporaryDirectory(prefix="zorvane-print-") as folder:
        os.chmod(folder, 0o755)
        work = pathlib.Path(folder) / "work"
        work.mkdir(mode=0o700)
        printer = Printer(cupsd, pathlib.Path(folder) / "cups")
        try:
            for document in ("EXAMPLE.KVRT100", "EXAMPLE.R7702-16"):
                check(program, models, printer, work, document)
        except (AssertionError, subprocess.SubprocessError):
            print(printer.log())
            raise
        finally:
            printer.stop()
    return 0


if __name__ == "__main__":
    sys.exit(main())
