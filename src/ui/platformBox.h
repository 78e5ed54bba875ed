#pragma once

#include <QString>

/// The plain box of the platform: for start-up and for the few failures and questions that are told as such. Everything
/// else goes through `ShowMessage`. All are modal and show `text` as it is, without any mark-up.
namespace platformBox {

/// The one button is OK. No icon.
void show(const QString &text);
void showCritical(const QString &text);
/// Yes, which Enter means, or No, which Escape means.
[[nodiscard]] bool ask(const QString &text);
/// Asks for a line of text; empty where the user gave none.
[[nodiscard]] QString askText(const QString &text, const QString &title);

} // namespace platformBox
