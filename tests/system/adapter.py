"""A desk adapter below udev and hidraw: it answers feature reports, moves a desk and logs the wire."""

import errno
import os
import struct
import threading
import time

import gi

gi.require_version("UMockdev", "1.0")
from gi.repository import GLib, UMockdev  # noqa: E402

INIT = bytes([3, 4, 0, 0xFB, 0, 0, 0, 0])
UP, DOWN, STOP = 0x8000, 0x7FFF, 0x8001
SPEED = 380.0  # Tenths of a millimetre per second.
LIFE_OF_A_REPORT = 0.5
STATUS_SIZE = 64

_BEDS = []  # Until the end: one that is collected takes the environment of the next one with it.


class Machine:
    # /sys and /dev of a machine of its own, and the thread that answers for its adapters.

    def __init__(self):
        self.bed = UMockdev.Testbed.new()
        _BEDS.append(self.bed)
        self.root = self.bed.get_root_dir()
        self._context = GLib.MainContext()
        self._loop = GLib.MainLoop.new(self._context, False)
        self._thread = threading.Thread(target=self._run, daemon=True)
        self._thread.start()
        self.adapters = []

    def _run(self):
        self._context.push_thread_default()
        self._loop.run()
        self._context.pop_thread_default()

    def call(self, function):
        # Runs it on the adapters' thread and waits for it.
        done = threading.Event()

        def invoke(*_):
            try:
                function()
            finally:
                done.set()
            return False

        source = GLib.Idle()
        source.set_callback(invoke)
        source.attach(self._context)
        if not done.wait(10):
            raise TimeoutError("the adapters' thread does not answer")

    def later(self, seconds, function):
        source = GLib.Timeout(max(0, int(seconds * 1000)))
        source.set_callback(lambda *_: function() and False)
        source.attach(self._context)

    def plug(self, **settings):
        adapter = Adapter(self, len(self.adapters), **settings)
        self.adapters.append(adapter)
        return adapter

    def close(self):
        for adapter in self.adapters:
            adapter.unplug()
        self.call(self._loop.quit)
        self._thread.join(10)


class Adapter:
    # One adapter with its desk. What happens on the wire is in `wire`, with the time of its arrival.

    def __init__(self, machine, number, height=900, maker="Zelvo Ardenta A/S", clock=time.monotonic):
        self.machine, self.clock = machine, clock
        self.height = float(height)
        self.communicating = True
        self.error = None  # (kind bits, list of codes) while the desk reports one.
        self.delay = 0.0  # Seconds that each transfer takes.
        self.refuse_next_stop = 0  # Errno of the next stop.
        self.failure = 0  # Errno of every transfer.
        self.silent = False  # Transfers hang until the silence ends.
        self.wire = []  # (time, value of a movement report or "init")
        self.reads = []
        self._held = []
        self._order, self._order_at, self._moved_at = STOP, 0.0, clock()
        self._lock = threading.RLock()
        self._plug(number, maker)

    def _plug(self, number, maker):
        bed = self.machine.bed
        self.node = f"/dev/hidraw{number}"
        self._usb = bed.add_device("usb", f"usb{number}", None, [], ["DEVTYPE", "usb_device"])
        bed.set_attribute(self._usb, "manufacturer", maker + "\n")
        bed.set_attribute(self._usb, "product", f"Desk {number}\n")
        # An ordinary file stands for the node; what is opened there meets the handler.
        self.file = self.machine.root + self.node
        os.makedirs(os.path.dirname(self.file), exist_ok=True)
        open(self.file, "w").close()
        self._handler = UMockdev.IoctlBase()
        self._handler.connect("handle-ioctl", self._handle)
        self.machine.call(lambda: bed.attach_ioctl(self.node, self._handler))
        numbers = ["dev", f"240:{number}"]
        self._hidraw = bed.add_device("hidraw", f"hidraw{number}", self._usb, numbers, ["DEVNAME", self.node])
        self.plugged = True

    def unplug(self):
        if not self.plugged:
            return
        self.plugged = False
        bed = self.machine.bed
        self.failure = errno.ENODEV
        self.answer()
        bed.uevent(self._hidraw, "remove")
        self.machine.call(lambda: bed.detach_ioctl(self.node))
        bed.remove_device(self._usb)
        os.unlink(self.file)

    def answer(self):
        # Ends a silence: what hung is answered as a real kernel does, with ETIMEDOUT.
        self.silent = False
        held, self._held = self._held, []
        for client in held:
            client.complete(-1, errno.ETIMEDOUT)

    def carry_out(self):
        # Ends a silence: what hung is carried out at last.
        self.silent = False
        held, self._held = self._held, []
        self.machine.call(lambda: [self._complete(client) for client in held])

    @property
    def hanging(self):
        return len(self._held)

    def _handle(self, _, client):
        if self.silent:
            self._held.append(client)
        elif self.delay:
            self.machine.later(self.delay, lambda: self._complete(client))
        else:
            self._complete(client)
        return True

    def _complete(self, client):
        if self.failure:
            client.complete(-1, self.failure)
            return
        request = client.get_request()
        size = request >> 16 & 0x3FFF
        data = client.get_arg().resolve(0, size)
        if request & 0xFF == 6:  # HIDIOCSFEATURE
            report = bytes(data.retrieve())
            if self.refuse_next_stop and report[:3] == bytes([5, 1, 0x80]):
                failure, self.refuse_next_stop = self.refuse_next_stop, 0
                client.complete(-1, failure)
                return
            self._written(report)
        else:
            data.update(0, self._status())
            size = STATUS_SIZE
        client.complete(size, 0)

    def _written(self, report):
        with self._lock:
            self._advance()
            if report == INIT:
                self.wire.append((time.monotonic(), "init"))
                return
            copies = struct.unpack("<B3HB", report)
            assert copies[0] == 5 and len(set(copies[1:4])) == 1 and copies[4] == copies[1] & 0xFF, report
            self.wire.append((time.monotonic(), copies[1]))
            self._order, self._order_at = copies[1], self._moved_at

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
            self.reads.append(time.monotonic())
            report = bytearray(STATUS_SIZE)
            kinds, codes = self.error or (0, [])
            status = (1 if self.communicating else 0) | (0x200 if self.error else 0)
            struct.pack_into("<BxHHB", report, 0, 4, status, round(self.height), kinds)
            report[32] = bool(codes)
            report[34 : 34 + len(codes)] = bytes(codes)
            return bytes(report)

    def put(self, height):
        # The desk's own handset moves it.
        with self._lock:
            self._advance()
            self.height = float(height)

    def values(self, since=0.0):
        return [value for at, value in self.wire if at >= since]
