#include "devices/SerialPort.h"

#include "base/RuntimeError.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSerialPort>
#include <QThread>

#include <cerrno>

#ifdef Q_OS_UNIX
#include <sys/ioctl.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr int inputBuffer = 1024;
constexpr int writeMilliseconds = 2000;
/// Time for a message of some 900 characters at 9600 baud.
constexpr int closeMilliseconds = 1000;
constexpr int lookEvery = 10;

} // namespace

SerialPort::SerialPort() : m_port(std::make_unique<QSerialPort>())
{
    m_port->setReadBufferSize(inputBuffer);
}

SerialPort::~SerialPort()
{
    close();
}

QString SerialPort::deviceOf(int number)
{
    if (const QString device = qEnvironmentVariable("CORVANE_MODEM"); !device.isEmpty())
        return device;
#ifdef Q_OS_WIN
    return u"COM%1"_s.arg(number);
#else
    const QString index = QString::number(number - 1);
    for (const QString &kind : {u"/dev/ttyUSB"_s, u"/dev/ttyACM"_s}) {
        if (QFileInfo::exists(kind + index))
            return kind + index;
    }
    return u"/dev/ttyS"_s + index;
#endif
}

bool SerialPort::isOpen() const
{
    return m_port->isOpen();
}

void SerialPort::open(int number)
{
    if (number < 1)
        throw RuntimeError(Fault::DeviceFault, u"Invalid port number"_s, QString::number(number));
    m_device = deviceOf(number);
    m_port->setPortName(m_device);
    m_port->setBaudRate(QSerialPort::Baud9600);
    m_port->setDataBits(QSerialPort::Data8);
    m_port->setParity(QSerialPort::NoParity);
    m_port->setStopBits(QSerialPort::OneStop);
    m_port->setFlowControl(QSerialPort::NoFlowControl);
    if (!m_port->open(QIODevice::ReadWrite))
        fail();
    m_port->clear(QSerialPort::Input);
    m_millisecondsLeft = writeMilliseconds;
}

void SerialPort::close()
{
    if (!isOpen())
        return;
    const QDeadlineTimer limit(closeMilliseconds);
    while (isSending() && !limit.hasExpired())
        QThread::msleep(lookEvery);
    // The system would wait half a minute for a device that takes nothing before it lets it go.
    if (isSending())
        m_port->clear();
    m_port->close();
}

bool SerialPort::isSending() const
{
#ifdef Q_OS_UNIX
    int bytesHeld = 0;
    return ioctl(m_port->handle(), TIOCOUTQ, &bytesHeld) == 0 && bytesHeld > 0;
#else
    // A write is done there when the device has sent it.
    return m_port->bytesToWrite() > 0;
#endif
}

void SerialPort::write(const QByteArray &bytes)
{
    QElapsedTimer clock;
    clock.start();
    if (m_port->write(bytes) < 0)
        fail();
    while (m_port->bytesToWrite() > 0) {
        // Nobody reads the modem's answers; once they fill the buffer, nothing more would be written either.
        const bool dropped = !m_port->readAll().isEmpty();
        const auto left = static_cast<int>(m_millisecondsLeft - clock.elapsed());
        if (left > 0 && (m_port->waitForBytesWritten(left) || dropped || m_port->bytesAvailable() > 0))
            continue;
        if (m_port->error() != QSerialPort::NoError && m_port->error() != QSerialPort::TimeoutError)
            fail();
        m_port->clear();
        throw RuntimeError(Fault::DeviceFault, u"Operation timed out"_s, m_port->portName());
    }
    m_millisecondsLeft -= clock.elapsed();
}

QByteArray SerialPort::read(int milliseconds)
{
    if (m_port->bytesAvailable() == 0 && !m_port->waitForReadyRead(milliseconds)
        && m_port->error() != QSerialPort::NoError && m_port->error() != QSerialPort::TimeoutError)
        fail();
    return m_port->readAll();
}

void SerialPort::fail()
{
    const QSerialPort::SerialPortError error = m_port->error();
    const QString words = m_port->errorString();
    if (isOpen())
        m_port->clear();
    switch (error) {
    case QSerialPort::DeviceNotFoundError: failAsGone(words);
    case QSerialPort::ReadError:
    case QSerialPort::WriteError:
    case QSerialPort::ResourceError:
        // A line that was hung up leaves no words of the system's own.
        failAsGone(qt_error_string(EIO));
    default: throw RuntimeError(Fault::DeviceFault, words, m_device);
    }
}

void SerialPort::failAsGone(const QString &words) const
{
    throw RuntimeError(Fault::DeviceFault, u"The modem at %1 is not there: %2"_s.arg(m_device, words), m_device);
}
