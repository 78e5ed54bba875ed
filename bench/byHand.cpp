#include "byHand.h"

#include "base/RuntimeError.h"
#include "store/DataEnvironment.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace byHand {

namespace {

sqlite3 *handleOfConnection()
{
    const Connection::Statement any(DE().CN, "select 1", {}, {});
    return sqlite3_db_handle(any.handle());
}

} // namespace

Statement::Statement(std::string_view sql)
{
    sqlite3 *database = handleOfConnection();
    if (sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &m_handle, nullptr) != SQLITE_OK)
        throw RuntimeError(Fault::Engine, QString::fromUtf8(sqlite3_errmsg(database)), {});
}

Statement::~Statement()
{
    sqlite3_finalize(m_handle);
}

bool Statement::step()
{
    const int code = sqlite3_step(m_handle);
    if (code != SQLITE_DONE)
        check(code == SQLITE_ROW ? SQLITE_OK : code);
    return code == SQLITE_ROW;
}

void Statement::reset()
{
    sqlite3_reset(m_handle);
}

qint64 Statement::integer(int column) const
{
    return sqlite3_column_int64(m_handle, column);
}

double Statement::number(int column) const
{
    return sqlite3_column_double(m_handle, column);
}

std::string_view Statement::text(int column) const
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_handle, column));
    return {text ? text : "", static_cast<size_t>(sqlite3_column_bytes(m_handle, column))};
}

void Statement::bind(int place, qint64 value)
{
    check(sqlite3_bind_int64(m_handle, place, value));
}

void Statement::bind(int place, double value)
{
    check(sqlite3_bind_double(m_handle, place, value));
}

void Statement::bind(int place, std::string_view value)
{
    check(sqlite3_bind_text(m_handle, place, value.data(), static_cast<int>(value.size()), SQLITE_TRANSIENT));
}

void Statement::bind(int place, std::nullptr_t)
{
    check(sqlite3_bind_null(m_handle, place));
}

void Statement::check(int code) const
{
    if (code != SQLITE_OK)
        throw RuntimeError(Fault::Engine, QString::fromUtf8(sqlite3_errmsg(sqlite3_db_handle(m_handle))), {});
}

} // namespace byHand
