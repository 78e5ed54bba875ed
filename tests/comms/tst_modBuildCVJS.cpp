#include "comms/modBuildCVJS.h"

#include "base/RuntimeError.h"
#include "store/DataEnvironment.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/expectFault.h"
#include "support/fileContent.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

/// The status report, byte by byte.
class StatusReportTest : public QObject {
    Q_OBJECT

private slots:
    void theReportIsMadeToTheByte();
    void bothDaysCount();
    void aStatusThatIsNoneRepeatsTheOneBefore();
    void itemsOfACardStandAlone();
    void theReportSaysWhatEachCardSaysAlone();
    void numbersAboveSixteenBitsStopIt();
    void aPlaceThatIsNoneIsLeftAlone();
    void theFileBeforeGivesItsPlaceAndRights();
};

namespace {

constexpr int asha = 5;
const QDate first{2011, 4, 1};
const QDate last{2011, 4, 30};

struct Shop : TestShop {
    Shop()
    {
        addAccount(u"Asha & Daughters"_s);
        connection.execute(u"Update Accounts set Mobile='98290 55501' where id=5"_s);
    }

    void addCard(int number, int finished, QDate date = {2011, 4, 9}, int client = asha)
    {
        addJob({.number = number, .client = client, .date = date});
        connection.execute(
            u"Update Jobs set ClintName='Asha & \"Daughters\" <Müller>', AmountDue=1250.50, JobFinished=%1, "
            "DeliveryDate=#19-Apr-2011# where id=%2"_s.arg(finished)
                .arg(number));
    }

    void addItem(int card, int serial, const QString &name, int status)
    {
        addJobRow({.job = card, .status = status});
        connection.execute(
            u"Update Jobs_Detail set ItemSr=%1, ItemName='%2' where ItemName='Asha Rao'"_s.arg(serial).arg(name));
    }

    [[nodiscard]] QString file() const { return folder.filePath(u"data.xml"_s); }

    /// As the user makes it.
    QByteArray report(QDate from = first, QDate to = last) const
    {
        ModalScript script;
        script.expectBox(u"Report Created."_s);
        BuildStatusReport(from, to, file());
        return contentOf(file());
    }
};

const QByteArray head = "<jobcards created=\"01-Apr-2011 10:00:00\">\r\n";
const QByteArray foot = "\r\n</jobcards>\r\n";

} // namespace

void StatusReportTest::theReportIsMadeToTheByte()
{
    Shop shop;
    shop.addCard(7, 1);
    shop.addItem(7, 2, u"Coat & \"tails\" <L> &amp;"_s, 4);
    shop.addItem(7, 1, u"Sherwani – आशा"_s, 0);
    // A card without items, of a client who is gone, cancelled.
    shop.addCard(3, 0, {2011, 4, 12}, 99);
    shop.connection.execute(u"Update Jobs set Status=1, AmountDue=0.1 where id=3"_s);
    writeContent(shop.file(), QByteArray(5000, 'x'));

    const QByteArray client = " client=\"Asha & \"Daughters\" <M\xfcller>\"";
    QCOMPARE(shop.report(),
        head + "\r\n<jobcard id=\"3\"" + client
            + " date=\"12-Apr-2011\" deldate=\"19-Apr-2011\" status=\"Undelivered\" amount=\"0.1\" mobile=\"\">\r\n"
              "\r\n"
              "</jobcard>"
              "\r\n<jobcard id=\"7\""
            + client
            + " date=\"09-Apr-2011\" deldate=\"19-Apr-2011\" status=\"Delivered\" amount=\"1250.5\" "
              "mobile=\"98290 55501\">\r\n"
              "<item id=\"1\" name=\"Sherwani \x96 ???\" status=\"Uncompleted\"></item>\r\n"
              "<item id=\"2\" name=\"Coat &amp; \"tails\" <L> &amp;amp;\" status=\"Canceled\"></item>\r\n"
              "</jobcard>"
            + foot);
    QCOMPARE(QDir(shop.folder.path()).entryList({u"data.xml*"_s}), QStringList{u"data.xml"_s});
}

