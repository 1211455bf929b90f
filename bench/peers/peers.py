#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Whole programs beside other programs for the same job, on one machine in turns.

    peers.py PROGRAMS [--starts N] [--readings N] [--reports N]
"""
import argparse
import contextlib
import json
import os
import statistics
import subprocess
import sys
import tempfile
import time

from x_windows import Screen_Watch

QT_MASTER = "/usr/lib/x86_64-linux-gnu/qt5/examples/serialbus/modbus/master/modbusmaster"
REGISTERS, FIRST_REGISTER = 10, 100
QUIET_S, QUIET_CPU_S = 0.3, 0.005
FIELDS, ROWS, COLUMNS = 30, 100, 5


@contextlib.contextmanager
def screen():
    """A screen in memory without a window manager; the name of its display."""
    reading, writing = os.pipe()
    with subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24", "-nolisten", "tcp",
                           "-noreset"], pass_fds=[writing], stderr=subprocess.DEVNULL) as server:
        try:
            yield ":" + os.read(reading, 16).decode().strip()
        finally:
            server.terminate()


def processor_s(pid):
    """Processor time of all threads of a process so far."""
    total = 0
    for thread in os.listdir(f"/proc/{pid}/task"):
        with contextlib.suppress(FileNotFoundError), open(f"/proc/{pid}/task/{thread}/schedstat",
                                                          encoding="ascii") as file:
            total += int(file.read().split()[0])
    return total / 1e9


def memory_mb(pid):
    """Resident memory, and the part of it that the process has for itself."""
    with open(f"/proc/{pid}/smaps_rollup", encoding="ascii") as file:
        sizes = {line.split(":")[0]: int(line.split()[1]) for line in file if line.endswith("kB\n")}
    return sizes["Rss"] / 1024, (sizes["Private_Clean"] + sizes["Private_Dirty"]) / 1024


def settled_after(pid, start):
    """Seconds from the start to the last work before the program went quiet: its window is painted and its own timers
    of the start have run."""
    used, last = processor_s(pid), time.monotonic()
    while time.monotonic() - last < QUIET_S:
        time.sleep(0.02)  # a sample of the process's own account; there is nothing to be notified of
        now = processor_s(pid)
        if now - used > QUIET_CPU_S:
            used, last = now, time.monotonic()
    return last - start


def start_once(command, environment, watch):
    """Milliseconds to the shown window and to quiet, MB resident and private."""
    watch.forget()
    start = time.monotonic()
    with subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as program:
        watch.wait_for_window()
        shown = time.monotonic() - start
        settled = settled_after(program.pid, start)
        figures = shown * 1000, settled * 1000, *memory_mb(program.pid)
        program.terminate()
    return figures


def compare_starts(programs, starts):
    commands = {"zorvane": [os.path.join(programs, "zorvane")], "Qt's Modbus master": [QT_MASTER]}
    runs = {name: [] for name in commands}
    with screen() as display, tempfile.TemporaryDirectory() as folder:
        environment = {**os.environ, "DISPLAY": display, "QT_QPA_PLATFORM": "xcb", "HOME": folder,
                       "XDG_CONFIG_HOME": folder, "XDG_DATA_HOME": folder, "XDG_RUNTIME_DIR": folder,
                       "QT_XCB_GL_INTEGRATION": "none"}
        watch = Screen_Watch(display)
        for _ in range(starts):
            for name, command in commands.items():
                runs[name].append(start_once(command, environment, watch))
    print(f"\n## Start and memory ({starts} starts each, medians)\n")
    print("| | window shown ms | quiet again ms | resident MB | private MB |\n|---|---|---|---|---|")
    middle = {name: [statistics.median(column) for column in zip(*rows)] for name, rows in runs.items()}
    for name, figures in middle.items():
        print(f"| {name} | " + " | ".join(f"{figure:.0f}" for figure in figures) + " |")
    ours, theirs = middle.values()
    print("| ratio | " + " | ".join(f"{one / other:.2f}" for one, other in zip(ours, theirs)) + " |")


def in_turns(commands, runs):
    """Medians of the seconds that whole processes take; each must succeed."""
    taken = {name: [] for name in commands}
    for _ in range(runs):
        for name, command in commands.items():
            start = time.monotonic()
            done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, check=False)
            taken[name].append(time.monotonic() - start)
            if done.returncode != 0:
                raise SystemExit(f"{' '.join(command)} ended with {done.returncode}: {done.stdout} {done.stderr}")
    return {name: statistics.median(seconds) for name, seconds in taken.items()}


def tell_ratios(title, medians):
    print(f"\n## {title}\n\n| | ms | ours to it |\n|---|---|---|")
    ours = next(iter(medians.values()))
    for name, seconds in medians.items():
        print(f"| {name} | {1000 * seconds:.1f} | {ours / seconds:.2f} |")


def compare_readings(programs, readings):
    """Ten registers from a simulated controller at its own speed: start, open, read, print, end."""
    with tempfile.TemporaryDirectory() as folder:
        template = os.path.join(folder, "READING.ZTP")
        with open(template, "w", encoding="ascii", newline="\r\n") as file:
            file.write(f"[HARDWARE]\nCONTROLLER=READING\n[PORT_CONFIGURATION]\nCOMMUNICATIONS_1_REQUEST=0\n"
                       f"HOLDINGREGISTERS={FIRST_REGISTER + REGISTERS}\n"
                       f"HOLDINGREGISTERSBLOCK_1={FIRST_REGISTER}-{FIRST_REGISTER + REGISTERS - 1}\n")
        document = os.path.join(folder, "site.reading")
        open(document, "wb").close()
        registers = os.path.join(folder, "registers.json")
        with open(registers, "w", encoding="ascii") as file:
            json.dump({FIRST_REGISTER + i: 7 * i for i in range(REGISTERS)}, file)
        line = os.path.join(folder, "line")
        with subprocess.Popen([os.path.join(programs, "zorvane-sim"), "--template", template, "--registers", registers,
                               "--pty", line], stdout=subprocess.PIPE) as controller:
            try:
                controller.stdout.readline()
                code = ("import sys; from pymodbus.client import ModbusSerialClient as C; "
                        "c = C(port=sys.argv[1], baudrate=115200); c.connect(); "
                        f"print(c.read_holding_registers({FIRST_REGISTER}, {REGISTERS}, slave=1).registers); c.close()")
                medians = in_turns({
                    "zorvanectl upload": [os.path.join(programs, "zorvanectl"), "upload", template, document, "--port",
                                          line, "--settings", "115200,n,8,1"],
                    "mbpoll": ["mbpoll", "-m", "rtu", "-a", "1", "-b", "115200", "-P", "none", "-t", "4", "-0", "-r",
                               str(FIRST_REGISTER), "-c", str(REGISTERS), "-1", line],
                    "pymodbus": [sys.executable, "-c", code, line],
                }, readings)
            finally:
                controller.terminate()
    tell_ratios(f"One reading of {REGISTERS} registers, whole processes ({readings} each, medians)", medians)


def big_document(folder):
    """A template of tables; the values are its own."""
    lines = ["[HARDWARE]", "CONTROLLER=TABLES", "[PORT_CONFIGURATION]", "HOLDINGREGISTERS=200",
             "HOLDINGREGISTERSBLOCK_1=100-109", "[CONFIGURATION_COLUMNS]", "CONFIGURATION_NC=2", "COL_1_DESC=No.",
             "COL_2_DESC=Field", "[CONFIGURATION_FIELDS]"]
    for field in range(1, FIELDS + 1):
        lines += [f"FIELD_{field}_DESC=Field {field}", f"FIELD_{field}_RC={ROWS},{COLUMNS}"]
    for field in range(1, FIELDS + 1):
        lines.append(f"[FIELD_{field}_COLUMNS]")
        for column in range(1, COLUMNS + 1):
            lines += [f"COL_{column}_DESC=Column {column}", f"COL_{column}_WIDTH=1500", f"COL_{column}_TYPE=NUMERIC"]
    for field in range(1, FIELDS + 1):
        lines.append(f"[FIELD_{field}_DEFAULT]")
        for row in range(1, ROWS + 1):
            values = (str((field * 7919 + row * 31 + column * 131) % 65536) for column in range(COLUMNS))
            lines.append(f"ROW_{row}=" + ",".join(values))
    template = os.path.join(folder, "TABLES.ZTP")
    with open(template, "w", encoding="ascii", newline="") as file:
        file.write("\r\n".join(lines) + "\r\n")
    document = os.path.join(folder, "site.tables")
    open(document, "wb").close()
    return template, document


def compare_reports(programs, reports):
    """The same tables as PDF: by us from the document, by LibreOffice from our workbook of them."""
    with tempfile.TemporaryDirectory() as folder:
        report = [os.path.join(programs, "zorvanectl"), "report", *big_document(folder), "--grid", "--format"]
        workbook, pdf = os.path.join(folder, "tables.xls"), os.path.join(folder, "tables.pdf")
        subprocess.run([*report, "xls", "--out", workbook], check=True, stdout=subprocess.DEVNULL)
        medians = in_turns({
            "zorvanectl report": [*report, "pdf", "--out", pdf],
            "LibreOffice Calc": ["soffice", f"-env:UserInstallation=file://{folder}/office", "--headless",
                                 "--convert-to", "pdf", "--outdir", folder + "/out", workbook],
        }, reports)
        pages = subprocess.run(["pdfinfo", pdf], check=True, capture_output=True, text=True).stdout
        count = next(line.split()[1] for line in pages.splitlines() if line.startswith("Pages:"))
    tell_ratios(f"{FIELDS} tables of {ROWS} rows as PDF, {count} pages, whole processes ({reports} each, medians)",
                medians)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs")
    parser.add_argument("--starts", type=int, default=15)
    parser.add_argument("--readings", type=int, default=31)
    parser.add_argument("--reports", type=int, default=5)
    options = parser.parse_args()
    compare_starts(options.programs, options.starts)
    compare_readings(options.programs, options.readings)
    compare_reports(options.programs, options.reports)


if __name__ == "__main__":
    main()
