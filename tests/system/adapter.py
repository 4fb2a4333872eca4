"""A desk adapter below udev and hidraw: it answers feature reports, moves a desk and logs the wire."""

import contextlib
import errno
import os
import struct
import threading
import time
from pathlib import Path

import gi

gi.require_version("UMockdev", "1.0")
from gi.repository import GLib, UMockdev  # noqa: E402

INIT = bytes([3, 4, 0, 0xFB, 0, 0, 0, 0])
UP, DOWN, STOP = 0x8000, 0x7FFF, 0x8001
SPEED = 380.0  # Tenths of a millimetre per second.
LIFE_OF_A_REPORT = 0.5

_BEDS = []  # Until the end: one that is collected takes the environment of the next one with it.


def new_bed():
    # /sys and /dev of a machine of its own.
    _BEDS.append(UMockdev.Testbed.new())
    return _BEDS[-1]


class Adapter:
    # One adapter with its desk. What happens on the wire is in `wire`, with the time of its arrival.

    def __init__(self, bed, number, clock, height=900, maker="Zelvo Ardenta A/S", mode=0o600):
        self._bed, self.clock = bed, clock
        self.height = float(height)
        self.communicating = True
        self.error = None  # (kind bits, list of codes) while the desk reports one.
        self.failure = 0  # Errno of every transfer.
        self.silent = False  # Transfers hang until the silence ends.
        self.wire = []  # (time, value of a movement report or "init")
        self.looks = 0  # How often the desk was asked how it is.
        self.hanging = []
        self._order, self._order_at, self._moved_at = STOP, 0.0, clock()
        self._lock = threading.RLock()
        self.node = f"/dev/hidraw{number}"
        names = ["manufacturer", maker + "\n", "product", f"Desk\x1b {number}\n"]
        self._usb = self._bed.add_device("usb", f"usb{number}", None, names, ["DEVTYPE", "usb_device"])
        # An ordinary file stands for the node; what is opened there meets the handler.
        self.file = self._bed.get_root_dir() + self.node
        os.makedirs(os.path.dirname(self.file), exist_ok=True)
        Path(self.file).touch(mode)
        self._answer_on_a_thread()
        numbers = ["dev", f"240:{number}"]
        self._hidraw = self._bed.add_device("hidraw", f"hidraw{number}", self._usb, numbers, ["DEVNAME", self.node])

    def _answer_on_a_thread(self):
        # The handler is called where the context of its attachment runs.
        self._handler = UMockdev.IoctlBase()
        self._handler.connect("handle-ioctl", self._handle)
        context = GLib.MainContext()
        context.push_thread_default()
        self._bed.attach_ioctl(self.node, self._handler)
        context.pop_thread_default()
        self._loop = GLib.MainLoop.new(context, False)
        self._thread = threading.Thread(target=self._loop.run, daemon=True)
        self._thread.start()

    def unplug(self):
        if not self._thread.is_alive():
            return
        self.failure = errno.ENODEV
        self.answer()
        self._bed.uevent(self._hidraw, "remove")
        self._loop.quit()
        self._thread.join(10)
        self._bed.detach_ioctl(self.node)
        self._bed.remove_device(self._usb)
        os.unlink(self.file)

    def answer(self, failure=errno.ETIMEDOUT):
        # Ends a silence: what hung is answered as a real kernel does, or is carried out at last.
        self.silent = False
        while self.hanging:
            self._complete(self.hanging.pop(0), failure)

    def _handle(self, _, client):
        if self.silent:
            self.hanging.append(client)
        else:
            self._complete(client)
        return True

    def _complete(self, client, failure=0):
        with contextlib.suppress(GLib.Error):  # The program may have ended meanwhile.
            failure = failure or self.failure
            if not failure:
                size = client.get_request() >> 16 & 0x3FFF
                data = client.get_arg().resolve(0, size)
                if client.get_request() & 0xFF == 6:  # HIDIOCSFEATURE
                    self._written(bytes(data.retrieve()))
                else:
                    data.update(0, self._status())
            client.complete(-1 if failure else size, failure)

    def _written(self, report):
        with self._lock:
            self._advance()
            value = "init"
            if report != INIT:
                kind, value, *copies, low = struct.unpack("<B3HB", report)
                assert (kind, copies, low) == (5, [value, value], value & 0xFF), report
                self._order, self._order_at = value, self._moved_at
            self.wire.append((time.monotonic(), value))

    def _advance(self):
        now = self.clock()
        moves_for = min(now, self._order_at + LIFE_OF_A_REPORT) - self._moved_at
        self._moved_at = now
        target = {UP: 6500, DOWN: 0, STOP: self.height}.get(self._order, self._order)
        step = max(0.0, moves_for) * SPEED
        self.height += max(-step, min(step, target - self.height))

    def _status(self):
        with self._lock:
            self._advance()
            self.looks += 1
            kinds, codes = self.error or (0, [])
            told = (self.communicating | 0x200 * bool(self.error), round(self.height), kinds, bool(codes), bytes(codes))
            return struct.pack("<BxHHB25x?x30s", 4, *told)

    def put(self, height):
        # The desk's own handset moves it.
        with self._lock:
            self._advance()
            self.height = float(height)

    def values(self, since=0.0):
        return [value for at, value in self.wire if at >= since]
