#include "base/balanceText.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

class BalanceTextTest : public QObject {
    Q_OBJECT

private slots:
    void eachPlaceHasItsOwnWay_data();
    void eachPlaceHasItsOwnWay();
};

void BalanceTextTest::eachPlaceHasItsOwnWay_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("inRegister");
    QTest::addColumn<QString>("onStatement");
    QTest::addColumn<QString>("posting");
    QTest::addColumn<QString>("balance");
    QTest::newRow("owes") << -250.0 << u"250.00 Dr"_s << u"250 Dr."_s << u"250.00| "_s << u"250.00| "_s;
    QTest::newRow("has to his credit") << 1250.5 << u"1250.50 Cr"_s << u"1250.5 Cr."_s << u" |1250.50"_s
                                       << u" |1250.50"_s;
    QTest::newRow("nothing") << 0.0 << u"None"_s << u"None"_s << u" |0.00"_s << u" | "_s;
    QTest::newRow("nothing, from below") << -0.0 << u"None"_s << u"None"_s << u" |0.00"_s << u" | "_s;
    QTest::newRow("less than is shown") << -0.0004 << u"0.00 Dr"_s << u"0.0004 Dr."_s << u"0.00| "_s << u"0.00| "_s;
}

void BalanceTextTest::eachPlaceHasItsOwnWay()
{
    QFETCH(const double, amount);
    const auto cells = [](const balanceText::Sides &sides) { return sides.debit + u'|' + sides.credit; };
    QTEST(balanceText::inRegister(amount), "inRegister");
    QTEST(balanceText::onStatement(amount), "onStatement");
    QTEST(cells(balanceText::ofPosting(amount)), "posting");
    QTEST(cells(balanceText::ofBalance(amount)), "balance");
    QCOMPARE(balanceText::inGreeting(-250), u"250.00 Dr"_s);
    QCOMPARE(balanceText::inGreeting(50), u"-50.00 Cr"_s);
}

CORVANE_TEST(BalanceTextTest)
#include "tst_balanceText.moc"
