#include "DemoShop.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/schema.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Makes the shop in a folder of its own and moves the finished file to `target`: a build that is stopped leaves no
/// half file.
void makeDemo(const QString &target)
{
    const QTemporaryDir folder;
    session::ProgramFolder = folder.path();
    session::DBPath = session::defaultDatabasePath();
    CreateDatabase([] {
        renewDE();
        DE().CN.open(session::DBPath);
    });
    DemoShop().fill();
    renewDE();
    QFile::remove(target);
    if (!QFile::copy(session::DBPath, target))
        throw RuntimeError(Fault::FileFault, target);
}

} // namespace

int main(int count, char **values)
{
    if (count != 2) {
        std::fputs("Usage: corvane-demo FILE\nMakes the demo shop's database.\n", stderr);
        return 2;
    }
    try {
        makeDemo(QFile::decodeName(values[1]));
    } catch (const RuntimeError &error) {
        std::fprintf(stderr, "%s\n", qPrintable(error.report()));
        return 1;
    }
    return 0;
}
