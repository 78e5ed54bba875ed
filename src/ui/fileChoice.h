#pragma once

#include <QString>

/// The one door to the desktop's file dialogs.
namespace fileChoice {

/// Asks where to save a file, above the screen in front. `suggestion` is a file name, with or without a folder; `kind`
/// is the dialog's filter, "PDF (*.pdf)". The dialog itself asks before it gives a file that stands there already.
/// Empty where the user cancelled.
[[nodiscard]] QString save(const QString &title, const QString &suggestion, const QString &kind, const QString &suffix);

} // namespace fileChoice
