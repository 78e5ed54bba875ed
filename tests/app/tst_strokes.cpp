#include "app/frmMain.h"
#include "base/session.h"
#include "store/codes.h"
#include "support/ModalScript.h"
#include "support/PdfPrinter.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;

/// What a clerk does all day, from the main screen on and by the keys that the guide's annex counts.
class StrokesTest : public QObject {
    Q_OBJECT

private slots:
    void aCardForAKnownClient();
    void aCardForANewClient();
    void aRowIsAssigned();
    void tenRowsAreCompleted();
    void aCardIsHandedOverAndPaid();
    void aWorkerIsPaid();
    void aCardIsFoundAndPrinted();
    void lastMonthsStatementAsPdf();
};

namespace {

/// The number behind a task in the guide's annex; -1 where it does not stand there.
int toldByGuide(const QString &task)
{
    QFile guide(QStringLiteral(CORVANE_GUIDE));
    if (!guide.open(QIODevice::ReadOnly))
        return -1;
    for (const QString &line : QString::fromUtf8(guide.readAll()).split(u'\n')) {
        const QStringList cells = line.split(u'|');
        if (cells.value(1).trimmed() == task)
            return cells.value(2).trimmed().section(u' ', 0, 0).toInt();
    }
    return -1;
}

/// A shop with its clerk, whose strokes are counted: what is typed anyway apart from those that lead from one to the
/// next.
class Shop : public TestShop {
public:
    Shop()
    {
        for (const QString &client : {u"Asha Rao"_s, u"Anil Gupta"_s, u"Bina Shah"_s})
            addAccount(client);
        addAccount(u"Mohan Darji"_s, {}, accountType::Worker);
        addAccount(u"Dinesh Kumar"_s, {}, accountType::Worker);
        const QString fields = u"Length\r\nChest\r\nWaist\r\nShoulder\r\nSleeve\r\nNeck\r\nSlit"_s;
        addItem(u"Kurta"_s, fields, 500, 130);
        addItem(u"Pyjama"_s, fields, 300, 70);
        addItem(u"Waistcoat"_s, fields, 900, 260);
        QVERIFY(driver::show(screen));
    }

    [[nodiscard]] QString first(const QString &statement) { return lines(statement).value(0); }

    void data(const QString &text)
    {
        m_data += static_cast<int>(text.size());
        driver::type(text);
    }
    void letter(char letter)
    {
        ++m_strokes;
        driver::type(QString(QLatin1Char(letter)));
    }
    void press(std::initializer_list<QKeyCombination> keys)
    {
        m_strokes += static_cast<int>(keys.size());
        driver::press(keys);
    }
    void alt(char letter)
    {
        ++m_strokes;
        driver::accessKey(letter);
    }
    /// Answers the next message.
    void awaitMessage(const QString &text)
    {
        script.expect(u"frmMsg"_s, [this, text](QWidget &message) {
            QCOMPARE(message.findChild<QWidget *>(u"lblMsg"_s)->property("text").toString(), text);
            press({Qt::Key_Return});
        });
    }
    /// What is done in the next screen, which ends by itself.
    void within(const QString &className, const std::function<void()> &work)
    {
        script.expect(className, [work](QWidget &) { work(); });
    }
    /// What is done in the next screen, which is left uncounted.
    void in(const QString &className, const std::function<void()> &work)
    {
        within(className, [work] {
            work();
            driver::press(Qt::Key_Escape);
        });
    }

    /// Whether it took no more than `most`, and as many as the guide tells. A task that books a card counts its data
    /// too.
    [[nodiscard]] bool took(int most, const QString &task) const
    {
        const int count =
            task.contains(u"measurements"_s) || task.contains(u"new client"_s) ? m_strokes + m_data : m_strokes;
        if (count > most || count != toldByGuide(task))
            qWarning() << task << "took" << count;
        return count <= most && count == toldByGuide(task);
    }

