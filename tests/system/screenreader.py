"""What an accessibility client hears of a program: names, roles, states, texts and actions, over AT-SPI's own protocol."""

# The client library keeps one bus for a process's life, so it could not follow one scenario's desktop after another.

import contextlib

from gi.repository import Gio, GLib

from bus import ask_bus, call, get
from waiting import DEADLINE, wait_until

EVENTS = ("org.a11y.atspi.Registry", "/org/a11y/atspi/registry", "org.a11y.atspi.Registry")
REGISTRY = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")
ATSPI = "org.a11y.atspi."
CHECKED, FOCUSED, SELECTED, SHOWING = 4, 12, 23, 25  # Of the states, by number.


class Node:
    def __init__(self, bus, name, path):
        self.bus, self.owner, self.path = bus, name, path

    def _call(self, interface, method, signature=None, *arguments):
        return call(self.bus, self.owner, self.path, ATSPI + interface, method, signature, *arguments, timeout=5)

    def _get(self, interface, key):
        return get(self.bus, self.owner, self.path, ATSPI + interface, key)

    process = property(lambda self: ask_bus(self.bus, "GetConnectionUnixProcessID", self.owner))
    name = property(lambda self: self._get("Accessible", "Name").strip())
    description = property(lambda self: self._get("Accessible", "Description"))
    role = property(lambda self: self._call("Accessible", "GetRoleName")[0])
    children = property(lambda self: [Node(self.bus, *found) for found in self._call("Accessible", "GetChildren")[0]])
    frame = property(lambda self: self._call("Component", "GetExtents", "(u)", 0)[0])
    text = property(lambda self: self._call("Text", "GetText", "(ii)", 0, -1)[0])
    actions = property(lambda self: [action[0] for action in self._call("Action", "GetActions")[0]])

    def has(self, state):
        words = self._call("Accessible", "GetState")[0]
        return bool(words[state // 32] >> state % 32 & 1)

    def is_gone(self):
        # What has been closed is there for a moment yet, and does nothing any more.
        with contextlib.suppress(GLib.Error):
            return not self.has(SHOWING)
        return True

    @property
    def middle(self):
        x, y, width, height = self.frame
        return x + width // 2, y + height // 2

    def set_text(self, text):
        return self._call("EditableText", "SetTextContents", "(s)", text)[0]

    def press(self):
        assert self._call("Action", "DoAction", "(i)", 0)[0]

    def focus(self):
        self._call("Component", "GrabFocus")

    def walk(self):
        for child in self.children:
            yield child
            yield from child.walk()

    def all(self, name=None, role=None):
        named = [node for node in self.walk() if name in (None, node.name)]
        return [node for node in named if role in (None, node.role) and node.has(SHOWING)]

    def find(self, name=None, role=None):
        return wait_until(lambda: self.all(name, role), f"{role or 'control'} {name!r}")[0]

    def says(self):
        # Everything in it that is showing, as a screen reader would read it out.
        return [node.name for node in self.walk() if node.has(SHOWING) and node.name]

    def hears(self, words, seconds=DEADLINE):
        wait_until(lambda: any(words in said for said in self.says()), f"{words!r} on the screen", seconds)


def listen(bus):
    # Answers what has been spoken unasked: screen readers say each notification that appears, wherever the focus is,
    # and what is chosen.
    spoken = []

    def hear(_, owner, path, _interface, _signal, arguments):
        node, news = Node(bus, owner, path), arguments.unpack()[:2]
        if news == ("showing", 1) and node.role == "notification":
            spoken.append(f"{node.name} {node.description}".strip())
        elif news == ("checked", 1):
            spoken.append(f"{node.name} checked")

    call(bus, *EVENTS, "RegisterEvent", "(sass)", "object:state-changed", [], "")
    bus.signal_subscribe(None, "org.a11y.atspi.Event.Object", "StateChanged", None, None, Gio.DBusSignalFlags.NONE, hear)

    def heard():
        while GLib.MainContext.default().iteration(False):
            pass
        return spoken

    return heard
