#include "platform/linux/UnixSignals.h"

#include <QCoreApplication>

#include <gtest/gtest.h>
#include <vector>

TEST(UnixSignals, arriveOnTheMainLoopWhereACallbackMayEndThemAndRespectNohup)
{
    for (const bool isNohup : {false, true}) {
        std::vector<int> heard;
        signal(SIGTERM, SIG_DFL);
        signal(SIGPIPE, SIG_DFL);
        signal(SIGHUP, isNohup ? SIG_IGN : SIG_DFL);
        std::unique_ptr<UnixSignals> signals;
        signals = std::make_unique<UnixSignals>([&](int number) {
            heard.push_back(number);
            if (number == SIGINT)
                signals.reset();
        });
        for (const int number : {SIGPIPE, SIGTERM, SIGHUP, SIGINT, SIGTERM})
            raise(number);
        EXPECT_TRUE(heard.empty()) << "not before";
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
        EXPECT_EQ(heard, isNohup ? (std::vector {SIGTERM, SIGINT}) : (std::vector {SIGTERM, SIGHUP, SIGINT}));
        EXPECT_EQ(signal(SIGTERM, SIG_DFL), SIG_DFL) << "the process is left as it was";
    }
}
