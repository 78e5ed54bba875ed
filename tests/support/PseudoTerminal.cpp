#include "support/PseudoTerminal.h"

#include <QtGlobal>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr auto modemVariable = "CORVANE_MODEM";

}

PseudoTerminal::PseudoTerminal() : m_end(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK))
{
    if (m_end < 0 || grantpt(m_end) != 0 || unlockpt(m_end) != 0)
        qFatal("no pseudo-terminal");
    m_device = QString::fromLocal8Bit(ptsname(m_end));
    qputenv(modemVariable, m_device.toLocal8Bit());
}

PseudoTerminal::~PseudoTerminal()
{
    qunsetenv(modemVariable);
    if (m_end >= 0)
        close(m_end);
}

void PseudoTerminal::say(const QByteArray &bytes) const
{
    if (write(m_end, bytes.constData(), static_cast<size_t>(bytes.size())) < 0)
        qFatal("the pseudo-terminal takes nothing");
}

void PseudoTerminal::vanish()
{
    close(m_end);
    m_end = -1;
}

QByteArray PseudoTerminal::received() const
{
    QByteArray bytes;
    std::array<char, 4096> part{};
    for (auto count = read(m_end, part.data(), part.size()); count > 0; count = read(m_end, part.data(), part.size()))
        bytes.append(part.data(), count);
    return bytes;
}

bool PseudoTerminal::isHungUp() const
{
    pollfd end{m_end, POLLIN, 0};
    return poll(&end, 1, 0) > 0 && (end.revents & POLLHUP) != 0;
}
