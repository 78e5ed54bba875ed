#include "Kind.h"
#include "cipher.h"
#include "shopFolder.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <sys/resource.h>
#include <sys/stat.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>

using namespace Qt::StringLiterals;
using faults::Kind;

namespace {

constexpr int courseLength = 48;

struct Wanted {
    quint64 seed = 1;
    std::chrono::milliseconds time = std::chrono::minutes(2);
    /// Of a kind, or of a try of it; empty for all.
    QString kind;
    std::optional<int> number;
};

[[noreturn]] void giveUp(const QString &text)
{
    std::fprintf(stderr, "%s\n", qPrintable(text));
    std::exit(EXIT_FAILURE);
}

Wanted readWishes()
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Does to shops what machines, disks and people do to them, and looks what is left."_s);
    parser.addHelpOption();
    const QCommandLineOption seed(
        u"seed"_s, u"Chooses the tries; the same number chooses the same ones."_s, u"N"_s, u"1"_s);
    const QCommandLineOption minutes(u"minutes"_s, u"How long it takes, about."_s, u"M"_s, u"2"_s);
    const QCommandLineOption only(u"only"_s, u"One kind of fault, or one try of it: kills:17."_s, u"kind[:try]"_s);
    parser.addOptions({seed, minutes, only});
    parser.process(*QCoreApplication::instance());
    Wanted wanted;
    bool isSeed = false;
    bool isTime = false;
    wanted.seed = parser.value(seed).toULongLong(&isSeed);
    const double time = parser.value(minutes).toDouble(&isTime);
    if (!isSeed)
        giveUp(u"The seed must be a whole number: "_s + parser.value(seed));
    if (!isTime || time <= 0 || time > 24 * 60)
        giveUp(u"The minutes must be a number above 0, a day at most: "_s + parser.value(minutes));
    wanted.time = std::chrono::milliseconds(static_cast<qint64>(time * 60'000));
    wanted.kind = parser.value(only).section(u':', 0, 0);
    if (const QString number = parser.value(only).section(u':', 1); !number.isEmpty()) {
        bool isNumber = false;
        wanted.number = number.toInt(&isNumber);
        if (!isNumber || *wanted.number < 0)
            giveUp(u"The number of a try must be a whole number: "_s + parser.value(only));
    }
    return wanted;
}

void printLine(
    const QString &what, const QString &tries, const QString &lost, const QString &half, const QString &cannotOpen)
{
    std::printf("%s\n",
        qPrintable(what.leftJustified(10) + tries.rightJustified(16) + lost.rightJustified(8) + half.rightJustified(8)
            + cannotOpen.rightJustified(19)));
    std::fflush(stdout);
}

void printTally(const Kind &kind, const faults::Tally &tally)
{
    const QString tries =
        kind.size() > 0 ? u"%1 of %2"_s.arg(tally.tries).arg(kind.size()) : QString::number(tally.tries);
    printLine(kind.name(), tries, QString::number(tally.lost), QString::number(tally.half),
        QString::number(tally.cannotOpen));
}

QString wordFor(const faults::Verdict &verdict)
{
    switch (verdict.what) {
    case faults::Verdict::Sound: return u"sound"_s;
    case faults::Verdict::Lost: return u"lost"_s;
    case faults::Verdict::Half: return u"half"_s;
    case faults::Verdict::CannotOpen: return u"cannot be opened"_s;
    }
    return {};
}

void printFailures(const Kind &kind, const faults::Tally &tally, quint64 seed)
{
    for (const auto &[number, verdict] : tally.failures)
        std::printf("--seed %llu --only %s:%d  %s: %s\n", static_cast<unsigned long long>(seed),
            qPrintable(kind.name()), number, qPrintable(wordFor(verdict)), qPrintable(verdict.told));
}

std::vector<std::unique_ptr<Kind>> makeKinds(const faults::Course &course, quint64 seed, const QString &area)
{
    // Those with an end first: what they leave of their time goes to the others.
    std::vector<std::unique_ptr<Kind>> kinds;
    kinds.push_back(faults::failingCalls(course, seed));
    kinds.push_back(faults::kills(course, seed));
    kinds.push_back(faults::powerCuts(course, seed, area));
    kinds.push_back(faults::strangeFiles(course, seed));
    kinds.push_back(faults::twoPrograms(course, seed));
    return kinds;
}

int tryOne(const Kind &kind, const Wanted &wanted, const QString &area)
{
    if (kind.size() > 0 && *wanted.number >= kind.size())
        giveUp(u"There are only %1 tries of that kind."_s.arg(kind.size()));
    const faults::Verdict verdict = faults::runTry(kind, *wanted.number, area);
    std::printf("%s: %s\n", qPrintable(wordFor(verdict)), qPrintable(verdict.told));
    return verdict.what == faults::Verdict::Sound ? EXIT_SUCCESS : EXIT_FAILURE;
}

int tryAll(const std::vector<std::unique_ptr<Kind>> &kinds, const Wanted &wanted, const QString &area)
{
    const auto end = std::chrono::steady_clock::now() + wanted.time;
    int passed = 0;
    int failed = 0;
    std::vector<faults::Tally> tallies;
    printLine(u"fault"_s, u"tries"_s, u"lost"_s, u"half"_s, u"cannot be opened"_s);
    for (size_t i = 0; i < kinds.size(); ++i) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        tallies.push_back(faults::runTries(*kinds[i], area, wanted.seed, left / static_cast<int>(kinds.size() - i)));
        printTally(*kinds[i], tallies.back());
        const bool isGood = tallies.back().isGood() && tallies.back().tries > 0;
        ++(isGood ? passed : failed);
    }
    for (size_t i = 0; i < kinds.size(); ++i)
        printFailures(*kinds[i], tallies[i], wanted.seed);
    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int count, char **arguments)
{
    const QCoreApplication application(count, arguments);
    const Wanted wanted = readWishes();
    constexpr rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::umask(S_IRWXG | S_IRWXO);
    const QTemporaryDir home;
    const QString area = QDir(home.path()).canonicalPath();
    faults::seedCipher(wanted.seed);
    faults::makeDelivery(area + u"/delivered"_s);
    const faults::Course course(faults::allStores(), courseLength, wanted.seed, area);
    if (!course.failure().isEmpty())
        giveUp(u"Without any fault, the course fails: "_s + course.failure());
    std::vector<std::unique_ptr<Kind>> kinds = makeKinds(course, wanted.seed, area);
    if (!wanted.kind.isEmpty()) {
        std::erase_if(kinds, [&wanted](const auto &kind) { return kind->name() != wanted.kind; });
        if (kinds.empty())
            giveUp(u"There is no such kind of fault: "_s + wanted.kind);
    }
    return wanted.number ? tryOne(*kinds.front(), wanted, area) : tryAll(kinds, wanted, area);
}
