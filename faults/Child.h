#pragma once

#include <QByteArray>
#include <QList>

#include <functional>

#include <sys/types.h>

namespace faults {

/// A process that was forked off to do one thing. It inherits no open file of a shop, or the engine's locks would go
/// astray: open nothing before.
class Child {
public:
    /// Within the child: sends a line to the parent. The line is on its way when it returns, whatever happens next.
    static void tell(const QByteArray &line);

    /// Starts `body`. The child ends with it, without anything that would run at the end of a program.
    explicit Child(const std::function<void()> &body);
    /// Ends the child and all that it has started, unless it was waited for.
    ~Child();
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;

    struct Ending {
        QList<QByteArray> lines;
        /// It did not end by itself in time.
        bool hung = false;
        /// The signal that ended it, 0 for none.
        int signal = 0;

        [[nodiscard]] bool isGood() const { return !hung && signal == 0; }
        /// What became of it, in words.
        [[nodiscard]] QByteArray text() const;
    };
    /// Waits until it ends, and ends it and all that it has started after that many milliseconds.
    [[nodiscard]] Ending wait(int milliseconds);

    /// Reads what has come. False when there is nothing more to come. For whoever waits for several.
    [[nodiscard]] bool read();
    [[nodiscard]] int pipe() const { return m_pipe; }
    /// REQUIRES: `read` has said that nothing more comes, or the child was waited for too long (`hung`).
    [[nodiscard]] Ending end(bool hung);

private:
    pid_t m_process = 0;
    int m_pipe = -1;
    QByteArray m_heard;
};

} // namespace faults
