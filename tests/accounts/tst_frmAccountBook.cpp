#include "accounts/frmAccountBook.h"

#include "BooksDesk.h"
#include "store/settings.h"
#include "support/PseudoTerminal.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The statement of an account, and the ways that lead on from it.
class AccountBookTest : public QObject {
    Q_OBJECT

private slots:
    void aStatementBringsForwardAndCarriesForward();
    void documentsOpenAndTheListIsFilledIfTheyChanged();
    void anAccountThatIsGoneListsNothing();
    void theMessageNamesTheBalance();
};

namespace {

constexpr int allColumns = 7;

struct Book : frmAccountBook {
    Book()
        : list(control<ListView>(*this, "lvSummary")), account(control<kvComboBox>(*this, "cmbAccount")),
          fills(&list.list(), &ListModel::modelReset), shown(driver::show(*this))
    {
    }
    /// Types the name that begins so.
    void view(const QString &name, const QString &group = u"Clients"_s)
    {
        accessKey('g');
        press(Qt::Key_Home);
        while (control<kvComboBox>(*this, "cmbType").currentText() != group)
            press(Qt::Key_Down);
        accessKey('c');
        type(name);
        press(Qt::Key_Return);
    }
    void setPeriod(const QString &from, const QString &to)
    {
        accessKey('f');
        type(from);
        accessKey('t');
        type(to);
        press(Qt::Key_Tab);
    }
    [[nodiscard]] QString sums() const
    {
        QStringList texts;
        for (const char *name : {"lblOpening", "lblDebits", "lblCredits", "lblClosing"})
            texts += control<QLabel>(*this, name).text();
        return texts.join(u'|');
    }

    ListView &list;
    kvComboBox &account;
    QSignalSpy fills;
    bool shown;
};

/// Of all cells of a row, each look once: those of the columns 3 to 5, and of the others.
QString looksOf(const ListView &list, int row)
{
    QStringList looks[2];
    for (int column = 0; column < allColumns; ++column)
        looks[column >= 3 && column <= 5 ? 1 : 0] += lookOf(list, row, column);
    for (QStringList &alike : looks)
        alike.removeDuplicates();
    return looks[0].join(u'/') + u'|' + looks[1].join(u'/');
}

} // namespace

void AccountBookTest::aStatementBringsForwardAndCarriesForward()
{
    BooksDesk desk;
    desk.addVoucher(u"Sales"_s, u"Asha Rao"_s, u"Sales"_s, u"300"_s, {2011, 3, 31});
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, u"Cash"_s, u"100"_s, {2011, 5, 1}, u"In cash"_s);
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, u"Cash"_s, u"7"_s, {2011, 5, 2});
    desk.addCard(3, 500, 50);
    desk.addCard(2, 0, 0, {2011, 4, 5});
    desk.addCard(9, 800, 60);
    desk.cancelCard(9);
    desk.connection.execute(u"Update Postings set RefID=99 where vid=2 and vtype=2 and sr=1"_s);
    // What lies before the start of the books counts in no balance.
    desk.addVoucher(u"Sales"_s, u"Asha Rao"_s, u"Sales"_s, u"1000"_s, {1985, 11, 16});
    Book book;
    QVERIFY(book.shown);
    QVERIFY(book.account.hasFocus());
    QVERIFY(joined(book.list).isEmpty());
    book.view(u"as"_s);
    QVERIFY(book.list.hasFocus());
    QCOMPARE(joined(book.list),
        (QStringList{u" | | |Balance B/F |300.00| | "_s, u"05-Apr-2011|2|Sales|Sales| |0.00|Job Card # :2"_s,
            u"05-Apr-2011|3|Sales|Sales|500.00| |Job Card # :3"_s,
            u"05-Apr-2011|3|Receipt|Cash| |50.00|Job Card # :3"_s, u"01-May-2011|2|Receipt|| |100.00|In cash"_s,
            u" | | |Current Total |500.00|150.00| "_s, u" | | |Balance C/F |650.00| | "_s}));
    const QStringList looks{
        u"bold red|bold red"_s, u"|"_s, u"|"_s, u"|"_s, u"|"_s, u"bold red|bold green"_s, u"bold red|bold red"_s};
    for (int row = 0; row < looks.size(); ++row)
        QCOMPARE(looksOf(book.list, row), looks.at(row));
    QCOMPARE(book.sums(), u"300.00 Dr|500.00|150.00|650.00 Dr"_s);
    const ListModel &list = book.list.list();
    QCOMPARE(list.tag(2), u"3|1"_s);
    QVERIFY(!list.at(0).hasTag() && !list.at(5).hasTag() && !list.at(6).hasTag());

    // Both ends of the period count.
    book.setPeriod(u"1/5/2011"_s, u"2/5/2011"_s);
    accessKey('v');
    QCOMPARE(joined(book.list).sliced(3),
        (QStringList{u" | | |Current Total |0.00|107.00| "_s, u" | | |Balance C/F |643.00| | "_s}));
    QCOMPARE(joined(book.list).first(), u" | | |Balance B/F |750.00| | "_s);
    book.view(u"cash"_s, u"Accounts"_s);
    QCOMPARE(book.sums(), u"50.00 Dr|107.00|0.00|157.00 Dr"_s);
    book.setPeriod(u"1/1/1900"_s, u"31/12/2150"_s);
    accessKey('v');
    QCOMPARE(joined(book.list).last(), u" | | |Balance C/F |157.00| | "_s);
}

