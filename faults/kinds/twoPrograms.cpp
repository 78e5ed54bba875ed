#include "Child.h"
#include "Kind.h"
#include "accounts/payrolls.h"
#include "accounts/vouchers.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "base/values.h"
#include "masters/masterRows.h"
#include "production/itemRowMarks.h"
#include "shopFolder.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/itemRows.h"
#include "store/lookups.h"
#include "store/settings.h"
#include "stores/deskWork.h"

#include <QMap>
#include <QThread>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr int patience = 60'000;
constexpr int stepsOfEach = 30;
constexpr int furnished = 2;
constexpr int changedItem = 3;
constexpr int guests = 7;
constexpr int longestPause = 30;
constexpr int mostPaidAtOnce = 4;
const QDate farAway(2030, 1, 1);

QStringList columnOf(Connection &connection, const QString &statement)
{
    QStringList texts;
    Recordset rows(connection);
    rows.open(statement);
    for (; !rows.eof(); rows.moveNext())
        texts += rows.value(0).isNull() ? QString() : rows.value(0).toText();
    return texts;
}

/// One of two programs at work on the same file. Each step of work is followed by a look at what it says of the shop.
class Worker {
public:
    Worker(quint64 seed, int number) : m_random(seed, static_cast<quint64>(number)), m_number(number) { }

    void work()
    {
        try {
            openShop();
            for (m_step = 0; m_step < stepsOfEach; ++m_step) {
                try {
                    workOnce();
                } catch (const RuntimeError &error) {
                    // The other one was faster; nothing was written, and the user is told so.
                    constexpr std::array refusals{Fault::NumberTaken, Fault::RowNotFound, Fault::NoCurrentRecord};
                    if (error.written() != Written::Nothing
                        || std::ranges::find(refusals, error.fault()) == refusals.end())
                        throw;
                }
                look();
            }
            renewDE();
            Child::tell("end");
        } catch (const RuntimeError &error) {
            Child::tell("failed " + error.report().simplified().toUtf8());
        }
    }

private:
    void workOnce()
    {
        const QList<qint32> numbers = desk::cardNumbers();
        const int dice = m_random.below(18);
        if (dice < 4 || numbers.size() < 4)
            return book();
        if (dice == 9)
            return SaveSetting(setting::TagLine, stamp());
        if (dice == 10 || dice == 11)
            return changeMaster(dice == 10);
        if (dice == 12)
            return renameItem();
        if (dice == 13)
            return addGuest();
        if (dice == 14 || dice == 15)
            return enterVoucher();
        if (dice == 16)
            return completeRow();
        if (dice == 17)
            return payWages();
        JobCardStore store;
        clsJobCardData rows;
        store.openSaved(numbers.at(m_random.below(numbers.size())));
        const QStringList remark =
            columnOf(DE().CN, u"Select Remark from JOBS where Id="_s + QString::number(store.CurrentJobID()));
        store.readRows(rows);
        if (remark.isEmpty() || rows.RowCount() == 0)
            throw RuntimeError(Fault::RowNotFound, {}, Written::Nothing);
        if (dice == 8) {
            store.deleteCard();
            return acknowledge(store.CurrentJobID(), "-");
        }
        // Without one, only what the card itself says tells that it has changed.
        if (m_random.chance(50))
            rows.AddNewRow(row());
        JobCard card = desk::card(store.CurrentJobID(), rows, m_random);
        // Whoever reads the card later sees whose work it builds on.
        card.Remark = remark.first() + u'|' + stamp();
        // The user takes his time.
        QThread::msleep(static_cast<unsigned long>(m_random.below(longestPause)));
        store.SaveEdit(card, rows);
        acknowledge(store.CurrentJobID(), card.Remark.toUtf8());
    }

    /// Of an item that the list has, as on the screen.
    JobCardRow row()
    {
        for (;;) {
            JobCardRow row = desk::row(m_random);
            if (GetFieldValue(u"ID"_s, u"Items"_s, u"Name"_s, row.ItemName, DE().rsItems2).toInt() > 0)
                return row;
        }
    }

    static void renameItem()
    {
        Recordset &item = DE().rsITEMS;
        item.reopen(u"Select * from Items where Id="_s + QString::number(desk::lastItem));
        const QString name = item.text(u"NAME");
        item.set(u"NAME", name.startsWith(u"Old ") ? name.sliced(4) : u"Old "_s + name);
        item.update();
        item.close();
    }

    /// The same few names in both programs: who comes second is told.
    void addGuest()
    {
        const masterRows::Field name{u"Title"_s, u"Guest %1"_s.arg(m_random.below(guests))};
        static_cast<void>(masterRows::save(masterRows::clients(), 0, {name, {u"Type"_s, accountType::Client}}, {name}));
    }