    ModalScript script;
    frmMain screen;

private:
    int m_strokes = 0;
    int m_data = 0;
};

void enterItem(Shop &shop, char item)
{
    shop.within(u"frmAddItem"_s, [&shop, item] {
        shop.data(QString(QLatin1Char(item)));
        shop.press({Qt::Key_Return});
        for (int measure = 36; measure < 42; ++measure) {
            shop.data(QString::number(measure));
            shop.press({Qt::Key_Return});
        }
        shop.data(u"42"_s);
        shop.alt('o');
    });
}

/// Two items with fourteen measurements, an advance, and saved, behind whoever the client is.
void enterCard(Shop &shop)
{
    enterItem(shop, 'k');
    shop.alt('a');
    enterItem(shop, 'p');
    shop.press({Qt::Key_Return, Qt::Key_Tab});
    shop.data(u"500"_s);
    shop.press({Qt::Key_Return});
    shop.awaitMessage(u"New Job Created."_s);
    shop.alt('s');
}

/// The first card of a shop teaches the program where its money goes.
void bookAFirstCard(Shop &shop)
{
    shop.in(u"frmEditJOB"_s, [&shop] {
        driver::type(u"bina"_s);
        shop.within(u"frmAddItem"_s, [] {
            driver::type(u"w"_s);
            driver::press(Qt::Key_Return);
            driver::accessKey('o');
        });
        driver::accessKey('a');
        driver::press(Qt::Key_Tab);
        driver::type(u"100"_s);
        driver::press(Qt::Key_Return);
        shop.script.expectMessage(u"Please Select Receipt Account!"_s);
        driver::accessKey('s');
        driver::type(u"cas"_s);
        shop.script.expectMessage(u"New Job Created."_s);
        driver::accessKey('s');
    });
    driver::accessKey('n');
}

/// A voucher of a kind, by its letter, with cash.
void enterVoucher(Shop &shop, char kind, const QString &amount)
{
    shop.in(u"frmTransiction"_s, [&shop, kind, amount] {
        shop.letter(kind);
        shop.press({Qt::Key_Return});
        shop.letter('c');
        shop.press({Qt::Key_Return});
        shop.data(amount);
        shop.awaitMessage(u"New Entry saved."_s);
        shop.alt('s');
    });
    shop.alt('a');
}

} // namespace

void StrokesTest::aCardForAKnownClient()
{
    Shop shop;
    bookAFirstCard(shop);
    shop.in(u"frmEditJOB"_s, [&shop] {
        shop.data(u"as"_s);
        enterCard(shop);
    });
    shop.alt('n');
    QCOMPARE(shop.first(u"Select ClintName, AmountDue, AmountPaid, CashAccID from JOBS where id=2"_s),
        u"Asha Rao|800|500|4"_s);
    QCOMPARE(shop.first(u"Select ItemName, ItemDetailsValue from JOBS_DETAIL where id=3"_s),
        u"Pyjama|36\r\n37\r\n38\r\n39\r\n40\r\n41\r\n42"_s);
    QVERIFY(shop.took(58, u"Book two items with 14 measurements and an advance, known client"_s));
}

void StrokesTest::aCardForANewClient()
{
    Shop shop;
    bookAFirstCard(shop);
    shop.in(u"frmEditJOB"_s, [&shop] {
        shop.within(u"frmEditClients"_s, [&shop] {
            shop.data(u"Om Rao"_s);
            shop.press({Qt::Key_Return});
            shop.data(u"9829012345"_s);
            shop.awaitMessage(u"New Client Created."_s);
            shop.alt('s');
        });
        shop.press({Qt::CTRL | Qt::Key_A});
        enterCard(shop);
    });
    shop.alt('n');
    QCOMPARE(shop.first(u"Select ClintName, AmountDue from JOBS where id=2"_s), u"Om Rao|800"_s);
    QCOMPARE(shop.first(u"Select Mobile from Accounts where Title='Om Rao'"_s), u"9829012345"_s);
    QVERIFY(shop.took(76, u"The same for a new client with a mobile number"_s));
}

void StrokesTest::aRowIsAssigned()
{
    Shop shop;
    bookAFirstCard(shop);
    shop.addJobRow({.job = 2});
    shop.script.expect(u"frmWorkerJobRegister"_s, [&shop](QWidget &screen) {
        shop.within(u"frmEditWorkerAssign"_s, [&shop] {
            shop.data(u"moh"_s);
            shop.awaitMessage(u"Job Assign."_s);
            shop.press({Qt::CTRL | Qt::Key_S, Qt::Key_Escape});
        });
        shop.press({Qt::Key_Return, Qt::Key_Down});
        QCOMPARE(control<ListView>(screen, "lvSummary").currentRow(), 1);
        driver::press(Qt::Key_Escape);
    });
    driver::accessKey('r');
    QCOMPARE(shop.first(u"Select WorkerName from JOBS_DETAIL where id=1"_s), u"Mohan Darji"_s);
    QVERIFY(shop.took(6, u"Assign a row to a worker, next row"_s));
}

