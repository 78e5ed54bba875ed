#include "support/NamelessControls.h"
#include "support/testRegistry.h"
#include "ui/Application.h"
#include "ui/theme.h"

#include <QTemporaryDir>

int main(int count, char **values)
{
    // What a user of this machine has stored is neither read nor written.
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    Application application(count, values);
    Application::setQuitOnLastWindowClosed(false);
    applyTheme(application);
    NamelessControls namelessControls;
    application.installEventFilter(&namelessControls);
    return TestRegistry::instance().run(Application::arguments());
}
