#include "support/testRegistry.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

QtMessageHandler testHandler = nullptr;

/// Qt Test forgets after each function that warnings fail it, so it is told again when one comes.
void failOnWarning(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    // Which scripts the machine has fonts for is not the program's doing.
    if (message.contains(QLatin1String("OpenType support missing")))
        return;
    if (type == QtWarningMsg)
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    testHandler(type, context, message);
}

/// As QTest::qExec, with our handler in front of the one that Qt Test installs.
bool passes(QObject &test, const QStringList &arguments)
{
    QList<QByteArray> texts;
    for (const QString &argument : arguments)
        texts += argument.toLocal8Bit();
    QList<char *> pointers;
    for (QByteArray &text : texts)
        pointers += text.data();
    QTest::qInit(&test, static_cast<int>(pointers.size()), pointers.data());
    testHandler = qInstallMessageHandler(failOnWarning);
    const int failures = QTest::qRun();
    qInstallMessageHandler(testHandler);
    QTest::qCleanup();
    return failures == 0;
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
    // One that hangs is ended after a minute.
    if (!qEnvironmentVariableIsSet("QTEST_FUNCTION_TIMEOUT"))
        qputenv("QTEST_FUNCTION_TIMEOUT", "60000");
    // A test that ends with the heap's lock held would wait for it for ever where its stack is to be dumped.
    qputenv("QTEST_DISABLE_STACK_DUMP", "1");
    int failedClasses = 0;
    for (const Entry &entry : m_tests) {
        if (names.isEmpty() || names.contains(QLatin1StringView(entry.name)))
            failedClasses += passes(*entry.maker(), arguments) ? 0 : 1;
    }
    return failedClasses;
}
