#include "comms/kvSMS.h"

#include "base/RuntimeError.h"
#include "base/values.h"
#include "store/settings.h"
#include "ui/Notice.h"
#include "ui/frmMsg.h"
#include "ui/platformBox.h"

#include <QGuiApplication>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr char endOfMessage = 0x1a;
constexpr char breakOff = 0x1b;

/// The text as the modem takes it: what would end or break off the message within it is left out.
QByteArray messageBytes(const QString &message)
{
    QByteArray bytes = message.toLatin1();
    return bytes.removeIf([](char byte) { return byte == endOfMessage || byte == breakOff; });
}

} // namespace

QString kvSMS::dialled(const QString &number)
{
    return NumberText(Val(number));
}

void kvSMS::SendSMS(qint16 &port, const QString &number, const QString &message)
{
    QString failure;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        Notice notice(u"The message is being sent..."_s);
        m_port.close();
        m_port.open(port);
        m_port.write("AT+CMGF=1\r");
        m_port.write("AT+CMGS=\"" + dialled(number).toLatin1() + "\"\r");
        m_port.write(messageBytes(message) + endOfMessage);
        notice.linger();
    } catch (const RuntimeError &error) {
        failure = error.text();
    }
    QGuiApplication::restoreOverrideCursor();
    if (!failure.isEmpty())
        platformBox::show(failure);
}

bool kvSMS::sendAtShopPort(const QString &mobile, const QString &message)
{
    if (mobile.isEmpty()) {
        ShowMessage(u"Mobile Number Not Found!\r\nSMS Sending has been Failed."_s);
        return false;
    }
    const QString port = GetSetting(setting::ModemPort);
    if (port.isEmpty()) {
        ShowMessage(u"Modem Com Port Error!\r\nSMS Sending has been Failed."_s);
        return false;
    }
    // A number that no port can have is none, which the device tells as any other failure of it.
    const double number = Val(port);
    qint16 portNumber = std::abs(number) > std::numeric_limits<qint16>::max() ? qint16(0) : Int16(number);
    SendSMS(portNumber, mobile, message);
    return true;
}
