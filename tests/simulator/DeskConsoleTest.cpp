#include "simulator/DeskConsole.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <sstream>

namespace {
/// A bar ends a line; words in capitals stand for reports and for what is often said.
std::string lines(QString text)
{
    return text.replace("INIT", "set 03 04 00 FB 00 00 00 00")
        .replace("UP", "set 05 00 80 00 80 00 80 00")
        .replace("WELL", "plugged yes, initialised yes, desk on yes, communicating yes")
        .replace('|', '\n')
        .toStdString();
}

/// The output, and after it what was not understood.
std::string play(const QString& script)
{
    std::istringstream input(lines(script));
    std::ostringstream output;
    std::ostringstream errors;
    const bool understood = DeskConsole(output, errors).run(input);
    EXPECT_EQ(understood, errors.str().empty());
    return output.str() + errors.str();
}
}

TEST(DeskConsole, saysWhatTheDeskDoes)
{
    const char* const kCases[][2] = {
        // A script after the init report, and the output after its "ok".
        {"|# up for a moment|UP|advance 0.25   # to top speed|height|status|advance 10|get 04|quit|nonsense",
            "ok|948|height 948 of 0 to 6500, 380 a second, going to 6500|WELL|errors none|faults none|"
            "04 00 01 00 42 04 00 00|"}, // 948 + 95 at speed + 47.5 on the ramp.
        {"limits 0 65535|limits 1000 2000|height|height 2000|error E10|error E9|error unnamed on|status",
            "1000|height 2000 of 1000 to 2000, 0 a second|WELL|errors unnamed E10 E09|faults none|"},
        {"error position-lost|error overload-down on|error overload-up|error overload-up off|limits 300 2500|"
         "fault reads on|get 04|fault writes on|set 05 00|fault silence on|get 04|fault stall on|"
         "fault short 7|status",
            "failed|failed|no answer|height 900 of 300 to 2500, 0 a second|WELL|"
            "errors position-lost overload-down|faults reads writes stall silence short 7|"},
        {"adapter 2|set 05|INIT|UP|adapter 1|advance 0.25|height|adapter 2|height", "refused|ok|ok|900|948|"},
        // A wrong init; seven bytes, a copy that differs, the status written, another report read; and a
        // ninth byte.
        {"set 03 04 00 FA 00 00 00 00|set 05 00 80 00 80 00 80|set 05 00 80 01 80 01 80 01|"
         "set 05 00 80 00 80 01 80 00|set 05 00 80 00 80 00 80 01|set 04 00 00 00 00 00 00 00|get 05|"
         "advance 0.25|height|UP 80|advance 0.25|height",
            "refused|refused|refused|refused|refused|refused|refused|900|ok|948|"},
        {"error E1|error clear|fault short 2|fault short off|fault reads on|fault reads off|set 05|unplug|"
         "get 04|status|plug|needs-init off|desk off|status",
            "refused|unplugged|height 900 of 0 to 6500, 0 a second|"
            "plugged no, initialised no, desk on yes, communicating no|errors none|faults none|"
            "height 900 of 0 to 6500, 0 a second|"
            "plugged yes, initialised no, desk on no, communicating no|errors none|faults none|"},
    };
    for (const auto& [script, output] : kCases)
        EXPECT_EQ(play(QString("INIT|") + script), lines(QString("ok|") + output));
}

TEST(DeskConsole, theDeskIsHeardAndObeysAsItsStateAllows)
{
    const QString kErring = "04 00 01 02 34 12 0";
    const QString kNoKinds = QString(" 00").repeated(25) + ' ';
    const std::tuple<const char*, int, QString, const char*, int> kCases[] = {
        // What happens at the end of a ramp downwards, the height 0.21 s later (2892 when it went on, 2939
        // when it stopped), a read at the height 0x1234, a write, and the height after it (4668 when it has
        // obeyed).
        {"", 2892, "04 00 01 00 34 12 00 00", "ok", 4668},
        {"fault reads on", 2892, "failed", "ok", 4668},
        {"fault writes on", 2892, "04 00 01 00 34 12 00 00", "failed", 4660},
        {"fault stall on", 2892, "refused", "refused", 4660},
        {"fault silence on", 2892, "no answer", "no answer", 4660},
        {"fault short 5", 2892, "04 00 01 00 34 00 00 00", "ok", 4668},
        {"unplug", 2939, "unplugged", "unplugged", 4660},
        {"unplug|plug", 2939, "04 00 00 00 00 00 00 00", "ok", 4660}, // Its init report is forgotten.
        {"desk off", 2939, "04 00 00 00 34 12 00 00", "ok", 4660},
        {"error position-lost", 2939, kErring + "1 00", "ok", 4660},
        {"error overload-up|error overload-down|error overload-up off", 2939, kErring + "8 00", "ok", 4660},
        {"error E5|error E12|error E5|error E255", 2939, kErring + "0" + kNoKinds + "01 00 05 0C FF", "ok",
            4660},
        {"error unnamed", 2939, kErring + "0 00", "ok", 4660},
    };
    for (const auto& [spoil, height, read, write, after] : kCases)
        EXPECT_EQ(play(QString("INIT|height 3000|set 05 FF 7F FF 7F FF 7F FF|advance 0.2|%1|advance 0.21|"
                               "height|height 4660|get 04|UP|plug|needs-init off|desk on|error clear|"
                               "fault reads off|fault writes off|fault silence off|fault stall off|"
                               "fault short off|advance 0.1|height")
                           .arg(spoil)),
            lines(QString("ok|ok|%1|%2|%3|%4|").arg(height).arg(read, write).arg(after)))
            << spoil;
}

