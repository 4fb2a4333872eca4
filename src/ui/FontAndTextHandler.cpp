#include "ui/FontAndTextHandler.h"

#include <QFontDatabase>
#include <QMap>

#include <algorithm>
#include <cctype>

namespace {
/// Strokes thinner than a pixel come out faint. From these sizes on, in pixels, those of Open Sans' faces
/// stand out 4.5 : 1 from every ground.
constexpr int kLeastLight = 17;
constexpr int kLeastNormal = 11;
constexpr int kLeastDemiBold = 9;

QFont::Weight weightOfSmall(int pixels)
{
    if (pixels < kLeastDemiBold)
        return QFont::Bold;
    return pixels < kLeastNormal ? QFont::DemiBold : QFont::Normal;
}

QFont loadFace(const QString& face)
{
    static const QMap<QString, QFont::Weight> kWeights {{QStringLiteral("Light"), QFont::Light},
        {QStringLiteral("Roman"), QFont::Normal}, {QStringLiteral("Bold"), QFont::Bold}};
    const QString family = QStringLiteral("FrutigerLTStd-") + face;
    QFont font;
    if (QFontDatabase::hasFamily(family)) {
        // A named face carries its weight in its name; asking for it again would embolden it twice.
        font.setFamily(family);
    } else {
        font.setFamily(QStringLiteral("Open Sans"));
        font.setWeight(kWeights.value(face));
    }
    font.setStretch(QFont::Unstretched); // Open Sans has condensed faces in the same family.
    return font;
}
}

QFont FontAndTextHandler::named(QByteArrayView name)
{
    static QMap<QString, QFont> s_faces; // Qt asks the whole font database for each.
    const auto* const size = std::find_if(name.begin(), name.end(), isdigit);
    const QString face = QString::fromLatin1(name.begin(), size - name.begin());
    if (!s_faces.contains(face))
        s_faces.insert(face, loadFace(face));
    QFont font = s_faces.value(face);
    font.setPixelSize(QByteArrayView(size, name.end()).toInt());
    if (font.weight() == QFont::Light && font.pixelSize() < kLeastLight)
        font.setWeight(weightOfSmall(font.pixelSize()));
    return font;
}
