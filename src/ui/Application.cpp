#include "ui/Application.h"

#include "base/RuntimeError.h"
#include "ui/Screen.h"
#include "ui/platformBox.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

#include <cstdlib>

using namespace Qt::StringLiterals;

Application::Application(int &argumentCount, char **arguments) : QApplication(argumentCount, arguments) { }

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        if (event->type() == QEvent::KeyPress && Screen::previewKey(receiver, static_cast<QKeyEvent *>(event)))
            return true;
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError &error) {
        handle(error);
    }
    return true;
}

void Application::handle(const RuntimeError &error)
{
    if (m_handling)
        return;
    const QScopedValueRollback handling(m_handling, true);
    if (m_handler)
        return m_handler(error);
    // What was typed stands on a screen; the process must not take it along.
    if (error.canGoOn() && Screen::front())
        return platformBox::showCritical(
            error.source().isEmpty() ? error.text() : error.text() + u"\n\n"_s + error.source());
    platformBox::showCritical(error.report());
    std::exit(EXIT_FAILURE);
}
