#include "simulator/DeskConsole.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {
/// The output, and after it what was not understood.
std::string play(const std::string& script)
{
    std::istringstream input(script);
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
        {"\n# up for a moment\nset 05 00 80 00 80 00 80 00\nadvance 0.25   # to top speed\nheight\nstatus\n"
         "advance 10\nget 04\nquit\nnonsense after the end\n",
            "ok\n948\nheight 948 of 0 to 6500, 380 a second, going to 6500\n"
            "plugged yes, initialised yes, desk on yes, communicating yes\nerrors none\nfaults none\n"
            "04 00 01 00 42 04 00 00\n"}, // 948 + 95 at speed + 47.5 on the ramp.
        {"limits 0 65535\nlimits 1000 2000\nheight\nheight 2000\nerror E10\nerror E9\nerror unnamed "
         "on\nstatus\n",
            "1000\nheight 2000 of 1000 to 2000, 0 a second\n"
            "plugged yes, initialised yes, desk on yes, communicating yes\n"
            "errors unnamed E10 E09\nfaults none\n"},
        {"error position-lost\nerror overload-down on\nerror overload-up\nerror overload-up off\nlimits 300 "
         "2500\n"
         "fault reads on\nget 04\nfault writes on\nset 05 00\nfault silence on\nget 04\nfault stall "
         "on\nfault short "
         "7\nstatus\n",
            "failed\nfailed\nno answer\nheight 900 of 300 to 2500, 0 a second\n"
            "plugged yes, initialised yes, desk on yes, communicating yes\n"
            "errors position-lost overload-down\nfaults reads writes stall silence short 7\n"},
        {"adapter 2\nset 05\nset 03 04 00 FB 00 00 00 00\nset 05 00 80 00 80 00 80 00\nadapter 1\nadvance "
         "0.25\n"
         "height\nadapter 2\nheight\n",
            "refused\nok\nok\n900\n948\n"},
        // A wrong init; seven bytes, a copy that differs, the status written, another report read; and a
        // ninth byte.
        {"set 03 04 00 FA 00 00 00 00\nset 05 00 80 00 80 00 80\nset 05 00 80 01 80 01 80 01\n"
         "set 05 00 80 00 80 01 80 00\nset 05 00 80 00 80 00 80 01\nset 04 00 00 00 00 00 00 00\nget "
         "05\nadvance 0.25\n"
         "height\nset 05 00 80 00 80 00 80 00 80\nadvance 0.25\nheight\n",
            "refused\nrefused\nrefused\nrefused\nrefused\nrefused\nrefused\n900\nok\n948\n"},
        {"error E1\nerror clear\nfault short 2\nfault short off\nfault reads on\nfault reads off\nset 05\n"
         "unplug\nget 04\nstatus\nplug\nneeds-init off\ndesk off\nstatus\n",
            "refused\nunplugged\nheight 900 of 0 to 6500, 0 a second\n"
            "plugged no, initialised no, desk on yes, communicating no\nerrors none\nfaults none\n"
            "height 900 of 0 to 6500, 0 a second\n"
            "plugged yes, initialised no, desk on no, communicating no\nerrors none\nfaults none\n"},
    };
    for (const auto& [script, output] : kCases)
        EXPECT_EQ(play(std::string("set 03 04 00 FB 00 00 00 00\n") + script), std::string("ok\n") + output);
}

