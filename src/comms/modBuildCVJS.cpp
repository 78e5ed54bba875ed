#include "comms/modBuildCVJS.h"

#include "base/RuntimeError.h"
#include "base/clock.h"
#include "base/safeFile.h"
#include "base/session.h"
#include "base/values.h"
#include "base/windows1252.h"
#include "comms/modSMS.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "ui/platformBox.h"

#include <QFileInfo>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const auto lineEnd = u"\r\n"_s;
const QStringList itemColumns{u"JobID"_s, u"ItemSr"_s, u"ItemName"_s, u"DoneByWorker"_s};

QString attribute(QLatin1StringView name, const QString &value)
{
    return u' ' + name + u"=\""_s + value + u'"';
}

/// From the current row on, as long as the rows are of that card. A status that is none repeats the one before it.
QString itemLines(Recordset &rows, qint32 jobID)
{
    QString lines;
    QString status;
    for (; !rows.eof() && rows.integer(u"JobID") == jobID; rows.moveNext()) {
        if (const QString word = rowStatus::word(rows.integer(u"DoneByWorker")); !word.isEmpty())
            status = word;
        if (!lines.isEmpty())
            lines += lineEnd;
        lines += u"<item"_s + attribute("id"_L1, rows.text(u"ItemSr"))
            + attribute("name"_L1, rows.text(u"ItemName").replace(u'&', u"&amp;"_s)) + attribute("status"_L1, status)
            + u"></item>"_s;
    }
    return lines;
}

/// The item lines of cards that are asked for in the order of their numbers: one reading for all of them, since each
/// statement reads the whole table.
class ItemsInOrder {
public:
    ItemsInOrder(qint32 firstJob, qint32 lastJob) : m_rows(DE().CN)
    {
        m_rows.openColumns(
            u"Select * from Jobs_Detail where JobID between %1 and %2 order by JobID, ItemSr"_s.arg(firstJob).arg(
                lastJob),
            itemColumns);
    }

    /// The same again for the same card.
    const QString &of(qint32 jobID)
    {
        if (std::exchange(m_job, jobID) == jobID)
            return m_lines;
        while (!m_rows.eof() && m_rows.integer(u"JobID") < jobID)
            m_rows.moveNext();
        m_lines = itemLines(m_rows, jobID);
        return m_lines;
    }

private:
    Recordset m_rows;
    std::optional<qint32> m_job;
    QString m_lines;
};

QString card(const Recordset &job, const QString &status, const QString &items)
{
    return u"<jobcard"_s + attribute("id"_L1, job.text(u"ID")) + attribute("client"_L1, job.text(u"ClintName"))
        + attribute("date"_L1, job.text(u"Date")) + attribute("deldate"_L1, job.text(u"DeliveryDate"))
        + attribute("status"_L1, status) + attribute("amount"_L1, job.text(u"AmountDue"))
        + attribute("mobile"_L1, GetClientMobile({}, Int16(job.integer(u"ClintID")))) + u'>' + lineEnd + items + lineEnd
        + u"</jobcard>"_s;
}

QString cards(QDate from, QDate to)
{
    Recordset &jobs = DE().rsJOBS;
    jobs.openColumns(u"Select * from Jobs where date between #"_s + DateText(from) + u"# and #"_s + DateText(to)
            + u"# order by ID"_s,
        {u"ID"_s, u"ClintID"_s, u"ClintName"_s, u"Date"_s, u"DeliveryDate"_s, u"JobFinished"_s, u"AmountDue"_s});
    if (jobs.eof())
        return {};
    const qint32 first = jobs.integer(u"ID");
    jobs.moveLast();
    ItemsInOrder items(first, Int16(jobs.integer(u"ID")));
    QString body;
    QString status;
    for (jobs.moveFirst(); !jobs.eof(); jobs.moveNext()) {
        const int finished = jobs.integer(u"JobFinished");
        if (finished == jobState::Finished)
            status = u"Delivered"_s;
        else if (finished == jobState::Open)
            status = u"Undelivered"_s;
        body += lineEnd + card(jobs, status, items.of(Int16(jobs.integer(u"ID"))));
    }
    jobs.close();
    return body;
}

} // namespace

void BuildStatusReport(QDate from, QDate to, const QString &path)
{
    try {
        statusReport::write(from, to, path);
    } catch (const RuntimeError &) {
        return;
    }
    platformBox::show(u"Report Created."_s);
}

QString BuildJobItems(qint16 jobID)
{
    Recordset &rows = DE().rsJOBS_DETAIL;
    rows.reopen(u"Select * from Jobs_Detail where JobID="_s + QString::number(jobID) + u" order by ItemSr"_s);
    const QString lines = itemLines(rows, jobID);
    rows.close();
    return lines;
}

void statusReport::write(QDate from, QDate to, const QString &path)
{
    const QString head = u"<jobcards created=\""_s + DateTimeText(machineClock::now()) + u"\">"_s;
    const QString report = head + lineEnd + cards(from, to) + lineEnd + u"</jobcards>"_s + lineEnd;
    if (const QString why = refusal(path); !why.isEmpty())
        throw RuntimeError(Fault::FileFault, why, path, Written::Nothing);
    // By way of a link the file that it leads to is meant.
    const QFileInfo file(path);
    safeFile::writeWhole(file.exists() ? file.canonicalFilePath() : path, windows1252(report));
}

QString statusReport::refusal(const QString &path)
{
    const QFileInfo file(path);
    if (path.isEmpty() || path.endsWith(u'/'))
        return u"The name of the file is missing."_s;
    if (!QFileInfo(file.absolutePath()).isDir())
        return u"That folder does not exist."_s;
    if (file.isDir())
        return u"That is a folder."_s;
    if (file.exists() && !file.isFile())
        return u"That is a device, and not a file."_s;
    // In place of the orders themselves.
    if (file.exists() && file.canonicalFilePath() == QFileInfo(session::DBPath).canonicalFilePath())
        return u"That is the shop's own file."_s;
    if (!QFileInfo(file.exists() ? QFileInfo(file.canonicalFilePath()).path() : file.absolutePath()).isWritable())
        return u"Nothing may be written in that folder."_s;
    return {};
}