TEST(DeskConsole, theDeskSpeedsUpTurnsRoundAndComesToRestWhereItIsTold)
{
    const QString kUp = "00 80 ", kDown = "FF 7F ", kStop = "01 80 ";
    const std::tuple<int, QStringList, const char*, int> kCases[] = {
        // From where, the commands, each 0.2 s after the one before, how it goes after the last one, and
        // where the desk rests then.
        // With the acceleration a: v = at and a t^2 / 2, until the top speed is reached after 0.25 s.
        {1000, {kUp}, "1030 of 410 to 6400, 304 a second, going to 6400", 1190},
        {1000, {kUp, kUp, kDown}, "1150 of 410 to 6400, 76 a second, going to 410", 1057},
        {3000, {kUp, kUp, kUp, kStop}, "3226 of 410 to 6400, 76 a second", 3228},
        {3000, {"FF 7E ", kStop}, "3061 of 410 to 6400, 0 a second", 3061},
        {1000, {"E9 03 "}, "1001 of 410 to 6400, 0 a second, going to 1001", 1001},
        {1000, {"E7 03 "}, "999 of 410 to 6400, 0 a second, going to 999", 999},
        {6390, {"58 1B "}, "6400 of 410 to 6400, 0 a second, going to 6400", 6400}, // Beyond the limit.
        {6390, {kUp}, "6400 of 410 to 6400, 0 a second, going to 6400", 6400},
        {420, {kDown}, "410 of 410 to 6400, 0 a second, going to 410", 410},
    };
    for (const auto& [from, commands, expected, rest] : kCases) {
        QString script = QString("INIT|limits 410 6400|height %1|").arg(from);
        for (const QString& value : commands) // The time adds up, as doubles do, to a hair less than 0.2 s.
            script +=
                "set 05 " + value.repeated(4) + "|advance 0.02|" + QString("advance 0.009|").repeated(20);
        const std::string said = play(script + "status|advance 60|status");
        const auto moving = std::string("height ") + expected + '\n';
        const auto resting = "height " + std::to_string(rest) + " of 410 to 6400, 0 a second\n";
        EXPECT_NE(said.find(moving), said.npos) << moving << said;
        EXPECT_NE(said.find(resting), said.npos) << resting << said;
    }
}

TEST(DeskConsole, namesTheLineAndTheFaultOfBadInputAndGoesOn)
{
    const QString kBad =
        "set|set 05 GG|set 05 100|get|get xyz|get 4 5|advance|advance -1|advance inf|advance 1s|"
        "advance 1 2|height 6501|height -1|height 1 2|limits 100|limits -1 100|limits 100 100|"
        "limits 1 65536|limits 1 2 3|limits a 3|error|error E0|error E256|error E|error E5 on|"
        "error overload-up maybe|error unnamed on on|error sideways|fault|fault reads maybe|"
        "fault sideways on|adapter|adapter 0|adapter 3|fault short -1|fault short on|plug in|"
        "desk|desk on off|needs-init perhaps|fly";
    const std::string kUntouched = lines(
        "height 900 of 0 to 6500, 0 a second|plugged yes, initialised no, desk on yes, communicating no|"
        "errors none|faults none|line 2: ");
    for (const QString& line : kBad.split('|'))
        EXPECT_EQ(play('|' + line + "|status").substr(0, kUntouched.size()), kUntouched) << qPrintable(line);
    EXPECT_EQ(play("error E1|error E2|error E3|error E4|error E5|error E6|error E7"),
        "line 7: the report has room for six error codes only\n");
    EXPECT_NE(play("help").find("\n  fault short BYTES|off              answer reads"), std::string::npos);
}
