"""Every window can be used on a small screen."""

import pytest

# A screen of that many pixels, at that scale.
SCREENS = [("800x480", 1), ("1024x600", 1), ("1366x768", 1.25), ("1920x1080", 2)]


@pytest.mark.parametrize(
    "scale", [pytest.param(scale, marks=pytest.mark.desktop(screen=size), id=f"{size}@{scale}") for size, scale in SCREENS]
)
def test_every_window_fits_the_screen(desktop, scale):
    width, height = desktop.screen
    program = desktop.start(QT_SCALE_FACTOR=str(scale))

    def fits(title, *controls):
        x, y, w, h = desktop.frame(desktop.window(title))
        assert 0 <= x <= x + w <= width and 0 <= y <= y + h <= height, title
        here = program.window_with(*controls)
        for name in controls:
            cx, cy, cw, ch = (value * scale for value in here.find(name).frame)
            assert x - 1 <= cx < cx + cw <= x + w + 1 and y - 1 <= cy < cy + ch <= y + h + 1, f"{name} of {title}"

    fits("Setup", "Setup", "Done")
    program.ear.find("Done").press()
    program.choose("Open Zelvo StandUp")
    fits("Zelvo StandUp", "Close", "Up", "History")
    program.choose("History")
    fits("History", "Close", "Year", "History")
    program.choose("Settings…")
    fits("Setup", "Setup", "Done", "Close without saving")
