#include "app/checkCommand.h"

#include "app/sessionStart.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "base/values.h"
#include "store/fileCheck.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

constexpr int whole = 0;
constexpr int differs = 1;
constexpr int unreadable = 2;

/// The file that the next start would open.
QString configuredFile(const QString &folder)
{
    session::ProgramFolder = folder;
    if (!QFileInfo::exists(session::programPath(u"cv.ini")))
        return session::defaultDatabasePath();
    ReadConfig();
    return session::DBPath;
}

QString counted(int count, const QString &what)
{
    return QLocale::c().toString(count) + u' ' + what + (count == 1 ? QString() : u"s"_s);
}

QString summaryOf(const fileCheck::Report &report)
{
    QString text = counted(report.cards, u"card"_s) + u", "_s + counted(report.rows, u"row"_s) + u", "_s
        + counted(report.vouchers, u"voucher"_s) + u", "_s + counted(report.postings, u"posting"_s);
    if (report.lastCard.isValid())
        text += u", last card of "_s + DateText(report.lastCard);
    const auto differences = static_cast<int>(report.differences.size());
    return text + u": "_s + (differences == 0 ? u"whole."_s : counted(differences, u"difference"_s) + u'.');
}

} // namespace

int checkFile(const QString &path, const QString &folder, QTextStream &out)
{
    QString file = path;
    try {
        if (file.isEmpty())
            file = configuredFile(folder);
    } catch (const RuntimeError &error) {
        out << error.text() << Qt::endl;
        return unreadable;
    }
    out << QDir::toNativeSeparators(file) << Qt::endl;
    const fileCheck::Report report = fileCheck::check(file);
    if (!report.remark.isEmpty())
        out << report.remark << Qt::endl;
    for (const QString &line : report.damages + report.differences)
        out << line << Qt::endl;
    if (!report.failure.isEmpty())
        out << report.failure << Qt::endl;
    if (!report.isReadable()) {
        out << u"The file cannot be read as a whole."_s << Qt::endl;
        return unreadable;
    }
    out << summaryOf(report) << Qt::endl;
    return report.isWhole() ? whole : differs;
}
