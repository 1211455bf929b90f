#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""zorvanectl record, from the folder of a run: each format, the same bytes twice, and what other programs read in it.

    record_test.py PROGRAMS
"""
import hashlib
import json
import os
import re
import subprocess
import sys
import tempfile
import unittest
import zlib

PLAN = {
    "version": 1,
    "template": {"path": "/nowhere/ABC.ZTP", "sha256": "aa"}, "document": {"path": "/d/SITE.ABC", "sha256": "bb"},
    "identity": {"verdict": "is", "model": "ABC", "unit": 1, "serial": "S-12", "firmware": None, "evidence": [
        {"register": "320", "what": "name", "expected": "5", "found": "5", "result": "fits"}]},
    "line": {"port": "/dev/ttyUSB0", "unit": 1, "settings": "9600,n,8,1"},
    "rows": [
        {"field": 1, "row": 1, "column": 1, "page": "Regulation", "name": "Set point", "heading": "Value",
         "register": "101", "left": "12", "right": "10", "left_raw": 12, "right_raw": 10, "sign": "differs"},
        {"field": 1, "row": 2, "column": 1, "page": "Regulation", "name": "Band", "heading": "Value",
         "register": "102", "left": "7", "right": "5", "left_raw": 7, "right_raw": 5, "sign": "differs"}],
    "writes": [{"function": 6, "address": 101, "values": [12], "cells": [[1, 1, 1]]},
               {"function": 6, "address": 102, "values": [7], "cells": [[1, 2, 1]]}],
    "before": {"101": 10, "102": 5}, "run": None}
HEAD = {"version": 1, "sequence": 4, "started_ms": 1, "started": "2026-11-22T07:40:05.123Z",
        "started_local": "2026-11-22T08:40:05+01:00", "model": "ABC", "unit": 1, "although": None, "restores": None,
        "program": "zorvanectl"}
RESULT = {
    "run": "run-2", "state": "finished", "why": "",
    "counts": {"verified": 1, "refused": 1, "stored_otherwise": 0, "unknown": 0, "not_sent": 0, "rows": 2},
    "rows": [
        {"field": 1, "row": 1, "column": 1, "register": "101", "before": 10, "sent": 12, "read_back": 12,
         "state": "verified", "answer": ""},
        {"field": 1, "row": 2, "column": 1, "register": "102", "before": 5, "sent": 7, "read_back": 5,
         "state": "refused", "answer": "Illegal data value (exception 3)"}],
    "requests": {"reads": 9, "writes": 2}}
DOCUMENT = "[Configuration_Default]\r\nFIELD_1=,Regulation \u00e4\r\n".encode("cp1252")
JOURNAL = [{"event": "begin", "unit": 1, "writes": 2},
           {"event": "write", "write": 0, "address": 101, "values": [12]},
           {"event": "answer", "write": 0, "end": "acknowledged", "us": 12000},
           {"event": "end", "time": "2026-11-22T07:40:09.456Z", "end": "finished"}]
FORMATS = ("pdf", "json", "xls", "rtf", "txt", "tif", "html")


class RecordTest(unittest.TestCase):
    programs = ""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.environment = {**os.environ, "XDG_STATE_HOME": self.path("state"), "HOME": self.folder.name}
        for name, sequence in (("run-1", 1), ("run-2", 4)):
            self.make_run(name, sequence)

    def tearDown(self):
        self.folder.cleanup()

    def path(self, *names):
        return os.path.join(self.folder.name, *names)

    def run_path(self, name, file):
        return self.path("state", "zorvane", "runs", name, file)

    def make_run(self, name, sequence):
        os.makedirs(self.run_path(name, ""))
        files = {"run.json": {**HEAD, "sequence": sequence}, "plan.json": PLAN, "before.json": {"101": 10, "102": 5},
                 "after.json": {"101": 12, "102": 5}, "result.json": RESULT}
        for file, content in files.items():
            with open(self.run_path(name, file), "w", encoding="utf-8") as out:
                json.dump(content, out)
        with open(self.run_path(name, "controller.ABC"), "wb") as out:
            out.write(DOCUMENT)
        with open(self.run_path(name, "journal"), "w", encoding="utf-8") as out:
            for event in JOURNAL:
                text = json.dumps(event)
                out.write(f"{zlib.crc32(text.encode()):08x} {text}\n")

    def record(self, *arguments, code=0):
        done = subprocess.run([os.path.join(self.programs, "zorvanectl"), "record", *arguments], capture_output=True,
                              text=True, timeout=60, env=self.environment, stdin=subprocess.DEVNULL)
        self.assertEqual(done.returncode, code, done.stderr)
        return done

    def bytes_of(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def test_the_same_run_gives_the_same_bytes_in_each_format(self):
        head = ("--site", "North", "--tested-by", "Ann")
        for ending in FORMATS:
            for name in ("one", "two"):
                self.record("last", "--out", self.path(f"{name}.{ending}"), *head)
            self.assertEqual(self.bytes_of(f"one.{ending}"), self.bytes_of(f"two.{ending}"), ending)

    def test_the_pages_name_the_json_by_its_hash(self):
        done = self.record("last", "--out", self.path("r.pdf"))
        short = hashlib.sha256(self.bytes_of("r.json")).hexdigest()[:12]
        self.assertEqual(done.stdout, f"Written: {self.path('r.pdf')}, record {short}\n")
        text = subprocess.run(["pdftotext", "-layout", self.path("r.pdf"), "-"], capture_output=True, text=True,
                              check=True).stdout
        pages = text.split("\f")[:-1]
        for number, page in enumerate(pages, 1):
            self.assertIn(f"Record {short}", page)
            self.assertRegex(page, rf"Page {number} of +{len(pages)}")
        self.assertRegex(pages[0], r"Not verified[\s\S]*Band, Value +102 +5 +7 +register: 5 +refused: Illegal data value")

    def test_a_pdf_is_one_for_the_archive(self):
        self.record("last", "--out", self.path("r.pdf"))
        pdf = self.bytes_of("r.pdf")
        self.assertTrue(pdf.startswith(b"%PDF-1.4\n%"))
        self.assertTrue(all(byte > 127 for byte in pdf[10:14]), "the comment that tells a binary file")
        xmp = pdf[pdf.index(b"<?xpacket begin"):pdf.index(b"<?xpacket end")].decode()
        self.assertIn('pdfaid:part="1" pdfaid:conformance="B"', xmp)
        self.assertIn('xmp:CreateDate="2026-11-22T07:40:05Z"', xmp)
        self.assertIn(b"/CreationDate (D:20261122074005Z)", pdf)
        self.assertIn(b"/S/GTS_PDFA1", pdf)
        for forbidden in (b"/Encrypt", b"/JavaScript", b"/SMask /Luminosity", b"/LZWDecode", b"/EmbeddedFiles"):
            self.assertNotIn(forbidden, pdf)
        self.assertIsNone(re.search(rb"/(?:ca|CA) 0?\.\d", pdf), "nothing shines through")
        fonts = subprocess.run(["pdffonts", self.path("r.pdf")], capture_output=True, text=True, check=True).stdout
        for font in fonts.splitlines()[2:]:
            self.assertRegex(font, r" yes (?:yes|no ) yes ", "embedded, with its characters")

    def test_the_json_holds_the_run_and_the_document(self):
        self.record("last", "--out", self.path("r.json"))
        record = json.loads(self.bytes_of("r.json"))
        self.assertEqual(record["document"].encode("cp1252"), DOCUMENT)
        self.assertEqual(record["document_name"], "controller.ABC")
        self.assertEqual(json.loads(record["folder"]["plan.json"]), PLAN)
        self.assertEqual(record["counts"], RESULT["counts"])
        self.assertEqual(record["left"], {"101": 12, "102": 5})
        self.assertIsNone(record["deviations"], "the template isn't there")

    def test_the_head_is_kept_with_the_run_and_for_the_site(self):
        def head_of(*arguments):
            self.record(*arguments, "--out", self.path("h.json"))
            return json.loads(self.bytes_of("h.json"))["head"]

        given = {"site": "North", "panel": "P7", "order": "4711", "tested_by": "Ann", "witnessed_by": "Bob"}
        options = [word for name, text in given.items() for word in ("--" + name.replace("_", "-"), text)]
        self.assertEqual(head_of("run-1", *options), given)
        self.assertEqual(head_of("run-1"), given)
        self.assertEqual(head_of("run-2", "--order", "4712"), {**given, "order": "4712"})
        self.assertEqual(head_of("run-1")["order"], "4711")
        self.assertEqual(head_of("run-2", "--site", "South")["panel"], "")

    def test_ticks_come_from_a_text_file(self):
        with open(self.path("checks.txt"), "w", encoding="utf-8") as file:
            file.write("Busbar isolated\n\nRelay w\u00edred\n")
        self.record("run-1", "--out", self.path("r.txt"), "--checks", self.path("checks.txt"))
        self.assertIn("[  ]  Busbar isolated\r\n[  ]  Relay w\u00edred\r\n", self.bytes_of("r.txt").decode())

    def verify(self, record):
        with open(self.path("r.json"), "w", encoding="utf-8") as file:
            json.dump(record, file)
        done = subprocess.run([os.path.join(self.programs, "zorvanectl"), "verify-record", self.path("r.json"), "--port",
                               self.path("line"), "--json"], capture_output=True, text=True, timeout=60,
                              env=self.environment)
        return done.returncode, json.loads(done.stdout)["counts"]

    def start(self, model):
        simulator = subprocess.Popen([os.path.join(self.programs, "zorvane-sim"), "--template", model, "--pty",
                                      self.path("line"), "--storage", self.path(model + ".json")],
                                     stdout=subprocess.PIPE, text=True)
        self.addCleanup(simulator.stdout.close)
        self.addCleanup(simulator.wait)
        self.addCleanup(simulator.terminate)
        self.assertTrue(simulator.stdout.readline().startswith("ready"))
        return simulator

    def test_a_record_is_held_against_the_controller(self):
        template = os.path.join(self.programs, "KVRT207D.ZTP")
        with open(template, "rb") as file:
            used = {"what": "template", "path": template, "sha256": hashlib.sha256(file.read()).hexdigest()}
        simulator = self.start("KVRT207D.ZTP")
        left = {"111": 10, "112": 90}
        record = {"version": 1, "run": "r", "controller": {"model": "KVRT207D", "unit": 1}, "files": [used]}
        self.assertEqual(self.verify({**record, "left": left}),
                         (0, {"as_left": 2, "changed": 0, "not_read": 0, "rows": 2}))
        self.assertEqual(self.verify({**record, "left": {**left, "112": 91}}),
                         (3, {"as_left": 1, "changed": 1, "not_read": 0, "rows": 2}))
        self.assertEqual(self.verify({**record, "left": {**left, "64000": 1}}),
                         (7, {"as_left": 2, "changed": 0, "not_read": 1, "rows": 3}))
        self.assertEqual(self.verify({**record, "files": [{**used, "sha256": "x"}], "left": left})[0], 1)
        simulator.terminate()
        simulator.wait()
        self.start("R7702-16.ZTP")
        self.assertEqual(self.verify({**record, "left": left})[0], 5)

    def test_what_cannot_be_done_is_said(self):
        self.assertIn('There is no run "run-9"', self.record("run-9", "--out", self.path("r.txt"), code=1).stderr)
        self.assertIn("The file's ending tells the format",
                      self.record("last", "--out", self.path("r.doc"), code=2).stderr)
        missing = self.record("last", "--out", self.path("r.txt"), "--checks", self.path("none.txt"), code=1)
        self.assertIn("can't be read", missing.stderr)
        done = self.record("last", "--out", self.path("no-folder", "r.json"), "--json", code=1)
        self.assertEqual(json.loads(done.stdout), {"run": "run-2", "output": None, "record": None})


if __name__ == "__main__":
    RecordTest.programs = sys.argv.pop()
    unittest.main()
