#pragma once

#include <QString>

class RuntimeError;

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

/// What a box says of a failure: its text, and in the line below the file or statement where one is named.
[[nodiscard]] QString toldBy(const RuntimeError &error);

} // namespace platformBox
