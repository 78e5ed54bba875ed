#include "reports/ReportFlow.h"

#include "store/DataEnvironment.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/expectFault.h"
#include "support/fileContent.h"
#include "support/pdfText.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;
using Format = ReportControl::Format;
using Item = ReportPages::Item;
using Kind = ReportSection::Kind;

/// What the report engine makes of sections, fields and long lists.
class ReportTest : public QObject {
    Q_OBJECT

private slots:
    void fieldsAreShownInTheirFormat();
    void aFieldMayBeThatOfAChild();
    void groupsPrintTheirHeadOnEachPage();
    void eachGroupHasItsHeadItsRowsAndItsFoot();
    void withoutRowsHeadsAndFeetStillPrint();
    void aTextLongerThanAPageLosesNothing();
    void aHeadTallerThanHalfAPageIsNotRepeated();
    void aLineTooWideIsSetSmaller();
    void whatGrowsPushesTheRestDown();
    void namesAreFoundInAnyCase();
    void picturesAreCheckedWhenSet();
    void aPdfHoldsTheTextsAndIsWrittenWholeOrNotAtAll();
    void theReportHeadStandsAboveThePageHead();
    void aFootThatGrowsKeepsItsRoom();
    void theLastTwoLinesStayWithTheFoot_data();
    void theLastTwoLinesStayWithTheFoot();
    void paperIsWhatItIs();
    void pagesOutliveTheirRowsAndAreMadeAlone();
    void longWorkCanBeBrokenOff();
};

namespace {

constexpr QRect wholeWidth{0, 0, 9000, 300};

QStringList texts(const ReportPages::Page &page)
{
    QStringList found;
    for (const Item &item : page) {
        if (item.kind == Item::Kind::Text)
            found += item.text;
    }
    return found;
}

Item itemWith(const ReportPages &pages, const QString &text)
{
    for (int i = 0; i < pages.count(); ++i) {
        for (const Item &item : pages.page(i)) {
            if (item.text == text)
                return item;
        }
    }
    qFatal("the report has no \"%s\"", qPrintable(text));
}

/// A shop with numbered accounts, and a recordset to report on.
struct Desk : TestShop {
    Recordset source{connection};

    /// "Client 1" and so on; these and the four default accounts are there then.
    void addClients(int count)
    {
        WriteGroup::run(connection, [&] {
            for (int i = 1; i <= count; ++i)
                addAccount(u"Client %1"_s.arg(i));
        });
    }
    /// The report on the clients, as they were added.
    ReportPages laidOut(const Report &report)
    {
        source.open(u"Select * from Accounts where Type=0 order by id"_s);
        return *layOut(report, source);
    }
};

} // namespace

void ReportTest::fieldsAreShownInTheirFormat()
{
    const QString moment = u"2011-04-01 10:30:00"_s;
    struct Field {
        QString stored;
        Format format;
        QString shown;
    };
    for (const auto &[stored, format, shown] :
        {Field{u"1234.5"_s, Format::Money, u"1234.50"_s}, {u"1234567.5"_s, Format::MoneyGrouped, u"1,234,567.50"_s},
            {u"-1250"_s, Format::MoneyGrouped, u"(1,250.00)"_s}, {u"free"_s, Format::MoneyGrouped, u"free"_s},
            {u"2011-04-01"_s, Format::DayMonthYear, u"01-Apr-2011"_s}, {u"soon"_s, Format::DayMonthYear, u"soon"_s},
            {moment, Format::DayMonthShortYear, u"01-Apr-11"_s},
            {moment, Format::ShortDayMonthShortYear, u"1-Apr-11"_s}, {u"0042 x"_s, Format::Plain, u"0042 x"_s},
            // Only page sections are numbered.
            {u"50%pure, 100%Pure"_s, Format::Plain, u"50%pure, 100%Pure"_s}}) {
        Desk desk;
        desk.addAccount(stored);
        Report report(u"Test"_s, {});
        report.add(Kind::Detail, u"row"_s, 300).field(u"f"_s, u"Title"_s, wholeWidth).as(format);
        QCOMPARE(texts(desk.laidOut(report).page(0)), QStringList{shown});
    }
}

