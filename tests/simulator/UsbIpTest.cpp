#include "simulator/DeskConsole.h"
#include "simulator/ReportText.h"
#include "simulator/UsbIpSession.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {
using Bytes = UsbIpSession::Bytes;
using Text = std::string;

/// Bytes in hexadecimal; "x40" stands for forty zeros, a word in quotes for its letters.
Bytes bytes(const Text& words)
{
    Bytes found;
    std::istringstream input(words);
    for (Text word; input >> word;) {
        if (word[0] == '\'')
            found.insert(found.end(), word.begin() + 1, word.end() - 1);
        else if (word[0] == 'x')
            found.resize(found.size() + std::stoul(word.substr(1)));
        else
            found.push_back(uint8_t(std::stoul(word, nullptr, 16)));
    }
    return found;
}

/// Transfer 7 with so many bytes of data, and its answer.
Text in(const Text& length, const Text& setup)
{
    return "x3 01 x3 07 00 01 00 01 x3 01 x8 x3 " + length + " x12 " + setup;
}
Text out(const Text& length, const Text& setup)
{
    return "x3 01 x3 07 00 01 00 01 x12 x3 " + length + " x12 " + setup;
}
Text ok(const Text& length, const Text& data = "")
{
    return "x3 03 x3 07 x16 x3 " + length + " x20 " + data;
}
Text failed(const Text& status)
{
    return "x3 03 x3 07 x12 FF FF FF " + status + " x24";
}

const Text kImport = "01 11 80 03 x4 '1-1' x29";
const Text kDevice =
    " '/sys/devices/simulated/1-1' x230 '1-1' x29 x3 01 x3 01 x3 02 12 09 00 01 01 00 x3 01 01 01 ";
const Text kInit = " 03 04 00 FB x4";
const Text kStatus = "A1 01 04 03 00 00 40 00";
const Text kStall = failed("E0");
}

