#pragma once

#include <QString>

#include <exception>

/// The faults that end an operation. The numbers are those that users and support know from error reports.
enum class Fault {
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceFault = 57,
    FileFault = 75,
    InvalidUseOfNull = 94,
    Picture = 999,
    NoCurrentRecord = 3021,
    ItemNotFound = 3265,
    NotOpen = 3704,
    AlreadyOpen = 3705,
    RowNotFound = 3197,
    NumberTaken = 3022,
    MissingValue = 3314,
    Syntax = 3075,
    DiskFull = 3026,
    Locked = 3045,
    CannotOpen = 3051,
    NotADatabase = 3343,
    Damaged = 3049,
    Engine = 3000,
};

/// What a failed command has left in the file.
enum class Written {
    /// All that came before the failure: it broke a rule of the program's own.
    UpToTheFault,
    /// Nothing: the file is as it was before the command, and the command can be given again.
    Nothing,
    /// The command as a whole or nothing of it; the disk failed while it was made durable. Look before doing it again.
    AllOrNothing,
    /// What failed was no entry, but a look at a file that cannot be reached for the moment, or the scratch rows of a
    /// print.
    NotTried,
};

/// A failed operation: what went wrong, in words for the user, and the statement or field that it happened in.
/// It is the only exception of the program. Where nobody is meant to deal with it, it ends the process with an error
/// report. No text of it holds the database password.
class RuntimeError : public std::exception {
public:
    explicit RuntimeError(Fault fault, const QString &source = {}, Written written = Written::UpToTheFault);
    RuntimeError(Fault fault, const QString &text, const QString &source, Written written = Written::UpToTheFault);

    [[nodiscard]] Fault fault() const { return m_fault; }
    [[nodiscard]] int number() const { return static_cast<int>(m_fault); }
    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] const QString &source() const { return m_source; }
    [[nodiscard]] Written written() const { return m_written; }
    /// Whether the user can be told of it and go on with what stands on the screen: no half of a command stands in the
    /// file. Not with a damaged one.
    [[nodiscard]] bool canGoOn() const;

    /// The whole report: number, text, and the source where there is one.
    [[nodiscard]] QString report() const;
    [[nodiscard]] const char *what() const noexcept override { return m_what.constData(); }

private:
    Fault m_fault;
    QString m_text;
    QString m_source;
    Written m_written;
    QByteArray m_what;
};
