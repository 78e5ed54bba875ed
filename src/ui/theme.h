#pragma once

class QApplication;

/// Gives the application its one look: style, palette, font and style sheet. The sheet leaves the colours of text
/// fields to the palette, which marks the field that has the focus (see `ShowAsSelected`).
void applyTheme(QApplication &application);

/// The colours that screens draw with themselves. They match the palette.
class QColor;
namespace theme {

[[nodiscard]] QColor accent();
[[nodiscard]] QColor muted();
[[nodiscard]] QColor warning();
[[nodiscard]] QColor good();
[[nodiscard]] QColor gold();
/// Around what has the focus.
[[nodiscard]] QColor focusRing();
/// Around a check box and an option.
[[nodiscard]] QColor boxOutline();

} // namespace theme
