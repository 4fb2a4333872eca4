// Plays random histories through the whole program and holds it against an oracle of its own.
//
//   ZELVO_STORMS=N          that many histories, from a new seed
//   ZELVO_STORM_SCRIPT='…'  the one history that a failure has printed

#include "storm/World.h"

#include <QDir>

#include <gtest/gtest.h>
#include <malloc.h>
#include <sqlite3.h>

namespace {
using namespace storm;

constexpr int kMostSteps = 240; ///< of a history
constexpr int kWarm = 40; ///< histories until nothing is made for the first time
constexpr size_t kNoise = 100'000; ///< bytes of heap by which two quiet moments differ
constexpr size_t kMostGrowth = 100; ///< bytes of heap a history

/// What was wrong; empty for nothing.
std::string playHistory(const Script& script)
{
    World world(script);
    world.play();
    return world.oracle().failure();
}
}

TEST(Storm, anyHistoryLeavesATrueRecordAndAStillDesk)
{
    if (QDir(QStringLiteral("/dev/shm")).exists())
        qputenv("TMPDIR", "/dev/shm"); // Nothing of a history has to outlive the machine,
    sqlite3_vfs_register(sqlite3_vfs_find("unix-excl"), 1); // and nobody else locks its store.
    if (qEnvironmentVariableIsSet("ZELVO_STORM_SCRIPT")) {
        EXPECT_EQ(playHistory(parseScript(qgetenv("ZELVO_STORM_SCRIPT").toStdString())), "");
        return;
    }
    const QByteArray count = qgetenv("ZELVO_STORMS");
    if (!qEnvironmentVariableIsSet("RC_PARAMS")) // Without a number a build that passed passes again.
        qputenv("RC_PARAMS", "max_success=" + (count.isEmpty() ? "300 seed=2013" : count));

    size_t heap = 0;
    size_t histories = 0;
    ASSERT_TRUE(rc::check("any history leaves a true record and a still desk", [&] {
        const std::string failure = playHistory(*anyScript(kMostSteps));
        if (++histories == kWarm)
            heap = mallinfo2().uordblks;
        if (!failure.empty())
            RC_FAIL(failure);
    }));
    if (histories > kWarm) {
        EXPECT_LT(mallinfo2().uordblks, heap + kNoise + kMostGrowth * histories);
    }
}
