#include "accounts/frmTransiction.h"

#include "BooksDesk.h"
#include "accounts/payrolls.h"
#include "accounts/vouchers.h"
#include "base/session.h"
#include "store/settings.h"
#include "support/PdfPrinter.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// One voucher, from the keys to its two legs.
class TransictionTest : public QObject {
    Q_OBJECT

private slots:
    void aVoucherIsTypedAndPosted();
    void eachKindHasItsSides();
    void whatIsMissingIsToldInOrder();
    void anyAmountEndsWell();
    void theNumberIsTheHighestPlusOne();
    void anotherKindTurnsTheVoucherOver();
    void aPayrollIsUndoneAfterTwoQuestions();
    void aChangedPayrollKeepsItsGarments();
    void whatIsGoneMeanwhileIsToldAndNothingWritten();
    void aDeletedAccountIsTold();
    void itPrintsWhatIsStored();
};

namespace {

using Work = std::function<void(QWidget &, ModalScript &)>;

/// Runs `work` on the voucher that `show` shows and leaves by Escape, unless `work` has closed it. Returns what the
/// caller is told.
bool on(const std::function<void(bool &)> &show, const Work &work)
{
    ModalScript script;
    script.expect(u"frmTransiction"_s, [&](QWidget &screen) {
        work(screen, script);
        // The first one may close an open list.
        while (screen.isVisible())
            press(Qt::Key_Escape);
    });
    bool changed = true;
    show(changed);
    return changed;
}

/// A new one of Asha's.
bool onNew(const Work &work)
{
    return on([](bool &changed) { frmTransiction().ShowAddNew(u"Asha Rao"_s, changed); }, work);
}

bool onVoucher(qint32 number, const Work &work)
{
    return on([number](bool &changed) { frmTransiction().ShowEdit(number, changed); }, work);
}

void fill(const QString &kind, const QString &other, const QString &amount)
{
    accessKey('v');
    type(kind);
    press(Qt::Key_Return);
    type(other);
    press(Qt::Key_Return);
    type(amount);
}

void saves(ModalScript &script, const QString &message)
{
    script.expectMessage(message);
    accessKey('s');
    QVERIFY(script.isDone());
}

QString sides(const QWidget &screen)
{
    QStringList words;
    for (const char *name : {"lblMain", "lblMainType", "lblRef", "lblRefType"})
        words += control<QLabel>(screen, name).text();
    return words.join(u' ');
}

QString amounts(const QWidget &screen)
{
    return control<kvTextBox>(screen, "txtAmount").Text() + u' ' + control<kvTextBox>(screen, "txtAmount2").Text();
}

} // namespace

void TransictionTest::aVoucherIsTypedAndPosted()
{
    BooksDesk desk;
    session::NeedRefresh = false;
    const bool changed = onNew([&desk](QWidget &screen, ModalScript &script) {
        QCOMPARE(screen.windowTitle(), u"Add New Entry"_s);
        QCOMPARE(control<kvTextBox>(screen, "txtVID").Text(), u"1"_s);
        QCOMPARE(amounts(screen), u"0.00 0.00"_s);
        QCOMPARE(sides(screen).trimmed(), QString());
        const auto &kinds = control<kvComboBox>(screen, "cmbParticulars");
        QVERIFY(kinds.hasFocus());
        QCOMPARE(driver::entries(kinds).join(u' '), u"Payment Purchase Receipt Sales Wages"_s);
        QCOMPARE(driver::entries(control<kvComboBox>(screen, "cmbRefAcc")).size(), 9);
        // Nothing is stored that could be deleted or printed.
        accessKey('d');
        accessKey('p');
        type(u"r"_s);
        press(Qt::Key_Return);
        QCOMPARE(sides(screen), u"To Cr By Dr"_s);
        QTRY_VERIFY(QApplication::activePopupWidget());
        type(u"ca"_s);
        press(Qt::Key_Return);
        type(u"500.5"_s);
        QCOMPARE(control<kvTextBox>(screen, "txtAmount2").Text(), u"500.50"_s);
        press(Qt::Key_Return);
        type(u"Order's rest"_s);
        saves(script, u"New Entry saved."_s);
        QCOMPARE(desk.legs(), (QStringList{u"1|1|Receipt|5|4|500.5"_s, u"1|2|Receipt|4|5|-500.5"_s}));
        QCOMPARE(screen.windowTitle(), u"Edit Entry"_s);
        // The same voucher again.
        accessKey('t');
        type(u"9/4"_s);
        saves(script, u"Entry Updated."_s);
    });
    QVERIFY(changed);
    QVERIFY(session::NeedRefresh);
    const QStringList stored{u"2|1|09-Apr-2011|Order's rest|0|0"_s, u"2|2|09-Apr-2011|Order's rest|0|0"_s};
    QCOMPARE(desk.lines(u"Select Vtype, sr, Date, Remark, Status, isPayroll from Postings order by id"_s), stored);
}

