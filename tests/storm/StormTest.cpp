// Plays random histories through the whole program and holds it against an oracle of its own.
//
//   ZELVO_STORMS=N          that many histories, from a new seed
//   ZELVO_STORM_SCRIPT='…'  the one history that a failure has printed
//   ZELVO_DAYS=3650         a decade of working days

#include "storm/World.h"
#include "ui/Motion.h"

#include <QApplication>
#include <QDir>

#include <cerrno>
#include <cstdio>
#include <gtest/gtest.h>
#include <malloc.h>
#include <random>
#include <sqlite3.h>
#include <sstream>
#include <unistd.h>

namespace {
using namespace storm;

constexpr int kMostSteps = 240; ///< of a history
constexpr int kWarm = 40; ///< histories until nothing is made for the first time
constexpr size_t kNoise = 100'000; ///< bytes of heap by which two quiet moments differ
constexpr size_t kMostGrowth = 100; ///< bytes of heap a history

ssize_t writeWhereThereIsRoom(int file, const void* bytes, size_t count, off64_t at)
{
    if (!World::s_isDiskFull)
        return pwrite64(file, bytes, count, at);
    errno = ENOSPC;
    return -1;
}

class Storm : public testing::Test {
protected:
    Storm()
    {
        mallopt(M_TRIM_THRESHOLD, 1 << 25); // The next history needs the same memory again.
        mallopt(M_MMAP_THRESHOLD, 1 << 25);
        if (QDir(QStringLiteral("/dev/shm")).exists())
            qputenv("TMPDIR", "/dev/shm"); // Nothing of a history has to outlive the machine,
        sqlite3_vfs* const files = sqlite3_vfs_find("unix-excl"); // and nobody else locks its store.
        sqlite3_vfs_register(files, 1);
        files->xSetSystemCall(
            files, "pwrite64", reinterpret_cast<sqlite3_syscall_ptr>(&writeWhereThereIsRoom));
        QFont font = QApplication::font();
        font.setStyleStrategy(QFont::PreferNoShaping); // Nobody reads what stands in the windows.
        QApplication::setFont(font);
        Motion::setReduced(true);
        stderr = fopencookie(nullptr, "w", {}); // The log of a decade is long.
    }
    ~Storm() override
    {
        std::printf("%d histories of %zu steps; %zu records, %d reminders, %d holds; longest overrun of a "
                    "hold %.3f s, largest error of the record %.1f s\n",
            m_figures.histories, m_figures.steps, m_figures.records, m_figures.reminders, m_figures.holds,
            m_figures.longestOverrun, m_figures.largestError);
    }
    /// What was wrong; empty for nothing.
    std::string play(const Script& script) { return World(script, m_figures).play(script); }

    Figures m_figures;
};
}

TEST_F(Storm, anyHistoryLeavesATrueRecordAndAStillDesk)
{
    if (qEnvironmentVariableIsSet("ZELVO_STORM_SCRIPT")) {
        EXPECT_EQ(play(parseScript(qgetenv("ZELVO_STORM_SCRIPT").toStdString())), "");
        return;
    }
    const QByteArray storms = qgetenv("ZELVO_STORMS");
    if (!qEnvironmentVariableIsSet("RC_PARAMS")) // A build that passed passes again.
        qputenv("RC_PARAMS", "max_success=" + (storms.isEmpty() ? "300 seed=2013" : storms));

    size_t heap = SIZE_MAX / 2, files = SIZE_MAX; // Not known yet.
    const auto openFiles = [] { return size_t(QDir(QStringLiteral("/proc/self/fd")).count()); };
    ASSERT_TRUE(rc::check("any history leaves a true record and a still desk", [&] {
        const std::string failure = play(*anyScript(kMostSteps));
        if (m_figures.histories == kWarm)
            heap = mallinfo2().uordblks, files = openFiles();
        if (!failure.empty())
            RC_FAIL(failure);
    }));
    EXPECT_LE(openFiles(), files);
    EXPECT_LT(mallinfo2().uordblks, heap + kNoise + kMostGrowth * size_t(m_figures.histories));
}

/// Working days with lunch, meetings, reminders heeded and ignored, nights and weekends asleep; nothing
/// fails.
TEST_F(Storm, decadesOfWorkKeepTheRecord)
{
    std::mt19937_64 random(1873);
    const auto pick = [&](int least, int most) { return least + int(random() % uint64_t(most - least + 1)); };
    std::ostringstream script;
    script
        << "1704697200 Weight 71.5 ActivityMode 2 ActivityGoal 17 NumberOfStandUps 3 DevicePosition1 1130 "
           "DevicePosition2 4210 DevicePosition3 2870 TablePositionOffset 6300 TimeIdle 290 TimeSnooze 777 "
           "TimeNotificationDismiss 613 TimeNotificationDismissOnAction 4 AverageWorkDayHours 7";
    const int days = qEnvironmentVariable("ZELVO_DAYS", QStringLiteral("30")).toInt();
    for (int day = 0; day < days; ++day) {
        for (int hour = 0; hour < 9; ++hour) {
            script << "; handset - " << (pick(0, 1) ? 1130 : 4210) << ' ' << pick(300, 1500)
                   << "; window main 0 1; press memory" << pick(1, 2) << " 0 " << pick(5, 14)
                   << "; let-go button 0 1; window none 0 " << pick(0, 900) << "; user away 0 "
                   << (hour == 4 ? 2700 : pick(20, 900)) << "; user back 0 " << pick(60, 1200) << "; answer "
                   << (pick(0, 1) ? "snooze" : "skip") << " 0 " << pick(0, 1600);
        }
        script << "; user away 0 1; sleep announced-told " << (day % 5 == 4 ? 62 : 14) * 3600
               << " 30; user back 0 60";
    }
    EXPECT_EQ(play(parseScript(script.str())), "");
}
