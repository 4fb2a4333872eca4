#include "ui/FontAndTextHandler.h"

#include <QFontDatabase>

namespace {
struct Face {
    QLatin1String name;
    QFont::Weight weight;
};

constexpr Face kLight {QLatin1String("FrutigerLTStd-Light"), QFont::Light};
constexpr Face kRoman {QLatin1String("FrutigerLTStd-Roman"), QFont::Normal};
constexpr Face kBold {QLatin1String("FrutigerLTStd-Bold"), QFont::Bold};

QFont font(const Face& face, int pixelSize)
{
    QFont result;
    if (QFontDatabase::hasFamily(face.name)) {
        // A named face carries its weight in its name; asking for it again would embolden it twice.
        result.setFamily(face.name);
    } else {
        result.setFamily(QStringLiteral("Open Sans"));
        result.setWeight(face.weight);
    }
    result.setStretch(QFont::Unstretched); // Open Sans has condensed faces in the same family.
    result.setPixelSize(pixelSize);
    return result;
}
}

#define ZELVO_FACE(function, face, size)                                                                     \
    QFont FontAndTextHandler::function()                                                                     \
    {                                                                                                        \
        return font(face, size);                                                                             \
    }

ZELVO_FACE(Light7, kLight, 7)
ZELVO_FACE(Light10, kLight, 10)
ZELVO_FACE(Light11, kLight, 11)
ZELVO_FACE(Light12, kLight, 12)
ZELVO_FACE(Light14, kLight, 14)
ZELVO_FACE(Light15, kLight, 15)
ZELVO_FACE(Light16, kLight, 16)
ZELVO_FACE(Light18, kLight, 18)
ZELVO_FACE(Roman12, kRoman, 12)
ZELVO_FACE(Roman14, kRoman, 14)
ZELVO_FACE(Roman15, kRoman, 15)
ZELVO_FACE(Roman18, kRoman, 18)
ZELVO_FACE(Roman20, kRoman, 20)
ZELVO_FACE(Roman22, kRoman, 22)
ZELVO_FACE(Roman23, kRoman, 23)
ZELVO_FACE(Roman30, kRoman, 30)
ZELVO_FACE(Roman38, kRoman, 38)
ZELVO_FACE(Roman40, kRoman, 40)
ZELVO_FACE(Roman42, kRoman, 42)
ZELVO_FACE(Roman48, kRoman, 48)
ZELVO_FACE(Bold15, kBold, 15)
ZELVO_FACE(Bold22, kBold, 22)
ZELVO_FACE(Bold80, kBold, 80)

#undef ZELVO_FACE
