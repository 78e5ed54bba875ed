#include "base/values.h"

#include "base/Currency.h"
#include "base/RuntimeError.h"

#include <QLocale>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int SignificantDigits = 15;

constexpr std::array monthNames{"january"_L1, "february"_L1, "march"_L1, "april"_L1, "may"_L1, "june"_L1, "july"_L1,
    "august"_L1, "september"_L1, "october"_L1, "november"_L1, "december"_L1};

/// A number as a person sees it: digits d1 d2 d3.. standing for 0.d1d2d3.. times ten to the power of `point`.
struct Decimal {
    bool negative = false;
    QByteArray digits;
    int point = 0;
};

Decimal toDecimal(double number)
{
    const QByteArray text = QByteArray::number(std::fabs(number), 'e', SignificantDigits - 1);
    const auto exponentAt = text.indexOf('e');
    Decimal result;
    result.negative = std::signbit(number);
    result.digits = text.left(exponentAt);
    result.digits.remove(1, 1);
    result.point = text.mid(exponentAt + 1).toInt() + 1;
    while (result.digits.endsWith('0'))
        result.digits.chop(1);
    if (result.digits.isEmpty())
        result = {};
    return result;
}

/// Keeps `decimals` places behind the point, halves away from zero.
void roundTo(Decimal &number, int decimals)
{
    const int kept = number.point + decimals;
    if (kept >= number.digits.size())
        return;
    const bool up = kept >= 0 && number.digits.at(kept) >= '5';
    number.digits.truncate(std::max(kept, 0));
    if (!up)
        return;
    auto place = number.digits.size();
    while (place > 0 && number.digits.at(place - 1) == '9')
        number.digits[--place] = '0';
    if (place > 0) {
        ++number.digits[place - 1];
    } else {
        number.digits.prepend('1');
        ++number.point;
    }
}

QString wholePart(const Decimal &number)
{
    if (number.point <= 0 || number.digits.isEmpty())
        return u"0"_s;
    return QString::fromLatin1(number.digits.left(number.point).leftJustified(number.point, '0'));
}

QString fraction(const Decimal &number)
{
    if (number.digits.isEmpty() || number.point >= number.digits.size())
        return {};
    if (number.point >= 0)
        return QString::fromLatin1(number.digits.mid(number.point));
    return QString(-number.point, u'0') + QString::fromLatin1(number.digits);
}

bool isZero(const Decimal &number)
{
    return std::all_of(number.digits.cbegin(), number.digits.cend(), [](char digit) { return digit == '0'; });
}

/// The last digit of a whole number.
QChar digit(qint64 number)
{
    return QChar(static_cast<char16_t>(u'0' + number % 10));
}

struct MoneyParts {
    bool negative;
    QString whole;
    QString cents;
};

/// The amount in hundredths. None for one that would lose by that what a person sees.
std::optional<qint64> centsOf(double amount)
{
    // Nearly all amounts have four decimals at most and are known exactly by their ten-thousandths: lists of thousands
    // of them need no digits taken apart.
    constexpr double mostUnits = 1e14;
    const double units = std::nearbyint(amount * Currency::Scale);
    if (!(std::fabs(units) < mostUnits) || units / Currency::Scale != amount)
        return {};
    constexpr qint64 unitsOfCent = Currency::Scale / 100;
    const qint64 cents = (std::llabs(static_cast<qint64>(units)) + unitsOfCent / 2) / unitsOfCent;
    return units < 0 ? -cents : cents;
}

/// "-12.05".
QString textOfCents(qint64 cents)
{
    constexpr int most = 24;
    std::array<QChar, most> text;
    auto place = text.size();
    qint64 left = std::llabs(cents);
    for (int written = 0; written < 3 || left > 0; ++written, left /= 10) {
        text[--place] = digit(left);
        if (written == 1)
            text[--place] = u'.';
    }
    if (cents < 0)
        text[--place] = u'-';
    return QString(&text[place], static_cast<qsizetype>(text.size() - place));
}

MoneyParts moneyParts(double amount)
{
    if (const auto cents = centsOf(amount)) {
        const qint64 shown = std::llabs(*cents);
        const QChar digits[]{digit(shown / 10), digit(shown)};
        return {*cents < 0, QString::number(shown / 100), QString(digits, 2)};
    }
    Decimal number = toDecimal(amount);
    roundTo(number, 2);
    return {number.negative && !isZero(number), wholePart(number), fraction(number).leftJustified(2, u'0', true)};
}

