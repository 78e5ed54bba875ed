#pragma once

#include "store/Connection.h"
#include "store/Recordset.h"

#include <QDate>
#include <QStringList>
#include <QTemporaryDir>

/// A new shop database in a folder of its own, made by the program's own creation and opened beside the data
/// environment.
struct StoreFile {
    StoreFile();
    ~StoreFile();

    void addAccount(const QString &title, QDate birthday = {}, int type = 0);
    void addPosting(int accountID, const Value &date, double amount, int status = 0);
    void addItem(
        const QString &name, const QString &measurements, double fees, double workerFees, bool inventory = false);
    /// What a test needs to say of a row of a job card.
    struct JobRow {
        int job = 1;
        int client = 5;
        int item = 1;
        int worker = 0;
        int status = 0;
        QDate date = {2011, 4, 1};
        int quantity = 1;
        bool inventory = false;
    };
    void addJobRow(const JobRow &row);
    /// What a test needs to say of a job card. All that is dated on it is so on that day.
    struct Job {
        int number = 1;
        int client = 5;
        QDate date = {2011, 4, 1};
        int appeared = 0;
    };
    void addJob(const Job &job);
    /// Each row of a statement as one text, columns joined by "|"; Null is empty.
    [[nodiscard]] static QStringList linesOf(Connection &connection, const QString &statement);
    [[nodiscard]] QStringList lines(const QString &statement) { return linesOf(connection, statement); }
    [[nodiscard]] int count(const QString &table);
    [[nodiscard]] QString path() const { return folder.filePath(QStringLiteral("data15.mdb")); }

    QTemporaryDir folder;
    Connection &connection;
};
