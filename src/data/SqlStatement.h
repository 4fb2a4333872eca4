#pragma once

#include <cstdint>
#include <sqlite3.h>
#include <string_view>

/// One prepared statement, kept as long as its connection and run many times. Result codes are SQLite's.
class SqlStatement {
public:
    SqlStatement(sqlite3* connection, const char* sql)
        : m_prepareResult(
            sqlite3_prepare_v3(connection, sql, -1, SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr))
    {
    }
    ~SqlStatement() { sqlite3_finalize(m_statement); }
    SqlStatement(const SqlStatement&) = delete;
    SqlStatement& operator=(const SqlStatement&) = delete;

    /// SQLITE_OK, or why the text could not be prepared; every step() then answers the same.
    [[nodiscard]] int prepareResult() const { return m_prepareResult; }

    /// Parameters count from 1.
    void bind(int parameter, double value) { sqlite3_bind_double(m_statement, parameter, value); }
    void bind(int parameter, int64_t value) { sqlite3_bind_int64(m_statement, parameter, value); }
    void bindNull(int parameter) { sqlite3_bind_null(m_statement, parameter); }

    /// SQLITE_ROW, SQLITE_DONE or an error.
    [[nodiscard]] int step() { return m_statement ? sqlite3_step(m_statement) : m_prepareResult; }
    /// Runs a statement that gives no rows to its end: SQLITE_OK or an error.
    [[nodiscard]] int run()
    {
        const int result = step();
        reset();
        return result == SQLITE_DONE ? SQLITE_OK : result;
    }
    /// Ends the run. A statement that is not reset keeps its view of the store and holds up checkpoints.
    void reset() { sqlite3_reset(m_statement); }

    /// Columns of the current row count from 0; NULL reads as 0.
    [[nodiscard]] double number(int column) const { return sqlite3_column_double(m_statement, column); }
    [[nodiscard]] int64_t integer(int column) const { return sqlite3_column_int64(m_statement, column); }
    /// Valid until the next step() or reset().
    [[nodiscard]] std::string_view text(int column) const
    {
        const auto* characters = static_cast<const char*>(sqlite3_column_blob(m_statement, column));
        return {characters, size_t(sqlite3_column_bytes(m_statement, column))};
    }

private:
    sqlite3_stmt* m_statement = nullptr;
    int m_prepareResult;
};