/// Copies the longest number that `text` begins with into `number`, without the blanks inside it.
/// Returns the index behind it.
qsizetype scanNumber(QStringView text, QByteArray &number)
{
    enum { Start, Whole, Fraction, ExponentStart, Exponent } state = Start;
    bool digitSeen = false;
    qsizetype end = 0;
    QByteArray pending;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (c == u' ' || c == u'\t' || c == u'\n' || c == u'\r')
            continue;
        const bool digit = c >= u'0' && c <= u'9';
        if (digit) {
            if (state == Start)
                state = Whole;
            else if (state == ExponentStart)
                state = Exponent;
            digitSeen = true;
        } else if (c == u'.' && (state == Start || state == Whole)) {
            state = Fraction;
        } else if ((c == u'+' || c == u'-') && state == Start && pending.isEmpty()) {
            // the sign in front
        } else if ((c == u'+' || c == u'-') && state == ExponentStart && pending.endsWith('e')) {
            // the exponent's sign
        } else if (digitSeen && (state == Whole || state == Fraction) && QStringView(u"eEdD").contains(QChar(c))) {
            state = ExponentStart;
            pending += 'e';
            continue;
        } else {
            break;
        }
        pending += static_cast<char>(c);
        if (digitSeen && state != ExponentStart) {
            number = pending;
            end = i + 1;
        }
    }
    return end;
}

int monthNumber(QStringView name)
{
    for (size_t i = 0; i < monthNames.size(); ++i) {
        if (name.size() >= 3 && monthNames.at(i).startsWith(name, Qt::CaseInsensitive)
            && (name.size() == 3 || name.size() == monthNames.at(i).size()))
            return static_cast<int>(i) + 1;
    }
    return 0;
}

std::optional<int> digitsOnly(QStringView text, qsizetype mostDigits)
{
    if (text.isEmpty() || text.size() > mostDigits)
        return {};
    int number = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9')
            return {};
        number = number * 10 + (c.unicode() - u'0');
    }
    return number;
}

std::optional<QDate> readDate(QStringView text)
{
    const QChar separator = text.contains(u'-') ? u'-' : u'/';
    const auto parts = text.split(separator);
    if (parts.size() != 3)
        return {};
    const bool yearFirst = parts[0].size() == 4;
    const auto year = digitsOnly(yearFirst ? parts[0] : parts[2], 4);
    const auto day = digitsOnly(yearFirst ? parts[2] : parts[0], 2);
    const auto month = digitsOnly(parts[1], 2).value_or(monthNumber(parts[1]));
    if (!year || !day || (yearFirst ? parts[0] : parts[2]).size() != 4)
        return {};
    const QDate date(*year, month, *day);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> readTime(QStringView text)
{
    const auto parts = text.split(u':');
    if (parts.size() < 2 || parts.size() > 3)
        return {};
    const auto hour = digitsOnly(parts[0], 2);
    const auto minute = digitsOnly(parts[1], 2);
    const auto second = parts.size() == 3 ? digitsOnly(parts[2], 2) : std::optional(0);
    if (!hour || !minute || !second)
        return {};
    const QTime time(*hour, *minute, *second);
    return time.isValid() ? std::optional(time) : std::nullopt;
}

template <typename Small>
Small narrowed(double number)
{
    const double whole = std::nearbyint(number);
    if (!(whole >= std::numeric_limits<Small>::min() && whole <= std::numeric_limits<Small>::max()))
        throw RuntimeError(Fault::Overflow);
    return static_cast<Small>(whole);
}

} // namespace

double Val(QStringView text)
{
    QByteArray number;
    scanNumber(text, number);
    if (number.isEmpty())
        return 0;
    bool fits = false;
    const double value = number.toDouble(&fits);
    if (fits)
        return value;
    constexpr double largest = std::numeric_limits<double>::max();
    return number.startsWith('-') ? -largest : largest;
}

std::optional<double> wholeNumberText(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    QByteArray number;
    if (scanNumber(trimmed, number) != trimmed.size() || number.size() != trimmed.size())
        return {};
    bool fits = false;
    const double value = number.toDouble(&fits);
    return fits ? std::optional(value) : std::nullopt;
}

QString numberIn(const QString &text)
{
    // Groups of three digits, or of two before the last; the point of "Rs.500" is none of the number.
    static const QRegularExpression number(u"-?(?:[0-9]{1,3}(?:,[0-9]{2,3})*,[0-9]{3}(?![0-9])|[0-9]+)(?:\\.[0-9]+)?"
                                           "|-?(?<!\\p{L})\\.[0-9]+"_s);
    auto found = number.globalMatch(text);
    if (!found.hasNext())
        return {};
    const QString first = found.next().captured();
    return found.hasNext() ? QString() : QString(first).remove(u',');
}

std::optional<double> shownNumber(const QString &text)
{
    const QString number = numberIn(text);
    if (number.isEmpty())
        return {};
    return text.trimmed().startsWith(u'(') ? -Val(number) : Val(number);
}

