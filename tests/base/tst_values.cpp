#include "base/Currency.h"
#include "base/RuntimeError.h"
#include "base/values.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The text forms of numbers, money and dates that the whole program shares.
class ValuesTest : public QObject {
    Q_OBJECT

private slots:
    void numbersAreReadFromTheFrontOfATexts_data();
    void numbersAreReadFromTheFrontOfATexts();
    void theNumberIsFoundInAText_data();
    void theNumberIsFoundInAText();
    void numbersAreWrittenPlainly_data();
    void numbersAreWrittenPlainly();
    void moneyRoundsAsAPersonSeesIt_data();
    void moneyRoundsAsAPersonSeesIt();
    void datesAreReadInEachWrittenForm_data();
    void datesAreReadInEachWrittenForm();
    void impossibleDatesAreRefused();
    void smallNumbersRoundToEvenAndOverflow();
    void currencyIsExactAndBounded();
    void spansAreToldInWords_data();
    void spansAreToldInWords();
};

void ValuesTest::numbersAreReadFromTheFrontOfATexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("number");
    const auto row = [](const QString &text, double number) { QTest::newRow(qPrintable(text)) << text << number; };
    row({}, 0);
    row(u"abc"_s, 0);
    row(u"A12"_s, 0);
    row(u"12abc"_s, 12);
    row(u"  1 234 . 5 "_s, 1234.5);
    row(u"-7.25"_s, -7.25);
    row(u"- 7"_s, -7);
    row(u"--7"_s, 0);
    row(u"+3"_s, 3);
    row(u"."_s, 0);
    row(u".5."_s, 0.5);
    row(u"1e9"_s, 1e9);
    row(u"2D3"_s, 2000);
    row(u"5e"_s, 5);
    row(u"5e+"_s, 5);
    row(u"5e-2x"_s, 0.05);
    row(u"1,000"_s, 1);
    row(u"-1e999"_s, -std::numeric_limits<double>::max());
}

void ValuesTest::numbersAreReadFromTheFrontOfATexts()
{
    QFETCH(QString, text);
    QFETCH(double, number);
    QCOMPARE(Val(text), number);
}

void ValuesTest::theNumberIsFoundInAText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("number");
    const auto row = [](const QString &text, const QString &number) {
        QTest::newRow(qPrintable(text)) << text << number;
    };
    row(u"Rs. 1,500.00/-"_s, u"1500.00"_s);
    row(u"Rs.500"_s, u"500"_s);
    row(u"1,50,000"_s, u"150000"_s);
    row(u" .5 m"_s, u".5"_s);
    row(u"Total 12."_s, u"12"_s);
    row(u"-7"_s, u"-7"_s);
    // None or several.
    for (const char *text : {"Sherwani", "12,50", "1,5000", "1.2.3", "100\n200", "10-12", "1e2"})
        row(QString::fromLatin1(text), {});
}

void ValuesTest::theNumberIsFoundInAText()
{
    QFETCH(QString, text);
    QFETCH(QString, number);
    QCOMPARE(numberIn(text), number);
    QCOMPARE(shownNumber(text), number.isEmpty() ? std::nullopt : std::optional(Val(number)));
    QCOMPARE(shownNumber(u" ("_s + text + u')'), number.isEmpty() ? std::nullopt : std::optional(-Val(number)));
}

void ValuesTest::numbersAreWrittenPlainly_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("text");
    const auto row = [](double number, const QString &text) { QTest::newRow(qPrintable(text)) << number << text; };
    row(0, u"0"_s);
    row(-0.0, u"0"_s);
    row(1250.5, u"1250.5"_s);
    row(0.1 + 0.2, u"0.3"_s);
    row(-0.05, u"-0.05"_s);
    row(100, u"100"_s);
    row(999999999999999, u"999999999999999"_s);
    row(1e15, u"1E+15"_s);
    row(1234567890123456, u"1.23456789012346E+15"_s);
    row(9876543210, u"9876543210"_s);
}

