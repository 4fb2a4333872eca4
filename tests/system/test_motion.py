"""A desk moves while a button is held and at no other time, however the hold ends. Told by the log of the wire."""

import errno
import signal
import time

import pytest
from adapter import DOWN, STOP, UP
from waiting import wait_until

GRACE = 0.3  # No movement report later than that after a release.


class Desk:
    # The main window over an adapter, and a finger on one of its buttons.

    def __init__(self, desktop, **settings):
        self.desktop = desktop
        desktop.settings(DevicePosition1=700, DevicePosition2=4100, DevicePosition3=5200, **settings)
        self.adapter = desktop.plug(height=2000)
        self.program = desktop.start_recording("--test-window")
        self.program.click_tray()
        self.window = desktop.window("Zelvo StandUp")
        self.panel = self.program.window_with("Up", "History")

    def hold(self, name="Up", value=UP, panel=None):
        pressed = self.desktop.hold(*(panel or self.panel).find(name, "push button").middle)
        self.moves(value)
        return pressed

    def moves(self, value=UP):
        since = time.monotonic()
        wait_until(lambda: self.adapter.values(since).count(value) >= 2, f"movement {value}")

    def release(self):
        return self.desktop.button(False)

    def stands(self, let_go):
        # A stop came after it was let go, and no movement report later than the grace.
        settled = lambda: self.adapter.values()[-1] == STOP and time.monotonic() > let_go + GRACE + 0.25  # noqa: E731
        wait_until(settled, "a stop at last")
        assert set(self.adapter.values(let_go + GRACE)) <= {STOP, "init"}

    def freeze(self, let_go):
        self.program.signal(signal.SIGSTOP)
        at = let_go()
        wait_until(lambda: time.monotonic() > at + 1.5)
        self.program.signal(signal.SIGCONT)
        return at


@pytest.fixture
def desk(desktop):
    return Desk(desktop)


def press_another(desk):
    desk.desktop.button(True, 3)
    desk.release()
    return desk.desktop.button(False, 3)


def go_away(desk):
    desk.desktop.move_pointer(5, 5)
    return desk.release()


# How a finger lets go, and what takes the button from under it.
ENDS_OF_A_HOLD = {
    "outside the window": go_away,
    "after another button": press_another,
    "while the program is frozen": lambda desk: desk.freeze(desk.release),
    "by hiding the window": lambda desk: desk.program.click_tray(),
    "by minimising the window": lambda desk: desk.desktop.minimise(desk.window),
    "by going to another workspace": lambda desk: desk.desktop.switch_workspace(1),
    "by another window": lambda desk: desk.program.choose("History"),
}


def test_let_go_in_every_way(desk):
    for way, end in ENDS_OF_A_HOLD.items():
        print(way)
        if not desk.desktop.is_active(desk.window):
            desk.program.choose("Open Zelvo StandUp")
            desk.window = desk.program.in_front("Zelvo StandUp")
        desk.hold()
        desk.stands(end(desk) or time.monotonic())
        desk.release()


def test_a_held_key_moves_until_it_is_let_go(desk):
    for key in ("space", "Return"):
        let_go = lambda: desk.desktop.key(key, False)  # noqa: E731
        for way in (let_go, lambda: desk.freeze(let_go)):
            desk.panel.find("Down").focus()
            desk.desktop.key(key, True)  # The server repeats it from now on.
            desk.moves(DOWN)
            desk.moves(DOWN)
            desk.stands(way())


def test_each_button_does_what_it_says(desk):
    ends = {"Up": UP, "Down": DOWN}
    for name, value in (ends | {"Sit": 700, "Stand": 4100, "Position 3": 5200}).items():
        desk.hold(name, value)
        desk.stands(desk.release())
    desk.desktop.key("Escape")
    test = desk.program.window_with("Up once")
    for height in (0, 1000, 2500, 4800, 6500):
        desk.hold(str(height), height, test)
        desk.stands(desk.release())
    for name, value in ends.items():
        test.find(f"{name} once").press()
        wait_until(lambda: desk.adapter.values()[-1] == value, name)


@pytest.mark.parametrize("seconds,carried_out", [(0.3, True), (1, False), (2, True), (6, False)])
def test_a_transfer_that_stalls_under_a_held_button(desk, seconds, carried_out):
    desk.hold()
    desk.adapter.silent = True
    wait_until(lambda: desk.adapter.hanging, "a transfer that hangs")
    let_go = desk.release()
    wait_until(lambda: time.monotonic() > let_go + seconds)
    written = len(desk.adapter.wire)
    # What hung may be a movement that was under way when the user let go. The next report is a stop.
    desk.adapter.answer(0 if carried_out else errno.ETIMEDOUT)
    desk.stands(time.monotonic())
    reports = [value for _, value in desk.adapter.wire[written:]]
    assert [value for value in reports if value != "init"][carried_out and reports[0] == UP] == STOP
