#include "ui/Progress.h"

#include <QApplication>
#include <QProgressDialog>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 patience = 300;
constexpr qint64 lookInterval = 40;
constexpr int steps = 1000;
constexpr int width = 420;

} // namespace

Progress::Progress(const QString &what, WayOut wayOut)
    : m_what(what), m_wayOut(wayOut), m_below(QApplication::activeWindow())
{
    m_started.start();
}

Progress::~Progress()
{
    if (!m_window)
        return;
    m_window->hide();
    if (m_below)
        m_below->activateWindow();
}

bool Progress::at(qint64 done, qint64 total)
{
    const qint64 now = m_started.elapsed();
    if (now - m_lastLook < lookInterval)
        return !isBroken();
    m_lastLook = now;
    if (!m_window && now >= patience)
        show();
    if (!m_window)
        return true;
    // It is modal: events go to it alone, and the others only draw themselves.
    m_window->setValue(static_cast<int>(total > 0 ? done * (steps - 1) / total : 0));
    QCoreApplication::processEvents();
    return !isBroken();
}

bool Progress::isBroken() const
{
    return m_wayOut == WayOut::Escape && m_window && m_window->wasCanceled();
}

void Progress::show()
{
    m_window = std::make_unique<QProgressDialog>(
        m_what, m_wayOut == WayOut::None ? QString() : u"Cancel"_s, 0, steps, m_below);
    m_window->setObjectName(u"progress"_s);
    m_window->setWindowTitle(u"Please wait"_s);
    m_window->setAccessibleName(m_what);
    m_window->setWindowModality(Qt::ApplicationModal);
    m_window->setMinimumWidth(width);
    m_window->setAutoReset(false);
    m_window->setAutoClose(false);
    m_window->show();
    m_window->activateWindow();
}