void ValuesTest::numbersAreWrittenPlainly()
{
    QFETCH(double, number);
    QFETCH(QString, text);
    QCOMPARE(NumberText(number), text);
}

void ValuesTest::moneyRoundsAsAPersonSeesIt_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<QString>("plain");
    QTest::addColumn<QString>("grouped");
    const auto row = [](double amount, const QString &plain, const QString &grouped) {
        QTest::newRow(qPrintable(plain)) << amount << plain << grouped;
    };
    row(0, u"0.00"_s, u"0.00"_s);
    row(-0.004, u"0.00"_s, u"0.00"_s);
    row(0.005, u"0.01"_s, u"0.01"_s);
    row(2.345, u"2.35"_s, u"2.35"_s);
    row(-2.345, u"-2.35"_s, u"(2.35)"_s);
    row(1.005, u"1.01"_s, u"1.01"_s);
    row(9.995, u"10.00"_s, u"10.00"_s);
    row(99.99, u"99.99"_s, u"99.99"_s);
    row(999.999, u"1000.00"_s, u"1,000.00"_s);
    row(1234567.5, u"1234567.50"_s, u"1,234,567.50"_s);
    row(-600, u"-600.00"_s, u"(600.00)"_s);
    row(123456, u"123456.00"_s, u"123,456.00"_s);
}

void ValuesTest::moneyRoundsAsAPersonSeesIt()
{
    QFETCH(double, amount);
    QFETCH(QString, plain);
    QFETCH(QString, grouped);
    QCOMPARE(Money(amount), plain);
    QCOMPARE(MoneyGrouped(amount), grouped);
}

void ValuesTest::datesAreReadInEachWrittenForm_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    const auto row = [](const QString &text, QDate date) { QTest::newRow(qPrintable(text)) << text << date; };
    row(u"01-Apr-2011"_s, {2011, 4, 1});
    row(u"1-April-2011"_s, {2011, 4, 1});
    row(u"1-apr-2011"_s, {2011, 4, 1});
    row(u"01-OCT-2011"_s, {2011, 10, 1});
    row(u"31-AUGUST-2011"_s, {2011, 8, 31});
    row(u"17-11-1985"_s, {1985, 11, 17});
    row(u"2/3/2012"_s, {2012, 3, 2});
    row(u"2012-02-29"_s, {2012, 2, 29});
}

void ValuesTest::datesAreReadInEachWrittenForm()
{
    QFETCH(QString, text);
    QFETCH(QDate, date);
    QCOMPARE(ParseDate(text), date);
    QCOMPARE(ParseDate(DateText(date)), date);
    QCOMPARE(ParseDate(DayMonthYear(date)), date);
    QCOMPARE(readDateTime(text).value().date(), date);
}

void ValuesTest::impossibleDatesAreRefused()
{
    for (const QString &text :
        {u"31-02-2011"_s, u"2011"_s, u"1-Foo-2011"_s, u"1-A-2011"_s, u"1-4-11"_s, QString(), u"today"_s})
        QVERIFY_THROWS_EXCEPTION(RuntimeError, (void)ParseDate(text));
    QCOMPARE(readDateTime(u"01-Apr-2011 13:05").value(), QDateTime({2011, 4, 1}, {13, 5}, Qt::UTC));
    QCOMPARE(readDateTime(u"2011-04-01T13:05:09").value(), QDateTime({2011, 4, 1}, {13, 5, 9}, Qt::UTC));
    QVERIFY(!readDateTime(u"01-Apr-2011 25:05"));
}

