#include "platform/linux/QtPlatform.h"

#include "platform/linux/XcbConnection.h"

#include <QByteArray>

void chooseQtPlatform()
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || qEnvironmentVariableIsEmpty("DISPLAY"))
        return;
    const XcbConnectionRef connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) == 0)
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("xcb"));
}
