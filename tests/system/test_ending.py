"""However the program is told to end, whatever is open: it ends, the desk stands, the record is whole."""

import signal
import time

import pytest
from adapter import STOP, UP
from session_manager import SM, SessionManager
from waiting import DEADLINE, wait_until

PULSE = 15.0
WAYS = {
    "menu": lambda program: program.choose("Quit"),
    "SIGTERM": lambda program: program.signal(signal.SIGTERM),
    "SIGHUP": lambda program: program.signal(signal.SIGHUP),
    "shutdown": lambda program: program.desktop.logind.emit("PrepareForShutdown", "b", True),
}


@pytest.mark.parametrize("way", WAYS)
def test_ends_at_once_with_everything_open_and_a_button_held(desktop, way):
    # 3 min of sitting an hour, in 6 parts.
    desktop.settings(ActivityGoal=57, NumberOfStandUps=6, TimeNotificationDismiss=86400)
    desktop.add_logind()
    adapter = desktop.plug()
    program = desktop.start_recording("--test-window")
    for entry, title in {"Open Zelvo StandUp": "Zelvo StandUp", "History": "History", "Settings…": "Settings"}.items():
        program.choose(entry)
        desktop.window(title)
    with desktop.clock.running(25):
        reminder = program.window_with("Snooze")
    desktop.window("StandUp test window")
    desktop.hold(*reminder.find("Up").middle)
    wait_until(lambda: adapter.values().count(UP) > 2, "movement")

    WAYS[way](program)
    told = time.monotonic()
    program.ends()
    assert adapter.values()[-1] == STOP and UP not in adapter.values(told + 0.3)
    _, end, standing = desktop.records()[-1]
    assert (standing, end) == (0, pytest.approx(desktop.clock.now(), abs=6))


def test_ends_at_once_while_a_dialog_waits_for_an_answer(desktop):
    desktop.settings()
    with open(desktop.config, "ab") as file:
        file.write(b"[broken\n")
    for buttons in (["OK"], ["Save", "Cancel"]):
        program = desktop.start_recording()
        if "Save" in buttons:  # The settings have been repaired.
            program.choose("History")
            desktop.click(*program.window_with("Year").find("Export to a file…").middle)
        program.window_with(*buttons)
        program.quit()
        assert desktop.records()[-1][1] == pytest.approx(desktop.clock.now(), abs=6)


def test_ending_during_the_first_run_answers_nothing_for_the_user(desktop):
    enabled = lambda: {label: is_enabled for label, (_, is_enabled) in program.menu().items()}  # noqa: E731
    offered = {"Open Zelvo StandUp": False, "History": False, "Settings…": True, "Quit": True}
    for end in (WAYS["menu"], lambda program: program.signal(signal.SIGINT)):
        program = desktop.start()
        desktop.window("Settings")
        assert enabled() == offered
        wait_until(lambda: "Sitting" in program.tray_icon()[1], "the tray, which does not say that it pauses")
        end(program)
        program.ends()
        assert desktop.setting("Weight") is None

    program = desktop.start()
    program.in_front("Settings")
    program.click_tray()
    desktop.start().ends(within=DEADLINE)
    assert list(desktop.windows()) == ["Settings"] and not desktop.records()
    desktop.key("Escape")  # The user's own dismissal takes the defaults.
    wait_until(lambda: desktop.setting("Weight") == "80", "defaults")
    wait_until(desktop.records, "a first record")
    assert enabled() == dict.fromkeys(offered, True)
    for _ in range(2):  # The click before the set-up is an open window's: the next one closes it.
        program.click_tray()
    program.in_front("Zelvo StandUp")


def test_a_log_out_that_is_cancelled_saves_and_one_that_is_not_ends_the_program(desktop):
    desktop.settings()
    session = SessionManager()
    program = desktop.start("-session", "10a5f00d_1234_5678", SESSION_MANAGER=session.address)
    session.until(lambda: session.client and desktop.records(), "a program of the session, and its record")
    began = desktop.records()[0][0]
    session.until(lambda: desktop.clock.now() > began + 3, "time to save")
    session.ask_to_save()
    saved = desktop.records()[0][1]
    assert saved == pytest.approx(desktop.clock.now(), abs=6) and saved > began + 2
    SM.SmsShutdownCancelled(session.client)
    with desktop.clock.running(20):
        session.until(lambda: desktop.records()[0][1] > saved + 2 * PULSE, "the record going on")
    session.ask_to_save()
    assert program.process.poll() is None
    SM.SmsDie(session.client)
    program.ends()
    [(start, end, _)] = desktop.records()
    assert start == began and end == pytest.approx(desktop.clock.now(), abs=6)
