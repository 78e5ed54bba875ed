#include "jobcards/ScrollingText.h"

#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

/// The greeting of a client: read at once, and moving.
class ScrollingTextTest : public QObject {
    Q_OBJECT

private slots:
    void itIsReadWithinTwoSecondsAndMovesOn();
};

void ScrollingTextTest::itIsReadWithinTwoSecondsAndMovesOn()
{
    for (const QString &text : {u"Welcome back Asha Rao"_s, u"Welcome back "_s + QString(140, u'm')}) {
        ScrollingText greeting(u"lblLastvisit"_s);
        greeting.resize(700, greeting.height());
        QVERIFY(driver::show(greeting));
        auto &label = driver::control<QLabel>(greeting, "lblLastvisit");
        greeting.setText(text);
        const int place = label.x();
        const auto beginsInView = [&label, place] { return label.x() == place; };
        QVERIFY(place >= 0 && place < 20);
        QVERIFY(greeting.toolTip().contains(text));

        QElapsedTimer time;
        time.start();
        greeting.restart();
        QVERIFY(label.x() >= greeting.width());
        // In from the right, past every place between.
        QTRY_VERIFY(label.x() > 20 && label.x() < greeting.width() - 20);
        QTRY_VERIFY_WITH_TIMEOUT(beginsInView(), 2000);
        QVERIFY(time.elapsed() < 2000);
        QTest::qWait(2500);
        QCOMPARE(label.x(), place);
        // One that is read whole stays longer.
        if (label.width() < greeting.width())
            continue;
        QTRY_VERIFY_WITH_TIMEOUT(label.x() < place - 5, 4000);
        // Slowly, so that it can be followed.
        const int left = label.x();
        QTest::qWait(500);
        QVERIFY(label.x() < left && label.x() > left - 60);
        // It has left the view: it comes again.
        label.move(-label.width() - 1, label.y());
        QTRY_VERIFY(label.x() > greeting.width() / 2);
        QTRY_VERIFY(beginsInView());
    }
}

CORVANE_TEST(ScrollingTextTest)
#include "tst_ScrollingText.moc"
