#pragma once

#include <QIcon>

class QLabel;

/// Small signs, drawn at whatever size and factor they are asked for.
namespace signs {

/// Five stars in a row, `rating` of them full; none where that is not 0 to 5.
[[nodiscard]] QIcon stars(int rating);
/// The room that they want beside a line of text.
[[nodiscard]] QSize starsSize();
/// "3 of 5 stars", for who hears the screen.
[[nodiscard]] QString starsInWords(int rating);
/// Shows the stars as a label's picture. Where the rating is not 0 to 5 the label stays as it is.
void showStars(QLabel &label, int rating);

/// Where a garment stands. Each has a shape of its own, beside its colour.
enum class Status { Uncompleted, Completed, Delivered, Alteration, Canceled };
[[nodiscard]] QIcon status(Status status);

/// Before a promised day that is today, or that has passed while what was promised is still open.
enum class Due { Today, Overdue };
[[nodiscard]] QIcon due(Due due);

} // namespace signs
