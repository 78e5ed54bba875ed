#include "BooksDesk.h"
#include "accounts/AccountStatement.h"
#include "accounts/frmDayBook.h"
#include "accounts/frmDueRegister.h"
#include "accounts/frmWorkerWagesRegister.h"
#include "accounts/payrolls.h"
#include "accounts/voucherKinds.h"
#include "accounts/vouchers.h"
#include "base/Currency.h"
#include "base/session.h"
#include "base/values.h"
#include "jobcards/JobCardStore.h"
#include "jobcards/clsJobCardData.h"
#include "store/codes.h"
#include "store/fileCheck.h"
#include "store/lookups.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"
#include "ui/PeriodFields.h"
#include "ui/kvComboBox.h"

#include <QAbstractButton>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;
using driver::control;

/// Whatever a shop does, its books agree with each other and with a plain count of the rows.
class SumsAgreeTest : public QObject {
    Q_OBJECT

private slots:
    void afterAnyWork();
};

namespace {

constexpr int steps = 1000;
/// Steps between two looks at all books.
constexpr int lookEvery = 50;
constexpr int workers = 2;
constexpr int accounts = 15;
constexpr int days = 30;
const QDate firstDay{2011, 4, 1};

/// A shop in which anything is done next.
class BusyShop : public BooksDesk {
public:
    explicit BusyShop(quint32 seed) : m_random(seed)
    {
        for (int i = 0; i < 6; ++i)
            addAccount(u"Client %1"_s.arg(i));
        m_titles = lines(u"Select Title from Accounts order by id"_s);
        m_clients = lines(u"Select Title from Accounts where type=0 order by id"_s);
    }

    void doAnything()
    {
        session::CurrentDate = anyDay();
        switch (below(14)) {
        case 0:
        case 1:
        case 2: return book();
        case 3: return changeCard(false);
        case 4: return changeCard(true);
        case 5: return deleteCard();
        case 6:
        case 7: return finishWork();
        case 8:
        case 9:
        case 10: return vouchers::SaveNew(anyVoucher(vouchers::GetNewNum()));
        case 11: return changeVoucher();
        case 12: return deleteVoucher();
        default: return payAWorker();
        }
    }

    /// At the working date.
    double plainBalance(int account)
    {
        return lines(u"Select sum(Amount) from Postings where status=0 and AccID=%1 and date<=#%2#"_s.arg(account).arg(
                         DayMonthYear(session::CurrentDate)))
            .first()
            .toDouble();
    }

private:
    int below(qsizetype bound) { return m_random.bounded(static_cast<int>(bound)); }
    QDate anyDay() { return firstDay.addDays(below(days)); }
    QString anyAmount(int bound) { return Money(1 + below(bound) / 4.0); }
    /// The number that a row of a statement begins with; none where there is no row.
    int any(const QString &statement)
    {
        const QStringList rows = lines(statement);
        return rows.isEmpty() ? 0 : rows.at(below(rows.size())).section(u'|', 0, 0).toInt();
    }

