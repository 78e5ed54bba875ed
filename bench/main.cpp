#include "app/startup.h"
#include "base/RuntimeError.h"
#include "cases.h"
#include "fullShop.h"
#include "statement.h"
#include "store/DataEnvironment.h"
#include "ui/Application.h"
#include "ui/theme.h"

#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void giveUp(const RuntimeError &error)
{
    std::fprintf(stderr, "%s\n", qPrintable(error.report()));
    std::exit(EXIT_FAILURE);
}

/// Whether a line was asked for: all are, unless words of some are given.
bool isWanted(const QString &what)
{
    const QStringList words = QCoreApplication::arguments().mid(1);
    return words.isEmpty() || std::any_of(words.begin(), words.end(), [&what](const QString &word) {
        return what.contains(word, Qt::CaseInsensitive);
    });
}

bool runAll()
{
    bool good = true;
    bench::printHead();
    for (const auto &group : {bench::storeCases, bench::screenCases, bench::registerCases, bench::exportCases,
             bench::startCases, bench::bookCases, bench::pictureCases, bench::counterCases, bench::houseCases}) {
        for (const bench::Case &work : group()) {
            if (isWanted(work.what))
                good = bench::measure(work) && good;
        }
    }
    const QString page = u"slowest page of that statement"_s;
    if (isWanted(page))
        good = bench::weigh(page, statement::slowestPage(), 16, u"ms"_s) && good;
    const QString memory = u"memory at most, with main screen, full list and card open"_s;
    if (isWanted(memory))
        good = bench::weigh(memory, bench::peakMemory(u"all"_s), 150, u"MiB"_s) && good;
    const QString printing = u"memory at most, with a statement's list and preview"_s;
    if (isWanted(printing))
        good = bench::weigh(printing, bench::peakMemory(u"statement"_s), 150, u"MiB"_s) && good;
    const QString cash = u"memory at most, with the statement of cash"_s;
    if (isWanted(cash))
        good = bench::weigh(cash, bench::peakMemory(u"cash"_s), 120, u"MiB"_s) && good;
    return good;
}

} // namespace

int main(int count, char **arguments)
{
    if (bench::isChild(count, arguments))
        return bench::runAsChild(count, arguments);
    // What a user of this machine has stored is neither read nor written, by the child processes neither.
    const QTemporaryDir home;
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    Application application(count, arguments);
    application.setFailureHandler(giveUp);
    Application::setQuitOnLastWindowClosed(false);
    applyTheme(application);
    bool good = false;
    try {
        endFirstRun();
        fullShop::make(folder.path());
        good = runAll();
        renewDE();
    } catch (const RuntimeError &error) {
        giveUp(error);
    }
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}
