#include "support/fileContent.h"

#include <QDir>
#include <QFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing");
}

void writeContent(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written", qPrintable(path));
}

void writeLanguageFile(const QString &folder, const std::vector<std::pair<QString, QString>> &messages)
{
    QString content = u"create table messages (EngMessage, HindiMessage);"_s;
    for (auto [english, hindi] : messages) {
        content += u"insert into messages values ('%1', '%2');"_s.arg(
            english.replace(u'\'', u"''"_s), hindi.replace(u'\'', u"''"_s));
    }
    sqlite3 *file = nullptr;
    if (sqlite3_open(qPrintable(QDir(folder).filePath(u"Lang.mdb"_s)), &file) != SQLITE_OK
        || sqlite3_exec(file, qPrintable(content), nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("no language file");
    sqlite3_close(file);
}
