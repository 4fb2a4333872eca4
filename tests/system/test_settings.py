"""Settings as the user enters them, in their units, and as somebody else has left them in the file."""

import pytest
from gi.repository import GLib
from screenreader import FOCUSED
from waiting import at_rest, wait_until
from Xlib import X

WEIGHT, HEIGHT, STAND_UPS = "My weight", "Desk height now", "Stand-ups"
UNITS = {
    # Language: what is typed, what is stored of it
    "en_GB": (("82", "80"), (82, 8000 - 900)),
    "en_US": (("180", "30"), (180 * 0.454, 30 * 254 - 900)),
}
LIMITS = {
    # Field: the words of the refusal, what is refused
    WEIGHT: ("0 to 999", ["12345", "-3", "abc"]),
    STAND_UPS: ("1 to 6", ["9", "2147483647", "0"]),
    HEIGHT: ("0 to 2500", ["9999", "-650", ""]),
}


class Setup:
    def __init__(self, desktop, language="en_GB"):
        self.desktop = desktop
        desktop.settings(Weight=66, TablePositionOffset=6500, NumberOfStandUps=3)
        desktop.env["LC_ALL"] = desktop.env["LANG"] = f"{language}.UTF-8"
        desktop.plug()
        self.program = desktop.start_recording()
        self.program.choose("Settings…")
        self.panel = self.program.window_with("Settings")

    def field(self, name):
        return self.panel.find(name, "text")

    def enter(self, name, text):
        # With the keyboard.
        self.program.in_front("Settings")
        field = self.field(name)
        field.focus()
        wait_until(lambda: field.has(FOCUSED), "focus")
        for key in ("End", *["BackSpace"] * 6):
            self.desktop.key(key)
        self.desktop.type(text)
        wait_until(lambda: field.text == text, f"{text} in the field")

    def leaves_by(self, button):
        self.panel.find(button).press()
        wait_until(lambda: "Settings" not in self.desktop.windows(), "the window closed")

    def stored(self, *keys):
        return [float(self.desktop.setting(key)) for key in keys]


@pytest.mark.parametrize("language", UNITS)
def test_settings_in_two_systems_of_units(desktop, language):
    typed, stored = UNITS[language]
    setup = Setup(desktop, language=language)
    for name, text in zip((WEIGHT, HEIGHT, STAND_UPS), (*typed, "4")):
        setup.enter(name, text)
    setup.panel.find("30 minutes").press()
    setup.panel.hears("7.5")
    setup.field(STAND_UPS).set_text("6")
    setup.panel.hears("That is 5")
    setup.panel.find("Light", "combo box").press()
    for key in ("Down", "Return"):
        desktop.key(key)
    setup.panel.find("Dark", "combo box")
    setup.leaves_by("Done")
    assert setup.stored("Weight", "TablePositionOffset") == pytest.approx(stored)
    assert setup.stored("ActivityMode", "ActivityGoal", "NumberOfStandUps", "Appearance") == [2, 30, 6, 1]


def test_what_goes_round_the_keyboard_is_checked_all_the_same(desktop):
    setup = Setup(desktop)
    for name, (limits, texts) in LIMITS.items():
        field = setup.field(name)
        good = field.text
        for text in texts:
            field.set_text(text)
            setup.panel.find("Done").press()
            wait_until(lambda: field.text == good, f"{good} again in place of {text!r}")
            told = lambda: [note.name for note in setup.panel.all(role="notification")]  # noqa: E731
            wait_until(lambda: any(f"a number from {limits}." in words for words in told()), "the refusal")
    setup.leaves_by("Done")
    assert setup.stored("Weight", "NumberOfStandUps", "TablePositionOffset") == [66, 3, 6500]


def test_a_damaged_settings_file_keeps_what_can_be_read_and_is_upgraded(desktop):
    desktop.settings(Version=None, TimeNotificationDismiss=45, DevicePosition1=1234)
    with open(desktop.config, "ab") as file:
        file.write(b"no setting at all\n[broken\n")
    damaged = desktop.config.read_bytes()
    panel = desktop.start().window_with("OK")
    [copy] = [path for path in desktop.config.parent.iterdir() if path.read_bytes() == damaged]
    for words in (copy.name, "no setting at all", "[broken"):
        panel.hears(words)
    panel.find("OK").press()
    wait_until(lambda: desktop.setting("Version") == "1.0.1", "the upgrade")
    kept = ("TimeNotificationDismiss", "DevicePosition1", "Weight")
    assert [desktop.setting(key) for key in kept] == ["20", "1234", "70"]


def test_who_follows_the_desktop_gets_its_look_and_its_motion(desktop):
    desktop.settings(Appearance=2)
    keys = {"color-scheme": "org.freedesktop.appearance"}
    keys |= {"enable-animations": "org.gnome.desktop.interface", "AnimationDurationFactor": "org.kde.kdeglobals.KDE"}
    name = "org.freedesktop.portal.Desktop"
    portal = desktop.mock(desktop.session, "--session", name, "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings")
    wishes = {(keys[key], key): value for key, value in {"color-scheme": 1, "AnimationDurationFactor": 0.0}.items()}
    portal.call("AddMethod", "(sssss)", portal.interface, "Read", "ss", "v", f"ret = {wishes}[tuple(args)]")
    program = desktop.start("--test-window")
    program.click_tray()
    window, main, test = desktop.window("Zelvo StandUp"), program.window_with("History"), program.window_with("Unplug")
    main.hears("Current session")
    picture = lambda: window.get_image(0, 0, 200, 400, X.ZPixmap, 0xFFFFFFFF).data  # noqa: E731
    wait_until(lambda: picture()[8040:8043] == b"\x24\x22\x1e", "the dark look")

    def changes(key, kind, value):
        portal.emit("SettingChanged", "ssv", keys.get(key, key), key, GLib.Variant(kind, value))
        # It answers after what it heard on the same connection; the tray icon has one of its own.
        desktop.ask("Status")

    # The first time as the portal said when it was asked.
    later = [("enable-animations", "b", True), ("enable-animations", "b", False), ("AnimationDurationFactor", "d", 0.5)]
    for is_moving, change in enumerate([("accent-color", "d", 1.0), *later]):
        desktop.clock.run(1)
        at_rest(picture)  # After what the last change has set in motion.
        changes(*change)
        desktop.clock.run(0.001)
        test.find("Unplug").press()
        main.hears("Please connect your desk")
        at_once = at_rest(picture)
        desktop.clock.run(1)
        assert (at_rest(picture) != at_once) == is_moving % 2, change
        test.find("Plug in").press()
        main.hears("Current session")
    changes("color-scheme", "u", 2)
    wait_until(lambda: picture()[8040:8043] == b"\xec\xec\xec", "the light look")
