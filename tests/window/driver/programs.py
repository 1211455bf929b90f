# SPDX-License-Identifier: MIT
"""The other two programs: the terminal program, to compare with, and the simulated controller."""
import json
import os
import signal
import subprocess
import sys

READY_S = 30
SINGLE_WRITE, MULTIPLE_WRITE = 6, 16
PEERS = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "peers"))


class Terminal:
    """`zorvanectl`, which understands the same documents without a window."""

    def __init__(self, programs, desktop):
        self._programs = programs
        self._data = desktop.environment["XDG_DATA_HOME"]  # the recovery copies are the window's

    def ask(self, call, *arguments, exits=0):
        command = [os.path.join(self._programs, "zorvanectl"), call, *map(str, arguments), "--json"]
        done = subprocess.run(command, capture_output=True, timeout=60,
                              env={**os.environ, "XDG_DATA_HOME": self._data})
        assert done.returncode == exits, f"{' '.join(command)}: {done.stdout} {done.stderr}"
        return json.loads(done.stdout)

    def headings(self, template, config, field):
        return self.ask("show", template, config, field)["headings"]

    def settings(self, template, config, field):
        """The lower grid's texts for a field."""
        return self.ask("show", template, config, field)["grid"]

    def fields(self, template, *config):
        """The upper grid's texts: a number, the field's name, and what the document says over them."""
        document = self.ask("dump", template, *config)
        rows = []
        for number in range(1, document["Field_Count"] + 1):
            field = document["Fields"][str(number)]
            row = [""] * document["Config_Column_Count"]
            row[0] = str(number) if document["Numeric_Rows"] else ""
            row[1] = field["Description"]
            for column, text in enumerate(field["Config_Values"]):
                row[column] = text or row[column]
            rows.append(row)
        return rows


class Simulator:
    """A simulated controller on a pseudo-terminal, whose path is `port`."""

    def __init__(self, desktop, programs, template, *options, name="controller"):
        self.port = desktop.path(name)
        self.log = desktop.path("logs", name + ".json")
        command = [os.path.join(programs, "zorvane-sim"), "--template", template, "--pty", self.port, "--log",
                   self.log, *options]
        self.process = desktop.start(command, name, stdout=subprocess.PIPE)
        line = self.process.stdout.readline().decode()
        assert line.startswith("ready"), f"the simulator did not start: {line!r}"

    def stop(self):
        self.process.terminate()
        self.process.wait(READY_S)

    def pause(self):
        """Leaves the line open and answers nothing."""
        self.process.send_signal(signal.SIGSTOP)

    def resume(self):
        self.process.send_signal(signal.SIGCONT)

    def writes(self):
        """The write requests so far, whether they were answered or not."""
        return [frame for frame in self.frames()
                if frame.get("direction") == "in" and frame.get("function") in (SINGLE_WRITE, MULTIPLE_WRITE)]

    def frames(self):
        """All frames so far, as the simulator logged them."""
        if not os.path.exists(self.log):
            return []
        with open(self.log, encoding="utf-8") as log:
            return [json.loads(line) for line in log if line.endswith("\n")]


class Peer:
    """A program that isn't Zorvane's own at the other end of the line, whose path is `port`: the script of that name
    in `tests/peers`, which says "ready"."""

    def __init__(self, desktop, script, *options, name="peer"):
        self.port = desktop.path(name)
        command = [sys.executable, os.path.join(PEERS, script), self.port, *options]
        self.process = desktop.start(command, name, stdout=subprocess.PIPE)
        line = self.process.stdout.readline().decode()
        assert line.startswith("ready"), f"{script} did not start: {line!r}"

    def stop(self):
        self.process.terminate()
        self.process.wait(READY_S)


class Pymodbus_Slave(Peer):
    """A slave by pymodbus that holds these registers, by number, and refuses all others."""

    def __init__(self, desktop, registers, name="pymodbus"):
        given = desktop.path(name + "_registers.json")
        self._dump = desktop.path(name + "_dump.json")
        with open(given, "w", encoding="ascii") as file:
            json.dump(registers, file)
        super().__init__(desktop, "pymodbus_slave.py", "--registers", given, "--dump", self._dump, name=name)

    def registers(self):
        """Ends the slave, and gives what it held."""
        self.stop()
        with open(self._dump, encoding="utf-8") as file:
            return {int(address): value for address, value in json.load(file).items()}


class Desktop_Services(Peer):
    """The services of a desktop that the program may ask, and what they were asked."""

    def __init__(self, desktop):
        super().__init__(desktop, "desktop_services.py", name="services")
        os.set_blocking(self.process.stdout.fileno(), False)
        self._lines = []

    def said(self):
        """All lines so far."""
        self._lines += [line.decode().rstrip("\n") for line in self.process.stdout.readlines()]
        return self._lines
