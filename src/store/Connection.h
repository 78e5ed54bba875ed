#pragma once

#include "base/RuntimeError.h"
#include "store/Value.h"
#include "store/jetsql.h"

#include <QByteArrayList>
#include <QHash>

#include <array>
#include <functional>
#include <memory>
#include <span>

class FileLock;
class UnfinishedFile;

struct sqlite3;
struct sqlite3_stmt;

/// A database file of the program, open under the program's password. Statements go in in the program's own dialect
/// (`jetsql`); each that returns is on the disk, power cuts included. Not copyable; closing or destroying it leaves one
/// file and no companion.
///
/// Another program may have the file open, too. A statement waits up to two seconds for the other's write, then fails
/// (Locked). A fault of the disk, or a file that is locked, is told with the path and with what became of the write
/// (`RuntimeError::written`).
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Opens an existing database for reading and writing and makes sure that it is one: the key fits and the tables
    /// are there. Throws RuntimeError and stays closed: FileNotFound, CannotOpen (a folder, no rights, or a file that
    /// may only be read), Locked, Damaged, NotADatabase (a foreign file or another password). The file is not changed
    /// by it but for two things: its rights become 0600, and a write that was cut short is taken back. Before that, the
    /// file and the journal of that write are copied aside (`keptAside`); what fails in that is thrown, too.
    void open(const QString &path);

    /// The folder with the file and the journal as the last `open` found them; empty where it found no unfinished
    /// write. It is told even when the opening fails afterwards.
    [[nodiscard]] const QString &keptAside() const { return m_keptAside; }

    /// Opens such a database for looking only: neither it nor anything beside it is changed. Throws as `open` does, and
    /// CannotOpen where an unfinished write would have to be taken back first.
    void openReadOnly(const QString &path);

    /// The same for a file in the making, which its maker alone has. Other than all else of the store this may be done
    /// in another thread, with a connection of its own and plain statements (`Statement`).
    void openReadOnly(const UnfinishedFile &file);

    /// Opens a database that has no password and isn't a shop's, for reading only. Throws as `open` does.
    void openPlain(const QString &path);

    /// Makes a new, empty database of `file` and opens it. REQUIRES: nothing was written to `file`; the connection is
    /// closed before `file` is given its name.
    void create(const UnfinishedFile &file);

    /// Without effect when closed. A group that is open goes back. Never throws.
    void close();
    [[nodiscard]] bool isOpen() const { return m_database != nullptr; }

    /// Whether no group is open, so that the file can be read as a whole.
    [[nodiscard]] bool isAtRest() const { return isOpen() && !m_inGroup; }
    /// The bytes of the file at one moment, at which nobody writes to it: the same bytes are the same shop. A write
    /// that another program left unfinished is taken back first. Throws RuntimeError as reading does. REQUIRES:
    /// `isAtRest`.
    [[nodiscard]] QByteArray content();

    /// Runs a statement that gives no rows. Returns the number of rows that it changed. On a failure nothing of it is
    /// done.
    int execute(const QString &statement);

    /// Runs a statement of the engine's own language, for what the program's dialect has no words for: making tables.
    void define(const QString &sql);

    /// Changes with each statement that may have written to `table`, named in small letters, with a group that was
    /// taken back, with opening and with closing, when another program was seen to have written, and is never the same
    /// for two connections: whoever remembers answers from that table forgets them when it has changed.
    [[nodiscard]] quint64 writeStamp(const QByteArray &table) const { return m_tableStamps.value(table, m_writeStamp); }

    /// The tables whose rows are kept in memory, see `RowFollower`.
    enum class Followed { ItemRows, Postings };
    /// How far a follower has read a table's changes. A new one has read nothing.
    struct Mark {
        quint64 epoch = 0;
        size_t position = 0;
    };
    struct Changes {
        /// Anything may have changed: the rows are not told.
        bool everything = true;
        /// Row numbers in the order of their writes; some may come twice, or be gone again. Good until the next write.
        std::span<const qint64> rows = {};
        Mark now = {};
    };
    /// What was written to `table` since `mark`. A group that was taken back, another program's write, opening and
    /// closing change everything.
    [[nodiscard]] Changes changesSince(Followed table, const Mark &mark) const;

    /// Looks whether another program has written to the file, and then makes all who remember forget. Each statement
    /// that reads rows and each write does this by itself; a screen does it when it comes to the front. Never throws;
    /// without effect when closed and within a group, where nobody else can write.
    void noticeOtherWriters();
    /// The same, and whether another program has written since this was last asked, or the file opened.
    [[nodiscard]] bool othersHaveWritten();
    /// How often another program was seen to have written.
    [[nodiscard]] quint64 otherWrites() const { return m_otherWrites; }

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
        bool m_writes = false;
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
    void makeDurable();
    void clearColdJournal(const QString &path);
    const Prepared &prepared(const QByteArray &sql, const QString &source);
    void noteWrites(const Prepared &statement);
    void noteAnyWrite();
    static void noteRow(void *connection, int, const char *, const char *table, qlonglong row);
    [[noreturn]] void fail(int code, const QString &source, bool writes);
    /// The same fault with what became of the write, which is only told of a fault that is not the program's own.
    [[nodiscard]] RuntimeError diskFault(int code, Written written) const;
    [[nodiscard]] Written afterFailedWrite(int code);
    int run(const QByteArray &sql, const std::vector<Value> &values, const QString &source);
    void lookAtDataVersion();
    using TakenBack = std::function<void(Written written)>;
    void beginGroup(Written lost);
    void endGroup(const TakenBack &takenBack);

    sqlite3 *m_database = nullptr;
    QString m_path;
    std::shared_ptr<FileLock> m_lock;
    QString m_keptAside;
    QHash<QByteArray, Prepared> m_statements;
    QByteArrayList m_writtenByPrepared;
    /// Of the tables that have not been written to since they were last all taken for changed.
    quint64 m_writeStamp;
    QHash<QByteArray, quint64> m_tableStamps;
    struct RowLog {
        quint64 epoch;
        std::vector<qint64> rows;
    };
    std::array<RowLog, 2> m_rowLogs;
    sqlite3_stmt *m_askDataVersion = nullptr;
    qint64 m_dataVersion = 0;
    quint64 m_otherWrites = 0;
    quint64 m_toldOtherWrites = 0;
    bool m_inGroup = false;
    /// What a failure says of the group that went back.
    Written m_groupLost = Written::Nothing;
    /// The engine's code of the disk's fault that the group met, 0 for none: with one it can only go back.
    int m_groupFault = 0;
    bool m_proven = false;
};

