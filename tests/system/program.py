"""A started program, as its user and a screen reader find it."""

import signal

from bus import call, get
from gi.repository import GLib
from screenreader import REGISTRY, SHOWING, Node
from waiting import DEADLINE, wait_until

TRAY_ITEM = ("/StatusNotifierItem", "org.kde.StatusNotifierItem")


class Program:
    # A started program, and what a screen reader finds in it.

    def __init__(self, desktop, process):
        self.desktop, self.process = desktop, process

    def window_with(self, *names):
        # The accessible window that shows controls of these names.
        bus = self.desktop.accessibility

        def find():
            roots = [root for root in Node(bus, *REGISTRY).children if root.process == self.process.pid]
            windows = [window for root in roots for window in root.children if window.has(SHOWING)]
            return next((window for window in windows if all(window.all(name) for name in names)), None)

        return wait_until(find, f"a window with {names}")

    def in_front(self, title):
        # The window, once it has the keyboard.
        window = self.desktop.window(title)
        wait_until(lambda: self.desktop.is_active(window), f"{title} in front")
        return window

    def show(self):
        # A second start brings the first one's window to the front.
        self.desktop.start().ends(within=DEADLINE)
        return self.in_front("Zelvo StandUp")

    def tray_item(self):
        def item():
            names = [arguments[0] for _, arguments in self.desktop.tray.calls("RegisterStatusNotifierItem")]
            return next((name for name in names if self.desktop.has_owner(self.desktop.session, name)), None)

        return wait_until(item, "tray icon")

    def click_tray(self, what="Activate"):
        call(self.desktop.session, self.tray_item(), *TRAY_ITEM, what, "(ii)", 0, 0)

    def tray_icon(self):
        # Its pictures and what it says.
        item = (self.desktop.session, self.tray_item(), *TRAY_ITEM)
        return get(*item, "IconPixmap"), get(*item, "ToolTip")[2]

    def menu(self):
        # Label to (number, enabled) of the entries of the tray's menu, as a tray asks that does not announce it first.
        menu = (self.desktop.session, self.tray_item(), "/MenuBar", "com.canonical.dbusmenu")
        layout = call(*menu, "GetLayout", "(iias)", 0, -1, [])
        entries = [(number, values) for number, values, _ in layout[1][2]]
        return {values["label"].replace("_", ""): (number, values.get("enabled", True)) for number, values in entries}

    def choose(self, label):
        number = self.menu()[label][0]
        event = (number, "clicked", GLib.Variant("s", ""), 0)
        call(self.desktop.session, self.tray_item(), "/MenuBar", "com.canonical.dbusmenu", "Event", "(isvu)", *event)

    def signal(self, number):
        self.process.send_signal(number)

    def ends(self, code=0, within=5):
        assert self.process.wait(within) == code
        self.desktop.programs.remove(self)

    def quit(self):
        self.signal(signal.SIGTERM)
        self.ends(within=DEADLINE)
