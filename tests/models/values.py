# SPDX-License-Identifier: MIT
"""Numbers, times, registers and colours as texts: what each conversion has to give. Written without the program's code."""
import math
import re
from decimal import ROUND_HALF_EVEN, Decimal

NUMBER = re.compile(r"[+-]?(?:\d+\.?\d*|\.\d+)(?:[eEdD][+-]?\d+)?", re.ASCII)


class Failure(Exception):
    """A run-time failure, by its number."""

    def __init__(self, number):
        super().__init__(number)
        self.number = number


def val(text):
    """The longest numeric beginning; 0 when there is none, and without end when no double holds it."""
    found = NUMBER.match(text.lstrip(" "))
    return float(found.group().upper().replace("D", "E")) if found else 0.0


def is_numeric(text):
    return NUMBER.fullmatch(text.strip(" ")) is not None


def to_whole(number, bits):
    beyond = 2**(bits - 1)
    if not -beyond - 1 < number < beyond:  # no number, too
        raise Failure(6)
    whole = int(Decimal(number).quantize(Decimal(1), ROUND_HALF_EVEN))
    if not -beyond <= whole < beyond:
        raise Failure(6)
    return whole


def to_long(number):
    return to_whole(number, 32)


def to_integer(number):
    return to_whole(number, 16)


def long_of(text):
    return to_long(val(text))


def strict_double(text):
    if not is_numeric(text):
        raise Failure(13)
    return val(text)


def strict_long(text):
    return to_long(strict_double(text))


def number_text(number):
    """At most 15 significant digits, an exponent from 1e15 on only."""
    if math.isinf(number):
        raise Failure(6)
    digits, power = f"{number:.14e}".split("e")
    if int(power) >= 15:
        return digits.rstrip("0").rstrip(".") + f"E+{int(power)}"
    text = format(Decimal(f"{digits}e{power}"), "f")
    text = text.rstrip("0").rstrip(".") if "." in text else text
    return "0" if number == 0 else text


def quotient(number, divisor):
    """Cut toward zero."""
    whole = abs(number) // divisor
    return whole if number >= 0 else -whole


def rest(number, divisor):
    return number - quotient(number, divisor) * divisor


def two_digits(number):
    return ("-" if number < 0 else "") + f"{abs(number):02d}"


def time_text(seconds):
    part = str(rest(seconds, 60))
    return f"{quotient(seconds, 60)}:{'0' + part if len(part) == 1 else part}"


def time_seconds(text):
    place = text.find(":")
    if place < 0:
        return 0
    return to_long(val(text[:place]) * 60 + val(text[place + 1:]))


def is_time(text):
    place = text.find(":")
    return place >= 0 and is_numeric(text[:place]) and is_numeric(text[place + 1:])


def signed(register):
    return register - 65536 if register >= 32768 else register


def characters(registers):
    text = ""
    for register in registers:
        high = quotient(signed(register), 256)
        text += chr(high) if 1 <= high <= 255 else "-"
        low = register & 255
        text += chr(low) if low else "-"
    return text


def half_of(address):
    """The register's number and which half, or nothing."""
    number, slash, half = address.partition("/")
    return (number, half) if slash and is_numeric(number) and half in ("HI", "LO") else None


def message_text(cell, code):
    return next((text for number, text in cell["messages"] or [] if number == code), "")


COLOURS = {"BLACK": 0x404040, "WHITE": 0xFFFFFF, "YELLOW": 0xC0FFFF, "BLUE": 0xC00000, "GREEN": 0x80FF80, "RED": 0x0000FF,
           "ORANGE": 0x80C0FF, "PURPLE": 0xFF80FF, "0": 0xFFFFFF}


def colour(word):
    return COLOURS.get(word.strip(" ").upper(), 0)
