// Plays scripts against the simulated desks, quick, slow, failing and stalled, and compares all that went
// over the wire.

#include "desk/DeskStory.h"

TEST(Wire, carriesWhatAHoldAsksForAndNothingAfterItsEnd)
{
    const struct {
        const char* script;
        QString wire;
        QString heard = "";
    } kCases[] = {
        // A quick adapter, and slow ones, whose height is known while they move.
        {"1.3 up 2.2 stop 3.3", "1.3 stop r 1.5 up r 1.7 up r 1.9 up r 2.1 up r r 2.2 stop r r"},
        {"latency=0.2 1.3 up 2.2 stop 4.3",
            "1.3+0.2 stop r 1.7+0.2 up 1.9+0.2 up 2.1+0.2 up 2.3+0.2 stop r r"},
        {"latency=0.3 1.3 up 4.15 stop 5.3",
            "1.3+0.3 stop 1.6+0.3 up 1.9+0.3 up 2.2+0.3 up r 2.8+0.3 up 3.1+0.3 up 3.4+0.3 up r 4+0.3 up "
            "4.3+0.3 stop r"},
        // Failures and stalls: the newest intent goes out first, and nothing after a return.
        {"1.3 up 1.8 fail=1 2 fail=1 2.2 stop 3.3",
            "1.3 stop r 1.5 up r 1.7 up r 1.9 up! 1.9 up r 2.1 up! 2.1 up r r 2.2 stop r r"},
        {"1.3 up 1.8 fail=2 5.3",
            "1.3 stop r 1.5 up r 1.7 up r 1.9 up! 1.9 up! 1.9 stop 2.9 stop r 2.9 init 2.9 stop r r r",
            "1.9 desk, 2.9 desk 0 0, 3.1 desk 1 0, 4.1 desk 1 2"},
        {"1.3 up 1.8 stall=1 2.1 stall=0 2.2 stop 3.3",
            "1.3 stop r 1.5 up r 1.7 up r 1.9+0.2 up 2.1 up r r 2.2 stop r r"},
        {"1.3 up 1.8 stall=1 2.2 stop 3.8 stall=0 5.3",
            "1.3 stop r 1.5 up r 1.7 up r 1.9+1.9 up 3.8 stop r r r"},
        {"1.3 up 1.8 stall=1 2.2 stop 7.3 stall=0 9.3",
            "1.3 stop r 1.5 up r 1.7 up r 1.9+5.4 up 7.3 stop 7.9 stop r 7.9 init 7.9 stop r r",
            "6.9 desk, 7.9 desk 0 0, 8.1 desk 1 0, 9.1 desk 1 2"},
        // One movement takes the place of another, also within its start.
        {"1.3 go=67538 1.55 target=1772 1.75 down 2 aside 3",
            "1.3 stop r 1.5 go2002 r 1.7 go1772 r 1.75 stop r 1.95 down r 2 stop r r"},
        {"1.3 height=950 stopAtHeight up 1.9", "1.3 stop r 1.3 stop r"},
        {"1.3 height=990 downAtHeight up 1.6 stop 1.8", "1.3 stop r 1.3 stop r 1.5 down r 1.6 stop r"},
        // After a standstill of the process a release that waits comes before the next movement.
        {"1.3 up 1.65 freeze=0.14 1.81 stop 2.45", "1.3 stop r 1.5 up r 1.79 up r 1.81 stop r r"},
        {"1.3 up 1.65 freeze=0.16 1.83 stop 2.45", "1.3 stop r 1.5 up r 1.83 stop r r"},
        {"1.3 up 1.65 freeze=0.34 2.41 stop 2.7", "1.3 stop r 1.5 up r 2.19 up r r 2.39 up r 2.41 stop r"},
        // A sleep or an end stops what is held, and sends nothing where nothing is.
        {"1.3 willsleep quit 2.1 up 2.4 willsleep 2.7 up 3 quit 3.3",
            "2.1 stop r r 2.3 up r 2.4 stop r 2.7 stop r 2.9 up r 3 stop r r"},
        {"1.3 up 1.6 wake 1.65 stop 1.9", "1.3 stop r 1.5 up r 1.65 stop r"},
        // What the status report says, and what is made of an adapter that has gone.
        {"1.3 error 3.3 well 5.3", "r r r r", "2.2 error 1 2 E07, 3.2 error 1 2 E07, 4.2 well"},
        {"1.3 error 2.3 pull 2.6", "r", "2.2 error 1 2 E07, 2.3 desk, 2.3 well"},
        {"1.3 plug=1 2.3 pull 4.3", "1.3 B:init 1.3 B:stop B:r B:r 2.3 B:init 2.3 B:stop B:r B:r",
            "2.3 desk, 2.3 desk 0 0, 2.5 desk 1 0, 3.5 desk 1 2"},
        {"1.3 plug=1 2.3 pull pull=1 4.3", "1.3 B:init 1.3 B:stop B:r B:r", "2.3 desk"},
        // Late reports are taken up when they come; a state is judged when the height changes.
        {"pull 2.2 latency=0.3 height=3000 plug 4.7 height=1000 5.5", "2.2+0.3 init 2.5+0.3 stop r r r",
            "1.2 desk, 2.2 desk 0 0, 3.1 desk 1 0, 4.1 desk 1 1, 5.4 desk 1 2"},
        {"1.3 height=2499 2.3 height=2500 4.3 memory2=4304 5.3 height=2501 6.3", "r r r r r",
            "3.2 desk 1 1, 6.2 desk 1 2"},
        // A hold ends when another adapter takes over, and an old answer of another one says nothing.
        {"1.3 up 1.6 plug=1 1.8 up 2.1 pull=1 2.9",
            "1.3 stop r 1.5 up r 1.6 stop r 1.6 B:init 1.6 B:stop B:r 1.8 B:stop B:r 2 B:up B:r 2.1 stop r "
            "r"},
        {"latency=0.5 latency1=0.5 2.25 plug=1 5.2 height=4100 pull=1 8.2",
            "r 2.25+0.5 B:init 2.75+0.5 B:stop B:r B:r r r", "6.7 desk 1 1"},
        // Nor does a check wait for the answer of an adapter that nobody listens to any more.
        {"pull 2.2 plug 2.3 latency=0.5 latency1=0.5 plug=1 2.5 latency=0 pull=1 4.2",
            "2.2 init 2.2 stop r r", "1.2 desk, 2.2 desk 0 0, 2.5 desk 1 0, 3.5 desk 1 2"},
        {"pull 2.2 latency=0.15 plug 2.45 latency=0 plug=1 3.5",
            "2.2+0.15 init 2.45 B:init 2.45 B:stop B:r 2.35+0.15 stop r B:r B:r",
            "1.2 desk, 2.2 desk 0 0, 2.45 desk 1 0, 3.45 desk 1 2"},
    };
    for (const auto& [script, wire, heard] : kCases) {
        SCOPED_TRACE(script);
        DeskStory story;
        story.play(script);
        EXPECT_EQ(story.wire.join(' '), wire);
        EXPECT_EQ(story.heard("desk|error|well"), heard);
        EXPECT_FALSE(story.hid.desk().isMoving());
    }
}
