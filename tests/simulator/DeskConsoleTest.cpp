#include "simulator/DeskConsole.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {
struct Played {
    bool understood;
    std::string output;
    std::string errors;
    bool operator==(const Played&) const = default;
};

void PrintTo(const Played& played, std::ostream* stream)
{
    *stream << played.understood << '\n' << played.output << played.errors;
}

Played play(const std::string& script)
{
    std::istringstream input(script);
    std::ostringstream output;
    std::ostringstream errors;
    DeskConsole console(output, errors);
    const bool understood = console.run(input);
    return {understood, output.str(), errors.str()};
}
}

TEST(DeskConsole, saysWhatTheDeskDoes)
{
    const struct {
        const char* script; ///< after the init report
        const char* output; ///< after its "ok"
    } kCases[] = {
        {"\n# up for a moment\nset 05 00 80 00 80 00 80 00\nadvance 0.25   # to top speed\nheight\nstatus\n"
         "advance 10\nget 04\nquit\nnonsense after the end\n",
            "ok\n948\nheight 948 of 0 to 6500, 380 a second, going to 6500\n"
            "plugged yes, initialised yes, desk on yes, communicating yes\nerrors none\nfaults none\n"
            "04 00 01 00 42 04 00 00\n"}, // 948 + 95 at speed + 47.5 on the ramp.
        {"height 2000\nerror E10\nerror E9\nerror overload-up\nget 04\nfault short 3\nerror unnamed "
         "on\nstatus\n",
            "04 00 01 02 D0 07 04 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
            "01 00 0A 09\n"
            "height 2000 of 0 to 6500, 0 a second\n"
            "plugged yes, initialised yes, desk on yes, communicating yes\n"
            "errors overload-up unnamed E10 E09\nfaults short 3\n"},
        {"error position-lost\nerror overload-down on\nerror overload-up\nerror overload-up off\nlimits 300 "
         "2500\n"
         "fault reads on\nget 04\nfault writes on\nset 05 00\nfault silence on\nget 04\nfault short "
         "7\nstatus\n",
            "failed\nfailed\nno answer\nheight 900 of 300 to 2500, 0 a second\n"
            "plugged yes, initialised yes, desk on yes, communicating yes\n"
            "errors position-lost overload-down\nfaults reads writes silence short 7\n"},
        {"error E1\nerror clear\nfault short 2\nfault short off\nfault reads on\nfault reads off\nset 05\n"
         "unplug\nget 04\nstatus\nplug\nneeds-init off\ndesk off\nstatus\n",
            "refused\nunplugged\nheight 900 of 0 to 6500, 0 a second\n"
            "plugged no, initialised no, desk on yes, communicating no\nerrors none\nfaults none\n"
            "height 900 of 0 to 6500, 0 a second\n"
            "plugged yes, initialised no, desk on no, communicating no\nerrors none\nfaults none\n"},
    };
    for (const auto& row : kCases)
        EXPECT_EQ(play(std::string("set 03 04 00 FB 00 00 00 00\n") + row.script),
            (Played {true, std::string("ok\n") + row.output, ""}));
}

