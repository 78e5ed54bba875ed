#include "Shop.h"

#include "app/programFolder.h"
#include "app/startup.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/fileCheck.h"
#include "store/schema.h"
#include "store/settings.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 shopSeed = 1;
constexpr int cardsOfShop = 6;
const auto delivered = QByteArray(20000, 'd');

void openNow()
{
    renewDE();
    DE().CN.open(session::DBPath);
}

void addRow(const QString &table, const QList<std::pair<QString, Value>> &columns)
{
    Recordset rows(DE().CN);
    rows.open(u"Select * from "_s + table);
    rows.addNew();
    for (const auto &[name, value] : columns)
        rows.set(name, value);
    rows.update();
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

QString shop::fileIn(const QString &folder)
{
    return folder + u"/data15.mdb"_s;
}

void shop::make(const QString &folder)
{
    session::ProgramFolder = folder;
    session::DBPath = session::defaultDatabasePath();
    CreateDatabase(openNow);
    for (const QString &client : {u"Asha Rao"_s, u"Babu Lal"_s, u"Chitra"_s})
        addRow(u"Accounts"_s, {{u"Title"_s, client}, {u"Type"_s, 0}});
    for (int i = 1; i <= 3; ++i)
        addRow(u"Items"_s,
            {{u"NAME"_s, u"Item %1"_s.arg(i)}, {u"ItemDetails"_s, u"Chest"_s}, {u"FEES"_s, 110.5 * i},
                {u"WorkerFees"_s, 40.25 * i}});
    std::mt19937 random(shopSeed);
    for (int i = 0; i < cardsOfShop; ++i)
        cardOperations().front().prepare(random)();
    renewDE();
}

void shop::open(const QString &folder)
{
    session::ProgramFolder = folder;
    session::DBPath = fileIn(folder);
    session::CurrentDate = QDate(2011, 4, 10);
    openNow();
}

void shop::close()
{
    renewDE();
}

QByteArray shop::content()
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    const auto add = [&hash](const QString &table) {
        Recordset rows(DE().CN);
        rows.open(u"Select * from ["_s + table + u"]"_s);
        hash.addData(table.toUtf8());
        for (; !rows.eof(); rows.moveNext()) {
            for (int column = 0; column < rows.columnCount(); ++column) {
                const Value value = rows.value(column);
                hash.addData(value.isNull() ? QByteArray("-") : '=' + value.toText().toUtf8() + '|');
            }
        }
    };
    for (const schema::Table &table : schema::tables())
        add(table.name);
    add(u"sqlite_sequence"_s);
    return hash.result().toHex();
}

void shop::start(const QString &folder)
{
    const QString own = folder + u"-delivered"_s;
    QDir().mkpath(own);
    QFile demo(own + u"/demo.mdb"_s);
    if (!demo.exists() && demo.open(QIODevice::WriteOnly))
        demo.write(delivered);
    demo.close();
    session::ProgramFolder = folder;
    prepareProgramFolder(folder, own);
    if (!QFile::exists(session::programPath(u"cv.ini")))
        WriteDefaultConfig();
    ReadConfig();
    std::optional<RuntimeError> notMade;
    if (!QFile::exists(session::DBPath))
        notMade = CreateDatabase(openNow);
    openNow();
    MakeImagesFolder();
    std::ignore = GetSetting(setting::DatabaseVersion);
}

QString shop::lackOfNew(const QString &folder)
{
    Recordset rows(DE().CN);
    QStringList lacks;
    rows.open(u"Select * from Settings"_s);
    if (rows.recordCount() != 1 || GetSetting(setting::DatabaseVersion) != u"15"_s)
        lacks += u"its version"_s;
    rows.reopen(u"Select * from Accounts order by id"_s);
    if (rows.recordCount() != 4 || rows.text(u"Title") != u"Wages"_s)
        lacks += u"its four accounts"_s;
    if (contentOf(folder + u"/demo.mdb"_s) != delivered)
        lacks += u"its demo"_s;
    const QStringList names = QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    if (names != QStringList{u"cv.ini"_s, u"data15.mdb"_s, u"demo.mdb"_s, u"images"_s})
        lacks += u"a tidy folder ("_s + names.join(u", "_s) + u')';
    return lacks.join(u", "_s);
}

QString shop::lackOfAgreement(const QString &folder)
{
    const fileCheck::Report report = fileCheck::check(fileIn(folder));
    return (QStringList{report.failure} + report.damages + report.differences).join(u' ').trimmed();
}

shop::Day::Day(quint32 seed, std::vector<Operation> operations)
    : m_random(seed), m_operations(std::move(operations)) { }

Command shop::Day::prepareNext()
{
    // Cards most of the time: what a day is made of.
    const int choice = pick(m_random, static_cast<int>(m_operations.size()));
    return m_operations[static_cast<size_t>(choice)].prepare(m_random);
}
