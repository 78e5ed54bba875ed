#pragma once

#include <QString>

/// The plain box of the platform: for start-up and for the few failures that are shown as such. Everything else goes
/// through `ShowMessage`. Both are modal with the one button OK, and show `text` as it is, without any mark-up.
namespace platformBox {

/// No icon.
void show(const QString &text);
void showCritical(const QString &text);

} // namespace platformBox
