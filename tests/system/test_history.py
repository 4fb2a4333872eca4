"""History and export against periods that were planted, summed up here with the system's own time zones."""

from datetime import datetime, timedelta
from zoneinfo import ZoneInfo

import pytest
from screenreader import FOCUSED
from waiting import wait_until

WEIGHT, GOAL = 63, 20
# Local beginning, minutes, standing. The clock stands at 14:30 on Wednesday, 10 July 2024.
NOW = datetime(2024, 7, 10, 14, 30)
PERIODS = [
    ("2012-12-31 20:00", 90, True),
    ("2013-01-01 10:00", 61, True),
    ("2023-12-31 21:30", 120, True),
    ("2024-01-01 00:20", 33, True),
    ("2024-04-26 00:30", 45, True),
    ("2024-06-30 23:15", 44, True),
    ("2024-07-01 00:05", 52, True),
    ("2024-07-07 22:40", 70, True),
    ("2024-07-08 00:10", 17, True),
    ("2024-07-08 23:30", 29, True),
    ("2024-07-09 23:30", 60, True),
    ("2024-07-10 09:00", 75, True),
    ("2024-07-10 10:15", 45, False),
    ("2024-07-10 11:00", 8, True),
]


class Sums:
    # What the windows must show, from the periods alone.

    def __init__(self, zone):
        self.zone = ZoneInfo(zone)
        self.now = self.instant(NOW)
        starts = [(self.instant(datetime.fromisoformat(begin)), minutes * 60, s) for begin, minutes, s in PERIODS]
        self.rows = [(start, start + length, standing) for start, length, standing in starts]

    def instant(self, local):
        return local.replace(tzinfo=self.zone).timestamp()

    def standing(self, start, end):
        # The records of a standing total. One that covers a border counts whatever its posture.
        inside = [row for row in self.rows if row[0] >= start and row[1] < end and row[2]]
        return inside + [row for row in self.rows if row[0] < start <= row[1] or row[0] < end < row[1]]

    @staticmethod
    def minutes(rows, start, end):
        return sum(min(row[1], end) - max(row[0], start) for row in rows) / 60

    def calories(self, start, end):
        standing = [row for row in self.standing(start, end) if row[2]]
        return self.minutes(standing, start, end) * WEIGHT * 2.205 * 0.0054

    def goals(self, first):
        day, met = first, 0
        while self.instant(day) < self.instant(NOW.replace(hour=0, minute=0) + timedelta(1)):
            met += self.calories(self.instant(day), self.instant(day) + 86400) >= GOAL
            day += timedelta(1)
        return met

    def since(self, first):
        start, rows = self.instant(first), self.standing(self.instant(first), self.now)
        return self.minutes(rows, start, self.now), self.calories(start, self.now), len(rows), self.goals(first)

    def shown(self, first):
        return [str(int(number + 1e-6)) for number in self.since(first)]

    def exported(self):
        minutes, calories, stands, goals = self.since(datetime(2013, 1, 1))
        titles = "Standing Minutes;Calories burned;Standing session count;Goals met;\n"
        return f"{titles}{minutes:.2f}; {calories:.2f}; {stands}; {goals}; ".encode()


def start_with_history(desktop, sums):
    desktop.settings(Weight=WEIGHT, ActivityGoal=GOAL)
    desktop.env["TZ"] = sums.zone.key
    desktop.clock.set_wall(sums.now - desktop.clock.now())
    program = desktop.start()
    program.click_tray()  # Makes the store.
    desktop.window("Zelvo StandUp")
    program.quit()
    desktop.plant(sums.rows)


def show_history(program):
    program.choose("History")
    return program.window_with("Year")


def numbers(window):
    return [node.name for node in window.all(role="label") if node.name.isdigit()]


def choose_file(desktop, program, name=""):
    # Without a name it is the proposed one.
    desktop.click(*program.window_with("Year").find("Export to a file…").middle)
    panel = program.window_with("Save", "Cancel")
    assert not name or panel.find(role="text").set_text(name)
    return panel


def export(desktop, program, name=""):
    # Answers the name of the file and what was written.
    choose_file(desktop, program, name).find("Save").press()

    def written():
        return next((path for path in desktop.home.rglob("*.[cC][sS][vV]") if path.read_bytes().endswith(b"; ")), None)

    file = wait_until(written, "the exported file")
    found = file.name, file.read_bytes()
    file.unlink()
    return found


@pytest.mark.parametrize("zone", ["Africa/Cairo", "America/Mexico_City", "Europe/London"])
def test_history_and_export_of_planted_periods(desktop, zone):
    sums = Sums(zone)
    start_with_history(desktop, sums)
    program = desktop.start()
    window = show_history(program)
    midnight = NOW.replace(hour=0, minute=0)
    assert numbers(window) == sums.shown(midnight - timedelta(2))
    firsts = {
        "Day": midnight,
        "Week": midnight - timedelta(2),
        "Month": midnight.replace(day=1),
        "Year": midnight.replace(month=1, day=1),
    }
    for button, first in firsts.items():
        window.find(button).press()
        wait_until(lambda: numbers(window) == sums.shown(first), f"{button}: {sums.shown(first)}")
    assert export(desktop, program) == ("Zelvo StandUp 10-07-2024.csv", sums.exported())
    assert numbers(window) == sums.shown(firsts["Year"])


def test_an_export_takes_nothing_from_the_user(desktop):
    desktop.settings()
    program = desktop.start_recording()
    show_history(program)
    documents = desktop.home / "Documents"
    documents.mkdir()
    (documents / "mine.csv").write_text("mine")
    for name, file in {"week": "week.csv", "other.CSV": "other.CSV"}.items():
        assert export(desktop, program, name)[0] == file
    choose_file(desktop, program)
    desktop.key("Escape")
    wait_until(lambda: len(desktop.windows()) == 1, "the panel closed")
    choose_file(desktop, program, "mine")
    for way in ("without the ending", "with it"):
        program.window_with("Save", "Cancel").find("Save").press()
        question = program.window_with("Yes", "No")
        question.hears("mine.csv already exists.")
        wait_until(lambda: question.find("No").has(FOCUSED), "the answer that harms nobody")
        question.find("No").press()
        wait_until(question.is_gone, f"the panel again, {way}")
    assert [path.read_text() for path in documents.glob("*.csv")] == ["mine"]
    program.window_with("Save", "Cancel").find("Save").press()
    program.window_with("Yes", "No").find("Yes").press()
    wait_until(lambda: (documents / "mine.csv").read_text().startswith("Standing Minutes"), "the export")
