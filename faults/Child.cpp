#include "Child.h"

#include "base/RuntimeError.h"

#include <QElapsedTimer>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

Child::Child(const std::function<void(const Say &)> &work) : m_process(0), m_end(-1)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        qFatal("no pipe");
    m_process = fork();
    if (m_process < 0)
        qFatal("no process");
    if (m_process > 0) {
        ::close(ends[1]);
        m_end = ends[0];
        return;
    }
    const Say say = [end = ends[1]](const QByteArray &line) {
        const QByteArray whole = line + '\n';
        if (::write(end, whole.constData(), static_cast<size_t>(whole.size())) != whole.size())
            _exit(3);
    };
    try {
        work(say);
    } catch (const RuntimeError &error) {
        say("threw " + error.report().toUtf8().replace('\n', ' '));
        _exit(2);
    }
    _exit(0);
}

Child::~Child()
{
    kill();
    ::close(m_end);
}

bool Child::read(int milliseconds)
{
    pollfd end{m_end, POLLIN, 0};
    if (poll(&end, 1, milliseconds) <= 0)
        return false;
    std::array<char, 4096> bytes{};
    const ssize_t count = ::read(m_end, bytes.data(), bytes.size());
    if (count <= 0)
        return false;
    m_rest.append(bytes.data(), count);
    for (qsizetype at = m_rest.indexOf('\n'); at >= 0; at = m_rest.indexOf('\n')) {
        m_lines += m_rest.first(at);
        m_rest.remove(0, at + 1);
    }
    return true;
}

bool Child::waitFor(const QByteArray &line, int seconds)
{
    while (!m_lines.contains(line)) {
        if (!read(seconds * 1000))
            return false;
    }
    return true;
}

void Child::kill()
{
    if (m_ended)
        return;
    ::kill(m_process, SIGKILL);
    finish(5);
}

bool Child::finish(int seconds)
{
    if (m_ended)
        return m_well;
    QElapsedTimer clock;
    clock.start();
    while (read(qMax(0, seconds * 1000 - static_cast<int>(clock.elapsed())))) { }
    if (clock.elapsed() >= seconds * 1000)
        ::kill(m_process, SIGKILL);
    int status = 0;
    waitpid(m_process, &status, 0);
    while (read(0)) { }
    m_ended = true;
    m_well = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return m_well;
}
