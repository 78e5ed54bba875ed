#include "BooksDesk.h"
#include "accounts/frmAccountBook.h"
#include "accounts/frmPayrollDetails.h"
#include "accounts/frmWorkerWagesRegister.h"
#include "base/values.h"
#include "support/PdfPrinter.h"
#include "support/pdfText.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"

#include <QRandomGenerator>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The sheets of the books, read back from paper and compared with the lists that they are of.
class BooksOnPaperTest : public QObject {
    Q_OBJECT

private slots:
    void theStatementIsTheListRowByRow();
    void theLastFillPrintsUnderThePresentTitle();
    void longTextsGoOnInFurtherLines();
    void theWagesRegisterIsTheListRowByRow();
    void payrollDetailsPrintLikeIt();
};

namespace {

constexpr int lineCount = 130;

/// What stands on a page: its lines, blanks put together.
struct Page {
    explicit Page(const QString &text)
    {
        const QStringList all = text.split(u'\n');
        for (const QString &line : all) {
            if (QString shown = line.simplified(); !shown.isEmpty())
                // What else parts them is a hair wide.
                lines += shown.replace(u"1/1"_s, u"1 / 1"_s);
        }
    }
    /// The lines between the heads of the columns and the foot.
    [[nodiscard]] QStringList rows(const QString &heads, const QString &foot) const
    {
        const qsizetype begin = lines.indexOf(heads) + 1;
        qsizetype end = begin;
        while (end < lines.size() && !lines.at(end).startsWith(foot))
            ++end;
        return begin > 0 && end < lines.size() ? lines.sliced(begin, end - begin) : QStringList{u"no such page"_s};
    }

    QStringList lines;
};

struct PaperDesk : BooksDesk {
    /// All that the sheet says, page by page.
    [[nodiscard]] std::vector<Page> pages() const
    {
        std::vector<Page> pages;
        const QStringList texts = pdfText(paper);
        for (const QString &text : texts)
            pages.emplace_back(text);
        return pages;
    }

    QString paper = folder.filePath(u"paper.pdf"_s);
    PdfPrinter printer{paper};
};

void viewAsha(frmAccountBook &book)
{
    QVERIFY(driver::show(book));
    type(u"as"_s);
    press(Qt::Key_Return);
}

void printStatement(Qt::Key withRemark, const QString &file = {})
{
    ModalScript script;
    script.expectMessage(u"Print Account Statement with Remark?"_s, withRemark);
    printPreview(script, file);
    accessKey('p');
    QVERIFY(script.isDone());
}

QString amountOf(const QString &cell)
{
    return Money(Val(cell));
}

QString dateAs(const QString &cell, const QString &form)
{
    return QLocale::c().toString(ParseDate(cell), form);
}

} // namespace

void BooksOnPaperTest::theStatementIsTheListRowByRow()
{
    QRandomGenerator random(1);
    PaperDesk desk;
    const QStringList kinds{u"Payment"_s, u"Purchase"_s, u"Receipt"_s, u"Sales"_s, u"Wages"_s};
    const QStringList others{u"Cash"_s, u"Sales"_s, u"Rent"_s, u"Mohan"_s};
    WriteGroup::run(desk.connection, [&] {
        for (int i = 0; i < lineCount; ++i) {
            const auto pick = [&random](const QStringList &from) { return from.at(random.bounded(from.size())); };
            // Some before the period, and some behind it.
            const QDate date = QDate(2011, 3, 25).addDays(random.bounded(45));
            const QString remark = random.bounded(2) ? u"Bill no. %1"_s.arg(random.bounded(100)) : QString();
            if (i % 10 == 0)
                desk.addCard(i + 1, random.bounded(3) * 500.5, 0, date);
            else
                desk.addVoucher(pick(kinds), u"Asha Rao"_s, pick(others), Money(random.bounded(1, 9'000'000) / 100.0),
                    date, remark);
        }
    });
    frmAccountBook book;
    viewAsha(book);
    for (const bool withRemark : {false, true}) {
        printStatement(withRemark ? Qt::Key_Return : Qt::Key_Escape);
        QStringList listed;
        const auto &list = control<ListView>(book, "lvSummary").list();
        for (const ListRow &row : list.rows()) {
            if (!row.hasTag())
                continue;
            QStringList cells = row.cells;
            cells[4] = amountOf(cells.at(4));
            cells[5] = amountOf(cells.at(5));
            cells[0] = dateAs(cells.at(0), u"dd-MMM-yy"_s);
            listed += cells.mid(0, withRemark ? 7 : 6).join(u' ').simplified();
        }
        QVERIFY(listed.size() > lineCount / 2);
        QStringList printed;
        const std::vector<Page> pages = desk.pages();
        QVERIFY(pages.size() > 2);
        const QString heads = u"Date VC # Voucher Particulars Debit Credit"_s + (withRemark ? u" Remark"_s : QString());
        const ListRow &total = list.at(list.rowCount() - 2);
        for (size_t i = 0; i < pages.size(); ++i) {
            printed += pages[i].rows(heads, u"Current Total"_s);
            QVERIFY(pages[i].lines.contains(u"Account : Asha Rao"_s));
            QCOMPARE(pages[i].lines.sliced(pages[i].lines.size() - 2),
                (QStringList{u"Current Total %1 %2"_s.arg(total.cells.at(4), total.cells.at(5)),
                    u"Page %1 of %2"_s.arg(i + 1).arg(pages.size())}));
        }
        QCOMPARE(printed, listed);
        QCOMPARE(
            pages.front().lines.mid(0, 3), (QStringList{u"Kovrel Tailors"_s, u"12, Station Road"_s, u"Phone 2221"_s}));
    }
}

