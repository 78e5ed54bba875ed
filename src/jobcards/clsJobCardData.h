#pragma once

#include <QDate>
#include <QString>

#include <vector>

/// One item row of a job card, in the order of its fields.
struct JobCardRow {
    /// Row number in the database; 0 for a row that is not there yet.
    qint16 Sr = 0;
    QString ItemName;
    qint16 ItemID = 0;
    /// Not 0 for an inventory item; the option on the screen gives -1.
    qint16 isInv = 0;
    qint16 Qty = 0;
    double Fees = 0;
    double Amount = 0;
    QString Remarks;
    QString ItemDetails;
    QString ItemDetailsValue;
    qint16 WorkerID = 0;
    QString WorkerName;
    QDate JobDelDate;
    QDate CompletedDate;
    QDate AltDate;
    QDate DelToCustDate;
    qint16 DoneByWorker = 0;
    double WorkerWagesDue = 0;
    qint16 MarkAsPaid = 0;
    QString Loc;
    QString img1;
    QString img2;
    /// The colour's number, in digits.
    QString Color;
    qint16 Score = 0;
    QString ClientFeedBack;
    QString ClientRemarks;
};

/// The item rows of the one job card that is open. Rows are addressed from 1, in the order in which they are saved.
///
/// An index above `RowCount` shows "Index Out of Bound!"; the getter then gives an empty value and the setter changes
/// nothing. Index 0 is an empty record that can be read and written. A negative index throws RuntimeError
/// (SubscriptOutOfRange).
class clsJobCardData {
public:
    clsJobCardData();

    [[nodiscard]] qint16 RowCount() const { return m_rowCount; }

    /// Throws Overflow for the 32768th row, which is then not added.
    void AddNewRow(const JobCardRow &row);
    /// Adds a copy of the record at `Index`, its row number included: the copy of a saved row stands for the same row
    /// of the database.
    void Copy(int Index);
    /// Moves the following rows one place down. Does nothing for an index above `RowCount`.
    void RemoveRow(int Index);

    [[nodiscard]] qint16 Sr(int Index) const { return get(Index, &Record::Sr); }
    [[nodiscard]] QString ItemName(int Index) const { return get(Index, &Record::ItemName); }
    [[nodiscard]] qint16 ItemID(int Index) const { return get(Index, &Record::ItemID); }
    [[nodiscard]] qint16 isInv(int Index) const { return get(Index, &Record::isInv); }
    [[nodiscard]] qint16 Qty(int Index) const { return get(Index, &Record::Qty); }
    [[nodiscard]] double Fees(int Index) const { return get(Index, &Record::Fees); }
    [[nodiscard]] double Amount(int Index) const { return get(Index, &Record::Amount); }
    [[nodiscard]] QString Remarks(int Index) const { return get(Index, &Record::Remarks); }
    [[nodiscard]] QString ItemDetails(int Index) const { return get(Index, &Record::ItemDetails); }
    [[nodiscard]] QString ItemDetailsValue(int Index) const { return get(Index, &Record::ItemDetailsValue); }
    [[nodiscard]] qint16 WorkerID(int Index) const { return get(Index, &Record::WorkerID); }
    [[nodiscard]] QString WorkerName(int Index) const { return get(Index, &Record::WorkerName); }
    [[nodiscard]] QDate JobDelDate(int Index) const { return get(Index, &Record::JobDelDate); }
    [[nodiscard]] QDate CompletedDate(int Index) const { return get(Index, &Record::CompletedDate); }
    [[nodiscard]] QDate AltDate(int Index) const { return get(Index, &Record::AltDate); }
    [[nodiscard]] QDate DelToCustDate(int Index) const { return get(Index, &Record::DelToCustDate); }
    [[nodiscard]] qint16 DoneByWorker(int Index) const { return get(Index, &Record::DoneByWorker); }
    [[nodiscard]] double WorkerWagesDue(int Index) const { return get(Index, &Record::WorkerWagesDue); }
    [[nodiscard]] qint16 MarkAsPaid(int Index) const { return get(Index, &Record::MarkAsPaid); }
    [[nodiscard]] QString Loc(int Index) const { return get(Index, &Record::Loc); }
    [[nodiscard]] QString img1(int Index) const { return get(Index, &Record::img1); }
    [[nodiscard]] QString img2(int Index) const { return get(Index, &Record::img2); }
    [[nodiscard]] QString Color(int Index) const { return get(Index, &Record::Color); }
    /// Throws TypeMismatch for the empty record of index 0, which holds no digits.
    [[nodiscard]] qint16 Score(int Index) const;
    [[nodiscard]] QString ClientFeedBack(int Index) const { return get(Index, &Record::ClientFeedBack); }
    [[nodiscard]] QString ClientRemarks(int Index) const { return get(Index, &Record::ClientRemarks); }

