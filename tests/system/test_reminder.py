"""A reminder at its moment, and what the user does with it."""

import pytest
from adapter import DOWN, STOP, UP
from waiting import holds_for, wait_until

# 12 minutes of sitting an hour in 6 parts, 48 of standing.
PLAN = {"ActivityGoal": 48, "NumberOfStandUps": 6, "TimeSnooze": 90, "TimeNotificationDismiss": 60, "TimeIdle": 80000}
SITTING_TIME, CYCLE = 120, 600
RATE, SIMULATED_RATE = 30, 60


class Worker:
    # Somebody at a desk who waits for reminders.

    def __init__(self, desktop, simulated=False, **settings):
        self.desktop, self.clock = desktop, desktop.clock
        desktop.settings(**(PLAN | {"DevicePosition1": 700, "DevicePosition2": 1500} | settings))
        desktop.add_tray()
        self.rate = SIMULATED_RATE if simulated else RATE
        self.adapter = None if simulated else desktop.plug()
        self.program = desktop.start(*(["--simulate"] if simulated else []))
        self.since = wait_until(desktop.records, "a first record")[0][0]

    @property
    def reminder(self):
        return self.desktop.windows().get("Zelvo StandUp")

    def is_reminded_after(self, seconds):
        self.clock.run(self.rate)
        wait_until(lambda: self.reminder, "a reminder")
        self.clock.run(1)
        assert self.clock.now() - self.since == pytest.approx(seconds, abs=4 + self.rate * 0.3)
        return self.program.window_with("Snooze")

    def is_left_alone(self):
        wait_until(lambda: not self.reminder, "the reminder gone")
        self.since = self.clock.now()

    def posture(self):
        return self.desktop.records()[-1][2]


@pytest.fixture
def worker(desktop):
    return Worker(desktop)


@pytest.fixture
def standing_worker(desktop):
    # The same times the other way round.
    return Worker(desktop, ActivityGoal=12)


def test_snoozed_skipped_and_ignored(desktop):
    worker = Worker(desktop, simulated=True)
    window = worker.is_reminded_after(SITTING_TIME)
    assert "Stand" in [button.name for button in window.all(role="push button")]
    window.hears("Minutes")
    window.hears("8")  # 48 standing minutes in 6 parts.
    window.find("Snooze").press()
    worker.is_left_alone()
    window = worker.is_reminded_after(90)
    worker.desktop.click(*window.find("Skip").middle)
    worker.is_left_alone()
    worker.desktop.move_pointer(4, 900)
    raised_at = worker.since + CYCLE
    worker.is_reminded_after(CYCLE)
    worker.clock.run(12)
    worker.is_left_alone()  # Ignored: it snoozes by itself.
    assert worker.since - raised_at == pytest.approx(60, abs=15)
    worker.is_reminded_after(90)


def test_answered_by_moving_the_desk(desktop):
    worker = Worker(desktop, TimeNotificationDismiss=30, TimeNotificationDismissOnAction=2)
    window = worker.is_reminded_after(SITTING_TIME)
    for name, value in {"Down": DOWN, "Up": UP, "Stand": 1500}.items():
        worker.desktop.move_pointer(*window.find(name).middle)
        worker.desktop.button(True)
        wait_until(lambda: worker.adapter.values()[-1] == value, name)
        if name == "Stand":
            wait_until(lambda: worker.posture() == 1, "standing")
            worker.since = worker.desktop.records()[-1][0]
        worker.desktop.button(False)
        wait_until(lambda: worker.adapter.values()[-1] == STOP, "stop")
    worker.clock.run(40)
    holds_for(1, lambda: worker.reminder, "it stays while the pointer rests on it")
    worker.clock.run(1)
    worker.desktop.move_pointer(4, 900)
    left_at = worker.clock.now()
    wait_until(lambda: not worker.reminder, "the reminder gone")
    assert worker.clock.now() - left_at == pytest.approx(2, abs=1.5)


def test_who_stands_is_asked_to_sit_and_nobody_without_a_desk(standing_worker):
    worker = standing_worker
    worker.adapter.put(4000)
    wait_until(lambda: worker.posture() == 1, "standing")
    worker.since = worker.desktop.records()[-1][0]
    window = worker.is_reminded_after(SITTING_TIME)
    assert "Sit" in [button.name for button in window.all(role="push button")]
    worker.program.click_tray()  # The main window takes its place.
    main = worker.program.window_with("History")
    wait_until(lambda: not main.all("Snooze") and len(worker.desktop.windows()) == 1, "the reminder gone")
    worker.program.click_tray()
    worker.is_left_alone()
    worker.adapter.unplug()
    worker.clock.run(RATE)
    holds_for(5, lambda: not worker.reminder, "no desk, no reminder")


def test_a_reminder_takes_no_keys_from_the_user(worker):
    other = worker.desktop.editor()
    window = worker.is_reminded_after(SITTING_TIME)
    for key in ("space", "Return", "Escape"):
        worker.desktop.key(key)
    assert worker.desktop.is_active(other) and worker.reminder
    assert set(worker.adapter.values()) == {"init", STOP}
    assert window.find("Snooze").actions[0] == "Press" and "Press" not in window.find("Up").actions


def test_calories_are_counted_for_the_weight(desktop):
    # 250 kcal a day at 60 kg are 44 minutes an hour; 7 at a time burn 5 kcal.
    worker = Worker(desktop, ActivityMode=1, ActivityGoal=250, Weight=60)
    window = worker.is_reminded_after((60 - 44) * 60 / 6)
    said = {words.replace("\xa0", " ") for words in window.says()}
    assert {"5", "Calories", "Stand for 7 min to burn 5 kcal."} <= said
