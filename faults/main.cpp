#include "Child.h"
#include "Fault.h"
#include "Shop.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int workers = 2;
constexpr int mostWords = 12;

struct Figures {
    int tries = 0;
    std::array<int, 4> found{};
    QStringList words;

    [[nodiscard]] int faults() const
    {
        return found[Finding::Lost] + found[Finding::Half] + found[Finding::CannotOpen];
    }
};

/// One try in an empty folder of its own.
Finding attempt(const FaultKind &kind, int index, Place place)
{
    QTemporaryDir folder(place.folder + u"/try-XXXXXX"_s);
    place.folder = folder.filePath(u"shop"_s);
    QDir().mkpath(place.folder);
    return kind.attempt(index, place);
}

/// The tries of one worker until the kind's time is over: every second one, of a list in an order of its own.
Figures runKind(const FaultKind &kind, const Place &place, int worker, qint64 milliseconds)
{
    std::vector<int> order(static_cast<size_t>(kind.tries));
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), std::mt19937(place.seed));
    Figures figures;
    QElapsedTimer clock;
    clock.start();
    for (int i = worker; clock.elapsed() < milliseconds; i += workers) {
        if (kind.tries > 0 && i >= kind.tries)
            break;
        const int index = kind.tries > 0 ? order[static_cast<size_t>(i)] : i;
        const Finding finding = attempt(kind, index, place);
        ++figures.tries;
        ++figures.found[finding.what];
        if (finding.what != Finding::Nothing)
            figures.words +=
                u"--only \"%1:%2\" --seed %3: %4"_s.arg(kind.name).arg(index).arg(place.seed).arg(finding.words);
    }
    return figures;
}

Figures runKind(const FaultKind &kind, const Place &place, qint64 milliseconds)
{
    std::vector<std::unique_ptr<Child>> running;
    for (int worker = 0; worker < workers; ++worker)
        running.push_back(std::make_unique<Child>([&, worker](const Child::Say &say) {
            const Figures figures = runKind(kind, place, worker, milliseconds);
            for (const QString &words : figures.words)
                say("! " + words.toUtf8().replace('\n', ' '));
            say(QByteArray::number(figures.tries) + ' ' + QByteArray::number(figures.found[Finding::Lost]) + ' '
                + QByteArray::number(figures.found[Finding::Half]) + ' '
                + QByteArray::number(figures.found[Finding::CannotOpen]));
        }));
    Figures all;
    for (const auto &child : running) {
        constexpr int secondsMore = 120;
        const bool ended = child->finish(static_cast<int>(milliseconds / 1000) + secondsMore);
        for (const QByteArray &line : child->lines()) {
            if (line.startsWith("! "))
                all.words += QString::fromUtf8(line.mid(2));
        }
        const QByteArrayList numbers =
            child->lines().isEmpty() ? QByteArrayList() : child->lines().constLast().split(' ');
        if (!ended || numbers.size() != 4) {
            ++all.found[Finding::CannotOpen];
            all.words += kind.name + u": the worker ended before it was done"_s;
            continue;
        }
        all.tries += numbers[0].toInt();
        for (const int what : {Finding::Lost, Finding::Half, Finding::CannotOpen})
            all.found[static_cast<size_t>(what)] += numbers[what].toInt();
    }
    return all;
}

void printRow(const QString &name, const QString &tries, const QString &lost, const QString &half, const QString &shut)
{
    std::printf("%-44s %14s %7s %7s %18s\n", qPrintable(name), qPrintable(tries), qPrintable(lost), qPrintable(half),
        qPrintable(shut));
    std::fflush(stdout);
}

std::vector<FaultKind> allKinds(const Place &place)
{
    std::vector<FaultKind> kinds;
    for (const auto &part :
        {killKinds(), failingCallKinds(place), powerCutKinds(), badFileKinds(place), twoProgramKinds()})
        kinds.insert(kinds.end(), part.begin(), part.end());
    return kinds;
}

Figures runAndPrint(const FaultKind &kind, const Place &place, qint64 milliseconds)
{
    const Figures figures = runKind(kind, place, milliseconds);
    const auto count = [&](Finding::What what) { return QString::number(figures.found[what]); };
    printRow(kind.name, QString::number(figures.tries) + (kind.tries > 0 ? u" of %1"_s.arg(kind.tries) : QString()),
        count(Finding::Lost), count(Finding::Half), count(Finding::CannotOpen));
    return figures;
}

