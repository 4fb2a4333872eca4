#include "platform/qt/QtUserDefaults.h"

#include "platform/Bundle.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
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

/// Texts that consist of nothing but what is filled in.
class BareTexts final : public Bundle {
public:
    BareTexts()
        : Bundle(QJsonObject())
    {
        setMain(this);
    }
    ~BareTexts() override { setMain(nullptr); }
    [[nodiscard]] QString localizedString(const QString& key) const override
    {
        return key.endsWith(QStringLiteral("Reason")) ? QStringLiteral("%1|%2") : QStringLiteral("%1");
    }
};

class QtUserDefaultsTest : public testing::Test {
protected:
    BareTexts m_texts;
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("org.zelvo.StandUp/StandUp.conf"));

    void makeFolder() { ASSERT_TRUE(QDir().mkpath(QFileInfo(m_path).absolutePath())); }
    QStringList files() { return QFileInfo(m_path).dir().entryList(QDir::Files, QDir::Name); }
};

TEST_F(QtUserDefaultsTest, valuesSurviveARestart)
{
    const QVariantMap map {{QStringLiteral("a"), 1}, {QStringLiteral("b"), QStringLiteral("two")}};
    const struct TestCase {
        const char* key;
        QVariant value;
    } kTestCases[] = {
        {"NumberOfStandUps", 3},
        {"Weight", 81.30000000000001},
        {"Yes", true},
        {"Text", QStringLiteral(" \"quoted\"; a=b, c\\d\n%1 @Variant é 猫 ")},
        {"Empty", QString()},
        {"List", QVariantList {1, 2.5, QStringLiteral("x")}},
        {"EmptyList", QVariantList {}},
        {"Texts", QStringList {QStringLiteral("a,b"), QString()}},
        {"Map", map},
        {"General", QStringLiteral("a key of that name")},
    };
    {
        QtUserDefaults defaults(m_path);
        for (const auto& test : kTestCases)
            defaults.setObject(QString::fromLatin1(test.key), test.value);
        ASSERT_TRUE(defaults.synchronize());
    }
    const QtUserDefaults defaults(m_path);
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.key);
        QVariant read = defaults.object(QString::fromLatin1(test.key));
        EXPECT_TRUE(read.isValid());
        EXPECT_TRUE(read.convert(test.value.metaType()));
        EXPECT_EQ(read, test.value);
    }
    EXPECT_FALSE(defaults.object(QStringLiteral("numberofstandups")).isValid()) << "keys are case-sensitive";
}

TEST_F(QtUserDefaultsTest, onlyWhatChangedHereReplacesWhatAnEditorWroteMeanwhile)
{
    QtUserDefaults defaults(m_path);
    defaults.setObject(QStringLiteral("TimeIdle"), 300.0);
    defaults.setObject(QStringLiteral("Weight"), 81.0);
    ASSERT_TRUE(defaults.synchronize());
    writeFile(m_path, "[General]\nTimeIdle=42\nWeight=82\n");
    defaults.removeObject(QStringLiteral("Weight"));
    defaults.setObject(QStringLiteral("TimeSnooze"), 90.0);
    ASSERT_TRUE(defaults.synchronize());
    EXPECT_FALSE(defaults.object(QStringLiteral("Weight")).isValid());
    EXPECT_EQ(readFile(m_path), "[General]\nTimeIdle=42\nTimeSnooze=90\n");
}