    /// The card that `rows` are of.
    JobCard anyCard(int number, const clsJobCardData &rows)
    {
        Currency total;
        for (int row = 1; row <= rows.RowCount(); ++row)
            total += Currency::fromDouble(rows.Amount(row));
        JobCard card = BooksDesk::card(number, total.toDouble(), below(2) * (1 + below(500)) / 4.0, anyDay());
        card.ClientTitle = m_clients.at(below(m_clients.size()));
        return card;
    }
    void book()
    {
        clsJobCardData rows;
        for (int count = 1 + below(3); count > 0; --count) {
            JobCardRow row;
            row.ItemName = u"Coat"_s;
            row.ItemID = static_cast<qint16>(1 + below(2));
            row.Qty = 1;
            row.Fees = row.Amount = below(9) == 0 ? 0 : 1 + below(9000) / 4.0;
            rows.AddNewRow(row);
        }
        JobCardStore().SaveNew(anyCard(JobCardStore::GetNewNum(), rows), rows);
    }
    void changeCard(bool cancelled)
    {
        const int number = any(u"Select Id from Jobs"_s);
        if (number == 0)
            return;
        JobCardStore store;
        store.openSaved(number);
        clsJobCardData rows;
        store.readRows(rows);
        JobCard card = anyCard(number, rows);
        card.Cancelled = cancelled;
        store.SaveEdit(card, rows);
    }
    void deleteCard()
    {
        const int number = any(u"Select Id from Jobs"_s);
        if (number == 0)
            return;
        JobCardStore store;
        store.openSaved(number);
        store.deleteCard();
    }
    void finishWork()
    {
        connection.execute(
            u"Update Jobs_Detail set WorkerID=%1, DoneByWorker=1, WorkerWagesDue=%2 where MarkAsPaid=0 and id=%3"_s
                .arg(mohan + below(workers))
                .arg(anyAmount(900))
                .arg(any(u"Select id from Jobs_Detail where MarkAsPaid=0"_s)));
    }
    vouchers::Voucher anyVoucher(qint32 number)
    {
        const int main = below(m_titles.size());
        const int other = (main + 1 + below(m_titles.size() - 1)) % static_cast<int>(m_titles.size());
        const QStringList kinds = voucherKinds::names();
        return {.number = number,
            .kind = kinds.at(below(kinds.size())),
            .date = anyDay(),
            .mainAccount = m_titles.at(main),
            .otherAccount = m_titles.at(other),
            .remark = u"Remark %1"_s.arg(below(50)),
            .amount = anyAmount(4000)};
    }
    void changeVoucher()
    {
        if (const int number = any(u"Select VID from Postings where vtype=2 and sr=1"_s))
            vouchers::SaveEdit(anyVoucher(number));
    }
    void deleteVoucher()
    {
        if (const int number = any(u"Select VID from Postings where vtype=2 and sr=1"_s))
            vouchers::remove(number, vouchers::read(number)->isPayroll);
    }
    void payAWorker()
    {
        const qint32 worker = mohan + below(workers);
        payrolls::Payroll payroll{.worker = GetAccountTitle(worker), .from = firstDay, .to = firstDay.addDays(days)};
        const QStringList rows = lines(
            u"Select id, WorkerWagesDue from Jobs_Detail where MarkAsPaid=0 and DoneByWorker>0 and WorkerID=%1 order by date,id"_s
                .arg(worker));
        for (const QString &row : rows) {
            payroll.rowIDs.push_back(row.section(u'|', 0, 0).toInt());
            payroll.amount = row.section(u'|', 1).toDouble();
        }
        if (!rows.isEmpty())
            static_cast<void>(payrolls::create(payroll));
    }

    QRandomGenerator m_random;
    QStringList m_titles;
    QStringList m_clients;
};

/// A posting as it stands in the file.
struct Posting {
    int id, number, kind, serial, account, otherSide;
    QDate date;
    QString particulars, remark;
    Currency amount;
    bool isLive, isPayroll;
};

/// The journal read plainly.
struct Journal {
    explicit Journal(BooksDesk &desk)
    {
        Recordset rows(desk.connection);
        rows.open(u"Select * from Postings order by id"_s);
        for (; !rows.eof(); rows.moveNext())
            postings.push_back({rows.integer(u"id"), rows.integer(u"VID"), rows.integer(u"Vtype"), rows.integer(u"sr"),
                rows.integer(u"AccID"), rows.integer(u"RefID"), rows.date(u"Date"), rows.text(u"particulars"),
                rows.text(u"Remark"), rows.value(u"Amount").toCurrency(), rows.integer(u"Status") == 0,
                rows.integer(u"isPayroll") > 0});
        std::ranges::stable_sort(postings, {}, [](const Posting &row) { return std::pair(row.date, row.number); });
        rows.reopen(u"Select Id, Title from Accounts"_s);
        for (; !rows.eof(); rows.moveNext())
            titles[rows.value(0).toInt()] = rows.value(1).toText();
    }

    [[nodiscard]] Currency sum(const std::function<bool(const Posting &)> &counts) const
    {
        Currency sum;
        for (const Posting &row : postings) {
            if (counts(row))
                sum += row.amount;
        }
        return sum;
    }
    [[nodiscard]] Currency balance(int account, QDate day) const
    {
        return sum([&](const Posting &row) { return row.isLive && row.account == account && row.date <= day; });
    }

