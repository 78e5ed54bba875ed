#pragma once

#include <QStringList>

#include <optional>

/// The kinds of a voucher, and on which side each puts the account that it is opened on, the main one.
namespace voucherKinds {

/// In the order of the screen's list.
[[nodiscard]] QStringList names();

/// The words beside the two accounts.
struct Sides {
    QString mainLabel;
    QString mainSide;
    QString otherLabel;
    QString otherSide;
};
/// None for a text that is no kind, in just these letters.
[[nodiscard]] std::optional<Sides> sidesOf(const QString &kind);
[[nodiscard]] Sides sides(bool mainIsCredit);
/// REQUIRES: `kind` is one.
[[nodiscard]] bool isMainCredit(const QString &kind);

} // namespace voucherKinds
