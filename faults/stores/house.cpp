#include "Store.h"

#include "app/backup.h"
#include "app/safetyCopy.h"
#include "app/shopSettings.h"
#include "base/RuntimeError.h"
#include "base/safeFile.h"
#include "base/session.h"
#include "shopFolder.h"
#include "store/DataEnvironment.h"
#include "store/schema.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

const auto packedName = u"CVbackup.gz"_s;

bool goesOn(qint64, qint64)
{
    return true;
}

/// The settings screen is saved: some texts at once.
class SavedScreen : public Task {
public:
    explicit SavedScreen(Random random) : m_random(random) { }
    void prepare() override
    {
        for (const setting::Key key : {setting::ModemPort, setting::LogoFile, setting::SmsTitle, setting::BookedSms})
            m_changes.push_back({key, QString(m_random.below(6000), u's')});
    }
    void run() override { shopSettings::save(m_changes); }

private:
    Random m_random;
    std::vector<shopSettings::Change> m_changes;
};

class SavedShop : public Task {
public:
    explicit SavedShop(Random random)
    {
        m_shop.name = u"Shop %1"_s.arg(random.below(1000));
        m_shop.address1 = QString(random.below(3000), u'a');
        if (random.chance(50))
            m_shop.login = shopSettings::Login{u"asha"_s, QString::number(random.below(1000))};
    }
    void run() override { shopSettings::saveShop(m_shop); }

private:
    shopSettings::Shop m_shop;
};

/// The folder of the backup is the shop's own, so that all that happens in it is seen.
class MadeBackup : public Task {
public:
    void run() override { static_cast<void>(backup::make(DE().CN.content(), session::ProgramFolder, goesOn)); }
};

/// The shop is put back to what it was when it was backed up.
class RestoredShop : public Task {
public:
    void run() override
    {
        try {
            static_cast<void>(backup::restore(session::programPath(packedName), goesOn));
        } catch (const RuntimeError &) {
            openAgain();
            throw;
        }
        openAgain();
    }

private:
    /// What the program does afterwards, and until it succeeds.
    static void openAgain()
    {
        try {
            if (!DE().CN.isOpen())
                openShop();
        } catch (const RuntimeError &) {
            renewDE();
        }
    }
};

class CopyOfTheDay : public Task {
public:
    /// Fewer days than are kept.
    explicit CopyOfTheDay(Random random) : m_day(QDate(2011, 4, 1).addDays(random.below(6))) { }
    void run() override { safetyCopy::make(DE().CN.content(), session::defaultDatabasePath(), m_day, false); }

private:
    QDate m_day;
};

/// What a shop's file says that lies beside the shop: the rows of each table, and the texts of its settings.
QString told(const UnfinishedFile &file)
{
    Connection connection;
    connection.openReadOnly(file);
    QStringList lines;
    for (const schema::Table &table : schema::tables()) {
        Recordset rows(connection);
        rows.open(u"Select * from "_s + table.name);
        lines += table.name + u' ' + QString::number(rows.recordCount());
    }
    Recordset settings(connection);
    settings.open(u"Select VALUE from Settings order by SETTING"_s);
    for (; !settings.eof(); settings.moveNext())
        lines += QString::number(qHash(settings.value(0).toText()));
    return lines.join(u' ');
}

std::optional<QString> look(const QFileInfo &file, const QByteArray &content)
{
    const QTemporaryDir folder;
    UnfinishedFile copy(folder.filePath(file.fileName()));
    copy.write(content);
    return told(copy);
}

std::optional<QString> lookIntoBackup(const QFileInfo &file)
{
    if (file.fileName() != packedName)
        return {};
    QByteArray content;
    static_cast<void>(gzip::unpack(
        file.filePath(), [&content](QByteArrayView piece) { content += piece; }, goesOn));
    return look(file, content);
}

std::optional<QString> lookIntoCopy(const QFileInfo &file)
{
    if (file.dir().dirName() != u"copies")
        return {};
    return look(file, contentOf(file.filePath()));
}

template <typename Kind>
std::unique_ptr<Task> made(const Random &random)
{
    return std::make_unique<Kind>(random);
}

template <typename Kind>
std::unique_ptr<Task> always(const Random &)
{
    return std::make_unique<Kind>();
}

} // namespace

std::vector<Store> houseStores()
{
    return {{u"shop information"_s, made<SavedShop>},
        {u"backup"_s, always<MadeBackup>, Begins::OpenShop, lookIntoBackup}, {u"settings screen"_s, made<SavedScreen>},
        {u"safety copy"_s, made<CopyOfTheDay>, Begins::OpenShop, lookIntoCopy}, {u"restore"_s, always<RestoredShop>}};
}

} // namespace faults