void ReportTest::aFieldMayBeThatOfAChild()
{
    Desk desk;
    desk.addClients(1);
    desk.addPosting(5, QDate(2011, 4, 1), -80);
    desk.addPosting(99, QDate(2011, 4, 1), 80);
    Report report(u"Test"_s, {});
    ReportSection &row = report.add(Kind::Detail, u"row"_s, 300);
    row.field(u"title"_s, u"acc.Title"_s, wholeWidth);
    row.field(u"amount"_s, u"Amount"_s, wholeWidth).as(Format::MoneyGrouped);
    row.field(u"remark"_s, u"acc.Key"_s, wholeWidth);
    desk.source.open(
        u"SHAPE {SELECT * FROM `postings`} AS p APPEND ({SELECT * FROM `Accounts`} RELATE 'AccID' TO 'Id') AS acc"_s);
    // Null, and a child that isn't there, print nothing.
    QCOMPARE(texts(layOut(report, desk.source)->page(0)), QStringList({u"Client 1"_s, u"(80.00)"_s, u"80.00"_s}));

    row.field(u"wrong"_s, u"Titel"_s, wholeWidth);
    EXPECT_FAULT(Fault::ItemNotFound, static_cast<void>(layOut(report, desk.source)));
}

void ReportTest::groupsPrintTheirHeadOnEachPage()
{
    Desk desk;
    desk.addClients(130);
    Report report(u"Test"_s, {}, u"rows"_s);
    report.add(Kind::PageHead, u"top"_s, 300).caption(u"Page head"_s, wholeWidth);
    report.add(Kind::GroupHead, u"head"_s, 300).field(u"t"_s, u"Title"_s, wholeWidth);
    report.add(Kind::Detail, u"row"_s, 300).field(u"f"_s, u"Title"_s, wholeWidth);
    report.add(Kind::GroupFoot, u"foot"_s, 300).caption(u"Group foot"_s, wholeWidth);
    report.add(Kind::PageFoot, u"bottom"_s, 300).caption(u"Page %p of %P"_s, wholeWidth);
    // Cash is read-only, which is 1: the clients are related to it by a Nature of 1.
    DE().CN.execute(u"update Accounts set Nature=1 where type=0"_s);
    desk.source.open(
        u"SHAPE {SELECT * FROM Accounts where id=4} APPEND ({SELECT * FROM Accounts where type=0 order by id} "
        "AS rows RELATE ReadOnly TO Nature) AS rows"_s);
    const ReportPages pages = *layOut(report, desk.source);
    QCOMPARE(pages.count(), 3);

    QStringList details;
    for (int i = 0; i < pages.count(); ++i) {
        QStringList page = texts(pages.page(i));
        QCOMPARE(page.takeFirst(), u"Page head"_s);
        QCOMPARE(page.takeFirst(), u"Cash"_s);
        QCOMPARE(page.takeLast(), u"Page %1 of 3"_s.arg(i + 1));
        details += page;
    }
    QCOMPARE(details.takeLast(), u"Group foot"_s);
    QCOMPARE(details.size(), 130);
    QCOMPARE(details.first(), u"Client 1"_s);
    QCOMPARE(details.last(), u"Client 130"_s);
}

void ReportTest::eachGroupHasItsHeadItsRowsAndItsFoot()
{
    Desk desk;
    desk.addClients(141);
    // Sixty are of the first group, and one of the second, which is longer than a page.
    desk.connection.execute(u"Update Accounts set Nature=1 where type=0 and id<65"_s);
    desk.connection.execute(u"Update Accounts set Nature=3 where type=0 and id>65"_s);
    QStringList words;
    for (int i = 0; i < 1500; ++i)
        words += u"word%1"_s.arg(i);
    desk.connection.execute(u"Update Accounts set Nature=2, Title='%1' where id=65"_s.arg(words.join(u' ')));
    Report report(u"Test"_s, {}, u"rows"_s);
    report.add(Kind::GroupHead, u"head"_s, 300).field(u"t"_s, u"Title"_s, wholeWidth);
    report.add(Kind::Detail, u"row"_s, 300).field(u"f"_s, u"Title"_s, {0, 0, 2500, 300}).wrapped();
    report.add(Kind::GroupFoot, u"foot"_s, 300).field(u"n"_s, u"Id"_s, wholeWidth);
    report.add(Kind::ReportFoot, u"end"_s, 300).caption(u"End"_s, wholeWidth);
    desk.source.open(u"SHAPE {SELECT * FROM Accounts where id<4 order by id} APPEND ({SELECT * FROM Accounts where "
                     "type=0 order by id} AS rows RELATE Id TO Nature) AS rows"_s);
    const ReportPages pages = *layOut(report, desk.source);
    QVERIFY(pages.count() > 5);
    const QStringList heads{u"Wages"_s, u"Sales"_s, u"Purchase"_s};
    QStringList printed;
    for (int i = 0; i < pages.count(); ++i) {
        QStringList page = texts(pages.page(i));
        // The head of the group that goes on there.
        QVERIFY2(heads.contains(page.first()), qPrintable(page.first()));
        if (printed.contains(page.first()))
            page.removeFirst();
        printed += page.join(u' ').split(u' ');
    }
    QStringList expected{u"Wages"_s};
    for (int i = 1; i <= 141; ++i) {
        if (i == 61)
            expected += QStringList{u"1"_s, u"Sales"_s} + words + QStringList{u"2"_s, u"Purchase"_s};
        else
            expected += {u"Client"_s, QString::number(i)};
    }
    QCOMPARE(printed, expected + QStringList({u"3"_s, u"End"_s}));
}

