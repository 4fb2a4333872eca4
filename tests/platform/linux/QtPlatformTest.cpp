#include "platform/linux/QtPlatform.h"

#include "XvfbServer.h"

#include <gtest/gtest.h>

namespace {
class QtPlatformTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!XvfbServer::isInstalled())
            GTEST_SKIP() << "Xvfb is not installed";
        qunsetenv("QT_QPA_PLATFORM");
    }
    void TearDown() override { qputenv("QT_QPA_PLATFORM", m_previous); }

    QByteArray m_previous = qgetenv("QT_QPA_PLATFORM");
};

TEST_F(QtPlatformTest, isX11WhereAServerAnswers)
{
    XvfbServer server;
    ASSERT_TRUE(server.isRunning());
    EXPECT_EQ(chooseQtPlatform(), QString());
    EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "xcb");
}

TEST_F(QtPlatformTest, isWaylandWhereNoX11ServerAnswers)
{
    XvfbServer server;
    server.stop();
    qputenv("WAYLAND_DISPLAY", "/dev/null"); // Something that exists.
    EXPECT_EQ(chooseQtPlatform(), QString());
    EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "wayland");
    qunsetenv("WAYLAND_DISPLAY");
}

TEST_F(QtPlatformTest, isRefusedWithAReasonWhereNothingAnswers)
{
    XvfbServer server;
    server.stop();
    const QString display = qEnvironmentVariable("DISPLAY");
    EXPECT_EQ(chooseQtPlatform(), QStringLiteral("The display %1 does not answer.").arg(display));
    EXPECT_TRUE(qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"));
    qunsetenv("DISPLAY");
    EXPECT_TRUE(chooseQtPlatform().startsWith(QStringLiteral("There is no display")));
}

TEST_F(QtPlatformTest, isTheUsersChoiceFirst)
{
    const XvfbServer server;
    qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"));
    EXPECT_EQ(chooseQtPlatform(), QString());
    EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "offscreen");
}
}
