#include "app/SafetyCopier.h"

#include "app/safetyCopy.h"
#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/session.h"
#include "store/DataEnvironment.h"

#include <QFileInfo>
#include <QThread>

#include <chrono>
#include <new>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// The start and the first looks around come before.
constexpr auto firstLook = 8s;
constexpr auto lookEvery = 10min;

} // namespace

SafetyCopier::SafetyCopier(QObject *parent) : QObject(parent)
{
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_timer.setInterval(lookEvery);
        look();
    });
}

SafetyCopier::~SafetyCopier()
{
    m_stop = true;
    if (m_thread)
        m_thread->wait();
}

void SafetyCopier::begin()
{
    m_timer.start(firstLook);
}

void SafetyCopier::look()
{
    // A long command shows how far it is, and lets timers come meanwhile.
    if (m_thread || !DE().CN.isAtRest())
        return;
    const QString database = session::DBPath;
    if (QFileInfo::exists(safetyCopy::pathOf(database, machineClock::today())))
        return emit isThere();
    try {
        start(DE().CN.content(), database);
    } catch (const RuntimeError &error) {
        emit failed(error.text());
    } catch (const std::bad_alloc &) {
        emit failed(u"There is not enough memory."_s);
    }
}

void SafetyCopier::start(const QByteArray &content, const QString &database)
{
    const QDate day = machineClock::today();
    m_thread.reset(QThread::create([this, content, database, day] {
        try {
            safetyCopy::make(content, database, day, m_stop);
            if (!m_stop)
                emit made(safetyCopy::pathOf(database, day));
        } catch (const RuntimeError &error) {
            emit failed(error.text());
        } catch (const std::bad_alloc &) {
            emit failed(u"There is not enough memory."_s);
        }
    }));
    // With the bytes that it holds.
    connect(m_thread.get(), &QThread::finished, this, [this] { m_thread.reset(); });
    m_thread->start(QThread::IdlePriority);
}
