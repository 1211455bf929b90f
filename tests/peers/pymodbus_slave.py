#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A Modbus RTU slave by pymodbus, on a pseudo-terminal or a serial device.

    pymodbus_slave.py LINE --registers FILE [--dump FILE] [--slave N] [--address-base N] [--object N=TEXT]...

LINE is an existing terminal device, or else the name of a link that is made to a new pseudo-terminal and removed at
the end. FILE is {"address": value, ...}, addresses being register numbers; the address on the wire is the number less
the address base. "ready LINE" on standard output says that the slave can be talked to. SIGTERM and SIGINT end it
with exit code 0, after its registers were written to the dump file in the same form.
"""

import argparse
import json
import os
import select
import signal
import stat
import sys
import tty

from pymodbus.datastore import ModbusSlaveContext, ModbusSparseDataBlock
from pymodbus.device import ModbusControlBlock, ModbusDeviceIdentification
from pymodbus.exceptions import ModbusException
from pymodbus.factory import ServerDecoder
from pymodbus.framer.rtu_framer import ModbusRtuFramer
from pymodbus.pdu import ModbusExceptions

# Bytes that made no request are forgotten after this silence.
SILENCE_SECONDS = 0.02


def parse_arguments():
    parser = argparse.ArgumentParser(description="Modbus RTU slave by pymodbus")
    parser.add_argument("line")
    parser.add_argument("--registers", required=True)
    parser.add_argument("--dump")
    parser.add_argument("--slave", type=int, default=1)
    parser.add_argument("--address-base", type=int, default=0)
    parser.add_argument("--object", action="append", default=[], help="of function 43/14")
    return parser.parse_args()


class Line:
    """The slave's end of the line."""

    def __init__(self, name):
        self.link = None
        if os.path.exists(name) and stat.S_ISCHR(os.stat(name).st_mode) and not os.path.islink(name):
            self.fd = os.open(name, os.O_RDWR | os.O_NOCTTY)
            tty.setraw(self.fd)
            return
        # The client's side stays open here too, so that clients may come and go.
        self.fd, self.client = os.openpty()
        tty.setraw(self.client)
        if os.path.islink(name):
            os.unlink(name)
        os.symlink(os.ttyname(self.client), name)
        self.link = name

    def close(self):
        if self.link:
            os.unlink(self.link)


class Slave:
    """pymodbus's framer, requests and registers."""

    def __init__(self, unit, registers, base):
        self.unit = unit
        self.base = base
        self.block = ModbusSparseDataBlock({int(number) - base: value for number, value in registers.items()})
        self.context = ModbusSlaveContext(hr=self.block, zero_mode=True)
        self.framer = ModbusRtuFramer(ServerDecoder())
        self.answers = []

    def take(self, data):
        """The bytes of the answers to what these bytes completed."""
        try:
            self.framer.processIncomingPacket(data, self.execute, [self.unit, 0])
        except (ModbusException, IndexError, KeyError) as error:
            print(f"pymodbus: {error}", file=sys.stderr)
            self.forget()
        answers, self.answers = b"".join(self.answers), []
        return answers

    def execute(self, request):
        try:
            response = request.execute(self.context)
        except Exception as error:  # the same that pymodbus's own servers do
            print(f"pymodbus: {error}", file=sys.stderr)
            response = request.doException(ModbusExceptions.SlaveFailure)
        if request.unit_id != 0:
            response.transaction_id = request.transaction_id
            response.unit_id = request.unit_id
            self.answers.append(self.framer.buildPacket(response))

    def forget(self):
        self.framer.resetFrame()

    def registers(self):
        return {str(address + self.base): value for address, value in sorted(self.block.values.items())}


def serve(line, slave, end):
    while True:
        readable, _, _ = select.select([line.fd, end], [], [], SILENCE_SECONDS if slave.framer._buffer else None)
        if end in readable:
            return
        if line.fd in readable:
            answer = slave.take(os.read(line.fd, 1024))
            if answer:
                os.write(line.fd, answer)
        else:
            slave.forget()


def end_signals():
    """A descriptor that becomes readable when the program is asked to end."""
    reading, writing = os.pipe()
    os.set_blocking(writing, False)
    signal.set_wakeup_fd(writing)
    for number in (signal.SIGTERM, signal.SIGINT):
        signal.signal(number, lambda *_: None)
    return reading


def main():
    arguments = parse_arguments()
    with open(arguments.registers, encoding="utf-8") as file:
        registers = json.load(file)
    objects = dict(text.split("=", 1) for text in arguments.object)
    # The class knows the identity of one controller only, and copies what it is given into it.
    ModbusControlBlock().Identity.update(
        ModbusDeviceIdentification({int(number): text for number, text in objects.items()}))
    slave = Slave(arguments.slave, registers, arguments.address_base)
    end = end_signals()
    line = Line(arguments.line)
    print(f"ready {arguments.line}", flush=True)
    try:
        serve(line, slave, end)
    finally:
        line.close()
        if arguments.dump:
            with open(arguments.dump, "w", encoding="utf-8") as file:
                json.dump(slave.registers(), file, indent=1)
                file.write("\n")


if __name__ == "__main__":
    main()
