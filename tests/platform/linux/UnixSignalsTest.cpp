#include "platform/linux/UnixSignals.h"

#include "TestBus.h"

#include <gtest/gtest.h>
#include <vector>

namespace {
/// A program started with nohup, or by a shell in the background, begins with ignored signals.
class UnixSignalsTest : public testing::Test {
protected:
    UnixSignalsTest()
    {
        for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGPIPE})
            signal(number, SIG_DFL);
    }
};

TEST_F(UnixSignalsTest, arriveOnTheMainLoopAndNotBefore)
{
    std::vector<int> heard;
    const UnixSignals signals([&](int number) { heard.push_back(number); });
    raise(SIGTERM);
    raise(SIGHUP);
    EXPECT_TRUE(heard.empty());
    EXPECT_TRUE(waitFor([&] { return heard.size() == 2; }));
    EXPECT_EQ(heard, (std::vector {SIGTERM, SIGHUP}));
}

TEST_F(UnixSignalsTest, aCallbackMayEndThem)
{
    std::unique_ptr<UnixSignals> signals;
    int heard = 0;
    signals = std::make_unique<UnixSignals>([&](int) {
        ++heard;
        signals.reset();
    });
    raise(SIGINT);
    raise(SIGTERM);
    EXPECT_TRUE(waitFor([&] { return !signals; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(heard, 1);
}

TEST_F(UnixSignalsTest, nohupIsRespectedButARequestToEndIsHeard)
{
    const struct {
        int number;
        bool isHeard;
    } kCases[] = {{SIGTERM, true}, {SIGINT, true}, {SIGHUP, false}, {SIGPIPE, false}};
    for (const auto& row : kCases) {
        signal(row.number, row.number == SIGPIPE ? SIG_DFL : SIG_IGN); // SIGPIPE is ignored in any case.
        int heard = 0;
        const UnixSignals signals([&](int number) { heard = number; });
        raise(row.number);
        QCoreApplication::processEvents();
        EXPECT_EQ(heard, row.isHeard ? row.number : 0);
    }
}

TEST_F(UnixSignalsTest, leaveTheProcessAsItWas)
{
    struct sigaction before { };
    struct sigaction after { };
    sigaction(SIGTERM, nullptr, &before);
    {
        const UnixSignals signals([](int) {});
    }
    sigaction(SIGTERM, nullptr, &after);
    EXPECT_EQ(before.sa_handler, after.sa_handler);
}
}