void ValuesTest::smallNumbersRoundToEvenAndOverflow()
{
    QCOMPARE(Int16(2.5), qint16(2));
    QCOMPARE(Int16(3.5), qint16(4));
    QCOMPARE(Int16(-32768), qint16(-32768));
    QCOMPARE(Int16(32767.4), qint16(32767));
    QCOMPARE(Int32(2147483647), 2147483647);
    for (const auto &tooLarge : {std::function([] { (void)Int16(32768); }), std::function([] { (void)Int16(-32769); }),
             std::function([] { (void)Int32(2147483648.0); }), std::function([] { (void)Int32(std::nan("")); })}) {
        try {
            tooLarge();
            QFAIL("no overflow");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), 6);
            QCOMPARE(error.text(), u"Overflow"_s);
        }
    }
}

void ValuesTest::currencyIsExactAndBounded()
{
    const auto amount = [](double value) { return Currency::fromDouble(value); };
    QCOMPARE((amount(0.1) + amount(0.2) - amount(0.3)).tenThousandths(), 0);
    QCOMPARE(amount(0.03125).tenThousandths(), 312);
    QCOMPARE(amount(0.09375).tenThousandths(), 938);
    QCOMPARE((-amount(12.5)).toDouble(), -12.5);
    const Currency largest = Currency::fromTenThousandths(std::numeric_limits<qint64>::max());
    QVERIFY_THROWS_EXCEPTION(RuntimeError, (void)(largest + amount(0.0001)));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, (void)amount(1e15));
}

void ValuesTest::spansAreToldInWords_data()
{
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<QString>("shortText");
    QTest::addColumn<QString>("fullText");
    const auto row = [](const char *name, QDate from, QDate to, const QString &shortText, const QString &fullText) {
        QTest::newRow(name) << from << to << shortText << fullText;
    };
    row("same day", {2011, 4, 1}, {2011, 4, 1}, u"0 days"_s, u"0 years, 0 months, 0 days"_s);
    row("backwards", {2011, 4, 2}, {2011, 4, 1}, {}, {});
    row("one day", {2011, 4, 1}, {2011, 4, 2}, u"1 day"_s, u"0 years, 0 months, 1 days"_s);
    row("short month's end", {2011, 1, 31}, {2011, 2, 28}, u"1 month, 0 days"_s, u"0 years, 1 months, 0 days"_s);
    row("leap year, day before the end", {2012, 1, 31}, {2012, 2, 28}, u"28 days"_s, u"0 years, 0 months, 28 days"_s);
    row("over a short month", {2011, 1, 31}, {2011, 3, 1}, u"1 month, 1 day"_s, u"0 years, 1 months, 1 days"_s);
    row("twelfth month becomes a year", {2011, 3, 31}, {2012, 2, 29}, u"11 months, 0 days"_s,
        u"0 years, 11 months, 0 days"_s);
    row("day before the anniversary", {2010, 6, 15}, {2011, 6, 14}, u"11 months, 30 days"_s,
        u"0 years, 11 months, 30 days"_s);
    row("anniversary", {2010, 6, 15}, {2011, 6, 15}, u"1 year, 0 months, 0 days"_s, u"1 years, 0 months, 0 days"_s);
    row("two years", {2009, 5, 20}, {2011, 7, 25}, u"2 years, 2 months, 5 days"_s, u"2 years, 2 months, 5 days"_s);
    row("year by a month's end", {2010, 3, 31}, {2011, 2, 28}, u"11 months, 0 days"_s, u"0 years, 11 months, 0 days"_s);
    row("eleven months and the last day", {2010, 10, 31}, {2011, 9, 30}, u"11 months, 0 days"_s,
        u"0 years, 11 months, 0 days"_s);
    row("the year turns on a short month's last day", {2008, 2, 29}, {2009, 2, 28}, u"1 year, 0 months, 0 days"_s,
        u"1 years, 0 months, 0 days"_s);
}

void ValuesTest::spansAreToldInWords()
{
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QFETCH(QString, shortText);
    QFETCH(QString, fullText);
    QCOMPARE(DateDiffText(from, to, false, true), shortText);
    QCOMPARE(DateDiffText(from, to, true, false), fullText);
}

CORVANE_TEST(ValuesTest)
#include "tst_values.moc"
