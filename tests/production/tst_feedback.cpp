#include "production/feedback.h"

#include "production/frmFeedBack.h"
#include "production/frmRatings.h"
#include "store/DataEnvironment.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBoxMultiLine.h"
#include "ui/signs.h"

#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;

/// What clients say of garments, and the ranking of workers that follows from it.
class FeedbackTest : public QObject {
    Q_OBJECT

private slots:
    void feedbackIsGivenByKeysAndSeenAgain();
    void whatIsTypedAsScore_data();
    void whatIsTypedAsScore();
    void aRowThatIsGoneIsTold();
    void readOnlyFeedbackCannotBeSaved();
    void workersAreRankedByTheSumOfTheirScores();
    void withoutWorkersNothingIsRanked();
};

namespace {

constexpr int mohan = 5;
constexpr int sita = 6;
constexpr int ravi = 7;

/// Rows of the workers Mohan, Sita and Ravi, each with a score, numbered from 1 on.
struct Garments : TestShop {
    Garments()
    {
        for (const QString &name : {u"Mohan"_s, u"Sita"_s, u"Ravi"_s})
            addAccount(name, {}, 1);
        addItem(u"Coat"_s, u"Chest"_s, 900, 300);
    }

    void rate(int worker, const QList<int> &scores)
    {
        for (const int score : scores) {
            addJobRow({.client = mohan, .worker = worker});
            ++m_rows;
            connection.execute(u"update Jobs_Detail set Score=%1 where id=%2"_s.arg(score).arg(m_rows));
        }
    }

    [[nodiscard]] QString stored(int row)
    {
        return lines(u"Select Score, ClientFeedback from Jobs_Detail where id="_s + QString::number(row)).value(0);
    }

private:
    int m_rows = 0;
};

void give(ModalScript &script, const ModalScript::Action &work, qint16 readOnly = 0)
{
    script.expect(u"frmFeedBack"_s, [work](QWidget &screen) {
        work(screen);
        driver::press(Qt::Key_Escape);
    });
    frmFeedBack().GiveFeedback(1, readOnly);
    QVERIFY(script.isDone());
}

QString starsOf(const QWidget &screen)
{
    const auto &label = control<QLabel>(screen, "imgStars");
    return label.pixmap().isNull() ? u"no picture"_s : label.accessibleName();
}

} // namespace

void FeedbackTest::feedbackIsGivenByKeysAndSeenAgain()
{
    Garments shop;
    shop.rate(mohan, {0, 3});
    ModalScript script;
    give(script, [&](QWidget &screen) {
        QCOMPARE(screen.windowTitle(), u"Client Feedback"_s);
        QCOMPARE(driver::entries(control<kvComboBox>(screen, "cmbScore")),
            (QStringList{u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
        QCOMPARE(starsOf(screen), u"0 of 5 stars"_s);
        driver::type(u"4"_s);
        QCOMPARE(starsOf(screen), u"4 of 5 stars"_s);
        driver::press(Qt::Key_Tab);
        driver::type(u"fits well, says \"thank you\""_s);
        script.expectMessage(u"Feedback saved!"_s);
        driver::accessKey('o');
        QVERIFY(screen.isVisible());
    });
    QCOMPARE(shop.stored(1), u"4|fits well, says \"thank you\""_s);
    QCOMPARE(shop.stored(2), u"3|"_s);
    give(script, [](QWidget &screen) {
        QCOMPARE(control<kvComboBox>(screen, "cmbScore").Text(), u"4"_s);
        QCOMPARE(starsOf(screen), u"4 of 5 stars"_s);
        QCOMPARE(control<kvTextBoxMultiLine>(screen, "txtFeedback").Text(), u"fits well, says \"thank you\""_s);
    });
}

void FeedbackTest::whatIsTypedAsScore_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("stars");
    QTest::newRow("above five") << u"7"_s << u"7|"_s << u"2 of 5 stars"_s;
    QTest::newRow("between two") << u"3.5"_s << u"4|"_s << u"3 of 5 stars"_s;
    QTest::newRow("half to the even") << u"2.5"_s << u"2|"_s << u"2 of 5 stars"_s;
    QTest::newRow("words") << u"good"_s << u"0|"_s << u"0 of 5 stars"_s;
    QTest::newRow("below nothing") << u"-1"_s << u"-1|"_s << u"0 of 5 stars"_s;
    QTest::newRow("too large") << u"99999999999"_s << u"2|"_s << u"2 of 5 stars"_s;
}

void FeedbackTest::whatIsTypedAsScore()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, stored);
    QFETCH(const QString, stars);
    Garments shop;
    shop.rate(mohan, {2});
    ModalScript script;
    give(script, [&](QWidget &screen) {
        driver::type(typed);
        QCOMPARE(starsOf(screen), stars);
        const bool isTooLarge = typed.size() > 10;
        script.expectMessage(isTooLarge ? u"Please enter a score from 0 to 5!"_s : u"Feedback saved!"_s);
        driver::accessKey('o');
        QCOMPARE(control<kvComboBox>(screen, "cmbScore").hasFocus(), isTooLarge);
    });
    QCOMPARE(shop.stored(1), stored);
}

