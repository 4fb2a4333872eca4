#include "platform/linux/SingleInstance.h"

#include "TestBus.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <thread>

namespace {
class SingleInstanceTest : public testing::Test {
protected:
    /// Starts a further instance as a process would: from another thread, while this one runs its loop.
    std::optional<bool> startAgain(const QByteArray& token)
    {
        std::optional<bool> answered;
        std::atomic<bool> finished = false;
        std::thread second([&] {
            SingleInstance instance(m_folder.path());
            if (!instance.acquire())
                answered = instance.activateFirst(token);
            finished = true;
        });
        waitFor([&] { return finished.load(); });
        second.join();
        return answered;
    }

    QTemporaryDir m_folder;
};

TEST_F(SingleInstanceTest, aSecondStartShowsTheFirstOnesWindow)
{
    QFile leftover(m_folder.filePath(QStringLiteral("org.zelvo.StandUp.socket"))); // Of one that was killed.
    ASSERT_TRUE(leftover.open(QIODevice::WriteOnly));
    SingleInstance first(m_folder.path());
    ASSERT_TRUE(first.acquire());
    EXPECT_EQ(startAgain("nobody listens to it yet"), true);
    QByteArrayList shown;
    first.onActivated([&](const QByteArray& token) { shown.append(token); });
    EXPECT_EQ(startAgain("token=with/odd signs"), true);
    EXPECT_EQ(startAgain({}), true);
    EXPECT_EQ(shown, (QByteArrayList {"token=with/odd signs", ""}));

    SingleInstance second(m_folder.path());
    ASSERT_FALSE(second.acquire());
    EXPECT_FALSE(second.activateFirst({}, 100)) << "nobody runs the first one's loop";
}

TEST_F(SingleInstanceTest, withoutAUsableFolderTheProgramStartsAnyway)
{
    SingleInstance unlocked(QStringLiteral("/proc/no such folder"));
    EXPECT_TRUE(unlocked.acquire());
    SingleInstance unheard(m_folder.filePath(QString(120, QLatin1Char('x'))));
    EXPECT_TRUE(unheard.acquire()) << "the lock holds, only the socket's path is too long";
    SingleInstance second(m_folder.filePath(QString(120, QLatin1Char('x'))));
    EXPECT_FALSE(second.acquire());
    EXPECT_FALSE(second.activateFirst({}));
}
}
