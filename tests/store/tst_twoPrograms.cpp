#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "support/StoreFile.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Two programs on one file: what one of them remembers is not older than what the other wrote.
class TwoProgramsTest : public QObject {
    Q_OBJECT

private slots:
    void whatTheOtherWroteIsSeen_data();
    void whatTheOtherWroteIsSeen();
    void ownWritesAreNotTakenForTheOthers();
};

void TwoProgramsTest::whatTheOtherWroteIsSeen_data()
{
    QTest::addColumn<QString>("occasion");
    for (const char *occasion : {"front", "list", "group", "statement", "row"})
        QTest::newRow(occasion) << QString::fromLatin1(occasion);
}

void TwoProgramsTest::whatTheOtherWroteIsSeen()
{
    QFETCH(QString, occasion);
    StoreFile file;
    file.addAccount(u"Asha"_s);
    file.addItem(u"Coat"_s, u"Chest"_s, 400, 150);
    file.addPosting(5, QDate(2011, 4, 1), 100);
    Connection other;
    other.open(file.path());
    const quint64 before = DE().CN.otherWrites();
    QCOMPARE(GetAccountTitle(5), u"Asha"_s);
    QCOMPARE(GetItemFees(1), 400.0);
    QCOMPARE(GetAccountBalance(5, {2011, 4, 1}), 100.0);
    Recordset row(DE().CN);
    row.open(u"Select * from Items where id=1"_s);

    other.execute(u"Update Accounts set Title='Babu' where id=5"_s);
    other.execute(u"Update Items set FEES=450"_s);
    other.execute(u"Update Postings set Amount=70"_s);
    // A lookup by itself asks nothing of the file.
    QCOMPARE(GetAccountTitle(5), u"Asha"_s);

    if (occasion == u"front")
        DE().CN.noticeOtherWriters();
    else if (occasion == u"list")
        QCOMPARE(FillCombo(u"Title"_s, u"Accounts"_s, {}, DE().rsaccounts).size(), 5);
    else if (occasion == u"statement")
        DE().CN.execute(u"Delete from rank"_s);
    else if (occasion == u"row") {
        row.set(u"NAME", u"Long Coat"_s);
        row.update();
    }
    if (occasion == u"group") {
        WriteGroup::run(DE().CN, [] {
            QCOMPARE(GetAccountTitle(5), u"Babu"_s);
            QCOMPARE(GetAccountBalance(5, {2011, 4, 1}), 70.0);
        });
    }
    QCOMPARE(GetAccountTitle(5), u"Babu"_s);
    QCOMPARE(GetItemFees(1), 450.0);
    QCOMPARE(GetAccountBalance(5, {2011, 4, 1}), 70.0);
    QVERIFY(DE().CN.otherWrites() > before);
    if (occasion == u"row")
        QCOMPARE(file.lines(u"Select NAME, FEES from Items"_s), QStringList{u"Long Coat|450"_s});
}

void TwoProgramsTest::ownWritesAreNotTakenForTheOthers()
{
    StoreFile file;
    Connection other;
    other.open(file.path());
    QCOMPARE(GetAccountTitle(1), u"Wages"_s);
    const quint64 writes = DE().CN.otherWrites();
    const quint64 accounts = DE().CN.writeStamp("accounts");
    file.addPosting(4, QDate(2011, 4, 1), 100);
    DE().CN.execute(u"Update Postings set Amount=70"_s);
    Recordset looking(other);
    looking.open(u"Select * from Postings"_s);
    DE().CN.noticeOtherWriters();
    QCOMPARE(DE().CN.otherWrites(), writes);
    QCOMPARE(DE().CN.writeStamp("accounts"), accounts);
}

CORVANE_TEST(TwoProgramsTest)
#include "tst_twoPrograms.moc"
