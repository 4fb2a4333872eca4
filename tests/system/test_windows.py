"""Windows come when they are asked for, where they are looked for, go where they are put and fit every screen."""

import itertools

import pytest
from waiting import at_rest, holds_for, wait_until
from Xlib import X, Xatom

WINDOWS = {"Open Zelvo StandUp": "Zelvo StandUp", "History": "History", "Settings…": "Settings"}
# Screens of that many pixels, at that scale.
SIZES = {"800x480": 1, "1024x600": 1, "1366x768": 1.25, "1920x1080": 2}
SCREENS = [pytest.param(scale, marks=pytest.mark.desktop(screen=size), id=size) for size, scale in SIZES.items()]


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
        assert window.get_wm_class()[1] == "Zelvo StandUp"  # As in the desktop entry.
        here = 1 - desktop.workspace()
        for goes in (lambda: desktop.minimise(window), lambda: desktop.switch_workspace(here)):
            goes()
            wait_until(lambda: not desktop.is_active(window), "the window away")
            ask()
            program.in_front(WINDOWS[entry])
        assert desktop.workspace() == here == desktop.property(window, "_NET_WM_DESKTOP")[0]


def test_one_click_on_the_tray_shows_the_window_and_the_next_hides_it(desktop, program):
    for ask, minimise in ((program.show, False), (program.click_tray, True)):
        ask()
        window = program.in_front("Zelvo StandUp")
        assert len(desktop.property(window, "_NET_WM_ICON")) == sum(2 + n * n for n in (16, 24, 32, 48, 64, 128))
        if minimise:
            desktop.minimise(window)
        program.click_tray()
        wait_until(lambda: not desktop.windows(), "no window")
    program.click_tray()
    main = program.window_with("Up")
    for button, window in {"History": "Year", "Settings": "Done"}.items():
        main.find(button).press()
        program.window_with(window)


@pytest.mark.parametrize("entry,text,button", zip(WINDOWS, ("of today’s goal", "Your week so far", "kg"), ("History", "Year", "Done")))
def test_a_window_is_dragged_by_its_background_and_not_by_its_buttons(desktop, program, entry, text, button):
    program.choose(entry)
    window, shown = desktop.window(WINDOWS[entry]), program.window_with(button)
    (x, y), corner, steps = shown.find(text).middle, desktop.frame(window), itertools.count(1)
    desktop.hold(x, y)

    def follows():
        step = min(next(steps), 30)
        desktop.move_pointer(x - 20 * step, y + 10 * step)
        return desktop.frame(window)[0] <= corner[0] - 120

    wait_until(follows, "the window following")
    desktop.button(False)
    moved = at_rest(lambda: desktop.frame(window))
    assert (moved[1] - corner[1], moved[2:]) == ((corner[0] - moved[0]) // 2, corner[2:])
    desktop.hold(*shown.find(button).middle)
    desktop.move_pointer(5, 5)
    holds_for(0.3, lambda: desktop.frame(window) == moved, "a button holds it")
    desktop.button(False)
    assert len(desktop.windows()) == 1


@pytest.mark.parametrize("session", [{}, {"XDG_SESSION_TYPE": "wayland"}, {"WAYLAND_DISPLAY": "wayland-7"}], ids=str)
def test_the_window_opens_near_the_pointer_or_where_the_pointer_is_stale_by_the_panel(desktop, session):
    desktop.settings()
    width, height = desktop.screen
    panel = desktop.foreign_window(0, height - 44, width, 44)
    claim = [0, 0, 0, 44] + [0] * 6 + [0, width - 1]
    panel.change_property(desktop.x.get_atom("_NET_WM_STRUT_PARTIAL"), Xatom.CARDINAL, 32, claim)
    wait_until(lambda: desktop.property(desktop.root, "_NET_WORKAREA")[3] == height - 44, "room for the panel")
    desktop.move_pointer(300, 90)
    program = desktop.start_recording(**session)
    x, y, w, h = desktop.frame(program.show())
    if session:
        desktop.x.force_screen_saver(X.ScreenSaverActive)  # A timer of XWayland's own.
        desktop.x.sync()
        assert "receiveSleepNotification" not in at_rest(desktop.log, 1)
        assert width - 40 < x + w <= width and height - 44 - 40 < y + h <= height - 44
    else:
        assert x + w // 2 == pytest.approx(300, abs=1) and 0 <= y < 40


@pytest.mark.parametrize("scale", SCREENS)
def test_every_window_fits_the_screen(desktop, scale):
    width, height = desktop.screen
    desktop.move_pointer(5, 5)
    program = desktop.start(QT_SCALE_FACTOR=str(scale))

    def fits(title, *controls):
        x, y, w, h = desktop.frame(desktop.window(title))
        assert 0 <= x <= x + w <= width and 0 <= y <= y + h <= height, title
        assert title == "Zelvo StandUp" or max(abs(2 * x + w - width), abs(2 * y + h - height)) <= 4 * scale, title
        here = program.window_with(*controls)
        for name in controls:
            cx, cy, cw, ch = (value * scale for value in here.find(name).frame)
            assert x - 1 <= cx < cx + cw <= x + w + 1 and y - 1 <= cy < cy + ch <= y + h + 1, f"{name} of {title}"
        return here

    fits("Settings", "Settings", "Done").find("Done").press()
    controls = [("Close", "Up", "History"), ("Close", "Year"), ("Done", "Close without saving")]
    for (entry, title), names in zip(WINDOWS.items(), controls):
        program.choose(entry)
        fits(title, *names)
