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

/// What `work` throws. A test whose work throws nothing fails and ends.
template <typename Work>
[[nodiscard]] RuntimeError failureOf(const Work &work)
{
    try {
        work();
    } catch (const RuntimeError &error) {
        return error;
    }
    qFatal("no failure");
}
