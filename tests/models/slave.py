# SPDX-License-Identifier: MIT
"""A controller on a pseudo-terminal, of our own: holding registers, and a list of all that was written."""
import os
import pty
import select
import threading
import tty


def check_sum(frame):
    crc = 0xFFFF
    for byte in frame:
        crc ^= byte
        for _ in range(8):
            crc = (crc >> 1) ^ 0xA001 if crc & 1 else crc >> 1
    return crc.to_bytes(2, "little")


class Slave:
    """Serves registers by their numbers in the template until it is closed. What isn't there is refused with exception 2,
    what `refused` names with exception 4."""

    def __init__(self, registers, base=0, unit=1, refused=()):
        self.registers, self.base, self.unit, self.refused = dict(registers), base, unit, set(refused)
        self.writes, self.reads, self.others = [], 0, 0
        self.far, self.near = pty.openpty()
        tty.setraw(self.near)
        self.port = os.ttyname(self.near)
        self.ended = os.pipe()
        self.thread = threading.Thread(target=self.serve, daemon=True)
        self.thread.start()

    def close(self):
        os.write(self.ended[1], b"x")
        self.thread.join()
        for each in (self.far, self.near, *self.ended):
            os.close(each)

    def serve(self):
        held = b""
        while True:
            ready, _, _ = select.select([self.far, self.ended[0]], [], [])
            if self.ended[0] in ready:
                return
            held += os.read(self.far, 4096)
            while (length := self.whole(held)):
                request, held = held[:length], held[length:]
                if check_sum(request[:-2]) != request[-2:]:
                    held = b""
                elif request[0] == self.unit:
                    answer = self.answer(request)
                    os.write(self.far, answer + check_sum(answer))

    @staticmethod
    def whole(held):
        """The length of the request that the bytes begin with, 0 while it isn't whole."""
        if len(held) < 8:
            return 7 if len(held) == 7 and held[1] == 43 else 0
        length = 7 if held[1] == 43 else 9 + held[6] if held[1] == 16 else 8
        return length if len(held) >= length else 0

    def answer(self, request):
        function = request[1]
        if function not in (3, 6, 16):
            self.others += 1
            return bytes([self.unit, function | 0x80, 1])
        first = int.from_bytes(request[2:4], "big") + self.base
        count = 1 if function == 6 else int.from_bytes(request[4:6], "big")
        numbers = range(first, first + count)
        if function == 3:
            self.reads += 1
            if any(each not in self.registers for each in numbers):
                return bytes([self.unit, 0x83, 2])
            if any(each in self.refused for each in numbers):
                return bytes([self.unit, 0x83, 4])
            return bytes([self.unit, 3, 2 * count]) + b"".join(self.registers[each].to_bytes(2, "big") for each in numbers)
        data = request[4:6] if function == 6 else request[7:-2]
        words = [int.from_bytes(data[2 * i:2 * i + 2], "big") for i in range(count)]
        self.writes.append([function, first, words])
        self.registers.update(zip(numbers, words))
        return request[:6]