void StatusReportTest::bothDaysCount()
{
    Shop shop;
    int number = 0;
    for (const QDate date : {first.addDays(-1), first, last, last.addDays(1)})
        shop.addCard(++number, 0, date);
    const QByteArray report = shop.report();
    QVERIFY(report.contains("<jobcard id=\"2\"") && report.contains("<jobcard id=\"3\""));
    QCOMPARE(report.count("<jobcard id="), 2);
    // Without cards there are two line ends.
    QCOMPARE(shop.report({2012, 1, 1}, {2012, 1, 31}), head + foot);
}

void StatusReportTest::aStatusThatIsNoneRepeatsTheOneBefore()
{
    Shop shop;
    int number = 0;
    for (const int finished : {2, 1, 7, 0, -1})
        shop.addCard(++number, finished);
    const QByteArray report = shop.report();
    QByteArrayList found;
    for (qsizetype at = report.indexOf(" status="); at >= 0; at = report.indexOf(" status=", at + 1))
        found += report.mid(at + 9, report.indexOf('"', at + 9) - at - 9);
    QCOMPARE(found.join('|'), "|Delivered|Delivered|Undelivered|Undelivered"_ba);
}

void StatusReportTest::itemsOfACardStandAlone()
{
    Shop shop;
    int serial = 0;
    for (const int status : {7, 2, 9, 1, 3})
        shop.addItem(12, ++serial, u"T"_s, status);
    // Of another card, whose status is not repeated here.
    shop.addItem(11, 1, u"T"_s, 4);
    QStringList statuses;
    for (const QString &line : BuildJobItems(12).split(u"\r\n"_s))
        statuses += line.section(u'"', 5, 5);
    QCOMPARE(statuses.join(u'|'), u"|Delivered|Delivered|Completed|Alteration"_s);
    QCOMPARE(BuildJobItems(11), u"<item id=\"1\" name=\"T\" status=\"Canceled\"></item>"_s);
    QCOMPARE(BuildJobItems(13), QString());
}

/// The report reads the items of all cards at once.
void StatusReportTest::theReportSaysWhatEachCardSaysAlone()
{
    Shop shop;
    // Rows of cards before, between and behind those that are listed, in no order; a number that stands twice.
    for (const int card : {40, 10, 25, 10, 5, 30, 20, 10, 30})
        shop.addItem(
            card, shop.count(u"Jobs_Detail"_s) % 3, u"Item %1"_s.arg(shop.count(u"Jobs_Detail"_s)), 8 - card / 5);
    for (const int card : {30, 10, 20, 10})
        shop.addCard(card, 0);
    shop.addCard(25, 0, last.addDays(1));
    const QByteArray report = shop.report();
    for (const qint16 card : {10, 20, 30}) {
        const QByteArray items = ">\r\n" + BuildJobItems(card).toLatin1() + "\r\n</jobcard>";
        QCOMPARE(report.count("<jobcard id=\"" + QByteArray::number(card)), card == 10 ? 2 : 1);
        QCOMPARE(report.count(items), card == 10 ? 2 : 1);
    }
    QCOMPARE(report.count("<item "), 3 * 2 + 1 + 2);
}

void StatusReportTest::numbersAboveSixteenBitsStopIt()
{
    for (const auto &[card, client] : {std::pair{40000, asha}, std::pair{32768, asha}, std::pair{2, 32768}}) {
        Shop shop;
        shop.addCard(32767, 0);
        const QByteArray before = shop.report();
        QVERIFY(before.contains("id=\"32767\""));
        shop.addCard(card, 0, {2011, 4, 9}, client);
        {
            const ModalScript nothingComesUp;
            BuildStatusReport(first, last, shop.file());
        }
        QCOMPARE(contentOf(shop.file()), before);
        EXPECT_FAULT(Fault::Overflow, statusReport::write(first, last, shop.file()));
        QVERIFY(!DE().rsJOBS.isOpen());
        // Outside the range it is in nobody's way.
        QCOMPARE(shop.report({2011, 5, 1}, {2011, 5, 31}), head + foot);
    }
}

