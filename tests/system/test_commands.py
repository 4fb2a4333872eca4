"""What other processes ask of the program, on the command line and over the session bus."""

import json
import os
import re
import signal
import socket
import subprocess
from pathlib import Path

import pytest
from adapter import STOP, UP
from bus import call
from desktop import PROGRAM
from gi.repository import Gio, GLib
from waiting import wait_until

NAME, OBJECT = "org.zelvo.StandUp", "/org/zelvo/StandUp"
POSITIONS = {"DevicePosition1": 500, "DevicePosition2": 1000}
TITLES = {"--settings": "Settings", "--show": "Zelvo StandUp", "--history": "History"}
NOT_RUNNING = "zelvo-standup: The program is not running.\n"
RULE = Path(__file__).parents[2] / "packaging/70-zelvo-standup.rules"
INSTALLS = f"echo '{RULE.read_text().splitlines()[-1]}' | sudo tee /etc/udev/rules.d/{RULE.name}"
RELOADS = "sudo udevadm control --reload"  # The package has installed it.
IS_INSTALLED = any(Path(folder, "udev/rules.d", RULE.name).exists() for folder in ("/etc", "/usr/lib"))
CURE = [RELOADS if IS_INSTALLED else INSTALLS, "sudo udevadm trigger -s hidraw -c change"]


@pytest.fixture
def ask(desktop):
    # A command, as from a shell without a display. Answers what it says.
    def ask(*arguments, code=0, **env):
        command, env = [PROGRAM, *arguments], desktop.env | {"DISPLAY": ""} | env
        done = subprocess.run(command, env=env, capture_output=True, text=True, timeout=20)
        assert done.returncode == code, done
        return done.stdout + done.stderr

    return ask


@pytest.fixture
def status(ask):
    return lambda: json.loads(ask("--status", "--json"))


@pytest.fixture
def news(desktop):
    # Whether the bus has told of a change since it was asked last, and how often.
    told = []
    changed = (NAME, "org.zelvo.StandUp1", "Changed", None, None, Gio.DBusSignalFlags.NONE)
    desktop.session.signal_subscribe(*changed, lambda *_: told.append(1))

    def news():
        while GLib.MainContext.default().iteration(False):
            pass
        count, told[:] = len(told), []
        return count

    return news


def test_a_command_without_a_program_says_so_or_starts_it(desktop, ask):
    for command in ("--quit", "--snooze", "--skip", "--status", "--watch"):
        assert ask(command, code=1) == NOT_RUNNING
    assert ask("--status", "--quit", code=2).startswith("zelvo-standup: --quit and --status do not go together.")
    assert ask("--json", "--show", code=2).startswith("zelvo-standup: --json requires --status or --watch.")
    for arguments in ([], ["--show"], ["--settings"], ["--history"]):
        assert "There is no display" in ask(*arguments, code=1)
    program = desktop.start("--history")
    desktop.window("Settings")  # There is no history before the set-up.
    assert "goal_done" not in wait_until(lambda: desktop.ask("Status")[0], "its status")
    program.quit()
    desktop.settings(ActivityMode=1)
    program = desktop.start("--history")
    assert desktop.property(desktop.window("History"), "_NET_WM_ICON")
    assert desktop.ask("Status")[0]["goal_unit"] == "kcal"
    for command, title in TITLES.items():
        assert ask(command) == ""
        program.in_front(title)
    for method, title in zip(("ShowSettings", "Show", "ShowHistory"), TITLES.values()):
        desktop.ask(method)
        program.in_front(title)
    program.signal(signal.SIGSTOP)
    assert ask("--status", code=1) == "zelvo-standup: The program runs, but does not answer.\n"
    assert "The program is already running but does not respond." in ask(code=1, DISPLAY=desktop.env["DISPLAY"])
    program.signal(signal.SIGCONT)
    ask("--quit")
    assert not desktop.has_owner(desktop.session, NAME)
    program.ends()


def test_starts_that_end_at_once(desktop, ask):
    assert ask("--version") == "zelvo-standup 1.0.1\n"
    for words in ("Usage: zelvo-standup [options]\n", "--simulate", "--language <CODE>", "--test-window", "-h, --help"):
        assert words in ask("--help")
    assert ask("--faster", code=2).endswith("'faster'. Try --help.\n")
    assert ask("desk", code=2) == "zelvo-standup: 'desk' is not an option. Try --help.\n"
    assert "Unknown language 'xx'." in ask("--language", "xx", code=2)
    program = desktop.start("--language=de", XDG_CONFIG_HOME="config", XDG_DATA_HOME="data")
    assert "Einstellungen…" in program.menu()
    for file in (".local/share/org.zelvo.StandUp/StandUp.log", ".config/org.zelvo.StandUp/StandUp.conf"):
        wait_until((desktop.home / file).exists, "the usual folder")
    program.quit()
    assert "Einstellungen…" in desktop.start(LC_ALL="de_AT.UTF-8").menu()


