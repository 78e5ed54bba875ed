#include "Judge.h"
#include "Shop.h"
#include "base/RuntimeError.h"
#include "jobcards/JobCardStore.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"

#include <QDate>
#include <QElapsedTimer>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 30;
constexpr int workMilliseconds = 1200;

double number(const QString &statement)
{
    Recordset rows(DE().CN);
    rows.open(statement);
    const Value found = rows.eof() ? Value() : rows.value(0);
    return found.isNull() ? 0.0 : found.toDouble();
}

QString text(const QString &statement)
{
    Recordset rows(DE().CN);
    rows.open(statement);
    return rows.eof() || rows.value(0).isNull() ? QString() : rows.value(0).toText();
}

/// What the program remembers, against the file. Within a group, so that the other one cannot write in between.
QByteArray staleAnswer(std::mt19937 &random)
{
    const QDate day(2012, 1, 1);
    QByteArray stale;
    WriteGroup::run(DE().CN, [&] {
        const int account = 1 + pick(random, 7);
        const QString id = QString::number(account);
        if (GetAccountBalance(account, day)
            != number(u"Select sum(Amount) from Postings where status=0 and AccID="_s + id))
            stale = "balance of " + id.toUtf8();
        if (GetAccountTitle(account) != text(u"Select Title from Accounts where ID="_s + id))
            stale = "title of " + id.toUtf8();
        const int item = 1 + pick(random, 3);
        if (GetItemFees(item) != number(u"Select FEES from Items where ID="_s + QString::number(item)))
            stale = "fee of an item";
        const auto highest = static_cast<qint32>(number(u"Select max(Id) from JOBS"_s));
        if (highest > 0 && JobCardStore::GetNewNum() != highest + 1)
            stale = "number of the next card";
    });
    return stale;
}

/// Changes what lookups answer, as the editors do.
void changeMasters(std::mt19937 &random)
{
    const QString mark = QString::number(random());
    const int id = 5 + pick(random, 3);
    const bool account = pick(random, 2) == 0;
    Recordset row(DE().CN);
    row.open(account ? u"Select * from Accounts where id="_s + QString::number(id)
                     : u"Select * from Items where id="_s + QString::number(1 + pick(random, 3)));
    if (account)
        row.set(u"Title", u"Client %1 %2"_s.arg(id).arg(mark));
    else
        row.set(u"FEES", pick(random, 900));
    row.update();
}

/// Books, changes and deletes until the time is over. Says by how many cards there are more.
void work(const Place &place, quint32 seed, const Child::Say &say)
{
    shop::open(place.folder);
    std::mt19937 random(seed);
    const std::vector<Operation> operations = cardOperations();
    QElapsedTimer clock;
    clock.start();
    int cards = 0;
    while (clock.elapsed() < workMilliseconds) {
        const Operation &operation = operations[static_cast<size_t>(pick(random, static_cast<int>(operations.size())))];
        try {
            const Command command = operation.prepare(random);
            // In one group with the counts: the other one may be at the same card.
            int more = 0;
            WriteGroup::run(DE().CN, [&] {
                const double before = number(u"Select count(*) from JOBS"_s);
                command();
                more = static_cast<int>(number(u"Select count(*) from JOBS"_s) - before);
            });
            cards += more;
            changeMasters(random);
        } catch (const RuntimeError &error) {
            // The other one was faster; nothing was written and the user is told.
            const bool refused = error.written() == Written::Nothing
                && (error.fault() == Fault::NumberTaken || error.fault() == Fault::RowNotFound
                    || error.fault() == Fault::NoCurrentRecord);
            if (!refused)
                throw;
        }
        DE().CN.noticeOtherWriters();
        if (const QByteArray stale = staleAnswer(random); !stale.isEmpty())
            say("stale " + stale);
    }
    shop::close();
    say(QByteArray::number(cards));
}

Finding workTogether(int index, const Place &place)
{
    layOut(place);
    const quint32 seed = place.seed * 49'979'687 + static_cast<quint32>(index) * 2;
    Child first([&](const Child::Say &say) { work(place, seed, say); });
    Child second([&](const Child::Say &say) { work(place, seed + 1, say); });
    int cards = 0;
    for (Child *child : {&first, &second}) {
        if (!child->finish(patience))
            return {Finding::CannotOpen, QString::fromUtf8(child->lines().value(child->lines().size() - 1))};
        for (const QByteArray &line : child->lines()) {
            if (line.startsWith("stale"))
                return {Finding::Half, QString::fromUtf8(line)};
        }
        cards += child->lines().constLast().toInt();
    }
    Child look([&](const Child::Say &say) {
        shop::open(place.folder);
        say(QByteArray::number(number(u"Select count(*) from JOBS"_s)));
        shop::close();
        say("lack " + shop::lackOfAgreement(place.folder).toUtf8());
    });
    if (!look.finish(patience))
        return {Finding::CannotOpen, u"afterwards"_s};
    constexpr int cardsBefore = 6;
    if (look.lines().constFirst().toInt() != cards + cardsBefore)
        return {Finding::Lost,
            u"%1 cards were booked, %2 are there"_s.arg(cards + cardsBefore)
                .arg(QString::fromUtf8(look.lines().constFirst()))};
    if (look.lines().constLast() != "lack ")
        return {Finding::Half, QString::fromUtf8(look.lines().constLast())};
    return {};
}

} // namespace

std::vector<FaultKind> twoProgramKinds()
{
    return {{u"two programs on one file"_s, 3, 0, workTogether}};
}
