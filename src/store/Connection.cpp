#include "store/Connection.h"

#include "base/FileLock.h"
#include "base/RuntimeError.h"
#include "base/safeFile.h"
#include "store/engineFaults.h"
#include "store/leftBehind.h"
#include "store/sqlDialect.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <sqlite3.h>

#include <algorithm>
#include <atomic>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView password("bluepaperwindow");
constexpr int busyMilliseconds = 2000;
constexpr qsizetype mostStatements = 400;

// Set explicitly, with the values that both major versions of the library can read (see docs/decisions/0002).
// Older versions pass over the names that they do not know.
constexpr auto cipherSettings = "PRAGMA cipher_page_size = 4096;"
                                "PRAGMA kdf_iter = 64000;"
                                "PRAGMA cipher_hmac_algorithm = HMAC_SHA1;"
                                "PRAGMA cipher_kdf_algorithm = PBKDF2_HMAC_SHA1;";
constexpr std::array durability{
    "PRAGMA synchronous = EXTRA", "PRAGMA journal_mode = DELETE", "PRAGMA cache_size = -32768"};

/// By `Connection::Followed`.
constexpr std::array followedTables{"jobs_detail", "postings"};
/// With more changes than that, all rows are read again in less time than those are.
constexpr size_t mostLoggedRows = 4096;

int placeOfFollowed(const char *table)
{
    const auto found =
        std::ranges::find_if(followedTables, [table](const char *followed) { return qstricmp(table, followed) == 0; });
    return found == followedTables.end() ? -1 : static_cast<int>(found - followedTables.begin());
}

quint64 nextStamp()
{
    static std::atomic<quint64> stamp = 0;
    return ++stamp;
}

/// The engine's word, while it prepares a statement, on each thing that the statement does: notes the tables written
/// to.
int noteWritten(void *tables, int action, const char *table, const char *, const char *, const char *)
{
    if (action == SQLITE_INSERT || action == SQLITE_UPDATE || action == SQLITE_DELETE)
        static_cast<QByteArrayList *>(tables)->append(QByteArray(table).toLower());
    // Does not refuse it: the rows are then deleted one by one, and each is told, also where all of them go.
    return action == SQLITE_DELETE && placeOfFollowed(table) >= 0 ? SQLITE_IGNORE : SQLITE_OK;
}

int bindValue(sqlite3_stmt *statement, int place, const Value &value)
{
    const auto bindText = [statement, place](const QString &text) {
        const QByteArray utf8 = text.toUtf8();
        return sqlite3_bind_text(statement, place, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
    };
    const auto &data = value.data();
    if (const auto *whole = std::get_if<qint64>(&data))
        return sqlite3_bind_int64(statement, place, *whole);
    if (const auto *number = std::get_if<double>(&data))
        return sqlite3_bind_double(statement, place, *number);
    if (const auto *amount = std::get_if<Currency>(&data))
        return sqlite3_bind_double(statement, place, amount->toDouble());
    if (const auto *text = std::get_if<QString>(&data))
        return bindText(*text);
    if (const auto *moment = std::get_if<QDateTime>(&data))
        return bindText(jetsql::storedDate(*moment));
    return sqlite3_bind_null(statement, place);
}

} // namespace

Connection::Connection() : m_writeStamp(nextStamp()), m_rowLogs{RowLog{nextStamp(), {}}, RowLog{nextStamp(), {}}} { }

Connection::~Connection()
{
    close();
}

