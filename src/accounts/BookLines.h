#pragma once

#include "ui/ListModel.h"

#include <QDate>

class Recordset;

/// The postings of a book, read one after the other into what all books show of one. REQUIRES: the recordset is open.
class BookLines {
public:
    /// `account` is the column of the account that is named: the posting's own, or the other side's.
    BookLines(const Recordset &postings, QStringView account);

    /// A line of `columns` cells with the first four of the current posting: date, number, kind and account's title.
    /// Its tag is that of the document.
    [[nodiscard]] ListRow begin(int columns);
    [[nodiscard]] double amount() const;
    [[nodiscard]] QString remark() const;

private:
    [[nodiscard]] QString particulars();

    const Recordset &m_postings;
    int m_date;
    int m_number;
    int m_kind;
    int m_particulars;
    int m_account;
    int m_amount;
    int m_remark;
    /// Thousands of lines are of some hundred days and a handful of kinds, and share their texts.
    QDate m_day;
    QString m_dayText;
    QStringList m_kinds;
};
