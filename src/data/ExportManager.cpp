#include "data/ExportManager.h"

#include "data/Date.h"
#include "platform/Dialogs.h"

#include <QSaveFile>
#include <QStandardPaths>

namespace {
/// The same in every language, because other programs read the file.
constexpr const char* kTitles = "Standing Minutes;Calories burned;Standing session count;Goals met;\n";
}

bool ExportManager::exportHistoryToCSV(const QStringList& values, Dialogs& dialogs)
{
    const std::optional<QString> path = dialogs.runSavePanel(fileName());
    if (!path)
        return false;
    QByteArray text(kTitles);
    for (const QString& value : values)
        text += value.toUtf8() + "; ";
    // The answer says what the user decided, so that a file that cannot be written changes nothing in it.
    QSaveFile file(*path);
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size())
        file.commit();
    return true;
}

QString ExportManager::fileName()
{
    const DateComponents today = Date::now().components();
    const QString day = QString::asprintf("%02d-%02d-%04d", today.day, today.month, today.year);
    return qtTrId("ExportFileName").arg(day);
}

QString ExportManager::dataFilePath()
{
    return QStringLiteral("%1/%2").arg(
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation), qtTrId("AppName"));
}

QString ExportManager::fullFileNamePath()
{
    return QStringLiteral("%1/%2").arg(dataFilePath(), fileName());
}
