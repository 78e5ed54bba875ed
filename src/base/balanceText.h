#pragma once

#include <QString>

/// How a signed amount is shown as debit or credit. Above zero it is a credit, below zero a debit. Each place has its
/// own way, to be kept: users know their papers by it.
namespace balanceText {

/// "250.00 Dr", and "-50.00 Cr": the greeting of the job card negates a credit too. REQUIRES: not 0, which is not
/// shown.
[[nodiscard]] QString inGreeting(double balance);

/// "250.00 Dr", "50.00 Cr", "None".
[[nodiscard]] QString inRegister(double balance);

/// "1250.5 Dr.", "50 Cr.", "None": on the printed statement, without fixed decimals.
[[nodiscard]] QString onStatement(double balance);

/// The two cells of a line of a statement; the empty one holds a blank.
struct Sides {
    QString debit = QStringLiteral(" ");
    QString credit = QStringLiteral(" ");
};
/// An amount of 0 is a credit of "0.00".
[[nodiscard]] Sides ofPosting(double amount);
/// A balance of 0 is neither.
[[nodiscard]] Sides ofBalance(double balance);

} // namespace balanceText
