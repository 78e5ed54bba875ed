#include "Child.h"
#include "Kind.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "cipher.h"
#include "shopFolder.h"
#include "store/DataEnvironment.h"

#include <QDir>
#include <QFileInfo>

#include <sqlite3.h>

#include <unistd.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int patience = 30'000;
constexpr qsizetype pageSize = 4096;

/// What lies where the shop's file should be, or beside it, is not what the program has left there. A file that opens
/// is whole or its fault is told; one that doesn't is left as it is; and what a journal has spoilt is kept aside.
class StrangeFiles : public Kind {
public:
    StrangeFiles(const Course &course, quint64 seed) : Kind(u"files"_s, course, seed) { }

    Verdict attempt(int number, const QString &folder) const override
    {
        constexpr std::array ways{&StrangeFiles::randomBytes, &StrangeFiles::cutLength, &StrangeFiles::foreignFile,
            &StrangeFiles::otherPassword, &StrangeFiles::olderJournal, &StrangeFiles::strangersJournal,
            &StrangeFiles::noJournal};
        Random random = this->random(number);
        // A try with a lock waits for seconds.
        if (number % 50 == 49)
            return locked(random, folder);
        const int step = m_course.writingStep(1 + random.below(m_course.length() - 1));
        m_course.lay(step, folder);
        // Nor may it refuse what is sound.
        if (number % 20 == 19)
            return m_course.judge(folder, step - 1, step - 1);
        const QString what = (this->*ways[static_cast<size_t>(random.below(ways.size()))])(random, step, folder);
        Verdict verdict = judge(folder, step);
        verdict.told = what + u": "_s + verdict.told;
        return verdict;
    }

private:
    static QString shopIn(const QString &folder) { return folder + u"/data15.mdb"_s; }
    static QString journalIn(const QString &folder) { return shopIn(folder) + u"-journal"_s; }

    // Each makes the folder strange and says how. The folder is that before `step`.

    QString randomBytes(Random &random, int, const QString &folder) const
    {
        QByteArray content = contentOf(shopIn(folder));
        const int count = random.chance(50) ? 1 : 1 + random.below(200);
        for (int i = 0; i < count; ++i) {
            const qsizetype place = random.chance(20) ? random.below(pageSize) : random.below(content.size());
            content[place] = static_cast<char>(content[place] ^ (1 + random.below(255)));
        }
        putContent(shopIn(folder), content);
        return u"%1 bytes at random"_s.arg(count);
    }

    QString cutLength(Random &random, int, const QString &folder) const
    {
        QByteArray content = contentOf(shopIn(folder));
        const bool atPage = random.chance(50);
        const qsizetype size =
            atPage ? pageSize * random.below(content.size() / pageSize) : random.below(content.size());
        putContent(shopIn(folder), content.first(size));
        return u"cut to %1 bytes"_s.arg(size);
    }

