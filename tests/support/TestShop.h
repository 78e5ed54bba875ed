#pragma once

#include "support/StoreFile.h"

/// A shop to test screens on: a new database in a folder of its own, per-user values of its own, and the first of April
/// 2011 as the working date and as the machine's date.
struct TestShop : StoreFile {
    TestShop();
    ~TestShop();
};