TEST_F(QtUserDefaultsTest, onlyTheOwnerMayReadTheFileAndNothingElseIsLeft)
{
    makeFolder();
    for (const char* const name :
        {".lock", ".aB3xYz", ".damaged-7"}) // What killed processes leave, and a copy.
        writeFile(m_path + QLatin1String(name), "x");
    QtUserDefaults defaults(m_path);
    defaults.setObject(QStringLiteral("Weight"), 80.0);
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
        const char* unreadable; ///< null: nothing is wrong with the file
    } kTestCases[] = {
        {"by hand, without a section", "; by hand\nDevicePosition1 = 6512\n\n", nullptr},
        {"no final line end", "[General]\nDevicePosition1=6512", nullptr},
        {"a comment", "# mine = 1\n#\n[General]\nDevicePosition1=6512\n", nullptr},
        {"a byte order mark", "\xef\xbb\xbf[General]\r\nDevicePosition1=6512\r\n", nullptr},
        {"a Latin-1 letter", "[General]\nName=caf\xe9\nDevicePosition1=6512\n", nullptr},
        {"quotes", "[General]\nName=\"a \\\" \\\\\"\nDevicePosition1=6512\n", nullptr},
        {"other sections", "[General]\nDevicePosition1=6512\n\n[Other]\nA=1\n", nullptr},
        {"no assignment", "[General]\nWeig\nDevicePosition1=6512\n", "Weig"},
        {"no key", "[General]\n=4\nDevicePosition1=6512\n", "=4"},
        {"a section cut", "[Gen\nDevicePosition1=6512\n", "[Gen"},
        {"an open quotation mark", "[General]\nName=\"x\nDevicePosition1=6512\n", "Name=\"x"},
        {"a backslash before the end", "[General]\nName=x\\\nDevicePosition1=6512\n", "Name=x\\"},
        {"a NUL byte", "[General]\nName=" + nul + "\nDevicePosition1=6512\nEnd\n", "\nEnd"},
    };
    makeFolder();
    int copies = 0;
    for (const auto& test : kTestCases) {
        SCOPED_TRACE(test.name);
        writeFile(m_path, test.bytes);
        QtUserDefaults defaults(m_path);
        EXPECT_EQ(defaults.object(QStringLiteral("DevicePosition1")).toInt(), 6512);
        defaults.setObject(QStringLiteral("Weight"), 70.5);
        EXPECT_TRUE(defaults.synchronize());
        const QtUserDefaults next(m_path);
        EXPECT_FALSE(next.damage());
        EXPECT_EQ(next.object(QStringLiteral("DevicePosition1")).toInt(), 6512);
        EXPECT_EQ(next.object(QStringLiteral("Weight")).toDouble(), 70.5);
        if (test.bytes.contains("caf")) {
            EXPECT_EQ(next.object(QStringLiteral("Name")), QStringLiteral("café"));
        }

        ASSERT_EQ(defaults.damage().has_value(), test.unreadable != nullptr);
        const QString copy = m_path + QStringLiteral(".damaged-%1").arg(copies + 1);
        EXPECT_EQ(QFileInfo::exists(copy), test.unreadable != nullptr);
        if (!test.unreadable)
            continue;
        ++copies;
        EXPECT_EQ(readFile(copy), test.bytes);
        EXPECT_TRUE(defaults.damage()->localizedDescription.contains(m_path));
        EXPECT_TRUE(defaults.damage()->failureReason.startsWith(QLatin1String(test.unreadable))
            || defaults.damage()->failureReason.contains(
                QLatin1String(test.unreadable) + QLatin1String("|")));
        EXPECT_TRUE(defaults.damage()->failureReason.endsWith(copy));
    }
}

TEST_F(QtUserDefaultsTest, whatIsNoSettingsFileAtAllIsKeptAside)
{
    for (const QByteArray& bytes :
        {QByteArray(4096, '\0'), QByteArray("\x7f\x45\x4c\x46\x02\xff\xfe\xfd\n")}) {
        makeFolder();
        writeFile(m_path, bytes);
        QtUserDefaults defaults(m_path);
        defaults.setObject(QStringLiteral("Weight"), 70.0);
        EXPECT_TRUE(defaults.synchronize());
        EXPECT_EQ(readFile(m_path), "[General]\nWeight=70\n");
        EXPECT_EQ(readFile(m_path + QStringLiteral(".damaged-1")), bytes);
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
        defaults->setObject(QStringLiteral("Weight"), weight);
        EXPECT_FALSE(defaults->synchronize());
        EXPECT_EQ(defaults->object(QStringLiteral("Weight")).toDouble(), weight);
    }
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1) << log;

    ASSERT_TRUE(QFile::remove(inTheWay));
    defaults.reset(); // The program ends.
    EXPECT_EQ(QtUserDefaults(m_path).object(QStringLiteral("Weight")).toDouble(), 72.0);
}
}
