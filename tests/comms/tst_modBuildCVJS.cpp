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
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

/// The status report, byte by byte.
class StatusReportTest : public QObject {
    Q_OBJECT

private slots:
    void theReportIsMadeToTheByte();
    void aRangeWithoutCardsHasTwoLineEnds();
    void bothDaysCount();
    void aStatusThatIsNoneRepeatsTheOneBefore();
    void itemsOfACardStandAlone();
    void theReportSaysWhatEachCardSaysAlone();
    void numbersAboveSixteenBitsStopIt_data();
    void numbersAboveSixteenBitsStopIt();
    void aPlaceThatIsNoneIsLeftAlone_data();
    void aPlaceThatIsNoneIsLeftAlone();
    void byALinkTheFileItLeadsToIsMeant();
    void aNewFileIsItsOwnersAlone();
    void aFileInThePlaceOfAnotherHasItsRights();
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

void StatusReportTest::aRangeWithoutCardsHasTwoLineEnds()
{
    Shop shop;
    shop.addCard(1, 0);
    QCOMPARE(shop.report({2012, 1, 1}, {2012, 1, 31}),
        QByteArray("<jobcards created=\"01-Apr-2011 10:00:00\">\r\n\r\n</jobcards>\r\n"));
}

void StatusReportTest::bothDaysCount()
{
    Shop shop;
    int number = 0;
    for (const QDate date : {first.addDays(-1), first, last, last.addDays(1)})
        shop.addCard(++number, 0, date);
    const QByteArray report = shop.report();
    QByteArray listed;
    for (char card = '1'; card <= '4'; ++card) {
        if (report.contains(QByteArray("<jobcard id=\"") + card))
            listed += card;
    }
    QCOMPARE(listed, "23"_ba);
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

void StatusReportTest::numbersAboveSixteenBitsStopIt_data()
{
    QTest::addColumn<int>("card");
    QTest::addColumn<int>("client");
    QTest::newRow("card") << 40000 << asha;
    QTest::newRow("the first such card") << 32768 << asha;
    QTest::newRow("client") << 2 << 32768;
}

void StatusReportTest::numbersAboveSixteenBitsStopIt()
{
    QFETCH(const int, card);
    QFETCH(const int, client);
    Shop shop;
    shop.addCard(32767, 0);
    QVERIFY(shop.report().contains("id=\"32767\""));
    shop.addCard(card, 0, {2011, 4, 9}, client);
    const QByteArray before = contentOf(shop.file());
    {
        const ModalScript nothingComesUp;
        BuildStatusReport(first, last, shop.file());
    }
    QCOMPARE(contentOf(shop.file()), before);
    EXPECT_FAULT(Fault::Overflow, statusReport::write(first, last, shop.file()));
    QVERIFY(!DE().rsJOBS.isOpen());
    // Outside the range it is in nobody's way.
    QVERIFY(!shop.report({2011, 5, 1}, {2011, 5, 31}).contains("jobcard id"));
}

void StatusReportTest::aPlaceThatIsNoneIsLeftAlone_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("why");
    QTest::newRow("no name") << u""_s << u"The name of the file is missing."_s;
    QTest::newRow("a folder's name") << u"images/"_s << u"The name of the file is missing."_s;
    QTest::newRow("a folder that is missing") << u"nowhere/data.xml"_s << u"That folder does not exist."_s;
    QTest::newRow("a file as folder") << u"data15.mdb/data.xml"_s << u"That folder does not exist."_s;
    QTest::newRow("a folder") << u"images"_s << u"That is a folder."_s;
    QTest::newRow("a device") << u"/dev/null"_s << u"That is a device, and not a file."_s;
    QTest::newRow("the shop") << u"data15.mdb"_s << u"That is the shop's own file."_s;
    for (const char *name : {"cv.ini", "demo.mdb", "Lang.mdb", "DATA14.MDB", "CVbackup.gz", "data15.mdb-journal"})
        QTest::newRow(name) << QString::fromLatin1(name) << u"That is a file of the program."_s;
    QTest::newRow("the configuration by a link") << u"ini.xml"_s << u"That is a file of the program."_s;
    QTest::newRow("a link without an end") << u"dangling.xml"_s << u"That link leads nowhere."_s;
    QTest::newRow("a name alone") << u"./data.xml"_s << u"That is not a whole path."_s;
    QTest::newRow("a drive that is none here") << u"C:\\data.xml"_s << u"That is not a whole path."_s;
    QTest::newRow("the shop by another way") << u"images/../link.mdb"_s << u"That is the shop's own file."_s;
}

void StatusReportTest::aPlaceThatIsNoneIsLeftAlone()
{
    QFETCH(const QString, path);
    QFETCH(const QString, why);
    Shop shop;
    shop.addCard(1, 0);
    const QDir folder(shop.folder.path());
    QVERIFY(folder.mkdir(u"images"_s));
    QVERIFY(QFile::link(shop.path(), folder.filePath(u"link.mdb"_s)));
    writeContent(folder.filePath(u"cv.ini"_s), "DBPATH=");
    QVERIFY(QFile::link(folder.filePath(u"cv.ini"_s), folder.filePath(u"ini.xml"_s)));
    QVERIFY(QFile::link(folder.filePath(u"gone.xml"_s), folder.filePath(u"dangling.xml"_s)));
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    const auto back = qScopeGuard([&before] { QDir::setCurrent(before); });
    const bool standsAlone = path.isEmpty() || path.startsWith(u'/') || path.startsWith(u'.') || path.contains(u':');
    const QString place = standsAlone ? path : folder.path() + u'/' + path;
    const QByteArray database = contentOf(shop.path());
    const QStringList names = folder.entryList(QDir::AllEntries | QDir::System);
    const ModalScript nothingComesUp;
    BuildStatusReport(first, last, place);
    QCOMPARE(statusReport::refusal(place), why);
    EXPECT_FAULT(Fault::FileFault, statusReport::write(first, last, place));
    QCOMPARE(folder.entryList(QDir::AllEntries | QDir::System), names);
    QCOMPARE(contentOf(shop.path()), database);
    QVERIFY(!QFileInfo(u"/dev/null"_s).isFile());
    QVERIFY(!QFileInfo::exists(u"/dev/null.new"_s));
}

void StatusReportTest::byALinkTheFileItLeadsToIsMeant()
{
    Shop shop;
    const QDir folder(shop.folder.path());
    QVERIFY(folder.mkdir(u"shared"_s));
    writeContent(folder.filePath(u"shared/data.xml"_s), "old");
    QVERIFY(QFile::link(folder.filePath(u"shared/data.xml"_s), shop.file()));
    QCOMPARE(shop.report(), head + foot);
    QVERIFY(QFileInfo(shop.file()).isSymLink());
    QCOMPARE(contentOf(folder.filePath(u"shared/data.xml"_s)), head + foot);
}

void StatusReportTest::aNewFileIsItsOwnersAlone()
{
    Shop shop;
    static_cast<void>(shop.report());
    QCOMPARE(QFileInfo(shop.file()).permissions() & QFile::Permissions(0x0077), QFile::Permissions());
}

void StatusReportTest::aFileInThePlaceOfAnotherHasItsRights()
{
    Shop shop;
    for (const int rights : {0x6644, 0x6640}) {
        writeContent(shop.file(), "old");
        QFile::setPermissions(shop.file(), QFile::Permissions(rights));
        const QFile::Permissions before = QFileInfo(shop.file()).permissions();
        QCOMPARE(shop.report(), head + foot);
        QCOMPARE(QFileInfo(shop.file()).permissions(), before);
    }
}

CORVANE_TEST(StatusReportTest)
#include "tst_modBuildCVJS.moc"
