#pragma once

#include <QObject>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

/// The test classes of one executable. A class registers itself by `CORVANE_TEST(ClassName)` in its file.
class TestRegistry {
public:
    using Maker = std::function<std::unique_ptr<QObject>()>;
    static TestRegistry &instance();
    void add(const char *name, const Maker &maker) { m_tests.push_back({name, maker}); }

    /// Runs the classes named by the leading arguments, all where none is named; further arguments go to Qt Test.
    /// A warning that a test did not announce by QTest::ignoreMessage fails it. Returns the number of failed classes.
    int run(QStringList arguments);

private:
    struct Entry {
        const char *name;
        Maker maker;
    };
    std::vector<Entry> m_tests;
};

#define CORVANE_TEST(Class)                                                                                            \
    namespace {                                                                                                        \
    const bool registered##Class =                                                                                     \
        (TestRegistry::instance().add(#Class, [] { return std::make_unique<Class>(); }), true);                        \
    }
