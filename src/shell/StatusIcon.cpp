#include "shell/StatusIcon.h"

#include "shell/PictureIcon.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <QResource>
#include <QStringList>

#include <algorithm>

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

/// By hand: a painter would bring Qt's rasterizer into the memory of a program that rests.
QImage drawn(const QString& name, const QColor& ink, int size)
{
    const QResource coverage(QStringLiteral(":/status/%1-%2").arg(name).arg(size));
    const uchar* opacity = coverage.data();
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < size; ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(opacity, opacity + size, line,
            [&ink](uchar alpha) { return qPremultiply(qRgba(ink.red(), ink.green(), ink.blue(), alpha)); });
        opacity += size;
    }
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
