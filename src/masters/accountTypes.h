#pragma once

/// `Accounts.Type`: what a row of the accounts stands for. Every list of the program selects on it.
namespace accountType {

inline constexpr int Client = 0;
inline constexpr int Worker = 1;
inline constexpr int Ledger = 2;

} // namespace accountType