void AccountBookTest::documentsOpenAndTheListIsFilledIfTheyChanged()
{
    BooksDesk desk;
    desk.addCard(3, 500, 50);
    for (const QString &amount : {u"10"_s, u"20"_s, u"30"_s})
        desk.addVoucher(u"Receipt"_s, u"Cash"_s, u"Asha Rao"_s, amount, {2011, 4, 6});
    Book book;
    book.view(u"as"_s);
    QCOMPARE(book.list.currentRow(), 0);
    ModalScript script;
    const auto opens = [&](
                           int row, const QString &screen, int fills,
                           const ModalScript::Action &work = [](QWidget &) {}) {
        book.list.setCurrentRow(row);
        book.fills.clear();
        script.expect(screen, [&work](QWidget &document) {
            work(document);
            press(Qt::Key_Escape);
        });
        press(Qt::Key_Return);
        QTRY_VERIFY(book.isActiveWindow());
        QCOMPARE(book.fills.size(), fills);
        QCOMPARE(book.list.currentRow(), row);
    };
    opens(3, u"frmTransiction"_s, 0);
    // The voucher's own main account, whoever's statement it was opened from.
    opens(3, u"frmTransiction"_s, 1, [&script](QWidget &voucher) {
        QCOMPARE(control<kvComboBox>(voucher, "cmbAccount").Text(), u"Cash"_s);
        script.expectMessage(u"Entry Updated."_s);
        accessKey('m');
        type(u"25"_s);
        accessKey('s');
    });
    QCOMPARE(joined(book.list).at(3), u"06-Apr-2011|2|Receipt|Cash|25.00| |"_s);
    // Of a card's two lines the one that was opened stays current.
    opens(1, u"frmEditJOB"_s, 0);
    opens(1, u"frmEditJOB"_s, 1, [&script](QWidget &) {
        script.expectMessage(u"Job Edited."_s);
        accessKey('s');
    });
    book.list.setCurrentRow(3);
    script.expect(u"frmTransiction"_s, [&script](QWidget &) {
        script.expectMessage(u"Are you sure to delete entry?"_s);
        accessKey('d');
    });
    press(Qt::Key_Return);
    QTRY_COMPARE(driver::column(book.list, 1).mid(0, 4), (QStringList{u"3"_s, u"3"_s, u"1"_s, u"3"_s}));
    QCOMPARE(book.list.currentRow(), 3);
    // Gone meanwhile.
    desk.connection.execute(u"Delete * from Postings where vtype=2 and vid=3"_s);
    script.expectMessage(u"Entry is damaged!"_s);
    press(Qt::Key_Return);
    QTRY_COMPARE(book.list.list().rowCount(), 5);
    for (const auto &[command, screen] :
        {std::pair{"cmdWages", u"frmWorkerWagesRegister"_s}, std::pair{"cmdDayBook", u"frmDayBook"_s}}) {
        script.expect(screen, [](QWidget &) { press(Qt::Key_Escape); });
        control<QPushButton>(book, command).click();
        QTRY_VERIFY(script.isDone() && book.isActiveWindow());
    }
}

