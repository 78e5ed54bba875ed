#include "registers/trialMarks.h"

#include "base/session.h"
#include "support/TestShop.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Mark = std::function<std::optional<MarkedRows>(qint32)>;

/// The marks of trials, on the file.
class TrialMarksTest : public QObject {
    Q_OBJECT

private slots:
    void marksLookAtNothingBefore_data();
    void marksLookAtNothingBefore();
};

void TrialMarksTest::marksLookAtNothingBefore_data()
{
    QTest::addColumn<Mark>("mark");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const auto row = [](const char *name, const Mark &mark, const QString &first, const QString &second) {
        QTest::newRow(name) << mark << first << second;
    };
    const QString day = u"09-Apr-2011"_s;
    row("appeared", trialMarks::appeared, u"1|10-Apr-2011|"_s + day, u"1|11-Apr-2011|"_s + day);
    row("not appeared", trialMarks::notAppeared, u"0||"_s + day, u"0||"_s + day);
    row("canceled", trialMarks::canceled, u"2||"_s + day, u"2||"_s + day);
    row(
        "moved",
        [](qint32 job) {
            return trialMarks::movedTo(job, {2011, 5, 1});
        },
        u"0||01-May-2011"_s, u"0||01-May-2011"_s);
}

void TrialMarksTest::marksLookAtNothingBefore()
{
    QFETCH(const Mark, mark);
    QFETCH(const QString, first);
    QFETCH(const QString, second);
    TestShop shop;
    for (const int before : {0, 1, 2})
        shop.addJob({.number = 1 + before, .date = {2011, 4, 9}, .appeared = before});
    const auto trials = [&shop] { return shop.lines(u"Select appeared, appearedDate, trialdate from Jobs"_s); };
    for (const auto &[day, expected] : {std::pair(10, first), std::pair(11, second)}) {
        session::CurrentDate = QDate(2011, 4, day);
        for (const int job : {1, 2, 3})
            QVERIFY(mark(job));
        QCOMPARE(trials(), QStringList(3, expected));
    }
    const QStringList before = shop.lines(u"Select * from Jobs"_s);
    QVERIFY(!mark(4));
    QCOMPARE(shop.lines(u"Select * from Jobs"_s), before);
    // The day of a former mark comes back too, but not over what was done on the card since.
    session::CurrentDate = {2011, 4, 12};
    const auto last = mark(2);
    QVERIFY(last);
    QCOMPARE(last->takeBack(), MarkedRows::TakenBack::Yes);
    QCOMPARE(shop.lines(u"Select * from Jobs"_s), before);
    const auto another = mark(2);
    QVERIFY(another);
    shop.connection.execute(u"Update Jobs set trialdate=#02-May-2011# where id=2"_s);
    const QStringList changed = shop.lines(u"Select * from Jobs"_s);
    QCOMPARE(another->takeBack(), MarkedRows::TakenBack::Changed);
    QCOMPARE(shop.lines(u"Select * from Jobs"_s), changed);
}

CORVANE_TEST(TrialMarksTest)
#include "tst_trialMarks.moc"