QString NumberText(double number)
{
    constexpr double firstWithExponent = 1e15;
    // Amounts mostly are whole, and lists show thousands of them.
    if (std::fabs(number) < firstWithExponent && number == std::trunc(number))
        return QString::number(static_cast<qint64>(number));
    const Decimal decimal = toDecimal(number);
    const QString sign = decimal.negative && !decimal.digits.isEmpty() ? u"-"_s : QString();
    if (decimal.point > SignificantDigits) {
        QString mantissa = QString::fromLatin1(decimal.digits);
        if (mantissa.size() > 1)
            mantissa.insert(1, u'.');
        return u"%1%2E+%3"_s.arg(sign, mantissa).arg(decimal.point - 1, 2, 10, QChar(u'0'));
    }
    const QString decimals = fraction(decimal);
    return sign + wholePart(decimal) + (decimals.isEmpty() ? QString() : u'.' + decimals);
}

QString Money(double amount)
{
    if (const auto cents = centsOf(amount))
        return textOfCents(*cents);
    const MoneyParts parts = moneyParts(amount);
    return (parts.negative ? u"-"_s : QString()) + parts.whole + u'.' + parts.cents;
}

QString MoneyGrouped(double amount)
{
    MoneyParts parts = moneyParts(amount);
    for (auto place = parts.whole.size() - 3; place > 0; place -= 3)
        parts.whole.insert(place, u',');
    const QString text = parts.whole + u'.' + parts.cents;
    return parts.negative ? u'(' + text + u')' : text;
}

QString DayMonthYear(QDate date)
{
    if (!date.isValid())
        return {};
    const int year = date.year();
    if (year < 0 || year > 9999)
        return QLocale::c().toString(date, u"dd-MMM-yyyy");
    // Lists show thousands of dates; a locale takes its pattern apart for each of them.
    const QLatin1StringView month = monthNames.at(static_cast<size_t>(date.month()) - 1);
    const QChar text[]{digit(date.day() / 10), digit(date.day()), u'-', QChar(month[0]).toUpper(), month[1], month[2],
        u'-', digit(year / 1000), digit(year / 100), digit(year / 10), digit(year)};
    return QString(text, std::size(text));
}

QString DateText(QDate date)
{
    return DayMonthYear(date);
}

QString DateTimeText(const QDateTime &moment)
{
    return DateText(moment.date()) + moment.time().toString(u" HH:mm:ss");
}

QDate ParseDate(QStringView text)
{
    const auto date = readDate(text.trimmed());
    if (!date)
        throw RuntimeError(Fault::TypeMismatch, u"\"%1\" is not a date"_s.arg(text));
    return *date;
}

std::optional<QDateTime> readDateTime(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    auto blank = trimmed.indexOf(u' ');
    // The "T" of an ISO moment; elsewhere a "t" belongs to a month's name.
    constexpr qsizetype isoDateLength = 10;
    if (blank < 0 && trimmed.size() > isoDateLength && trimmed[4] == u'-' && trimmed[isoDateLength] == u'T')
        blank = isoDateLength;
    const auto date = readDate(blank < 0 ? trimmed : trimmed.left(blank));
    const auto time = blank < 0 ? std::optional(QTime(0, 0)) : readTime(trimmed.mid(blank + 1).trimmed());
    if (!date || !time)
        return {};
    return QDateTime(*date, *time, Qt::UTC);
}

qint16 Int16(double number)
{
    return narrowed<qint16>(number);
}

qint32 Int32(double number)
{
    return narrowed<qint32>(number);
}

QString DateDiffText(QDate from, QDate to, bool showAll, bool singular)
{
    if (from > to)
        return {};
    int years = 0;
    if (to.year() > from.year()) {
        years = to.year() - from.year();
        if (to.month() < from.month() || (to.month() == from.month() && to.day() < from.day()))
            --years;
    }
    int months = (to.year() - from.year()) * 12 + to.month() - from.month();
    if (to.day() < from.day())
        --months;
    months %= 12;
    int days = to.day() - from.day();
    if (days < 0) {
        const QDate lastOfMonthBefore = QDate(to.year(), to.month(), 1).addDays(-1);
        if (to.day() != to.daysInMonth()) {
            const QDate sameDay(
                lastOfMonthBefore.year(), lastOfMonthBefore.month(), std::min(from.day(), lastOfMonthBefore.day()));
            days = static_cast<int>(sameDay.daysTo(to));
        } else {
            // On the last day of a short month the month counts as whole: 31 January to 28 February is one month.
            days = 0;
            if (++months == 12) {
                months = 0;
                ++years;
            }
        }
    }
    const auto counted = [singular](int count, const QString &one, const QString &many) {
        return QString::number(count) + (singular && count == 1 ? one : many);
    };
    QString text = counted(days, u" day"_s, u" days"_s);
    const bool showYears = showAll || years >= 1;
    if (showYears || months >= 1)
        text.prepend(counted(months, u" month, "_s, u" months, "_s));
    if (showYears)
        text.prepend(counted(years, u" year, "_s, u" years, "_s));
    return text;
}
