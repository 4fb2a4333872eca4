"""A private desktop: X server, window manager, buses, home and clock of one scenario, and what a user does there."""

import contextlib
import os
import re
import shutil
import signal
import sqlite3
import subprocess
import tempfile
import time
from pathlib import Path

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402
from Xlib import X, XK, display  # noqa: E402
from Xlib.ext import xtest  # noqa: E402
from Xlib.protocol import event  # noqa: E402

from adapter import Machine  # noqa: E402
from bent_clock import Clock  # noqa: E402
from bus import Mock, call  # noqa: E402
from program import Program  # noqa: E402
from screenreader import ignoring_what_goes  # noqa: E402
from waiting import wait_until  # noqa: E402

PROGRAM = Path(os.environ["ZELVO_BIN"]) / "zelvo-standup"
SET_UP = {"ActivityMode": 2, "ActivityGoal": 15, "NumberOfStandUps": 2, "Weight": 70, "Version": "1.0.1"}
FOLDERS = {"CONFIG_HOME": "config", "DATA_HOME": "data", "RUNTIME_DIR": "runtime"}
# Root, too, is told which files it may not open.
ORDINARY_USER = ["setpriv", "--bounding-set=-dac_override,-dac_read_search", "--"] if os.geteuid() == 0 else []
BUS_CONFIG = """<busconfig><type>session</type><listen>unix:path={}</listen><servicedir>{}</servicedir><policy context="default">
<allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy></busconfig>"""


