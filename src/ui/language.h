#pragma once

#include <QString>

class QFont;
class QTreeView;
class QWidget;

/// Shows `text` on a control in the font of its language. Hindi is kept in the codes of a font of its own, so it only
/// reads as Hindi where that font is installed. `control` is a label, a button, or a window, whose title is meant then.
void SetEngFont(QWidget &control, const QString &text);
void SetHindiFont(QWidget &control, const QString &text);

/// The font that Hindi is kept in.
[[nodiscard]] QFont hindiFont();

/// Called by screens when they load, with themselves: the one place to translate their captions. None is translated.
void TranslateForm(QWidget &form);

/// Gives the header of `listView` the font that the header of `fontSource` has. `bold` has no effect.
void ChangeHeaderFont(QTreeView &listView, const QTreeView &fontSource, bool bold);
