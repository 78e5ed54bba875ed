#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// Every text form of numbers and dates in the program. Nothing else formats or parses one.

/// The number that a text begins with: blanks inside it are skipped, it stops at the first other character, an exponent
/// may be written with E or D. A text that begins with no number has the value 0; one beyond all bounds has the
/// largest there is; nothing is an error.
[[nodiscard]] double Val(QStringView text);

/// The number that a text is as a whole, blanks around it allowed; none for anything else. What a number column
/// accepts.
[[nodiscard]] std::optional<double> wholeNumberText(QStringView text);

/// The one number that a text names, without the signs of its groups: "1500.00" of "Rs. 1,500.00/-". Empty where it
/// names none or several.
[[nodiscard]] QString numberIn(const QString &text);

/// The one number that a text of the program shows: signs of groups, brackets for a minus, and words around it. None
/// where it shows none or several.
[[nodiscard]] std::optional<double> shownNumber(const QString &text);

/// Plain decimal form with at most 15 significant digits and no trailing zeros; exponent form from 1E+15 on.
[[nodiscard]] QString NumberText(double number);

/// "0.00": two decimals, halves away from zero, judged on the decimal digits that a person sees, so that 2.345
/// gives 2.35. Never "-0.00".
[[nodiscard]] QString Money(double amount);

/// "#,##0.00;(#,##0.00)": as `Money`, thousands grouped, a negative amount in brackets instead of a sign.
[[nodiscard]] QString MoneyGrouped(double amount);

/// "DD-MMM-YYYY" with English month names whatever the locale, "01-Apr-2011". Empty for an invalid date.
[[nodiscard]] QString DayMonthYear(QDate date);

/// The program's one default date text, used wherever a date is shown, stored as text or joined into a statement
/// without a form of its own.
[[nodiscard]] QString DateText(QDate date);
/// The same with the time of day behind it, "01-Apr-2011 13:05:09".
[[nodiscard]] QString DateTimeText(const QDateTime &moment);

/// Reads a date: "01-Apr-2011", "1-April-2011", "17-11-1985" (day first), ISO; "-" or "/" between the parts.
/// Throws RuntimeError (TypeMismatch) for anything else, an impossible day included.
[[nodiscard]] QDate ParseDate(QStringView text);

/// As `ParseDate`, with an optional time of day "hh:mm" or "hh:mm:ss" behind it; none where the text is no date.
[[nodiscard]] std::optional<QDateTime> readDateTime(QStringView text);

/// Narrowing to a small whole number: halves to the even neighbour; RuntimeError (Overflow) outside the range.
[[nodiscard]] qint16 Int16(double number);
[[nodiscard]] qint32 Int32(double number);

/// Amounts above this are no bills of a tailor; money columns and their sums hold far more.
inline constexpr double largestAmount = 1e9;

/// The span between two dates in words, "1 year, 2 months, 3 days".
/// Empty when `from` is after `to`. `showAll` names all three counts; otherwise the years are left out while there are
/// none, and the months with them. With `singular` a count of 1 takes the singular word. The text ends without a blank.
[[nodiscard]] QString DateDiffText(QDate from, QDate to, bool showAll, bool singular);
