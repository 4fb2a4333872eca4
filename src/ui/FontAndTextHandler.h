#pragma once

#include <QFont>

/// The typefaces of every screen, by weight and size. Sizes are logical pixels. The named faces are used
/// where the system has them; otherwise Open Sans in the same weight.
class FontAndTextHandler {
public:
    [[nodiscard]] static QFont Light7();
    [[nodiscard]] static QFont Light10();
    [[nodiscard]] static QFont Light11();
    [[nodiscard]] static QFont Light12();
    [[nodiscard]] static QFont Light14();
    [[nodiscard]] static QFont Light15();
    [[nodiscard]] static QFont Light16();
    [[nodiscard]] static QFont Light18();

    [[nodiscard]] static QFont Roman12();
    [[nodiscard]] static QFont Roman14();
    [[nodiscard]] static QFont Roman15();
    [[nodiscard]] static QFont Roman18();
    [[nodiscard]] static QFont Roman20();
    [[nodiscard]] static QFont Roman22();
    [[nodiscard]] static QFont Roman23();
    [[nodiscard]] static QFont Roman30();
    [[nodiscard]] static QFont Roman38();
    [[nodiscard]] static QFont Roman40();
    [[nodiscard]] static QFont Roman42();
    [[nodiscard]] static QFont Roman48();

    [[nodiscard]] static QFont Bold15();
    [[nodiscard]] static QFont Bold22();
    [[nodiscard]] static QFont Bold80();
};
