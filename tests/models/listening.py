# SPDX-License-Identifier: MIT
"""What was said on a bus, and what somebody who only listens has to make of it: every whole frame, which request got which
answer, and a file of them. Lengths of frames are those of "MODBUS Application Protocol Specification V1.1b3"."""
import json
import os
import pty
import struct
import threading
import tty

from slave import check_sum

FUNCTIONS = [1, 2, 3, 3, 3, 3, 4, 4, 5, 6, 6, 7, 8, 11, 15, 16, 16, 17, 22, 23, 43]


def words(dice, count):
    return bytes(dice.randrange(256) for _ in range(2 * count))


def two(number):
    return number.to_bytes(2, "big")


def exchange(dice, unit, function):
    """A request, its answer, and what it is about."""
    address, count, few = dice.randrange(40000), dice.randint(1, 20), dice.randint(1, 10)
    head = bytes([unit, function])
    if function in (1, 2):
        count = count % 16 + 1  # with three bytes an answer looks like a request
        size = (count + 7) // 8
        return head + two(address) + two(count), head + bytes([size]) + words(dice, size)[:size], (address, count)
    if function in (3, 4):
        return head + two(address) + two(count), head + bytes([2 * count]) + words(dice, count), (address, count)
    if function in (5, 6):
        request = head + two(address) + (words(dice, 1) if function == 6 else dice.choice([b"\xff\x00", b"\0\0"]))
        return request, request, (address, 1)
    if function == 7:
        return head, head + words(dice, 1)[:1], (0, 0)
    if function == 8:
        request = head + b"\0\0" + words(dice, 1)
        return request, request, (0, 0)
    if function == 11:
        return head, head + b"\0\0" + words(dice, 1), (0, 0)
    if function == 15:
        size = (few + 7) // 8
        return head + two(address) + two(few) + bytes([size]) + words(dice, size)[:size], head + two(address) + two(few), \
            (address, few)
    if function == 16:
        return head + two(address) + two(few) + bytes([2 * few]) + words(dice, few), head + two(address) + two(few), (address, few)
    if function == 17:
        return head, head + bytes([few]) + words(dice, few)[:few], (0, 0)
    if function == 22:
        request = head + two(address) + words(dice, 2)
        return request, request, (address, 1)
    if function == 23:
        return head + two(address) + two(count) + two(address + 50) + two(few) + bytes([2 * few]) + words(dice, few), \
            head + bytes([2 * count]) + words(dice, count), (address, count)
    text = words(dice, few)[:few]
    return head + bytes([14, 1, 0]), head + bytes([14, 1, 1, 0, 0, 1, 0, len(text)]) + text, (0, 0)


def request_length(rest):
    function = rest[1] if len(rest) > 1 else 0
    if function in (1, 2, 3, 4, 5, 6, 8):
        return 8
    if function in (7, 11, 17):
        return 4
    if function in (15, 16):
        return 9 + rest[6] if len(rest) > 6 else 0
    return {22: 10, 43: 7}.get(function, 13 + rest[10] if function == 23 and len(rest) > 10 else 0)


def answer_lengths(rest):
    function = rest[1] if len(rest) > 1 else 0
    if function & 0x80:
        return [5]
    if function in (1, 2, 3, 4, 17, 23):
        return [5 + rest[2]] if len(rest) > 2 else []
    if function == 43 and len(rest) > 7:
        end = 8
        for _ in range(rest[7]):
            if end + 1 >= len(rest):
                return []
            end += 2 + rest[end + 1]
        return [end + 2]
    return [{5: 8, 6: 8, 7: 5, 8: 8, 11: 8, 15: 8, 16: 8, 22: 10}.get(function, 0)]


def by_chance(stream, true):
    """Whether bytes look like a frame where nobody sent one."""
    for at in range(len(stream) - 3):
        rest = stream[at:at + 300]
        for length in {request_length(rest), *answer_lengths(rest)} - {0}:
            if length <= len(rest) and length >= 4 and check_sum(rest[:length - 2]) == rest[length - 2:length] \
                    and (at, length) not in true:
                return True
    return False


class Bus:
    """Frames as they are sent, with what becomes of them on the way."""

    def __init__(self, dice):
        self.dice, self.stream, self.true, self.frames = dice, b"", set(), []
        self.last = None  # unit of the exchange before

    def noise(self):
        self.stream += bytes(self.dice.randrange(256) for _ in range(self.dice.randint(1, 12)))

    def send(self, kind, frame, about, fate):
        frame += check_sum(frame)
        if fate == "lost":
            return
        if fate == "damaged":
            place = self.dice.randrange(len(frame))
            self.stream += frame[:place] + bytes([frame[place] ^ self.dice.randint(1, 255)]) + frame[place + 1:]
        elif fate == "cut":
            self.stream += frame[:self.dice.randrange(1, len(frame))]
        else:
            self.true.add((len(self.stream), len(frame)))
            self.frames.append({"kind": kind, "bytes": frame.hex(), "about": about, "partner": None})
            self.stream += frame

    def talk(self):
        """One exchange. The unit is another one than before, so that nothing fits what came before."""
        dice = self.dice
        unit = dice.choice([each for each in range(1, 12) if each != self.last])
        self.last = unit
        function = dice.choice(FUNCTIONS)
        request, answer, about = exchange(dice, unit, function)
        asked = [unit, function, *about]
        fate = dice.choice(["good"] * 12 + ["damaged", "cut", "lost"])
        self.send("request", request, asked, fate)
        if dice.random() < 0.15:
            self.noise()
        kind = dice.choice(["answer"] * 8 + ["refusal", "none"])
        if kind == "refusal":
            answer = bytes([unit, function | 0x80, dice.randint(1, 11)])
        asked_well = fate == "good"
        fate = "lost" if kind == "none" else dice.choice(["good"] * 12 + ["damaged", "cut"])
        alike = not asked_well and answer == request  # nobody can tell it from the request
        self.send("request" if alike else kind, answer, asked, fate)
        if asked_well and fate == "good":
            self.frames[-1]["partner"], self.frames[-2]["partner"] = len(self.frames) - 2, len(self.frames) - 1
        if dice.random() < 0.15:
            self.noise()


    def talk_late(self):
        """An answer that comes after its request was sent again, and then that one's. Only the second pair is certain."""
        unit = self.dice.choice([each for each in range(1, 12) if each != self.last])
        self.last = unit
        request, answer, about = exchange(self.dice, unit, 3)
        other = answer[:3] + words(self.dice, about[1])
        for kind, frame in (("request", request), ("request", request), ("answer", answer), ("answer", other)):
            self.send(kind, frame, [unit, 3, *about], "good")
        self.frames[-1]["partner"], self.frames[-3]["partner"] = len(self.frames) - 3, len(self.frames) - 1