void ReportTest::withoutRowsHeadsAndFeetStillPrint()
{
    Desk desk;
    Report report(u"Test"_s, {});
    report.add(Kind::ReportHead, u"first"_s, 300).caption(u"Statement"_s, wholeWidth);
    report.add(Kind::Detail, u"row"_s, 300).field(u"f"_s, u"Title"_s, wholeWidth);
    report.add(Kind::ReportFoot, u"last"_s, 300).caption(u"Total"_s, wholeWidth);
    const ReportPages pages = desk.laidOut(report);
    QCOMPARE(pages.count(), 1);
    QCOMPARE(texts(pages.page(0)), QStringList({u"Statement"_s, u"Total"_s}));
}

void ReportTest::aTextLongerThanAPageLosesNothing()
{
    QStringList words;
    for (int i = 0; i < 3000; ++i)
        words += u"word%1"_s.arg(i);
    // In a row, and in the report's head, which then stands below that of each page.
    for (const bool inHead : {false, true}) {
        Desk desk;
        Report report(u"Test"_s, {});
        report.add(Kind::PageHead, u"top"_s, 300).caption(u"Top"_s, wholeWidth);
        if (inHead)
            report.add(Kind::ReportHead, u"title"_s, 300).caption(words.join(u' '), {0, 0, 2500, 300});
        else
            desk.addAccount(words.join(u' '));
        desk.addAccount(u"Next"_s);
        ReportSection &row = report.add(Kind::Detail, u"row"_s, 300);
        row.field(u"f"_s, u"Title"_s, {0, 0, 2500, 300}).wrapped();
        row.field(u"n"_s, u"Id"_s, {3000, 0, 900, 300});
        const ReportPages pages = desk.laidOut(report);
        QVERIFY(pages.count() > 3);
        QStringList printed;
        for (int i = 0; i < pages.count(); ++i) {
            const ReportPages::Page page = pages.page(i);
            QCOMPARE(page.front().text, u"Top"_s);
            for (const Item &item : page) {
                QVERIFY(item.place.bottom() <= 16838 - 600);
                QVERIFY(item.text == u"Top" || item.place.y() >= page.front().place.bottom());
                if (item.place.x() < 3000 + 1129 && item.text != u"Top")
                    printed += item.text.split(u' ');
            }
        }
        QCOMPARE(printed, words + QStringList{u"Next"_s});
    }
}

void ReportTest::aHeadTallerThanHalfAPageIsNotRepeated()
{
    Desk desk;
    desk.addClients(40);
    DE().CN.execute(u"update Accounts set Nature=1 where type=0"_s);
    Report report(u"Test"_s, {}, u"rows"_s);
    report.add(Kind::GroupHead, u"head"_s, 9000).caption(u"Tall"_s, wholeWidth);
    report.add(Kind::Detail, u"row"_s, 300).field(u"f"_s, u"Title"_s, wholeWidth);
    desk.source.open(u"SHAPE {SELECT * FROM Accounts where id=4} APPEND ({SELECT * FROM Accounts where type=0} "
                     "AS rows RELATE ReadOnly TO Nature) AS rows"_s);
    const ReportPages pages = *layOut(report, desk.source);
    QCOMPARE(pages.count(), 2);
    QVERIFY(!texts(pages.page(1)).contains(u"Tall"_s));
}

