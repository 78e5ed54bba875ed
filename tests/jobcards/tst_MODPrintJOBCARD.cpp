#include "jobcards/MODPrintJOBCARD.h"

#include "OrderDesk.h"
#include "base/session.h"
#include "reports/rptJOBCARD.h"
#include "store/settings.h"
#include "support/PdfPrinter.h"
#include "support/expectFault.h"

#include <QImage>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::press;

/// A job card on paper, from its rows in the file to the text on the sheet.
class PrintJobCardTest : public QObject {
    Q_OBJECT

private slots:
    void theScratchTablesHoldTheCard();
    void theSheetShowsCardAndShop();
    void aCardOverManyPagesIsPrintedWhole();
    void theLogoTakesItsPlace();
    void aLogoThatIsGoneFailsThePrint();
    void theSettingDecidesTheWay();
    void anEditPrintsOnlyWhenAskedAndAnUnsavedCardNever();
};

namespace {

const QString headStatement =
    u"Select Date, JobID, Name, DelDate, trialdate, AmountDue, AmountPaid, Amount from tmpHead"_s;
const QString bodyStatement = u"Select JobID, QNT, ItemName, Remarks, FESS, Amount from tmpBody order by id"_s;

/// A shop with a printer that prints into a PDF file, at once and without a preview.
struct PrintDesk : OrderDesk {
    PrintDesk()
    {
        session::ShopName = u"Kovrel Tailors"_s;
        session::ShopAddress1 = u"12 Station Road"_s;
        session::ShopAddress2 = u"Opposite Clock Tower"_s;
        session::ShopAddress3 = u"Jaipur"_s;
        session::ShopContacts = u"0141 555 0142"_s;
        SaveSetting(setting::PrintPreview, u"0"_s);
    }

    PdfPrinter printer{folder.filePath(u"paper.pdf"_s)};
};

} // namespace

void PrintJobCardTest::theScratchTablesHoldTheCard()
{
    PrintDesk desk;
    desk.book(u"7"_s, 2);
    // The items print under the name that they have now.
    desk.connection.execute(u"update Items set Name='Long Coat' where id=1"_s);
    PrintJobCard(7);
    QCOMPARE(desk.lines(headStatement), QStringList{u"10-Apr-2011|7|Asha Rao|17-Apr-2011|12-Apr-2011|1600|100|1500"_s});
    QCOMPARE(desk.lines(bodyStatement), QStringList(2, u"7|2|Long Coat|Wool|400|800"_s));

    // One that is overpaid prints in brackets, and nothing is left of the one before.
    JobCard other = desk.card(u"8"_s);
    other.TotalText = u"0.10"_s;
    other.ReceivedText = u"1250.3"_s;
    clsJobCardData rows = desk.rows(1);
    desk.connection.execute(u"update Items set Name='Coat' where id=1"_s);
    JobCardStore().SaveNew(other, rows);
    PrintJobCard(8);
    QCOMPARE(
        desk.lines(headStatement), QStringList{u"10-Apr-2011|8|Asha Rao|17-Apr-2011|12-Apr-2011|0.1|1250.3|-1250.2"_s});
    QCOMPARE(desk.lines(bodyStatement), QStringList{u"8|2|Coat|Wool|400|800"_s});
    QVERIFY(desk.printer.printed().first().contains(u"Amount Due (1,250.20)"_s));
}

void PrintJobCardTest::theSheetShowsCardAndShop()
{
    PrintDesk desk;
    SaveSetting(setting::TagLine, u"Made to measure"_s);
    SaveSetting(setting::FootNote, u"No return after 30 days"_s);
    desk.book(u"7"_s);
    PrintJobCard(7);
    const QStringList pages = desk.printer.printed();
    QCOMPARE(pages.size(), 1);
    for (const QString &text :
        {u"Kovrel Tailors"_s, u"12 Station Road"_s, u"Opposite Clock Tower"_s, u"Jaipur"_s, u"0141 555 0142"_s,
            u"Made to measure"_s, u"Client Name : Asha Rao"_s, u"Job Card # 7"_s, u"Delivery Date : 17-Apr-2011"_s,
            u"Date: 10-Apr-2011"_s, u"Trial Date: 12-Apr-2011"_s, u"Particulars Remark QTY Fees Amount"_s,
            u"Coat Wool 2 400.00 800.00"_s, u"Total 1,600.00"_s, u"Amount Received 100.00"_s, u"Amount Due 1,500.00"_s,
            u"For Kovrel Tailors"_s, u"Auth Sig"_s, u"No return after 30 days"_s, u"Staple Cloth Samples here..."_s})
        QVERIFY2(pages.first().contains(text), qPrintable(text + u" is not in "_s + pages.first()));
}

