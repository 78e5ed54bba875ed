#pragma once

#include "store/Connection.h"

#include <QString>

#include <optional>

class QFont;
class QTreeView;
class QWidget;

/// The font in whose codes Hindi is kept.
[[nodiscard]] QString hindiFamily();
[[nodiscard]] QFont hindiFont();

/// The texts in the shop's second language, as `Lang.mdb` beside the program has them for English ones.
class LanguageTable {
public:
    /// Throws RuntimeError where the file is missing or cannot be read.
    LanguageTable();

    /// In the codes of that font; none where the table lacks the text.
    [[nodiscard]] std::optional<QString> hindi(const QString &english);

private:
    Connection m_file;
};

/// Shows `text` on a control in the font of its language. Hindi is kept in the codes of a font of its own, so it only
/// reads as Hindi where that font is installed. `control` is a label, a button, or a window, whose title is meant then.
void SetEngFont(QWidget &control, const QString &text);
void SetHindiFont(QWidget &control, const QString &text);

/// Called by screens when they load, with themselves: the one place to translate their captions. None is translated.
void TranslateForm(QWidget &form);

/// Gives the header of `listView` the font that the header of `fontSource` has. `bold` has no effect.
void ChangeHeaderFont(QTreeView &listView, const QTreeView &fontSource, bool bold);
