# SPDX-License-Identifier: MIT
"""Starts the window many times and tells how long the first painted grid took, and how much memory.

    start.py PROGRAM APPLICATION_FOLDER [STARTS]
"""

import os
import statistics
import subprocess
import sys
import tempfile
import time


def start_once(program, models, platform, display):
    """Milliseconds to the first painted grid and the peak of resident memory in MB."""
    environment = dict(os.environ, QT_QPA_PLATFORM=platform, **display)
    with tempfile.TemporaryDirectory() as folder:
        environment["XDG_RUNTIME_DIR"] = folder
        with subprocess.Popen([program, str(time.monotonic_ns()), models, folder], env=environment,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True) as child:
            printed = child.stdout.read()
            _, status, usage = os.wait4(child.pid, 0)
            child.returncode = os.waitstatus_to_exitcode(status)
    if child.returncode != 0:
        raise SystemExit(f"{program} ended with {child.returncode}")
    return float(printed), usage.ru_maxrss / 1000


def tell(title, runs):
    times = sorted(ms for ms, _ in runs)
    memory = max(megabytes for _, megabytes in runs)
    print(f"{title}: first painted grid after {statistics.median(times):.0f} ms "
          f"({times[0]:.0f} to {times[-1]:.0f}, {len(runs)} starts), peak memory {memory:.0f} MB")


def main():
    program, models = sys.argv[1:3]
    starts = int(sys.argv[3]) if len(sys.argv) > 3 else 20
    tell("offscreen", [start_once(program, models, "offscreen", {}) for _ in range(starts)])
    reading, writing = os.pipe()
    with subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x1024x24", "-nolisten", "tcp",
                           "-noreset"], pass_fds=[writing], stderr=subprocess.DEVNULL) as server:
        try:
            number = os.read(reading, 16).decode().strip()
            tell("Xvfb", [start_once(program, models, "xcb", {"DISPLAY": ":" + number}) for _ in range(starts)])
        finally:
            server.terminate()


if __name__ == "__main__":
    main()