int runAll(const Place &place, double minutes)
{
    const std::vector<FaultKind> kinds = allKinds(place);
    const int weights = std::accumulate(
        kinds.begin(), kinds.end(), 0, [](int sum, const FaultKind &kind) { return sum + kind.weight; });
    printRow(u"fault"_s, u"tries"_s, u"lost"_s, u"half"_s, u"cannot be opened"_s);
    QStringList words;
    int passed = 0;
    for (const FaultKind &kind : kinds) {
        constexpr double millisecondsOfMinute = 60'000;
        const Figures figures =
            runAndPrint(kind, place, static_cast<qint64>(minutes * millisecondsOfMinute * kind.weight / weights));
        words += figures.words.first(qMin(figures.words.size(), qsizetype(mostWords)));
        if (figures.faults() == 0 && figures.tries > 0)
            ++passed;
    }
    for (const QString &line : words)
        std::printf("%s\n", qPrintable(line));
    const int failed = static_cast<int>(kinds.size()) - passed;
    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 ? 0 : 1;
}

/// One try again, by the words that a failed run gives.
int runOne(const Place &place, const QString &name, int index)
{
    std::vector<FaultKind> kinds = allKinds(place);
    for (const FaultKind &kind : {killsOfLooseSaves(), failingCallsOfLooseSaves(place), powerCutsWithoutSync()})
        kinds.push_back(kind);
    for (const FaultKind &kind : kinds) {
        if (kind.name != name)
            continue;
        const Finding finding = attempt(kind, index, place);
        std::printf("%s\n", finding.what == Finding::Nothing ? "nothing found" : qPrintable(finding.words));
        return finding.what == Finding::Nothing ? 0 : 1;
    }
    std::fprintf(stderr, "no fault is named \"%s\"\n", qPrintable(name));
    return 2;
}

/// Whether the harness sees what it is made for: in the right stores nothing, in those with a known fault that fault.
int prove(const Place &place)
{
    constexpr qint64 milliseconds = 4000;
    printRow(u"fault"_s, u"tries"_s, u"lost"_s, u"half"_s, u"cannot be opened"_s);
    struct Proof {
        FaultKind kind;
        Finding::What expected;
    };
    const std::vector<FaultKind> right{
        killKinds().front(), failingCallKinds(place).front(), powerCutKinds().front(), twoProgramKinds().front()};
    const std::vector<Proof> wrong{{killsOfLooseSaves(), Finding::Half},
        {failingCallsOfLooseSaves(place), Finding::Half}, {powerCutsWithoutSync(), Finding::Lost}};
    bool proven = true;
    for (const FaultKind &kind : right) {
        const Figures figures = runAndPrint(kind, place, milliseconds);
        proven = proven && figures.tries > 0 && figures.faults() == 0;
        for (const QString &line : figures.words)
            std::printf("%s\n", qPrintable(line));
    }
    for (const Proof &proof : wrong) {
        const Figures figures = runAndPrint(proof.kind, place, milliseconds);
        proven = proven && figures.found[static_cast<size_t>(proof.expected)] > 0;
    }
    std::printf(proven ? "The faults that were built in were found, and no others.\n"
                       : "A fault that was built in was not found, or another was.\n");
    return proven ? 0 : 1;
}

} // namespace

std::vector<Operation> allOperations()
{
    std::vector<Operation> all;
    for (const auto &store : {cardOperations(), accountOperations(), settingOperations(), printOperations()})
        all.insert(all.end(), store.begin(), store.end());
    return all;
}

int main(int count, char **arguments)
{
    const QCoreApplication application(count, arguments);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Lets everything go wrong that can go wrong with a shop's file, and looks what became of it."_s);
    parser.addHelpOption();
    const QCommandLineOption seed(u"seed"_s, u"Chooses the tries."_s, u"number"_s, u"1"_s);
    const QCommandLineOption minutes(u"minutes"_s, u"How long to try."_s, u"number"_s, u"2"_s);
    const QCommandLineOption only(u"only"_s, u"Repeats one try, \"KIND:NUMBER\"."_s, u"try"_s);
    const QCommandLineOption proof(u"prove"_s, u"Shows that faults which are built in are found."_s);
    parser.addOptions({seed, minutes, only, proof});
    parser.process(application);

    const QTemporaryDir folder;
    const Place place{folder.filePath(u"base"_s), folder.path(), parser.value(seed).toUInt()};
    QDir().mkpath(place.base);
    constexpr int patience = 30;
    if (!Child([&](const Child::Say &) { shop::make(place.base); }).finish(patience)) {
        std::fprintf(stderr, "The shop cannot be made.\n");
        return 2;
    }
    if (parser.isSet(only)) {
        const QString which = parser.value(only);
        return runOne(place, which.section(u':', 0, -2), which.section(u':', -1).toInt());
    }
    return parser.isSet(proof) ? prove(place) : runAll(place, parser.value(minutes).toDouble());
}
