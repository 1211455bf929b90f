# SPDX-License-Identifier: MIT
"""Waiting for what a program shows: by condition, with a deadline, never by a fixed time."""
import threading
import time

DEADLINE = 30.0  # seconds; a busy machine may take long, a good one never comes near it
PAUSE = 0.02


class Vanished(Exception):
    """What was asked is no longer on the screen, or not yet."""


class Given_Up(Exception):
    """Nothing of what is waited for can come any more."""


given_up = threading.Event()  # a program that is killed on purpose sets it: every wait then ends at once


def _tries(deadline):
    end = time.monotonic() + deadline
    while True:
        yield
        if time.monotonic() >= end:
            return
        if given_up.wait(PAUSE):
            raise Given_Up


def wait_for(what, probe, deadline=DEADLINE):
    """The first true answer of `probe`; `what` names it in the failure's message."""
    last = None
    for _ in _tries(deadline):
        try:
            last = probe()
        except Vanished as gone:
            last = gone
        else:
            if last:
                return last
    raise AssertionError(f"waited {deadline:g} s for {what}; last seen: {last!r}")


def expect(what, read, wanted, deadline=DEADLINE):
    """Waits until `read` gives `wanted`; the failure's message says what it gave instead."""
    seen = None
    for _ in _tries(deadline):
        try:
            seen = read()
        except Vanished as gone:
            seen = gone
        if seen == wanted:
            return
    raise AssertionError(f"{what}: expected {wanted!r}, saw {seen!r} after {deadline:g} s")


def expect_while(what, read, wanted, lasts):
    """`read` gives `wanted` each time it is asked while `lasts` holds, and at least once."""
    while True:
        seen = read()
        assert seen == wanted, f"{what}: expected {wanted!r} all the time, saw {seen!r}"
        if not lasts():
            return
        time.sleep(PAUSE)
