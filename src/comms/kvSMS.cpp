#include "comms/kvSMS.h"

#include "base/RuntimeError.h"
#include "base/values.h"
#include "store/settings.h"
#include "ui/Notice.h"
#include "ui/Progress.h"
#include "ui/frmMsg.h"
#include "ui/platformBox.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QScopeGuard>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr char endOfMessage = 0x1a;
constexpr char breakOff = 0x1b;

// Answers have a line of their own: an echo of the message may hold the same letters.
const auto finished = u"(^|[\r\n])OK[\r\n]"_s;
const auto refused = u"(^|[\r\n])(\\+CM[ES] )?ERROR\\b[^\r\n]*[\r\n]"_s;
const auto prompt = u"(^|[\r\n])>"_s;
constexpr int shortWait = 3000;
/// The network may take its time.
constexpr int longWait = 30'000;
constexpr int lookEvery = 50;

/// The text as the modem takes it: what would end or break off the message within it is left out.
QByteArray messageBytes(const QString &message)
{
    QByteArray bytes = message.toLatin1();
    return bytes.removeIf([](char byte) { return byte == endOfMessage || byte == breakOff; });
}

bool holds(const QByteArray &said, const QString &answer)
{
    return QRegularExpression(answer).match(QString::fromLatin1(said)).hasMatch();
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
    qint16 portNumber = portOf(port);
    SendSMS(portNumber, mobile, message);
    return true;
}

qint16 kvSMS::portOf(const QString &text)
{
    // The device tells of it as of any other failure.
    const double number = Val(text);
    return std::abs(number) > std::numeric_limits<qint16>::max() ? qint16(0) : Int16(number);
}

QString kvSMS::answerTo(qint16 port, const QString &number, const QString &message)
{
    QByteArray said;
    try {
        const auto closed = qScopeGuard([this] { m_port.close(); });
        m_port.close();
        m_port.open(port);
        said = ask("AT+CMGF=1\r", finished, shortWait);
        if (!number.isEmpty() && holds(said, finished)) {
            const QByteArray prompted = ask("AT+CMGS=\"" + dialled(number).toLatin1() + "\"\r", prompt, shortWait);
            said += prompted;
            if (holds(prompted, prompt))
                said += ask(messageBytes(message) + endOfMessage, finished, longWait);
            else
                m_port.write(QByteArray(1, breakOff));
        }
    } catch (const RuntimeError &error) {
        return error.text();
    }
    QStringList lines = QString::fromLatin1(said).split(QRegularExpression(u"[\r\n]+"_s), Qt::SkipEmptyParts);
    lines.removeAll(u"> "_s);
    return lines.isEmpty() ? u"The modem did not answer."_s : lines.join(u'\n');
}

/// Writes the bytes and gathers what comes until `end` has come, or the modem refuses, or the time is over.
QByteArray kvSMS::ask(const QByteArray &bytes, const QString &end, int milliseconds)
{
    Progress progress(u"Waiting for the modem's answer..."_s);
    m_port.write(bytes);
    QElapsedTimer waited;
    waited.start();
    QByteArray said;
    while (!holds(said, end) && !holds(said, refused) && waited.elapsed() < milliseconds
        && progress.at(waited.elapsed(), milliseconds))
        said += m_port.read(lookEvery);
    return said;
}
