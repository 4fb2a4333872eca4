#include "platform/linux/AutostartLoginItems.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
class AutostartLoginItemsTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("autostart/org.zelvo.StandUp.desktop"));
    AutostartLoginItems m_items {m_folder.path()};
    const QString m_program = QStringLiteral("/usr/bin/zelvo-standup");

    void write(const QByteArray& bytes)
    {
        QDir().mkpath(QFileInfo(m_path).absolutePath());
        QFile file(m_path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray read()
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

TEST_F(AutostartLoginItemsTest, theSessionIsAskedToStartThisExecutable)
{
    ASSERT_TRUE(m_items.insertItem(m_program));
    const QByteArray entry = read();
    EXPECT_TRUE(entry.startsWith("[Desktop Entry]\nType=Application\n"));
    EXPECT_TRUE(entry.contains("\nExec=\"/usr/bin/zelvo-standup\"\n"));
    EXPECT_TRUE(entry.contains("\nTryExec=/usr/bin/zelvo-standup\n"));
}

TEST_F(AutostartLoginItemsTest, anEntryThatIsRightIsNotWrittenAgain)
{
    ASSERT_TRUE(m_items.insertItem(m_program));
    const QDateTime longAgo = QDateTime::fromSecsSinceEpoch(1'000'000'000);
    QFile file(m_path);
    ASSERT_TRUE(
        file.open(QIODevice::ReadWrite) && file.setFileTime(longAgo, QFileDevice::FileModificationTime));
    file.close();
    ASSERT_TRUE(m_items.insertItem(m_program));
    EXPECT_EQ(QFileInfo(m_path).lastModified(), longAgo);
}

TEST_F(AutostartLoginItemsTest, aMovedExecutableIsFollowed)
{
    ASSERT_TRUE(m_items.insertItem(QStringLiteral("/old/zelvo-standup")));
    ASSERT_TRUE(m_items.insertItem(m_program));
    EXPECT_EQ(read(), AutostartLoginItems::entry(m_program));
}

TEST_F(AutostartLoginItemsTest, aCommandOfTheUsersOwnIsKept)
{
    const QByteArray own =
        AutostartLoginItems::entry(m_program).replace("standup\"\n", "standup\" --language de\n");
    write(own);
    ASSERT_TRUE(m_items.insertItem(m_program));
    EXPECT_EQ(read(), own);
    write("[Desktop Entry]\nExec=env A=1 zelvo-standup\n");
    ASSERT_TRUE(m_items.insertItem(m_program));
    EXPECT_EQ(read(), "[Desktop Entry]\nExec=env A=1 zelvo-standup\n");
    write("[Desktop Entry]\nName=x\n"); // No command at all starts nothing.
    ASSERT_TRUE(m_items.insertItem(m_program));
    EXPECT_EQ(read(), AutostartLoginItems::entry(m_program));
}

TEST_F(AutostartLoginItemsTest, onlyWhatTheUserSwitchedOffIsLeftAlone)
{
    const struct TestCase {
        const char* entry;
        bool isSwitchedOff;
    } kTestCases[] = {
        {"[Desktop Entry]\nType=Application\nHidden=true\n", true},
        {"[Desktop Entry]\r\nHidden = True\r\n", true},
        {"[Desktop Entry]\nX-GNOME-Autostart-enabled=false\nExec=x\n", true},
        {"# by hand\n\n[Desktop Entry]\nName=a\nHidden=true", true},
        {"[Desktop Entry]\nHidden=false\nX-GNOME-Autostart-enabled=true\n", false},
        {"[Desktop Entry]\nName=x\n[Desktop Action New]\nHidden=true\n", false},
        {"#Hidden=true\n[Desktop Entry]\n#Hidden=true\n", false},
        {"", false},
        {"Hidden=true\n", false},
    };
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.entry);
        write(test.entry);
        EXPECT_EQ(m_items.isSwitchedOff(), test.isSwitchedOff);
        EXPECT_TRUE(m_items.insertItem(m_program));
        EXPECT_EQ(
            read(), test.isSwitchedOff ? QByteArray(test.entry) : AutostartLoginItems::entry(m_program));
    }
}

TEST_F(AutostartLoginItemsTest, oddPathsAreQuoted)
{
    const struct TestCase {
        QString path;
        const char* exec;
        const char* tryExec;
    } kTestCases[] = {
        {QStringLiteral("/opt/my programs/a"), R"("/opt/my programs/a")", "/opt/my programs/a"},
        {QStringLiteral("/opt/100%/a"), R"("/opt/100%%/a")", "/opt/100%/a"},
        {QStringLiteral("/opt/$HOME/`a`"), R"("/opt/\\$HOME/\\`a\\`")", "/opt/$HOME/`a`"},
        {QStringLiteral("/opt/\"q\""), R"("/opt/\\"q\\"")", "/opt/\"q\""},
        {QStringLiteral("/opt/a\\b"), R"("/opt/a\\\\b")", R"(/opt/a\\b)"},
        {QStringLiteral("/opt/a\nb"), R"("/opt/a\nb")", R"(/opt/a\nb)"},
        {QStringLiteral("/opt/%1%2/é"), R"("/opt/%%1%%2/é")", "/opt/%1%2/é"},
    };
    for (const auto& test : kTestCases) {
        const QByteArray entry = AutostartLoginItems::entry(test.path);
        SCOPED_TRACE(entry.constData());
        EXPECT_TRUE(entry.contains(QByteArray("\nExec=") + test.exec + "\n"));
        EXPECT_TRUE(entry.contains(QByteArray("\nTryExec=") + test.tryExec + "\n"));
    }
}

TEST_F(AutostartLoginItemsTest, aFolderThatCannotBeMadeIsSaidAndAnsweredFalse)
{
    QFile inTheWay(m_folder.filePath(QStringLiteral("autostart")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    testing::internal::CaptureStderr();
    EXPECT_FALSE(m_items.insertItem(m_program));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("cannot be started at login"), std::string::npos);
}

TEST(AutostartGroup, isToldByTheUnit)
{
    EXPECT_TRUE(AutostartLoginItems::isAutostartGroup("0::/user.slice/user-1000.slice/user@1000.service/"
                                                      "app.slice/app-org.zelvo.StandUp@autostart.service\n"));
    EXPECT_FALSE(AutostartLoginItems::isAutostartGroup("0::/user.slice/user-1000.slice/session-2.scope\n"));
}
}
