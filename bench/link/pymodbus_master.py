# SPDX-License-Identifier: MIT
"""A pymodbus RTU master that is told what to do over its standard input.

    pymodbus_master.py DEVICE BAUD

Each line "FUNCTION ADDRESS COUNT TIMES" makes that many exchanges one after the other: function 3 reads COUNT
registers, function 6 writes the value that the register should have. The answer is one line: the time of each
exchange in ms, or "failed" and why.
"""

import sys
import time

from pymodbus.client import ModbusSerialClient


def expected_value(address):
    return (address * 7 + 1) & 0xFFFF


def exchange(client, function, address, count):
    """The time of one exchange in ms."""
    begin = time.perf_counter()
    if function == 3:
        answer = client.read_holding_registers(address, count, slave=1)
    else:
        answer = client.write_register(address, expected_value(address), slave=1)
    took = (time.perf_counter() - begin) * 1000
    if answer.isError():
        raise RuntimeError(str(answer))
    if function == 3 and answer.registers != [expected_value(address + i) for i in range(count)]:
        raise RuntimeError("a wrong value")
    return took


def main():
    device, baud = sys.argv[1], int(sys.argv[2])
    # 11 bits a character as the others have; a pseudo-terminal knows no parity, and pyserial minds.
    client = ModbusSerialClient(port=device, baudrate=baud, parity="N", bytesize=8, stopbits=2, timeout=2, retries=0)
    if not client.connect():
        sys.exit(f"{device} can't be opened")
    print("ready", flush=True)
    for line in sys.stdin:
        function, address, count, times = map(int, line.split())
        try:
            print(" ".join(f"{exchange(client, function, address, count):.6f}" for _ in range(times)), flush=True)
        except Exception as error:  # whatever went wrong is told to the one who asked
            print(f"failed: {error}", flush=True)


if __name__ == "__main__":
    main()
