#include "platform/qt/QtUserDefaults.h"

#include "fakes/TestPlatform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>

namespace {
void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class QtUserDefaultsTest : public testing::Test {
protected:
    QtUserDefaultsTest() { m_texts.byKey = {{"SettingsDamaged", "%1"}, {"SettingsDamagedReason", "%1|%2"}}; }

    TestTexts m_texts; // Nothing but what is filled in.
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("org.zelvo.StandUp/StandUp.conf"));

    void makeFolder() { ASSERT_TRUE(QDir().mkpath(QFileInfo(m_path).absolutePath())); }
    QStringList files() { return QFileInfo(m_path).dir().entryList(QDir::Files, QDir::Name); }
};

TEST_F(QtUserDefaultsTest, valuesSurviveARestart)
{
    const QVariantMap values {{"NumberOfStandUps", 3}, {"Weight", 81.30000000000001}, {"Yes", true},
        {"Text", " \"quoted\"; a=b, c\\d\n%1 @Variant é 猫 "}, {"Empty", QString()},
        {"General", "a key of that name"}};
    {
        QtUserDefaults defaults(m_path);
        for (auto value = values.begin(); value != values.end(); ++value)
            defaults.setObject(value.key(), value.value());
        ASSERT_TRUE(defaults.synchronize());
    }
    const QtUserDefaults defaults(m_path);
    for (auto value = values.begin(); value != values.end(); ++value) {
        QVariant read = defaults.object(value.key());
        EXPECT_TRUE(read.isValid() && read.convert(value->metaType())) << qPrintable(value.key());
        EXPECT_EQ(read, *value) << qPrintable(value.key());
    }
    EXPECT_FALSE(defaults.object("numberofstandups").isValid()) << "keys are case-sensitive";
}

TEST_F(QtUserDefaultsTest, onlyWhatChangedHereReplacesWhatAnEditorWroteMeanwhile)
{
    QtUserDefaults defaults(m_path);
    defaults.setObject("TimeIdle", 300.0);
    defaults.setObject("Weight", 81.0);
    ASSERT_TRUE(defaults.synchronize());
    writeFile(m_path, "[General]\nTimeIdle=42\nWeight=82\n");
    defaults.removeObject("Weight");
    defaults.setObject("TimeSnooze", 90.0);
    ASSERT_TRUE(defaults.synchronize());
    EXPECT_FALSE(defaults.object("Weight").isValid());
    EXPECT_EQ(readFile(m_path), "[General]\nTimeIdle=42\nTimeSnooze=90\n");
}