def test_without_a_session_bus_a_second_start_still_works(desktop, ask):
    desktop.settings()
    desktop.env["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=/nowhere"
    desktop.start_recording()
    for command, title in TITLES.items():
        ask(command, DISPLAY=desktop.env["DISPLAY"])
        desktop.window(title)
    assert "There is no session bus" in ask("--status", code=1)
    with socket.socket(socket.AF_UNIX) as silent:
        silent.bind(str(desktop.home / "silent"))
        silent.listen()
        desktop.env["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={desktop.home}/silent"
        assert ask("--status", code=1) == "zelvo-standup: The session bus does not answer.\n"


def test_status_and_watch_follow_desk_minutes_and_absence(desktop, ask, status, news):
    desktop.settings(ActivityGoal=57, TimeIdle=100, TablePositionOffset=6200, **POSITIONS)  # 57 of 60 min standing.
    adapter = desktop.plug(height=500)
    program = desktop.start_recording()
    watched = desktop.home / "watched"
    with open(watched, "w") as file:
        watch = desktop.spawn(PROGRAM, "--watch", "--json", env=desktop.env | desktop.bent(), stdout=file)
    lines = lambda: [json.loads(line) for line in watched.read_text().splitlines()]  # noqa: E731

    def tells(**expected):
        # The newest line, once it says that.
        return wait_until(lambda: [line for line in lines()[-1:] if expected.items() <= line.items()], expected)[0]

    first = tells(minutes=0)
    since = first.pop("since")
    assert since == int(desktop.records()[0][0]) and first.pop("idle_source", "X11").startswith("X11")
    assert first == {
        "goal_done": 0, "goal_percent": 0, "goal_target": 456, "goal_unit": "min",
        "adapter": "Desk 0", "desk": "connected", "permission": "granted", "paused": False,
        "height": "67 cm", "height_mm": 670, "height_raw": 500,
        "posture": "sitting", "minutes": 0, "minutes_to_change": 2,
    }
    assert "Posture:   sitting for 0 min, to change in 2 min\n" in ask("--status")

    desktop.clock.reach(since + 40, 10)
    adapter.put(508)
    tells(height_raw=508)  # Within a minute, which ends at its time all the same.
    looks = adapter.looks
    wait_until(lambda: adapter.looks > looks, "a look that is over")
    program.signal(signal.SIGSTOP)
    desktop.clock.reach(since + 63, 10)  # The minute's look meets a busy program.
    program.signal(signal.SIGCONT)
    tells(minutes=1, minutes_to_change=1)
    adapter.put(1100)
    standing = tells(posture="standing", minutes=0, height_raw=1100, height_mm=730)
    assert standing["since"] == int(desktop.records()[-1][0])
    before = len(lines())
    for height in range(1116, 1212, 16):  # The handset lifts it; only where it comes to rest is told.
        adapter.put(height)
        looks = adapter.looks
        wait_until(lambda: adapter.looks > looks, "a look at the desk")
    tells(height_raw=1196)
    assert len(lines()) <= before + 2
    desktop.clock.reach(desktop.clock.now() + 3, 10)  # The last height's, which a slow program told before.
    news()
    desktop.move_pointer(5, 5)
    with desktop.clock.running(8):
        assert tells(goal_done=1)["idle_source"].startswith("X11")
        tells(paused=True)
        assert "minutes" not in status()
        assert news() == 1  # That time passes is the watcher's own business.
        desktop.move_pointer(9, 9)
        tells(paused=False, minutes=0)
    adapter.communicating, adapter.failure = False, 32  # EPIPE, so that the program looks whether the desk is there.
    tells(desk="none")
    adapter.failure = 0
    assert "posture" not in tells(desk="silent")
    adapter.unplug()
    gone = tells(desk="none")
    assert not gone.keys() & {"height", "posture", "minutes", "permission"} and gone["goal_target"] == 456

    with subprocess.Popen([PROGRAM, "--watch"], env=desktop.env, stdout=subprocess.PIPE) as piped:
        assert json.loads(piped.stdout.readline())["desk"] == "none"
        piped.stdout.close()  # The bar has gone.
        piped.wait(10)
    desktop.plug(mode=0)
    tells(desk="forbidden")
    ask("--quit")
    assert watch.wait(10) == 0
    program.ends()


def test_a_reminder_is_answered_by_a_command(desktop, ask, status, news):
    # 1 min of sitting.
    desktop.settings(ActivityGoal=57, NumberOfStandUps=3, TimeSnooze=60, TimeNotificationDismiss=500, TimeIdle=86400)
    program = desktop.start_recording()
    for command in ("snooze", "skip"):
        assert ask(f"--{command}", code=1) == f"zelvo-standup: There is no reminder to {command}.\n"
    for command, minutes in {"snooze": 1, "skip": 20}.items():
        with desktop.clock.running(50):
            program.window_with("Snooze")
        news()
        desktop.ask(command.capitalize())
        wait_until(news, "the bar told of it")
        assert status()["minutes_to_change"] == minutes
        assert "no reminder" in ask(f"--{command}", code=1)  # Also while it fades.
        wait_until(lambda: not desktop.windows(), "the reminder gone")
    desktop.move_pointer(9, 9)  # Ten minutes without input darken X's screens.
    desktop.clock.reach(desktop.clock.now() + 520, 200)
    assert status()["minutes_to_change"] > 9, "none is left that snoozes by itself"


def test_an_adapter_without_permission_is_explained_until_it_has_one(desktop, ask, status):
    desktop.settings(**POSITIONS)
    adapter = desktop.plug(height=1500, mode=0)
    program = desktop.start()
    program.click_tray()
    main = program.window_with("Up")
    main.hears("You have no permission to use the adapter.")
    os.chmod(adapter.file, 0o040)  # Still not enough.
    desktop.clock.reach(desktop.clock.now() + 9, 10)
    assert "\n".join(CURE) in main.says()
    main.find("Copy the commands").press()
    main.find("Copied")
    assert status() | {"desk": "forbidden", "permission": "denied", "cure": CURE} == status()
    tall = desktop.frame(desktop.window("Zelvo StandUp"))
    os.chmod(adapter.file, 0o600)
    wait_until(desktop.records, "a first record")
    main.hears("Current session")
    wait_until(lambda: not any("sudo" in words for words in main.says()), "no commands")
    assert desktop.frame(desktop.window("Zelvo StandUp"))[3] == 592 < tall[3]
    assert status()["desk"] == "connected" and "cure" not in status()
    assert desktop.log().count(" && ".join(CURE)) == 1


def test_the_bus_starts_the_program_and_cannot_move_the_desk(desktop, ask):
    desktop.settings(**POSITIONS)
    adapter = desktop.plug(height=900)
    command = "env LD_PRELOAD={} {}".format(desktop.bent("libumockdev-preload.so.0")["LD_PRELOAD"], PROGRAM)
    (desktop.services / f"{NAME}.service").write_text(f"[D-BUS Service]\nName={NAME}\nExec=/usr/bin/{command}\n")
    bus = (desktop.session, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")
    call(*bus, "UpdateActivationEnvironment", "(a{ss})", desktop.env | desktop.bent())
    (desktop.services / "idle.service").write_text(
        f"[D-BUS Service]\nName=org.gnome.Mutter.IdleMonitor\nExec=/usr/bin/touch {desktop.home}/woken\n")
    call(*bus, "ReloadConfig")
    assert ask("--status", code=1) == NOT_RUNNING
    call(desktop.session, NAME, OBJECT, "org.freedesktop.Application", "Activate", "(a{sv})", {})
    desktop.window("Zelvo StandUp")
    wait_until(desktop.records, "a first record")

    words = ["up", "moveToPosition", "", "show", "history", "settings", "snooze", "skip"]
    up = GLib.Variant("q", UP)
    values = dict.fromkeys("ynqiuxt", 5) | {"b": True, "d": 5.0, "v": up, "av": [up], "a{sv}": {"up": up}, "as": ["up"]}

    def try_all(path="/"):
        # Answers the names of the program's own methods.
        found = call(desktop.session, NAME, path, "org.freedesktop.DBus.Introspectable", "Introspect")[0]
        node, own = Gio.DBusNodeInfo.new_for_xml(found), set()
        for interface, method in [(each.name, method) for each in node.interfaces for method in each.methods]:
            own |= {method.name} if path == OBJECT and "org.freedesktop.DBus" not in interface else set()
            signatures = [[argument.signature for argument in method.in_args], *([kind] for kind in [*values, "s"])]
            for types, word in [(types, word) for types in signatures for word in words[: None if "s" in types else 1]]:
                command = (NAME, path, interface, method.name, f"({''.join(types)})")
                chosen = [word if kind == "s" else values[kind] for kind in types]
                try:
                    if method.name != "Quit":
                        call(desktop.session, *command, *chosen, timeout=10)
                except GLib.Error as error:
                    assert "Timeout" not in error.message, (method.name, types, word)
        return own.union(*(try_all(f"{path.rstrip('/')}/{child.path}") for child in node.nodes))

    application, own = {"Activate", "Open", "ActivateAction"}, {"Show", "ShowHistory", "ShowSettings", "Snooze", "Skip"}
    assert try_all() == application | own | {"Status", "Quit"}
    options = set(re.findall(r"--[a-z]+", ask("--help"))) - {"--quit", "--watch"}
    for option in [*options, "--up", "--move=1000", "up"]:
        subprocess.run([PROGRAM, option], env=desktop.env, capture_output=True, timeout=20)
    assert set(adapter.values()) == {"init", STOP} and adapter.height == 900
    assert not (desktop.home / "woken").exists()
    desktop.ask("Quit")
    wait_until(lambda: not desktop.has_owner(desktop.session, NAME), "the end")
