#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A line whose adapter gives back every byte that it sends, with no controller behind it.

    echo_line.py LINE

LINE is the name of a link that is made to a new pseudo-terminal and removed at the end. "ready LINE" on standard output
says that it is there. SIGTERM and SIGINT end it with exit code 0.
"""

import os
import select
import signal
import sys
import tty


def main():
    name = sys.argv[1]
    # The client's side stays open here too, so that clients may come and go.
    line, client = os.openpty()
    tty.setraw(client)
    os.symlink(os.ttyname(client), name)
    reading, writing = os.pipe()
    os.set_blocking(writing, False)
    signal.set_wakeup_fd(writing)
    for number in (signal.SIGTERM, signal.SIGINT):
        signal.signal(number, lambda *_: None)
    print(f"ready {name}", flush=True)
    try:
        while True:
            readable, _, _ = select.select([line, reading], [], [])
            if reading in readable:
                return
            os.write(line, os.read(line, 1024))
    finally:
        os.unlink(name)


if __name__ == "__main__":
    main()
