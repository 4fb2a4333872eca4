"""The record holds attended time and nothing else: sleep, absence, dark screens, clocks that are set."""

import pytest
from gi.repository import GLib
from waiting import wait_until

# The desk's starting height is a standing one under these memory positions.
STANDING = {"DevicePosition1": 300, "DevicePosition2": 1100}
HOUR, DAY = 3600.0, 86400.0
PULSE, IDLE_POLL = 15.0, 10.0


class Office:
    # The program at work in a machine that can sleep, with a user who can leave.

    def __init__(self, desktop, simulated=True, **settings):
        self.desktop, self.rate, self.place = desktop, 50 if simulated else 15, 40
        desktop.settings(**STANDING, **settings)
        desktop.add_tray()
        self.logind = desktop.add_logind()
        self.adapter = None if simulated else desktop.plug()
        self.began, self.awake_began = desktop.clock.now(), desktop.clock.monotonic()
        self.program = desktop.start(*(["--simulate"] if simulated else []))
        wait_until(lambda: self.logind.inhibitors(), "the lock that delays a sleep")
        wait_until(desktop.records, "a first record")

    @property
    def records(self):
        return self.desktop.records()

    def pass_time(self, seconds):
        # At once the time of the program, and a part of it for everybody else.
        self.desktop.clock.run(self.rate)
        end = self.desktop.clock.monotonic() + seconds
        wait_until(lambda: self.desktop.clock.monotonic() > end, seconds=seconds)
        self.desktop.clock.run(1)

    def until(self, condition, what):
        self.desktop.clock.run(self.rate)
        wait_until(condition, what)
        self.desktop.clock.run(1)

    def screens(self, dark):
        saver = ("/ScreenSaver", "org.freedesktop.ScreenSaver", "ActiveChanged")
        self.desktop.session.emit_signal(None, *saver, GLib.Variant("(b)", (dark,)))

    def fall_asleep(self):
        self.logind.emit("PrepareForSleep", "b", True)
        wait_until(lambda: not self.logind.inhibitors(), "the lock let go")
        return self.desktop.clock.now()

    def wake_up(self):
        self.logind.emit("PrepareForSleep", "b", False)
        wait_until(self.logind.inhibitors, "the lock taken again")

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

    def stays_closed(self, seconds=90):
        # Nobody is there: nothing is recorded however long it takes.
        self.pass_time(IDLE_POLL)  # What was about to be saved is saved.
        before = self.records
        self.pass_time(seconds)
        assert self.records == before

    def is_plausible(self):
        # No record runs backwards, overlaps another or covers more than the awake time.
        awake = self.desktop.clock.monotonic() - self.awake_began + 3
        assert all(0 <= end - start <= awake for start, end, _ in self.records)
        assert sum(end - start for start, end, _ in self.records) <= awake
        assert all(standing for *_, standing in self.records)


@pytest.mark.parametrize("signals", [True, False], ids=["with signals", "without a signal"])
def test_nights_asleep_are_not_recorded(desktop, signals):
    office = Office(desktop)
    for night in (1, 2):
        office.pass_time(40)
        asleep, before = office.fall_asleep() if signals else desktop.clock.now(), office.records
        desktop.clock.sleep(15 * HOUR)
        if signals:
            office.wake_up()
        office.until(lambda: desktop.log().count("IdleObserver - Idle") == night, "absence")
        office.stays_closed()
        evening, *others = office.records[len(before) - 1 :]
        assert evening[1] == pytest.approx(asleep, abs=2 if signals else PULSE + 2)
        # Somebody who is not there yet gets one poll's worth at most.
        assert sum(end - start for start, end, _ in others) <= IDLE_POLL + 2
        office.comes_back()
        assert office.records[-1][0] > asleep + 15 * HOUR
    office.is_plausible()
    office.program.click_tray()
    office.program.window_with("Up").hears("Current session")


@pytest.mark.parametrize("order", ["wake first", "adapter first"])
def test_a_short_nap_and_the_adapter_that_comes_back(desktop, order):
    office = Office(desktop, simulated=False)
    office.pass_time(30)
    office.fall_asleep()
    office.adapter.unplug()
    desktop.clock.sleep(100)
    if order == "wake first":
        office.wake_up()
    adapter = desktop.plug()
    wait_until(lambda: len(adapter.reads) > 1, "polling")
    if order == "adapter first":
        office.wake_up()
    woke = desktop.clock.now()
    office.comes_back()
    office.pass_time(2 * PULSE)
    *earlier, (start, end, standing) = office.records
    assert woke - 3 < start < woke + 2 * IDLE_POLL + 10 and standing
    assert end == pytest.approx(desktop.clock.now(), abs=PULSE + 3)
    assert sum(b - a for a, b, _ in earlier[1:]) <= IDLE_POLL + 2
    office.is_plausible()


def test_dark_screens_record_nobody(desktop):
    office = Office(desktop, TimeIdle=40)
    office.until(lambda: "IdleObserver - Idle" in desktop.log(), "absence")
    left = office.records
    office.screens(dark=True)
    office.until(lambda: len(office.records) > len(left), "the fresh period of dark screens")
    office.pass_time(2 * IDLE_POLL)
    office.stays_closed(100)
    assert office.records[-1][1] - office.records[-1][0] <= IDLE_POLL + 2
    assert not desktop.windows(), "no reminder"
    office.screens(dark=False)
    office.comes_back()
    for dark in (True, False, True):  # Lock, unlock, lock: each lock begins a period of its own.
        before = len(office.records)
        office.touch()
        office.screens(dark)
        if dark:
            wait_until(lambda: len(office.records) > before, "a fresh period")
    office.is_plausible()


def test_away_and_back(desktop):
    office = Office(desktop, TimeIdle=40)
    office.until(lambda: "IdleObserver - Idle" in desktop.log(), "absence")
    office.stays_closed()
    office.comes_back()
    office.is_plausible()
    assert office.records[1][0] - office.records[0][1] > 60


@pytest.mark.parametrize("by", [-7 * DAY, 3 * HOUR, 20 * 365 * DAY], ids=["back a week", "ahead", "from no battery"])
def test_a_clock_that_is_set_makes_no_absurd_record(desktop, by):
    office = Office(desktop)
    office.pass_time(40)
    before, awake = desktop.clock.now(), desktop.clock.monotonic()
    desktop.clock.set_wall(by)
    office.until(lambda: len(office.records) == 2, "a new period")
    office.pass_time(2 * PULSE)
    old, new = sorted(office.records, key=lambda record: abs(record[0] - office.began))
    passed = desktop.clock.monotonic() - awake
    assert old[0] == pytest.approx(office.began, abs=4) and before - PULSE - 2 <= old[1] <= before + PULSE + 2
    assert before + by - 2 <= new[0] <= before + by + passed
    assert new[1] == pytest.approx(desktop.clock.now(), abs=PULSE + 2)
    office.is_plausible()
