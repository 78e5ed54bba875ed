#include "support/languageFile.h"

#include <QDir>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

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
