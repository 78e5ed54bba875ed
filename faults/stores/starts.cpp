#include "Store.h"

#include "app/programFolder.h"
#include "app/startup.h"
#include "base/session.h"
#include "base/values.h"
#include "cipher.h"
#include "shopFolder.h"
#include "store/DataEnvironment.h"
#include "store/schema.h"
#include "store/settings.h"

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// What the program does before its main screen, without the choice of a database and the messages.
class Start : public Task {
public:
    void run() override
    {
        // A shop that is made again gets a key that is known already.
        restartCipher();
        prepareProgramFolder(session::ProgramFolder, deliveredFolder());
        if (!QFileInfo::exists(session::programPath(u"cv.ini")))
            WriteDefaultConfig();
        ReadConfig();
        if (!QFileInfo::exists(session::DBPath))
            CreateDatabase(openShop);
        openShop();
        MakeImagesFolder();
        // Start-up would say that it is another version's, and could not make a new one where this one stands.
        if (Val(GetSetting(setting::DatabaseVersion)) != session::SupportedDatabaseVersion)
            throw RuntimeError(Fault::NotADatabase, session::DBPath);
        InitCurrentDate();
    }
};

/// Another database is chosen: the configuration is written over.
class ChosenDatabase : public Task {
public:
    explicit ChosenDatabase(Random random) : m_detours(random.below(1000)) { }
    void run() override
    {
        // The same file by another way, so that the day goes on with it.
        session::DBPath = session::programPath(QString(u"./"_s).repeated(m_detours) + u"data15.mdb"_s);
        WriteConfig();
    }

private:
    int m_detours;
};

std::unique_ptr<Task> start(const Random &)
{
    return std::make_unique<Start>();
}

} // namespace

std::vector<Store> startStores()
{
    return {{u"first start"_s, start, Begins::EmptyFolder}, {u"start after a cut"_s, start, Begins::UnfinishedWrite},
        {u"chosen database"_s, [](const Random &random) { return std::make_unique<ChosenDatabase>(random); }}};
}

} // namespace faults
