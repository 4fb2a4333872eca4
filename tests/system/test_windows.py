"""Windows come when they are asked for."""

import pytest
from waiting import wait_until

WINDOWS = {"Open Zelvo StandUp": "Zelvo StandUp", "History": "History", "Settings…": "Setup"}
WAYS_BACK = {
    "menu": lambda program, entry: program.choose(entry),
    "second start": lambda program, _: program.show(),
}


@pytest.mark.parametrize("entry,way", [(entry, "menu") for entry in WINDOWS] + [("Open Zelvo StandUp", "second start")])
def test_a_window_that_is_asked_for_comes_back(desktop, entry, way):
    desktop.settings()
    desktop.add_tray()
    program = desktop.start("--simulate")
    program.choose(entry)
    window = desktop.window(WINDOWS[entry])
    program.choose(next(other for other in WINDOWS if other != entry))
    desktop.minimise(window)
    WAYS_BACK[way](program, entry)
    wait_until(lambda: not desktop.is_minimised(window) and desktop.is_active(window), "the window in front")

    desktop.switch_workspace(1)
    wait_until(lambda: not desktop.is_visible(window), "an empty workspace")
    WAYS_BACK[way](program, entry)
    wait_until(lambda: desktop.is_visible(window) and desktop.is_active(window), "the window on this workspace")
    assert desktop.workspace() == 1


def test_one_click_on_the_tray_shows_the_window_and_the_next_hides_it(desktop):
    desktop.settings()
    desktop.add_tray()
    program = desktop.start("--simulate")
    program.click_tray()
    window = desktop.window("Zelvo StandUp")
    program.click_tray()
    wait_until(lambda: not desktop.windows(), "no window")
    program.click_tray()
    window = desktop.window("Zelvo StandUp")
    desktop.minimise(window)
    program.click_tray()
    wait_until(lambda: not desktop.windows(), "no window")
    program.click_tray()
    window = desktop.window("Zelvo StandUp")
    wait_until(lambda: desktop.is_visible(window) and desktop.is_active(window), "the window in front")


@pytest.mark.parametrize("session", ["x11", "wayland"])
def test_the_window_opens_near_the_pointer_or_where_the_pointer_is_stale_by_the_panel(desktop, session):
    desktop.settings()
    desktop.panel_below(44)
    desktop.move_pointer(300, 90)
    width, height = desktop.screen
    program = desktop.start_recording("--simulate", XDG_SESSION_TYPE=session)
    x, y, w, h = desktop.frame(program.show())
    if session == "wayland":
        assert width - 40 < x + w <= width and height - 44 - 40 < y + h <= height - 44
    else:
        assert x + w // 2 == pytest.approx(300, abs=1) and 0 <= y < 40