def bus(dice):
    while True:
        made = Bus(dice)
        for _ in range(dice.randint(2, 60)):
            (made.talk_late if dice.random() < 0.03 else made.talk)()
        for _ in range(2):  # what ends it: two exchanges that nothing happened to
            request, answer, about = exchange(dice, 99, 3)
            made.send("request", request, [99, 3, *about], "good")
            made.send("answer", answer, [99, 3, *about], "good")
            made.frames[-1]["partner"], made.frames[-2]["partner"] = len(made.frames) - 2, len(made.frames) - 1
        if not by_chance(made.stream, made.true):
            return {"stream": made.stream.hex(), "frames": made.frames, "parcel": dice.choice([1, 3, 16, 64, 700])}


def sums(frames):
    requests = sum(each["kind"] == "request" for each in frames)
    return {"requests": requests, "answers": len(frames) - requests, "unpaired": sum(each["partner"] is None for each in frames)}


def outcome(case):
    frames = case["frames"]
    units = {}
    for unit in sorted({each["about"][0] for each in frames}):
        mine = [each for each in frames if each["about"][0] == unit]
        asks = {}
        for each in mine:
            if each["kind"] == "request":
                asks.setdefault(str(each["about"][1:]), []).append(each["partner"])
        units[str(unit)] = sums(mine) | {"refusals": sum(each["kind"] == "refusal" for each in mine), "asks": {
            name: {"times": len(partners), "answered": sum(each is not None for each in partners),
                   "refused": sum(each is not None and frames[each]["kind"] == "refusal" for each in partners)}
            for name, partners in asks.items()}}
    return {"exit": 0, "frames": len(frames), "units": units, "file": [each["bytes"] for each in frames]} | sums(frames)


# Our own reader of the file.

def packets(data):
    """The frames of a pcapng file whose packets name their dissector."""
    at, order, frames, link = 0, "<", [], None
    while at < len(data):
        if data[at:at + 4] == b"\x0a\x0d\x0d\x0a":
            order = "<" if data[at + 8:at + 12] == b"\x4d\x3c\x2b\x1a" else ">"
        kind, length = struct.unpack(order + "II", data[at:at + 8])
        assert length % 4 == 0 and data[at + length - 4:at + length] == struct.pack(order + "I", length), "a block's lengths"
        if kind == 1:
            link = struct.unpack(order + "H", data[at + 8:at + 10])[0]
        if kind == 6:
            captured, original = struct.unpack(order + "II", data[at + 20:at + 28])
            assert captured == original and link == 252
            packet, place, names = data[at + 28:at + 28 + captured], 0, {}
            while True:
                tag, size = struct.unpack(">HH", packet[place:place + 4])
                names[tag] = packet[place + 4:place + 4 + size]
                place += 4 + size
                if tag == 0:
                    break
            assert names[12].rstrip(b"\0") == b"mbrtu", names
            frames.append(packet[place:].hex())
        at += length
    return frames


def heard(case, place):
    far, near = pty.openpty()
    tty.setraw(near)
    stream = bytes.fromhex(case["stream"])

    def speak():
        for at in range(0, len(stream), case["parcel"]):
            os.write(far, stream[at:at + case["parcel"]])
    speaker = threading.Thread(target=speak)
    speaker.start()
    code, out, err = place.ctl("listen", "--port", os.ttyname(near), "--json", "--out", place.path("heard.pcapng"), "--frames",
                               str(len(case["frames"])), "--seconds", "20")
    os.set_blocking(near, False)
    while speaker.is_alive():  # a listener that ended early leaves bytes on the line
        speaker.join(0.01)
        try:
            os.read(near, 4096)
        except BlockingIOError:
            pass
    os.close(far)
    os.close(near)
    if code:
        return {"exit": code, "error": err}
    told = json.loads(out)
    units = {str(each["unit"]): {name: each[name] for name in ("requests", "answers", "refusals", "unpaired")} | {"asks": {
        str([ask["function"], ask["address"], ask["count"]]): {name: ask[name] for name in ("times", "answered", "refused")}
        for ask in each["asks"]}} for each in told["units"]}
    return {"exit": code, "units": units, "file": packets(place.read("heard.pcapng"))} | {
        name: told[name] for name in ("frames", "requests", "answers", "unpaired")}
