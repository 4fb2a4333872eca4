"""Waiting for conditions, never for a fixed time."""

import time

DEADLINE = 60.0  # Long, so that a busy machine is no failure.


def wait_until(condition, what=None, seconds=DEADLINE):
    # Waits for the condition and answers what it answered; never for a fixed time.
    end = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"never came: {what or condition.__name__}")
        time.sleep(0.01)


def holds_for(seconds, condition, what):
    # The condition is true now and stays so.
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        assert condition(), what
        time.sleep(0.01)


def at_rest(look, seconds=0.5):
    # What it sees, once that stays the same.
    while True:
        seen = look()
        time.sleep(seconds)
        if look() == seen:
            return seen
