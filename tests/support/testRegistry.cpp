#include "support/testRegistry.h"

#include <algorithm>

namespace {

QtMessageHandler previousHandler = nullptr;

void failOnWarning(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    previousHandler(type, context, message);
    if (type == QtWarningMsg || type == QtCriticalMsg)
        QTest::qFail(qPrintable(QStringLiteral("Unexpected warning: ") + message), context.file, context.line);
}

} // namespace

TestRegistry &TestRegistry::instance()
{
    static TestRegistry registry;
    return registry;
}

int TestRegistry::run(QStringList arguments)
{
    QStringList names;
    const auto known = [this](const QString &name) {
        return std::any_of(m_tests.begin(), m_tests.end(),
            [&name](const Entry &entry) { return name == QLatin1StringView(entry.name); });
    };
    while (arguments.size() > 1 && known(arguments.at(1)))
        names += arguments.takeAt(1);
    previousHandler = qInstallMessageHandler(failOnWarning);
    int failedClasses = 0;
    for (const Entry &entry : m_tests) {
        if (names.isEmpty() || names.contains(QLatin1StringView(entry.name)))
            failedClasses += QTest::qExec(entry.maker().get(), arguments) != 0;
    }
    return failedClasses;
}
