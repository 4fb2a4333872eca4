#pragma once

#include <QByteArrayView>
#include <QFont>

/// The typefaces of every screen, by weight and size. Sizes are logical pixels. The named faces are used
/// where the system has them; otherwise Open Sans in the same weight, but no small text in its light one.
class FontAndTextHandler {
public:
    /// The font of that name, which is that of a function below ("Roman18").
    [[nodiscard]] static QFont named(QByteArrayView name);

    [[nodiscard]] static QFont Light7() { return named("Light7"); }
    [[nodiscard]] static QFont Light10() { return named("Light10"); }
    [[nodiscard]] static QFont Light11() { return named("Light11"); }
    [[nodiscard]] static QFont Light12() { return named("Light12"); }
    [[nodiscard]] static QFont Light14() { return named("Light14"); }
    [[nodiscard]] static QFont Light15() { return named("Light15"); }
    [[nodiscard]] static QFont Light16() { return named("Light16"); }
    [[nodiscard]] static QFont Light18() { return named("Light18"); }

    [[nodiscard]] static QFont Roman12() { return named("Roman12"); }
    [[nodiscard]] static QFont Roman14() { return named("Roman14"); }
    [[nodiscard]] static QFont Roman15() { return named("Roman15"); }
    [[nodiscard]] static QFont Roman18() { return named("Roman18"); }
    [[nodiscard]] static QFont Roman20() { return named("Roman20"); }
    [[nodiscard]] static QFont Roman22() { return named("Roman22"); }
    [[nodiscard]] static QFont Roman23() { return named("Roman23"); }
    [[nodiscard]] static QFont Roman30() { return named("Roman30"); }
    [[nodiscard]] static QFont Roman38() { return named("Roman38"); }
    [[nodiscard]] static QFont Roman40() { return named("Roman40"); }
    [[nodiscard]] static QFont Roman42() { return named("Roman42"); }
    [[nodiscard]] static QFont Roman48() { return named("Roman48"); }

    [[nodiscard]] static QFont Bold15() { return named("Bold15"); }
    [[nodiscard]] static QFont Bold22() { return named("Bold22"); }
    [[nodiscard]] static QFont Bold80() { return named("Bold80"); }
};
