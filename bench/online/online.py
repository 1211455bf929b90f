# SPDX-License-Identifier: MIT
"""What the window costs while it polls, and what it adds to an upload, beside the terminal program.

    online.py PROGRAMS [--seconds N] [--uploads N]
"""
import argparse
import os
import statistics
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../tests/window"))
from driver.desktop import Desktop  # noqa: E402
from driver.line_model import Line_Model  # noqa: E402
from driver.waiting import wait_for  # noqa: E402
from driver.zorvane import Zorvane  # noqa: E402

BAUD = "19200"
SETTINGS = f"{BAUD},e,8,1"
POLLED_BLOCKS, UPLOADED_BLOCKS, REGISTERS = 4, 30, 50
MONITOR_STARTS_S = 2


def opened(desktop, programs, blocks):
    """The window with a model of so many blocks, its simulated controller on a paced line, and both files."""
    program = Zorvane(desktop, programs)
    model = Line_Model(program.folder, blocks, REGISTERS)
    controller = program.simulator("LINETEST", *model.options(), "--pace", BAUD, "--settings", SETTINGS)
    program.use_port(controller, Settings=f'"{SETTINGS}"', TimeOut="1000")
    document = model.document(program.desktop.path("documents", "site.linetest"))
    program.start()
    program.open(document)
    program.expect_title("site.linetest - Zorvane")
    return program, model, controller, document


def processor_seconds(process):
    with open(f"/proc/{process.pid}/stat", encoding="ascii") as stat:
        fields = stat.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def share(program, controller, seconds):
    """The part of one core in percent, and the exchanges a second meanwhile. Nobody talks to the window."""
    frames, used, began = len(controller.frames()), processor_seconds(program.process), time.monotonic()
    time.sleep(seconds)
    used, took = processor_seconds(program.process) - used, time.monotonic() - began
    return 100 * used / took, (len(controller.frames()) - frames) / 2 / took


def polling(programs, seconds):
    with Desktop() as desktop:
        program, _, controller, _ = opened(desktop, programs, POLLED_BLOCKS)
        program.go_online()
        closed, rate = share(program, controller, seconds)
        print(f"polling {POLLED_BLOCKS} blocks of {REGISTERS} registers at {BAUD} baud ({rate:.1f} exchanges a second, "
              f"{seconds:g} s each):")
        print(f"  monitor closed: {closed:.2f} % of one core (goal 3)")
        program.choose("Communication", "Modbus Monitor")
        program.dialog("ModbusMonitor")
        time.sleep(MONITOR_STARTS_S)
        shown, rate = share(program, controller, seconds)
        print(f"  monitor open:   {shown:.2f} % of one core (goal 6), {rate:.1f} exchanges a second", flush=True)


def upload_by_window(program):
    """Seconds from the menu to the end of the upload, as panel 4 tells it."""
    message = program.window.find(role="label", description="StatusBar1_4")
    entry = program.entry("Communication", "Upload to PC")
    began = time.monotonic()
    entry.press()
    while message.name != "Uploading... Wait a moment please":
        time.sleep(0.002)
    while message.name != "Ready":
        time.sleep(0.002)
    took = time.monotonic() - began
    wait_for("polling", lambda: program.panel(2) == "Online")
    program.choose("Communication", "Disconnect")
    program.expect_panel(2, "Offline")
    program.expect_panel(4, "Ready")
    return took


def upload_by_terminal(program, model, controller, document):
    command = [os.path.join(program.programs, "zorvanectl"), "upload", model.template, document, "--port",
               controller.port, "--settings", SETTINGS, "--timeout", "1000", "--json"]
    began = time.monotonic()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return time.monotonic() - began


def timed(controller, upload):
    """Seconds of an upload, and of the part of it from its first request to its last answer on the line."""
    before = len(controller.frames())
    took = upload()
    frames = controller.frames()[before:]
    asked = [frame["ms"] for frame in frames if frame["direction"] == "in"]
    answered = [frame["ms"] for frame in frames if frame["direction"] == "out"]
    return took, (answered[UPLOADED_BLOCKS - 1] - asked[0]) / 1000


def uploads(programs, count):
    with Desktop() as desktop:
        program, model, controller, document = opened(desktop, programs, UPLOADED_BLOCKS)
        window, terminal = [], []
        for _ in range(count):
            window.append(timed(controller, lambda: upload_by_window(program)))
            terminal.append(timed(controller, lambda: upload_by_terminal(program, model, controller, document)))
    (by_window, window_line), (by_terminal, terminal_line) = (
        [statistics.median(part) for part in zip(*runs)] for runs in (window, terminal))
    print(f"upload of {UPLOADED_BLOCKS} blocks of {REGISTERS} registers at {BAUD} baud, median of {count} in turns:")
    print(f"  window {by_window:.3f} s ({window_line:.3f} on the line), terminal {by_terminal:.3f} s "
          f"({terminal_line:.3f} on the line): ratio {by_window / by_terminal:.3f} (goal 1.05)")
    print("  each pair:", ", ".join(f"{one / other:.3f}" for (one, _), (other, _) in zip(window, terminal)))


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs")
    parser.add_argument("--seconds", type=float, default=30)
    parser.add_argument("--uploads", type=int, default=5)
    options = parser.parse_args()
    programs = os.path.abspath(options.programs)
    print(f"load average {os.getloadavg()[0]:.1f} on {os.cpu_count()} cores")
    polling(programs, options.seconds)
    uploads(programs, options.uploads)


if __name__ == "__main__":
    main()
