#include "data/ExportManager.h"

#include "fakes/TestPlatform.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace {
class ExportBundle final : public Bundle {
public:
    ExportBundle()
        : Bundle(TestPlatform::defaultInformation())
    {
    }
    [[nodiscard]] QString localizedString(const QString& key) const override
    {
        return key == QStringLiteral("ExportFileName") ? QStringLiteral("Export %1.csv")
                                                       : QStringLiteral("Desk");
    }
};

class ExportManagerTest : public testing::Test {
protected:
    ExportManagerTest() { Bundle::setMain(&bundle); }

    QByteArray written() const
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    TestPlatform platform;
    ExportBundle bundle;
    FakeDialogs dialogs;
    const QString path = platform.folder.filePath(QStringLiteral("history.csv"));
};
}

TEST_F(ExportManagerTest, writesTitlesAndValuesByteForByte)
{
    const QByteArray titles = "Standing Minutes;Calories burned;Standing session count;Goals met;\n";
    const struct TestCase {
        QStringList values;
        QByteArray line;
    } kTestCases[] = {
        {{QStringLiteral("1234.50"), QStringLiteral("1175.94"), QStringLiteral("87"), QStringLiteral("12")},
            "1234.50; 1175.94; 87; 12; "},
        {{}, ""},
        {{QStringLiteral("a;b"), QStringLiteral("\u00e9")}, "a;b; \xC3\xA9; "},
    };
    dialogs.savePanelAnswer = path;
    for (const TestCase& testCase : kTestCases) {
        // From the second case on this replaces a file that is there.
        EXPECT_TRUE(ExportManager::exportHistoryToCSV(testCase.values, dialogs));
        EXPECT_EQ(written(), titles + testCase.line);
    }
    EXPECT_EQ(QDir(platform.folder.path()).entryList(QDir::Files).size(), 1) << "nothing temporary is left";
}

TEST_F(ExportManagerTest, cancellingWritesNothing)
{
    EXPECT_FALSE(ExportManager::exportHistoryToCSV({QStringLiteral("1")}, dialogs));
    EXPECT_EQ(dialogs.proposedFileNames, QStringList(QStringLiteral("Export 15-03-2024.csv")));
    EXPECT_EQ(ExportManager::fullFileNamePath(),
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
            + QStringLiteral("/Desk/Export 15-03-2024.csv"));
    EXPECT_TRUE(QDir(platform.folder.path()).isEmpty());
}

TEST_F(ExportManagerTest, aPlaceThatCannotBeWrittenIsPassedOverInSilence)
{
    dialogs.savePanelAnswer = platform.folder.filePath(QStringLiteral("none/history.csv"));
    EXPECT_TRUE(ExportManager::exportHistoryToCSV({QStringLiteral("1")}, dialogs));
    EXPECT_TRUE(dialogs.presented.empty());
}
