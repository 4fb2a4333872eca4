"""Settings as the user enters them, in their units, and as somebody else has left them in the file."""

import pytest
from screenreader import FOCUSED, SHOWING
from waiting import holds_for, wait_until

FIELDS = {"weight": "My weight", "height": "Desk height now", "stand-ups": "Stand-ups"}
UNITS = {
    # Language: what the fields show, what is typed, what is stored of it, the height in the main window
    "en_GB": (("66", "74"), ("82", "80"), (82, 8000 - 900), "80 cm"),
    "en_US": (("145", "29.1"), ("180", "30"), (180 * 0.454, 30 * 254 - 900), "30.0 in"),
}
LIMITS = {
    # Field: its key, the words of the refusal, what is refused
    "weight": ("Weight", "0 to 999", ["12345", "-3", "abc"]),
    "stand-ups": ("NumberOfStandUps", "1 to 6", ["9", "2147483647", "0"]),
    "height": ("TablePositionOffset", "0 to 2500", ["9999", "-650", ""]),
}


class Setup:
    def __init__(self, desktop, language="en_GB", **settings):
        self.desktop = desktop
        desktop.settings(**({"Weight": 66, "TablePositionOffset": 6500, "NumberOfStandUps": 3} | settings))
        desktop.env["LC_ALL"] = desktop.env["LANG"] = f"{language}.UTF-8"
        self.adapter = desktop.plug()
        self.program = desktop.start_recording()
        self.open()

    def open(self):
        self.program.choose("Settings…")
        self.panel = self.program.window_with("Setup")

    def field(self, name):
        return self.panel.find(FIELDS[name], "text")

    def enter(self, name, text):
        # With the keyboard.
        self.program.in_front("Setup")
        self.field(name).focus()
        wait_until(lambda: self.field(name).has(FOCUSED), "focus")
        for key in ("End", *["BackSpace"] * 6):
            self.desktop.key(key)
        self.desktop.type(text)
        wait_until(lambda: self.field(name).text == text, f"{text} in the field")

    def leaves_by(self, button):
        self.panel.find(button).press()
        wait_until(lambda: "Setup" not in self.desktop.windows(), "the window closed")

    def stored(self, *keys):
        return [float(self.desktop.setting(key)) for key in keys]


@pytest.mark.parametrize("language", UNITS)
def test_settings_in_two_systems_of_units(desktop, language):
    shown, typed, stored, height = UNITS[language]
    setup = Setup(desktop, language=language)
    assert (setup.field("weight").text, setup.field("height").text) == shown
    for name, text in zip(("weight", "height", "stand-ups"), (*typed, "4")):
        setup.enter(name, text)
    setup.panel.find("30 minutes").press()
    setup.panel.hears("7.5")
    setup.leaves_by("Done")
    assert setup.stored("Weight", "TablePositionOffset") == pytest.approx(stored)
    assert setup.stored("ActivityMode", "ActivityGoal", "NumberOfStandUps") == [2, 30, 4]
    setup.program.click_tray()
    setup.program.window_with("Up").hears(height)

    setup.open()
    setup.panel.find("Calories", "page tab").press()
    setup.panel.find("200 Calories").press()
    setup.leaves_by("Done")
    assert setup.stored("ActivityMode", "ActivityGoal") == [1, 200]
    setup.open()
    setup.enter("weight", "50")
    setup.leaves_by("Close without saving")
    setup.open()
    assert setup.field("weight").text == typed[0]
    assert setup.stored("Weight") == pytest.approx(stored[:1])


def test_what_goes_round_the_keyboard_is_checked_all_the_same(desktop):
    setup = Setup(desktop, Weight=12345, NumberOfStandUps=2147483647)
    assert [setup.field(name).text for name in ("weight", "stand-ups")] == ["80", "1"]
    for name, text in {"weight": "66", "stand-ups": "3"}.items():
        setup.enter(name, text)
    setup.leaves_by("Done")
    setup.open()
    told = lambda: [node.name for node in setup.panel.walk() if node.role == "notification" and node.has(SHOWING)]
    for field, (key, limits, texts) in LIMITS.items():
        good = setup.field(field).text
        for text in texts:
            setup.field(field).set_text(text)
            setup.panel.find("Done").press()
            wait_until(lambda: setup.field(field).text == good, f"{good} again in place of {text!r}")
            wait_until(lambda: any(f"a number from {limits}." in words for words in told()), "the refusal")
        setup.field(field).focus()
        desktop.type("x")
        holds_for(0.3, lambda: setup.field(field).text == good, "no letters afterwards either")
    setup.leaves_by("Done")
    assert setup.stored("Weight", "NumberOfStandUps", "TablePositionOffset") == [66, 3, 6500]


def test_a_settings_file_edited_by_hand_keeps_what_can_be_read(desktop):
    for junk in (b"\xef\xbb\xbf", b"# A comment\n", b"Name=Ren\xe9\n"):
        desktop.settings(Weight=None, Version=None)
        text = desktop.config.read_bytes().rstrip(b"\n") + b"\nDevicePosition1=1234\nWeight=66"  # No final line end.
        is_mark = junk.startswith(b"\xef")
        desktop.config.write_bytes(junk + text if is_mark else text.replace(b"\n", b"\n" + junk, 1))
        desktop.start_recording().quit()
        assert (desktop.setting("DevicePosition1"), desktop.setting("Weight")) == ("1234", "66")

    with open(desktop.config, "ab") as file:
        file.write(b"no setting at all\n[broken\n")
    damaged = desktop.config.read_bytes()
    program = desktop.start()
    panel = program.window_with("OK")
    [copy] = [path for path in desktop.config.parent.iterdir() if path.read_bytes() == damaged]
    for words in (copy.name, "no setting at all", "[broken"):
        panel.hears(words)
    assert (desktop.setting("DevicePosition1"), desktop.setting("Weight")) == ("1234", "66")


def test_only_an_upgrade_resets_the_dismissal_time(desktop):
    for version, dismiss in (("1.0.2", "45"), ("1.0.1", "45"), ("1.0.0", "20"), (None, "20")):
        desktop.settings(Version=version, TimeNotificationDismiss=45)
        desktop.start_recording().quit()
        assert desktop.setting("TimeNotificationDismiss") == dismiss
        assert desktop.setting("Version") == max(version or "", "1.0.1")
