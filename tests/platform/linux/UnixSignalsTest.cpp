#include "platform/linux/UnixSignals.h"

#include <QtCore/qtestsupport_core.h>

#include <gtest/gtest.h>
#include <vector>

TEST(UnixSignals, arriveOnTheMainLoopWhereACallbackMayEndThem)
{
    std::vector<int> heard;
    signal(SIGTERM, SIG_DFL);
    std::unique_ptr<UnixSignals> signals;
    signals = std::make_unique<UnixSignals>([&](int number) {
        heard.push_back(number);
        if (number == SIGINT)
            signals.reset();
    });
    for (const int number : {SIGTERM, SIGHUP, SIGINT, SIGTERM})
        raise(number);
    EXPECT_TRUE(heard.empty()) << "not before";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !signals; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, (std::vector {SIGTERM, SIGHUP, SIGINT}));
    EXPECT_EQ(signal(SIGTERM, SIG_DFL), SIG_DFL) << "the process is left as it was";
}

TEST(UnixSignals, respectNohupButHearARequestToEnd)
{
    for (const auto& [number, isHeard] :
        {std::pair(SIGTERM, true), {SIGINT, true}, {SIGHUP, false}, {SIGPIPE, false}}) {
        signal(number, number == SIGPIPE ? SIG_DFL : SIG_IGN); // SIGPIPE is ignored in any case.
        int heard = 0;
        const UnixSignals signals([&](int arrived) { heard = arrived; });
        raise(number);
        QCoreApplication::processEvents();
        EXPECT_EQ(heard, isHeard ? number : 0);
    }
}