void ReportTest::aLineTooWideIsSetSmaller()
{
    for (const auto &[text, oneLine] : {std::pair{u"1,250.00"_s, true}, {u"1,234,567,890.00"_s, true},
             {u"A name that no column of a printed card was ever made for"_s, false}, {QString(60, u'9'), false}}) {
        Desk desk;
        Report report(u"Test"_s, {});
        report.add(Kind::ReportHead, u"head"_s, 600).caption(text, {0, 0, 1500, 300}).right();
        const ReportPages::Page page = desk.laidOut(report).page(0);
        for (const Item &item : page)
            QVERIFY(QFontMetricsF(item.font).horizontalAdvance(item.text) <= 1500 * 1.01);
        QCOMPARE(page.size() == 1, oneLine);
        QCOMPARE(texts(page).join(QString()).remove(u' '), QString(text).remove(u' '));
    }
}

void ReportTest::whatGrowsPushesTheRestDown()
{
    Desk desk;
    Report report(u"Test"_s, {});
    ReportSection &head = report.add(Kind::ReportHead, u"head"_s, 900);
    head.frame({0, 0, 5000, 900});
    head.caption(u"one\r\ntwo\rthree\nfour"_s, {0, 0, 2000, 300});
    head.caption(u"beside"_s, {2500, 0, 2000, 300});
    head.caption(u"below"_s, {0, 350, 2000, 300});
    head.line({0, 700, 5000, 0});
    report.add(Kind::ReportFoot, u"foot"_s, 300).caption(u"after"_s, wholeWidth);
    desk.source.open(u"Select * from Accounts where id=0"_s);
    const ReportPages pages = *layOut(report, desk.source);

    const double top = 720;
    const double grown = itemWith(pages, u"four"_s).place.bottom() - top - 300;
    QVERIFY(grown > 300);
    QVERIFY(itemWith(pages, u"beside"_s).place.y() < top + 300);
    QVERIFY(itemWith(pages, u"below"_s).place.y() >= itemWith(pages, u"four"_s).place.bottom());
    const ReportPages::Page page = pages.page(0);
    const auto ofKind = [&page](Item::Kind kind) { return std::ranges::find(page, kind, &Item::kind)->place; };
    QVERIFY(ofKind(Item::Kind::Line).y() >= top + 700 + grown - 1);
    QVERIFY(ofKind(Item::Kind::Frame).bottom() >= top + 900 + grown - 1);
    QVERIFY(itemWith(pages, u"after"_s).place.y() >= top + 900 + grown - 1);
}

void ReportTest::namesAreFoundInAnyCase()
{
    Report report(u"Test"_s, {});
    report.add(Kind::PageHead, u"Section4"_s, 300).label(u"lblAddress3"_s, wholeWidth);
    report.section(u"section4").setText(u"LBLADDRESS3", u"Jaipur"_s);
    QCOMPARE(report.section(u"Section4").control(u"lbladdress3").text, u"Jaipur"_s);
    EXPECT_FAULT(Fault::ItemNotFound, static_cast<void>(report.section(u"Section5")));
    EXPECT_FAULT(Fault::ItemNotFound, report.section(u"Section4").setText(u"lblAddress4", {}));
}

void ReportTest::picturesAreCheckedWhenSet()
{
    Desk desk;
    const QString file = desk.folder.filePath(u"logo.png"_s);
    Report report(u"Test"_s, {});
    ReportSection &head = report.add(Kind::PageHead, u"head"_s, 2000);
    head.picture(u"logo"_s, {0, 0, 1000, 1000});
    EXPECT_FAULT(Fault::FileNotFound, head.setPicture(u"logo", file));
    writeContent(file, "no picture");
    EXPECT_FAULT(Fault::FileFault, head.setPicture(u"logo", file));

    QImage red(40, 20, QImage::Format_RGB32);
    red.fill(Qt::red);
    QVERIFY(red.save(file));
    head.setPicture(u"logo", file);
    desk.source.open(u"Select * from Accounts where id=0"_s);
    const ReportPages pages = *layOut(report, desk.source);
    QCOMPARE(pages.page(0).front().picture.size(), red.size());
}

