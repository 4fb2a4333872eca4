#include "platform/linux/SingleInstance.h"

#include <QTemporaryDir>
#include <QtCore/qtestsupport_core.h>

#include <future>
#include <gtest/gtest.h>

namespace {
/// Starts a further instance as a process would: beside this one, which runs its loop meanwhile.
bool isAnsweredAgain(const QString& folder, const SingleInstance::Request& request)
{
    auto answered = std::async(std::launch::async, [&] {
        SingleInstance instance(folder);
        return !instance.acquire() && instance.activateFirst(request);
    });
    return QTest::qWaitFor([&] {
        return answered.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }) && answered.get();
}
}

TEST(SingleInstanceTest, aSecondStartShowsTheFirstOnesWindow)
{
    const QTemporaryDir folder;
    SingleInstance first(folder.path());
    testing::internal::CaptureStderr();
    ASSERT_TRUE(first.acquire());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(isAnsweredAgain(folder.path(), {"nobody listens to it yet", {}}));
    QByteArrayList shown;
    first.onActivated(
        [&](const SingleInstance::Request& request) { shown << request.action << request.activationToken; });
    const QByteArray longest(4096, '=');
    EXPECT_TRUE(isAnsweredAgain(folder.path(), {longest, "history"}));
    EXPECT_TRUE(isAnsweredAgain(folder.path(), {}));
    EXPECT_EQ(shown, (QByteArrayList {"history", longest, "", ""}));
}

TEST(SingleInstanceTest, withoutAUsableFolderTheProgramStartsAnyway)
{
    const QTemporaryDir folder;
    const QString tooLong = folder.filePath(QString(120, u'x'));
    SingleInstance unlocked("/proc/no such folder");
    EXPECT_TRUE(unlocked.acquire());
    SingleInstance unheard(tooLong);
    testing::internal::CaptureStderr();
    EXPECT_TRUE(unheard.acquire()) << "the lock holds, only the socket's path is too long";
    EXPECT_NE(testing::internal::GetCapturedStderr().find("File name too long"), std::string::npos);
    SingleInstance second(tooLong);
    EXPECT_FALSE(second.acquire());
    EXPECT_FALSE(second.activateFirst({}));
}
