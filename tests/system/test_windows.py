"""Windows come when they are asked for, where they are looked for, and go where they are put."""

import itertools

import pytest
from waiting import at_rest, holds_for, wait_until

WINDOWS = {"Open Zelvo StandUp": "Zelvo StandUp", "History": "History", "Settings…": "Setup"}


@pytest.fixture
def program(desktop):
    desktop.settings()
    return desktop.start_recording()


def test_a_window_that_is_asked_for_comes_back(desktop, program):
    asked = [(entry, lambda entry=entry: program.choose(entry)) for entry in WINDOWS]
    for entry, ask in [*asked, ("Open Zelvo StandUp", program.show)]:
        other = next(other for other in WINDOWS if other != entry)
        for chosen in (entry, other):
            program.choose(chosen)
            program.in_front(WINDOWS[chosen])
        window = desktop.window(WINDOWS[entry])
        desktop.minimise(window)
        ask()
        wait_until(lambda: not desktop.is_minimised(window) and desktop.is_active(window), "the window in front")

        here = 1 - desktop.workspace()
        desktop.switch_workspace(here)
        wait_until(lambda: not desktop.is_visible(window), "an empty workspace")
        ask()
        wait_until(lambda: desktop.is_visible(window) and desktop.is_active(window), "the window on this workspace")
        assert desktop.workspace() == here


def test_one_click_on_the_tray_shows_the_window_and_the_next_hides_it(desktop, program):
    for minimise in (False, True):
        program.click_tray()
        window = program.in_front("Zelvo StandUp")
        assert desktop.property(window, "_NET_WM_ICON")
        if minimise:
            desktop.minimise(window)
        program.click_tray()
        wait_until(lambda: not desktop.windows(), "no window")
    program.click_tray()
    program.window_with("Up").find("Close").press()
    wait_until(lambda: not desktop.windows(), "no window")
    program.click_tray()  # The next click shows it.
    main = program.window_with("Up")
    for button, window in {"History": "Year", "Settings": "Done"}.items():
        main.find(button).press()
        program.window_with(window)


def test_a_window_is_dragged_by_its_background_and_not_by_its_buttons(desktop, program):
    program.click_tray()
    window, main = desktop.window("Zelvo StandUp"), program.window_with("Up")
    (x, y), corner, steps = main.find("of today’s goal").middle, desktop.frame(window), itertools.count(1)
    desktop.move_pointer(x, y)
    desktop.button(True)

    def follows():
        step = min(next(steps), 30)
        desktop.move_pointer(x - 20 * step, y + 10 * step)
        return desktop.frame(window)[0] <= corner[0] - 120

    wait_until(follows, "the window following")
    desktop.button(False)
    moved = at_rest(lambda: desktop.frame(window))
    assert (moved[1] - corner[1], moved[2:]) == ((corner[0] - moved[0]) // 2, corner[2:])
    desktop.move_pointer(*main.find("History").middle)
    desktop.button(True)
    desktop.move_pointer(5, 5)
    holds_for(0.3, lambda: desktop.frame(window) == moved, "a button holds it")
    desktop.button(False)
    assert len(desktop.windows()) == 1


@pytest.mark.parametrize("session", ["x11", "wayland"])
def test_the_window_opens_near_the_pointer_or_where_the_pointer_is_stale_by_the_panel(desktop, session):
    desktop.settings()
    desktop.panel_below(44)
    desktop.move_pointer(300, 90)
    width, height = desktop.screen
    program = desktop.start_recording(XDG_SESSION_TYPE=session)
    x, y, w, h = desktop.frame(program.show())
    if session == "wayland":
        assert width - 40 < x + w <= width and height - 44 - 40 < y + h <= height - 44
    else:
        assert x + w // 2 == pytest.approx(300, abs=1) and 0 <= y < 40
