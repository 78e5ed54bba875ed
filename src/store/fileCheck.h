#pragma once

#include <QDate>
#include <QStringList>

#include <atomic>

class Connection;
class UnfinishedFile;

/// A look at a whole shop file: whether it can be opened, whether its pages are sound, and whether what belongs
/// together in it agrees: the rows, total and postings of each job card, the legs of each voucher, the numbers that
/// refer to clients, items and workers. A page that the disk has put back to an older state passes for sound; only the
/// sums show it.
namespace fileCheck {

struct Report {
    /// Why the file could not be opened or read to its end; empty where it could.
    QString failure;
    /// What is wrong with the file's pages.
    QStringList damages;
    /// What does not agree, a line each; that of a card or a voucher begins with its number.
    QStringList differences;
    /// What is worth knowing besides.
    QString remark;

    int cards = 0;
    int rows = 0;
    int vouchers = 0;
    int postings = 0;
    /// The latest booking date; none where there is no card.
    QDate lastCard;

    [[nodiscard]] bool isReadable() const { return failure.isEmpty() && damages.isEmpty(); }
    [[nodiscard]] bool isWhole() const { return isReadable() && differences.isEmpty(); }
};

/// Reads the file at `path` and changes nothing: not the file, nor what lies beside it. Where an unfinished write lies
/// beside it, a copy is read, as the file will be when that write is taken back. A file in use is read as it is at one
/// moment; other programs' writes wait meanwhile. Never throws: a fault is the report's `failure`.
[[nodiscard]] Report check(const QString &path);

/// The same of a file in the making.
[[nodiscard]] Report check(const UnfinishedFile &file);

/// What is to be known of a file before anything is done with it.
struct Holding {
    /// Why it cannot be read, or that its pages are damaged; empty where all is well.
    QString failure;
    /// What kept it from being looked at, through no fault of its own.
    QString obstacle;
    /// Of the shop's tables, as a number; 0 where none stands there.
    double version = 0;
    int cards = 0;
    /// The latest booking date; none where there is no card.
    QDate lastCard;
};
enum class Pages { Few, All };
/// Looks into a file in the making, with `Pages::All` at each of its pages. May run in another thread; setting `stop`
/// ends it soon, with any answer. Never throws.
[[nodiscard]] Holding look(const UnfinishedFile &file, Pages pages, const std::atomic_bool &stop);

/// The look of `check` at what an open file holds, its pages left out. Throws RuntimeError as reading does.
[[nodiscard]] Report agreement(Connection &connection);

} // namespace fileCheck
