#pragma once

#include "base/RuntimeError.h"

#include <QTest>

/// Runs `statement` and fails the test unless it throws a RuntimeError of that fault.
#define EXPECT_FAULT(expected, statement)                                                                              \
    do {                                                                                                               \
        try {                                                                                                          \
            statement;                                                                                                 \
            QFAIL("no failure: " #statement);                                                                          \
        } catch (const RuntimeError &error) {                                                                          \
            QVERIFY2(error.fault() == (expected), qPrintable(error.report()));                                         \
        }                                                                                                              \
    } while (false)
