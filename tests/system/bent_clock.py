"""The program's clocks, as a scenario bends them."""

import contextlib
import math
import mmap
import struct
import time

from waiting import wait_until


class Clock:
    # The program's clocks, in a file that it maps.

    def __init__(self, path):
        self.path = path
        path.write_bytes(bytes(56))
        with open(path, "r+b") as file:
            self._memory = mmap.mmap(file.fileno(), 0)
        self._turn, self.rate = 0, 1.0
        self._origin = self._virtual = self.until = self.ahead = self.slept = 0.0
        self.run(1)

    @contextlib.contextmanager
    def _writing(self):
        # Who asks for the time meanwhile waits, so that it never runs backwards.
        self._memory[0:8] = struct.pack("=Q", self._turn + 1)
        yield
        values = (self._origin, self._virtual, self.rate, self.until, self.ahead, self.slept)
        self._memory[8:] = struct.pack("=6d", *values)
        self._turn += 2
        self._memory[0:8] = struct.pack("=Q", self._turn)

    def _at(self, monotonic):
        fast = self._virtual + (monotonic - self._origin) * self.rate
        return fast if fast <= self.until else self.until + (fast - self.until) / self.rate

    def monotonic(self):
        return self._at(time.monotonic())

    def now(self):
        # The wall clock, as the program reads it.
        return time.time() - time.monotonic() + self.monotonic() + self.ahead + self.slept

    def run(self, rate, until=math.inf):
        with self._writing():
            now = time.monotonic()
            self._virtual, self._origin = self._at(now), now
            self.rate, self.until = float(rate), until

    @contextlib.contextmanager
    def running(self, rate):
        self.run(rate)
        yield
        self.run(1)

    def reach(self, moment, rate):
        # Time flies until then, and goes on at its own pace however late the scenario wakes up.
        self.run(rate, until=self.monotonic() + moment - self.now())
        wait_until(lambda: self.now() >= moment, "the moment")
        self.run(1)

    def set_wall(self, by):
        with self._writing():
            self.ahead += by

    def sleep(self, seconds):
        # The machine slept.
        with self._writing():
            self.slept += seconds