void BooksOnPaperTest::theLastFillPrintsUnderThePresentTitle()
{
    PaperDesk desk;
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, u"Cash"_s, u"1250.5"_s, {2011, 3, 1});
    desk.addVoucher(u"Payment"_s, u"Asha Rao"_s, u"Cash"_s, u"1500"_s);
    frmAccountBook book;
    viewAsha(book);
    accessKey('c');
    type(u"vik"_s);
    accessKey('t');
    type(u"3/5/2011"_s);
    printStatement(Qt::Key_Escape, u"Account Statement Vikram Mehta 01-Apr-2011 to 03-May-2011.pdf"_s);
    const QString text = desk.printer.printed().join(u' ');
    QVERIFY2(text.contains(u"Account : Vikram Mehta Report Period : 01-Apr-2011 To 03-May-2011 Opening Balance : "
                           "1250.5 Cr. Closing Balance : 249.5 Dr."_s),
        qPrintable(text));
    QVERIFY(text.contains(u"05-Apr-11 2 Payment Cash 1500.00 0.00"_s));
}

void BooksOnPaperTest::longTextsGoOnInFurtherLines()
{
    PaperDesk desk;
    const QString title = u"O'Neill 100% [Wool_Silk] & Daughters "_s.repeated(4).left(140).trimmed();
    const QString remark = u"To be paid by cheque within a week of the delivery\r\nand not later"_s;
    desk.addAccount(title);
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, title, u"10"_s, {2011, 4, 5}, remark);
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, title, u"20"_s, {2011, 4, 6}, u"Short"_s);
    frmAccountBook book;
    viewAsha(book);
    QCOMPARE(control<ListView>(book, "lvSummary").list().cell(0, 3), title);
    printStatement(Qt::Key_Return);
    const QStringList rows =
        desk.pages().front().rows(u"Date VC # Voucher Particulars Debit Credit Remark"_s, u"Current Total"_s);
    const QString text = rows.join(u' ');
    QCOMPARE(text.count(u"O'Neill"_s), 8);
    for (const QString &word : remark.simplified().split(u' '))
        QVERIFY2(text.contains(word), qPrintable(word));
    QVERIFY(rows.filter(u"06-Apr-11 2 Receipt"_s).first().endsWith(u"0.00 20.00 Short"_s));
}

void BooksOnPaperTest::theWagesRegisterIsTheListRowByRow()
{
    PaperDesk desk;
    constexpr int garments = 90;
    WriteGroup::run(desk.connection, [&desk] {
        for (int i = 0; i < garments; ++i)
            desk.addWork(i * 12.25, QDate(2011, 4, 1).addDays(i / 4));
    });
    desk.connection.execute(u"Update Jobs_Detail set MarkAsPaid=1, CompletedDate=null where id=50"_s);
    frmWorkerWagesRegister screen;
    QVERIFY(driver::show(screen));
    accessKey('w');
    type(u"mohan"_s);
    press(Qt::Key_Return);
    ModalScript script;
    printPreview(script, u"Wages Register Mohan 01-Apr-2011 to 01-May-2011.pdf"_s);
    accessKey('p');
    QStringList listed;
    for (const ListRow &row : control<ListView>(screen, "lvSummary").list().rows())
        listed += QStringList{dateAs(row.cells.at(0), u"d-MMM-yy"_s), row.cells.at(1), row.cells.at(2),
            row.cells.at(3) + u" x "_s + row.cells.at(4), row.cells.at(5), row.cells.at(6), row.cells.at(7),
            row.cells.at(8)}
                      .join(u' ')
                      .simplified();
    QStringList printed;
    const std::vector<Page> pages = desk.pages();
    QVERIFY(pages.size() > 1);
    for (const Page &page : pages) {
        printed += page.rows(u"Date JOB ID Client Name Item Amount Balance Completed Date Paid Unpaid"_s, u"Page "_s);
        QVERIFY(page.lines.contains(u"Worker Name : Mohan"_s));
    }
    QCOMPARE(printed.size(), garments);
    QCOMPARE(printed, listed);
    QCOMPARE(desk.printer.title(), u"Wages Register"_s);
}

void BooksOnPaperTest::payrollDetailsPrintLikeIt()
{
    PaperDesk desk;
    for (const double wages : {100, 50})
        desk.addWork(wages);
    desk.connection.execute(u"Update Jobs_Detail set MarkAsPaid=1, PayrollID=5"_s);
    ModalScript script;
    script.expect(u"frmPayrollDetails"_s, [&script](QWidget &) {
        printPreview(script, u"Payroll 5 Mohan Lal.pdf"_s);
        accessKey('p');
        press(Qt::Key_Escape);
    });
    frmPayrollDetails().ExecuteSQL(u"Mohan Lal"_s, 5);
    const Page page = desk.pages().front();
    QVERIFY(page.lines.contains(u"Worker Name : Mohan Lal"_s));
    QVERIFY(page.lines.contains(u"5-Apr-11 1 / 1 Asha Rao 2 x Coat 50.00 150.00 08-Apr-2011 Paid"_s));
}

CORVANE_TEST(BooksOnPaperTest)
#include "tst_booksOnPaper.moc"