class Desktop:
    def __init__(self, screen="1280x1024", tray=True):
        self._ends = contextlib.ExitStack()
        self.programs, self.mocks, self.machine = [], [], None
        try:
            self._begin(screen)
            if tray:
                self.add_tray()
        except BaseException:
            self.close()
            raise

    def _begin(self, screen):
        self.screen = tuple(int(side) for side in screen.split("x"))
        self.home = Path(tempfile.mkdtemp(prefix="standup-"))
        self._ends.callback(shutil.rmtree, self.home, True)
        for folder in FOLDERS.values():
            (self.home / folder).mkdir(mode=0o700)
        self.config = self.home / "config/org.zelvo.StandUp/StandUp.conf"
        self.folder = self.home / "data/org.zelvo.StandUp"
        self.store = self.folder / "StandUp.storedata"
        self.clock = Clock(self.home / "clock")
        self.services = self.home / "services"
        self.services.mkdir()
        self.env = {k: v for k, v in os.environ.items() if k == "PATH" or k.endswith("SAN_OPTIONS")}
        self.env |= {"HOME": str(self.home), "LC_ALL": "en_GB.UTF-8", "TZ": "UTC"}
        self.env["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        self.env |= {f"XDG_{name}": str(self.home / f) for name, f in FOLDERS.items()}
        self.session, self.system = self._bus("session"), self._bus("system")
        self._start_x(screen)
        self._spawn("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
        wait_until(lambda: self.has_owner(self.session, "org.a11y.Bus"), "accessibility bus")
        address = call(self.session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")[0]
        self.accessibility = self.connect(address)

    def _spawn(self, *command, **options):
        # A process that ends with the scenario, even when that is killed.
        quiet = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        command = [*"env --default-signal setpriv --pdeathsig TERM --".split(), *(str(word) for word in command)]
        process = subprocess.Popen(command, **({"env": self.env} | quiet | options))
        self._ends.callback(self._end, process)
        return process

    @staticmethod
    def _end(process):
        process.terminate()  # So that it ends those that it started.
        process.send_signal(signal.SIGCONT)
        with contextlib.suppress(subprocess.TimeoutExpired):
            process.wait(2)
        process.kill()
        process.wait()

    def _bus(self, name):
        config, socket = self.home / f"{name}.conf", self.home / f"{name}.bus"
        config.write_text(BUS_CONFIG.format(socket, self.services))
        self._spawn("dbus-daemon", "--nofork", f"--config-file={config}", env={"PATH": os.environ["PATH"]})
        address = self.env[f"DBUS_{name.upper()}_BUS_ADDRESS"] = f"unix:path={socket}"
        return wait_until(ignoring_what_goes(lambda: self.connect(address)), f"{name} bus")

    @staticmethod
    def connect(address):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        connection.set_exit_on_close(False)
        return connection

    def _start_x(self, screen):
        read, write = os.pipe()
        command = ("Xvfb", "-displayfd", write, "-screen", 0, screen + "x24", "-nolisten", "tcp", "-noreset")
        # Its idle time runs with the program's clock.
        self._spawn(*command, pass_fds=(write,), env=self.env | self.bent())
        os.close(write)
        with os.fdopen(read) as number:
            self.env["DISPLAY"] = ":" + number.readline().strip()
        self._spawn("openbox", "--sm-disable")
        self.x = display.Display(self.env["DISPLAY"])
        self._ends.callback(self.x.close)
        self.root = self.x.screen().root
        wait_until(lambda: self.property(self.root, "_NET_WORKAREA"), "window manager")

    def close(self):
        # The programs go first: nobody may wait for an answer when the adapters go.
        for program in self.programs:
            program.process.kill()
            program.process.wait()
        if self.machine:
            self.machine.close()
        self._ends.close()

    # The machine

    def plug(self, **settings):
        if not self.machine:
            self.machine = Machine()
            self.env["UMOCKDEV_DIR"] = self.machine.root
        return self.machine.plug(clock=self.clock.monotonic, **settings)

    def mock(self, bus, kind, template, name, path, interface):
        # A service of python-dbusmock.
        process = self._spawn("/usr/bin/python3", "-m", "dbusmock", kind, "--template", template)
        self.mocks.append(Mock(bus, name, path, interface))
        return self.mocks[-1], process

    def add_tray(self):
        name = "org.kde.StatusNotifierWatcher"
        template = Path(__file__).with_name("tray_watcher.py")
        self.tray, self._tray_process = self.mock(
            self.session, "--session", template, name, "/StatusNotifierWatcher", name
        )

    def remove_tray(self):
        self._end(self._tray_process)
        self.mocks.remove(self.tray)
        wait_until(lambda: not self.has_owner(self.session, self.tray.name), "no tray")

    def add_logind(self):
        logind = ("org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager")
        self.logind, _ = self.mock(self.system, "--system", "logind", *logind)
        self.logind.inhibitors = lambda: call(self.system, *logind, "ListInhibitors")[0]
        return self.logind

    @staticmethod
    def has_owner(connection, name):
        return call(connection, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NameHasOwner", "(s)", name)[0]

    def session_signals(self, *of):
        # How many of these signals have come since.
        heard = []
        self.session.signal_subscribe(*of, None, None, Gio.DBusSignalFlags.NONE, lambda *_: heard.append(1))

        def count():
            while GLib.MainContext.default().iteration(False):
                pass
            return len(heard)

        return count

    # The program

    def settings(self, **values):
        self.config.parent.mkdir(exist_ok=True)
        lines = [f"{key}={value}\n" for key, value in (SET_UP | values).items() if value is not None]
        self.config.write_text("[General]\n" + "".join(lines))

    def setting(self, key):
        found = re.search(rf"^{key}=(.*)$", self.config.read_text(), re.M) if self.config.exists() else None
        return found and found[1]

    def start(self, *arguments, simulate=True, **env):
        # As a user starts it. With an adapter plugged in before, udev and hidraw are the emulated ones.
        for mock in self.mocks:
            wait_until(lambda: self.has_owner(mock.connection, mock.name), mock.name)
        if simulate and not self.machine:
            arguments = ("--simulate", *arguments)
        env = self.env | self.bent(*["libumockdev-preload.so.0"] * bool(self.machine)) | env
        with open(self.home / "stderr", "ab") as stderr:
            process = self._spawn(*ORDINARY_USER, PROGRAM, *arguments, env=env, stderr=stderr)
        self.programs.append(Program(self, process))
        return self.programs[-1]

    def start_recording(self, *arguments, **env):
        # The program once its first period is recorded. It looks at the desk once a second.
        before = len(self.records())
        with self.clock.running(10):
            program = self.start(*arguments, **env)
            wait_until(lambda: len(self.records()) > before, "a first record")
        return program

    def bent(self, *libraries):
        preload = ":".join([os.environ["BENT_CLOCK_LIBRARY"], *libraries])
        return {"BENT_CLOCK": str(self.clock.path), "LD_PRELOAD": preload}

    def keep_opened_links(self):
        # What the desktop is asked to show, in place of a browser.
        folder, links = self.home / "bin", self.home / "links"
        folder.mkdir()
        links.touch()
        (folder / "xdg-open").write_text(f'#!/bin/sh\necho "$1" >> {links}\n')
        (folder / "xdg-open").chmod(0o700)
        self.env["PATH"] = f"{folder}:{self.env['PATH']}"
        return lambda: links.read_text().split()

    def log(self):
        file = self.folder / "StandUp.log"
        return file.read_text() if file.exists() else ""

    def records(self):
        # (start, end, standing) of every stored period, by a reader of its own. It keeps away until the
        # store's header says that it has a log, for only then is its writer never kept waiting.
        if not self.store.exists() or self.store.read_bytes()[18:19] != b"\2":
            return []
        with contextlib.closing(sqlite3.connect(f"file:{self.store}?mode=ro", uri=True)) as store:
            with contextlib.suppress(sqlite3.OperationalError):
                rows = store.execute("SELECT startDate, endDate, isStanding FROM Activity ORDER BY startDate, id")
                return rows.fetchall()
        return []

    def plant(self, rows):
        # Writes (start, end, standing) into the store of a program that does not run.
        with contextlib.closing(sqlite3.connect(self.store)) as store, store:
            statement = "INSERT INTO Activity (startDate, endDate, isStanding, weight) VALUES (?, ?, ?, 70)"
            store.executemany(statement, rows)

    # X

    def property(self, window, name):
        found = window.get_full_property(self.x.get_atom(name), X.AnyPropertyType)
        return list(found.value) if found else None

    def windows(self):
        # The managed windows by title.
        found = {}
        for number in self.property(self.root, "_NET_CLIENT_LIST") or []:
            window = self.x.create_resource_object("window", number)
            with contextlib.suppress(Exception):  # It may go meanwhile.
                found[bytes(self.property(window, "_NET_WM_NAME") or []).decode()] = window
        return found

    def window(self, title):
        return wait_until(lambda: self.windows().get(title), f"window {title}")

    def frame(self, window):
        # x, y, width, height on the screen.
        size = window.get_geometry()
        corner = window.translate_coords(self.root, 0, 0)
        return -corner.x, -corner.y, size.width, size.height

    def is_minimised(self, window):
        return (self.property(window, "WM_STATE") or [0])[0] == 3

    def is_visible(self, window):
        # It is shown on the current workspace.
        on = (self.property(window, "_NET_WM_DESKTOP") or [None])[0]
        return window.get_attributes().map_state == X.IsViewable and on in (self.workspace(), 0xFFFFFFFF)

    def workspace(self):
        return self.property(self.root, "_NET_CURRENT_DESKTOP")[0]

    def switch_workspace(self, number):
        self.tell(self.root, "_NET_CURRENT_DESKTOP", number)
        wait_until(lambda: self.workspace() == number, "workspace")

    def is_active(self, window):
        return (self.property(self.root, "_NET_ACTIVE_WINDOW") or [None])[0] == window.id

    def tell(self, window, message, *values):
        # A request to the window manager.
        data = (32, (list(values) + [0] * 5)[:5])
        mask = X.SubstructureRedirectMask | X.SubstructureNotifyMask
        request = event.ClientMessage(window=window, client_type=self.x.get_atom(message), data=data)
        self.root.send_event(request, event_mask=mask)
        self.x.sync()

    def foreign_window(self, *frame):
        depth = self.x.screen().root_depth
        window = self.root.create_window(*frame, 0, depth, X.InputOutput, X.CopyFromParent, event_mask=X.KeyPressMask)
        window.map()
        self.x.sync()
        return window

    def editor(self):
        # Another program's window, with the keyboard.
        window = self.foreign_window(300, 300, 200, 100)
        wait_until(lambda: self.is_active(window), "the editor")
        return window

    def panel_below(self, height):
        # A desktop's panel along the bottom, with its claim on the screen.
        width, bottom = self.screen
        window = self.foreign_window(0, bottom - height, width, height)
        claim = [0, 0, 0, height] + [0] * 6 + [0, width - 1]
        window.change_property(self.x.get_atom("_NET_WM_STRUT_PARTIAL"), self.x.get_atom("CARDINAL"), 32, claim)
        wait_until(lambda: self.property(self.root, "_NET_WORKAREA")[3] == bottom - height, "room for the panel")

    def minimise(self, window):
        # Again, should the program have been asking for the front just then.
        wait_until(lambda: self.is_minimised(window) or self.tell(window, "WM_CHANGE_STATE", 3), "minimised")

    def move_pointer(self, x, y):
        xtest.fake_input(self.x, X.MotionNotify, x=int(x), y=int(y))
        self.x.sync()

    def button(self, is_press, number=1):
        xtest.fake_input(self.x, X.ButtonPress if is_press else X.ButtonRelease, number)
        self.x.sync()
        return time.monotonic()

    def click(self, x, y):
        self.move_pointer(x, y)
        self.button(True)
        self.button(False)

    def key(self, name, is_press=None):
        code = self.x.keysym_to_keycode(XK.string_to_keysym(name))
        for press in [True, False] if is_press is None else [is_press]:
            xtest.fake_input(self.x, X.KeyPress if press else X.KeyRelease, code)
        self.x.sync()
        return time.monotonic()

    def type(self, text):
        for letter in text:
            self.key(letter)