void StrokesTest::tenRowsAreCompleted()
{
    constexpr int rows = 10;
    Shop shop;
    bookAFirstCard(shop);
    for (int row = 1; row < rows; ++row)
        shop.addJobRow({.job = 2});
    shop.in(u"frmWorkerJobRegister"_s, [&shop] {
        for (int row = 0; row < rows; ++row) {
            shop.awaitMessage(u"Mark Item as Completed?"_s);
            shop.within(u"QInputDialog"_s, [&shop] {
                shop.data(u"b2"_s);
                shop.press({Qt::Key_Return});
            });
            shop.press({Qt::Key_F7, Qt::Key_Down});
        }
    });
    driver::accessKey('r');
    QCOMPARE(shop.lines(u"Select id from JOBS_DETAIL where DoneByWorker=1 and Loc='b2'"_s).size(), rows);
    QVERIFY(shop.took(4 * rows, u"Mark ten rows as completed, each with its location"_s));
}

void StrokesTest::aCardIsHandedOverAndPaid()
{
    Shop shop;
    bookAFirstCard(shop);
    shop.in(u"frmWorkerJobRegister"_s, [&shop] {
        shop.alt('j');
        shop.data(u"1"_s);
        shop.press({Qt::Key_Return});
        shop.awaitMessage(u"Job Card as Delivered to Client?"_s);
        shop.press({Qt::CTRL | Qt::Key_F8});
        shop.in(u"frmAccountBook"_s, [&shop] { enterVoucher(shop, 'r', u"800"_s); });
        shop.press({Qt::Key_F2});
    });
    shop.alt('r');
    QCOMPARE(shop.first(u"Select JobFinished from JOBS where id=1"_s), u"1"_s);
    QCOMPARE(shop.first(u"Select DoneByWorker from JOBS_DETAIL where id=1"_s), u"2"_s);
    QCOMPARE(shop.first(u"Select sum(Amount) from Postings where AccID=7"_s), u"0"_s);
    QVERIFY(shop.took(14, u"Hand over a card and take the rest of the money"_s));
}

void StrokesTest::aWorkerIsPaid()
{
    Shop shop;
    shop.in(u"frmMenu"_s, [&shop] {
        shop.in(u"frmAccountBook"_s, [&shop] {
            shop.press({Qt::CTRL | Qt::Key_2});
            shop.data(u"moh"_s);
            enterVoucher(shop, 'p', u"250"_s);
        });
        shop.alt('a');
    });
    shop.alt('s');
    QCOMPARE(shop.lines(u"Select particulars, AccID, Amount from Postings order by sr"_s),
        QStringList({u"Payment|8|-250"_s, u"Payment|4|250"_s}));
    QVERIFY(shop.took(10, u"A payment voucher to a worker"_s));
}

void StrokesTest::aCardIsFoundAndPrinted()
{
    Shop shop;
    bookAFirstCard(shop);
    const PdfPrinter printer(shop.folder.filePath(u"paper.pdf"_s));
    shop.in(u"frmOpenJob"_s, [&shop] {
        shop.data(u"bina"_s);
        shop.in(u"ReportPreview"_s, [&shop] { shop.alt('p'); });
        shop.press({Qt::CTRL | Qt::Key_P});
    });
    shop.press({Qt::Key_F3});
    QCOMPARE(printer.jobs(), 1);
    QVERIFY(printer.printed().join(u' ').contains(u"Bina Shah"_s));
    QVERIFY(shop.took(12, u"Find yesterday's card by the client's name and print it"_s));
}

void StrokesTest::lastMonthsStatementAsPdf()
{
    Shop shop;
    shop.addPosting(5, QDate(2011, 3, 7), -640);
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", shop.folder.path().toLocal8Bit());
    const auto putBack = qScopeGuard([&home] { qputenv("HOME", home); });
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QVERIFY(documents.mkpath(u"."_s));
    shop.in(u"frmMenu"_s, [&] {
        shop.script.expect(u"frmAccountBook"_s, [&](QWidget &book) {
            shop.data(u"as"_s);
            shop.press({Qt::CTRL | Qt::Key_PageUp, Qt::Key_Return});
            QCOMPARE(control<ListView>(book, "lvSummary").list().cell(0, 0), u"07-Mar-2011"_s);
            shop.awaitMessage(u"Print Account Statement with Remark?"_s);
            shop.in(u"ReportPreview"_s, [&] {
                for (const QString &box : {u"QFileDialog"_s, u"frmMsg"_s})
                    shop.within(box, [&] { shop.press({Qt::Key_Return}); });
                shop.alt('s');
            });
            shop.alt('p');
            driver::press(Qt::Key_Escape);
        });
        shop.alt('a');
    });
    shop.alt('s');
    QCOMPARE(documents.entryList({u"*.pdf"_s}).size(), 1);
    QVERIFY(shop.took(12, u"Last month's statement of a client as PDF"_s));
}

CORVANE_TEST(StrokesTest)
#include "tst_strokes.moc"
