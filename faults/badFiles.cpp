#include "Judge.h"
#include "Shop.h"
#include "base/RuntimeError.h"
#include "store/DataEnvironment.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 30;
constexpr qsizetype page = 4096;

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written", qPrintable(path));
}

std::mt19937 randomOf(int index, const Place &place)
{
    return std::mt19937(place.seed * 32'452'843 + static_cast<quint32>(index));
}

QByteArray noise(std::mt19937 &random, int size)
{
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

QByteArray spoilt(QByteArray file, std::mt19937 &random)
{
    const int pages = static_cast<int>(file.size() / page);
    const auto pageAt = [&] { return page * pick(random, pages); };
    switch (pick(random, 8)) {
    case 0: return file.first(pick(random, static_cast<int>(file.size())));
    case 1: return file.replace(pageAt(), page, QByteArray(page, '\0'));
    case 2: {
        const QByteArray other = file.sliced(pageAt(), page);
        return file.replace(pageAt(), page, other);
    }
    case 3: return file + noise(random, pick(random, 3 * page));
    case 4: return noise(random, pick(random, 10 * page));
    case 5: return {};
    // The salt of the key: as good as another password.
    case 6: return file.replace(0, 16, noise(random, 16));
    default:
        for (int count = 1 + pick(random, 8); count > 0; --count)
            file[pick(random, static_cast<int>(file.size()))] = static_cast<char>(random());
        return file;
    }
}

/// A file that can't be right is told and unchanged, or it holds what it always held, or the check finds what is wrong:
/// a page that is a page passes for one, whatever is on it.
Finding openSpoilt(int index, const Place &place)
{
    std::mt19937 random = randomOf(index, place);
    const QByteArray sound = contentOf(shop::fileIn(place.base));
    const QByteArray bytes = spoilt(sound, random);
    write(shop::fileIn(place.folder), bytes);
    Child child([&](const Child::Say &say) {
        shop::open(place.base);
        say(shop::content());
        shop::close();
        try {
            shop::open(place.folder);
            say("opened");
            const QByteArray content = shop::content();
            shop::close();
            say(shop::lackOfAgreement(place.folder).isEmpty() ? content : QByteArray("told"));
        } catch (const RuntimeError &error) {
            say(error.canGoOn() ? "wrong fault: " + error.report().toUtf8().replace('\n', ' ') : QByteArray("told"));
        }
        shop::close();
    });
    if (!child.finish(patience))
        return {Finding::CannotOpen, u"the program ended"_s};
    const QByteArrayList &said = child.lines();
    if (said.constLast().startsWith("wrong fault") && !said.constLast().contains("cannot be opened"))
        return {Finding::CannotOpen, QString::fromUtf8(said.constLast())};
    const bool opened = said.contains("opened");
    if (!opened && contentOf(shop::fileIn(place.folder)) != bytes)
        return {Finding::Half, u"a file that was not opened was changed"_s};
    if (opened && said.constLast() != "told" && said.constLast() != said.constFirst())
        return {Finding::Half, u"another content was read, and nothing told"_s};
    return {};
}

/// A shop that has gone on from the one that all begin with, and journals that are not its own.
struct ForeignJournals {
    QString folder;
    QByteArrayList journals;
};

void leaveJournal(const Place &place, const QString &shopFolder, const QString &name)
{
    Child child([&](const Child::Say &) {
        shop::open(shopFolder);
        DE().CN.define(u"PRAGMA cache_size = 1"_s);
        DE().CN.define(u"begin immediate"_s);
        DE().CN.define(u"Update JOBS_DETAIL set Remarks='%1'"_s.arg(QString(3000, u'j')));
        write(place.base + u'/' + name, contentOf(shop::fileIn(shopFolder) + u"-journal"_s));
        DE().CN.define(u"rollback"_s);
        shop::close();
    });
    if (!child.finish(patience))
        qFatal("no journal can be made");
}

ForeignJournals makeJournals(const Place &place)
{
    const QString stranger = place.base + u"/stranger"_s;
    const QString older = place.base + u"/older"_s;
    const QString newer = place.base + u"/newer"_s;
    for (const QString &folder : {stranger, older, newer})
        QDir().mkpath(folder);
    Child child([&](const Child::Say &) { shop::make(stranger); });
    child.finish(patience);
    leaveJournal(place, stranger, u"stranger.journal"_s);
    for (const QString &folder : {older, newer})
        QFile::copy(shop::fileIn(place.base), shop::fileIn(folder));
    leaveJournal(place, older, u"older.journal"_s);
    Child work([&](const Child::Say &) {
        shop::open(newer);
        shop::Day day(place.seed, cardOperations());
        for (int i = 0; i < 3; ++i)
            day.prepareNext()();
        shop::close();
    });
    if (!work.finish(patience))
        qFatal("the shop's file cannot be worked in");
    return {newer, {contentOf(place.base + u"/stranger.journal"_s), contentOf(place.base + u"/older.journal"_s)}};
}

Finding openBesideForeignJournal(int index, const Place &place, const ForeignJournals &foreign)
{
    std::mt19937 random = randomOf(index, place);
    const QByteArray whole = contentOf(shop::fileIn(foreign.folder));
    write(shop::fileIn(place.folder), whole);
    QByteArray journal = foreign.journals.at(pick(random, static_cast<int>(foreign.journals.size())));
    const bool cut = pick(random, 3) == 0;
    if (cut)
        journal.truncate(1 + pick(random, static_cast<int>(journal.size()) - 1));
    if (pick(random, 6) == 0)
        journal = '\x01' + noise(random, pick(random, 20000));
    const QString companion = shop::fileIn(place.folder) + (pick(random, 5) == 0 ? u"-wal"_s : u"-journal"_s);
    write(companion, journal);
    Child child([&](const Child::Say &say) {
        shop::open(foreign.folder);
        say(shop::content());
        shop::close();
        try {
            shop::open(place.folder);
        } catch (const RuntimeError &) {
            // Told; what counts is the copy.
            say("told");
        }
        const QString kept = DE().CN.keptAside();
        shop::close();
        say(contentOf(shop::fileIn(kept)) == whole ? "whole" : "not whole");
        for (const QString &suffix : {u"-journal"_s, u"-wal"_s})
            QFile::remove(shop::fileIn(kept) + suffix);
        shop::open(kept);
        say(shop::content());
        shop::close();
    });
    if (!child.finish(patience))
        return {Finding::CannotOpen, u"the program ended, or the copy cannot be opened"_s};
    if (!child.lines().contains("whole") || child.lines().constFirst() != child.lines().constLast())
        return {Finding::Lost, u"the file is not kept as it was found"_s};
    return {};
}

/// Another program keeps the file: at the opening, or at a command.
Finding meetLock(int index, const Place &place)
{
    std::mt19937 random = randomOf(index, place);
    const std::vector<Operation> operations = allOperations();
    const Operation &operation = operations[static_cast<size_t>(pick(random, static_cast<int>(operations.size())))];
    const Course course = courseOf(place, place.seed, 1, {operation});
    layOut(place);
    const bool atOpening = index % 2 == 0;
    Child other([&](const Child::Say &say) {
        shop::open(place.folder);
        if (!atOpening)
            pause();
        DE().CN.define(u"begin exclusive"_s);
        say("locked");
        pause();
    });
    if (atOpening)
        other.waitFor("locked", patience);
    Child child([&](const Child::Say &say) {
        try {
            shop::open(place.folder);
            shop::Day day(place.seed, {operation});
            const Command command = day.prepareNext();
            {
                Connection writer;
                writer.open(shop::fileIn(place.folder));
                writer.define(u"begin immediate"_s);
                command();
                say("written under a lock");
            }
        } catch (const RuntimeError &error) {
            const bool right = error.fault() == Fault::Locked && (atOpening || error.written() == Written::Nothing);
            say(right ? QByteArray("told") : "wrong: " + error.report().toUtf8().replace('\n', ' '));
        }
        shop::close();
    });
    if (!child.finish(patience) || child.lines().isEmpty())
        return {Finding::CannotOpen, u"the program ended or hung"_s};
    if (child.lines().constLast() != "told")
        return {Finding::Half, QString::fromUtf8(child.lines().constLast())};
    other.kill();
    return judge(place, {{course.contents.constFirst()}, 0}, 0);
}

} // namespace

std::vector<FaultKind> badFileKinds(const Place &place)
{
    return {{u"foreign journal beside the file"_s, 2, 0,
                [journals = makeJournals(place)](
                    int index, const Place &at) { return openBesideForeignJournal(index, at, journals); }},
        {u"damaged, cut or foreign file"_s, 2, 0, openSpoilt}, {u"file that another program keeps"_s, 2, 0, meetLock}};
}
