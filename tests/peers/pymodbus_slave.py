#!/usr/bin/python3
"""A Modbus RTU slave on a pseudo-terminal, made of Debian's pymodbus: a controller that shares no code with ours.

    pymodbus_slave.py LINK REGISTERS.json [--slave N] [--dump FILE]

LINK becomes a symbolic link to the device. REGISTERS.json is {"address": value}. "ready LINK" on standard output
tells that the slave answers. SIGTERM ends it and writes the registers as they then are to the file of --dump.
"""
import argparse
import json
import os
import pty
import select
import signal
import sys
import threading
import tty

from pymodbus.datastore import ModbusServerContext, ModbusSlaveContext, ModbusSparseDataBlock
from pymodbus.framer.rtu_framer import ModbusRtuFramer
from pymodbus.server import StartSerialServer


def open_pair():
    """A pseudo-terminal in raw mode: its master's descriptor and its slave's path."""
    master, slave = pty.openpty()
    tty.setraw(slave)
    return master, os.ttyname(slave), slave


def relay(first, second):
    """Moves bytes both ways between two masters until one of them goes away."""
    other = {first: second, second: first}
    while True:
        for ready in select.select([first, second], [], [])[0]:
            try:
                os.write(other[ready], os.read(ready, 4096))
            except OSError:
                return


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("link")
    parser.add_argument("registers")
    parser.add_argument("--slave", type=int, default=1)
    parser.add_argument("--dump")
    arguments = parser.parse_args()

    with open(arguments.registers, encoding="ascii") as file:
        registers = {int(address): value for address, value in json.load(file).items()}
    block = ModbusSparseDataBlock(dict(registers))
    store = ModbusSlaveContext(hr=block, zero_mode=True)
    context = ModbusServerContext(slaves={arguments.slave: store}, single=False)

    line_master, line_path, _line = open_pair()
    slave_master, slave_path, _slave = open_pair()
    threading.Thread(target=relay, args=(line_master, slave_master), daemon=True).start()
    if os.path.islink(arguments.link):
        os.unlink(arguments.link)
    os.symlink(line_path, arguments.link)

    def stop(*_):
        os.unlink(arguments.link)
        if arguments.dump:
            with open(arguments.dump, "w", encoding="ascii") as file:
                json.dump({str(address): value for address, value in sorted(block.values.items())}, file)
        sys.stdout.flush()
        os._exit(0)

    signal.signal(signal.SIGTERM, stop)
    print("ready", arguments.link, flush=True)
    StartSerialServer(context=context, framer=ModbusRtuFramer, port=slave_path, baudrate=115200, timeout=0.05)


if __name__ == "__main__":
    main()