void PrintJobCardTest::aCardOverManyPagesIsPrintedWhole()
{
    PrintDesk desk;
    clsJobCardData rows = desk.rows(70);
    for (int i = 1; i <= 70; ++i)
        rows.SetRemarks(i, u"Remark %1"_s.arg(i));
    JobCardStore().SaveNew(desk.card(u"7"_s), rows);
    PrintJobCard(7);
    const QStringList pages = desk.printer.printed();
    QVERIFY(pages.size() >= 2);
    for (int i = 0; i < pages.size(); ++i) {
        QVERIFY(pages.at(i).contains(u"Job Card # 7"_s));
        QVERIFY(pages.at(i).contains(u"Page %1 of %2"_s.arg(i + 1).arg(pages.size())));
        QCOMPARE(pages.at(i).contains(u"Amount Due"_s), i == pages.size() - 1);
    }
    for (int i = 1; i <= 70; ++i)
        QVERIFY2(pages.join(u' ').contains(u"Remark %1 "_s.arg(i)), qPrintable(QString::number(i)));
}

void PrintJobCardTest::theLogoTakesItsPlace()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"logo.png"_s);
    QImage logo(30, 30, QImage::Format_RGB32);
    logo.fill(Qt::darkBlue);
    QVERIFY(logo.save(file));
    Report with = rptJOBCARD();
    SetJobCardLogo(with, file);
    ReportSection &head = with.section(u"Section6");
    QVERIFY(!head.control(u"logo").picture.isNull());
    QVERIFY(head.control(u"lblCompany").place.left() > head.control(u"logo").place.right());
    // Without one the shop's lines take the whole width.
    Report without = rptJOBCARD();
    SetJobCardLogo(without, {});
    for (const auto *name : {u"lblCompany", u"lblAddress1", u"lblAddress2", u"lblAddress3", u"lblContact"}) {
        const QRect place = without.section(u"Section6").control(name).place;
        QCOMPARE(std::pair(place.left(), place.width()), std::pair(144, 9360));
    }
}

void PrintJobCardTest::aLogoThatIsGoneFailsThePrint()
{
    PrintDesk desk;
    desk.book(u"7"_s);
    SaveSetting(setting::LogoFile, desk.folder.filePath(u"gone.png"_s));
    EXPECT_FAULT(Fault::FileNotFound, PrintJobCard(7));
    // And a card that is gone, after which it can be gone on.
    const RuntimeError error = failureOf([] { PrintJobCard(9); });
    QVERIFY(error.fault() == Fault::NoCurrentRecord && error.canGoOn());
    QCOMPARE(desk.printer.jobs(), 0);
    // The shop can print again as soon as the logo is set right.
    SaveSetting(setting::LogoFile, {});
    PrintJobCard(7);
    QCOMPARE(desk.printer.jobs(), 1);
}

void PrintJobCardTest::theSettingDecidesTheWay()
{
    PrintDesk desk;
    desk.book(u"7"_s);
    desk.connection.execute(u"Delete * from Settings where setting='15'"_s);
    // None as long as it was never saved.
    for (const auto &[value, jobs] : {std::pair(QString(), 0), {u"1"_s, 0}, {u"0"_s, 1}, {u"2"_s, 1}}) {
        if (!value.isNull())
            SaveSetting(setting::PrintPreview, value);
        ModalScript script;
        if (jobs == 0)
            script.expect(u"ReportPreview"_s, [&script](QWidget &preview) {
                QCOMPARE(offeredPdf(script, preview), u"Job Card 7 Asha Rao.pdf"_s);
                press(Qt::Key_Escape);
            });
        PrintJobCard(7);
        QVERIFY(script.isDone());
        QCOMPARE(desk.printer.jobs(), jobs);
    }
}

void PrintJobCardTest::anEditPrintsOnlyWhenAskedAndAnUnsavedCardNever()
{
    PrintDesk desk;
    desk.book(u"7"_s);
    SaveSetting(setting::PrintAfterSave, u"1"_s);
    onCard(7, [&desk](QWidget &, ModalScript &script) {
        accessKey('p');
        QCOMPARE(desk.printer.jobs(), 1);
        saveEdit(script);
    });
    onCard(0, [](QWidget &, ModalScript &) { accessKey('p'); });
    QCOMPARE(desk.printer.jobs(), 1);
}

CORVANE_TEST(PrintJobCardTest)
#include "tst_MODPrintJOBCARD.moc"