void FeedbackTest::aRowThatIsGoneIsTold()
{
    Garments shop;
    ModalScript script;
    const QString gone = u"This item is no longer on its job card!"_s;
    script.expectMessage(gone);
    frmFeedBack().GiveFeedback(1, 0);
    QVERIFY(script.isDone());
    shop.rate(mohan, {1});
    give(script, [&](QWidget &) {
        shop.connection.execute(u"Delete * from Jobs_Detail"_s);
        script.expectMessage(gone);
        driver::accessKey('o');
    });
}

void FeedbackTest::readOnlyFeedbackCannotBeSaved()
{
    Garments shop;
    shop.rate(mohan, {1});
    ModalScript script;
    give(
        script,
        [](QWidget &screen) {
            QVERIFY(!control<Command>(screen, "Command1").isEnabled());
            driver::type(u"5"_s);
            driver::accessKey('o');
        },
        1);
    QCOMPARE(shop.stored(1), u"1|"_s);
}

void FeedbackTest::workersAreRankedByTheSumOfTheirScores()
{
    Garments shop;
    shop.rate(sita, {5, 5, 5});
    shop.rate(mohan, {1, 1});
    shop.rate(ravi, {5, 5, 0, 0, 5, 1});
    const auto shown = [] {
        frmRatings screen;
        [&screen] { QVERIFY(driver::show(screen)); }();
        const auto &list = control<ListView>(screen, "lvSummary");
        QStringList lines;
        for (int row = 0; row < list.list().rowCount(); ++row) {
            const QModelIndex rating = list.list().index(row, 3);
            const bool isPicture = !rating.data(Qt::DecorationRole).value<QIcon>().isNull();
            lines += list.list().at(row).cells.mid(0, 3).join(u'|') + u'|'
                + rating.data(isPicture ? Qt::AccessibleTextRole : Qt::DisplayRole).toString();
        }
        return lines;
    };
    // 16 of 6 is 2.67; as many points as rows are none.
    QCOMPARE(
        shown(), (QStringList{u"1|Ravi|16|3 of 5 stars"_s, u"2|Sita|15|5 of 5 stars"_s, u"3|Mohan|2|0 of 5 stars"_s}));
    QCOMPARE(shop.lines(u"Select Name, Score, Rating from Rank order by Score desc"_s),
        (QStringList{u"Ravi|16|3"_s, u"Sita|15|5"_s, u"Mohan|2|0"_s}));
    shop.rate(mohan, {40, 0, 0});
    QCOMPARE(shown().first(), u"1|Mohan|42|8"_s);
    QCOMPARE(shop.count(u"Rank"_s), 3);
}

void FeedbackTest::withoutWorkersNothingIsRanked()
{
    Garments shop;
    QCOMPARE(feedback::rank().size(), size_t{3});
    shop.connection.execute(u"Delete * from Accounts where type=1"_s);
    QVERIFY(feedback::rank().empty());
    QCOMPARE(shop.count(u"Rank"_s), 0);
    shop.addAccount(u"Devi"_s, {}, 1);
    QCOMPARE(feedback::rank().size(), size_t{1});
}

CORVANE_TEST(FeedbackTest)
#include "tst_feedback.moc"
