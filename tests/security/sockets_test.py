#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""The simulated controller can be reached by its line and by nothing else: a pseudo-terminal, or with --tcp one socket
that listens on the loopback.

    sockets_test.py PROGRAMS TEMPLATE
"""
import os
import re
import subprocess
import sys
import tempfile

TABLES = ("tcp", "tcp6", "udp", "udp6", "raw", "raw6", "udplite", "udplite6", "packet")


def socket_inodes(pid):
    inodes = set()
    for number in os.listdir(f"/proc/{pid}/fd"):
        found = re.fullmatch(r"socket:\[(\d+)\]", os.readlink(f"/proc/{pid}/fd/{number}"))
        if found:
            inodes.add(found[1])
    return inodes


def reachable(pid):
    """Lines of the kernel's tables of sockets that name one of the process: those of a network, and those of the
    local kind that have a name to connect to."""
    inodes, lines = socket_inodes(pid), []
    for table in TABLES:
        path = f"/proc/{pid}/net/{table}"
        if os.path.exists(path):
            with open(path, encoding="ascii") as file:
                lines += [line for line in file if inodes & set(line.split())]
    with open(f"/proc/{pid}/net/unix", encoding="utf-8", errors="replace") as file:
        lines += [line for line in file if len(line.split()) > 7 and line.split()[6] in inodes]
    return lines


def listens_on_loopback(pid, number):
    """Whether the process has one socket of a network, which listens at that port of 127.0.0.1."""
    lines = reachable(pid)
    listening = "0A"  # the kernel's number for the state
    return len(lines) == 1 and lines[0].split()[1] == f"0100007F:{number:04X}" and lines[0].split()[3] == listening


def on_a_network(programs, template):
    command = [os.path.join(programs, "zorvane-sim"), "--template", template, "--tcp", "0"]
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as controller:
        try:
            ready = controller.stdout.readline().decode()
            assert ready.startswith("ready tcp:127.0.0.1:"), ready
            number = int(ready.rsplit(":", 1)[1])
            assert listens_on_loopback(controller.pid, number), reachable(controller.pid)
        finally:
            controller.terminate()
        assert controller.stderr.read() == b"", "the loopback needs no warning"


def main(programs, template):
    on_a_network(programs, template)
    with tempfile.TemporaryDirectory() as folder:
        command = [os.path.join(programs, "zorvane-sim"), "--template", template, "--pty", folder + "/line"]
        with subprocess.Popen(command, stdout=subprocess.PIPE) as controller:
            try:
                ready = controller.stdout.readline()
                assert ready.startswith(b"ready"), ready
                assert socket_inodes(controller.pid), "the controller's own pair of sockets isn't seen"
                found = reachable(controller.pid)
                assert not found, f"sockets that others can reach: {found}"
            finally:
                controller.terminate()
    return 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
