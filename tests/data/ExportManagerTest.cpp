#include "data/ExportManager.h"

#include "data/Date.h"
#include "fakes/TestPlatform.h"

#include <QStandardPaths>

TEST(ExportManager, proposesANameAndSaysWhatTheUserDecided)
{
    TestPlatform platform;
    platform.texts.byKey = {{"ExportFileName", "Export %1.csv"}, {"AppName", "Desk"}};
    platform.runLoop.setWallClock(TestPlatform::kStart - 10 * Date::kDay);
    SimulatedDialogs& dialogs = platform.dialogs;
    EXPECT_FALSE(ExportManager::exportHistoryToCSV({"1"}, dialogs)) << "cancelled";
    dialogs.savePanelAnswer = platform.folder.filePath("none/history.csv");
    EXPECT_TRUE(ExportManager::exportHistoryToCSV({"1"}, dialogs)) << "a failure is passed over in silence";
    EXPECT_EQ(ExportManager::fullFileNamePath(),
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/Desk/Export 05-03-2024.csv");
}
