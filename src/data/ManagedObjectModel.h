#pragma once

/// The layout of the store, "StandUp": one entity, Activity, with its dates in seconds since 1970-01-01 UTC
/// and its weight in kg.
struct ManagedObjectModel {
    /// The layout's number, kept as the file's user_version.
    int version = 1;
    /// SQL statements that make what is missing of the layout.
    ///
    /// Two partial indexes serve the interval queries: usual periods are found by their start alone, the few
    /// others (the clock was set back, longer than a day) have an index of their own. Both hold all columns,
    /// so that a fetch never visits the table.
    const char* statements =
        "CREATE TABLE IF NOT EXISTS Activity("
        "id INTEGER PRIMARY KEY, startDate REAL NOT NULL, endDate REAL NOT NULL, "
        "isStanding INTEGER NOT NULL, weight REAL);"
        "CREATE INDEX IF NOT EXISTS UsualActivity ON Activity(startDate, endDate, isStanding, weight) "
        "WHERE endDate - startDate BETWEEN 0 AND 86400;"
        "CREATE INDEX IF NOT EXISTS OddActivity ON Activity(startDate, endDate, isStanding, weight) "
        "WHERE (endDate - startDate BETWEEN 0 AND 86400) IS NOT TRUE;";
};
