"""A tray for python-dbusmock, complete before its name appears on the bus."""

BUS_NAME = MAIN_IFACE = "org.kde.StatusNotifierWatcher"
MAIN_OBJ = "/StatusNotifierWatcher"
SYSTEM_BUS = False


def load(mock, _):
    mock.AddMethod(MAIN_IFACE, "RegisterStatusNotifierItem", "s", "", "")
    mock.AddProperty(MAIN_IFACE, "IsStatusNotifierHostRegistered", True)
