"""A private desktop: X server, window manager, buses, home and clock of one scenario, and what a user does there."""

import contextlib
import itertools
import os
import re
import signal
import sqlite3
import subprocess
import tempfile
import time
from pathlib import Path

from adapter import Adapter, new_bed
from bent_clock import Clock
from bus import Mock, ask_bus, call
from gi.repository import Gio
from program import Program
from waiting import wait_until
from Xlib import X, XK, display
from Xlib.ext import xtest
from Xlib.protocol import event

PROGRAM = Path(os.environ["ZELVO_BIN"]) / "zelvo-standup"
SET_UP = {"ActivityMode": 2, "ActivityGoal": 15, "NumberOfStandUps": 2, "Weight": 70, "Version": "1.0.1"}
FOLDERS = {"CONFIG_HOME": "config", "DATA_HOME": "data", "RUNTIME_DIR": "runtime"}
# Root, too, is told which files it may not open.
ORDINARY_USER = ["setpriv", "--bounding-set=-dac_override,-dac_read_search", "--"] if os.geteuid() == 0 else []
BUS_CONFIG = """<busconfig><type>session</type><listen>unix:path={}</listen><servicedir>{}</servicedir><policy context="default">
<allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy></busconfig>"""


class Desktop:
    def __init__(self, ends, screen="1280x1024", tray=True):
        self._ends = ends  # What began last ends first.
        self.programs, self._bed, self._numbers = [], None, itertools.count()
        self.screen = tuple(int(side) for side in screen.split("x"))
        folder = tempfile.TemporaryDirectory(prefix="standup-", ignore_cleanup_errors=True)
        self.home = Path(ends.enter_context(folder))
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
        self.spawn("/usr/libexec/at-spi-bus-launcher", "--launch-immediately")
        accessibility = (self.session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress")
        self.accessibility = self.connect(wait_until(lambda: call(*accessibility)[0], "accessibility bus"))
        # Adapters go after the programs: nobody may wait for an answer then.
        self._adapters = ends.enter_context(contextlib.ExitStack())
        if tray:
            self.add_tray()

    def spawn(self, *command, **options):
        # A process that ends with the scenario, even when that is killed.
        quiet = dict.fromkeys(["stdin", "stdout", "stderr"], subprocess.DEVNULL)
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
        self.spawn("dbus-daemon", "--nofork", f"--config-file={config}", env={"PATH": os.environ["PATH"]})
        address = self.env[f"DBUS_{name.upper()}_BUS_ADDRESS"] = f"unix:path={socket}"
        return wait_until(lambda: self.connect(address), f"{name} bus")

    @staticmethod
    def connect(address):
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        connection.set_exit_on_close(False)
        return connection

    def _start_x(self, screen):
        command = ("Xvfb", "-displayfd", 1, "-screen", 0, screen + "x24", "-nolisten", "tcp", "-noreset")
        # Its idle time runs with the program's clock.
        server = self.spawn(*command, stdout=subprocess.PIPE, env=self.env | self.bent())
        self.env["DISPLAY"] = ":" + server.stdout.readline().decode().strip()
        self.spawn("openbox", "--sm-disable")
        self.x = display.Display(self.env["DISPLAY"])
        self._ends.callback(self.x.close)
        self.root = self.x.screen().root
        wait_until(lambda: self.property(self.root, "_NET_WORKAREA"), "window manager")

    # The machine

    def plug(self, **settings):
        if not self._bed:
            self._bed = new_bed()
            self.env["UMOCKDEV_DIR"] = self._bed.get_root_dir()
        adapter = Adapter(self._bed, next(self._numbers), clock=self.clock.monotonic, **settings)
        self._adapters.callback(adapter.unplug)
        return adapter

    def mock(self, bus, kind, name, path, interface, template=None):
        # A service of python-dbusmock.
        what = ["--template", template] if template else [name, path, interface]
        process = self.spawn("/usr/bin/python3", "-m", "dbusmock", kind, *what)
        wait_until(lambda: self.has_owner(bus, name), name)
        return Mock(bus, name, path, interface, process)

    def add_tray(self):
        name = "org.kde.StatusNotifierWatcher"
        template = Path(__file__).with_name("tray_watcher.py")
        self.tray = self.mock(self.session, "--session", name, "/StatusNotifierWatcher", name, template)

    def add_logind(self):
        logind = ("org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager")
        self.logind = self.mock(self.system, "--system", *logind, "logind")
        self.logind.inhibitors = lambda: call(self.system, *logind, "ListInhibitors")[0]
        return self.logind

    @staticmethod
    def has_owner(connection, name):
        return ask_bus(connection, "NameHasOwner", name)

    # The program

    def settings(self, **values):
        self.config.parent.mkdir(exist_ok=True)
        lines = [f"{key}={value}\n" for key, value in (SET_UP | values).items() if value is not None]
        self.config.write_text("[General]\n" + "".join(lines))

    def setting(self, key):
        found = re.search(rf"^{key}=(.*)$", self.config.read_text(), re.M) if self.config.exists() else None
        return found and found[1]

    def start(self, *arguments, **env):
        # As a user starts it. With an adapter plugged in before, udev and hidraw are the emulated ones.
        desk = [] if self._bed else ["--simulate"]
        env = self.env | self.bent(*["libumockdev-preload.so.0"] * bool(self._bed)) | env
        with open(self.home / "stderr", "ab") as stderr:
            process = self.spawn(*ORDINARY_USER, PROGRAM, *desk, *arguments, env=env, stderr=stderr)
        self._ends.callback(process.kill)
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
        # What the desktop is asked to show, in place of a browser, and by what token; before it, what it inherited.
        folder, links = self.home / "bin", self.home / "links"
        folder.mkdir()
        links.touch()
        own = "readlink /proc/$$/fd/* | grep -e hidraw -e '\\.lock$'"
        (folder / "xdg-open").write_text(f'#!/bin/sh\n{{ {own}; echo "$1 $XDG_ACTIVATION_TOKEN"; }} >> {links}\n')
        (folder / "xdg-open").chmod(0o700)
        self.env["PATH"] = f"{folder}:{self.env['PATH']}"
        return lambda: links.read_text().split()

    def ask(self, method):
        # Over the session bus.
        return call(self.session, "org.zelvo.StandUp", "/org/zelvo/StandUp", "org.zelvo.StandUp1", method)

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
                rows = "SELECT startDate, endDate, isStanding FROM Activity ORDER BY startDate, id"
                return store.execute(rows).fetchall()
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

    def minimise(self, window):
        # Again, should the program have been asking for the front just then.
        is_minimised = lambda: (self.property(window, "WM_STATE") or [0])[0] == 3  # noqa: E731
        wait_until(lambda: is_minimised() or self.tell(window, "WM_CHANGE_STATE", 3), "minimised")

    def _input(self, *what, **where):
        # Answers when it happened.
        xtest.fake_input(self.x, *what, **where)
        self.x.sync()
        return time.monotonic()

    def move_pointer(self, x, y):
        self._input(X.MotionNotify, x=int(x), y=int(y))

    def button(self, is_press, number=1):
        return self._input(X.ButtonPress if is_press else X.ButtonRelease, number)

    def hold(self, x, y):
        self.move_pointer(x, y)
        return self.button(True)

    def click(self, x, y):
        self.hold(x, y)
        self.button(False)

    def key(self, name, is_press=None):
        code = self.x.keysym_to_keycode(XK.string_to_keysym(name))
        for press in [True, False] if is_press is None else [is_press]:
            at = self._input(X.KeyPress if press else X.KeyRelease, code)
        return at

    def type(self, text):
        for letter in text:
            self.key(letter)
