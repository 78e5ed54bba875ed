#pragma once

#include <QDate>
#include <QMap>
#include <QString>

#include <functional>

class clsJobCardData;

/// What a save of a job card receives, whatever screen or tool collected it.
struct JobCard {
    /// The number as shown; its numeric value counts.
    QString JobIDText;
    QDate JobDate;
    QString ClientTitle;
    /// The account that took the advance; may be empty where the advance is 0.
    QString ReceiptAccountTitle;
    QDate DeliveryDate;
    QDate TrialDate;
    /// Total of the card's rows. It is what the column AmountDue holds.
    QString TotalText;
    /// The advance, kept as typed.
    QString ReceivedText;
    bool Delivered = false;
    bool Cancelled = false;
    QString Remark;
    QString CancelReason;
};

/// One open job card in the database: its number, its rows and its postings.
///
/// Each write is on the disk when a save returns. Every failure is a RuntimeError: a client or account title that
/// stands nowhere (NoCurrentRecord), a number above 32767 (Overflow, before anything is written). Nothing undoes what
/// was written before such a fault. When the disk fails, nothing of the save stands in the file, and the store and
/// `rows` are as they were before it: the same save can be tried again.
///
/// Another program may work on the same file. A save that would write over what it did fails before anything is
/// written: NumberTaken for a number that another card has got by now, NoCurrentRecord for a client, an account or the
/// item of an added row that it has renamed or deleted, RowNotFound for a card that it has deleted or changed since
/// this store opened or wrote it. What production and wages write is no change of the card.
class JobCardStore {
public:
    /// A card that was never saved.
    JobCardStore();
    /// The card saved under `jobID`. Who shows it reads it after this. Throws Overflow above 32767.
    void openSaved(int jobID);

    /// "N" while the card was never saved, "E" afterwards.
    [[nodiscard]] QString EditMode() const { return m_saved ? QStringLiteral("E") : QStringLiteral("N"); }
    [[nodiscard]] qint32 CurrentJobID() const { return m_currentJobID; }
    /// Whether a save has failed in such a way that it may stand in the file all the same.
    [[nodiscard]] bool mayStand() const { return m_mayStand; }

    /// Appends the saved rows of this card to `rows`, in their order. What concerns production and wages stays empty:
    /// no save writes it back.
    void readRows(clsJobCardData &rows);

    /// The next job number: one more than the highest, or the start number of the settings where there is no card yet.
    [[nodiscard]] static qint32 GetNewNum();

    /// Title of the account that received the advance of the card with the highest number that has one; empty where
    /// there is none.
    [[nodiscard]] static QString lastReceiptAccount();

    /// Whether a save under that number would meet another card. The card's own number is no duplicate.
    [[nodiscard]] bool isDuplicate(const QString &jobIDText) const;

    /// Writes a card for the first time: the card, its rows in order, the postings. Each of `rows` gets its row number.
    void SaveNew(const JobCard &card, clsJobCardData &rows);

    /// Rewrites a saved card. Rows with a row number are overwritten, but for all that production and wages have put
    /// there; rows without one are added and, by rule, keep the number 0 in `rows`. The postings are replaced. With
    /// more than one saved row removed since the last save the delete statement is wrong and fails (Syntax), after the
    /// card and its rows are written and before the postings are.
    void SaveEdit(const JobCard &card, clsJobCardData &rows);

    /// Deletes the card with its rows and postings, unasked and whatever became of them.
    void deleteCard();

    /// Notes that the row with that number, 0 for one never saved, was taken off the card.
    void noteRemovedRow(int rowID);
    [[nodiscard]] bool hasRemovedRows() const { return !m_removedRowIDs.isEmpty(); }
    void forgetRemovedRows() { m_removedRowIDs.clear(); }

private:
    void write(clsJobCardData &rows, const std::function<void()> &body);
    void requireMasters(const JobCard &card, const clsJobCardData &rows) const;
    void requireFreeNumber(const JobCard &card) const;
    void requireUntouched() const;
    void writeCard(const JobCard &card, bool added);
    void addRow(const JobCard &card, clsJobCardData &rows, int index, bool readNumberBack);
    void overwriteRow(const JobCard &card, const clsJobCardData &rows, int index);
    void writePostings(const JobCard &card);
    void markRowsCancelled();

    bool m_saved = false;
    bool m_mayStand = false;
    qint32 m_currentJobID = 0;
    qint16 m_oldJobID = 0;
    /// Looked up once a save: each write makes the lookups forget.
    qint32 m_clientID = 0;
    QString m_removedRowIDs;
    /// What a save writes over, as this store has found or left it in the file: the card, and its rows by their
    /// numbers; and how often another program had written by then.
    QString m_knownHead;
    QMap<qint32, QString> m_knownRows;
    quint64 m_otherWrites = 0;
};
