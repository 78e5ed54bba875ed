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

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

#include <optional>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto lineEnd = "\r\n"_L1;
constexpr qsizetype usualCardLength = 400;

void addAttribute(QString &text, QLatin1StringView opening, QStringView value)
{
    text.append(opening).append(value).append(u'"');
}

/// The item lines from the current row on, as long as the rows are of that card. A status that is none repeats the one
/// before it.
void addItems(QString &text, Recordset &rows, qint32 jobID)
{
    QString status;
    bool isFirst = true;
    for (; !rows.eof() && rows.integer(u"JobID") == jobID; rows.moveNext()) {
        if (const QString word = rowStatus::word(rows.integer(u"DoneByWorker")); !word.isEmpty())
            status = word;
        if (!std::exchange(isFirst, false))
            text.append(lineEnd);
        addAttribute(text, "<item id=\""_L1, rows.text(u"ItemSr"));
        addAttribute(text, " name=\""_L1, rows.text(u"ItemName").replace(u'&', "&amp;"_L1));
        addAttribute(text, " status=\""_L1, status);
        text.append("></item>"_L1);
    }
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
            {u"JobID"_s, u"ItemSr"_s, u"ItemName"_s, u"DoneByWorker"_s});
    }

    /// The same again for a number that comes again.
    void addTo(QString &text, qint32 jobID)
    {
        if (std::exchange(m_job, jobID) == jobID) {
            text.append(text.sliced(m_start, m_length));
            return;
        }
        while (!m_rows.eof() && m_rows.integer(u"JobID") < jobID)
            m_rows.moveNext();
        m_start = text.size();
        addItems(text, m_rows, jobID);
        m_length = text.size() - m_start;
    }

private:
    Recordset m_rows;
    std::optional<qint32> m_job;
    /// Where those of that card stand.
    qsizetype m_start = 0;
    qsizetype m_length = 0;
};

void addCard(QString &text, const Recordset &job, const QString &status, ItemsInOrder &items)
{
    const qint16 id = Int16(job.integer(u"ID"));
    text.append(lineEnd);
    addAttribute(text, "<jobcard id=\""_L1, QString::number(id));
    addAttribute(text, " client=\""_L1, job.text(u"ClintName"));
    addAttribute(text, " date=\""_L1, job.text(u"Date"));
    addAttribute(text, " deldate=\""_L1, job.text(u"DeliveryDate"));
    addAttribute(text, " status=\""_L1, status);
    addAttribute(text, " amount=\""_L1, job.text(u"AmountDue"));
    addAttribute(text, " mobile=\""_L1, GetClientMobile({}, Int16(job.integer(u"ClintID"))));
    text.append(u'>').append(lineEnd);
    items.addTo(text, id);
    text.append(lineEnd).append("</jobcard>"_L1);
}

void addCards(QString &text, QDate from, QDate to)
{
    Recordset &jobs = DE().rsJOBS;
    const auto end = qScopeGuard([&jobs] { jobs.close(); });
    jobs.openColumns(u"Select * from Jobs where date between #"_s + DateText(from) + u"# and #"_s + DateText(to)
            + u"# order by ID"_s,
        {u"ID"_s, u"ClintID"_s, u"ClintName"_s, u"Date"_s, u"DeliveryDate"_s, u"JobFinished"_s, u"AmountDue"_s});
    if (jobs.eof())
        return;
    const qint32 first = jobs.integer(u"ID");
    jobs.moveLast();
    ItemsInOrder items(first, jobs.integer(u"ID"));
    text.reserve(text.size() + jobs.recordCount() * usualCardLength);
    QString status;
    for (jobs.moveFirst(); !jobs.eof(); jobs.moveNext()) {
        const int finished = jobs.integer(u"JobFinished");
        if (finished == jobState::Finished)
            status = u"Delivered"_s;
        else if (finished == jobState::Open)
            status = u"Undelivered"_s;
        addCard(text, jobs, status, items);
    }
}

/// The configuration, a backup, and databases with what stands beside them, whose names must stay theirs.
bool isOfTheProgram(const QFileInfo &file)
{
    const QString name = file.fileName().toLower();
    return name == "cv.ini"_L1 || name == "cvbackup.gz"_L1 || name.contains(".mdb"_L1);
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
    QString lines;
    addItems(lines, rows, jobID);
    rows.close();
    return lines;
}

void statusReport::write(QDate from, QDate to, const QString &path)
{
    QString report;
    addAttribute(report, "<jobcards created=\""_L1, DateTimeText(machineClock::now()));
    report.append(u'>').append(lineEnd);
    addCards(report, from, to);
    report.append(lineEnd).append("</jobcards>"_L1).append(lineEnd);
    if (const QString why = refusal(path); !why.isEmpty())
        throw RuntimeError(Fault::FileFault, why, path, Written::Nothing);
    // By way of a link the file that it leads to is meant.
    const QFileInfo former(path);
    UnfinishedFile file(former.exists() ? former.canonicalFilePath() : path);
    file.write(windows1252(report));
    // Whoever was to read that one is to read this one.
    if (former.exists())
        std::ignore = QFile::setPermissions(file.name(), former.permissions());
    file.replace();
}

QString statusReport::refusal(const QString &path)
{
    const QFileInfo file(path);
    if (path.isEmpty() || path.endsWith(u'/'))
        return u"The name of the file is missing."_s;
    if (file.isRelative())
        return u"That is not a whole path."_s;
    if (!QFileInfo(file.absolutePath()).isDir())
        return u"That folder does not exist."_s;
    if (file.isDir())
        return u"That is a folder."_s;
    if (file.exists() && !file.isFile())
        return u"That is a device, and not a file."_s;
    // In place of the orders themselves.
    if (file.exists() && file.canonicalFilePath() == QFileInfo(session::DBPath).canonicalFilePath())
        return u"That is the shop's own file."_s;
    if (file.isSymLink() && !file.exists())
        return u"That link leads nowhere."_s;
    if (isOfTheProgram(file) || isOfTheProgram(QFileInfo(file.canonicalFilePath())))
        return u"That is a file of the program."_s;
    if (!QFileInfo(file.exists() ? QFileInfo(file.canonicalFilePath()).path() : file.absolutePath()).isWritable())
        return u"Nothing may be written in that folder."_s;
    return {};
}
