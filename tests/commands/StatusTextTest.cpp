#include "commands/StatusText.h"

#include "fakes/TestPlatform.h"

TEST(StatusTextTest, saysWhatThereIsAndLeavesOutTheRest)
{
    using Desk = Status::Desk;
    const Status::Height height {4294, 1049, QStringLiteral("41.3 in")};
    const Status::Goal goal {25, 31, 126, QStringLiteral("kcal")};
    const struct {
        Status status;
        const char* json;
        const char* text;
    } kTestCases[] = {
        {{Desk::Connected, "Desk 0", {}, height, "standing", false, Status::Period {1795323808, 8}, 17, goal,
             "X11"},
            R"({"adapter":"Desk 0","desk":"connected","goal_done":31,"goal_percent":25,"goal_target":126,)"
            R"("goal_unit":"kcal","height":"41.3 in","height_mm":1049,"height_raw":4294,"idle_source":"X11",)"
            R"("minutes":8,"minutes_to_change":17,"paused":false,"permission":"granted",)"
            R"("posture":"standing","since":1795323808})",
            "Desk:      connected (Desk 0)\n"
            "Height:    41.3 in (1049 mm)\n"
            "Posture:   standing for 8 min, to change in 17 min\n"
            "Today:     25% of the goal, 31 of 126 kcal\n"
            "Idle time: X11\n"},
        {{Desk::Connected, {}, {}, {}, "sitting", true, {}, {}, {}, {}},
            R"({"desk":"connected","paused":true,"permission":"granted","posture":"sitting"})",
            "Desk:      connected\nPosture:   sitting, paused while you are away\n"},
        {{Desk::Connected, {}, {}, {}, "sitting", false, Status::Period {}, 0, {}, {}},
            R"({"desk":"connected","minutes":0,"minutes_to_change":0,"paused":false,)"
            R"("permission":"granted","posture":"sitting","since":0})",
            "Desk:      connected\nPosture:   sitting for 0 min, to change in 0 min\n"},
        {{Desk::Forbidden, {}, {"one", "two"}, {}, {}, false, {}, {}, {}, {}},
            R"({"cure":["one","two"],"desk":"forbidden","paused":false,"permission":"denied"})",
            "Desk:      no permission to open the adapter; to allow it, run:\n"
            "           one\n           two\n"},
        {{Desk::None, {}, {}, {}, {}, false, {}, {}, {}, {}}, R"({"desk":"none","paused":false})",
            "Desk:      no adapter is plugged in\n"},
        {{Desk::Busy, {}, {}, {}, {}, false, {}, {}, {}, {}},
            R"({"desk":"busy","paused":false,"permission":"granted"})",
            "Desk:      another program uses the adapter\n"},
        {{Desk::Unusable, {}, {}, {}, {}, false, {}, {}, {}, {}}, R"({"desk":"unusable","paused":false})",
            "Desk:      the adapter cannot be opened\n"},
        {{Desk::Silent, {}, {}, {}, {}, false, {}, {}, {}, {}},
            R"({"desk":"silent","paused":false,"permission":"granted"})",
            "Desk:      adapter found, but no desk responds\n"},
    };
    for (const auto& row : kTestCases) {
        const QVariantMap told = facts(row.status);
        EXPECT_EQ(factsAsJson(told), QByteArray(row.json));
        EXPECT_EQ(factsAsText(told), QString::fromUtf8(row.text));
    }
    // A newer program may know more.
    EXPECT_EQ(factsAsText({{QStringLiteral("desk"), QStringLiteral("asleep")}}),
        QStringLiteral("Desk:      asleep\n"));
}
