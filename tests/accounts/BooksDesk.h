#pragma once

#include "support/ModalScript.h"
#include "support/TestShop.h"

class ListView;

/// A shop with books on 11-Apr-2011: the clients Asha Rao (account 5) and Vikram Mehta (6), the workers Mohan (7) and
/// Mohini (8), the ledger account Rent (9), and the items Coat and Shirt.
struct BooksDesk : TestShop {
    BooksDesk();

    /// Saves a voucher as its screen does. Returns its number.
    qint32 addVoucher(const QString &kind, const QString &main, const QString &other, const QString &amount,
        QDate date = {2011, 4, 5}, const QString &remark = {});
    /// A garment that Mohan has finished, two pieces of it. Returns its number.
    int addWork(double wages, QDate date = {2011, 4, 5});
    /// A job card of Asha's as its screen saves it.
    void addCard(int number, double total, double advance, QDate date = {2011, 4, 5});
    /// Takes a card's postings out of the books.
    void cancelCard(int number);

    /// The vouchers' legs: "number|sr|kind|account|other side|amount".
    [[nodiscard]] QStringList legs();
    /// "MarkAsPaid|PayrollID" of each garment.
    [[nodiscard]] QStringList paid();
};

inline constexpr int mohan = 7;

/// The rows of a list, cells joined by "|".
[[nodiscard]] QStringList joined(const ListView &list);
/// How a cell looks: "bold red" for a warning, "bold green", or nothing.
[[nodiscard]] QString lookOf(const ListView &list, int row, int column);

/// Prints what the preview shows that comes up next, and closes it. With a name, it is what a file of it is called.
void printPreview(ModalScript &script, const QString &file = {});
