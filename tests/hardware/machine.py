# SPDX-License-Identifier: MIT
"""A machine of QEMU with USB serial adapters that can be pulled out and plugged in, and commands in its guest."""
import json
import os
import queue
import re
import socket
import subprocess
import threading
import time

BOOT_SECONDS = 120
CONNECT_SECONDS = 10
COMMAND_SECONDS = 60
SET_LATENCY = "0x4009"  # the adapter's request for its latency timer, in QEMU's trace


class Failure(Exception):
    """The machine, or what runs in it, doesn't do what it must."""


def connected(path, has_ended):
    """A connection to a socket that is there as soon as QEMU has made it."""
    deadline = time.monotonic() + CONNECT_SECONDS
    while True:
        connection = socket.socket(socket.AF_UNIX)
        try:
            connection.connect(path)
            return connection
        except OSError as reason:
            connection.close()
            if why := has_ended():
                raise Failure(why) from None
            if time.monotonic() > deadline:
                raise Failure(f"QEMU makes no socket {path} in {CONNECT_SECONDS} s: {reason}") from None
            time.sleep(0.02)


class Wire:
    """What lies between an adapter and its controller, on the loopback. Nothing comes out of it for an adapter that is
    pulled: QEMU 7.2 was seen to end with a segmentation fault when one was taken away in the middle of answers."""

    def __init__(self, controller):
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.address = self.listener.getsockname()
        self.controller = socket.create_connection(controller)
        self.is_whole = False
        self.lock = threading.Lock()
        threading.Thread(target=self.carry, daemon=True).start()

    def carry(self):
        try:
            with self.listener.accept()[0] as adapter:
                threading.Thread(target=self.to_controller, args=[adapter], daemon=True).start()
                while data := self.controller.recv(4096):
                    with self.lock:
                        if self.is_whole:
                            adapter.sendall(data)
        except OSError:
            pass  # the machine, or the controller, was stopped

    def to_controller(self, adapter):
        try:
            while data := adapter.recv(4096):
                self.controller.sendall(data)
        except OSError:
            pass

    def join(self):
        with self.lock:
            self.is_whole = True

    def cut(self):
        with self.lock:
            self.is_whole = False

    def stop(self):
        self.cut()
        self.listener.close()
        self.controller.close()


class Job:
    """A command in the guest. Its lines come with the moment at which they arrived here."""

    def __init__(self):
        self.lines = queue.Queue()
        self.seen = []
        self.exit = None
        self.ended = None

    def line(self, wanted, seconds=COMMAND_SECONDS):
        """Moment and text of the next line that is wanted."""
        deadline = time.monotonic() + seconds
        while True:
            try:
                when, text = self.lines.get(timeout=max(0.0, deadline - time.monotonic()))
            except queue.Empty:
                raise Failure(f"nothing came in {seconds} s; before it: {self.text()[-2000:]}") from None
            if text is None:
                raise Failure(f"it has ended with {self.exit}: {self.text()[-2000:]}")
            self.seen.append(text)
            if wanted(text):
                return when, text

    def end(self, seconds=COMMAND_SECONDS):
        """Exit code and all that was said; a command that doesn't end in time is a failure."""
        deadline = time.monotonic() + seconds
        while self.exit is None or not self.lines.empty():
            try:
                when, text = self.lines.get(timeout=max(0.0, deadline - time.monotonic()))
            except queue.Empty:
                raise Failure(f"it hasn't ended in {seconds} s: {self.text()[-2000:]}") from None
            if text is not None:
                self.seen.append(text)
            else:
                self.ended = when
        return self.exit, self.text()

    def text(self):
        return "\n".join(self.seen)

    def pid(self):
        return int(self.line(lambda text: text.startswith("pid "))[1][4:])


class Guest:
    """Commands over the guest's second serial port."""

    def __init__(self, connection):
        self.connection = connection
        self.jobs = {}
        self.ready = threading.Event()
        self.reader = threading.Thread(target=self.read, daemon=True)
        self.reader.start()

    def read(self):
        with self.connection.makefile("r", encoding="utf-8", errors="replace", newline="\n") as lines:
            for line in lines:
                self.take(time.monotonic(), line.rstrip("\r\n"))

    def take(self, when, line):
        if line.endswith("ready"):
            self.ready.set()
        found = re.match(r"(\d+)([:=])(.*)", line)
        if not found:
            return
        job = self.jobs[int(found[1])]
        if found[2] == "=":
            job.exit = int(found[3])
            job.lines.put((when, None))
        else:
            job.lines.put((when, found[3]))

    def start(self, command):
        job = Job()
        number = len(self.jobs) + 1
        self.jobs[number] = job
        self.connection.sendall(f"{number} {command}\n".encode())
        return job

    def run(self, command, seconds=COMMAND_SECONDS):
        return self.start(command).end(seconds)

    def said(self, command):
        code, text = self.run(command)
        if code != 0:
            raise Failure(f"{command} ended with {code}: {text}")
        return text

    def processor(self, pid):
        """Seconds that a process has used so far, and those of the clock, both of the guest."""
        process, clock = self.said(f"cat /proc/{pid}/stat /proc/uptime").splitlines()
        fields = process.rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / 100, float(clock.split()[0])


