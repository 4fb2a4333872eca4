#include "ui/FontAndTextHandler.h"

#include <QFontDatabase>

namespace {
QFont face(const QString& name, QFont::Weight weight)
{
    QFont result;
    if (QFontDatabase::hasFamily(name)) {
        // A named face carries its weight in its name; asking for it again would embolden it twice.
        result.setFamily(name);
    } else {
        result.setFamily(QStringLiteral("Open Sans"));
        result.setWeight(weight);
    }
    result.setStretch(QFont::Unstretched); // Open Sans has condensed faces in the same family.
    return result;
}

// Looked up once: Qt asks the whole font database each time.
const QFont& light()
{
    static const QFont font = face(QStringLiteral("FrutigerLTStd-Light"), QFont::Light);
    return font;
}

const QFont& roman()
{
    static const QFont font = face(QStringLiteral("FrutigerLTStd-Roman"), QFont::Normal);
    return font;
}

const QFont& bold()
{
    static const QFont font = face(QStringLiteral("FrutigerLTStd-Bold"), QFont::Bold);
    return font;
}
}

#define ZELVO_FACE(function, face, size)                                                                     \
    QFont FontAndTextHandler::function()                                                                     \
    {                                                                                                        \
        QFont font = face();                                                                                 \
        font.setPixelSize(size);                                                                             \
        return font;                                                                                         \
    }

ZELVO_FACE(Light7, light, 7)
ZELVO_FACE(Light10, light, 10)
ZELVO_FACE(Light11, light, 11)
ZELVO_FACE(Light12, light, 12)
ZELVO_FACE(Light14, light, 14)
ZELVO_FACE(Light15, light, 15)
ZELVO_FACE(Light16, light, 16)
ZELVO_FACE(Light18, light, 18)
ZELVO_FACE(Roman12, roman, 12)
ZELVO_FACE(Roman14, roman, 14)
ZELVO_FACE(Roman15, roman, 15)
ZELVO_FACE(Roman18, roman, 18)
ZELVO_FACE(Roman20, roman, 20)
ZELVO_FACE(Roman22, roman, 22)
ZELVO_FACE(Roman23, roman, 23)
ZELVO_FACE(Roman30, roman, 30)
ZELVO_FACE(Roman38, roman, 38)
ZELVO_FACE(Roman40, roman, 40)
ZELVO_FACE(Roman42, roman, 42)
ZELVO_FACE(Roman48, roman, 48)
ZELVO_FACE(Bold15, bold, 15)
ZELVO_FACE(Bold22, bold, 22)
ZELVO_FACE(Bold80, bold, 80)

#undef ZELVO_FACE
