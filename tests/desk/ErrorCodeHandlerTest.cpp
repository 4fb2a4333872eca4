#include "desk/ErrorCodeHandler.h"

#include "fakes/TestPlatform.h"

#include <array>

TEST(ErrorCodeHandler, readsTheCodesOutOfAReport)
{
    // Byte 3 (flags), 6 (kinds), 32 (whether codes are listed) and 34 to 39 (codes) of a report; each code
    // with its text, null for no error.
    using Codes = std::array<uint8_t, 6>;
    const std::tuple<const char*, uint8_t, uint8_t, uint8_t, Codes, const char*> kCases[] = {
        {"no flag, whatever else is set", 0xFD, 0xFF, 1, {5, 1, 1, 1, 1, 1}, nullptr},
        {"codes not announced", 0xFF, 0, 0, {5, 6, 7, 8, 9, 10}, ""},
        {"first and last slot, the others empty", 0x02, 0, 0x80, {123, 0, 0, 0, 0, 255}, "E123: E255:"},
        {"two kinds", 0x02, 0x05, 0, {}, "E01:PositionLostError E02:OverloadUpError"},
        {"bits that are no kind", 0x02, 0xF2, 0, {}, ""},
        {"a kind gives its text to a listed code", 0x02, 0x08, 1, {3, 4, 0, 0, 0, 0},
            "E03:OverloadDownError E04:"},
    };
    const TestPlatform platform; // It has no texts, so each key answers itself.
    for (const auto& [what, flags, kinds, listed, slots, expected] : kCases) {
        std::array<uint8_t, 64> report {4};
        report[3] = flags;
        report[6] = kinds;
        report[32] = listed;
        report[33] = 77; // Neighbours of the list, never read.
        report[40] = 78;
        std::copy(slots.begin(), slots.end(), report.begin() + 34);
        const auto codes = ErrorCodeHandler::setErrorCode(report);
        QStringList found;
        for (const auto& [code, text] : codes.value_or(QMap<QString, QString>()).toStdMap())
            found.append(code + u':' + text);
        EXPECT_EQ(codes.has_value(), expected != nullptr) << what;
        EXPECT_EQ(found.join(u' '), QString::fromLatin1(expected)) << what;
    }
}