void Connection::open(const QString &path)
{
    m_keptAside.clear();
    const QFileInfo file(path);
    if (!file.exists())
        throw RuntimeError(Fault::FileNotFound, path);
    if (!file.isFile() || !file.isReadable() || !file.isWritable())
        throw RuntimeError(Fault::CannotOpen, u"The file cannot be opened for reading and writing."_s, path);
    if (isOpen())
        throw RuntimeError(Fault::AlreadyOpen, path);
    // The journal lies beside the file itself, not beside a link to it.
    const QString real = file.canonicalFilePath();
    auto closeOnFailure = qScopeGuard([this] { close(); });
    m_lock = FileLock::shared(real, busyMilliseconds);
    QFile::setPermissions(real, QFile::ReadOwner | QFile::WriteOwner);
    if (m_lock->isAlone() && leftBehind::isHot(real))
        m_keptAside = leftBehind::keepAside(real);
    openHandle(real, SQLITE_OPEN_READWRITE);
    unlock();
    proveReadable(real);
    clearColdJournal(real);
    m_lock->share();
    closeOnFailure.dismiss();
}

void Connection::openReadOnly(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        throw RuntimeError(Fault::FileNotFound, path);
    if (!file.isFile() || !file.isReadable())
        throw RuntimeError(Fault::CannotOpen, path);
    if (isOpen())
        throw RuntimeError(Fault::AlreadyOpen, path);
    const QString real = file.canonicalFilePath();
    auto closeOnFailure = qScopeGuard([this] { close(); });
    m_lock = FileLock::shared(real, busyMilliseconds);
    m_lock->share();
    openHandle(real, SQLITE_OPEN_READONLY);
    unlock();
    proveReadable(real);
    closeOnFailure.dismiss();
}

void Connection::openReadOnly(const UnfinishedFile &file)
{
    openHandle(file.name(), SQLITE_OPEN_READONLY);
    auto closeOnFailure = qScopeGuard([this] { close(); });
    unlock();
    proveReadable(file.name());
    closeOnFailure.dismiss();
}

void Connection::openPlain(const QString &path)
{
    const QFileInfo file(path);
    if (!file.exists())
        throw RuntimeError(Fault::FileNotFound, path);
    if (!file.isFile() || !file.isReadable())
        throw RuntimeError(Fault::CannotOpen, path);
    openHandle(path, SQLITE_OPEN_READONLY);
    auto closeOnFailure = qScopeGuard([this] { close(); });
    Statement(*this, "select count(*) from sqlite_master", {}, path).step();
    m_proven = true;
    closeOnFailure.dismiss();
}

void Connection::create(const UnfinishedFile &file)
{
    openHandle(file.name(), SQLITE_OPEN_READWRITE);
    unlock();
    m_proven = true;
    makeDurable();
}

void Connection::openHandle(const QString &path, int flags)
{
    if (isOpen())
        throw RuntimeError(Fault::AlreadyOpen, path);
    sqlite3 *handle = nullptr;
    // No two threads have the same connection; a lock around each field read would be for nobody.
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK) {
        sqlite3_close(handle);
        throw RuntimeError(Fault::CannotOpen, path);
    }
    m_database = handle;
    m_path = path;
    m_proven = false;
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_timeout(handle, busyMilliseconds);
    // For as long as the file is open: a change of it makes the engine prepare all statements anew.
    sqlite3_set_authorizer(handle, noteWritten, &m_writtenByPrepared);
    sqlite3_update_hook(handle, noteRow, this);
    sqlDialect::addTo(handle);
}

/// A journal that is over does no harm, but the file is to lie there alone.
void Connection::clearColdJournal(const QString &path)
{
    if (!leftBehind::hasColdJournal(path))
        return;
    // While this one could write, nobody else has a journal that only begins.
    if (sqlite3_exec(m_database, "begin immediate", nullptr, nullptr, nullptr) == SQLITE_OK)
        leftBehind::removeColdJournal(path);
    sqlite3_exec(m_database, "rollback", nullptr, nullptr, nullptr);
}

void Connection::unlock()
{
    sqlite3_key(m_database, password.data(), static_cast<int>(password.size()));
    sqlite3_exec(m_database, cipherSettings, nullptr, nullptr, nullptr);
}

