#pragma once

#include <QString>
#include <QStringList>

class Dialogs;

/// Saves the summary of the recorded history where the user wants it.
class ExportManager {
public:
    /// Asks for the place and writes the titles and the values: UTF-8 without byte-order mark, a semicolon
    /// after each title, a semicolon and a space after each value, one line feed between the two lines, no
    /// quoting. True when the user chose a place, whether or not the file could be written.
    static bool exportHistoryToCSV(const QStringList& values, Dialogs& dialogs);

    /// The proposed name, with the day of today in it.
    [[nodiscard]] static QString fileName();
    /// The program's folder among the user's documents.
    [[nodiscard]] static QString dataFilePath();
    [[nodiscard]] static QString fullFileNamePath();
};
