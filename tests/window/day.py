#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A working day with the window and with the terminal, step by step, counted and timed.

    day.py PROGRAMS [--watch SECONDS] [--pictures FOLDER [--scale FACTOR] [--dark]]

The window is driven as a person would: keys, and clicks on what is to be seen; nothing is done over the bus. Printed is
a table: a hand is a key, a chord of keys, a click, or a text typed without a break. The seconds are those of this
machine with a person who never thinks. A simulated controller answers without the pace of a real line.
"""
import argparse
import contextlib
import json
import os
import shutil
import subprocess
import time

from driver.accessible import Table
from driver.desktop import Desktop
from driver.picture import save
from driver.waiting import expect, wait_for
from driver.zorvane import Zorvane

MODEL = "KVRT207D"
OUTPUTS, REGULATION, TIMERS, MEASUREMENTS = 1, 3, 4, 5
VALUE, REMARK = 1, 2
REGULATION_VALUES = ("1160", "25", "12", "5", "1100", "4000", "13", "-13", "880", "1265", "120", "-30")
TIMER_VALUES = ("0:45", "0:12", "0:05", "0:03", "20:00", "0:08", "2", "7")
REMARKS = ("Motor contactor K1", "two seconds", "Motor contactor K2", "two seconds", "Lamp H3", "ten seconds",
           "Breaker Q1", "one second", "Telecontrol 14", "ten seconds")
FOUND_UNIT = 3
SITES = 12
LINE = "9600,n,8,1"


class Counted_Hands:
    """Hands that count what they do."""

    def __init__(self, hands, scale):
        self._hands = hands
        self._scale = scale
        self.count = 0

    def keys(self, *names):
        self.count += len(names)
        self._hands.keys(*names)

    def chord(self, held, key):
        self.count += 1
        self._hands.chord(held, key)

    def write(self, text):
        self.count += 1
        self._hands.write(text)

    def click(self, thing, times=1):
        """A screen reader is told places as they are before scaling."""
        self.count += 1
        left, top, width, height = (part * self._scale for part in thing.rectangle)
        self._hands.click_at(left + width // 2, top + height // 2, times)

    def __getattr__(self, name):
        return getattr(self._hands, name)


class Day:
    """What both ways share: the table of steps, and the pictures."""

    def __init__(self, pictures):
        self.rows = {}
        self._pictures = pictures

    @contextlib.contextmanager
    def step(self, name, way, count):
        before, begun = count(), time.monotonic()
        yield
        self.rows.setdefault(name, {})[way] = count() - before, time.monotonic() - begun

    def picture(self, desktop, name):
        if self._pictures:
            os.makedirs(self._pictures, exist_ok=True)
            save(desktop, os.path.join(self._pictures, name.replace(" ", "_") + ".png"))

    def table(self):
        lines = ["| Step | Window: hands | s | Terminal: calls | s |", "|---|---|---|---|---|"]
        for name, ways in self.rows.items():
            cells = [f"{ways[way][0]} | {ways[way][1]:.1f}" if way in ways else " | " for way in ("window", "terminal")]
            lines.append(f"| {name} | {' | '.join(cells)} |")
        sums = [f"{sum(ways[way][0] for ways in self.rows.values() if way in ways)} | "
                f"{sum(ways[way][1] for ways in self.rows.values() if way in ways):.1f}" for way in ("window", "terminal")]
        return "\n".join([*lines, f"| in all | {' | '.join(sums)} |"])


def _counts(comparison):
    """What the comparison counted, once the controller was read."""
    text = comparison.part.named("LBL_Counts").name
    return text if " equal" in text else None


class Window_Day:
    def __init__(self, day, desktop, programs, watch):
        self.day, self.desktop, self.watch = day, desktop, watch
        self.program = Zorvane(desktop, programs)
        self.hands = self.program.hands = Counted_Hands(self.program.hands, int(desktop.environment["QT_SCALE_FACTOR"]))
        self.documents = desktop.path("documents", "")
        example = os.path.join(self.program.folder, "EXAMPLE." + MODEL)
        self.last_year = shutil.copy2(example, os.path.join(self.documents, "last-year." + MODEL))
        self.controller = self.program.simulator(MODEL, "--slave", str(FOUND_UNIT), "--config", example)

    @contextlib.contextmanager
    def step(self, name):
        with self.day.step(name, "window", lambda: self.hands.count):
            yield
        self.day.picture(self.desktop, name)

    def live(self):
        self.program.store("ModbusPort", Port=self.controller.port, Slave="1", Settings=f'"{LINE}"', TimeOut="300")
        self.program.start()
        wait_for("the fields", lambda: self.program.fields.row_count)
        self.hands.place_window(40, 40, 1100, 900)
        for part in (self.prepare, self.change_twenty, self.take_one_back, self.paste_ten, self.find_a_setting,
                     self.against_last_year, self.second_site, self.find_the_controller, self.upload, self.compare,
                     self.send, self.record, self.be_sure, self.watch_it, self.print_it):
            part()

    def menu(self, *captions):
        """By mouse, entry after entry."""
        for at in range(len(captions)):
            wait_for(f"the entry {captions[at]}", lambda: self.program.entry(*captions[:at + 1]).is_shown)
            self.hands.click(self.program.entry(*captions[:at + 1]))

    def name_file(self, name):
        self.program.type_file(os.path.join(self.documents, name))

    def cell(self, field, row, column):
        """Goes to a page by keys, and clicks on a cell of it."""
        self.program.select_field(field)
        self.program.settle_on(row, column)

    def prepare(self):
        with self.step("prepare a document from factory values"):
            self.menu("File", "New from Model")
            self.hands.keys("3")
            self.program.expect_title("untitled.kvrt207d - Zorvane")
            self.hands.keys("ctrl+shift+s")
            self.name_file("brunnfeld." + MODEL)
            self.program.expect_title("brunnfeld.kvrt207d - Zorvane")
            expect("the end of the save", lambda: self.program.panel(4), "")

    def change_twenty(self):
        with self.step("change 20 values"):
            for field, texts in ((REGULATION, REGULATION_VALUES), (TIMERS, TIMER_VALUES)):
                self.cell(field, 0, VALUE)
                for row, text in enumerate(texts):
                    self.hands.write(text)
                    self.hands.keys("Return")
                    self.program.expect_cell(row, VALUE, text)

    def take_one_back(self):
        with self.step("take one back"):
            self.hands.keys("ctrl+z")
            self.program.expect_cell(len(TIMER_VALUES) - 1, VALUE, "0")

    def paste_ten(self):
        self.hands.copy("\n".join(REMARKS) + "\n")
        with self.step("paste ten"):
            self.cell(OUTPUTS, 0, REMARK)
            self.hands.keys("ctrl+shift+v")
            self.program.expect_cell(9, REMARK, REMARKS[-1])

    def find_a_setting(self):
        with self.step("find a setting"):
            self.hands.keys("ctrl+f")
            dialog = self.program.dialog("FrmFind")
            self.hands.write("overcurrent")
            expect("what was found", lambda: dialog.part.named("LBL_Position").name, "1 found")
            self.hands.keys("Return")
            expect("where it stands", lambda: dialog.part.named("LBL_Position").name, "1 of 1")
            self.day.picture(self.desktop, "find")
            self.hands.keys("Escape")
            dialog.wait_until_gone()

    def choose_right_side(self, window, steps):
        self.hands.chord(["alt"], "g")
        self.hands.keys("Home", *["Down"] * steps)
        return Table(window.part.named("TBL_Comparison"))

    def against_last_year(self):
        with self.step("see what differs from last year's"):
            self.menu("Communication", "Compare...")
            window = self.program.dialog("FrmCompare")
            rows = self.choose_right_side(window, 3)
            self.hands.chord(["alt"], "2")
            self.name_file(os.path.basename(self.last_year))
            wait_for("rows", lambda: rows.row_count)
            self.day.picture(self.desktop, "compare with last year")
            self.hands.keys("Escape")
            window.wait_until_gone()

    def second_site(self):
        with self.step("prepare a second site"):
            self.hands.keys("ctrl+s")
            expect("the end of the save", lambda: (self.program.title, self.program.panel(4)),
                   ("brunnfeld.kvrt207d - Zorvane", ""))
            self.hands.keys("ctrl+shift+s")
            self.name_file("weiler." + MODEL)
            self.program.expect_title("weiler.kvrt207d - Zorvane")
            expect("the end of the save", lambda: self.program.panel(4), "")
            self.cell(REGULATION, 0, VALUE)
            self.hands.write("1170")
            self.hands.keys("Return")
            self.program.expect_cell(0, VALUE, "1170")
            self.hands.keys("ctrl+s")
            expect("the end of the save", lambda: (self.program.title, self.program.panel(4)),
                   ("weiler.kvrt207d - Zorvane", ""))

    def find_the_controller(self):
        with self.step("find the controller"):
            self.menu("Communication", "Find Controllers...")
            dialog = self.program.dialog("FindControllers")
            self.hands.keys("Return")
            wait_for("the controller", lambda: dialog.part.named("BOT_Use").is_enabled, 60)
            self.day.picture(self.desktop, "found")
            self.hands.click(dialog.part.named("BOT_Use"))
            dialog.wait_until_gone()
            self.program.expect_panel(3, f"RTU: {FOUND_UNIT}")

    def upload(self):
        """What the controller has goes into a document of its own."""
        with self.step("upload"):
            self.menu("Communication", "Upload to PC")
            self.program.expect_panel(2, "Online")
            expect("the progress form is shown", lambda: self.program.has_dialog("Porcentaje"), False)
            self.menu("Communication", "Disconnect")
            self.program.expect_panel(2, "Offline")
            self.hands.keys("ctrl+shift+s")
            self.name_file("as-found." + MODEL)
            self.program.expect_title("as-found.kvrt207d - Zorvane")
            expect("the end of the save", lambda: self.program.panel(4), "")
            self.hands.keys("ctrl+o")
            self.name_file("weiler." + MODEL)
            self.program.expect_title("weiler.kvrt207d - Zorvane")
            wait_for("a grid with the focus", lambda: "focused" in self.program.fields.table.states)

    def compare(self):
        with self.step("compare"):
            self.menu("Communication", "Compare...")
            window = self.program.dialog("FrmCompare")
            rows = self.choose_right_side(window, 1)
            self.hands.click(window.part.named("BOT_Read"))
            wait_for("rows", lambda: rows.row_count)
            self.day.picture(self.desktop, "compare with the controller")
            self.hands.keys("Escape")
            window.wait_until_gone()

    def send(self):
        with self.step("send what changed"):
            self.menu("Communication", "Send Changes...")
            self.sending = self.program.dialog("FrmSend")
            wait_for("the values", lambda: self.sending.part.named("LBL_Sum").name)
            self.day.picture(self.desktop, "before the send")
            self.hands.chord(["alt"], "s")
            expect("the end", lambda: self.sending.part.named("LBL_Headline").name, "All of it was sent and read back.",
                   deadline=60)

    def record(self):
        with self.step("record"):
            self.hands.click(self.sending.part.find(role="push button", name="Record..."))
            self.program.dialog("FrmRecord")
            self.hands.write("Weiler")
            self.program.type_into("f", os.path.join(self.documents, "weiler-record.pdf"))
            self.day.picture(self.desktop, "record head")
            self.hands.keys("Return")
            box = self.program.dialog("Msgb")
            self.hands.keys("Return")
            box.wait_until_gone()
            assert os.path.exists(os.path.join(self.documents, "weiler-record.pdf"))
        self.hands.keys("Escape")
        self.sending.wait_until_gone()

    def be_sure(self):
        with self.step("be sure"):
            self.menu("Communication", "Compare...")
            window = self.program.dialog("FrmCompare")
            self.choose_right_side(window, 1)
            self.hands.click(window.part.named("BOT_Read"))
            counts = wait_for("the counts", lambda: _counts(window))
            self.day.picture(self.desktop, "nothing differs")
            assert " differ" not in counts, counts
            self.hands.keys("Escape")
            window.wait_until_gone()

    def watch_it(self):
        with self.step(f"watch (here {self.watch:g} s)"):
            self.menu("Communication", "Upload to PC")
            self.program.expect_panel(2, "Online")
            expect("the progress form is shown", lambda: self.program.has_dialog("Porcentaje"), False)
            self.program.select_field(MEASUREMENTS)
            asked = len(self.controller.frames())
            until = time.monotonic() + self.watch
            wait_for("the time to look", lambda: time.monotonic() >= until, self.watch + 30)
            assert len(self.controller.frames()) > asked, "nothing was asked meanwhile"
            self.menu("Communication", "Disconnect")
            self.program.expect_panel(2, "Offline")

    def print_it(self):
        with self.step("print"):
            self.menu("File", "Print...", "Print All...")
            window = self.program.preview("Preview Print All Pages")
            self.day.picture(self.desktop, "preview")
            self.hands.click(window.find(role="push button", name="Export..."))
            dialog = self.program.dialog("CommonDialog")
            dialog.choose_type("PDF File(*.pdf)")
            self.hands.chord(["alt"], "n")
            self.name_file("weiler.pdf")
            wait_for("the pages", lambda: os.path.exists(os.path.join(self.documents, "weiler.pdf")))
            self.hands.keys("Escape")


class Terminal_Day:
    """The same by calls, in a folder with the templates and the factory values."""

    def __init__(self, day, desktop, programs, watch):
        self.day, self.desktop, self.watch, self.calls = day, desktop, watch, 0
        self.folder = desktop.path("terminal", "")
        self._programs = programs
        for file in (MODEL + ".ZTP", "DEFAULT." + MODEL, "EXAMPLE." + MODEL):
            shutil.copy2(os.path.join(programs, file), self.folder)
        self.port = self._controller("relay", "--slave", str(FOUND_UNIT))

    def _controller(self, name, *options):
        path = self.desktop.path("terminal", name)
        process = self.desktop.start([os.path.join(self._programs, "zorvane-sim"), "--template", self._at(MODEL + ".ZTP"),
                                      "--config", self._at("EXAMPLE." + MODEL), "--pty", path, *options], name,
                                     stdout=subprocess.PIPE)
        assert process.stdout.readline().startswith(b"ready"), "the simulator did not start"
        return "./" + name

    def _at(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        with open(self._at(name), "w", encoding="utf-8") as file:
            file.write(text)

    def call(self, command, exits=0):
        """A line for the shell; PATH has the programs."""
        self.calls += 1
        environment = dict(self.desktop.environment, PATH=self._programs + os.pathsep + os.environ["PATH"])
        done = subprocess.run(["bash", "-c", command], cwd=self.folder, env=environment, capture_output=True, text=True,
                              timeout=600)
        assert done.returncode == exits, f"{command}: exit {done.returncode}\n{done.stdout}{done.stderr}"
        return done.stdout

    def step(self, name):
        return self.day.step(name, "terminal", lambda: self.calls)

    def live(self):
        self.prepare()
        self.on_the_line()
        self.twelve_sites()

    def prepare(self):
        values = [f"Regulation/{name} = {text}" for name, text in zip(self._names(REGULATION), REGULATION_VALUES)]
        values += [f"Timers/{name} = {text}" for name, text in zip(self._names(TIMERS), TIMER_VALUES)]
        self.write("values.txt", "\n".join(values) + "\n")
        rows = "".join(f"{OUTPUTS};{row};{REMARK + 1};{text}\n" for row, text in enumerate(REMARKS, 1))
        self.write("remarks.csv", "field;row;column;value\n" + rows)
        with self.step("prepare a document from factory values"):
            self.call(f"cp DEFAULT.{MODEL} brunnfeld.{MODEL}")
        with self.step("change 20 values"):
            self.call(f"zorvanectl set {MODEL}.ZTP brunnfeld.{MODEL} --from values.txt --save brunnfeld.{MODEL}")
        with self.step("take one back"):
            self.call(f'zorvanectl set {MODEL}.ZTP brunnfeld.{MODEL} "Timers/Blocked steps" 0 --save brunnfeld.{MODEL}')
        with self.step("paste ten"):
            self.call(f"zorvanectl import {MODEL}.ZTP brunnfeld.{MODEL} remarks.csv --save brunnfeld.{MODEL}")
        with self.step("find a setting"):
            assert "Overcurrent" in self.call(f"zorvanectl export {MODEL}.ZTP brunnfeld.{MODEL} --out all.csv && "
                                              "grep -i overcurrent all.csv")
        with self.step("see what differs from last year's"):
            self.call(f"zorvanectl compare {MODEL}.ZTP brunnfeld.{MODEL} --with EXAMPLE.{MODEL}", exits=3)
        with self.step("prepare a second site"):
            self.call(f'zorvanectl set {MODEL}.ZTP brunnfeld.{MODEL} "Regulation/Set point" 1170 --save weiler.{MODEL}')

    def _names(self, field):
        shown = json.loads(self.call(f"zorvanectl show {MODEL}.ZTP DEFAULT.{MODEL} {field} --json"))
        return [row[0] for row in shown["grid"]]

    def on_the_line(self):
        line = f"--port {self.port} --slave {FOUND_UNIT} --settings {LINE}"
        with self.step("find the controller"):
            self.call(f"zorvanectl find --port {self.port} --template {MODEL}.ZTP")
        with self.step("upload"):
            self.call(f"zorvanectl upload {MODEL}.ZTP DEFAULT.{MODEL} {line} --save as-found.{MODEL}")
        with self.step("compare"):
            self.call(f"zorvanectl compare {MODEL}.ZTP weiler.{MODEL} {line}", exits=3)
        with self.step("send what changed"):
            self.call(f"zorvanectl send {MODEL}.ZTP weiler.{MODEL} {line} --yes")
        with self.step("record"):
            self.call("zorvanectl record last --out weiler-record.pdf")
        with self.step("be sure"):
            self.call(f"zorvanectl verify last {line}")
        with self.step(f"watch (here {self.watch:g} s)"):
            self.call(f"timeout --signal INT {self.watch:g} zorvanectl watch {MODEL}.ZTP weiler.{MODEL} 5 {line} || true")
        with self.step("print"):
            self.call(f"zorvanectl report {MODEL}.ZTP weiler.{MODEL} --format pdf --out weiler.pdf")

    def twelve_sites(self):
        """The script of docs/manual/sending.md, with a line of its own for each site."""
        sites = [f"site{number:02}" for number in range(1, SITES + 1)]
        for site in sites:
            self._controller(site, "--slave", "1")
            shutil.copy2(self._at("weiler." + MODEL), self._at(f"{site}.{MODEL}"))
        self.write("sites.txt", "".join(f"{site} ./{site}\n" for site in sites))
        with self.step(f"the same for {SITES} by a script"):
            self.call(f"""while read -r site port; do
                zorvanectl send {MODEL}.ZTP "$site.{MODEL}" --port "$port" --settings {LINE} --yes </dev/null >"$site.log" &&
                run=$(sed -n 's/^Run //p' "$site.log") &&
                zorvanectl record "$run" --out "$site.pdf" </dev/null &&
                zorvanectl verify "$run" --port "$port" --settings {LINE} </dev/null || echo "$site: exit $?" >>failed.txt
                done <sites.txt; test ! -e failed.txt""")


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    arguments.add_argument("programs")
    arguments.add_argument("--watch", type=float, default=10)
    arguments.add_argument("--pictures")
    arguments.add_argument("--scale", choices=("1", "2"), default="1")
    arguments.add_argument("--dark", action="store_true")
    chosen = arguments.parse_args()
    day = Day(chosen.pictures)
    programs = os.path.abspath(chosen.programs)
    with Desktop() as desktop:
        desktop.enlarge(chosen.scale)
        if chosen.dark:
            desktop.darken()
        Window_Day(day, desktop, programs, chosen.watch).live()
    with Desktop() as desktop:
        Terminal_Day(day, desktop, programs, chosen.watch).live()
    print(day.table())


if __name__ == "__main__":
    main()
