#include "Ledger.h"

#include "TimeOfDay.h"
#include "data/Activity.h"
#include "platform/RunLoop.h"

#include <sqlite3.h>

QString Period::text() const
{
    return QStringLiteral("%1 - %2  %3  %4 min")
        .arg(timeOfDay(start).left(8), timeOfDay(end).left(8), QString(isStanding ? "standing" : "sitting "))
        .arg((end - start) / 60.0, 6, 'f', 1);
}

void Ledger::observe(const Activity* open)
{
    const double now = RunLoop::main().now();
    if (m_open)
        m_periods.back().end = now;
    const bool isNew = open && (open != m_open || open->startDate().secondsSince1970() != m_openStart);
    if (isNew) {
        m_openStart = open->startDate().secondsSince1970();
        m_periods.push_back({m_openStart, now, open->isStanding()});
    }
    m_open = open;
}

std::vector<Period> readStore(const QString& path)
{
    std::vector<Period> periods;
    sqlite3* store = nullptr;
    sqlite3_stmt* rows = nullptr;
    const char* query = "SELECT startDate, endDate, isStanding FROM Activity ORDER BY startDate, endDate";
    if (sqlite3_open_v2(path.toUtf8().constData(), &store, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK
        && sqlite3_prepare_v2(store, query, -1, &rows, nullptr) == SQLITE_OK) {
        while (sqlite3_step(rows) == SQLITE_ROW)
            periods.push_back({sqlite3_column_double(rows, 0), sqlite3_column_double(rows, 1),
                sqlite3_column_int(rows, 2) != 0});
    }
    sqlite3_finalize(rows);
    sqlite3_close(store);
    return periods;
}
