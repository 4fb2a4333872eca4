"""What a screen reader is told of the windows, and the keyboard alone."""

from screenreader import CHECKED, FOCUSED, SELECTED, SHOWING, listen
from waiting import wait_until

HOLD = "Hold to move the desk to this position"
SET = "Set the height of this position"
UP, DOWN = "Hold to raise the desk", "Hold to lower the desk"
# By a control that no other window has: role, name and what explains it; an asterisk stands before what is chosen.
TOLD = {
    "of today’s goal": {
        "push button": dict.fromkeys(["Close", "History", "Settings"], "")
        | {"Up": UP, "Down": DOWN}
        | dict.fromkeys(["Sit", "Stand", "Position 3"], HOLD),
        "progress bar": {"Progress towards today’s goal: 0 min": "", "Progress of the current session: 0 min": ""},
    },
    "Year": {
        "radio button": dict.fromkeys(["Day", "*Week", "Month", "Year"], ""),
        "push button": {"Close": ""},
        "link": {"Export to a file…": ""},
    },
    "My weight": {
        "text": {"My weight": "kg", "Desk height now": "cm", "Stand-ups": "per hour"},
        "page tab": {"*Time": "", "Calories": ""},
        "radio button": dict.fromkeys(["10 minutes", "15 minutes", "*20 minutes", "30 minutes", "40 minutes"], ""),
        "slider": {"Goal": "20 minutes"},
        "combo box": {"Light": ""},
        "list item": dict.fromkeys(["Light", "Dark", "As the desktop"], ""),
        "push button": {"Sit, 72 cm": SET, "Stand, 110 cm": SET, "Position 3, 115 cm": SET, "Done": ""}
        | {"Close without saving": "Close without saving"},
        "link": {"Watch the video": "", "More about standing at work": ""},
    },
    "Snooze": {"push button": {"Sit": HOLD, "Up": UP, "Down": DOWN, "Snooze": "", "Skip": ""}},
}


def controls(window):
    told = {}
    for node in window.walk():
        if node.has(SHOWING) and node.role not in ("filler", "label", "notification"):
            chosen = "*" * (node.has(CHECKED) or node.has(SELECTED))
            told.setdefault(node.role, {})[chosen + node.name] = node.description
    return told


def test_what_a_screen_reader_is_told(desktop):
    desktop.settings(ActivityGoal=20)
    links = desktop.keep_opened_links()
    program = desktop.start_recording("--test-window")
    program.choose("Settings…")
    program.in_front("Settings")
    setup = program.window_with("My weight")
    for name, page in {"Watch the video": "video", "More about standing at work": "info"}.items():
        desktop.click(*setup.find(name).middle)
        wait_until(lambda: links()[-1:] == [f"https://standup.zelvo.example/{page}"], page)
    program.choose("History")
    program.choose("Open Zelvo StandUp")
    program.window_with("of today’s goal").hears("Current session")
    test = program.window_with("Sit down")
    heard = listen(desktop.accessibility)
    assert test.find("1000").role == "push button", "not the name of its group"
    test.find("Sit down").press()
    for name, told in TOLD.items():
        window = program.window_with(name)
        assert (controls(window), window.role) == (told, "dialog" if name == "Snooze" else "frame")
    snooze = program.window_with("Snooze")
    wait_until(lambda: any(said in heard()[0] for said in snooze.says()), "the reminder")
    setup.find("30 minutes").press()
    wait_until(lambda: heard()[-1] == "30 minutes checked", "what is chosen now")
    setup.find("Sit, 72 cm").press()
    editor = {"Up": UP, "Down": DOWN, "Store": SET}.items()
    wait_until(lambda: editor <= controls(setup)["push button"].items(), "its editor")
    test.find("Stand up").press()
    snooze.find("Stand")
    desktop.click(*snooze.find("Up").middle)
    wait_until(lambda: heard()[-1] == "Keep holding", "what the button is for")
    for fault, words in {"Overload up": "E02: Overload while going up", "Overload down": "E03", "Position lost": "E01"}.items():
        test.find(fault).press()
        wait_until(lambda: words in heard()[-1], fault)
    test.find("No answer").press()
    with desktop.clock.running(10):
        program.window_with("of today’s goal").hears("Please connect your desk")


def test_the_keyboard_alone_is_enough(desktop):
    desktop.settings(Weight=66)
    program = desktop.start_recording()
    program.choose("Settings…")
    program.in_front("Settings")
    setup = program.window_with("Settings")

    def focus():
        return next((node.name for node in setup.walk() if node.has(FOCUSED)), None)

    def tab_to(name):
        way = []
        for _ in range(40):
            before = focus()
            desktop.key("Tab")
            wait_until(lambda: focus() not in (None, before), "the focus moved")
            way.append(focus())
            if way[-1] == name:
                return way
        raise AssertionError(f"no way to {name}")

    goals = [f"{minutes} minutes" for minutes in (10, 15, 20, 30, 40)]
    heights = ["Sit, 72 cm", "Stand, 110 cm", "Position 3, 115 cm"]
    way = ["Desk height now", "Stand-ups", "Time", "Calories", *goals, "Goal", *heights, *TOLD["My weight"]["link"]]
    assert tab_to("My weight") == [*way, "Done", "Light", "Close without saving", "My weight"]
    tab_to("Calories")
    desktop.key("space")
    setup.find("150 Calories")
    tab_to("Goal")
    for key in ("Home", "Right"):
        desktop.key(key)
    tab_to("Done")
    desktop.key("space")
    wait_until(lambda: not desktop.windows(), "the window closed")
    assert (desktop.setting("ActivityMode"), desktop.setting("ActivityGoal")) == ("1", "100")
