#include "support/ShownScreens.h"
#include "support/testRegistry.h"
#include "ui/Application.h"
#include "ui/theme.h"

#include <QFont>
#include <QTemporaryDir>

int main(int count, char **values)
{
    // What a user of this machine has stored is neither read nor written.
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    Application application(count, values);
    Application::setQuitOnLastWindowClosed(false);
    applyTheme(application);
    // The letters that a user chose for his desktop.
    if (const int points = qEnvironmentVariableIntValue("CORVANE_POINTS"); points > 0) {
        QFont font = Application::font();
        font.setPointSize(points);
        Application::setFont(font);
    }
    ShownScreens shown;
    application.installEventFilter(&shown);
    const QStringList arguments = Application::arguments();
    int failures = TestRegistry::instance().run(arguments);
    const bool wereAll = arguments.size() == 1;
    const auto screens = QStringLiteral(CORVANE_SCREENS).split(u' ', Qt::SkipEmptyParts);
    for (const QString &name : wereAll ? shown.missing(screens) : QStringList()) {
        qWarning("no test shows %s", qPrintable(name));
        ++failures;
    }
    return failures;
}
