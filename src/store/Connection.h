#pragma once

#include "store/Value.h"
#include "store/jetsql.h"

#include <QByteArrayList>
#include <QHash>

#include <functional>

struct sqlite3;
struct sqlite3_stmt;

/// A database file of the program, open under the program's password. Statements go in in the program's own dialect
/// (`jetsql`); each that returns is on the disk. Not copyable; closing or destroying it leaves one file and no
/// companion.
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Opens an existing database for reading and writing and makes sure that it is one: the key fits and the tables
    /// are there. Throws RuntimeError and stays closed: FileNotFound, CannotOpen (a folder, no rights, or a file that
    /// may only be read), Locked, Damaged, NotADatabase (a foreign file or another password). The file is never changed
    /// by it.
    void open(const QString &path);

    /// Opens a database that has no password and isn't a shop's, for reading only. Throws as `open` does.
    void openPlain(const QString &path);

    /// Makes a new, empty file at `path` and opens it. Throws RuntimeError (FileFault) where something stands there
    /// already, which is left alone, and CannotOpen where nothing can be made.
    void create(const QString &path);

    /// Without effect when closed. Never throws.
    void close();
    [[nodiscard]] bool isOpen() const { return m_database != nullptr; }

    /// Runs a statement that gives no rows. Returns the number of rows that it changed. On a failure nothing of it is
    /// done.
    int execute(const QString &statement);

    /// Runs a statement of the engine's own language, for what the program's dialect has no words for: making tables.
    void define(const QString &sql);

    /// Changes with each statement that may have written to `table`, named in small letters, with a group that was
    /// taken back, with opening and with closing, and is never the same for two connections: whoever remembers answers
    /// from that table forgets them when it has changed.
    [[nodiscard]] quint64 writeStamp(const QByteArray &table) const { return m_tableStamps.value(table, m_writeStamp); }

    /// A prepared statement at its start with `values` bound, and reset when it leaves its scope.
    class Statement {
    public:
        Statement(
            Connection &connection, const QByteArray &sql, const std::vector<Value> &values, const QString &source);
        ~Statement();
        Statement(const Statement &) = delete;
        Statement &operator=(const Statement &) = delete;
        /// Moves to the next row; false when there is none.
        bool step();
        [[nodiscard]] sqlite3_stmt *handle() const { return m_handle; }

    private:
        Connection &m_connection;
        sqlite3_stmt *m_handle;
        QString m_source;
    };

    /// Rows changed by the last statement that wrote.
    [[nodiscard]] int rowsChanged() const;
    /// Row number of the last row added.
    [[nodiscard]] qint64 lastRowNumber() const;

private:
    friend class WriteGroup;
    struct Prepared {
        sqlite3_stmt *handle = nullptr;
        /// The tables that it writes to, in small letters.
        QByteArrayList written = {};
    };
    void openHandle(const QString &path, int flags);
    void unlock();
    void proveReadable(const QString &path);
    const Prepared &prepared(const QByteArray &sql, const QString &source);
    void noteWrites(const Prepared &statement);
    void noteAnyWrite();
    [[noreturn]] void fail(int code, const QString &source) const;
    int run(const QByteArray &sql, const std::vector<Value> &values, const QString &source);

    sqlite3 *m_database = nullptr;
    QHash<QByteArray, Prepared> m_statements;
    /// Of the tables that have not been written to since they were last all taken for changed.
    quint64 m_writeStamp;
    QHash<QByteArray, quint64> m_tableStamps;
    int m_groupDepth = 0;
    bool m_proven = false;
};

/// Groups the writes of one command into one durable commit.
class WriteGroup {
public:
    /// Runs `body` and commits, also while a failure is passing: what was written before a failure stays written.
    /// Only when the disk itself fails or is full does the engine take the whole group back.
    /// Groups nest; the outermost commits. Throws what `body` throws, or what the commit meets.
    /// REQUIRES: the connection is open; nothing is shown to the user inside `body`.
    static void run(Connection &connection, const std::function<void()> &body);
};
