#include "comms/modSMS.h"

#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/itemRows.h"
#include "store/jetsql.h"
#include "store/lookups.h"
#include "store/settings.h"

using namespace Qt::StringLiterals;

namespace {

QString filled(QString draft, qint32 jobID, double amount)
{
    return draft.replace(u"%eid%"_s, QString::number(jobID)).replace(u"%amount%"_s, NumberText(amount));
}

QString signedText(const QString &text)
{
    return text + u'\r' + GetSetting(setting::SmsTitle);
}

itemRows::Progress progressOf(qint32 jobID)
{
    DE().rsJOBS_DETAIL2.close();
    return itemRows::progressOf(DE().CN, jobID);
}

} // namespace

QString DefaultBookedSMS()
{
    return setting::defaultOf(setting::BookedSms);
}

QString DefaultCompletedSMS()
{
    return setting::defaultOf(setting::CompletedSms);
}

QString DefaultDueSMS()
{
    return setting::defaultOf(setting::DueSms);
}

QString GetBookedSMS(qint32 jobID, double amount)
{
    return signedText(filled(GetSetting(setting::BookedSms), jobID, amount));
}

QString GetCompletedSMS(qint32 jobID, double amount)
{
    return signedText(filled(GetSetting(setting::CompletedSms), jobID, amount));
}

QString GetDueSMS(const QString &amount)
{
    return GetSetting(setting::DueSms).replace(u"%amount%"_s, amount);
}

QString GetClientMobile(const QString &name, qint16 id)
{
    // Lists ask for one a line.
    if (name.isEmpty())
        return id > 0 ? mobileOrBlank(id) : QString();
    QString mobile;
    Recordset &clients = DE().rsaccounts;
    const auto take = [&](const QString &statement) {
        clients.reopen(statement);
        if (!clients.eof())
            mobile = clients.textOrEmpty(u"Mobile");
        clients.close();
    };
    const QString ofClients = u"Select * from Accounts where type="_s + QString::number(accountType::Client);
    take(ofClients + u" and  Title='"_s + jetsql::quoted(name) + u"'"_s);
    if (id > 0)
        take(u"Select * from Accounts where  type="_s + QString::number(accountType::Client) + u" and  ID="_s
            + QString::number(id));
    return mobile;
}

QString GetContactLine(qint16 id)
{
    if (id <= 0)
        return {};
    Recordset &account = DE().rsaccounts;
    account.reopen(u"Select * from Accounts where ID="_s + QString::number(id));
    QString line;
    if (!account.eof()) {
        line = account.textOrEmpty(u"Mobile") + u"   "_s + account.textOrEmpty(u"Address") + u"   "_s
            + account.textOrEmpty(u"City") + u"    "_s;
        if (line.trimmed().isEmpty())
            line = u"No Information Found"_s;
    }
    account.close();
    return line;
}

bool IsJobCompleted(qint32 jobID)
{
    const itemRows::Progress progress = progressOf(jobID);
    return progress.made == progress.madeAndCompleted;
}

bool IsJobDelivered(qint32 jobID)
{
    const itemRows::Progress progress = progressOf(jobID);
    return progress.made == progress.delivered;
}
