#pragma once

/// What an entry field is for, its `BoxType`.
namespace boxType {

/// Text; a single-line box capitalises each word as it is typed.
inline constexpr int Text = 0;
/// Digits and one point, shown with two decimals.
inline constexpr int Amount = 1;
/// Text as it is typed.
inline constexpr int Plain = 2;

} // namespace boxType
