#include "data/SqlStatement.h"

#include <limits>
#include <sqlite3.h>

SqlStatement::SqlStatement(sqlite3* connection, const char* sql)
    : m_prepareResult(
        sqlite3_prepare_v3(connection, sql, -1, SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr))
{
}

SqlStatement::~SqlStatement()
{
    sqlite3_finalize(m_statement);
}

void SqlStatement::bind(int parameter, double value)
{
    sqlite3_bind_double(m_statement, parameter, value);
}

void SqlStatement::bind(int parameter, int64_t value)
{
    sqlite3_bind_int64(m_statement, parameter, value);
}

void SqlStatement::bindNull(int parameter)
{
    sqlite3_bind_null(m_statement, parameter);
}

int SqlStatement::step()
{
    return m_statement ? sqlite3_step(m_statement) : m_prepareResult;
}

int SqlStatement::run()
{
    const int result = step();
    reset();
    return result == SQLITE_DONE || result == SQLITE_ROW ? SQLITE_OK : result;
}

void SqlStatement::reset()
{
    sqlite3_reset(m_statement);
}

double SqlStatement::number(int column) const
{
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL
        ? std::numeric_limits<double>::quiet_NaN()
        : sqlite3_column_double(m_statement, column);
}

int64_t SqlStatement::integer(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

std::string_view SqlStatement::text(int column) const
{
    const auto* characters = static_cast<const char*>(sqlite3_column_blob(m_statement, column));
    return {characters, size_t(sqlite3_column_bytes(m_statement, column))};
}
