"""A reminder at its moment, and what the user does with it."""

import pytest
from adapter import DOWN, STOP, UP
from screenreader import listen
from waiting import holds_for, wait_until

# 3 minutes of sitting an hour in 6 parts, 57 of standing.
PLAN = {"ActivityGoal": 57, "NumberOfStandUps": 6, "TimeSnooze": 45, "TimeNotificationDismiss": 25, "TimeIdle": 80000}
SITTING_TIME, SNOOZE, CYCLE = 30, 45, 600
RATE, SIMULATED_RATE = 12, 200  # An adapter counts as silent after four seconds.


class Worker:
    # Somebody at a desk who waits for reminders.

    def __init__(self, desktop, simulated=True, **settings):
        self.desktop, self.clock = desktop, desktop.clock
        desktop.settings(**(PLAN | {"DevicePosition1": 700, "DevicePosition2": 1500} | settings))
        self.rate = SIMULATED_RATE if simulated else RATE
        self.adapter = None if simulated else desktop.plug()
        self.program = desktop.start_recording("--test-window")
        self.since = desktop.records()[0][0]

    reminder = property(lambda self: self.desktop.windows().get("Zelvo StandUp"))

    def is_reminded_after(self, seconds):
        self.clock.reach(self.since + seconds / 2, self.rate)
        self.desktop.move_pointer(9, 900)  # Ten minutes without input darken X's screens.
        self.clock.reach(self.since + seconds - 1, self.rate)
        assert not self.reminder, "too early"
        wait_until(lambda: self.reminder, "a reminder")
        assert self.clock.now() - self.since == pytest.approx(seconds, abs=6)
        return self.program.window_with("Snooze")

    def does(self, act):
        # The reminder goes by it.
        self.since = self.clock.now()
        act()
        self.desktop.move_pointer(4, 900)  # At once, and a click counts all the same.
        wait_until(lambda: not self.reminder, "the reminder gone")

    def changed_to(self, standing):
        wait_until(lambda: self.desktop.records()[-1][2] == standing, "the other posture")
        self.since = self.desktop.records()[-1][0]

    def lets_it_go(self):
        self.desktop.move_pointer(4, 900)  # It stays while the pointer rests on it.
        wait_until(lambda: not self.reminder, "the reminder gone")


def test_snoozed_skipped_and_ignored(desktop):
    worker = Worker(desktop)
    window = worker.is_reminded_after(SITTING_TIME)
    x, y, width, _ = desktop.frame(worker.reminder)
    assert (x + width, y) == (desktop.screen[0] - 12, 12)
    assert {"Minutes", "9", "71 cm", "Stand"} <= set(window.says())  # 57 standing minutes in 6 parts.
    worker.does(lambda: desktop.click(*window.find("Snooze").middle))
    window = worker.is_reminded_after(SNOOZE)
    worker.does(lambda: desktop.click(*window.find("Skip").middle))
    wait_until(lambda: "10\u00a0minutes" in worker.program.tray_icon()[1], "the tray told of it", 30)
    editor = desktop.foreign_window(300, 300, 200, 100)
    worker.is_reminded_after(CYCLE)
    worker.clock.reach(worker.since + CYCLE + 3, worker.rate)
    editor.destroy()
    wait_until(lambda: desktop.is_active(worker.reminder), "the keyboard, which nobody gave it")
    worker.clock.reach(worker.since + CYCLE + 24, worker.rate)
    assert worker.reminder
    wait_until(lambda: not worker.reminder, "it snoozes by itself")
    worker.since += CYCLE + 25
    window = worker.is_reminded_after(SNOOZE)
    worker.clock.reach(worker.clock.now() + 2, worker.rate)
    desktop.tell(worker.reminder, "_NET_ACTIVE_WINDOW", 2)  # As Alt+Tab does.
    wait_until(lambda: desktop.is_active(worker.reminder), "the keyboard")
    worker.does(lambda: desktop.key("Escape"))
    window = worker.is_reminded_after(SNOOZE)
    worker.program.show()  # The reminder, while one waits.
    desktop.key("Tab")
    worker.does(lambda: desktop.key("Return"))  # Skipped; Snooze came before it.
    worker.clock.reach(worker.since + 25 + SNOOZE + 30, worker.rate)
    assert not worker.reminder


def test_answered_by_moving_the_desk_and_by_no_key_for_another_program(desktop):
    worker = Worker(desktop, simulated=False, TimeNotificationDismissOnAction=9)
    editor = desktop.foreign_window(300, 300, 200, 100)
    wait_until(lambda: desktop.is_active(editor), "the editor")
    window = worker.is_reminded_after(SITTING_TIME)
    reminder = worker.reminder
    desktop.minimise(reminder)
    worker.program.window_with("Stand up").find("Stand up").press()  # A new one comes back, without the keyboard.
    wait_until(lambda: (desktop.property(reminder, "WM_STATE") or [0])[0] == 1 and worker.reminder, "the reminder back")
    for key in ("space", "Return", "Escape"):
        desktop.key(key)
    assert desktop.is_active(editor) and worker.reminder
    assert set(worker.adapter.values()) == {"init", STOP}
    for name, value in {"Down": DOWN, "Up": UP, "Stand": 1500}.items():
        desktop.hold(*window.find(name).middle)
        wait_until(lambda: worker.adapter.values()[-1] == value, name)
        if name == "Stand":
            worker.changed_to(standing=True)
        desktop.button(False)
        wait_until(lambda: worker.adapter.values()[-1] == STOP, "stop")
    worker.adapter.put(2000)
    window.hears("82 cm")
    for place in ((4, 900), window.find("Up").middle):  # It goes, and comes once more.
        desktop.move_pointer(*place)
    with worker.clock.running(worker.rate):
        holds_for(1.5, lambda: worker.reminder, "it stays while the pointer rests on it")
    left_at = worker.clock.now()
    with worker.clock.running(4):
        worker.lets_it_go()
    assert 8.5 <= worker.clock.now() - left_at < 15  # Timers may be a twentieth early.


def test_who_stands_is_asked_to_sit(desktop):
    # 250 kcal a day at 60 kg are 44 minutes an hour; 7 at a time burn 5 kcal.
    worker = Worker(desktop, ActivityMode=1, ActivityGoal=250, Weight=60)
    window = worker.is_reminded_after((60 - 44) * 60 / 6)
    assert {"5", "Calories", "Stand for 7\xa0min to burn 5\xa0calories."} <= set(window.says())
    desktop.hold(*window.find("Stand").middle)
    worker.changed_to(standing=True)
    desktop.button(False)
    worker.lets_it_go()
    heard = listen(desktop.accessibility)
    window = worker.is_reminded_after(44 * 60 / 6)
    assert {"Sit", "Minutes", "2", "Sit for 2\xa0min, then stand again."} <= set(window.says())
    wait_until(lambda: heard()[-1].endswith(" Sit for 2\xa0min, then stand again."), "headline and message")
    x, y, *_ = desktop.frame(worker.reminder)
    places = iter(range(x + 60, 9, -9))
    desktop.hold(next(places), y + 60)
    wait_until(lambda: desktop.move_pointer(next(places, 9), y + 60) or desktop.frame(worker.reminder)[0] < x - 99, "it follows")
    desktop.button(False)
