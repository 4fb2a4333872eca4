#include "platform/linux/UnixSignals.h"

#include "TestBus.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {
TEST(UnixSignals, arriveOnTheMainLoopAndNotBefore)
{
    std::vector<int> heard;
    const UnixSignals signals([&](int number) { heard.push_back(number); });
    raise(SIGTERM);
    raise(SIGHUP);
    EXPECT_TRUE(heard.empty());
    EXPECT_TRUE(waitFor([&] { return heard.size() == 2; }));
    EXPECT_EQ(heard, (std::vector {SIGTERM, SIGHUP}));
}

TEST(UnixSignals, aCallbackMayEndThem)
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

TEST(UnixSignals, aBrokenPipeEndsNothingAndNohupIsRespected)
{
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGHUP, SIG_IGN);
        int heard = 0;
        const UnixSignals signals([&](int) { ++heard; });
        int ends[2];
        if (pipe(ends) != 0)
            _exit(2);
        close(ends[0]);
        [[maybe_unused]] const ssize_t written = write(ends[1], "x", 1);
        raise(SIGHUP);
        struct sigaction action { };
        sigaction(SIGHUP, nullptr, &action);
        _exit(action.sa_handler == SIG_IGN ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST(UnixSignals, leaveTheProcessAsItWas)
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
