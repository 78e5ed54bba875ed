#pragma once

#include <QByteArrayList>

#include <functional>

/// A piece of work in a process of its own, which may be killed at any moment. REQUIRES: no file of the shop is open in
/// the process that starts it: connections do not outlive a fork.
class Child {
public:
    /// What the child says, a line at a time, arrives with its starter even when it is killed right after.
    using Say = std::function<void(const QByteArray &line)>;

    explicit Child(const std::function<void(const Say &)> &work);
    ~Child();
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;

    /// Waits until the child has said that line. False when it ends, or says nothing for `seconds`, before that.
    bool waitFor(const QByteArray &line, int seconds);
    void kill();
    /// Waits for the end, `seconds` at most, then kills. True when the child ended by itself and well.
    bool finish(int seconds);
    /// All lines up to now.
    [[nodiscard]] const QByteArrayList &lines() const { return m_lines; }

private:
    bool read(int milliseconds);

    int m_process;
    int m_end;
    QByteArray m_rest;
    QByteArrayList m_lines;
    bool m_ended = false;
    bool m_well = false;
};
