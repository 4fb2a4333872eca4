#pragma once

#include <QString>

/// The program's log: one line a message on standard error, which the start-up sequence reopens onto the log
/// file. Lines written before that are kept and repeated into the file, so that nothing said at start is
/// lost.
namespace Log {
/// Writes the message with the time and the process in front of it. Line breaks inside a message are kept.
void line(const QString& message);
/// The same for what may be met every second: a message is written the first time only. Main thread only.
void once(const QString& message);

/// Reopens standard error onto the file in append mode. On failure standard error stays as it was, one line
/// says why, and false is returned.
bool redirectToFile(const QString& path);
}