    void changeMaster(bool isAccount)
    {
        Recordset &master = isAccount ? DE().rsaccounts : DE().rsITEMS;
        master.reopen(isAccount ? u"Select * from Accounts where Id="_s + QString::number(desk::spareClient)
                                : u"Select * from Items where Id="_s + QString::number(changedItem));
        isAccount ? master.set(u"Title", u"Spare "_s + stamp()) : master.set(u"FEES", 1 + m_random.below(999));
        master.update();
        master.close();
    }

    /// Its number is taken when the screen opens and not tested again: both programs may give the same one.
    void enterVoucher()
    {
        vouchers::Voucher voucher{.number = vouchers::GetNewNum(),
            .kind = u"Receipt"_s,
            .date = QDate(2011, 4, 9),
            .mainAccount = GetAccountTitle(desk::firstClient + m_random.below(desk::spareClient - desk::firstClient)),
            .otherAccount = u"Cash"_s,
            .remark = stamp(),
            .amount = QString::number(1 + m_random.below(9000))};
        QThread::msleep(static_cast<unsigned long>(m_random.below(longestPause)));
        vouchers::SaveNew(voucher);
        Child::tell("voucher " + voucher.remark.toUtf8());
    }

    void completeRow()
    {
        const QStringList waiting = columnOf(
            DE().CN, u"Select id from Jobs_Detail where DoneByWorker=%1 order by id"_s.arg(rowStatus::Uncompleted));
        if (!waiting.isEmpty())
            static_cast<void>(itemRowMarks::status(
                waiting.at(m_random.below(waiting.size())).toInt(), rowStatus::Completed, {2011, 4, 9}, u"Rack"_s));
    }

    void payWages()
    {
        payrolls::Payroll payroll{.worker = GetAccountTitle(desk::firstClient), .amount = 25};
        for (const QString &row :
            columnOf(DE().CN, u"Select id from Jobs_Detail where MarkAsPaid=%1 order by id"_s.arg(wage::Unpaid))) {
            if (payroll.rowIDs.size() < mostPaidAtOnce && m_random.chance(20))
                payroll.rowIDs.push_back(row.toInt());
        }
        static_cast<void>(payrolls::create(payroll));
    }

    void book()
    {
        JobCardStore store;
        clsJobCardData rows;
        rows.AddNewRow(row());
        JobCard card = desk::card(JobCardStore::GetNewNum(), rows, m_random);
        card.Remark = stamp();
        store.SaveNew(card, rows);
        acknowledge(store.CurrentJobID(), card.Remark.toUtf8());
    }

    [[nodiscard]] QString stamp() const { return u"%1/%2"_s.arg(m_number).arg(m_step); }

    static void acknowledge(int card, const QByteArray &remark)
    {
        Child::tell("done " + QByteArray::number(card) + ' ' + remark);
    }

    /// What this program says of the shop, against plain statements on a connection that has just been opened. That one
    /// holds the file still meanwhile.
    void look()
    {
        Connection fresh;
        fresh.open(session::DBPath);
        fresh.define(u"begin"_s);
        const QStringList lines = columnOf(fresh, u"Select Remark from JOBS order by Id"_s);
        DE().CN.noticeOtherWriters();
        const int account = m_random.chance(50)
            ? desk::spareClient
            : desk::firstClient + m_random.below(desk::spareClient - desk::firstClient);
        const QString id = QString::number(account);
        const QString sum =
            columnOf(fresh, u"Select sum(Amount) from Postings where status=0 and AccID="_s + id).value(0);
        const QString highest = columnOf(fresh, u"Select max(Id) from JOBS"_s).value(0);
        const QString title = columnOf(fresh, u"Select Title from Accounts where Id="_s + id).value(0);
        compare("balance", NumberText(Val(sum)), NumberText(GetAccountBalance(account, farAway)));
        compare("next number", NumberText(Val(highest) + 1), QString::number(JobCardStore::GetNewNum()));
        compare("next voucher",
            NumberText(Val(columnOf(fresh, u"Select max(VID) from Postings where vtype=2"_s).value(0)) + 1),
            QString::number(vouchers::GetNewNum()));
        compare("rows that wait",
            columnOf(fresh,
                u"Select count(QNT) from Jobs_Detail where DoneByWorker=0 and ItemID="_s + QString::number(changedItem))
                .value(0),
            QString::number(itemRows::waiting(DE().CN, changedItem)));
        compare("account's number", id, QString::number(GetAccountID(title)));
        compare("account's title", title, GetAccountTitle(account));
        compare("item's fee",
            columnOf(fresh, u"Select FEES from Items where Id="_s + QString::number(changedItem)).value(0),
            NumberText(GetItemFees(changedItem)));
        compare("setting", columnOf(fresh, u"Select [VALUE] from Settings where SETTING='6'"_s).value(0),
            GetSetting(setting::TagLine));
        compare("list", lines.join(u','), FillComboAll(u"Id"_s, u"Remark"_s, u"JOBS"_s, DE().rsJobs2).join(u','));
        fresh.define(u"rollback"_s);
    }

