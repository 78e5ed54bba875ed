#pragma once

#include "Store.h"

/// A stand-in for a program that saves carelessly: a card, its rows and its postings, each a write of its own.
[[nodiscard]] faults::Store looseCardStore();
