#pragma once

#include "devices/SerialPort.h"

#include <QObject>

/// Speaks to the GSM modem. Each screen that sends has its own; the port stays open from one message to the next.
class kvSMS : public QObject {
    Q_OBJECT

public:
    explicit kvSMS(QObject *parent = nullptr) : QObject(parent) { }

    /// Hands one message to the modem at serial port `port`, in text mode. Nothing is read back, so a modem that
    /// refuses is not noticed. The modem gets the plain form of the number that `number` begins with: "012 34" is 1234.
    /// Signs that Latin-1 lacks reach it as "?"; the two that would end or break off the message are left out. A port
    /// that fails is told in a plain box with the system's words; the caller sees nothing of it. The screen in front
    /// shows that a message is being sent.
    void SendSMS(qint16 &port, const QString &number, const QString &message);

    /// What every sender does: tells when `mobile` is empty or the shop has set no port, and else sends at that port.
    /// True where it came so far, whatever the port made of it.
    bool sendAtShopPort(const QString &mobile, const QString &message);

    /// Hands the message over as `SendSMS` does, but listens to the modem, and gives what it answered, a line each; in
    /// words where it said nothing, or where the port failed. Without a number the modem is only asked whether it
    /// takes texts, and nothing is sent. Shows how long it waits, and lets the user break off.
    [[nodiscard]] QString answerTo(qint16 port, const QString &number, const QString &message);

    /// The port that a text names; 0, which no port can be, where the number is none that a port can have.
    [[nodiscard]] static qint16 portOf(const QString &text);
    /// What the modem gets for `number`.
    [[nodiscard]] static QString dialled(const QString &number);

private:
    [[nodiscard]] QByteArray ask(const QByteArray &bytes, const QString &end, int milliseconds);

    SerialPort m_port;
};