class Monitor:
    """QEMU's machine protocol (QMP)."""

    def __init__(self, connection):
        self.stream = connection.makefile("rw", encoding="utf-8", newline="\n")
        self.stream.readline()
        self.ask("qmp_capabilities")

    def ask(self, command, **arguments):
        try:
            self.stream.write(json.dumps({"execute": command, "arguments": arguments}) + "\n")
            self.stream.flush()
            return self.answer(command)
        except (OSError, ValueError) as reason:
            raise Failure(f"QEMU doesn't answer {command}: {reason}") from None

    def answer(self, command):
        while True:
            answer = json.loads(self.stream.readline())
            if "error" in answer:
                raise Failure(f"{command}: {answer['error']['desc']}")
            if "return" in answer:
                return answer["return"]


class Adapter:
    """A USB serial adapter of the kernel's driver ftdi_sio, with the line behind it."""

    def __init__(self, machine, name, serial):
        self.machine = machine
        self.name = name
        self.serial = serial
        self.is_in = False

    def plug(self):
        """The moment of it. QEMU lets go of the line some time after a pull."""
        deadline = time.monotonic() + 10
        while True:
            moment = time.monotonic()
            try:
                self.machine.monitor.ask("device_add", driver="usb-serial", id=self.name, chardev=f"line-{self.name}",
                                         bus="usb.0", serial=self.serial, **{"always-plugged": True})
                self.is_in = True
                self.machine.join(self.name)
                return moment
            except Failure:
                if time.monotonic() > deadline:
                    raise
                time.sleep(0.02)

    def pull(self):
        """The moment of it."""
        self.is_in = False
        self.machine.cut(self.name)
        moment = time.monotonic()
        self.machine.monitor.ask("device_del", id=self.name)
        return moment

    def port(self):
        """The guest's name of its port, once the driver has given it one."""
        return self.machine.guest.said(f"port_of {self.serial}")


class Machine:
    """REQUIRES: `folder` is empty and stays until `stop`."""

    def __init__(self, folder, kernel, image, lines):
        """`lines`: host and port of what is at each adapter, by the adapter's name; nothing for a silent one."""
        self.wires = {name: Wire(address) for name, address in lines.items() if address}
        self.trace_file = os.path.join(folder, "trace")
        self.console_file = os.path.join(folder, "console")
        command = ["qemu-system-x86_64", "-nic", "none", "-cpu", "max", "-m", "512", "-display", "none", "-no-reboot",
                   "-kernel", kernel, "-initrd", image, "-append", "console=ttyS0 quiet panic=-1",
                   "-device", "qemu-xhci,id=usb", "-serial", f"file:{self.console_file}",
                   "-chardev", f"socket,id=agent,path={folder}/agent,server=on,wait=off",
                   "-device", "pci-serial,chardev=agent",
                   "-qmp", f"unix:{folder}/monitor,server=on,wait=off", "-trace", "usb_serial_*", "-D", self.trace_file]
        for name in lines:
            wire = self.wires.get(name)
            backend = f"socket,host={wire.address[0]},port={wire.address[1]}" if wire else "null"
            command += ["-chardev", f"{backend},id=line-{name}"]
        self.errors_file = os.path.join(folder, "errors")
        with open(self.errors_file, "wb") as errors:
            self.process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=errors, stderr=errors)
        self.connections = []
        try:
            self.monitor = Monitor(self.connection(os.path.join(folder, "monitor")))
            self.guest = Guest(self.connection(os.path.join(folder, "agent")))
            self.wait_until_ready()
        except BaseException:
            self.stop()
            raise

    def connection(self, path):
        self.connections.append(connected(path, self.has_ended))
        return self.connections[-1]

    def has_ended(self):
        """How QEMU ended; nothing while it runs."""
        code = self.process.poll()
        if code is None:
            return None
        with open(self.errors_file, encoding="utf-8", errors="replace") as file:
            return f"QEMU has ended with {code}: {file.read().strip()[-2000:] or 'it said nothing'}"

    def cut(self, name):
        """Until the wire is joined nothing comes for the adapter; what came before has been taken."""
        if name in self.wires:
            self.wires[name].cut()
            for _ in range(2):  # each takes a turn of QEMU's main loop, which takes what has come as well
                self.monitor.ask("query-status")

    def join(self, name):
        if name in self.wires:
            self.wires[name].join()

    def wait_until_ready(self):
        deadline = time.monotonic() + BOOT_SECONDS
        while not self.guest.ready.wait(0.1):
            if why := self.has_ended():
                raise Failure(f"{why}; its console: {self.console()[-2000:]}")
            if time.monotonic() > deadline:
                raise Failure(f"the guest isn't ready in {BOOT_SECONDS} s: {self.console()[-2000:]}")

    def console(self):
        with open(self.console_file, encoding="utf-8", errors="replace") as file:
            return file.read()

    def trace_size(self):
        return os.path.getsize(self.trace_file)

    def line_set(self, since):
        """Baud, parity, data bits and stop bits that the driver had set at an adapter when the last opening ended, as
        QEMU traced it. An opening ends with the wish for a short latency; a close puts back what was before."""
        with open(self.trace_file, encoding="ascii", errors="replace") as file:
            file.seek(since)
            text = file.read().rpartition(f"got control {SET_LATENCY},")[0]
        baud = re.findall(r"usb_serial_set_baud .* baud rate (\d+)", text)
        data = re.findall(r"usb_serial_set_data .* parity (\w), data bits (\d), stop bits (\d)", text)
        return (int(baud[-1]), data[-1][0].lower(), int(data[-1][1]), int(data[-1][2])) if baud and data else None

    def stop(self):
        self.process.kill()
        self.process.wait()
        for connection in self.connections:
            connection.close()
        for wire in self.wires.values():
            wire.stop()
