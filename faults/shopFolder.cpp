#include "shopFolder.h"

#include "base/safeFile.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/fileCheck.h"
#include "store/schema.h"
#include "store/settings.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr qsizetype longestShown = 48;
constexpr qsizetype demoSize = 40'000;

QString delivered;
std::function<void()> afterOpening;

QString shown(const QByteArray &bytes)
{
    if (bytes.size() <= longestShown)
        return QString::fromUtf8(bytes);
    return u"%1 bytes, %2"_s.arg(bytes.size())
        .arg(QLatin1StringView(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex().first(12)));
}

QStringList rowsOf(Connection &connection, const schema::Table &table)
{
    QStringList lines;
    Recordset rows(connection);
    rows.open(u"Select * from "_s + table.name);
    for (; !rows.eof(); rows.moveNext()) {
        QString line = table.name;
        for (int i = 0; i < rows.columnCount(); ++i) {
            if (table.columns[static_cast<size_t>(i)].type == schema::Type::AutoNumber)
                continue;
            const Value value = rows.value(i);
            line += u'|' + (value.isNull() ? u"Null"_s : shown(value.toText().toUtf8()));
        }
        lines += line;
    }
    lines.sort();
    return lines;
}

QString rowsOf(Connection &connection)
{
    QStringList lines;
    for (const schema::Table &table : schema::tables())
        lines += rowsOf(connection, table);
    return lines.join(u'\n');
}

bool isKeptShop(const QString &name)
{
    static const QRegularExpression form(u"^data15-aside-2[0-9-]*\\.mdb$"_s);
    return form.match(name).hasMatch();
}

QString rowsOfKept(const QFileInfo &file)
{
    const QTemporaryDir folder;
    UnfinishedFile copy(folder.filePath(file.fileName()));
    copy.write(contentOf(file.filePath()));
    Connection connection;
    connection.openReadOnly(copy);
    return rowsOf(connection);
}

/// The shops that were kept beside the one in use. Their names bear the moment; one that says what the shop in use
/// says, or another one, was kept once too often, and no more.
QStringList keptShops(const QString &shop)
{
    QStringList lines;
    for (const QFileInfo &file : QDir(session::ProgramFolder).entryInfoList(QDir::Files)) {
        if (!isKeptShop(file.fileName()))
            continue;
        if (const QString rows = rowsOfKept(file); rows != shop)
            lines += u"beside: a kept shop: "_s + shown(rows.toUtf8());
    }
    lines.removeDuplicates();
    lines.sort();
    return lines;
}

/// What a file says. The folder's own path, which stands in the configuration, is another one in each try.
QString described(const QFileInfo &file, const std::vector<Store> &stores)
{
    for (const Store &store : stores) {
        if (const auto said = store.look ? store.look(file) : std::nullopt)
            return *said;
    }
    QByteArray content = contentOf(file.filePath());
    return shown(content.replace(QFile::encodeName(session::ProgramFolder), "FOLDER"));
}

QStringList otherFiles(const std::vector<Store> &stores)
{
    QStringList lines;
    const QDir folder(session::ProgramFolder);
    QDirIterator found(
        folder.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        found.next();
        const QFileInfo file = found.fileInfo();
        const QString name = folder.relativeFilePath(file.filePath());
        // An unfinished file is taken over by the next one of its name, and a folder for copies is none.
        if (file.filePath() == session::defaultDatabasePath() || name.contains(u"aside-2") || name.endsWith(u".new")
            || name == u"copies")
            continue;
        lines += u"beside: "_s + name + (file.isDir() ? u"/"_s : u": "_s + described(file, stores));
    }
    lines.sort();
    return lines;
}

} // namespace

const QString &deliveredFolder()
{
    return delivered;
}

void makeDelivery(const QString &folder)
{
    delivered = folder;
    QDir().mkpath(folder);
    Random random(1);
    QByteArray content(demoSize, '\0');
    std::generate(content.begin(), content.end(), [&random] { return static_cast<char>(random.below(256)); });
    putContent(folder + u"/demo.mdb"_s, content);
}

void enterFolder(const QString &folder)
{
    session::ProgramFolder = folder;
    session::DBPath = session::defaultDatabasePath();
}

void openShop()
{
    renewDE();
    // The one that a start finds in a shop that never chose another.
    session::CurrentDate = ParseDate(setting::defaultOf(setting::WorkingDate));
    DE().CN.open(session::DBPath);
    if (afterOpening)
        afterOpening();
}

void learnKey(const QString &folder)
{
    enterFolder(folder);
    openShop();
    renewDE();
}

void replaceOpening(std::function<void()> opening)
{
    afterOpening = std::move(opening);
}

QString stateOfShop()
{
    return rowsOf(DE().CN);
}

QString stateOfFolder(const std::vector<Store> &stores)
{
    const QString shop = stateOfShop();
    renewDE();
    return shop + u'\n' + (keptShops(shop) + otherFiles(stores)).join(u'\n');
}

QStringList disagreements()
{
    QStringList lines;
    Recordset damages(DE().CN);
    damages.open(u"PRAGMA integrity_check"_s);
    for (; !damages.eof(); damages.moveNext()) {
        if (damages.value(0).toText() != u"ok")
            lines += damages.value(0).toText().simplified();
    }
    return lines + fileCheck::agreement(DE().CN).differences;
}

QString difference(const QString &wanted, const QString &found)
{
    constexpr int most = 3;
    QStringList missing = wanted.split(u'\n');
    QStringList extra;
    for (const QString &line : found.split(u'\n')) {
        if (!missing.removeOne(line))
            extra += line;
    }
    QStringList told;
    for (const QString &line : missing.first(std::min<qsizetype>(most, missing.size())))
        told += u"missing: "_s + line;
    for (const QString &line : extra.first(std::min<qsizetype>(most, extra.size())))
        told += u"too many: "_s + line;
    return told.join(u"; ");
}

void copyFolder(const QString &from, const QString &to)
{
    QDir().mkpath(to);
    QDirIterator found(from, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        const QString path = found.next();
        const QString place = to + path.mid(from.size());
        found.fileInfo().isDir() ? QDir().mkpath(place) : QFile::copy(path, place);
    }
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void putContent(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written: %s", qPrintable(path), qPrintable(file.errorString()));
}

void settleConfig(const QString &folder, const QString &copiedFrom)
{
    const QString config = folder + u"/cv.ini"_s;
    if (QFileInfo::exists(config))
        putContent(config, contentOf(config).replace(QFile::encodeName(copiedFrom), QFile::encodeName(folder)));
}

} // namespace faults