void Connection::proveReadable(const QString &path)
{
    const auto number = [&](const QByteArray &sql) {
        Statement statement(*this, sql, {}, path);
        return statement.step() ? sqlite3_column_int64(statement.handle(), 0) : 0;
    };
    if (number("select count(*) from sqlite_master where type='table' and name='Settings' collate nocase") == 0)
        throw RuntimeError(Fault::NotADatabase, path);
    // A copy that was cut short still has a readable beginning; what its first page promises must be there. The promise
    // is read first: another program may make the file longer at this moment.
    const qint64 promised = number("PRAGMA page_count") * number("PRAGMA page_size");
    if (QFileInfo(path).size() < promised)
        throw RuntimeError(Fault::Damaged, path);
    m_proven = true;
    number("select count(*) from Settings");
    makeDurable();
    lookAtDataVersion();
    m_toldOtherWrites = m_otherWrites;
}

void Connection::makeDurable()
{
    for (const char *pragma : durability) {
        const int code = sqlite3_exec(m_database, pragma, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK)
            fail(code, m_path, false);
    }
}

void Connection::close()
{
    for (const Prepared &statement : std::as_const(m_statements))
        sqlite3_finalize(statement.handle);
    m_statements.clear();
    sqlite3_finalize(m_askDataVersion);
    m_askDataVersion = nullptr;
    // Whoever closes in the midst of a group, such as a process that ends itself, has not finished its command.
    if (m_inGroup && isOpen())
        sqlite3_exec(m_database, "rollback", nullptr, nullptr, nullptr);
    sqlite3_close_v2(m_database);
    m_database = nullptr;
    m_inGroup = false;
    m_groupFault = SQLITE_OK;
    // After the engine has let go of the file: whoever comes next may be alone with it.
    m_lock.reset();
    noteAnyWrite();
}