    void SetSr(int Index, qint16 value) { put(Index, &Record::Sr, value); }
    void SetItemName(int Index, const QString &value) { put(Index, &Record::ItemName, value); }
    void SetItemID(int Index, qint16 value) { put(Index, &Record::ItemID, value); }
    void SetisInv(int Index, qint16 value) { put(Index, &Record::isInv, value); }
    void SetQty(int Index, qint16 value) { put(Index, &Record::Qty, value); }
    void SetFees(int Index, double value) { put(Index, &Record::Fees, value); }
    void SetAmount(int Index, double value) { put(Index, &Record::Amount, value); }
    void SetRemarks(int Index, const QString &value) { put(Index, &Record::Remarks, value); }
    void SetItemDetails(int Index, const QString &value) { put(Index, &Record::ItemDetails, value); }
    void SetItemDetailsValue(int Index, const QString &value) { put(Index, &Record::ItemDetailsValue, value); }
    void SetWorkerID(int Index, qint16 value) { put(Index, &Record::WorkerID, value); }
    void SetWorkerName(int Index, const QString &value) { put(Index, &Record::WorkerName, value); }
    void SetJobDelDate(int Index, QDate value) { put(Index, &Record::JobDelDate, value); }
    void SetCompletedDate(int Index, QDate value) { put(Index, &Record::CompletedDate, value); }
    void SetAltDate(int Index, QDate value) { put(Index, &Record::AltDate, value); }
    void SetDelToCustDate(int Index, QDate value) { put(Index, &Record::DelToCustDate, value); }
    void SetDoneByWorker(int Index, qint16 value) { put(Index, &Record::DoneByWorker, value); }
    void SetWorkerWagesDue(int Index, double value) { put(Index, &Record::WorkerWagesDue, value); }
    void setMarkAsPaid(int Index, qint16 value) { put(Index, &Record::MarkAsPaid, value); }
    void SetLoc(int Index, const QString &value) { put(Index, &Record::Loc, value); }
    void SetImg1(int Index, const QString &value) { put(Index, &Record::img1, value); }
    void SetImg2(int Index, const QString &value) { put(Index, &Record::img2, value); }
    void SetColor(int Index, const QString &value) { put(Index, &Record::Color, value); }
    void SetScore(int Index, qint16 value) { put(Index, &Record::scoreDigits, QString::number(value)); }
    void SetClientFeedBack(int Index, const QString &value) { put(Index, &Record::ClientFeedBack, value); }
    void SetClientRemarks(int Index, const QString &value) { put(Index, &Record::ClientRemarks, value); }

private:
    /// The score is kept as the digits of its number; a record that was never filled has none.
    struct Record : JobCardRow {
        QString scoreDigits;
    };

    template <typename Owner, typename Field>
    [[nodiscard]] Field get(int index, Field Owner::*field) const
    {
        return inBounds(index) ? m_records[static_cast<size_t>(index)].*field : Field();
    }
    template <typename Owner, typename Field>
    void put(int index, Field Owner::*field, const Field &value)
    {
        if (inBounds(index))
            m_records[static_cast<size_t>(index)].*field = value;
    }
    [[nodiscard]] bool inBounds(int index) const;
    void append(const Record &record);

    qint16 m_rowCount = 0;
    std::vector<Record> m_records;
};
