#pragma once

#include <cstdint>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

/// One prepared statement, kept as long as its connection and run many times. Result codes are SQLite's.
class SqlStatement {
public:
    SqlStatement(sqlite3* connection, const char* sql);
    ~SqlStatement();
    SqlStatement(const SqlStatement&) = delete;
    SqlStatement& operator=(const SqlStatement&) = delete;

    /// SQLITE_OK, or why the text could not be prepared; every step() then answers the same.
    [[nodiscard]] int prepareResult() const { return m_prepareResult; }

    /// Parameters count from 1. A number that is undefined (NaN) is bound as NULL.
    void bind(int parameter, double value);
    void bind(int parameter, int64_t value);
    void bindNull(int parameter);

    /// SQLITE_ROW, SQLITE_DONE or an error.
    [[nodiscard]] int step();
    /// Runs a statement that gives no rows to its end: SQLITE_OK or an error.
    [[nodiscard]] int run();
    /// Ends the run. A statement that is not reset keeps its view of the store and holds up checkpoints.
    void reset();

    /// Columns of the current row count from 0.
    [[nodiscard]] double number(int column) const; ///< NaN for NULL
    [[nodiscard]] int64_t integer(int column) const;
    [[nodiscard]] std::string_view text(int column) const; ///< valid until the next step() or reset()

private:
    sqlite3_stmt* m_statement = nullptr;
    int m_prepareResult;
};