TEST(DeskConsole, theDeskIsHeardAndObeysAsItsStateAllows)
{
    const std::string kErring = "04 00 01 02 34 12 0";
    const std::string kNoKinds =
        " 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 ";
    const struct {
        const char* spoil; ///< at the end of a ramp downwards
        int height; ///< 0.21 s later: 2892 when it went on, 2939 when it stopped
        std::string read; ///< at the height 0x1234
        const char* write;
        int after; ///< 4668 when it has obeyed
    } kCases[] = {
        {"", 2892, "04 00 01 00 34 12 00 00", "ok", 4668},
        {"fault reads on", 2892, "failed", "ok", 4668},
        {"fault writes on", 2892, "04 00 01 00 34 12 00 00", "failed", 4660},
        {"fault silence on", 2892, "no answer", "no answer", 4660},
        {"fault short 5", 2892, "04 00 01 00 34 00 00 00", "ok", 4668},
        {"unplug", 2939, "unplugged", "unplugged", 4660},
        {"unplug\nplug", 2939, "04 00 00 00 00 00 00 00", "ok", 4660}, // Its init report is forgotten.
        {"desk off", 2939, "04 00 00 00 34 12 00 00", "ok", 4660},
        {"error position-lost", 2939, kErring + "1 00", "ok", 4660},
        {"error overload-up\nerror overload-down\nerror overload-up off", 2939, kErring + "8 00", "ok", 4660},
        {"error E5\nerror E12\nerror E5\nerror E255", 2939, kErring + "0" + kNoKinds + "01 00 05 0C FF", "ok",
            4660},
        {"error unnamed", 2939, kErring + "0 00", "ok", 4660},
    };
    for (const auto& row : kCases) {
        const Played played = play(std::string("set 03 04 00 FB 00 00 00 00\nheight 3000\n"
                                               "set 05 FF 7F FF 7F FF 7F FF\nadvance 0.2\n")
            + row.spoil
            + "\nadvance 0.21\nheight\nheight 4660\nget 04\nset 05 00 80 00 80 00 80 00\n"
              "plug\nneeds-init off\ndesk on\nerror clear\nfault reads off\nfault writes off\n"
              "fault silence off\nfault short off\nadvance 0.1\nheight\nget 04\n");
        EXPECT_EQ(played.errors, "");
        const std::string expected = std::to_string(row.height) + '\n' + row.read + '\n' + row.write + '\n'
            + std::to_string(row.after) + "\n04 00 01 00 " + (row.after == 4668 ? "3C" : "34")
            + " 12 00 00\n";
        EXPECT_TRUE(played.output.ends_with("\n" + expected)) << row.spoil << '\n'
                                                              << played.output << expected;
    }
}

TEST(DeskConsole, namesTheLineAndTheFaultOfBadInputAndGoesOn)
{
    const std::pair<const char*, std::vector<const char*>> kCases[] = {
        {"unknown command \"fly\"; \"help\" lists them", {"fly"}},
        {"\"set\" needs the bytes to send, the report ID first", {"set"}},
        {"\"GG\" is not a byte in hexadecimal", {"set 05 GG"}},
        {"\"100\" is not a byte in hexadecimal", {"set 05 100"}},
        {"\"get\" needs one report ID in hexadecimal", {"get", "get xyz", "get 4 5"}},
        {"\"advance\" needs a number of seconds, 0 or more",
            {"advance", "advance -1", "advance inf", "advance 1s", "advance 1 2"}},
        {"\"height\" needs one whole number from 0 to 6500", {"height 6501", "height -1", "height 1 2"}},
        {"\"limits\" needs two whole numbers, 0 <= LOWER < UPPER <= 65535",
            {"limits 100", "limits 100 50", "limits 1 2 3", "limits a 3"}},
        {"an error code goes from E01 to E255", {"error E0", "error E256", "error E"}},
        {"\"error\" needs a code (E05), a kind (position-lost, overload-up, overload-down, unnamed) with "
         "\"on\" or \"off\", or \"clear\"",
            {"error", "error E5 on", "error overload-up maybe", "error unnamed on on", "error sideways"}},
        {"\"fault\" needs \"reads\", \"writes\" or \"silence\" with \"on\" or \"off\", or \"short\" with a "
         "number of bytes or \"off\"",
            {"fault", "fault reads maybe", "fault sideways on"}},
        {"\"fault short\" needs a number of bytes or \"off\"", {"fault short -1", "fault short on"}},
        {"\"plug\" takes no arguments", {"plug in"}},
        {"\"on\" or \"off\" is missing", {"desk", "desk on off", "needs-init perhaps"}},
    };
    for (const auto& [complaint, lines] : kCases)
        for (const std::string line : lines)
            EXPECT_EQ(play("\n" + line + "\nheight\n"),
                (Played {false, "900\n", std::string("line 2: ") + complaint + '\n'}))
                << line;
    EXPECT_EQ(play("error E1\nerror E2\nerror E3\nerror E4\nerror E5\nerror E6\nerror E7\n"),
        (Played {false, "", "line 7: the report has room for six error codes only\n"}));
}

TEST(DeskConsole, everyListedCommandIsDocumented)
{
    const std::string help = play("help\n").output;
    for (const char* verb : {"set", "get", "advance", "height", "limits", "error", "fault", "plug", "unplug",
             "desk", "needs-init", "status", "help", "quit"})
        EXPECT_NE(help.find("  " + std::string(verb) + ' '), std::string::npos) << verb;
}