    std::vector<Posting> postings;
    std::map<int, QString> titles;
};

QString money(Currency amount)
{
    return Money(amount.toDouble());
}

/// A line with its amount on its side.
QString line(const QString &head, Currency amount, const QString &tail, bool isBalance = false)
{
    const Currency none;
    const QString debit = amount < none ? money(-amount) : u" "_s;
    const QString credit = amount < none || (isBalance && amount == none) ? u" "_s : money(amount);
    return head + u'|' + debit + u'|' + credit + u'|' + tail;
}

QStringList statementOf(const Journal &journal, int account, QDate from, QDate to)
{
    QStringList lines;
    const QString blanks = u" | | |"_s;
    const Currency before = journal.balance(account, from.addDays(-1));
    if (before != Currency())
        lines += line(blanks + u"Balance B/F "_s, before, u" "_s);
    Currency debits;
    Currency credits;
    for (const Posting &row : journal.postings) {
        if (!row.isLive || row.account != account || row.date < from || row.date > to)
            continue;
        (row.amount < Currency() ? debits : credits) += row.amount;
        lines += line(DayMonthYear(row.date) + u'|' + QString::number(row.number) + u'|' + row.particulars + u'|'
                + journal.titles.at(row.otherSide),
            row.amount, row.remark);
    }
    lines += blanks + u"Current Total |"_s + money(-debits) + u'|' + money(credits) + u"| "_s;
    lines += line(blanks + u"Balance C/F "_s, journal.balance(account, to), u" "_s, true);
    return lines;
}

QStringList joined(const std::vector<ListRow> &rows)
{
    QStringList lines;
    for (const ListRow &row : rows)
        lines += row.cells.join(u'|');
    return lines;
}

void lookAtStatements(const Journal &journal, int seedOfDays)
{
    const QDate middle = firstDay.addDays(seedOfDays % days);
    for (const auto &[account, title] : journal.titles) {
        const auto first = AccountStatement::of(account, firstDay, middle);
        const auto second = AccountStatement::of(account, middle.addDays(1), firstDay.addDays(days));
        QCOMPARE(joined(first.rows), statementOf(journal, account, firstDay, middle));
        QCOMPARE(joined(second.rows), statementOf(journal, account, middle.addDays(1), firstDay.addDays(days)));
        QCOMPARE(first.ClosingBalance, second.OpeningBalance);
        QCOMPARE(Currency::fromDouble(second.ClosingBalance),
            Currency::fromDouble(second.OpeningBalance) + Currency::fromDouble(second.PeriodCredits)
                + Currency::fromDouble(second.PeriodDebits));
    }
}

void lookAtDues(const Journal &journal, BooksDesk &desk)
{
    QStringList owed;
    for (const QString &client : desk.lines(u"Select ID, Title from Accounts where type=0 order by Title"_s)) {
        const Currency balance = journal.balance(client.section(u'|', 0, 0).toInt(), session::CurrentDate);
        if (balance < Currency())
            owed += client.section(u'|', 1) + u'|' + money(-balance);
    }
    frmDueRegister dues;
    dues.ExcuteSQl();
    QCOMPARE(joined(control<ListView>(dues, "lvSummary").list().rows()), owed);
}

void lookAtTheDayBook(const Journal &journal)
{
    QStringList documents;
    for (const Posting &row : journal.postings) {
        if (row.isLive && row.serial == 1)
            documents += QStringList{DayMonthYear(row.date), QString::number(row.number), row.particulars,
                journal.titles.at(row.account), money(row.amount < Currency() ? -row.amount : row.amount), row.remark}
                             .join(u'|');
    }
    documents += u" | | |Total Vouchers : %1| | "_s.arg(documents.size());
    frmDayBook book;
    book.findChild<PeriodFields *>()->set(firstDay, firstDay.addDays(days));
    book.ExecuteSQL();
    QCOMPARE(joined(control<ListView>(book, "lvSummary").list().rows()), documents);
}

void lookAtVouchers(const Journal &journal)
{
    for (const Posting &leg : journal.postings) {
        if (leg.kind != documentKind::Voucher || leg.serial != 1)
            continue;
        const auto stored = vouchers::read(leg.number);
        QVERIFY(stored && stored->isPayroll == leg.isPayroll);
        QCOMPARE(Currency::fromDouble(stored->amount), leg.amount);
        QCOMPARE(stored->voucher.date, leg.date);
        QCOMPARE(stored->voucher.mainAccount, journal.titles.at(leg.account));
        QCOMPARE(stored->voucher.remark, leg.remark);
    }
}

/// The register's running balance, and that garments are paid by payrolls that are in the journal.
void lookAtWages(const Journal &journal, BooksDesk &desk)
{
    frmWorkerWagesRegister screen;
    screen.findChild<PeriodFields *>()->set(firstDay, firstDay.addDays(days));
    control<QAbstractButton>(screen, "op3").click();
    for (int worker = mohan; worker < mohan + workers; ++worker) {
        Currency balance;
        QStringList due;
        const QStringList rows = desk.lines(
            u"Select WorkerWagesDue from Jobs_Detail where MarkAsPaid=0 and DoneByWorker>0 and WorkerID=%1 order by date,id"_s
                .arg(worker));
        for (const QString &wages : rows) {
            balance += Currency::fromDouble(wages.toDouble());
            due += Money(wages.toDouble()) + u' ' + money(balance);
        }
        control<kvComboBox>(screen, "cmbClient").setText(journal.titles.at(worker));
        screen.ExecuteSQL();
        QStringList listed;
        for (const ListRow &row : control<ListView>(screen, "lvSummary").list().rows())
            listed += row.cells.at(5) + u' ' + row.cells.at(6);
        QCOMPARE(listed, due);
    }
    const QStringList paid = desk.lines(u"Select PayrollID, MarkAsPaid from Jobs_Detail where PayrollID<>0"_s);
    for (const QString &row : paid) {
        QVERIFY(row.endsWith(u"|1"_s));
        const int number = row.section(u'|', 0, 0).toInt();
        QCOMPARE(std::ranges::count_if(journal.postings,
                     [number](const Posting &leg) { return leg.isPayroll && leg.number == number && leg.kind == 2; }),
            2);
    }
    QCOMPARE(desk.lines(u"Select id from Jobs_Detail where PayrollID=0 and MarkAsPaid<>0"_s), QStringList());
}

void lookAfterAnyWork(quint32 seed)
{
    BusyShop shop(seed);
    for (int done = 0; done < steps; done += lookEvery) {
        // So that the disk is waited for now and then alone.
        WriteGroup::run(shop.connection, [&shop] {
            for (int step = 0; step < lookEvery; ++step) {
                shop.doAnything();
                QCOMPARE(shop.lines(u"Select sum(Amount) from Postings"_s).first().toDouble(), 0.0);
                QCOMPARE(shop.lines(u"Select sum(Amount) from Postings where status=0"_s).first().toDouble(), 0.0);
                const int account = 1 + step % accounts;
                QCOMPARE(GetAccountBalance(account, session::CurrentDate), shop.plainBalance(account));
            }
        });
        const Journal journal(shop);
        lookAtStatements(journal, done / lookEvery + static_cast<int>(seed));
        lookAtDues(journal, shop);
        lookAtTheDayBook(journal);
        lookAtVouchers(journal);
        lookAtWages(journal, shop);
        if (QTest::currentTestFailed())
            return;
    }
    QCOMPARE(fileCheck::agreement(shop.connection).differences, QStringList());
    QVERIFY(shop.legs().size() > steps / 5);
    QVERIFY(!shop.lines(u"Select id from Jobs_Detail where PayrollID<>0"_s).isEmpty());
}

} // namespace

void SumsAgreeTest::afterAnyWork()
{
    for (const quint32 seed : {1U, 2U, 3U}) {
        lookAfterAnyWork(seed);
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(u"seed %1"_s.arg(seed)));
    }
}

CORVANE_TEST(SumsAgreeTest)
#include "tst_sumsAgree.moc"
