#include "platform/linux/UnixSignals.h"

#include "fakes/TestPlatform.h"

#include <cstring>

TEST(UnixSignals, arriveOnTheMainLoopWhereACallbackMayEndThemAndRespectNohup)
{
    for (const bool isNohup : {false, true}) {
        QString heard;
        signal(SIGTERM, SIG_DFL);
        signal(SIGPIPE, SIG_DFL);
        signal(SIGHUP, isNohup ? SIG_IGN : SIG_DFL);
        std::unique_ptr<UnixSignals> signals = std::make_unique<UnixSignals>([&](int number) {
            heard += QString("%1 ").arg(strsignal(number));
            if (number == SIGINT)
                signals.reset();
        });
        for (const int number : {SIGPIPE, SIGTERM, SIGHUP, SIGINT, SIGTERM})
            raise(number);
        EXPECT_EQ(heard, "") << "not before";
        for (int turn = 0; turn < 5; ++turn)
            QCoreApplication::processEvents();
        EXPECT_EQ(heard, isNohup ? "Terminated Interrupt " : "Terminated Hangup Interrupt ");
        EXPECT_EQ(signal(SIGTERM, SIG_DFL), SIG_DFL) << "the process is left as it was";
    }
}
