#include "production/frmFeedBack.h"

#include "production/frmRatings.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::control;

/// What clients say of garments, and the ranking of workers that follows from it.
class FeedbackTest : public QObject {
    Q_OBJECT

private slots:
    void feedbackIsGivenByKeysAndSeenAgain();
    void whatIsTypedAsScore();
    void aRowThatIsGoneIsTold();
    void workersAreRankedByTheSumOfTheirScores();
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

void give(const std::function<void(QWidget &, ModalScript &)> &work, qint16 readOnly = 0)
{
    ModalScript script;
    script.expect(u"frmFeedBack"_s, [&](QWidget &screen) {
        work(screen, script);
        driver::press(Qt::Key_Escape);
    });
    frmFeedBack().GiveFeedback(1, readOnly);
}

void save(ModalScript &script, const QString &answer = u"Feedback saved!"_s)
{
    script.expectMessage(answer);
    driver::accessKey('o');
}

QString starsOf(const QWidget &screen)
{
    const auto &label = control<QLabel>(screen, "imgStars");
    return label.pixmap().isNull() ? u"no picture"_s : label.accessibleName();
}

} // namespace

void FeedbackTest::feedbackIsGivenByKeysAndSeenAgain()
{
    const QString words = u"fits well, says \"thank you\""_s;
    Garments shop;
    shop.rate(mohan, {0, 3});
    give([&words](QWidget &screen, ModalScript &script) {
        QCOMPARE(driver::entries(control<kvComboBox>(screen, "cmbScore")).join(u' '), u"0 1 2 3 4 5"_s);
        QCOMPARE(starsOf(screen), u"0 of 5 stars"_s);
        driver::type(u"4"_s);
        QCOMPARE(starsOf(screen), u"4 of 5 stars"_s);
        driver::press(Qt::Key_Tab);
        driver::type(words);
        save(script);
        QVERIFY(screen.isVisible());
    });
    QCOMPARE(shop.stored(1), u"4|"_s + words);
    QCOMPARE(shop.stored(2), u"3|"_s);
    // It is seen again, and when it is only to be read it can't be saved.
    give(
        [&words](QWidget &screen, ModalScript &) {
            QCOMPARE(control<kvComboBox>(screen, "cmbScore").Text(), u"4"_s);
            QCOMPARE(starsOf(screen), u"4 of 5 stars"_s);
            QCOMPARE(control<kvTextBoxMultiLine>(screen, "txtFeedback").Text(), words);
            QVERIFY(!control<Command>(screen, "Command1").isEnabled());
            driver::type(u"5"_s);
            driver::accessKey('o');
        },
        1);
    QCOMPARE(shop.stored(1), u"4|"_s + words);
}

void FeedbackTest::whatIsTypedAsScore()
{
    const struct {
        QString typed;
        QString stored;
        QString stars;
    } cases[]{{u"7"_s, u"7|"_s, u"2 of 5 stars"_s}, {u"3.5"_s, u"4|"_s, u"3 of 5 stars"_s},
        {u"2.5"_s, u"2|"_s, u"2 of 5 stars"_s}, {u"good"_s, u"0|"_s, u"0 of 5 stars"_s},
        {u"-1"_s, u"-1|"_s, u"0 of 5 stars"_s}, {u"99999999999"_s, u"2|"_s, u"2 of 5 stars"_s}};
    for (const auto &entry : cases) {
        Garments shop;
        shop.rate(mohan, {2});
        give([&entry](QWidget &screen, ModalScript &script) {
            driver::type(entry.typed);
            QCOMPARE(starsOf(screen), entry.stars);
            const bool isTooLarge = entry.typed.size() > 10;
            save(script, isTooLarge ? u"Please enter a score from 0 to 5!"_s : u"Feedback saved!"_s);
            QCOMPARE(control<kvComboBox>(screen, "cmbScore").hasFocus(), isTooLarge);
        });
        QCOMPARE(shop.stored(1), entry.stored);
    }
}

void FeedbackTest::aRowThatIsGoneIsTold()
{
    Garments shop;
    const QString gone = u"This item is no longer on its job card!"_s;
    {
        ModalScript script;
        script.expectMessage(gone);
        frmFeedBack().GiveFeedback(1, 0);
    }
    shop.rate(mohan, {1});
    give([&](QWidget &, ModalScript &script) {
        shop.connection.execute(u"Delete * from Jobs_Detail"_s);
        save(script, gone);
    });
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
    shop.connection.execute(u"Delete * from Accounts where type=1"_s);
    QVERIFY(shown().isEmpty());
    QCOMPARE(shop.count(u"Rank"_s), 0);
}

CORVANE_TEST(FeedbackTest)
#include "tst_feedback.moc"
