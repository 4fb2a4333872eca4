#include "platform/qt/QtUserDefaults.h"

#include "fakes/Files.h"
#include "fakes/TestPlatform.h"

namespace {
struct QtUserDefaultsTest : testing::Test {
    QtUserDefaultsTest() { m_texts.byKey = {{"SettingsDamaged", "%1"}, {"SettingsDamagedReason", "%1|%2"}}; }

    TestTexts m_texts; // Nothing but what is filled in.
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath("org.zelvo.StandUp/StandUp.conf");
};

TEST_F(QtUserDefaultsTest, onlyWhatChangedHereReplacesWhatAnEditorWroteMeanwhile)
{
    for (const char* const name : {".lock", ".aB3xYz", ".damaged-7"})
        write(m_path + name, "x"); // What killed processes leave, and a copy.
    QtUserDefaults defaults(m_path);
    const auto descriptors = QDir("/proc/self/fd").count();
    for (const char* const key : {"TimeIdle", "Weight", "Height"})
        defaults.setObject(key, 81.0);
    ASSERT_TRUE(defaults.synchronize());
    EXPECT_EQ(
        QFileInfo(m_path).dir().entryList(QDir::Files).join(u' '), "StandUp.conf StandUp.conf.damaged-7");
    EXPECT_EQ(QFile::permissions(m_path) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());

    write(m_path, "[General]\nTimeIdle=42\nWeight=82\nHeight=8\n");
    ASSERT_TRUE(defaults.synchronize()) << "nothing is to be written";
    defaults.removeObject("Weight");
    defaults.setObject("Height", QVariant());
    defaults.setObject("TimeSnooze", 90.0);
    ASSERT_TRUE(defaults.synchronize());
    EXPECT_FALSE(defaults.object("Weight").isValid());
    EXPECT_EQ(contents(m_path), "[General]\nTimeIdle=42\nTimeSnooze=90\n");
    ASSERT_TRUE(QFile::remove(m_path));
    defaults.setObject("Weight", 83.0);
    ASSERT_TRUE(defaults.synchronize());
    EXPECT_EQ(contents(m_path), "[General]\nTimeIdle=81\nTimeSnooze=90\nWeight=83\n");
    EXPECT_EQ(QDir("/proc/self/fd").count(), descriptors) << "one more per write runs out some day";
    write(m_path + ".backup", "x");
    const QString odd = " \"quoted\"; a=b, c\\d\n%1 @Variant é 猫 ";
    QtUserDefaults(m_path).setObject("Text", odd); // And the program ends.
    EXPECT_EQ(QtUserDefaults(m_path).object("Text"), odd);
    EXPECT_TRUE(QFile::exists(m_path + ".backup")) << "the user's own";
}

/// What can be read of a file stays, also after the next write; where some cannot, the whole is kept aside.
TEST_F(QtUserDefaultsTest, whateverCanBeReadIsKeptAndTheRestIsNamed)
{
    const QByteArray nul(1, '\0');
    const QByteArray kWritten = "[General]\nDevicePosition1=6512\nWeight=70.5\n";
    const QByteArray kTestCases[][3] = {
        // The file, what of it is unreadable (null: nothing), and the file after the next write.
        {"; by hand\nDevicePosition1 = 6512\n\n", {}, kWritten},
        {"[General]\nDevicePosition1=6512", {}, kWritten}, // No final line end.
        {"# mine = 1\n#\n[General]\nDevicePosition1=6512\n", {}, kWritten},
        {"\xef\xbb\xbf[General]\r\nDevicePosition1=6512\r\n", {}, kWritten}, // A byte order mark.
        {"[General]\nName=caf\xe9\n", {}, "[General]\nName=caf\xc3\xa9\nWeight=70.5\n"}, // A Latin-1 letter.
        {"[General]\nName=\"a \\\" \\\\\"\n", {}, "[General]\nName=a \\\" \\\\\nWeight=70.5\n"},
        {"[General]\nName=\ta\n\n[Other]\nA=1\n", {}, "[General]\nName=a\nWeight=70.5\n\n[Other]\nA=1\n"},
        {"[General]\nWeig\nDevicePosition1=6512\n", "Weig", kWritten},
        {"[General]\n=4\nDevicePosition1=6512\n", "=4", kWritten},
        {"[Gen\nDevicePosition1=6512\n", "[Gen", kWritten},
        {"[General]\nName=\"x\nDevicePosition1=6512\n", "Name=\"x", kWritten},
        {"[General]\nName=x\\\nDevicePosition1=6512\n", "Name=x\\", kWritten},
        {"[General]\nName=" + nul + "\nDevicePosition1=6512\nEnd\n", "Name=" + nul + "\nEnd", kWritten},
        {"\x7f\x45\x4c\x46\x02\n", "\x7f\x45\x4c\x46\x02", "[General]\nWeight=70.5\n"}, // Something else.
        {QByteArray(250, '*'), QByteArray(200, '*'), "[General]\nWeight=70.5\n"}, // As much as can be shown.
    };
    int copies = 0;
    for (const auto& [bytes, unreadable, written] : kTestCases) {
        SCOPED_TRACE(bytes.constData());
        write(m_path, bytes);
        QtUserDefaults defaults(m_path);
        EXPECT_EQ(defaults.object("DevicePosition1").isValid(), written == kWritten);
        defaults.setObject("Weight", 70.5);
        EXPECT_TRUE(defaults.synchronize());
        EXPECT_EQ(contents(m_path), written);
        EXPECT_FALSE(QtUserDefaults(m_path).damage());
        ASSERT_EQ(defaults.damage().has_value(), !unreadable.isNull());
        if (unreadable.isNull())
            continue;
        const QString suffix = QString(".damaged-%1").arg(++copies);
        EXPECT_EQ(contents(m_path + suffix), bytes);
        EXPECT_EQ(defaults.damage()->localizedDescription, m_path);
        EXPECT_EQ(defaults.damage()->failureReason, QString(unreadable) + '|' + m_path + suffix);
    }
}

TEST_F(QtUserDefaultsTest, aFailedWriteIsSaidOnceAndMadeUpForLater)
{
    const QString inTheWay = QFileInfo(m_path).path();
    write(inTheWay, "x"); // A file where the folder belongs fails for root too.
    QtUserDefaults defaults(m_path);
    const QString log = logOf([&] {
        for (const double weight : {70.0, 71.0, 72.0}) {
            defaults.setObject("Weight", weight);
            EXPECT_FALSE(defaults.synchronize());
            EXPECT_EQ(defaults.object("Weight").toDouble(), weight);
        }
        defaults.setObject("TimeIdle", 42.0);
        ASSERT_TRUE(QFile::remove(inTheWay));
        write(m_path, "[General]\nWeight=66\n"); // The folder was not mounted yet.
        EXPECT_TRUE(defaults.synchronize());
    });
    EXPECT_EQ(contents(m_path), "[General]\nTimeIdle=42\nWeight=66\n");
    EXPECT_TRUE(log.count("cannot be written to") == 1 && log.count("again.") == 1) << qPrintable(log);
    write(m_path, "[Gen\n");
    defaults.setObject("Weight", 73.0);
    EXPECT_EQ(logOf([&] { EXPECT_TRUE(defaults.synchronize()); }).count(m_path + ".damaged-1"), 1);

    m_path = m_folder.filePath("org.zelvo.StandUp/" + QString(247, 'x')); // A copy's name is too long.
    write(m_path, "[Gen\n");
    QtUserDefaults unkept(m_path);
    unkept.setObject("Weight", 70.5);
    EXPECT_EQ(logOf([&] { EXPECT_FALSE(unkept.synchronize()); }).count("cannot be written to"), 1);
    EXPECT_EQ(contents(m_path), "[Gen\n");
    write(m_path, "[General]\nHeight=8\nWeight=66\n"); // By hand.
    unkept.setObject("Height", 9.0);
    ASSERT_TRUE(unkept.synchronize());
    EXPECT_EQ(contents(m_path), "[General]\nHeight=9\nWeight=66\n") << "only the later value replaces";
    write(m_path, "[General]\nHeight=9\nWeight=60\n[Gen\n");
    QtUserDefaults halfRead(m_path);
    halfRead.setObject("Weight", 66.0);
    write(m_path, "[General]\nHeight=9\nWeight=60\n");
    EXPECT_TRUE(halfRead.synchronize() && contents(m_path).contains("Weight=66")) << "over one that was read";
    QFile::setPermissions(m_path, {}); // Root reads it all the same.
    {
        QtUserDefaults unread(m_path);
        if (!unread.object("Weight").isValid())
            unread.setObject("Weight", 80.0);
        unread.synchronize();
        QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner);
    }
    EXPECT_EQ(contents(m_path), "[General]\nHeight=9\nWeight=66\n") << "nobody had read it";
    m_path = m_folder.filePath("StandUp.conf");
    const auto set = [&] { QtUserDefaults(m_path).setObject("Weight", 80.0); };
    ASSERT_TRUE(QFile::link("/proc/self/mem", m_path)); // Opens, and cannot be read.
    EXPECT_EQ(logOf(set).count("cannot be"), 2);
    ASSERT_TRUE(QFile::remove(m_path) && QFile::link("/proc/sys/kernel/ostype", m_path)); // No setting.
    EXPECT_EQ(logOf(set).count("cannot be"), 1);
    EXPECT_FALSE(QFile::exists(m_path + ".damaged-1")) << "what it was it still is";
}
}
