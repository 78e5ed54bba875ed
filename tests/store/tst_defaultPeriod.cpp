#include "store/defaultPeriod.h"

#include "base/RuntimeError.h"
#include "store/settings.h"
#include "support/StoreFile.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The date range that a register opens with.
class DefaultPeriodTest : public QObject {
    Q_OBJECT

private slots:
    void thePeriodIsCountedFromItsFirstDay_data();
    void thePeriodIsCountedFromItsFirstDay();
    void aStoredTextThatIsNoDateIsAFailure();
};

void DefaultPeriodTest::thePeriodIsCountedFromItsFirstDay_data()
{
    QTest::addColumn<QString>("use");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("period");
    QTest::addColumn<QDate>("dateFrom");
    QTest::addColumn<QDate>("dateTo");
    const QDate ownFrom(2026, 1, 31);
    const QDate ownTo(2026, 12, 25);
    const auto off = u"0"_s;
    const auto on = u"1"_s;
    QTest::newRow("nothing stored") << QString() << QString() << QString() << QDate(2011, 4, 1) << QDate(2011, 5, 1);
    QTest::newRow("0 Day") << on << u"31-Jan-2026"_s << u"0"_s << ownFrom << ownFrom;
    QTest::newRow("1 Day") << on << u"31-Jan-2026"_s << u"1"_s << ownFrom << QDate(2026, 2, 1);
    QTest::newRow("1 Week") << on << u"31-Jan-2026"_s << u"2"_s << ownFrom << QDate(2026, 2, 7);
    QTest::newRow("1 Month, cut to a short one") << on << u"31-Jan-2026"_s << u"3"_s << ownFrom << QDate(2026, 2, 28);
    QTest::newRow("2 Months") << on << u"31-Jan-2026"_s << u"4"_s << ownFrom << QDate(2026, 3, 31);
    QTest::newRow("3 Months") << on << u"31-Jan-2026"_s << u"5"_s << ownFrom << QDate(2026, 4, 30);
    QTest::newRow("6 Months") << on << u"31-Jan-2026"_s << u"6"_s << ownFrom << QDate(2026, 7, 31);
    QTest::newRow("1 Year") << on << u"29-Feb-2024"_s << u"7"_s << QDate(2024, 2, 29) << QDate(2025, 2, 28);
    QTest::newRow("an unknown period") << on << u"31-Jan-2026"_s << u"8"_s << ownFrom << ownTo;
    QTest::newRow("below the first") << on << u"31-Jan-2026"_s << u"-1"_s << ownFrom << ownTo;
    QTest::newRow("an empty period") << on << u"31-Jan-2026"_s << u""_s << ownFrom << ownTo;
    QTest::newRow("the caller's first day") << off << u"1-Apr-2011"_s << u"1"_s << ownFrom << QDate(2026, 2, 1);
}

void DefaultPeriodTest::thePeriodIsCountedFromItsFirstDay()
{
    StoreFile shop;
    const auto store = [](setting::Key key, const QString &value) {
        if (!value.isNull())
            SaveSetting(key, value);
    };
    QFETCH(QString, use);
    QFETCH(QString, from);
    QFETCH(QString, period);
    store(setting::UseDefaultFromDate, use);
    store(setting::DefaultFromDate, from);
    store(setting::DefaultPeriod, period);
    QDate dateFrom(2026, 1, 31);
    QDate dateTo(2026, 12, 25);
    SetDefaultPeriod(dateTo, dateFrom);
    QTEST(dateFrom, "dateFrom");
    QTEST(dateTo, "dateTo");
}

void DefaultPeriodTest::aStoredTextThatIsNoDateIsAFailure()
{
    StoreFile shop;
    SaveSetting(setting::DefaultFromDate, u"31-Feb-2026"_s);
    QDate dateFrom(2026, 1, 31);
    QDate dateTo(2026, 12, 25);
    EXPECT_FAULT(Fault::TypeMismatch, SetDefaultPeriod(dateTo, dateFrom));
    QCOMPARE(dateFrom, QDate(2026, 1, 31));
}

CORVANE_TEST(DefaultPeriodTest)
#include "tst_defaultPeriod.moc"
