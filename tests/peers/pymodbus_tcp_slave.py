#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""A Modbus TCP server by pymodbus, on the loopback, for one client at a time.

    pymodbus_tcp_slave.py --registers FILE [--dump FILE] [--slave N]

FILE is {"address": value, ...}, addresses as on the wire. "ready tcp:127.0.0.1:PORT" on standard output says where it
can be talked to. SIGTERM ends it with exit code 0, after its registers were written to the dump file in the same form.
"""
import argparse
import json
import select
import socket

from pymodbus.factory import ServerDecoder
from pymodbus.framer.socket_framer import ModbusSocketFramer

from pymodbus_slave import Slave, end_signals


def parse_arguments():
    parser = argparse.ArgumentParser(description="Modbus TCP server by pymodbus")
    parser.add_argument("--registers", required=True)
    parser.add_argument("--dump")
    parser.add_argument("--slave", type=int, default=1)
    return parser.parse_args()


def serve(listener, slave, end):
    client = None
    while True:
        readable, _, _ = select.select([client or listener, end], [], [])
        if end in readable:
            return
        if client is None:
            client, _ = listener.accept()
            slave.forget()
            continue
        try:
            data = client.recv(1024)
        except ConnectionError:
            data = b""
        if data:
            client.sendall(slave.take(data))
        else:
            client.close()
            client = None


def main():
    arguments = parse_arguments()
    with open(arguments.registers, encoding="utf-8") as file:
        registers = json.load(file)
    slave = Slave(arguments.slave, registers, 0)
    slave.framer = ModbusSocketFramer(ServerDecoder())
    end = end_signals()
    with socket.create_server(("127.0.0.1", 0)) as listener:
        print(f"ready tcp:127.0.0.1:{listener.getsockname()[1]}", flush=True)
        serve(listener, slave, end)
    if arguments.dump:
        with open(arguments.dump, "w", encoding="utf-8") as file:
            json.dump(slave.registers(), file)


if __name__ == "__main__":
    main()