void StatusReportTest::aPlaceThatIsNoneIsLeftAlone()
{
    Shop shop;
    shop.addCard(1, 0);
    const QDir folder(shop.folder.path());
    QVERIFY(folder.mkdir(u"images"_s));
    QVERIFY(QFile::link(shop.path(), folder.filePath(u"link.mdb"_s)));
    writeContent(folder.filePath(u"cv.ini"_s), "DBPATH=");
    QVERIFY(QFile::link(folder.filePath(u"cv.ini"_s), folder.filePath(u"ini.xml"_s)));
    QVERIFY(QFile::link(folder.filePath(u"gone.xml"_s), folder.filePath(u"dangling.xml"_s)));
    const QByteArray database = contentOf(shop.path());
    const QStringList names = folder.entryList(QDir::AllEntries | QDir::System);
    const auto isRefused = [&](const QString &place, const QString &why) {
        const ModalScript nothingComesUp;
        BuildStatusReport(first, last, place);
        QCOMPARE(statusReport::refusal(place), why);
        EXPECT_FAULT(Fault::FileFault, statusReport::write(first, last, place));
        QCOMPARE(folder.entryList(QDir::AllEntries | QDir::System), names);
    };
    const QString in = folder.path() + u'/';
    const QString nameless = u"The name of the file is missing."_s;
    const QString ofTheProgram = u"That is a file of the program."_s;
    const QString ofTheShop = u"That is the shop's own file."_s;
    const QString partly = u"That is not a whole path."_s;
    for (const auto &[place, why] : {std::pair{u""_s, nameless}, std::pair{in + u"images/"_s, nameless},
             std::pair{in + u"nowhere/data.xml"_s, u"That folder does not exist."_s},
             std::pair{in + u"data15.mdb/data.xml"_s, u"That folder does not exist."_s},
             std::pair{in + u"images"_s, u"That is a folder."_s},
             std::pair{u"/dev/null"_s, u"That is a device, and not a file."_s},
             std::pair{in + u"data15.mdb"_s, ofTheShop}, std::pair{in + u"images/../link.mdb"_s, ofTheShop},
             std::pair{in + u"ini.xml"_s, ofTheProgram},
             std::pair{in + u"dangling.xml"_s, u"That link leads nowhere."_s}, std::pair{u"data.xml"_s, partly},
             std::pair{u"C:\\data.xml"_s, partly}})
        isRefused(place, why);
    for (const char *name : {"cv.ini", "demo.mdb", "Lang.mdb", "DATA14.MDB", "CVbackup.gz", "data15.mdb-journal"})
        isRefused(in + QLatin1StringView(name), ofTheProgram);
    QCOMPARE(contentOf(shop.path()), database);
}

void StatusReportTest::theFileBeforeGivesItsPlaceAndRights()
{
    Shop shop;
    static_cast<void>(shop.report());
    QCOMPARE(QFileInfo(shop.file()).permissions() & QFile::Permissions(0x0077), QFile::Permissions());
    // By a link the file that it leads to is meant.
    const QString shared = shop.folder.filePath(u"shared.xml"_s);
    QVERIFY(QFile::rename(shop.file(), shared) && QFile::link(shared, shop.file()));
    for (const int rights : {0x6644, 0x6640}) {
        writeContent(shared, "old");
        QFile::setPermissions(shared, QFile::Permissions(rights));
        const QFile::Permissions before = QFileInfo(shared).permissions();
        QCOMPARE(shop.report(), head + foot);
        QVERIFY(QFileInfo(shop.file()).isSymLink());
        QCOMPARE(contentOf(shared), head + foot);
        QCOMPARE(QFileInfo(shared).permissions(), before);
    }
}

CORVANE_TEST(StatusReportTest)
#include "tst_modBuildCVJS.moc"