QByteArray Connection::content()
{
    define(u"begin"_s);
    const auto end = qScopeGuard([this] { sqlite3_exec(m_database, "rollback", nullptr, nullptr, nullptr); });
    // The first read shuts others' writes out.
    Statement(*this, "select count(*) from sqlite_master", {}, m_path).step();
    // Through the engine's own descriptor: closing another one would drop its locks.
    sqlite3_file *file = nullptr;
    sqlite3_file_control(m_database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    sqlite3_int64 size = 0;
    int code = file->pMethods->xFileSize(file, &size);
    QByteArray bytes(size, Qt::Uninitialized);
    constexpr sqlite3_int64 pieceSize = 1 << 20;
    for (sqlite3_int64 done = 0; code == SQLITE_OK && done < size; done += pieceSize)
        code =
            file->pMethods->xRead(file, bytes.data() + done, static_cast<int>(std::min(pieceSize, size - done)), done);
    if (code != SQLITE_OK)
        fail(code, m_path, false);
    return bytes;
}

int Connection::execute(const QString &statement)
{
    const auto translation = jetsql::translate(statement);
    return run(translation.sql, translation.values, statement);
}

void Connection::define(const QString &sql)
{
    run(sql.toUtf8(), {}, sql);
}

int Connection::run(const QByteArray &sql, const std::vector<Value> &values, const QString &source)
{
    Statement statement(*this, sql, values, source);
    while (statement.step()) { }
    return rowsChanged();
}

int Connection::rowsChanged() const
{
    return sqlite3_changes(m_database);
}

qint64 Connection::lastRowNumber() const
{
    return sqlite3_last_insert_rowid(m_database);
}

const Connection::Prepared &Connection::prepared(const QByteArray &sql, const QString &source)
{
    if (!isOpen())
        throw RuntimeError(Fault::NotOpen, source);
    if (const auto known = m_statements.constFind(sql); known != m_statements.cend())
        return *known;
    if (m_statements.size() >= mostStatements) {
        for (auto it = m_statements.begin(); it != m_statements.end();) {
            const bool busy = sqlite3_stmt_busy(it->handle) != 0;
            if (!busy)
                sqlite3_finalize(it->handle);
            it = busy ? std::next(it) : m_statements.erase(it);
        }
    }
    Prepared statement;
    m_writtenByPrepared.clear();
    const int code =
        sqlite3_prepare_v2(m_database, sql.constData(), static_cast<int>(sql.size()), &statement.handle, nullptr);
    statement.written = m_writtenByPrepared;
    if (code != SQLITE_OK)
        fail(code, source, !statement.written.isEmpty());
    return *m_statements.insert(sql, statement);
}

void Connection::noteWrites(const Prepared &statement)
{
    const quint64 stamp = nextStamp();
    for (const QByteArray &table : statement.written)
        m_tableStamps[table] = stamp;
}

void Connection::noteAnyWrite()
{
    m_tableStamps.clear();
    m_writeStamp = nextStamp();
    for (RowLog &log : m_rowLogs)
        log = {nextStamp(), {}};
}

void Connection::noteRow(void *connection, int, const char *, const char *table, qlonglong row)
{
    const int place = placeOfFollowed(table);
    if (place < 0)
        return;
    RowLog &log = static_cast<Connection *>(connection)->m_rowLogs.at(static_cast<size_t>(place));
    if (log.rows.size() == mostLoggedRows)
        log = {nextStamp(), {}};
    log.rows.push_back(row);
}

Connection::Changes Connection::changesSince(Followed table, const Mark &mark) const
{
    const RowLog &log = m_rowLogs.at(static_cast<size_t>(table));
    const Mark now{log.epoch, log.rows.size()};
    if (mark.epoch != log.epoch)
        return {.everything = true, .now = now};
    return {.everything = false, .rows = std::span(log.rows).subspan(mark.position), .now = now};
}

void Connection::noticeOtherWriters()
{
    if (isOpen() && !m_inGroup)
        lookAtDataVersion();
}

bool Connection::othersHaveWritten()
{
    noticeOtherWriters();
    return std::exchange(m_toldOtherWrites, m_otherWrites) != m_otherWrites;
}

void Connection::lookAtDataVersion()
{
    if (!m_askDataVersion)
        sqlite3_prepare_v2(m_database, "PRAGMA data_version", -1, &m_askDataVersion, nullptr);
    qint64 version = m_dataVersion;
    const bool known = sqlite3_step(m_askDataVersion) == SQLITE_ROW;
    if (known)
        version = sqlite3_column_int64(m_askDataVersion, 0);
    sqlite3_reset(m_askDataVersion);
    if (known && version == m_dataVersion)
        return;
    m_dataVersion = version;
    ++m_otherWrites;
    noteAnyWrite();
}

void Connection::fail(int code, const QString &source, bool writes)
{
    const Fault fault = engineFaults::faultOf(code, m_proven);
    if (engineFaults::isOfTheStatement(code)) {
        const QString said = QString::fromUtf8(sqlite3_errmsg(m_database));
        throw RuntimeError(fault, said, source);
    }
    if (m_inGroup) {
        m_groupFault = code;
        throw diskFault(code, m_groupLost);
    }
    throw diskFault(code, writes ? afterFailedWrite(code) : Written::NotTried);
}

RuntimeError Connection::diskFault(int code, Written written) const
{
    const Fault fault = engineFaults::faultOf(code, m_proven);
    const QString words = engineFaults::wordsOf(code);
    return RuntimeError(fault,
        (words.isEmpty() ? RuntimeError(fault).text() : words) + engineFaults::aftermath(written), m_path, written);
}

Written Connection::afterFailedWrite(int code)
{
    if (engineFaults::standsAfter(code))
        return Written::AllOrNothing;
    if ((code & 0xff) == SQLITE_BUSY)
        return Written::Nothing;
    // A journal that could not be removed is still to be rolled back; the first read does it, or shows that it can't.
    const bool readable =
        sqlite3_exec(m_database, "select count(*) from sqlite_master", nullptr, nullptr, nullptr) == SQLITE_OK;
    return readable ? Written::Nothing : Written::AllOrNothing;
}

Connection::Statement::Statement(
    Connection &connection, const QByteArray &sql, const std::vector<Value> &values, const QString &source)
    : m_connection(connection), m_source(source)
{
    if (connection.m_groupFault != SQLITE_OK)
        throw connection.diskFault(connection.m_groupFault, connection.m_groupLost);
    connection.noticeOtherWriters();
    const Prepared &prepared = connection.prepared(sql, source);
    m_handle = prepared.handle;
    m_writes = !prepared.written.isEmpty();
    // A text from outside may hold "?" nowhere: every literal was taken out, so the counts agree or the statement is
    // wrong.
    if (sqlite3_bind_parameter_count(m_handle) != static_cast<int>(values.size()))
        throw RuntimeError(Fault::Syntax, source);
    for (size_t i = 0; i < values.size(); ++i) {
        const int code = bindValue(m_handle, static_cast<int>(i) + 1, values[i]);
        if (code != SQLITE_OK)
            m_connection.fail(code, source, m_writes);
    }
    if (m_writes)
        m_connection.noteWrites(prepared);
}

Connection::Statement::~Statement()
{
    sqlite3_reset(m_handle);
}

bool Connection::Statement::step()
{
    const int code = sqlite3_step(m_handle);
    if (code == SQLITE_ROW || code == SQLITE_DONE)
        return code == SQLITE_ROW;
    if (engineFaults::isOfTheStatement(code))
        m_connection.fail(code, m_source, m_writes);
    // The engine ends the write, and takes it back, when its statement is reset.
    sqlite3_reset(m_handle);
    m_connection.fail(code, m_source, m_writes);
}

void Connection::beginGroup(Written lost)
{
    if (!isOpen())
        throw RuntimeError(Fault::NotOpen);
    const int code = sqlite3_exec(m_database, "begin immediate", nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        fail(code, m_path, lost == Written::Nothing);
    m_inGroup = true;
    m_groupLost = lost;
    // Nobody else can write from here on.
    lookAtDataVersion();
}

void Connection::endGroup(const TakenBack &takenBack)
{
    if (!isOpen())
        return;
    m_inGroup = false;
    int code = std::exchange(m_groupFault, SQLITE_OK);
    if (code == SQLITE_OK) {
        code = sqlite3_exec(m_database, "commit", nullptr, nullptr, nullptr);
        if (code == SQLITE_OK)
            return;
    }
    // A group that could not be committed must not stay open: later writes would fall into it and be lost with it.
    sqlite3_exec(m_database, "rollback", nullptr, nullptr, nullptr);
    noteAnyWrite();
    // Scratch rows that stand there need not outlast a power cut.
    if (m_groupLost == Written::NotTried && engineFaults::standsAfter(code))
        return;
    const Written written = m_groupLost == Written::Nothing ? afterFailedWrite(code) : m_groupLost;
    if (takenBack && !engineFaults::standsAfter(code))
        takenBack(written);
    throw diskFault(code, written);
}

void WriteGroup::run(Connection &connection, const std::function<void()> &body, const TakenBack &takenBack)
{
    run(connection, body, takenBack, Written::Nothing);
}

void WriteGroup::runScratch(Connection &connection, const std::function<void()> &body)
{
    run(connection, body, {}, Written::NotTried);
}

void WriteGroup::run(
    Connection &connection, const std::function<void()> &body, const TakenBack &takenBack, Written lost)
{
    const bool outermost = !connection.m_inGroup;
    if (outermost)
        connection.beginGroup(lost);
    try {
        body();
    } catch (...) {
        if (outermost)
            connection.endGroup(takenBack);
        else if (connection.m_groupFault != SQLITE_OK && takenBack)
            takenBack(connection.m_groupLost);
        throw;
    }
    if (outermost)
        connection.endGroup(takenBack);
}
