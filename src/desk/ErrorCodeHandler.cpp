#include "desk/ErrorCodeHandler.h"

#include <array>

namespace {
constexpr size_t kStatusWordHighByte = 3;
constexpr uint8_t kErrorPresent = 0x02;
constexpr size_t kKindsByte = 6;
constexpr size_t kCodesPresentByte = 32;
constexpr size_t kFirstCodeByte = 34;
constexpr size_t kCodeCount = 6;

struct Kind {
    uint8_t bit;
    const char* code;
    const char* textKey;
};

constexpr std::array kKinds {
    Kind {0x01, "E01", QT_TRID_NOOP("PositionLostError")},
    Kind {0x04, "E02", QT_TRID_NOOP("OverloadUpError")},
    Kind {0x08, "E03", QT_TRID_NOOP("OverloadDownError")},
};
}

std::optional<QMap<QString, QString>> ErrorCodeHandler::setErrorCode(std::span<const uint8_t, 64> report)
{
    if (!(report[kStatusWordHighByte] & kErrorPresent))
        return std::nullopt;

    QMap<QString, QString> codes;
    if (report[kCodesPresentByte] != 0) {
        for (const uint8_t code : report.subspan<kFirstCodeByte, kCodeCount>()) {
            if (code != 0)
                codes.insert(QString::asprintf("E%02d", code), QStringLiteral(""));
        }
    }
    // The kinds come last: a code that is also listed gets its text.
    for (const Kind& kind : kKinds) {
        if (report[kKindsByte] & kind.bit)
            codes.insert(QString::fromLatin1(kind.code), qtTrId(kind.textKey));
    }
    return codes;
}
