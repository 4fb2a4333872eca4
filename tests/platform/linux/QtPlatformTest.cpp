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
    chooseQtPlatform();
    EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "xcb");
}

TEST_F(QtPlatformTest, isLeftToQtWhereNoneDoes)
{
    XvfbServer server;
    server.stop();
    chooseQtPlatform();
    EXPECT_TRUE(qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"));
}

TEST_F(QtPlatformTest, isTheUsersChoiceFirst)
{
    const XvfbServer server;
    qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("wayland"));
    chooseQtPlatform();
    EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "wayland");
}
}
