#pragma once

#include <QIcon>

/// Small signs, drawn at whatever size and factor they are asked for.
namespace signs {

/// Five stars in a row, `rating` of them full; none where that is not 0 to 5.
[[nodiscard]] QIcon stars(int rating);

/// Where a garment stands. Each has a shape of its own, beside its colour.
enum class Status { Uncompleted, Completed, Delivered, Alteration, Canceled };
[[nodiscard]] QIcon status(Status status);

} // namespace signs
