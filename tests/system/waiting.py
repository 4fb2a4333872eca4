"""Waiting for conditions, never for a fixed time."""

import contextlib
import time

from gi.repository import GLib

DEADLINE = 60.0  # Long, so that a busy machine is no failure.


def wait_until(condition, what=None, seconds=DEADLINE):
    # Answers what the condition answered. What goes while it is looked at is looked for again.
    end = time.monotonic() + seconds
    while True:
        with contextlib.suppress(GLib.Error):
            if answer := condition():
                return answer
        assert time.monotonic() <= end, f"never came: {what or condition.__name__}"
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