TEST(UsbIp, eachQuestionHasItsAnswer)
{
    std::ostringstream said;
    DeskConsole console(said, said);
    UsbIpSession::Desks all {console.desks(), {}};
    UsbIpSession other(all, {});
    Text wire;
    UsbIpSession session(all, [&](const UsbIpSession::Report& report) {
        wire += std::to_string(report.adapter) + (report.isRead ? '<' : '>') + text(report.bytes) + ' '
            + text(report.result) + '|';
    });
    const std::tuple<const char*, Text, Text> kCases[] = {
        // What happens, a question after it, and its answer.
        {"adapter 2", "01 11 80 03 x4 '1-3' x29", "01 11 00 03 x3 04"},
        {"unplug", "01 11 80 03 x4 '1-2' x29", "01 11 00 03 x3 04"},
        {"adapter 1", "01 11 80 05 x4", "01 11 00 05 x4 x3 01" + kDevice + "03 x3"},
        {"", kImport, "01 11 00 03 x4" + kDevice},
        {"", in("12", "80 06 00 01 00 00 12 00"),
            ok("12", "12 01 00 02 00 00 00 40 09 12 01 00 00 01 01 02 00 01")},
        {"", in("FF", "80 06 00 02 00 00 FF 00"),
            ok("22",
                "09 02 22 00 01 01 00 80 32 09 04 00 00 01 03 00 00 00"
                " 09 21 11 01 00 01 22 27 00 07 05 81 03 08 00 0A")},
        {"", in("04", "80 06 01 03 09 04 FF 00"), ok("04", "24 03 5A 00")}, // No more than has room,
        {"", in("FF", "80 06 02 03 09 04 04 00"), ok("04", "30 03 53 00")}, // and no more than is asked for.
        {"", in("FF", "80 06 03 03 09 04 FF 00"), kStall},
        {"", in("FF", "81 06 00 22 00 00 FF 00"), // Reports 3, 4 and 5 are features of 7, 63 and 7 bytes.
            ok("27",
                "06 00 FF 09 01 A1 01 15 00 26 FF 00 75 08 85 03 95 07 09 03 B1 02"
                " 85 04 95 3F 09 04 B1 02 85 05 95 07 09 05 B1 02 C0")},
        {"", in("FF", "81 06 00 21 00 00 FF 00"), ok("09", "09 21 11 01 00 01 22 27 00")},
        {"", in("01", "80 08 00 00 00 00 01 00"), ok("01", "01")},
        {"", in("02", "80 00 00 00 00 00 02 00"), ok("02", "x2")},
        {"", in("02", "A1 FF 00 00 00 00 02 00"), kStall},
        {"", out("00", "00 09 01 00 00 00 00 00"), ok("00")},
        {"", out("00", "01 0B 00 00 00 00 00 00"), ok("00")},
        {"", out("00", "02 01 00 00 81 00 00 00"), ok("00")},
        {"", out("00", "21 0A 00 00 00 00 00 00"), ok("00")},
        {"", out("08", "21 09 03 03 00 00 08 00") + kInit, ok("08")},
        {"", out("08", "21 09 05 03 00 00 08 00") + kInit, kStall},
        {"", out("08", "21 09 03 02 00 00 08 00") + kInit, kStall},
        {"", in("40", "A1 01 04 01 00 00 40 00"), kStall},
        {"", in("40", "A1 01 05 03 00 00 40 00"), kStall},
        {"", in("40", kStatus), ok("40", "04 00 01 00 84 03 x58")},
        {"fault short 5", in("40", kStatus), ok("05", "04 00 01 00 84")},
        {"fault reads on", in("40", kStatus), failed("B9")},
        {"fault silence on", in("40", kStatus), ""},
        {"", "x3 02 x3 09 x12 x3 07 x24", "x3 04 x3 09 x12 FF FF FF 98 x24"}, // Forgotten,
        {"", "x3 02 x3 09 x12 x3 07 x24", "x3 04 x3 09 x12 x4 x24"}, // and over already.
        {"", "x3 01 x3 07 x4 x3 01 x3 01 x4 x3 08 x4 FF FF FF FF x12",
            ""}, // The interrupt endpoint has nothing to tell.
        {"", "x3 01 x3 07 x11 01 x28", kStall},
        {"", "x3 01 x3 07 x4 x3 01 x3 02 x4 x3 08 x20", kStall},
    };
    for (const auto& [command, question, expected] : kCases) {
        ASSERT_TRUE(console.execute(command));
        const Bytes asked = bytes(question); // However they arrive.
        EXPECT_EQ(session.take(std::span(asked).first(asked.size() - 1)), Bytes {}) << question;
        EXPECT_EQ(session.take(std::span(asked).last(1)), bytes(expected)) << question;
    }
    EXPECT_EQ(other.take(bytes(kImport)), bytes("01 11 00 03 x3 02")) << "it has a host already";
    EXPECT_EQ(wire,
        "1>03 04 00 FB 00 00 00 00 ok|1<05 refused|1<04 00 01 00 84 03 00 00 ok|"
        "1<04 00 01 00 84 ok|1<04 failed|1<04 no answer|");
    EXPECT_FALSE(session.isUnplugged());
    ASSERT_TRUE(console.execute("unplug"));
    EXPECT_TRUE(session.isUnplugged());
}

TEST(UsbIp, whatMakesNoSenseEndsTheConnectionAndTakesTheAdaptersPower)
{
    const std::pair<Text, const char*> kCases[] = {
        {"01 10 80 05 x4", "another version of USB/IP"},
        {"01 11 80 06 x4", "an unknown request"},
        {kImport + " x3 05 x44", "an unknown command"},
        {kImport + " x3 01 x3 07 x16 00 00 10 01 x20", "a transfer of 4097 bytes"},
        {kImport + " x3 01 x3 07 x4 x3 01 x16 x3 01 x12", "an isochronous transfer"},
    };
    std::deque<DeskModel> desks(1);
    UsbIpSession::Desks all {desks, {}};
    EXPECT_EQ(desks[0].setFeatureReport(bytes(kInit)), TransferResult::Ok);
    for (const auto& [question, complaint] : kCases) {
        UsbIpSession session(all, {});
        EXPECT_EQ(session.take(bytes(question)), std::nullopt);
        EXPECT_EQ(session.complaint(), complaint);
    }
    EXPECT_TRUE(desks[0].isPlugged());
    EXPECT_FALSE(desks[0].isInitialised());
}
