#include "base/Currency.h"
#include "base/RuntimeError.h"
#include "base/values.h"
#include "support/expectFault.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The text forms of numbers, money and dates that the whole program shares.
class ValuesTest : public QObject {
    Q_OBJECT

private slots:
    void numbersAreReadFromTheFrontOfATexts();
    void theNumberIsFoundInAText();
    void numbersAreWrittenPlainly();
    void moneyRoundsAsAPersonSeesIt();
    void datesAreReadInEachWrittenForm();
    void impossibleDatesAreRefused();
    void smallNumbersRoundToEvenAndOverflow();
    void currencyIsExactAndBounded();
    void spansAreToldInWords();
};

void ValuesTest::numbersAreReadFromTheFrontOfATexts()
{
    for (const auto &[text, number] :
        {std::pair{"", 0.0}, {"abc", 0}, {"A12", 0}, {"12abc", 12}, {"  1 234 . 5 ", 1234.5}, {"-7.25", -7.25},
            {"- 7", -7}, {"--7", 0}, {"+3", 3}, {".", 0}, {".5.", 0.5}, {"1e9", 1e9}, {"2D3", 2000}, {"5e", 5},
            {"5e+", 5}, {"5e-2x", 0.05}, {"1,000", 1}, {"-1e999", -std::numeric_limits<double>::max()}})
        QVERIFY2(Val(QString::fromLatin1(text)) == number, text);
}

void ValuesTest::theNumberIsFoundInAText()
{
    for (const auto &[shown, found] : {std::pair{"Rs. 1,500.00/-", "1500.00"}, {"Rs.500", "500"},
             {"1,50,000", "150000"}, {" .5 m", ".5"}, {"Total 12.", "12"}, {"-7", "-7"},
             // None or several.
             {"Sherwani", ""}, {"12,50", ""}, {"1,5000", ""}, {"1.2.3", ""}, {"100\n200", ""}, {"10-12", ""},
             {"1e2", ""}}) {
        const QString text = QString::fromLatin1(shown);
        const QString number = QString::fromLatin1(found);
        QCOMPARE(numberIn(text), number);
        QCOMPARE(shownNumber(text), number.isEmpty() ? std::nullopt : std::optional(Val(number)));
        QCOMPARE(shownNumber(u" ("_s + text + u')'), number.isEmpty() ? std::nullopt : std::optional(-Val(number)));
    }
}

void ValuesTest::numbersAreWrittenPlainly()
{
    for (const auto &[number, text] : {std::pair{0.0, u"0"_s}, {-0.0, u"0"_s}, {1250.5, u"1250.5"_s},
             {0.1 + 0.2, u"0.3"_s}, {-0.05, u"-0.05"_s}, {100.0, u"100"_s}, {999999999999999.0, u"999999999999999"_s},
             {1e15, u"1E+15"_s}, {1234567890123456.0, u"1.23456789012346E+15"_s}, {9876543210.0, u"9876543210"_s}})
        QCOMPARE(NumberText(number), text);
}

void ValuesTest::moneyRoundsAsAPersonSeesIt()
{
    struct Amount {
        double amount;
        QString plain;
        QString grouped;
    };
    for (const auto &[amount, plain, grouped] : {Amount{0, u"0.00"_s, u"0.00"_s}, {-0.004, u"0.00"_s, u"0.00"_s},
             {0.005, u"0.01"_s, u"0.01"_s}, {2.345, u"2.35"_s, u"2.35"_s}, {-2.345, u"-2.35"_s, u"(2.35)"_s},
             {1.005, u"1.01"_s, u"1.01"_s}, {9.995, u"10.00"_s, u"10.00"_s}, {99.99, u"99.99"_s, u"99.99"_s},
             {999.999, u"1000.00"_s, u"1,000.00"_s}, {1234567.5, u"1234567.50"_s, u"1,234,567.50"_s},
             {-600, u"-600.00"_s, u"(600.00)"_s}, {123456, u"123456.00"_s, u"123,456.00"_s},
             // With more decimals than the file keeps, as wages have.
             {33.33333, u"33.33"_s, u"33.33"_s}, {0.999996, u"1.00"_s, u"1.00"_s}, {-0.999996, u"-1.00"_s, u"(1.00)"_s},
             {-0.000001, u"0.00"_s, u"0.00"_s}, {0.0049999, u"0.00"_s, u"0.00"_s}, {0.0051234, u"0.01"_s, u"0.01"_s},
             {12345.678912, u"12345.68"_s, u"12,345.68"_s}, {0.0000001, u"0.00"_s, u"0.00"_s},
             {2e15, u"2000000000000000.00"_s, u"2,000,000,000,000,000.00"_s}}) {
        QCOMPARE(Money(amount), plain);
        QCOMPARE(MoneyGrouped(amount), grouped);
    }
}

