"""The record holds attended time and nothing else: sleep, absence, dark screens."""

import pytest
from bus import call
from gi.repository import GLib
from waiting import wait_until

# The desk's starting height is a standing one under these memory positions.
STANDING = {"DevicePosition1": 300, "DevicePosition2": 1100}
HOUR = 3600.0
PULSE, IDLE_POLL, LAG = 15.0, 10.0, 10.0


class Office:
    # The program at work in a machine that can sleep, with a user who can leave.

    def __init__(self, desktop, simulated=True, **settings):
        self.desktop, self.rate, self.place = desktop, 30 if simulated else 20, 40
        desktop.settings(**STANDING, **settings)
        self.logind = desktop.add_logind()
        if not simulated:
            self.adapter = desktop.plug()
        self.program = desktop.start_recording()
        wait_until(lambda: self.logind.inhibitors(), "the lock that delays a sleep")

    records = property(lambda self: self.desktop.records())

    def pass_time(self, seconds):
        self.desktop.clock.reach(self.desktop.clock.now() + seconds, self.rate)

    def works(self):
        # The record is up to date then, however late the program runs.
        self.pass_time(40)
        wait_until(lambda: self.desktop.clock.now() - self.records[-1][1] < PULSE + 1, "the pulse that is due")

    def until(self, condition, what):
        with self.desktop.clock.running(self.rate):
            wait_until(condition, what)

    def absences(self):
        return self.desktop.log().count("IdleObserver - Idle")

    def leaves(self, for_the=None):
        count = for_the or self.absences() + 1
        self.until(lambda: self.absences() == count, "absence")
        wait_until(lambda: "Paused" in self.program.tray_icon()[1], "the tray told of it", 20)
        self.is_polled_after("IdleObserver - Idle", 1)
        self.is_polled_after("Creating new activity", 2)  # An adapter may have come to an absent user.

    def is_polled_after(self, event, times):
        # The program has gone on after what it logged, and has saved what followed from that.
        polls = lambda: self.desktop.log().rpartition(event)[2].count("IdleTime")  # noqa: E731
        self.until(lambda: polls() >= times, "a look at the user")

    def screens(self, dark, way="x"):
        # As they are told of: by the X server, a screen saver, the machine's session.
        saver = ("org.freedesktop.ScreenSaver", "ActiveChanged", GLib.Variant("(b)", (dark,)))
        session = ("/org/freedesktop/login1/session/auto", "org.freedesktop.login1.Session", "SetLockedHint")
        emit = self.desktop.session.emit_signal
        {
            "x": lambda: self.desktop.x.force_screen_saver(dark),
            "freedesktop": lambda: emit(None, "/ScreenSaver", *saver),
            "logind": lambda: call(self.desktop.system, self.logind.name, *session, "(b)", dark),
        }[way]()
        self.program.tray_icon()  # It answers after what it heard on the same bus.

    def prepare_for_sleep(self, sleeps):
        self.logind.emit("PrepareForSleep", "b", sleeps)
        wait_until(lambda: bool(self.logind.inhibitors()) != sleeps, "the lock let go, or taken again")

    def plug_in(self):
        self.adapter = self.desktop.plug()
        wait_until(lambda: self.adapter.looks > 1, "polling")

    def touch(self):
        # The user is there: something moves under their hand until the program has seen it.
        self.place = 100 - self.place
        self.desktop.move_pointer(self.place, self.place)

    def comes_back(self):
        since = self.desktop.clock.now()

        def recorded():
            self.touch()
            start, end, _ = self.records[-1]
            return since < start < end

        self.until(recorded, "a period after the return")

    def stays_closed(self, seconds=60):
        # Nobody is there: nothing is recorded however long it takes.
        before = self.records
        self.pass_time(seconds)
        assert self.records == before


@pytest.mark.parametrize("signals", [True, False], ids=["with signals", "without a signal"])
def test_nights_asleep_are_not_recorded(desktop, signals):
    office = Office(desktop, simulated=not signals, TimeIdle=200)
    for night in (1, 2):
        office.works()
        if signals:
            office.prepare_for_sleep(True)
        asleep, before = desktop.clock.now(), office.records
        if signals:
            office.adapter.unplug()
        desktop.clock.sleep(15 * HOUR)
        if signals:  # The adapter comes back after the wake or before it.
            for wake in (lambda: office.prepare_for_sleep(False), office.plug_in)[:: 3 - 2 * night]:
                wake()
        office.leaves(for_the=night)
        office.stays_closed()
        evening, *others = office.records[len(before) - 1 :]
        assert evening[1] == pytest.approx(asleep, abs=2 if signals else PULSE + LAG)
        # Somebody who is not there yet gets one poll's worth at most.
        assert sum(end - start for start, end, _ in others) <= IDLE_POLL + LAG
        office.comes_back()
        assert office.records[-1][0] > asleep + 15 * HOUR


def test_who_is_away_or_sits_before_dark_screens_is_not_recorded(desktop):
    office = Office(desktop, TimeIdle=40)
    office.touch()
    office.leaves()
    office.stays_closed()
    office.comes_back()
    office.leaves()
    office.screens(dark=True)
    office.until(lambda: len(office.records) > 2, "the fresh period of dark screens")
    office.is_polled_after("receiveSleepNotification", 3)
    office.stays_closed(100)
    assert office.records[-1][1] - office.records[-1][0] <= IDLE_POLL + LAG
    office.screens(dark=False)
    office.comes_back()
    office.logind.call("AddSession", "(ssusb)", "auto", "seat0", 500, "somebody", True)
    for way in ("freedesktop", "logind"):
        for dark in (True, False, True, False):  # Lock, unlock, lock: each lock begins a period of its own.
            before = len(office.records)
            office.touch()
            office.screens(dark, way)
            if dark:
                wait_until(lambda: len(office.records) > before, f"a fresh period by {way}")


def test_a_clock_that_is_set_ends_a_period_and_begins_another(desktop):
    office = Office(desktop, TimeIdle=2000)
    for by in (3 * HOUR, -5 * HOUR):
        office.works()
        set_at = desktop.clock.now()
        *_, (begun, saved, _) = office.records
        before = {start for start, _, _ in office.records}
        desktop.clock.set_wall(by)
        office.until(lambda: len(office.records) > len(before), "a period of its own")  # noqa: B023
        ends = {start: end for start, end, _ in office.records}
        (fresh,) = ends.keys() - before
        assert fresh == pytest.approx(set_at + by, abs=PULSE + LAG) and 0 <= ends[begun] - saved <= PULSE + LAG