TEST(DeskConsole, theDeskIsHeardAndObeysAsItsStateAllows)
{
    const std::string kErring = "04 00 01 02 34 12 0";
    const std::string kNoKinds =
        " 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 ";
    const std::tuple<std::string, const char*, std::string, const char*, const char*> kCases[] = {
        // What happens at the end of a ramp downwards, the height 0.21 s later (2892 when it went on, 2939
        // when it
        // stopped), a read at the height 0x1234, a write, and the height after it (4668 when it has obeyed).
        {"", "2892", "04 00 01 00 34 12 00 00", "ok", "4668"},
        {"fault reads on", "2892", "failed", "ok", "4668"},
        {"fault writes on", "2892", "04 00 01 00 34 12 00 00", "failed", "4660"},
        {"fault stall on", "2892", "refused", "refused", "4660"},
        {"fault silence on", "2892", "no answer", "no answer", "4660"},
        {"fault short 5", "2892", "04 00 01 00 34 00 00 00", "ok", "4668"},
        {"unplug", "2939", "unplugged", "unplugged", "4660"},
        {"unplug\nplug", "2939", "04 00 00 00 00 00 00 00", "ok", "4660"}, // Its init report is forgotten.
        {"desk off", "2939", "04 00 00 00 34 12 00 00", "ok", "4660"},
        {"error position-lost", "2939", kErring + "1 00", "ok", "4660"},
        {"error overload-up\nerror overload-down\nerror overload-up off", "2939", kErring + "8 00", "ok",
            "4660"},
        {"error E5\nerror E12\nerror E5\nerror E255", "2939", kErring + "0" + kNoKinds + "01 00 05 0C FF",
            "ok", "4660"},
        {"error unnamed", "2939", kErring + "0 00", "ok", "4660"},
    };
    for (const auto& [spoil, height, read, write, after] : kCases)
        EXPECT_EQ(play("set 03 04 00 FB 00 00 00 00\nheight 3000\nset 05 FF 7F FF 7F FF 7F FF\nadvance 0.2\n"
                      + spoil
                      + "\nadvance 0.21\nheight\nheight 4660\nget 04\nset 05 00 80 00 80 00 80 00\n"
                        "plug\nneeds-init off\ndesk on\nerror clear\nfault reads off\nfault writes off\n"
                        "fault silence off\nfault stall off\nfault short off\nadvance 0.1\nheight\n"),
            std::string("ok\nok\n") + height + '\n' + read + '\n' + write + '\n' + after + '\n')
            << spoil;
}

TEST(DeskConsole, theDeskSpeedsUpTurnsRoundAndComesToRestWhereItIsTold)
{
    using Text = std::string;
    const Text kUp = "00 80 ", kDown = "FF 7F ", kStop = "01 80 ";
    const std::tuple<int, std::vector<Text>, const char*, int> kCases[] = {
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
        Text script = "set 03 04 00 FB 00 00 00 00\nlimits 410 6400\nheight " + std::to_string(from) + '\n';
        for (const Text& value : commands) {
            script += "set 05 ";
            for (int i = 0; i < 4; ++i)
                script += value;
            script += "\nadvance 0.02\n";
            for (int i = 0; i < 20; ++i)
                script += "advance 0.009\n"; // Added up as doubles, a hair less than 0.18.
        }
        const Text said = play(script + "status\nadvance 60\nstatus\n");
        const auto resting = "height " + std::to_string(rest) + " of 410 to 6400, 0 a second\n";
        EXPECT_NE(said.find("height " + Text(expected) + '\n'), said.npos) << script << said;
        EXPECT_NE(said.find(resting), said.npos) << script << said;
    }
}

TEST(DeskConsole, namesTheLineAndTheFaultOfBadInputAndGoesOn)
{
    const char* const kBad[] = {"set", "set 05 GG", "set 05 100", "get", "get xyz", "get 4 5", "advance",
        "advance -1", "advance inf", "advance 1s", "advance 1 2", "height 6501", "height -1", "height 1 2",
        "limits 100", "limits -1 100", "limits 100 100", "limits 1 65536", "limits 1 2 3", "limits a 3",
        "error", "error E0", "error E256", "error E", "error E5 on", "error overload-up maybe",
        "error unnamed on on", "error sideways", "fault", "fault reads maybe", "fault sideways on", "adapter",
        "adapter 0", "adapter 3", "fault short -1", "fault short on", "plug in", "desk", "desk on off",
        "needs-init perhaps", "fly"};
    const std::string kUntouched =
        "height 900 of 0 to 6500, 0 a second\nplugged yes, initialised no, desk on yes, "
        "communicating no\nerrors none\nfaults none\nline 2: ";
    for (const std::string line : kBad)
        EXPECT_EQ(play("\n" + line + "\nstatus\n").substr(0, kUntouched.size()), kUntouched) << line;
    EXPECT_EQ(play("error E1\nerror E2\nerror E3\nerror E4\nerror E5\nerror E6\nerror E7\n"),
        "line 7: the report has room for six error codes only\n");
    EXPECT_NE(play("help").find("\n  fault short BYTES|off              answer reads"), std::string::npos);
}
