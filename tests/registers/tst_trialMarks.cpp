#include "registers/trialMarks.h"

#include "base/session.h"
#include "support/TestShop.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The marks of trials, on the file.
class TrialMarksTest : public QObject {
    Q_OBJECT

private slots:
    void marksLookAtNothingBefore();
};

void TrialMarksTest::marksLookAtNothingBefore()
{
    const auto moved = [](qint32 job) { return trialMarks::movedTo(job, {2011, 5, 1}); };
    const struct {
        std::function<std::optional<MarkedRows>(qint32)> mark;
        QString first;
        QString second;
    } marks[]{{trialMarks::appeared, u"1|10-Apr-2011|09-Apr-2011"_s, u"1|11-Apr-2011|09-Apr-2011"_s},
        {trialMarks::notAppeared, u"0||09-Apr-2011"_s, u"0||09-Apr-2011"_s},
        {trialMarks::canceled, u"2||09-Apr-2011"_s, u"2||09-Apr-2011"_s},
        {moved, u"0||01-May-2011"_s, u"0||01-May-2011"_s}};
    for (const auto &[mark, first, second] : marks) {
        TestShop shop;
        for (const int before : {0, 1, 2})
            shop.addJob({.number = 1 + before, .date = {2011, 4, 9}, .appeared = before});
        for (const auto &[day, expected] : {std::pair(10, first), std::pair(11, second)}) {
            session::CurrentDate = QDate(2011, 4, day);
            for (const int job : {1, 2, 3})
                QVERIFY(mark(job));
            QCOMPARE(shop.lines(u"Select appeared, appearedDate, trialdate from Jobs"_s), QStringList(3, expected));
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
}

CORVANE_TEST(TrialMarksTest)
#include "tst_trialMarks.moc"
