#pragma once

#include <QString>

/// The one door to the desktop's file dialogs.
namespace fileChoice {

/// Asks where to save a file, above the screen in front. `suggestion` is a file name, with or without a folder; `kind`
/// is the dialog's filter, "PDF (*.pdf)". The dialog itself asks before it gives a file that stands there already.
/// Empty where the user cancelled.
[[nodiscard]] QString save(const QString &title, const QString &suggestion, const QString &kind, const QString &suffix);

/// Asks for a file that is there. Empty where the user cancelled.
[[nodiscard]] QString open(const QString &title, const QString &kind);

/// Asks for a folder, beginning in `start`. Empty where the user cancelled.
[[nodiscard]] QString folder(const QString &title, const QString &start);

} // namespace fileChoice
