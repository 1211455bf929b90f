# SPDX-License-Identifier: MIT
"""Frames of Modbus RTU as pymodbus understands them: nothing of this is Zorvane's own."""
from pymodbus.factory import ClientDecoder, ServerDecoder
from pymodbus.utilities import checkCRC


def _body(hex_pairs):
    frame = bytes.fromhex(hex_pairs)
    assert len(frame) >= 4 and checkCRC(frame[:-2], int.from_bytes(frame[-2:], "big")), f"bad check sum: {hex_pairs}"
    return frame[0], frame[1:-2]


def request(hex_pairs):
    """Unit, function, first register and number of registers of a request."""
    unit, body = _body(hex_pairs)
    decoded = ServerDecoder().decode(body)
    return unit, decoded.function_code, decoded.address, getattr(decoded, "count", 1)


def values_read(hex_pairs):
    """What an answer to function 3 says, or the exception's number as "exception N"."""
    _, body = _body(hex_pairs)
    decoded = ClientDecoder().decode(body)
    return f"exception {decoded.exception_code}" if decoded.isError() else list(decoded.registers)
