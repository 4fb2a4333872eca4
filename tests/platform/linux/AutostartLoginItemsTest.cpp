#include "platform/linux/AutostartLoginItems.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
const QString kProgram = QStringLiteral("/usr/bin/zelvo-standup");

class AutostartLoginItemsTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    QDir m_autostart {m_folder.filePath(QStringLiteral("autostart"))};
    QFile m_file {m_autostart.filePath(QStringLiteral("org.zelvo.StandUp.desktop"))};
    AutostartLoginItems m_items {m_folder.path()};

    void write(const QByteArray& bytes)
    {
        m_autostart.mkpath(QStringLiteral("."));
        ASSERT_TRUE(m_file.open(QIODevice::WriteOnly));
        m_file.write(bytes);
        // Long ago, to see whether it is written again.
        m_file.flush();
        m_file.setFileTime(QDateTime::fromSecsSinceEpoch(1'000'000'000), QFileDevice::FileModificationTime);
        m_file.close();
    }
    QByteArray read()
    {
        const QByteArray bytes = m_file.open(QIODevice::ReadOnly) ? m_file.readAll() : QByteArray();
        m_file.close();
        return bytes;
    }
    bool isAsWritten() { return QFileInfo(m_file).lastModified().toSecsSinceEpoch() == 1'000'000'000; }
};

TEST_F(AutostartLoginItemsTest, startThisExecutableUnlessTheUserWantsItOtherwise)
{
    ASSERT_TRUE(m_items.insertItem(kProgram));
    const QByteArray fresh = read();
    EXPECT_EQ(fresh, AutostartLoginItems::entry(kProgram));
    EXPECT_TRUE(fresh.startsWith("[Desktop Entry]\nType=Application\n"));

    const QByteArray own = QByteArray(fresh).replace("standup\"\n", "standup\" --language de\n");
    const struct {
        QByteArray entry;
        bool isSwitchedOff;
        bool isKept;
    } kTestCases[] = {
        {fresh, false, true},
        {own, false, true}, // A command of the user's own.
        {"[Desktop Entry]\nExec=env A=1 zelvo-standup\n", false, true},
        {"[Desktop Entry]\nType=Application\nHidden=true\n", true, true},
        {"[Desktop Entry]\r\nHidden = True\r\n", true, true},
        {"[Desktop Entry]\nX-GNOME-Autostart-enabled=false\nExec=x\n", true, true},
        {"# by hand\n\n[Desktop Entry]\nName=a\nHidden=true", true, true},
        {AutostartLoginItems::entry(QStringLiteral("/old/zelvo-standup")), false, false},
        {"[Desktop Entry]\nHidden=false\nX-GNOME-Autostart-enabled=true\n", false, false},
        {"[Desktop Entry]\nName=x\n[Desktop Action New]\nHidden=true\n", false, false},
        {"#Hidden=true\n[Desktop Entry]\n#Hidden=true\n", false, false},
        {"Hidden=true\n", false, false},
        {"", false, false},
    };
    for (const auto& [entry, isSwitchedOff, isKept] : kTestCases) {
        SCOPED_TRACE(entry.constData());
        write(entry);
        EXPECT_EQ(m_items.isSwitchedOff(), isSwitchedOff);
        EXPECT_TRUE(m_items.insertItem(kProgram));
        EXPECT_EQ(read(), isKept ? entry : fresh);
        EXPECT_EQ(isAsWritten(), isKept);
    }

    m_autostart.removeRecursively();
    QFile inTheWay(m_autostart.path());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    testing::internal::CaptureStderr();
    EXPECT_FALSE(m_items.insertItem(kProgram));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("cannot be started at login"), std::string::npos);
}

TEST(AutostartEntry, quotesOddPaths)
{
    const char* const kTestCases[][3] = {
        {"/usr/bin/zelvo-standup", R"("/usr/bin/zelvo-standup")", "/usr/bin/zelvo-standup"},
        {"/opt/my programs/a", R"("/opt/my programs/a")", "/opt/my programs/a"},
        {"/opt/$HOME/`a`", R"("/opt/\\$HOME/\\`a\\`")", "/opt/$HOME/`a`"},
        {"/opt/\"q\"", R"("/opt/\\"q\\"")", "/opt/\"q\""},
        {"/opt/a\\b", R"("/opt/a\\\\b")", R"(/opt/a\\b)"},
        {"/opt/a\nb", R"("/opt/a\nb")", R"(/opt/a\nb)"},
        {"/opt/%1%2/é", R"("/opt/%%1%%2/é")", "/opt/%1%2/é"},
    };
    for (const auto& [path, exec, tryExec] : kTestCases) {
        const QByteArray entry = AutostartLoginItems::entry(QString::fromUtf8(path));
        EXPECT_TRUE(entry.contains(QByteArray("\nExec=") + exec + "\n")) << entry.constData();
        EXPECT_TRUE(entry.contains(QByteArray("\nTryExec=") + tryExec + "\n")) << entry.constData();
    }
}

TEST(AutostartGroup, isToldByTheUnit)
{
    EXPECT_TRUE(AutostartLoginItems::isAutostartGroup("0::/user.slice/user-1000.slice/user@1000.service/"
                                                      "app.slice/app-org.zelvo.StandUp@autostart.service\n"));
    EXPECT_FALSE(AutostartLoginItems::isAutostartGroup("0::/user.slice/user-1000.slice/session-2.scope\n"));
}
}