    static void compare(const char *what, const QString &wanted, const QString &said)
    {
        if (wanted != said)
            Child::tell("stale " + QByteArray(what) + ": " + said.toUtf8() + " and not " + wanted.toUtf8());
    }

    Random m_random;
    int m_number;
    int m_step = 0;
};

/// Two programs work on one file at the same time. Which of them is faster is the machine's affair, so a try is not
/// repeated to the call.
class TwoPrograms : public Kind {
public:
    TwoPrograms(const Course &course, quint64 seed) : Kind(u"two"_s, course, seed) { }

    Verdict attempt(int number, const QString &folder) const override
    {
        Random random = this->random(number);
        const quint64 seed = random.seed();
        m_course.lay(furnished, folder);
        const auto program = [&](int which) {
            return std::make_unique<Child>([&folder, seed, which] {
                enterFolder(folder);
                Worker(seed, which).work();
            });
        };
        const std::array programs{program(0), program(1)};
        Words words;
        QStringList vouchers;
        for (size_t i = 0; i < programs.size(); ++i) {
            const Child::Ending ending = programs[i]->wait(patience);
            if (!ending.isGood() || ending.lines.value(ending.lines.size() - 1) != "end")
                return {Verdict::CannotOpen, QString::fromUtf8(ending.lines.value(ending.lines.size() - 1))};
            for (const QByteArray &line : ending.lines) {
                if (line.startsWith("stale"))
                    return {Verdict::Half, QString::fromUtf8(line)};
                const QString said = QString::fromUtf8(line);
                if (said.startsWith(u"voucher"))
                    vouchers += said.section(u' ', 1);
                else if (said.startsWith(u"done"))
                    words[said.section(u' ', 1, 1)][i] += said.section(u' ', 2);
            }
        }
        return judge(folder, words, vouchers);
    }

private:
    /// What each of the two was told of each card, in its order.
    using Words = QMap<QString, std::array<QStringList, 2>>;

    static Verdict judge(const QString &folder, const Words &words, const QStringList &vouchers)
    {
        const Child::Ending ending = Child([&] {
            enterFolder(folder);
            Child::tell(lineOf(verdictHere(words, vouchers)));
        }).wait(patience);
        return ending.isGood() && !ending.lines.isEmpty()
            ? verdictOf(ending.lines.first())
            : Verdict{Verdict::CannotOpen, QString::fromUtf8(ending.text())};
    }

    static Verdict verdictHere(const Words &words, const QStringList &vouchers)
    {
        try {
            openShop();
            if (const QStringList wrong = disagreements(); !wrong.isEmpty())
                return {Verdict::Half, wrong.first()};
            for (const QString &column : {u"Title from Accounts"_s, u"SETTING from Settings"_s}) {
                if (QStringList found = columnOf(DE().CN, u"Select "_s + column); found.removeDuplicates() > 0)
                    return {Verdict::Half, u"a name stands twice: "_s + column};
            }
            for (const QString &remark : vouchers) {
                const QStringList legs =
                    columnOf(DE().CN, u"Select Amount from Postings where vtype=2 and Remark='%1'"_s.arg(remark));
                if (legs.size() != 2)
                    return {legs.isEmpty() ? Verdict::Lost : Verdict::Half,
                        u"voucher %1 has %2 legs"_s.arg(remark).arg(legs.size())};
            }
            for (const auto &[card, said] : words.asKeyValueRange()) {
                const QString remark =
                    columnOf(DE().CN, u"Select Remark from JOBS where Id="_s + card).value(0, u"-"_s);
                if (const QString lost = lostOf(remark, said); !lost.isEmpty())
                    return {Verdict::Lost, u"card %1 says %2 and not %3"_s.arg(card, remark, lost)};
            }
            return {};
        } catch (const RuntimeError &error) {
            return {Verdict::CannotOpen, error.report()};
        }
    }

    /// The last word on a card is one of the two programs' last ones, and builds on all others that were said of the
    /// same card: one that was deleted, and its number given again, has another beginning.
    static QString lostOf(const QString &remark, const std::array<QStringList, 2> &said)
    {
        const auto isLast = [&remark](const QStringList &words) { return !words.isEmpty() && words.last() == remark; };
        if (!std::ranges::any_of(said, isLast))
            return (said[0] + said[1]).join(u" or "_s);
        const QString beginning = remark.section(u'|', 0, 0);
        for (const QString &word : said[0] + said[1]) {
            if (word.section(u'|', 0, 0) == beginning && !(remark + u'|').startsWith(word + u'|'))
                return word;
        }
        return {};
    }
};

} // namespace

std::unique_ptr<Kind> twoPrograms(const Course &course, quint64 seed)
{
    return std::make_unique<TwoPrograms>(course, seed);
}

} // namespace faults