void ReportTest::aPdfHoldsTheTextsAndIsWrittenWholeOrNotAtAll()
{
    Desk desk;
    desk.addClients(70);
    Report report(u"Test"_s, {});
    report.add(Kind::Detail, u"row"_s, 300).field(u"f"_s, u"Title"_s, wholeWidth);
    const ReportPages pages = desk.laidOut(report);
    const QString file = desk.folder.filePath(u"report.pdf"_s);
    QCOMPARE(pages.savePdf(file), ReportPages::Drawn::Whole);
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QCOMPARE(QFile::permissions(file) & others, QFile::Permissions());
    const QStringList read = pdfText(file);
    QCOMPARE(read.size(), 2);
    QVERIFY(read.first().contains(u"Client 1\n"_s));
    QVERIFY(read.last().contains(u"Client 70\n"_s));

    EXPECT_FAULT(
        Fault::FileFault, static_cast<void>(pages.savePdf(desk.folder.filePath(u"no such folder/report.pdf"_s))));
    EXPECT_FAULT(Fault::FileFault, static_cast<void>(pages.savePdf(desk.folder.path())));
    QCOMPARE(pdfText(file), read);
}

void ReportTest::theReportHeadStandsAboveThePageHead()
{
    Desk desk;
    desk.addClients(60);
    Report report(u"Test"_s, {});
    report.add(Kind::PageHead, u"top"_s, 300).caption(u"Page head"_s, wholeWidth);
    report.add(Kind::ReportHead, u"title"_s, 600).caption(u"Statement"_s, wholeWidth);
    report.add(Kind::Detail, u"row"_s, 300).field(u"f"_s, u"Title"_s, wholeWidth);
    const ReportPages pages = desk.laidOut(report);
    QCOMPARE(pages.count(), 2);
    QVERIFY(itemWith(pages, u"Statement"_s).place.y() < itemWith(pages, u"Page head"_s).place.y());
    QVERIFY(itemWith(pages, u"Page head"_s).place.y() < itemWith(pages, u"Client 1"_s).place.y());
    const QStringList second = texts(pages.page(1));
    QCOMPARE(second.first(), u"Page head"_s);
    QVERIFY(!second.contains(u"Statement"_s));
}

void ReportTest::aFootThatGrowsKeepsItsRoom()
{
    Desk desk;
    desk.addClients(120);
    const Report::Paper paper;
    Report report(u"Test"_s, paper);
    report.add(Kind::Detail, u"row"_s, 300).field(u"f"_s, u"Title"_s, wholeWidth);
    report.add(Kind::PageFoot, u"foot"_s, 300).caption(u"1\n2\n3\n4\n5\nlast line"_s, wholeWidth);
    const ReportPages pages = desk.laidOut(report);
    for (int i = 0; i < pages.count(); ++i) {
        double rows = 0;
        for (const Item &item : pages.page(i)) {
            QVERIFY2(item.place.bottom() <= paper.size.height() - paper.bottom + 1, qPrintable(item.text));
            if (item.text.startsWith(u"Client"_s))
                rows = item.place.bottom();
            if (item.text == u"1")
                QVERIFY(item.place.top() >= rows);
        }
    }
}

void ReportTest::theLastTwoLinesStayWithTheFoot_data()
{
    QTest::addColumn<int>("lines");
    // 51 lines fill a page.
    for (const int lines : {1, 2, 47, 48, 49, 50, 51, 52, 53, 99, 100, 101, 102, 103})
        QTest::addRow("%d lines", lines) << lines;
}

void ReportTest::theLastTwoLinesStayWithTheFoot()
{
    QFETCH(const int, lines);
    for (const bool grouped : {false, true}) {
        Desk desk;
        desk.addClients(lines);
        Report report(u"Test"_s, {}, grouped ? u"rows"_s : QString());
        report.add(Kind::Detail, u"row"_s, 300).field(u"f"_s, u"Title"_s, wholeWidth);
        report.add(Kind::ReportFoot, u"foot"_s, 900).caption(u"Total"_s, wholeWidth);
        const QString rows = u"Select * from Accounts where Type=0 order by id"_s;
        DE().CN.execute(u"update Accounts set Nature=1 where type=0"_s);
        desk.source.open(grouped ? u"SHAPE {SELECT * FROM Accounts where id=4} APPEND ({"_s + rows
                    + u"} AS rows RELATE ReadOnly TO Nature) AS rows"_s
                                 : rows);
        const ReportPages pages = *layOut(report, desk.source);
        QStringList all;
        for (int i = 0; i < pages.count(); ++i)
            all += texts(pages.page(i));
        QCOMPARE(all.size(), lines + 1);
        QCOMPARE(all.at(lines - 1), u"Client %1"_s.arg(lines));
        QVERIFY(texts(pages.page(pages.count() - 1)).size() >= qMin(lines, 2) + 1);
    }
}