void TransictionTest::eachKindHasItsSides()
{
    BooksDesk desk;
    const QString credit = u"To Cr By Dr"_s;
    const QString debit = u"By Dr To Cr"_s;
    QStringList posted;
    for (const QString &kind : {u"Receipt"_s, u"Payment"_s, u"Sales"_s, u"Purchase"_s, u"Wages"_s}) {
        const QString &shown = kind == u"Payment"_s || kind == u"Sales"_s ? debit : credit;
        onNew([&](QWidget &screen, ModalScript &script) {
            fill(kind.left(3), u"rent"_s, u"70"_s);
            QCOMPARE(sides(screen), shown);
            saves(script, u"New Entry saved."_s);
        });
        const QString leg = QString::number(vouchers::GetNewNum() - 1) + u"|%1|"_s + kind;
        posted += leg.arg(1) + u"|5|9|"_s + (shown == credit ? u"70"_s : u"-70"_s);
        posted += leg.arg(2) + u"|9|5|"_s + (shown == credit ? u"-70"_s : u"70"_s);
    }
    QCOMPARE(desk.legs(), posted);
}

void TransictionTest::whatIsMissingIsToldInOrder()
{
    BooksDesk desk;
    const bool changed = onNew([](QWidget &screen, ModalScript &script) {
        const auto isRefused = [&](const QString &message, const char *field) {
            saves(script, message);
            QVERIFY2(control<QWidget>(screen, field).hasFocus(), field);
        };
        isRefused(u"Please select voucher!"_s, "cmbParticulars");
        // The check itself completes what was typed.
        type(u"p"_s);
        isRefused(u"Please Select Account!"_s, "cmbRefAcc");
        QCOMPARE(control<kvComboBox>(screen, "cmbParticulars").Text(), u"Payment"_s);
        type(u"c"_s);
        isRefused(u"Please enter amount!"_s, "txtAmount");
        type(u"50"_s);
        control<QWidget>(screen, "cmbRefAcc").setFocus();
        type(u"as"_s);
        saves(script, u"Please Check accounts!"_s);
        accessKey('t');
        type(u"31/2"_s);
        saves(script, u"\"31/2\" is not a date!"_s);
        press(Qt::Key_Escape);
        QVERIFY(screen.isVisible());
    });
    QVERIFY(!changed);
    QCOMPARE(desk.count(u"Postings"_s), 0);
}

void TransictionTest::anyAmountEndsWell()
{
    const QString none = u"Please enter amount!"_s;
    const QString high = u"Amount is too high!"_s;
    const QString saved = u"New Entry saved."_s;
    struct Amount {
        QString pasted;
        QString told;
        QString posted = {};
    };
    for (const auto &[pasted, told, posted] :
        {Amount{u"0"_s, none}, Amount{u""_s, none}, Amount{u"."_s, none}, Amount{u"0.004"_s, none},
            Amount{u"-5"_s, none}, Amount{u".5"_s, saved, u"0.5"_s}, Amount{u"12.345"_s, saved, u"12.35"_s},
            // As high as a bill gets, and above.
            Amount{u"1,000,000,000"_s, saved, u"1000000000"_s}, Amount{u"1000000000.01"_s, high}}) {
        BooksDesk desk;
        onNew([&saved, pasted = pasted, told = told](QWidget &screen, ModalScript &script) {
            fill(u"pay"_s, u"cash"_s, u""_s);
            press(Qt::Key_Delete);
            driver::paste(pasted);
            saves(script, told);
            QVERIFY(told == saved || control<QWidget>(screen, "txtAmount").hasFocus());
        });
        QCOMPARE(desk.lines(u"Select Amount from Postings order by id"_s),
            told == saved ? QStringList({u'-' + posted, posted}) : QStringList());
    }
}