void ValuesTest::datesAreReadInEachWrittenForm()
{
    for (const auto &[text, date] : {std::pair{u"01-Apr-2011"_s, QDate(2011, 4, 1)}, {u"1-April-2011"_s, {2011, 4, 1}},
             {u"1-apr-2011"_s, {2011, 4, 1}}, {u"01-OCT-2011"_s, {2011, 10, 1}}, {u"31-AUGUST-2011"_s, {2011, 8, 31}},
             {u"17-11-1985"_s, {1985, 11, 17}}, {u"2/3/2012"_s, {2012, 3, 2}}, {u"2012-02-29"_s, {2012, 2, 29}}}) {
        QCOMPARE(ParseDate(text), date);
        QCOMPARE(ParseDate(DateText(date)), date);
        QCOMPARE(ParseDate(DayMonthYear(date)), date);
        QCOMPARE(readDateTime(text).value().date(), date);
    }
}

void ValuesTest::impossibleDatesAreRefused()
{
    for (const QString &text :
        {u"31-02-2011"_s, u"2011"_s, u"1-Foo-2011"_s, u"1-A-2011"_s, u"1-4-11"_s, QString(), u"today"_s})
        QVERIFY_THROWS_EXCEPTION(RuntimeError, (void)ParseDate(text));
    QCOMPARE(DayMonthYear({}), QString());
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
        const RuntimeError error = failureOf(tooLarge);
        QCOMPARE(error.fault(), Fault::Overflow);
        QCOMPARE(error.text(), u"Overflow"_s);
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

void ValuesTest::spansAreToldInWords()
{
    struct Span {
        QDate from;
        QDate to;
        QString shortText;
        QString fullText;
    };
    const QString elevenMonths = u"11 months, 0 days"_s;
    const QString fullEleven = u"0 years, 11 months, 0 days"_s;
    const QString year = u"1 year, 0 months, 0 days"_s;
    const QString fullYear = u"1 years, 0 months, 0 days"_s;
    const Span spans[]{
        {{2011, 4, 1}, {2011, 4, 1}, u"0 days"_s, u"0 years, 0 months, 0 days"_s},
        {{2011, 4, 2}, {2011, 4, 1}, {}, {}},
        {{2011, 4, 1}, {2011, 4, 2}, u"1 day"_s, u"0 years, 0 months, 1 days"_s},
        // By and over the end of a short month.
        {{2011, 1, 31}, {2011, 2, 28}, u"1 month, 0 days"_s, u"0 years, 1 months, 0 days"_s},
        {{2012, 1, 31}, {2012, 2, 28}, u"28 days"_s, u"0 years, 0 months, 28 days"_s},
        {{2011, 1, 31}, {2011, 3, 1}, u"1 month, 1 day"_s, u"0 years, 1 months, 1 days"_s},
        // The twelfth month becomes a year on the day itself.
        {{2011, 3, 31}, {2012, 2, 29}, elevenMonths, fullEleven},
        {{2010, 3, 31}, {2011, 2, 28}, elevenMonths, fullEleven},
        {{2010, 10, 31}, {2011, 9, 30}, elevenMonths, fullEleven},
        {{2010, 6, 15}, {2011, 6, 14}, u"11 months, 30 days"_s, u"0 years, 11 months, 30 days"_s},
        {{2010, 6, 15}, {2011, 6, 15}, year, fullYear},
        {{2008, 2, 29}, {2009, 2, 28}, year, fullYear},
        {{2009, 5, 20}, {2011, 7, 25}, u"2 years, 2 months, 5 days"_s, u"2 years, 2 months, 5 days"_s},
    };
    for (const auto &[from, to, shortText, fullText] : spans) {
        QCOMPARE(DateDiffText(from, to, false, true), shortText);
        QCOMPARE(DateDiffText(from, to, true, false), fullText);
    }
}

CORVANE_TEST(ValuesTest)
#include "tst_values.moc"
