#pragma once

#include <QByteArray>
#include <QString>

/// Stands in for the modem: the device that the program opens, and the other end of the line. The program takes it for
/// every port number as long as it lives.
class PseudoTerminal {
public:
    PseudoTerminal();
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal &) = delete;
    PseudoTerminal &operator=(const PseudoTerminal &) = delete;

    [[nodiscard]] QString device() const { return m_device; }
    /// What has come up to now.
    [[nodiscard]] QByteArray received() const;
    /// What the modem says by itself.
    void say(const QByteArray &bytes) const;
    /// Pulls the modem out: the line is gone.
    void vanish();
    /// Whether the program has closed the device after opening it.
    [[nodiscard]] bool isHungUp() const;

private:
    int m_end;
    QString m_device;
};
