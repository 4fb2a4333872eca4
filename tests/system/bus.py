"""Calls over D-Bus, and services of python-dbusmock."""

from gi.repository import Gio, GLib
from waiting import DEADLINE


def call(connection, name, path, interface, method, signature=None, *arguments, timeout=DEADLINE):
    parameters = GLib.Variant(signature, arguments) if signature else None
    request = (name, path, interface, method, parameters, None, Gio.DBusCallFlags.NONE, int(timeout * 1000), None)
    return connection.call_sync(*request).unpack()


def get(connection, name, path, interface, key):
    return call(connection, name, path, "org.freedesktop.DBus.Properties", "Get", "(ss)", interface, key)[0]


def ask_bus(connection, method, name):
    return call(connection, "org.freedesktop.DBus", "/", "org.freedesktop.DBus", method, "(s)", name)[0]


class Mock:
    def __init__(self, connection, name, path, interface, process):
        self.connection, self.name, self.path, self.interface = connection, name, path, interface
        self.process = process

    def call(self, method, signature, *arguments):
        return call(self.connection, self.name, self.path, "org.freedesktop.DBus.Mock", method, signature, *arguments)

    def emit(self, signal_name, signature, *values):
        variants = [GLib.Variant(letter, value) for letter, value in zip(signature, values)]
        self.call("EmitSignal", "(sssav)", self.interface, signal_name, signature, variants)

    def calls(self, method):
        return self.call("GetMethodCalls", "(s)", method)[0]
