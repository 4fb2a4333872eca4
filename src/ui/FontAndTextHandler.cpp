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

// The size is said once: a function is named after its face and its size.
#define ZELVO_FACE(name, face, size)                                                                         \
    QFont FontAndTextHandler::name##size()                                                                   \
    {                                                                                                        \
        QFont font = face();                                                                                 \
        font.setPixelSize(size);                                                                             \
        return font;                                                                                         \
    }

ZELVO_FACE(Light, light, 7)
ZELVO_FACE(Light, light, 10)
ZELVO_FACE(Light, light, 11)
ZELVO_FACE(Light, light, 12)
ZELVO_FACE(Light, light, 14)
ZELVO_FACE(Light, light, 15)
ZELVO_FACE(Light, light, 16)
ZELVO_FACE(Light, light, 18)
ZELVO_FACE(Roman, roman, 12)
ZELVO_FACE(Roman, roman, 14)
ZELVO_FACE(Roman, roman, 15)
ZELVO_FACE(Roman, roman, 18)
ZELVO_FACE(Roman, roman, 20)
ZELVO_FACE(Roman, roman, 22)
ZELVO_FACE(Roman, roman, 23)
ZELVO_FACE(Roman, roman, 30)
ZELVO_FACE(Roman, roman, 38)
ZELVO_FACE(Roman, roman, 40)
ZELVO_FACE(Roman, roman, 42)
ZELVO_FACE(Roman, roman, 48)
ZELVO_FACE(Bold, bold, 15)
ZELVO_FACE(Bold, bold, 22)
ZELVO_FACE(Bold, bold, 80)

#undef ZELVO_FACE