void TransictionTest::theNumberIsTheHighestPlusOne()
{
    BooksDesk desk;
    desk.addCard(40, 10, 0);
    for (int i = 0; i < 3; ++i)
        desk.addVoucher(u"Receipt"_s, u"Cash"_s, u"Rent"_s, u"5"_s);
    QCOMPARE(vouchers::GetNewNum(), 4);
    vouchers::remove(2, false);
    QCOMPARE(vouchers::GetNewNum(), 4);
    vouchers::remove(3, false);
    QCOMPARE(vouchers::GetNewNum(), 2);
    // It isn't tested again when it is saved: what another one has saved under it meanwhile acts as one with it.
    onNew([&desk](QWidget &, ModalScript &script) {
        desk.addVoucher(u"Receipt"_s, u"Cash"_s, u"Rent"_s, u"6"_s);
        fill(u"rec"_s, u"cash"_s, u"7"_s);
        saves(script, u"New Entry saved."_s);
    });
    QCOMPARE(desk.lines(u"Select Amount from Postings where vid=2 order by id"_s).join(u' '), u"6 -6 7 -7"_s);
    vouchers::remove(2, false);
    QCOMPARE(desk.legs().size(), 2);
    QCOMPARE(desk.lines(u"Select * from Postings where vtype=1"_s).size(), 2);
}

void TransictionTest::anotherKindTurnsTheVoucherOver()
{
    BooksDesk desk;
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, u"Cash"_s, u"12.5"_s);
    desk.addVoucher(u"Receipt"_s, u"Vikram Mehta"_s, u"Cash"_s, u"9"_s);
    const QStringList before = desk.legs();
    QVERIFY(!onVoucher(1, [](QWidget &screen, ModalScript &) {
        // Both sides read so until a kind is chosen.
        QCOMPARE(sides(screen), u"To Cr By Cr"_s);
        QCOMPARE(amounts(screen), u"12.50 12.50"_s);
        type(u"pay\r"_s);
    }));
    QCOMPARE(desk.legs(), before);
    QVERIFY(onVoucher(1, [](QWidget &screen, ModalScript &script) {
        type(u"pay"_s);
        saves(script, u"Entry Updated."_s);
        QCOMPARE(sides(screen), u"By Dr To Cr"_s);
    }));
    QCOMPARE(desk.legs(), (QStringList{u"1|1|Payment|5|4|-12.5"_s, u"1|2|Payment|4|5|12.5"_s} + before.sliced(2)));
}

void TransictionTest::aPayrollIsUndoneAfterTwoQuestions()
{
    BooksDesk desk;
    for (const double wages : {100, 50, 20})
        desk.addWork(wages);
    desk.connection.execute(u"Update Jobs_Detail set MarkAsPaid=1, PayrollID=9 where id=3"_s);
    desk.addCard(1, 900, 0);
    payrolls::create({.worker = u"Mohan"_s, .rowIDs = {1, 2}, .amount = 50});
    const QStringList before = desk.legs() + desk.paid();
    const auto answered = [](const QList<Qt::Key> &answers) {
        return onVoucher(1, [&answers](QWidget &screen, ModalScript &script) {
            script.expectMessage(u"Are you sure to delete entry?"_s, answers.first());
            if (answers.size() > 1)
                script.expectMessage(
                    u"You are going to delete a payroll?\r\nThis action will reset all jobs as unpaid?\r\n"
                    "Press Yes to Delete!"_s,
                    answers.last());
            // Its access key is that of "Payroll Details", too.
            control<Command>(screen, "cmdDelete").trigger();
            QVERIFY(script.isDone());
        });
    };
    QVERIFY(!answered({Qt::Key_Escape}));
    QVERIFY(!answered({Qt::Key_Return, Qt::Key_Escape}));
    QCOMPARE(desk.legs() + desk.paid(), before);
    QVERIFY(answered({Qt::Key_Return, Qt::Key_Return}));
    QCOMPARE(desk.legs() + desk.paid(), (QStringList{u"0|0"_s, u"0|0"_s, u"1|9"_s, u"0|0"_s}));
    // The job card of that number stays.
    QCOMPARE(desk.count(u"Postings"_s), 2);
}

void TransictionTest::aChangedPayrollKeepsItsGarments()
{
    BooksDesk desk;
    desk.addWork(100);
    payrolls::create({.worker = u"Mohan"_s, .rowIDs = {1}, .amount = 100});
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, u"Cash"_s, u"5"_s);
    onVoucher(2, [](QWidget &screen, ModalScript &) { QVERIFY(!control<QWidget>(screen, "cmdDetails").isVisible()); });
    onVoucher(1, [](QWidget &screen, ModalScript &script) {
        QVERIFY(control<QWidget>(screen, "cmdDetails").isVisible());
        accessKey('m');
        type(u"80"_s);
        saves(script, u"Entry Updated."_s);
        script.expect(u"frmPayrollDetails"_s, [](QWidget &) { press(Qt::Key_Escape); });
        control<Command>(screen, "cmdDetails").trigger();
        QVERIFY(script.isDone());
    });
    QCOMPARE(desk.lines(u"Select AccID, Amount, isPayroll from Postings where vid=1 order by id"_s),
        (QStringList{u"7|80|1"_s, u"1|-80|1"_s}));
    QCOMPARE(desk.paid(), QStringList{u"1|1"_s});
}

