#include "data/ExportManager.h"

#include "data/Date.h"
#include "fakes/Files.h"
#include "fakes/TestPlatform.h"

#include <QStandardPaths>

TEST(ExportManager, writesByteForByteWhereTheUserSaysAndNothingOtherwise)
{
    const QByteArray titles = "Standing Minutes;Calories burned;Standing session count;Goals met;\n";
    const std::tuple<QString, QStringList, QByteArray> kCases[] = {
        {{}, {"1"}, {}}, // The user cancels.
        {"none/history.csv", {"1"}, {}}, // Passed over in silence.
        {"history.csv", {"1234.50", "1175.94", "87", "12"}, titles + "1234.50; 1175.94; 87; 12; "},
        {"history.csv", {"a;b", "\u00e9"}, titles + "a;b; \xC3\xA9; "}, // In its place.
    };
    TestPlatform platform;
    platform.texts.byKey = {{"ExportFileName", "Export %1.csv"}, {"AppName", "Desk"}};
    platform.runLoop.setWallClock(TestPlatform::kStart - 10 * Date::kDay);
    SimulatedDialogs& dialogs = platform.dialogs;
    for (const auto& [place, values, written] : kCases) {
        const QString path = platform.folder.filePath(place);
        dialogs.savePanelAnswer = place.isNull() ? std::nullopt : std::optional(path);
        EXPECT_EQ(ExportManager::exportHistoryToCSV(values, dialogs), !place.isNull());
        EXPECT_EQ(contents(path), written);
    }
    EXPECT_EQ(dialogs.proposedFileNames.first(), "Export 05-03-2024.csv");
    EXPECT_EQ(ExportManager::fullFileNamePath(),
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/Desk/Export 05-03-2024.csv");
}
