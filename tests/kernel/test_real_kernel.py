"""The program over udev, hidraw and the kernel's USB, as an ordinary user at the machine; the desk is zelvo-desk-sim."""

import contextlib
import re
import subprocess
import time
from pathlib import Path

import pytest
from desktop import PROGRAM, Desktop
from program import Program
from waiting import wait_until

INIT, UP, STOP = "03 04 00 FB 00 00 00 00", "05 00 80 00 80 00 80 00", "05 01 80 01 80 01 80 01"
STAND = "05 04 10 04 10 04 10 04"  # To 4100.
PAUSE = 4.0  # A busy emulated machine may stand still for a moment. A kernel that waits for an adapter does so for 5 s.
RULE = "/checkout/packaging/70-zelvo-standup.rules"
WRITTEN = re.compile(r"^(\S+) adapter (\d) set ([0-9A-F ]+): ok$", re.MULTILINE)


class RealDesktop(Desktop):
    # Nothing of it bends the clock, and the program meets the machine's own devices.

    def bent(self, *_):
        return {}

    def start(self):
        self.programs.append(Program(self, self.spawn(PROGRAM)))
        return self.programs[-1]

    def tells(self, **expected):
        wait_until(lambda: expected.items() <= self.ask("Status")[0].items(), expected)

    def answers_for(self, seconds, what):
        # How long does the program's main loop leave a question without an answer?
        end, longest = time.monotonic() + seconds, 0.0
        while (asked := time.monotonic()) < end:
            self.ask("Status")
            longest = max(longest, time.monotonic() - asked)
        print(f"\n{what}: the main loop was blocked for {longest * 1000:.0f} ms at most")
        assert longest < PAUSE


class World:
    # The program, its user's finger, and zelvo-desk-sim with its adapters on the kernel's end of the cable.

    def __init__(self, desktop):
        self.desktop, self.wire = desktop, desktop.home / "wire"
        self.holds = []  # (before it was pressed, after it was let go)
        desktop.settings(DevicePosition1=700, DevicePosition2=4100, TimeIdle=86400)
        with open(self.wire, "wb") as wire:
            command = [PROGRAM.with_name("zelvo-desk-sim"), "--usbip", "--wire"]
            self.simulator = desktop.spawn(*command, stdin=subprocess.PIPE, stdout=wire)
        wait_until(self.wire.read_text, "the adapters")

    def desk(self, command):
        self.simulator.stdin.write(command.encode() + b"\n")
        self.simulator.stdin.flush()
        return time.monotonic()

    @staticmethod
    def as_root(command):
        Path("/run/as-root").write_text(command + "\n")

    def attach(self, number=1):
        self.as_root(f"usbip attach -r 127.0.0.1 -b 1-{number}")

    def written(self, since=0.0, adapter="1"):
        found = WRITTEN.findall(self.wire.read_text())
        return [report for at, number, report in found if number == adapter and float(at) >= since]

    @contextlib.contextmanager
    def held(self, name, report):
        middle = self.panel.find(name, "push button").middle
        pressed = time.monotonic()
        self.desktop.hold(*middle)
        wait_until(lambda: self.written(pressed).count(report) >= 3, f"{name} on the wire")
        yield pressed
        self.holds.append((pressed, self.desktop.button(False)))
        wait_until(lambda: self.written()[-1] == STOP, "an end of it")

    def comes_back(self, since):
        # It is asked to stop first of all, or is initialised.
        self.desktop.tells(desk="connected")
        wait_until(lambda: self.written(since)[-2:] == [INIT, STOP], "init and stop")
        assert set(self.written(since)) == {INIT, STOP}


@pytest.fixture
def world(request):
    with contextlib.ExitStack() as ends:
        world = World(RealDesktop(ends, tray=False))
        yield world
        if request.session.testsfailed:
            print(world.desktop.log()[-6000:], world.wire.read_text()[-3000:])


def test_a_day_of_the_program_on_a_real_kernel(world):
    # An adapter without its rule is taken up when it has one.
    desktop = world.desktop
    world.desk("height 1000")
    world.attach()
    wait_until(Path("/dev/hidraw0").exists, "hidraw")
    program = desktop.start()
    desktop.tells(desk="forbidden")
    desktop.ask("Show")
    world.panel = program.window_with("Up")
    world.as_root(f"cp {RULE} /etc/udev/rules.d/ && udevadm trigger -s hidraw -c change")
    world.comes_back(0)
    desktop.tells(posture="sitting", height_raw=1000, adapter="Simulated desk (USB/IP)")

    # A held button moves the desk until it is let go, to a stored position as well.
    with world.held("Up", UP) as pressed:
        desktop.answers_for(2, "Up held")
    reports = world.written(pressed)
    assert reports == [STOP] + [UP] * (len(reports) - 2) + [STOP]
    with world.held("Stand", STAND):
        desktop.tells(height_raw=4100, posture="standing")
    wait_until(lambda: [standing for _, _, standing in desktop.records()] == [0, 1], "both periods")

    # An error of the desk is shown until it is over.
    world.desk("error overload-up")
    world.panel.hears("E02: Overload while going up")
    world.desk("error clear")
    wait_until(lambda: not any("E02" in said for said in world.panel.says()), "no error")

    # An adapter that refuses is taken up again, and windows live while one is silent.
    world.desk("fault stall on")
    desktop.tells(desk="none")
    world.comes_back(world.desk("fault stall off"))
    world.desk("fault silence on")
    desktop.answers_for(10, "No answer for 10 s")
    desktop.tells(desk="none")
    desktop.ask("ShowHistory")
    desktop.window("History")
    world.comes_back(world.desk("fault silence off"))

    # It is pulled out while it moves, and a second one stays where it is.
    desktop.ask("Show")
    program.in_front("Zelvo StandUp")
    with world.held("Up", UP):
        pulled = world.desk("unplug")
        desktop.tells(desk="none")
        world.desk("plug")
        world.attach()
        world.comes_back(pulled)
    world.desk("adapter 2")
    world.attach(2)
    wait_until(lambda: world.written(adapter="2") == [INIT, STOP], "the second adapter")

    # Nothing moved that nobody held, and each period is recorded.
    program.quit()
    records = desktop.records()
    assert all(end <= begin for (_, end, _), (begin, _, _) in zip(records, records[1:]))
    assert desktop.log().count("Device removed") == 3
    moved = [float(at) for at, _, report in WRITTEN.findall(world.wire.read_text()) if report not in (INIT, STOP)]
    assert all(any(pressed <= at <= let_go + PAUSE for pressed, let_go in world.holds) for at in moved)
