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

/// The keyboard, counted: what is typed anyway apart from the strokes that lead from one to the next.
class Keyboard {
public:
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
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        ++m_strokes;
        driver::press(key, modifiers);
    }
    void alt(char letter)
    {
        ++m_strokes;
        driver::accessKey(letter);
    }
    /// Answers the next message.
    void awaitMessage(ModalScript &script, const QString &text)
    {
        script.expect(u"frmMsg"_s, [this, text](QWidget &message) {
            QCOMPARE(message.findChild<QWidget *>(u"lblMsg"_s)->property("text").toString(), text);
            press(Qt::Key_Return);
        });
    }

    [[nodiscard]] int strokes() const { return m_strokes; }
    [[nodiscard]] int all() const { return m_strokes + m_data; }

private:
    int m_strokes = 0;
    int m_data = 0;
};

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

struct Shop : TestShop {
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
    }

    [[nodiscard]] QString first(const QString &statement) { return lines(statement).value(0); }

    ModalScript script;
    Keyboard keys;
    frmMain screen;
};

void enterItem(Shop &shop, char item)
{
    shop.script.expect(u"frmAddItem"_s, [&shop, item](QWidget &) {
        shop.keys.data(QString(QLatin1Char(item)));
        shop.keys.press(Qt::Key_Return);
        for (int measure = 36; measure < 42; ++measure) {
            shop.keys.data(QString::number(measure));
            shop.keys.press(Qt::Key_Return);
        }
        shop.keys.data(u"42"_s);
        shop.keys.alt('o');
    });
}

/// Two items with fourteen measurements, an advance, and saved, behind whoever the client is.
void enterCard(Shop &shop)
{
    enterItem(shop, 'k');
    shop.keys.alt('a');
    enterItem(shop, 'p');
    shop.keys.press(Qt::Key_Return);
    shop.keys.press(Qt::Key_Tab);
    shop.keys.data(u"500"_s);
    shop.keys.press(Qt::Key_Return);
    shop.keys.awaitMessage(shop.script, u"New Job Created."_s);
    shop.keys.alt('s');
}

