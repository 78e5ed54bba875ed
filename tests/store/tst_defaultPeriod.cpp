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
    void thePeriodIsCountedFromItsFirstDay();
};

void DefaultPeriodTest::thePeriodIsCountedFromItsFirstDay()
{
    StoreFile shop;
    QDate from;
    QDate to;
    const auto period = [&](const QString &stored = {}) {
        if (!stored.isNull())
            SaveSetting(setting::DefaultPeriod, stored);
        from = {2026, 1, 31};
        to = {2026, 12, 25};
        SetDefaultPeriod(to, from);
        return from.toString(Qt::ISODate) + u' ' + to.toString(Qt::ISODate);
    };
    QCOMPARE(period(), u"2011-04-01 2011-05-01"_s);
    SaveSetting(setting::UseDefaultFromDate, u"1"_s);
    SaveSetting(setting::DefaultFromDate, u"31-Jan-2026"_s);
    // A month is cut to a short one; what is no period leaves the caller's last day.
    const QStringList ends{u"2026-01-31"_s, u"2026-02-01"_s, u"2026-02-07"_s, u"2026-02-28"_s, u"2026-03-31"_s,
        u"2026-04-30"_s, u"2026-07-31"_s, u"2027-01-31"_s, u"2026-12-25"_s};
    for (int stored = 0; stored < ends.size(); ++stored)
        QCOMPARE(period(QString::number(stored)), u"2026-01-31 "_s + ends.at(stored));
    for (const QString &none : {u"-1"_s, u""_s})
        QCOMPARE(period(none), u"2026-01-31 2026-12-25"_s);
    SaveSetting(setting::DefaultFromDate, u"29-Feb-2024"_s);
    QCOMPARE(period(u"7"_s), u"2024-02-29 2025-02-28"_s);
    SaveSetting(setting::UseDefaultFromDate, u"0"_s);
    QCOMPARE(period(u"1"_s), u"2026-01-31 2026-02-01"_s);
    SaveSetting(setting::UseDefaultFromDate, u"1"_s);
    SaveSetting(setting::DefaultFromDate, u"31-Feb-2026"_s);
    EXPECT_FAULT(Fault::TypeMismatch, static_cast<void>(period()));
    QCOMPARE(from, QDate(2026, 1, 31));
}

CORVANE_TEST(DefaultPeriodTest)
#include "tst_defaultPeriod.moc"