void ReportTest::paperIsWhatItIs()
{
    // Upright and landscape, and labels wider and higher than that.
    for (const auto &[twips, millimetres] :
        {std::pair{QSize(11906, 16838), QSizeF(210, 297)}, {QSize(16838, 11906), QSizeF(297, 210)},
            {QSize(3969, 2268), QSizeF(70, 40)}, {QSize(2268, 3969), QSizeF(40, 70)}}) {
        Desk desk;
        Report report(u"Test"_s, {.size = twips, .left = 100, .top = 100, .bottom = 100});
        report.add(Kind::PageHead, u"top"_s, 300).caption(u"Page head"_s, {0, 0, 2000, 300});
        desk.source.open(u"Select * from Accounts where id=0"_s);
        const ReportPages pages = *layOut(report, desk.source);
        const auto isIt = [expected = millimetres](QSizeF size) {
            return qAbs(size.width() - expected.width()) < 0.6 && qAbs(size.height() - expected.height()) < 0.6;
        };
        QVERIFY(isIt(pages.pageLayout().fullRect(QPageLayout::Millimeter).size()));
        const QString file = desk.folder.filePath(u"paper.pdf"_s);
        QCOMPARE(pages.savePdf(file), ReportPages::Drawn::Whole);
        static const QRegularExpression box(u"/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]"_s);
        const auto found = box.match(QString::fromLatin1(contentOf(file)));
        QVERIFY(found.hasMatch());
        constexpr double millimetresOfPoint = 25.4 / 72;
        QVERIFY2(isIt(QSizeF(found.captured(1).toDouble(), found.captured(2).toDouble()) * millimetresOfPoint),
            qPrintable(found.captured(0)));
    }
}

void ReportTest::pagesOutliveTheirRowsAndAreMadeAlone()
{
    Desk desk;
    desk.addClients(130);
    Report report(u"Test"_s, {});
    report.add(Kind::Detail, u"row"_s, 300).field(u"f"_s, u"Title"_s, wholeWidth);
    report.add(Kind::PageFoot, u"foot"_s, 300).caption(u"%p of %P"_s, wholeWidth);
    const ReportPages pages = desk.laidOut(report);
    desk.source.reopen(u"Select * from Accounts where Type=0 order by id"_s);
    desk.connection.execute(u"Delete * from Accounts"_s);
    desk.source.close();
    QCOMPARE(pages.count(), 3);
    const QStringList last = texts(pages.page(2));
    QCOMPARE(last.first(), u"Client %1"_s.arg(130 - (last.size() - 2)));
    QCOMPARE(last.last(), u"3 of 3"_s);
    const QStringList first = texts(pages.page(0));
    QCOMPARE(texts(pages.page(1)).first(), u"Client %1"_s.arg(first.size()));
    QCOMPARE(texts(pages.page(2)), last);
    QCOMPARE(texts(pages.page(0)), first);
}

void ReportTest::longWorkCanBeBrokenOff()
{
    Desk desk;
    desk.addClients(40);
    Report report(u"Test"_s, {});
    ReportSection &row = report.add(Kind::Detail, u"row"_s, 8000);
    for (int field = 0; field < 60; ++field)
        row.field({}, u"Title"_s, wholeWidth);
    // Each client with each: enough to wait for.
    desk.source.open(u"Select a.Title, b.Type from Accounts a, Accounts b, Accounts c, Accounts d where d.id<9"_s);
    ModalScript script;
    script.expect(u"QProgressDialog"_s, [](QWidget &) { driver::press(Qt::Key_Escape); });
    QVERIFY(!layOut(report, desk.source));
    QVERIFY(script.isDone());

    // A PDF that is broken off leaves what stood there.
    const ReportPages many(u"Many"_s, {11906, 16838}, 100000, [](int) { return ReportPages::Page(); });
    const QString file = desk.folder.filePath(u"many.pdf"_s);
    writeContent(file, "older");
    script.expect(u"QProgressDialog"_s, [](QWidget &) { driver::press(Qt::Key_Escape); });
    QCOMPARE(many.savePdf(file), ReportPages::Drawn::Broken);
    QCOMPARE(contentOf(file), QByteArray("older"));
    QCOMPARE(QDir(desk.folder.path()).entryList({u"many*"_s}, QDir::Files), QStringList{u"many.pdf"_s});
}

CORVANE_TEST(ReportTest)
#include "tst_Report.moc"
