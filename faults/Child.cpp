#include "Child.h"

#include "cipher.h"

#include <QDeadlineTimer>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace faults {

namespace {

int ownPipe = -1;

} // namespace

void Child::tell(const QByteArray &line)
{
    const QByteArray text = line + '\n';
    for (qsizetype sent = 0; sent < text.size();) {
        const ssize_t count = ::write(ownPipe, text.constData() + sent, static_cast<size_t>(text.size() - sent));
        if (count < 0 && errno != EINTR)
            return;
        sent += std::max<ssize_t>(count, 0);
    }
}

Child::Child(const std::function<void()> &body)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        std::abort();
    m_process = ::fork();
    if (m_process < 0)
        std::abort();
    if (m_process == 0) {
        // Whoever ends it ends its children, too. Faults of it are its parent's to tell.
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        for (const int signal : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGTERM, SIGINT})
            ::signal(signal, SIG_DFL);
        restartCipher();
        ::close(ends[0]);
        ownPipe = ends[1];
        body();
        ::_exit(EXIT_SUCCESS);
    }
    ::close(ends[1]);
    m_pipe = ends[0];
}

Child::~Child()
{
    if (m_process > 0) [[maybe_unused]]
        const Ending ending = end(true);
}

bool Child::read()
{
    std::array<char, 65536> piece{};
    const ssize_t count = ::read(m_pipe, piece.data(), piece.size());
    if (count > 0)
        m_heard.append(piece.data(), count);
    return count > 0 || (count < 0 && errno == EINTR);
}

Child::Ending Child::wait(int milliseconds)
{
    const QDeadlineTimer limit(milliseconds);
    for (;;) {
        pollfd pipe{m_pipe, POLLIN, 0};
        const int ready = ::poll(&pipe, 1, static_cast<int>(limit.remainingTime()));
        if (ready > 0 && !read())
            return end(false);
        if (ready == 0 && limit.hasExpired())
            return end(true);
    }
}

Child::Ending Child::end(bool hung)
{
    Ending ending;
    ending.hung = hung;
    if (hung)
        ::kill(m_process, SIGKILL);
    int state = 0;
    while (::waitpid(m_process, &state, 0) < 0 && errno == EINTR) { }
    m_process = 0;
    ending.signal = WIFSIGNALED(state) ? WTERMSIG(state) : 0;
    // What it was still telling when it ended.
    if (!hung) {
        while (read()) { }
    }
    ::close(m_pipe);
    m_pipe = -1;
    ending.lines = m_heard.split('\n');
    // The piece behind the last line end: empty, or half a line.
    ending.lines.removeLast();
    return ending;
}

QByteArray Child::Ending::text() const
{
    if (hung)
        return "it hung";
    return signal == 0 ? QByteArray("it ended by itself") : "it was ended by signal " + QByteArray::number(signal);
}

} // namespace faults
