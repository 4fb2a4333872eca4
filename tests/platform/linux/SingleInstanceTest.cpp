#include "platform/linux/SingleInstance.h"

#include "TestBus.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>

namespace {
class SingleInstanceTest : public testing::Test {
protected:
    /// Starts a further instance as a process would: from another thread, while this one runs its loop.
    std::optional<bool> startAgain(const ActivationToken& token)
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
    std::vector<ActivationToken> shown;
    first.onActivated([&](const ActivationToken& token) { shown.push_back(token); });

    EXPECT_EQ(startAgain({"token=with/odd signs", "startup-1_TIME42"}), true);
    EXPECT_EQ(startAgain({}), true);
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].xdgActivationToken, "token=with/odd signs");
    EXPECT_EQ(shown[0].desktopStartupId, "startup-1_TIME42");
    EXPECT_TRUE(shown[1].xdgActivationToken.isEmpty() && shown[1].desktopStartupId.isEmpty());

    SingleInstance second(m_folder.path());
    ASSERT_FALSE(second.acquire());
    EXPECT_FALSE(second.activateFirst({}, 100)) << "nobody runs the first one's loop";
}

TEST_F(SingleInstanceTest, callersThatSayNothingOrTooMuchDoNoHarm)
{
    SingleInstance first(m_folder.path());
    ASSERT_TRUE(first.acquire());
    int shown = 0;
    first.onActivated([&](const ActivationToken&) { ++shown; });

    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    const QByteArray path =
        QDir(m_folder.path()).filePath(QStringLiteral("org.zelvo.StandUp.socket")).toUtf8();
    std::copy(path.begin(), path.end(), address.sun_path);
    std::vector<int> silent;
    for (int i = 0; i < 20; ++i) {
        silent.push_back(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        (void)connect(silent.back(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
        QCoreApplication::processEvents();
    }
    const QByteArray flood(100'000, 'x');
    (void)send(silent.back(), flood.constData(), size_t(flood.size()), MSG_NOSIGNAL);
    QCoreApplication::processEvents();

    EXPECT_EQ(shown, 0);
    EXPECT_EQ(startAgain({}), true);
    EXPECT_EQ(shown, 1);
    for (const int descriptor : silent)
        close(descriptor);
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
