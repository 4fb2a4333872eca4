#include "shell/StatusIcon.h"

#include "shell/PictureIcon.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <QResource>
#include <QStringList>

namespace {
/// In pixels, as src/resources draws them: what panels ask for, and twice the usual size for fine screens.
/// Over D-Bus all of them go out.
const QList<int> kSizes {16, 22, 24, 32, 44};

QColor inkOn(PanelGround ground)
{
    switch (ground) {
    case PanelGround::Light:
        return {0x23, 0x26, 0x29};
    case PanelGround::Dark:
        return Qt::white;
    case PanelGround::Unknown:
        break;
    }
    return {0x0E, 0x93, 0xA6}; // 3.6 : 1 on white, 3.4 : 1 on the dark grey of panels.
}

QImage drawn(const QString& name, const QColor& ink, int size)
{
    const QResource coverage(QStringLiteral(":/status/%1-%2").arg(name).arg(size));
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(ink);
    image.setAlphaChannel(QImage(coverage.data(), size, size, size, QImage::Format_Alpha8));
    return image;
}
}

PanelGround panelGround()
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    if (desktops.contains(QStringLiteral("GNOME")))
        return PanelGround::Dark; // Whatever colours its windows have.
    if (!desktops.contains(QStringLiteral("KDE")))
        return PanelGround::Unknown;
    const QPalette colors = QGuiApplication::palette(); // KDE's panel has the colours of its windows.
    return colors.color(QPalette::Window).lightness() < colors.color(QPalette::WindowText).lightness()
        ? PanelGround::Dark
        : PanelGround::Light;
}

QIcon statusIcon(const QString& name, PanelGround ground)
{
    return pictureIcon(kSizes, [name, ink = inkOn(ground)](int size) { return drawn(name, ink, size); });
}