void AccountBookTest::anAccountThatIsGoneListsNothing()
{
    BooksDesk desk;
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, u"Cash"_s, u"40"_s);
    Book book;
    book.view(u"as"_s);
    QCOMPARE(joined(book.list).size(), 3);
    // A name that begins another one is not that one.
    book.account.setText(u"Asha"_s);
    book.ExecuteSQL();
    QVERIFY(joined(book.list).isEmpty());
    QCOMPARE(book.sums(), u"None|0.00|0.00|None"_s);
    book.view(u"as"_s);
    desk.connection.execute(u"Update Accounts set Title='Asha Devi' where id=5"_s);
    ModalScript script;
    book.setPeriod(u"2/5/2011"_s, u"1/4/2011"_s);
    script.expectBox(u"Invalid date selection!"_s);
    accessKey('v');
    book.setPeriod(u"1/4/2011"_s, u"2/5/2011"_s);
    book.list.setFocus();
    for (const auto &give : {std::function([] { press(Qt::Key_Return); }), std::function([] { accessKey('v'); }),
             std::function([] { accessKey('a'); })}) {
        script.expectBox(u"Please select Account!"_s);
        give();
        QTRY_VERIFY(script.isDone());
    }
    QTRY_VERIFY(book.account.hasFocus());
    type(u"asha d"_s);
    press(Qt::Key_Return);
    QCOMPARE(joined(book.list).size(), 3);
}

void AccountBookTest::theMessageNamesTheBalance()
{
    BooksDesk desk;
    const PseudoTerminal modem;
    desk.connection.execute(u"Update Accounts set Mobile='98290' where id=5 or id=8 or id=4"_s);
    SaveSetting(setting::ModemPort, u"1"_s);
    SaveSetting(setting::SmsTitle, u"Kovrel"_s);
    SaveSetting(setting::DueSms, u"Due: %amount%"_s);
    desk.addVoucher(u"Sales"_s, u"Asha Rao"_s, u"Sales"_s, u"600"_s);
    desk.addVoucher(u"Receipt"_s, u"Asha Rao"_s, u"Cash"_s, u"100"_s, {2011, 5, 2});
    Book book;
    ModalScript script;
    const auto sends = [&](bool isRefused) {
        if (isRefused)
            script.expectMessage(u"Mobile Number Not Found!\r\nSMS Sending has been Failed."_s);
        control<QPushButton>(book, "cmdSMS").setFocus();
        press(Qt::Key_Return);
        QVERIFY(script.isDone());
    };
    sends(false);
    book.view(u"vik"_s);
    sends(true);
    // To clients alone.
    book.view(u"mohi"_s, u"Workers"_s);
    sends(true);
    book.view(u"cash"_s, u"Accounts"_s);
    sends(true);
    QCOMPARE(modem.received(), ""_ba);
    book.view(u"as"_s);
    sends(false);
    QCOMPARE(modem.received(), "AT+CMGF=1\rAT+CMGS=\"98290\"\rDue: -600 (01-May-2011)\r\rKovrel\x1a"_ba);
}

CORVANE_TEST(AccountBookTest)
#include "tst_frmAccountBook.moc"
