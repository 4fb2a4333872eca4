#include "desk/DeskStory.h"

TEST(Attendance, isRecordedAndNothingElse)
{
    const struct {
        const char* what;
        const char* happens;
        QString records, told; ///< sessions and reminders, in awake seconds
    } kStories[] = {
        {"postures meet without a gap, and one reminder calls for each change", "4000 height=4000 4700",
            "sit 1.2..4000.2, stand 4000.2..4700", "1201.2 reminder 1, 4000.2 session, 4600.2 reminder 2"},
        {"an adapter that leaves for a while", "100 pull 200 plug 210", "sit 1.2..100, sit 201.2..210",
            "201.2 session"},
        {"an adapter that is silent for a while", "50 on=0 check 100 on=1 check 120",
            "sit 1.2..50, sit 100..120", "100 session"},
        {"a wake closes a period, dark screens open one, but not without a desk",
            "22 wake 24 dark 27 pull 27.1 dark 41", "sit 1.2..22, sit 24..27", "24 session"},
        {"what is due, and a clock that is set, while the user is known to be away",
            "7 away 183 dark due=4 221 dark 222 set=1000 231", "sit 1.2..180, sit 183..190, sit 221..225",
            "183 session, 183 session, 221 session"},

        {"four seconds asleep without a signal, noticed by the pulse", "41 z=4 66", "sit 1.2..45, sit 64..70",
            "60 session"},
        {"the schedule ends before anything notices", "41 due=3 z=30000 49", "sit 1.2..45", "41 session"},
        {"a sleep behind a clock that lost the same time", "41 z=30000 set=-30000 66",
            "sit 1.2..45, sit 60..66", "60 session"},

        {"steps of less than two seconds, until they add up", "16 set=1.25 31 set=1.25 47",
            "sit 1.2..45, sit 47.5..49.5", ""},
        {"a small step back at the start: nothing runs backwards", "1.5 set=-1 1.6", "sit 1.2..1.2", ""},
        {"a step, and the posture changes before the pulse", "41 set=1000 height=4000 44",
            "sit 1.2..41.2, stand 1041.2..1044", "41.2 session"},

        {"a period that begins and ends without room goes out all the same",
            "50 full height=4000 55 pull room 61", "sit 1.2..50.2, stand 50.2..55", "50.2 session"},
    };
    for (const auto& [what, happens, records, told] : kStories) {
        SCOPED_TRACE(what);
        DeskStory story;
        story.play(QString(happens) + " quit");
        EXPECT_EQ(story.records(), records);
        EXPECT_EQ(story.heard("session|reminder"), told);
        EXPECT_EQ(story.hub->activity(), nullptr);
        EXPECT_FALSE(story.hub->scheduleManager()->isScheduled());
    }
}