    QString foreignFile(Random &random, int, const QString &folder) const
    {
        static const QList<QByteArray> beginnings{"", "SQLite format 3", QByteArray("\0\1\0\0Standard Jet DB", 19),
            "'Corvane Configuration file\r\n", "\x89PNG\r\n\x1a\n", "PK\3\4"};
        const QByteArray &beginning = beginnings.at(random.below(beginnings.size()));
        putContent(shopIn(folder), beginning + QByteArray(random.below(20'000), static_cast<char>(random.below(256))));
        return u"a foreign file"_s;
    }

    QString otherPassword(Random &random, int, const QString &folder) const
    {
        // An engine of its own, in its own process: none may be open here.
        const QByteArray path = QFile::encodeName(shopIn(folder));
        QFile::remove(shopIn(folder));
        const bool plain = random.chance(30);
        const Child::Ending ending = Child([&] {
            sqlite3 *database = nullptr;
            sqlite3_open(path.constData(), &database);
            if (!plain)
                sqlite3_key(database, "redpaperwindow", 14);
            sqlite3_exec(database, "create table Settings (SETTING, VALUE)", nullptr, nullptr, nullptr);
            sqlite3_close(database);
        }).wait(patience);
        return u"%1 password, %2"_s.arg(plain ? u"no"_s : u"another"_s, QString::fromUtf8(ending.text()));
    }

    QString olderJournal(Random &random, int step, const QString &folder) const
    {
        const int older = 1 + random.below(step);
        takeJournal(m_course, older, folder);
        return u"its own journal of step %1"_s.arg(older);
    }

    QString strangersJournal(Random &random, int, const QString &folder) const
    {
        const QString area = folder + u".stranger"_s;
        QDir().mkpath(area);
        const quint64 seed = random.seed();
        seedCipher(seed);
        const Course stranger(m_course.stores(), 4, seed, area);
        takeJournal(stranger, 2 + random.below(2), folder);
        QDir(area).removeRecursively();
        return u"the journal of another shop"_s;
    }

    /// The journal of a cut write was lost, or only its beginning is there.
    QString noJournal(Random &random, int step, const QString &folder) const
    {
        QDir(folder).removeRecursively();
        m_course.layUnfinished(step, folder);
        const QByteArray journal = contentOf(journalIn(folder));
        const qsizetype kept = random.chance(50) ? 0 : random.below(journal.size());
        putContent(journalIn(folder), journal.first(kept));
        return u"half a write with %1 of %2 bytes of its journal"_s.arg(kept).arg(journal.size());
    }

    static void takeJournal(const Course &course, int step, const QString &folder)
    {
        const QString other = folder + u".other"_s;
        course.layUnfinished(course.writingStep(step), other);
        QFile::rename(journalIn(other), journalIn(folder));
        QDir(other).removeRecursively();
    }

    Verdict locked(Random &random, const QString &folder) const
    {
        const int step = 1 + random.below(m_course.length() - 1);
        m_course.lay(step, folder);
        const QByteArray before = contentOf(shopIn(folder));
        Child holder([&] {
            enterFolder(folder);
            openShop();
            DE().CN.define(u"begin exclusive"_s);
            Child::tell("locked");
            // Until the parent ends it.
            for (;;)
                ::sleep(1);
        });
        if (!holder.read())
            return {Verdict::CannotOpen, u"the lock was not got"_s};
        const QByteArray said = opened(folder).value(0);
        if (!said.startsWith(QByteArray::number(static_cast<int>(Fault::Locked))))
            return {Verdict::Half, u"a locked file was not told as one: "_s + QString::fromUtf8(said)};
        if (contentOf(shopIn(folder)) != before)
            return {Verdict::Half, u"a locked file was changed"_s};
        const Child::Ending ending = holder.end(true);
        return m_course.judge(folder, step - 1, step - 1);
    }

    /// Opens the shop in a child and reads it whole. The lines: what failed, by its number, or "opened"; then "whole"
    /// or what is wrong; the folder where a copy was kept; the state.
    static QList<QByteArray> opened(const QString &folder)
    {
        const Child::Ending ending = Child([&] {
            enterFolder(folder);
            bool isOpen = false;
            try {
                openShop();
                isOpen = true;
                Child::tell("opened");
                const QStringList wrong = disagreements();
                const QString state = stateOfShop();
                Child::tell(wrong.isEmpty() ? "whole" : wrong.first().simplified().toUtf8());
                Child::tell(QFile::encodeName(DE().CN.keptAside()));
                Child::tell(QByteArray::number(qHash(state)));
            } catch (const RuntimeError &error) {
                Child::tell(QByteArray::number(error.number()) + ' ' + error.report().simplified().toUtf8());
                if (!isOpen)
                    Child::tell({});
                Child::tell(QFile::encodeName(DE().CN.keptAside()));
            }
            renewDE();
        }).wait(patience);
        return ending.isGood() ? ending.lines : QList<QByteArray>{"crash: " + ending.text()};
    }

    Verdict judge(const QString &folder, int step) const
    {
        const QByteArray shop = contentOf(shopIn(folder));
        const bool hasJournal = QFileInfo(journalIn(folder)).size() > 0;
        const QByteArray journal = contentOf(journalIn(folder));
        const QList<QByteArray> said = opened(folder);
        if (said.value(0).startsWith("crash"))
            return {Verdict::CannotOpen, QString::fromUtf8(said.first())};
        const bool isOpen = said.value(0) == "opened";
        const QString keptAside = QFile::decodeName(said.value(2));
        const bool isKept =
            !keptAside.isEmpty() && contentOf(shopIn(keptAside)) == shop && contentOf(journalIn(keptAside)) == journal;
        if (hasJournal && !isKept && contentOf(shopIn(folder)) != shop)
            return {Verdict::Lost, u"a journal was rolled in, and no copy was kept"_s};
        if (!isOpen && !hasJournal && contentOf(shopIn(folder)) != shop)
            return {Verdict::Half, u"a file that could not be opened was changed"_s};
        // A journal that was rolled in is told, with the place of the copy.
        if (!isOpen || said.value(1) != "whole" || isKept)
            return {};
        // A write whose journal is gone was done, as far as anybody can tell.
        for (const QString &state : {m_course.stateBefore(step), m_course.step(step).after}) {
            if (said.value(3) == QByteArray::number(qHash(state.section(u"\nbeside: "_s, 0, 0))))
                return {};
        }
        return {Verdict::Half, u"it opens, passes for whole and holds something else"_s};
    }
};

} // namespace

std::unique_ptr<Kind> strangeFiles(const Course &course, quint64 seed)
{
    return std::make_unique<StrangeFiles>(course, seed);
}

} // namespace faults
