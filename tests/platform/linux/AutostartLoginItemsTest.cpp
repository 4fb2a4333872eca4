#include "platform/linux/AutostartLoginItems.h"

#include "fakes/Files.h"

#include <QTemporaryDir>

TEST(AutostartLoginItemsTest, startThisExecutableUnlessTheUserWantsItOtherwise)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("autostart/org.zelvo.StandUp.desktop");
    AutostartLoginItems items(folder.path());
    ASSERT_TRUE(items.insertItem("/usr/bin/zelvo-standup"));
    const QByteArray fresh = AutostartLoginItems::entry("/usr/bin/zelvo-standup");

    const QByteArray own = QByteArray(fresh).replace("standup\"\n", "standup\" --language de\n");
    const std::tuple<QByteArray, bool, bool> kTestCases[] = {
        // The entry, whether it is switched off, and whether it is kept.
        {fresh, false, true},
        {own, false, true}, // A command of the user's own.
        {"[Desktop Entry]\nExec=env A=1 zelvo-standup\n", false, true},
        {"[Desktop Entry]\nType=Application\nHidden=true\n", true, true},
        {"[Desktop Entry]\r\nHidden = True\r\n", true, true},
        {"[Desktop Entry]\nX-GNOME-Autostart-enabled=False\nExec=\n", true, true},
        {"# by hand\n\n[Desktop Entry]\nName=a\nHidden=true", true, true},
        {AutostartLoginItems::entry("/old/zelvo-standup"), false, false},
        {"[Desktop Entry]\nHidden=false\nX-GNOME-Autostart-enabled=true\n", false, false},
        {"[Desktop Entry]\nName=x\n[Desktop Action New]\nHidden=true\n", false, false},
        {"#Hidden=true\n[Desktop Entry]\n#Hidden=true\n=true\n", false, false},
        {"Hidden=true\n", false, false},
    };
    for (const auto& [entry, isSwitchedOff, isKept] : kTestCases) {
        SCOPED_TRACE(entry.constData());
        write(path, entry);
        EXPECT_EQ(items.isSwitchedOff(), isSwitchedOff);
        EXPECT_EQ(
            items.isStartUnwanted("0::/app.slice/app-org.zelvo.StandUp@autostart.service\n"), isSwitchedOff);
        EXPECT_FALSE(items.isStartUnwanted("0::/app.slice/app-org.kde.yakuake@autostart.service\n"));
        EXPECT_TRUE(items.insertItem("/usr/bin/zelvo-standup"));
        EXPECT_EQ(contents(path), isKept ? entry : fresh);
    }

    const auto insert = [] { EXPECT_FALSE(AutostartLoginItems("/dev/null").insertItem("/bin/a")); };
    EXPECT_TRUE(logOf(insert).contains("cannot be started at login"));
}

TEST(AutostartEntry, quotesOddPaths)
{
    const char* const kTestCases[][3] = {
        {"/opt/my programs/a", R"("/opt/my programs/a")", "/opt/my programs/a"},
        {"/opt/$HOME/`a`", R"("/opt/\\$HOME/\\`a\\`")", "/opt/$HOME/`a`"},
        {"/opt/\"q\"", R"("/opt/\\"q\\"")", "/opt/\"q\""},
        {"/opt/a\\b", R"("/opt/a\\\\b")", R"(/opt/a\\b)"},
        {"/opt/a\nb\tc\r", R"("/opt/a\nb\tc\r")", R"(/opt/a\nb\tc\r)"},
        {"/opt/%1%2/é", R"("/opt/%%1%%2/é")", "/opt/%1%2/é"},
    };
    for (const auto& [path, exec, tryExec] : kTestCases) {
        const QByteArray head =
            "[Desktop Entry]\nType=Application\nName=Zelvo StandUp\nIcon=org.zelvo.StandUp\n";
        const QByteArray tail = "\nTerminal=false\nX-GNOME-Autostart-Delay=2\nX-KDE-autostart-after=panel\n"
                                "X-LXQt-Need-Tray=true\n";
        EXPECT_EQ(AutostartLoginItems::entry(path), head + "Exec=" + exec + "\nTryExec=" + tryExec + tail);
    }
}
