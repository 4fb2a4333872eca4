#include "platform/linux/DisplayServer.h"

#include "platform/linux/XcbConnection.h"

#include <QByteArray>
#include <QDir>
#include <QFileInfo>

namespace {
bool doesX11Answer()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY"))
        return false;
    const XcbConnectionRef connection(xcb_connect(nullptr, nullptr));
    return xcb_connection_has_error(connection.get()) == 0;
}

bool isWaylandThere()
{
    const QString name = qEnvironmentVariable("WAYLAND_DISPLAY");
    const QDir folder(qEnvironmentVariable("XDG_RUNTIME_DIR"));
    return !name.isEmpty() && QFileInfo::exists(folder.absoluteFilePath(name));
}
}

QString chooseDisplayServer()
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return {};
    if (doesX11Answer()) {
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("xcb"));
        return {};
    }
    if (isWaylandThere()) {
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("wayland"));
        return {};
    }
    for (const char* const variable : {"WAYLAND_DISPLAY", "DISPLAY"}) {
        if (!qEnvironmentVariableIsEmpty(variable))
            return QStringLiteral("The display %1 does not answer.").arg(qEnvironmentVariable(variable));
    }
    return QStringLiteral("There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set.");
}

bool isWaylandSession()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")
        || qgetenv("XDG_SESSION_TYPE") == QByteArrayLiteral("wayland");
}
