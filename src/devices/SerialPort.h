#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class QSerialPort;

/// A serial port at 9600 baud, 8 data bits, no parity, 1 stop bit, no handshake. Closes with its scope.
///
/// Which device a number means. On Windows 3 is COM3. On Linux the first of /dev/ttyUSB2, /dev/ttyACM2 and /dev/ttyS2
/// that exists, so 1 is the first modem on USB or, without one, the first port on the machine's back. The environment
/// variable CORVANE_MODEM names a device that stands for every number.
///
/// What the device sends is dropped, but for what `read` gets. Each failure is a RuntimeError (DeviceFault) with the
/// system's own words, and with the device's name where it is not there, or not there any more.
class SerialPort {
public:
    SerialPort();
    ~SerialPort();
    SerialPort(const SerialPort &) = delete;
    SerialPort &operator=(const SerialPort &) = delete;

    [[nodiscard]] bool isOpen() const;
    /// REQUIRES: not open. A number below 1 is a failure.
    void open(int number);
    /// Without effect when closed. What was handed over still goes out: the rest of a message would be cut off, and the
    /// next one taken for its end. A device that hangs is given a second for it, then the rest is dropped.
    void close();
    /// Hands the bytes to the device. The bytes written since `open` have two seconds in all, so that a modem that
    /// hangs does not hang the program: then the rest is dropped and it fails.
    void write(const QByteArray &bytes);
    /// What the device has sent since the last write, waiting so long for it; empty where nothing came.
    [[nodiscard]] QByteArray read(int milliseconds);

    /// The device that a number means at this moment.
    [[nodiscard]] static QString deviceOf(int number);

private:
    /// Whether the device still holds bytes that it was handed.
    [[nodiscard]] bool isSending() const;
    [[noreturn]] void fail();
    [[noreturn]] void failAsGone(const QString &words) const;

    std::unique_ptr<QSerialPort> m_port;
    QString m_device;
    qint64 m_millisecondsLeft = 0;
};