void TransictionTest::whatIsGoneMeanwhileIsToldAndNothingWritten()
{
    const QString account = u"Another program has renamed or deleted \"%1\". Nothing was written."_s;
    const QString damaged = u"Entry 1 is damaged, or another program has deleted it. Nothing was written."_s;
    for (const auto &[meanwhile, told] :
        {std::pair{u"Update Accounts set Title='Asha Devi' where id=5"_s, account.arg(u"Asha Rao"_s)},
            std::pair{u"Delete * from Accounts where id=4"_s, account.arg(u"Cash"_s)},
            std::pair{u"Delete * from Postings"_s, damaged},
            std::pair{u"Delete * from Postings where sr=2"_s, damaged}}) {
        BooksDesk desk;
        desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, u"Cash"_s, u"500"_s);
        QVERIFY(!onVoucher(1, [&desk, meanwhile = meanwhile, told = told](QWidget &screen, ModalScript &script) {
            desk.connection.execute(meanwhile);
            const QStringList before = desk.legs();
            accessKey('m');
            type(u"600"_s);
            script.expectBox(told);
            accessKey('s');
            QVERIFY(script.isDone());
            QVERIFY(screen.isVisible());
            QCOMPARE(desk.legs(), before);
        }));
    }
}

void TransictionTest::aDeletedAccountIsTold()
{
    BooksDesk desk;
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, u"Cash"_s, u"500"_s);
    desk.connection.execute(u"Update Postings set RefID=99 where sr=1"_s);
    ModalScript script;
    script.expectMessage(u"An account of this entry has been deleted!"_s);
    script.expect(u"frmTransiction"_s, [&script](QWidget &screen) {
        QVERIFY(control<kvComboBox>(screen, "cmbRefAcc").Text().isEmpty());
        saves(script, u"Please Select Account!"_s);
        press(Qt::Key_Escape);
    });
    bool changed = true;
    frmTransiction().ShowEdit(1, changed);
    QVERIFY(!changed);
}

void TransictionTest::itPrintsWhatIsStored()
{
    BooksDesk desk;
    SaveSetting(setting::TagLine, u"Since 1985"_s);
    const QString title = u"O'Neill & Sons 100% [Wool_Silk] "_s.repeated(5).left(140).trimmed();
    desk.addAccount(title);
    desk.addVoucher(u"Payment"_s, title, u"Cash"_s, u"1234567.5"_s, {2011, 4, 7}, u"First\r\nsecond"_s);
    const PdfPrinter printer(desk.folder.filePath(u"paper.pdf"_s));
    onVoucher(1, [](QWidget &screen, ModalScript &script) {
        QCOMPARE(control<kvComboBox>(screen, "cmbAccount").Text().size(), 140);
        // The kind stands on paper as on the screen, the amounts as in the file.
        type(u"rec"_s);
        accessKey('m');
        type(u"9"_s);
        printPreview(script, u"Voucher 1 Receipt.pdf"_s);
        accessKey('p');
        QVERIFY(script.isDone());
    });
    QCOMPARE(printer.title(), u"Voucher"_s);
    const QString paper = printer.printed().join(u'\f');
    for (const QString &text :
        {u"Kovrel Tailors"_s, u"12, Station Road"_s, u"Phone 2221"_s, u"Since 1985"_s, u"Voucher #: 1"_s,
            u"Date: 07-Apr-2011"_s, u"Vouche Type: Receipt"_s, u"Particulars Amount"_s, u"(1,234,567.50)"_s,
            u"Cash 1,234,567.50"_s, u"For Kovrel Tailors"_s, u"Auth Sig"_s, u"Remark : First"_s, u"second"_s})
        QVERIFY2(paper.contains(text), qPrintable(text + u" is not in "_s + paper));
    // The long name goes on in further lines.
    QCOMPARE(paper.count(u"O'Neill"_s), 5);
}

CORVANE_TEST(TransictionTest)
#include "tst_frmTransiction.moc"
