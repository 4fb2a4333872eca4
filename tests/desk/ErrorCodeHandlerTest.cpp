#include "desk/ErrorCodeHandler.h"

#include "fakes/TestPlatform.h"

#include <array>
#include <gtest/gtest.h>

namespace {
using Codes = QMap<QString, QString>;

struct Case {
    const char* what;
    uint8_t flags; ///< byte 3
    uint8_t kinds; ///< byte 6
    uint8_t listed; ///< byte 32
    std::array<uint8_t, 6> codes; ///< bytes 34 to 39
    std::optional<Codes> expected;
};

const QString kNoText = QStringLiteral("");
const QString kPositionLost = QStringLiteral("PositionLostError");
const QString kOverloadUp = QStringLiteral("OverloadUpError");
const QString kOverloadDown = QStringLiteral("OverloadDownError");
const QString kE01 = QStringLiteral("E01");
const QString kE02 = QStringLiteral("E02");
const QString kE03 = QStringLiteral("E03");

const Case kCases[] = {
    {"no flag, whatever else is set", 0xFD, 0xFF, 1, {5, 1, 1, 1, 1, 1}, std::nullopt},
    {"flag alone", 0x02, 0, 0, {}, Codes {}},
    {"flag among other bits", 0xFF, 0, 0, {}, Codes {}},
    {"codes not announced", 0x02, 0, 0, {5, 6, 7, 8, 9, 10}, Codes {}},
    {"empty slots are skipped", 0x02, 0, 1, {5, 0, 12, 0, 0, 0},
        Codes {{QStringLiteral("E05"), kNoText}, {QStringLiteral("E12"), kNoText}}},
    {"first and last slot, three digits", 0x02, 0, 0x80, {123, 0, 0, 0, 0, 255},
        Codes {{QStringLiteral("E123"), kNoText}, {QStringLiteral("E255"), kNoText}}},
    {"one code twice", 0x02, 0, 1, {9, 9, 0, 0, 0, 0}, Codes {{QStringLiteral("E09"), kNoText}}},
    {"two kinds", 0x02, 0x05, 0, {}, Codes {{kE01, kPositionLost}, {kE02, kOverloadUp}}},
    {"all kinds", 0x02, 0x0D, 0, {},
        Codes {{kE01, kPositionLost}, {kE02, kOverloadUp}, {kE03, kOverloadDown}}},
    {"bits that are no kind", 0x02, 0xF2, 0, {}, Codes {}},
    {"a kind gives its text to a listed code", 0x02, 0x08, 1, {3, 4, 0, 0, 0, 0},
        Codes {{kE03, kOverloadDown}, {QStringLiteral("E04"), kNoText}}},
};
}

TEST(ErrorCodeHandlerTest, ReadsTheCodesOutOfAReport)
{
    const TestPlatform platform; // Its bundle has no texts, so each key answers itself.
    for (const Case& testCase : kCases) {
        std::array<uint8_t, 64> report {4};
        report[3] = testCase.flags;
        report[6] = testCase.kinds;
        report[32] = testCase.listed;
        report[33] = 77; // Neighbours of the list, never read.
        report[40] = 78;
        std::copy(testCase.codes.begin(), testCase.codes.end(), report.begin() + 34);
        EXPECT_EQ(ErrorCodeHandler::setErrorCode(report), testCase.expected) << testCase.what;
    }
}
