#include "simulator/DeskConsole.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {
struct Played {
    bool understood;
    std::string output;
    std::string errors;
};

Played play(const std::string& script)
{
    std::istringstream input(script);
    std::ostringstream output;
    std::ostringstream errors;
    DeskConsole console(output, errors);
    const bool understood = console.run(input);
    return {understood, output.str(), errors.str()};
}

constexpr auto kInit = "set 03 04 00 FB 00 00 00 00\n";

TEST(DeskConsole, playsADeskThatIsMovedAndRead)
{
    const Played played = play(std::string(kInit) + R"(
# up for a moment
set 05 00 80 00 80 00 80 00
advance 0.25   # to top speed
height
advance 10
get 04
quit
nonsense after the end
)");
    EXPECT_TRUE(played.understood);
    EXPECT_EQ(played.errors, "");
    EXPECT_EQ(played.output, "ok\nok\n948\n04 00 01 00 42 04 00 00\n")
        << "948 + 95 at speed + 47.5 on the ramp";
}

TEST(DeskConsole, showsErrorsAndFaultsInStatusAndReport)
{
    const Played played = play(std::string(kInit)
        + "height 2000\nerror E05\nerror E123\nerror overload-up\nget 04\nfault short 3\nstatus\n"
          "error clear\nfault short off\nfault silence on\nget 04\nunplug\nget 04\nplug\nfault silence off\n"
          "fault reads on\nget 04\nfault writes on\nset 05 00\nstatus\n");
    EXPECT_TRUE(played.understood) << played.errors;
    EXPECT_NE(
        played.output.find("04 00 01 02 D0 07 04 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                           "00 00 00 00 00 01 00 05 7B\n"),
        std::string::npos);
    EXPECT_NE(played.output.find("errors overload-up E05 E123\nfaults short 3\n"), std::string::npos);
    EXPECT_NE(played.output.find("\nno answer\nunplugged\nfailed\nfailed\n"), std::string::npos);
    EXPECT_NE(played.output.find("plugged yes, initialised no, desk on yes, communicating no\n"
                                 "errors none\nfaults reads writes\n"),
        std::string::npos)
        << played.output;
}

TEST(DeskConsole, namesTheLineAndTheFaultOfBadInputAndGoesOn)
{
    const struct {
        const char* line;
        const char* complaint;
    } kCases[] = {
        {"fly", "unknown command \"fly\""},
        {"set", "needs the bytes"},
        {"set 05 GG", "\"GG\" is not a byte"},
        {"set 05 100", "\"100\" is not a byte"},
        {"get", "needs one report ID"},
        {"get xyz", "needs one report ID"},
        {"advance", "needs a number of seconds"},
        {"advance -1", "needs a number of seconds"},
        {"advance inf", "needs a number of seconds"},
        {"advance 1s", "needs a number of seconds"},
        {"height 6501", "from 0 to 6500"},
        {"height -1", "from 0 to 6500"},
        {"limits 100", "two whole numbers"},
        {"limits 100 50", "two whole numbers"},
        {"error E0", "from E01 to E255"},
        {"error E256", "from E01 to E255"},
        {"error E5 on", "needs a code"},
        {"error overload-up maybe", "needs a code"},
        {"fault", "needs \"reads\""},
        {"fault reads maybe", "needs \"reads\""},
        {"fault sideways on", "needs \"reads\""},
        {"fault short -1", "number of bytes"},
        {"plug in", "takes no arguments"},
        {"desk", "\"on\" or \"off\""},
        {"needs-init perhaps", "\"on\" or \"off\""},
    };
    for (const auto& testCase : kCases) {
        SCOPED_TRACE(testCase.line);
        const Played played = play(std::string("\n") + testCase.line + "\nheight\n");
        EXPECT_FALSE(played.understood);
        EXPECT_TRUE(played.errors.starts_with("line 2: ")) << played.errors;
        EXPECT_NE(played.errors.find(testCase.complaint), std::string::npos) << played.errors;
        EXPECT_EQ(played.output, "900\n");
    }
    const Played full = play("error E1\nerror E2\nerror E3\nerror E4\nerror E5\nerror E6\nerror E7\n");
    EXPECT_EQ(full.errors, "line 7: the report has room for six error codes only\n");
}

TEST(DeskConsole, everyListedCommandIsDocumented)
{
    const Played played = play("help\n");
    for (const char* verb : {"set", "get", "advance", "height", "limits", "error", "fault", "plug", "unplug",
             "desk", "needs-init", "status", "help", "quit"})
        EXPECT_NE(played.output.find("  " + std::string(verb) + ' '), std::string::npos) << verb;
}
}