/// Groups the writes of one command into one durable commit.
class WriteGroup {
public:
    using TakenBack = Connection::TakenBack;

    /// Runs `body` and commits, also while a failure is passing: what was written before a fault of the program's own
    /// rules (a Null, an overflow, a missing row) stays written.
    ///
    /// When the disk fails, is full, or another program keeps the file locked, the whole group goes back, whatever
    /// `body` made of the failure; the RuntimeError that is then thrown says so (`Written::Nothing`), and all further
    /// statements of the group are refused. Where it cannot be known whether the group stands, it says
    /// `Written::AllOrNothing`.
    ///
    /// `takenBack` brings the caller's own memory back to what it was before `body`: it runs when the group does not
    /// stand in the file, or may not stand there (`AllOrNothing`). A group within a group is part of it: only the
    /// outermost commits or goes back, and the inner one's `takenBack` runs only when the failure passes through the
    /// inner one.
    ///
    /// Throws what `body` throws, what the commit meets, and NotOpen on a closed connection. A recordset that was open
    /// in a group that went back shows what is not in the file: reopen it. REQUIRES: `body` may show how far it is, and
    /// never waits for the user.
    static void run(Connection &connection, const std::function<void()> &body, const TakenBack &takenBack = {});

    /// The same for writes to scratch tables alone. No entry is lost with them, and a failure that the disk brings on
    /// says none (`Written::NotTried`).
    static void runScratch(Connection &connection, const std::function<void()> &body);

private:
    static void run(
        Connection &connection, const std::function<void()> &body, const TakenBack &takenBack, Written lost);
};