TEST_F(QtUserDefaultsTest, onlyTheOwnerMayReadTheFileAndNothingElseIsLeft)
{
    makeFolder();
    for (const char* const name :
        {".lock", ".aB3xYz", ".damaged-7"}) // What killed processes leave, and a copy.
        writeFile(m_path + QLatin1String(name), "x");
    QtUserDefaults defaults(m_path);
    defaults.setObject("Weight", 80.0);
    ASSERT_TRUE(defaults.synchronize());
    EXPECT_EQ(QFile::permissions(m_path) & ~(QFile::ReadUser | QFile::WriteUser),
        QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(files().join(u' '), QStringLiteral("StandUp.conf StandUp.conf.damaged-7"));
}

/// Every file holds a memory position of 6512, and what can be read of it stays, also after the next write.
TEST_F(QtUserDefaultsTest, whateverCanBeReadIsKeptAndTheRestIsNamed)
{
    const QByteArray nul(1, '\0');
    const struct TestCase {
        const char* name;
        QByteArray bytes;
        QByteArray unreadable; ///< null: nothing is wrong with the file
    } kTestCases[] = {
        {"by hand, without a section", "; by hand\nDevicePosition1 = 6512\n\n", {}},
        {"no final line end", "[General]\nDevicePosition1=6512", {}},
        {"a comment", "# mine = 1\n#\n[General]\nDevicePosition1=6512\n", {}},
        {"a byte order mark", "\xef\xbb\xbf[General]\r\nDevicePosition1=6512\r\n", {}},
        {"a Latin-1 letter", "[General]\nName=caf\xe9\nDevicePosition1=6512\n", {}},
        {"quotes", "[General]\nName=\"a \\\" \\\\\"\nDevicePosition1=6512\n", {}},
        {"other sections", "[General]\nDevicePosition1=6512\n\n[Other]\nA=1\n", {}},
        {"no assignment", "[General]\nWeig\nDevicePosition1=6512\n", "Weig"},
        {"no key", "[General]\n=4\nDevicePosition1=6512\n", "=4"},
        {"a section cut", "[Gen\nDevicePosition1=6512\n", "[Gen"},
        {"an open quotation mark", "[General]\nName=\"x\nDevicePosition1=6512\n", "Name=\"x"},
        {"a backslash before the end", "[General]\nName=x\\\nDevicePosition1=6512\n", "Name=x\\"},
        {"a NUL byte", "[General]\nName=" + nul + "\nDevicePosition1=6512\nEnd\n", "Name=" + nul + "\nEnd"},
    };
    makeFolder();
    int copies = 0;
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.name);
        writeFile(m_path, test.bytes);
        QtUserDefaults defaults(m_path);
        EXPECT_EQ(defaults.object("DevicePosition1").toInt(), 6512);
        defaults.setObject("Weight", 70.5);
        EXPECT_TRUE(defaults.synchronize());
        const QtUserDefaults next(m_path);
        EXPECT_FALSE(next.damage());
        EXPECT_EQ(next.object("DevicePosition1").toInt(), 6512);
        EXPECT_EQ(next.object("Weight").toDouble(), 70.5);
        if (test.bytes.contains("caf")) {
            EXPECT_EQ(next.object("Name"), "café");
        }
        const QString copy = m_path + QString(".damaged-%1").arg(copies + 1);
        EXPECT_EQ(QFileInfo::exists(copy), !test.unreadable.isNull());
        ASSERT_EQ(defaults.damage().has_value(), !test.unreadable.isNull());
        if (test.unreadable.isNull())
            continue;
        ++copies;
        EXPECT_EQ(readFile(copy), test.bytes);
        EXPECT_EQ(defaults.damage()->localizedDescription, m_path);
        EXPECT_EQ(defaults.damage()->failureReason, QString(test.unreadable) + '|' + copy);
    }
}

TEST_F(QtUserDefaultsTest, whatIsNoSettingsFileAtAllIsKeptAside)
{
    for (const QByteArray& bytes :
        {QByteArray(4096, '\0'), QByteArray("\x7f\x45\x4c\x46\x02\xff\xfe\xfd\n")}) {
        makeFolder();
        writeFile(m_path, bytes);
        QtUserDefaults defaults(m_path);
        defaults.setObject("Weight", 70.0);
        EXPECT_TRUE(defaults.synchronize());
        EXPECT_EQ(readFile(m_path), "[General]\nWeight=70\n");
        EXPECT_EQ(readFile(m_path + ".damaged-1"), bytes);
        QFileInfo(m_path).dir().removeRecursively();
    }
}

TEST_F(QtUserDefaultsTest, aFailedWriteIsSaidOnceAndMadeUpForLater)
{
    // A file where the folder belongs fails for root too.
    const QString inTheWay = QFileInfo(m_path).absolutePath();
    writeFile(inTheWay, "in the way");
    auto defaults = std::make_unique<QtUserDefaults>(m_path);
    testing::internal::CaptureStderr();
    for (const double weight : {70.0, 71.0, 72.0}) {
        defaults->setObject("Weight", weight);
        EXPECT_FALSE(defaults->synchronize());
        EXPECT_EQ(defaults->object("Weight").toDouble(), weight);
    }
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1) << log;

    ASSERT_TRUE(QFile::remove(inTheWay));
    defaults.reset(); // The program ends.
    EXPECT_EQ(QtUserDefaults(m_path).object("Weight").toDouble(), 72.0);
}
}
