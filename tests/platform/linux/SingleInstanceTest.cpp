#include "platform/linux/SingleInstance.h"

#include "fakes/Files.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <future>

namespace {
/// Starts a further instance as a process would: beside this one, which runs its loop meanwhile.
bool isAnsweredAgain(const QString& folder, const SingleInstance::Request& request)
{
    auto answered = std::async(std::launch::async, [&] {
        SingleInstance instance(folder);
        return !instance.acquire() && instance.activateFirst(request);
    });
    while (answered.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
        QCoreApplication::processEvents();
    return answered.get();
}
}

TEST(SingleInstanceTest, aSecondStartShowsTheFirstOnesWindow)
{
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    EXPECT_EQ(logOf([&] { ASSERT_TRUE(first.acquire()); }), "");
    EXPECT_TRUE(isAnsweredAgain(folder.path(), {"nobody listens to it yet", {}}));
    QByteArray shown;
    first.onActivated([&](const auto& request) { shown += request.action + '|' + request.activationToken; });
    const QByteArray longest(4096, '=');
    EXPECT_TRUE(isAnsweredAgain(folder.path(), {longest, "history"}));
    EXPECT_TRUE(isAnsweredAgain(folder.path(), {}));
    EXPECT_EQ(shown, "history|" + longest + '|');
    const QString socket = folder.filePath("org.zelvo.StandUp.socket");
    ASSERT_TRUE(QFile::rename(socket, socket + '~')); // As while it does not listen yet.
    QTimer::singleShot(50, [&] { QFile::rename(socket + '~', socket); });
    EXPECT_TRUE(isAnsweredAgain(folder.path(), {}));
}

TEST(SingleInstanceTest, withoutAUsableFolderTheProgramStartsAnyway)
{
    const QTemporaryDir folder;
    const QString tooLong = folder.filePath(QString(120, u'x'));
    SingleInstance unlocked("/proc/no such folder");
    EXPECT_TRUE(unlocked.acquire());
    SingleInstance unheard(tooLong);
    const auto acquire = [&] { EXPECT_TRUE(unheard.acquire()) << "the lock holds"; };
    EXPECT_TRUE(logOf(acquire).contains("File name too long")) << "of the socket";
    SingleInstance second(tooLong);
    EXPECT_TRUE(!second.acquire() && !second.activateFirst({}));
}
