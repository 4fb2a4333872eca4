#include "data/ExportManager.h"

#include "fakes/TestPlatform.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <gtest/gtest.h>

TEST(ExportManager, writesByteForByteWhereTheUserSaysAndNothingOtherwise)
{
    const struct {
        std::optional<QString> place;
        QStringList values;
        QByteArray line;
    } kCases[] = {
        {{}, {"1"}, "no file"}, // The user cancels.
        {"none/history.csv", {"1"}, "no file"}, // Passed over in silence.
        {"history.csv", {"1234.50", "1175.94", "87", "12"}, "1234.50; 1175.94; 87; 12; "},
        {"history.csv", {}, ""}, // Replaces a file that is there.
        {"history.csv", {"a;b", "\u00e9"}, "a;b; \xC3\xA9; "},
    };
    TestPlatform platform;
    platform.texts.byKey = {{"ExportFileName", "Export %1.csv"}, {"AppName", "Desk"}};
    FakeDialogs dialogs;
    for (const auto& [place, values, line] : kCases) {
        SCOPED_TRACE(line.data());
        const QString path = platform.folder.filePath(place.value_or("cancelled"));
        dialogs.savePanelAnswer = place ? std::optional(path) : std::nullopt;
        EXPECT_EQ(ExportManager::exportHistoryToCSV(values, dialogs), place.has_value());
        QFile file(path);
        EXPECT_EQ(file.open(QIODevice::ReadOnly) ? file.readAll() : "no file",
            line == "no file"
                ? line
                : "Standing Minutes;Calories burned;Standing session count;Goals met;\n" + line);
    }
    EXPECT_TRUE(dialogs.presented.empty());
    EXPECT_EQ(QDir(platform.folder.path()).entryList(QDir::Files).size(), 1) << "nothing temporary is left";
    EXPECT_EQ(dialogs.proposedFileNames.first(), "Export 15-03-2024.csv");
    EXPECT_EQ(ExportManager::fullFileNamePath(),
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/Desk/Export 15-03-2024.csv");
}
