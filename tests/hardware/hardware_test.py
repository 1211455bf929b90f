#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""zorvanectl on the kernel's own driver of USB serial adapters, in a machine of QEMU: what the driver is asked for, and
what becomes of a call whose adapter is pulled out.

    hardware_test.py [--unplugs N] [--told-within SECONDS] PROGRAMS [TEST...]

Each pull strikes at another moment; the table at the end tells what was seen. A pull must be told within a second, which
the emulation keeps on a machine that has a processor for it; SECONDS is more for one that is busy.
"""
import argparse
import json
import os
import random
import re
import resource
import subprocess
import sys
import tempfile
import time
import unittest

import guest_image
import plant
from machine import Adapter, Machine

KINDS = {"polling": 30, "idle": 20, "upload": 20, "download": 15, "send": 15}  # of 100 pulls
BACK_SECONDS = 10.0
PROCESSOR_SHARE = 0.05
RESTLESS_SHARE = 0.25  # of the slow guest's processor: what never rests, or lists all ports again and again, takes more
DOCUMENTS = [("/b.PUMP", 2000), ("/a.PUMP", 1000)]  # and the first of their set points
SILENT = "Error. The controller does not respond."
WAITED_FOR = ("zorvanectl: The controller doesn't answer: The adapter was unplugged, or the line hung up. "
              "It is waited for, for 10 seconds at most.")
FORMATS = [(parity, data, stop) for parity in "neo" for data in (7, 8) for stop in (1, 2)]
BAUDS = [1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200]
DIVIDER_ERROR = 0.002  # the adapter's clock has no whole divider for every speed
LINES = [(BAUDS[(2 * n + half) % len(BAUDS)], *FORMATS[n]) for n in range(len(FORMATS)) for half in (0, 1)]


class Table:
    """What was seen, for people."""

    def __init__(self):
        self.rows = []

    def add(self, what, count, seen):
        self.rows.append((what, str(count), seen))

    def text(self):
        widths = [max(len(row[n]) for row in self.rows) for n in (0, 1)]
        return "\n".join(f"{what:<{widths[0]}}  {count:>{widths[1]}}  {seen}" for what, count, seen in self.rows)


def spread(seconds):
    return f"median {sorted(seconds)[len(seconds) // 2]:.2f} s, at most {max(seconds):.2f} s"


class HardwareTest(unittest.TestCase):
    programs = ""
    unplugs = 100
    told_within = 1.0
    table = Table()

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.controllers = {name: plant.Controller(cls.programs, cls.folder.name, name, serial)
                           for name, serial in (("one", 7), ("two", 8))}
        for controller in cls.controllers.values():
            cls.addClassCleanup(controller.stop)
        kernel, modules = guest_image.kernel(os.path.join(os.path.dirname(cls.programs), "hardware"))
        files = {"PUMP.ZTP": plant.TEMPLATE, "a.PUMP": plant.document(1000), "b.PUMP": plant.document(2000)}
        image = guest_image.file_system(cls.folder.name, os.path.join(cls.programs, "zorvanectl"), modules,
                                        {name: text.encode("cp1252") for name, text in files.items()})
        started = time.monotonic()
        lines = {name: controller.address for name, controller in cls.controllers.items()} | {"other": None}
        cls.machine = Machine(cls.folder.name, kernel, image, lines)
        cls.addClassCleanup(cls.machine.stop)
        cls.table.add("guest ready", 1, f"after {time.monotonic() - started:.1f} s")
        cls.guest = cls.machine.guest
        cls.adapter = Adapter(cls.machine, "one", "ZV1")
        cls.second = Adapter(cls.machine, "two", "ZV2")
        cls.other = Adapter(cls.machine, "other", "ZV9")
        cls.random = random.Random(20)

    def setUp(self):
        if why := self.machine.has_ended():
            self.fail(why)
        self.controller = self.controllers["one"]
        self.adapter.plug()
        self.port = self.adapter.port()
        self.names = {self.port}

    def tearDown(self):
        if why := self.machine.has_ended():
            self.fail(why)
        self.guest.run("killall -9 zorvanectl")
        for adapter in (self.adapter, self.second, self.other):
            if adapter.is_in:
                adapter.pull()
        self.guest.run("while ls /sys/class/tty/ttyUSB*; do usleep 20000; done")

    # What happens to the adapters.

    def swap_names(self):
        """Another adapter takes the lowest free name, or gives it up: the one to come back gets another."""
        if self.other.is_in:
            self.other.pull()
            self.guest.said("while ls /sys/bus/usb/devices/*/serial | xargs grep ZV9; do usleep 20000; done")
        else:
            self.other.plug()
            self.other.port()

    def plug_again(self):
        """The moment of it; in every other case under another name than before."""
        if self.random.random() < 0.5:
            self.swap_names()
        return self.adapter.plug()

    def count(self, kind):
        return max(1, round(self.unplugs * KINDS[kind] / 100))

    def call(self, *arguments, port=None):
        return f"told zorvanectl {' '.join(arguments)} --port /dev/{port or self.port}"

    def is_told(self, moments):
        self.assertLessEqual(max(moments), self.told_within)
        return "told after " + spread(moments)

    def slowness(self):
        """How many times longer the guest's processor takes for the same work than this machine's."""
        text = self.guest.said("time zorvanectl dump /PUMP.ZTP >/dev/null")
        there = sum(60 * int(m) + float(s) for m, s in re.findall(r"(?:user|sys)\s+(\d+)m ([\d.]+)s", text))
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        subprocess.run([os.path.join(self.programs, "zorvanectl"), "dump", os.path.join(self.folder.name, "PUMP.ZTP")],
                       stdout=subprocess.DEVNULL, check=True)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        return there / (after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)

    def share_since(self, pid, before):
        used, clock = self.guest.processor(pid)
        return (used - before[0]) / (clock - before[1])

    # The line.

    def test_the_driver_is_asked_for_the_line_as_the_call_has_it(self):
        for line in LINES:
            since = self.machine.trace_size()
            code, text = self.guest.run(self.call("identify /PUMP.ZTP", "--settings " + ",".join(map(str, line))))
            self.assertEqual(code, 0, text)
            baud, *rest = self.machine.line_set(since)
            self.assertAlmostEqual(baud / line[0], 1, delta=DIVIDER_ERROR, msg=f"{baud} baud for {line}")
            self.assertEqual(rest, list(line[1:]), line)
        self.table.add("line settings", len(LINES),
                       f"{len(FORMATS)} formats, {len(BAUDS)} speeds: as asked, in QEMU's trace")

    # Ports that can't be had.

    def test_a_user_without_rights_is_told_what_to_do(self):
        code, text = self.guest.run(f"su nobody -c 'zorvanectl identify /PUMP.ZTP --port {self.port}'")
        self.assertEqual(code, 1)
        self.assertIn("Permission denied: add your user to the group dialout and log in again.", text)
        self.table.add("no rights", 1, "told, with what to do")

    def test_a_port_that_another_program_has_is_told_as_busy(self):
        holder = self.guest.start(self.call("watch /PUMP.ZTP /a.PUMP 1 --json"))
        holder.line(lambda text: '"lost":false' in text)
        self.guest.said(f"chmod 666 /dev/{self.port}")  # the superuser isn't kept out by TIOCEXCL
        code, text = self.guest.run(f"su nobody -c 'zorvanectl identify /PUMP.ZTP --port {self.port}'")
        self.assertEqual(code, 1)
        self.assertIn("Busy: another program has the port open. Close that program and try again.", text)
        self.table.add("busy port", 1, "told, with what to do")

    # Pulls.

    def test_pulled_while_it_polls(self):
        told, back, shares = [], [], []
        watch = self.guest.start(self.call("watch /PUMP.ZTP /a.PUMP 1 --json"))
        pid = watch.pid()
        watch.line(lambda text: '"lost":false' in text)
        polling = self.guest.processor(pid)
        watch.line(lambda text: '"lost":false' in text and '"refresh":6,' in text)
        polling_share = self.share_since(pid, polling)
        for _ in range(self.count("polling")):
            time.sleep(self.random.uniform(0, 0.5))
            moment = self.adapter.pull()
            when, text = watch.line(lambda text: '"lost":true' in text)
            told.append(when - moment)
            self.assertEqual([cell["text"] for cell in json.loads(text)["cells"]], ["???", "???"])
            before = self.guest.processor(pid)
            time.sleep(1)
            shares.append(self.share_since(pid, before))
            moment = self.plug_again()
            when, text = watch.line(lambda text: '"lost":false' in text, BACK_SECONDS)
            back.append(when - moment)
            self.names.add(self.adapter.port())
            self.assertIn(int(json.loads(text)["cells"][0]["text"]), range(400, 420))
        self.guest.said(f"kill -INT {pid}")
        self.assertEqual(watch.end()[0], 0)
        slowness = self.slowness()
        share = sum(shares) / len(shares)
        self.table.add("pulled while polling", len(told), f"{self.is_told(told)}; polls again {spread(back)} after it "
                       f"is plugged in, under {len(self.names)} names")
        self.table.add("processor", "", f"{share / slowness:.1%} without the adapter, {polling_share / slowness:.1%} "
                       f"with it; of the guest's, {slowness:.0f} times slower, {share:.1%} and {polling_share:.1%}")
        self.assertLess(share / slowness, PROCESSOR_SHARE)
        self.assertLess(share, RESTLESS_SHARE)

    def test_pulled_while_nothing_is_asked(self):
        told, shares = [], []
        for _ in range(self.count("idle")):
            listen = self.guest.start(self.call("listen"))
            pid = listen.pid()
            self.guest.said(f"until ls -l /proc/{pid}/fd | grep {self.port}; do usleep 20000; done")
            before = self.guest.processor(pid)
            time.sleep(self.random.uniform(0, 0.5))
            shares.append(self.share_since(pid, before))
            moment = self.adapter.pull()
            code, text = listen.end()
            told.append(listen.ended - moment)
            self.assertEqual(code, 1, text)
            self.assertIn("The port went away: the adapter was unplugged, or the line hung up.", text)
            self.plug_again()
            self.port = self.adapter.port()
        self.table.add("pulled while idle", len(told), self.is_told(told))

    def test_pulled_in_an_upload(self):
        told = []
        for _ in range(self.count("upload")):
            requests = self.controller.requests()
            upload = self.guest.start(self.call("upload /PUMP.ZTP /a.PUMP --save out.PUMP"))
            self.assertTrue(self.controller.wait_for_requests(requests + self.random.randint(1, 8)))
            moment = self.adapter.pull()
            code, text = upload.end()
            told.append(upload.ended - moment)
            self.assertEqual(code, 1, text)
            self.assertIn(SILENT, text)
            self.assertNotEqual(self.guest.run("ls out.PUMP")[0], 0)
            self.plug_again()
            self.port = self.adapter.port()
        code, text = self.guest.run(self.call("upload /PUMP.ZTP /a.PUMP --registers now.json"))
        self.assertEqual(code, 0, text)
        read = json.loads(self.guest.said("cat now.json"))
        self.assertEqual({number: read[str(number)] for number in plant.set_points(0)}, self.controller.held())
        self.table.add("pulled in an upload", len(told), self.is_told(told) + "; the next upload is right")

    def test_pulled_in_a_download(self):
        told = []
        for number in range(self.count("download")):
            document, first = DOCUMENTS[number % 2]
            writes = self.controller.requests(6)
            download = self.guest.start(self.call(f"download /PUMP.ZTP {document}"))
            self.assertTrue(self.controller.wait_for_requests(writes + self.random.randint(1, plant.SET_POINTS - 3), 6))
            moment = self.adapter.pull()
            told.append(download.line(lambda text: text.endswith("...Failed"))[0] - moment)
            code, text = download.end()
            self.assertEqual(code, 1, text)
            failed = set(map(int, re.findall(r"^Write: (\d+) @\d+ \.\.\.Failed$", text, re.MULTILINE)))
            self.assertLessEqual(set(plant.set_points(first).values()) - failed, set(self.controller.held().values()))
            self.plug_again()
            self.port = self.adapter.port()
        code, text = self.guest.run(self.call("download /PUMP.ZTP /a.PUMP"))
        self.assertEqual(code, 0, text)
        self.assertEqual(self.controller.held(), plant.set_points(1000))
        self.table.add("pulled in a download", len(told), self.is_told(told) + "; the next download is whole")

    def test_pulled_while_it_sends(self):
        # Every fourth time it comes back too late, and the run is resumed.
        told, states, resumed = [], [], 0
        for number in range(self.count("send")):
            document, first = DOCUMENTS[number % 2]
            writes = self.controller.requests(6)
            send = self.guest.start(self.call(f"send /PUMP.ZTP {document} --yes --json") + " >sent.json")
            self.assertTrue(self.controller.wait_for_requests(writes + self.random.randint(1, plant.SET_POINTS - 3), 6))
            moment = self.adapter.pull()
            told.append(send.line(lambda text: text == WAITED_FOR)[0] - moment)
            if number % 4 == 0:
                self.assertEqual(send.end()[0], 4, send.text())
                resumed += 1
                self.nothing_false_is_verified(states)
                self.plug_again()
                self.port = self.adapter.port()
                code, text = self.guest.run(self.call("resume last"))
                self.assertEqual(code, 0, text)
            else:
                self.plug_again()
                self.assertEqual(send.end()[0], 0, send.text())
                self.nothing_false_is_verified(states)
                self.port = self.adapter.port()
            self.assertEqual(self.controller.held(), plant.set_points(first))
        self.table.add("pulled in a send", len(told), f"{self.is_told(told)}; {states.count('verified')} values verified, "
                       f"{states.count('unknown')} unknown, {states.count('not_sent')} not sent; {resumed} resumed")

    def nothing_false_is_verified(self, states):
        held = self.controller.held()
        told = json.loads(self.guest.said("cat sent.json"))
        for row in told["rows"]:
            states.append(row["state"])
            if row["state"] == "verified":
                self.assertEqual(held[int(row["register"])], row["sent"], row)
        unanswered = [row for row in told["rows"] if row["state"] == "unknown" and row["answer"]]
        self.assertLessEqual(len(unanswered), 1, unanswered)  # the others were acknowledged, and not read back

    def test_of_two_adapters_the_other_goes_on(self):
        self.second.plug()
        second_port = self.second.port()
        first = self.guest.start(self.call("watch /PUMP.ZTP /a.PUMP 1 --json"))
        second = self.guest.start(self.call("watch /PUMP.ZTP /a.PUMP 1 --json", port=second_port))
        pid = second.pid()
        first.line(lambda text: '"lost":false' in text)
        second.line(lambda text: '"lost":false' in text)
        told = []
        for _ in range(3):
            moment = self.adapter.pull()
            told.append(first.line(lambda text: '"lost":true' in text)[0] - moment)
            time.sleep(1)
            self.adapter.plug()
            first.line(lambda text: '"lost":false' in text, BACK_SECONDS)
        self.guest.said(f"kill -INT {pid}")
        self.assertEqual(second.end()[0], 0)
        refreshes = [json.loads(text) for text in second.seen if text.startswith("{")]
        self.assertNotIn(True, [refresh["lost"] for refresh in refreshes])
        self.second.pull()
        self.table.add("one of two pulled", len(told),
                       f"{self.is_told(told)}; the other: {len(refreshes)} refreshes, none lost")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--unplugs", type=int, default=HardwareTest.unplugs)
    parser.add_argument("--told-within", type=float, default=HardwareTest.told_within, metavar="SECONDS")
    parser.add_argument("programs")
    parser.add_argument("tests", nargs="*")
    arguments = parser.parse_intermixed_args()
    HardwareTest.programs = os.path.abspath(arguments.programs)
    HardwareTest.unplugs, HardwareTest.told_within = arguments.unplugs, arguments.told_within
    started = time.monotonic()
    program = unittest.main(argv=[sys.argv[0], *(f"HardwareTest.{name}" for name in arguments.tests)], exit=False,
                            verbosity=2)
    HardwareTest.table.add("all of it", "", f"{time.monotonic() - started:.0f} s")
    print(HardwareTest.table.text())
    return 0 if program.result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