/// The first card of a shop teaches the program where its money goes.
void bookAFirstCard(Shop &shop)
{
    QVERIFY(driver::show(shop.screen));
    shop.script.expect(u"frmEditJOB"_s, [&shop](QWidget &) {
        driver::type(u"bina"_s);
        shop.script.expect(u"frmAddItem"_s, [](QWidget &) {
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
        driver::press(Qt::Key_Escape);
    });
    driver::accessKey('n');
}

} // namespace

void StrokesTest::aCardForAKnownClient()
{
    Shop shop;
    bookAFirstCard(shop);
    shop.script.expect(u"frmEditJOB"_s, [&shop](QWidget &) {
        shop.keys.data(u"as"_s);
        enterCard(shop);
        driver::press(Qt::Key_Escape);
    });
    shop.keys.alt('n');
    QCOMPARE(shop.first(u"Select ClintName, AmountDue, AmountPaid, CashAccID from JOBS where id=2"_s),
        u"Asha Rao|800|500|4"_s);
    QCOMPARE(shop.first(u"Select ItemName, ItemDetailsValue from JOBS_DETAIL where id=3"_s),
        u"Pyjama|36\r\n37\r\n38\r\n39\r\n40\r\n41\r\n42"_s);
    QVERIFY(shop.keys.all() <= 58);
    QCOMPARE(shop.keys.all(), toldByGuide(u"Book two items with 14 measurements and an advance, known client"_s));
}

void StrokesTest::aCardForANewClient()
{
    Shop shop;
    bookAFirstCard(shop);
    shop.script.expect(u"frmEditJOB"_s, [&shop](QWidget &) {
        shop.script.expect(u"frmEditClients"_s, [&shop](QWidget &) {
            shop.keys.data(u"Om Rao"_s);
            shop.keys.press(Qt::Key_Return);
            shop.keys.data(u"9829012345"_s);
            shop.keys.awaitMessage(shop.script, u"New Client Created."_s);
            shop.keys.alt('s');
        });
        shop.keys.press(Qt::Key_A, Qt::ControlModifier);
        enterCard(shop);
        driver::press(Qt::Key_Escape);
    });
    shop.keys.alt('n');
    QCOMPARE(shop.first(u"Select ClintName, AmountDue from JOBS where id=2"_s), u"Om Rao|800"_s);
    QCOMPARE(shop.first(u"Select Mobile from Accounts where Title='Om Rao'"_s), u"9829012345"_s);
    QVERIFY(shop.keys.all() <= 76);
    QCOMPARE(shop.keys.all(), toldByGuide(u"The same for a new client with a mobile number"_s));
}

void StrokesTest::aRowIsAssigned()
{
    Shop shop;
    bookAFirstCard(shop);
    shop.addJobRow({.job = 2});
    shop.script.expect(u"frmWorkerJobRegister"_s, [&shop](QWidget &screen) {
        shop.script.expect(u"frmEditWorkerAssign"_s, [&shop](QWidget &) {
            shop.keys.data(u"moh"_s);
            shop.keys.awaitMessage(shop.script, u"Job Assign."_s);
            shop.keys.press(Qt::Key_S, Qt::ControlModifier);
            shop.keys.press(Qt::Key_Escape);
        });
        shop.keys.press(Qt::Key_Return);
        shop.keys.press(Qt::Key_Down);
        QCOMPARE(control<ListView>(screen, "lvSummary").currentRow(), 1);
        driver::press(Qt::Key_Escape);
    });
    driver::accessKey('r');
    QCOMPARE(shop.first(u"Select WorkerName from JOBS_DETAIL where id=1"_s), u"Mohan Darji"_s);
    QVERIFY(shop.keys.strokes() <= 6);
    QCOMPARE(shop.keys.strokes(), toldByGuide(u"Assign a row to a worker, next row"_s));
}

void StrokesTest::tenRowsAreCompleted()
{
    constexpr int rows = 10;
    Shop shop;
    bookAFirstCard(shop);
    for (int row = 1; row < rows; ++row)
        shop.addJobRow({.job = 2});
    shop.script.expect(u"frmWorkerJobRegister"_s, [&shop](QWidget &) {
        for (int row = 0; row < rows; ++row) {
            shop.keys.awaitMessage(shop.script, u"Mark Item as Completed?"_s);
            shop.script.expect(u"QInputDialog"_s, [&shop](QWidget &) {
                shop.keys.data(u"b2"_s);
                shop.keys.press(Qt::Key_Return);
            });
            shop.keys.press(Qt::Key_F7);
            shop.keys.press(Qt::Key_Down);
        }
        driver::press(Qt::Key_Escape);
    });
    driver::accessKey('r');
    QCOMPARE(shop.lines(u"Select id from JOBS_DETAIL where DoneByWorker=1 and Loc='b2'"_s).size(), rows);
    QVERIFY(shop.keys.strokes() <= 4 * rows);
    QCOMPARE(shop.keys.strokes(), toldByGuide(u"Mark ten rows as completed, each with its location"_s));
}

void StrokesTest::aCardIsHandedOverAndPaid()
{
    Shop shop;
    bookAFirstCard(shop);
    shop.script.expect(u"frmWorkerJobRegister"_s, [&shop](QWidget &) {
        shop.keys.alt('j');
        shop.keys.data(u"1"_s);
        shop.keys.press(Qt::Key_Return);
        shop.keys.awaitMessage(shop.script, u"Job Card as Delivered to Client?"_s);
        shop.keys.press(Qt::Key_F8, Qt::ControlModifier);
        shop.script.expect(u"frmAccountBook"_s, [&shop](QWidget &) {
            shop.script.expect(u"frmTransiction"_s, [&shop](QWidget &) {
                shop.keys.letter('r');
                shop.keys.press(Qt::Key_Return);
                shop.keys.letter('c');
                shop.keys.press(Qt::Key_Return);
                shop.keys.data(u"800"_s);
                shop.keys.awaitMessage(shop.script, u"New Entry saved."_s);
                shop.keys.alt('s');
                driver::press(Qt::Key_Escape);
            });
            shop.keys.alt('a');
            driver::press(Qt::Key_Escape);
        });
        shop.keys.press(Qt::Key_F2);
        driver::press(Qt::Key_Escape);
    });
    shop.keys.alt('r');
    QCOMPARE(shop.first(u"Select JobFinished from JOBS where id=1"_s), u"1"_s);
    QCOMPARE(shop.first(u"Select DoneByWorker from JOBS_DETAIL where id=1"_s), u"2"_s);
    QCOMPARE(shop.first(u"Select sum(Amount) from Postings where AccID=7"_s), u"0"_s);
    QVERIFY(shop.keys.strokes() <= 14);
    QCOMPARE(shop.keys.strokes(), toldByGuide(u"Hand over a card and take the rest of the money"_s));
}

void StrokesTest::aWorkerIsPaid()
{
    Shop shop;
    QVERIFY(driver::show(shop.screen));
    shop.script.expect(u"frmMenu"_s, [&shop](QWidget &) {
        shop.script.expect(u"frmAccountBook"_s, [&shop](QWidget &) {
            shop.keys.press(Qt::Key_2, Qt::ControlModifier);
            shop.keys.data(u"moh"_s);
            shop.script.expect(u"frmTransiction"_s, [&shop](QWidget &) {
                shop.keys.letter('p');
                shop.keys.press(Qt::Key_Return);
                shop.keys.letter('c');
                shop.keys.press(Qt::Key_Return);
                shop.keys.data(u"250"_s);
                shop.keys.awaitMessage(shop.script, u"New Entry saved."_s);
                shop.keys.alt('s');
                driver::press(Qt::Key_Escape);
            });
            shop.keys.alt('a');
            driver::press(Qt::Key_Escape);
        });
        shop.keys.alt('a');
        driver::press(Qt::Key_Escape);
    });
    shop.keys.alt('s');
    QCOMPARE(shop.lines(u"Select particulars, AccID, Amount from Postings order by sr"_s),
        QStringList({u"Payment|8|-250"_s, u"Payment|4|250"_s}));
    QVERIFY(shop.keys.strokes() <= 10);
    QCOMPARE(shop.keys.strokes(), toldByGuide(u"A payment voucher to a worker"_s));
}

void StrokesTest::aCardIsFoundAndPrinted()
{
    Shop shop;
    bookAFirstCard(shop);
    const PdfPrinter printer(shop.folder.filePath(u"paper.pdf"_s));
    shop.script.expect(u"frmOpenJob"_s, [&shop](QWidget &) {
        shop.keys.data(u"bina"_s);
        shop.script.expect(u"ReportPreview"_s, [&shop](QWidget &) {
            shop.keys.alt('p');
            driver::press(Qt::Key_Escape);
        });
        shop.keys.press(Qt::Key_P, Qt::ControlModifier);
        driver::press(Qt::Key_Escape);
    });
    shop.keys.press(Qt::Key_F3);
    QCOMPARE(printer.jobs(), 1);
    QVERIFY(printer.printed().join(u' ').contains(u"Bina Shah"_s));
    QVERIFY(shop.keys.strokes() <= 12);
    QCOMPARE(shop.keys.strokes(), toldByGuide(u"Find yesterday's card by the client's name and print it"_s));
}

void StrokesTest::lastMonthsStatementAsPdf()
{
    Shop shop;
    shop.addPosting(5, QDate(2011, 3, 7), -640);
    QVERIFY(driver::show(shop.screen));
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", shop.folder.path().toLocal8Bit());
    const auto putBack = qScopeGuard([&home] { qputenv("HOME", home); });
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QVERIFY(documents.mkpath(u"."_s));
    shop.script.expect(u"frmMenu"_s, [&](QWidget &) {
        shop.script.expect(u"frmAccountBook"_s, [&](QWidget &book) {
            shop.keys.data(u"as"_s);
            shop.keys.press(Qt::Key_PageUp, Qt::ControlModifier);
            shop.keys.press(Qt::Key_Return);
            QCOMPARE(control<ListView>(book, "lvSummary").list().cell(0, 0), u"07-Mar-2011"_s);
            shop.keys.awaitMessage(shop.script, u"Print Account Statement with Remark?"_s);
            shop.script.expect(u"ReportPreview"_s, [&](QWidget &) {
                shop.script.expect(u"QFileDialog"_s, [&](QWidget &) { shop.keys.press(Qt::Key_Return); });
                shop.script.expect(u"frmMsg"_s, [&](QWidget &) { shop.keys.press(Qt::Key_Return); });
                shop.keys.alt('s');
                driver::press(Qt::Key_Escape);
            });
            shop.keys.alt('p');
            driver::press(Qt::Key_Escape);
        });
        shop.keys.alt('a');
        driver::press(Qt::Key_Escape);
    });
    shop.keys.alt('s');
    QCOMPARE(documents.entryList({u"*.pdf"_s}).size(), 1);
    QVERIFY(shop.keys.strokes() <= 12);
    QCOMPARE(shop.keys.strokes(), toldByGuide(u"Last month's statement of a client as PDF"_s));
}

CORVANE_TEST(StrokesTest)
#include "tst_strokes.moc"
