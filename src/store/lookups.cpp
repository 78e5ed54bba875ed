#include "store/lookups.h"

#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/itemRows.h"
#include "store/journal.h"

#include <QHash>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QDate startOfBooks(1985, 11, 17);

/// Answers from one table, good until the next write to it.
template <typename Key>
class Memo {
public:
    explicit Memo(const QByteArray &table) : m_table(table) { }

    QHash<Key, Value> &answers(const Connection &connection)
    {
        const quint64 stamp = connection.writeStamp(m_table);
        if (m_writeStamp != stamp) {
            m_answers.clear();
            m_writeStamp = stamp;
        }
        return m_answers;
    }

private:
    QByteArray m_table;
    quint64 m_writeStamp = 0;
    QHash<Key, Value> m_answers;
};

const QByteArray accounts = "accounts";
const QByteArray items = "items";

Value valueOf(Recordset &source, const QString &column, const QString &statement)
{
    source.open(statement);
    const Value found = source.value(column);
    source.close();
    return found;
}

/// Answers by name, each under its column and statement.
class NamedRows {
public:
    explicit NamedRows(const QByteArray &table) : m_memo(table) { }

    Value value(Recordset &source, const QString &column, const QString &statement)
    {
        source.close();
        QHash<QString, Value> &answers = m_memo.answers(DE().CN);
        const QString key = column + u' ' + statement;
        if (const auto known = answers.constFind(key); known != answers.cend())
            return *known;
        return *answers.insert(key, valueOf(source, column, statement));
    }

private:
    Memo<QString> m_memo;
};

Value ofAccount(const QString &column, const QString &title)
{
    static NamedRows rows(accounts);
    return rows.value(
        DE().rsaccounts, column, u"Select * from Accounts where Title='"_s + jetsql::quoted(title) + u'\'');
}

Value ofItem(const QString &column, const QString &name)
{
    static NamedRows rows(items);
    return rows.value(DE().rsItems2, column, u"Select * from Items where Name='"_s + jetsql::quoted(name) + u'\'');
}

/// One column of a table by the row's number. Whoever asks for many, a list that looks up something for each of its
/// rows, has the whole column read in one pass, which takes no longer than a hundred statements.
class NumberedColumn {
public:
    /// `statement` gives one row when its number is joined on. `condition` is what it asks of all of them, if anything.
    NumberedColumn(
        const QString &column, const QByteArray &table, const QString &statement, const QString &condition = {})
        : m_column(column), m_table(table), m_statement(statement), m_condition(condition), m_memo(table)
    {
    }

    Value of(int id, Recordset &source)
    {
        const Value found = ofOrNull(id, source);
        return found.isNull() ? valueOf(source, m_column, m_statement + QString::number(id)) : found;
    }

    /// Null where there is no such row.
    Value ofOrNull(int id, Recordset &source)
    {
        source.close();
        QHash<int, Value> &answers = m_memo.answers(DE().CN);
        const auto known = answers.constFind(id);
        if (known != answers.cend())
            return *known;
        if (answers.size() == fewAnswers) {
            readAll(answers);
            if (const auto found = answers.constFind(id); found != answers.cend())
                return *found;
        }
        source.open(m_statement + QString::number(id));
        const Value found = source.eof() ? Value() : source.value(m_column);
        source.close();
        return *answers.insert(id, found);
    }

private:
    static constexpr qsizetype fewAnswers = 24;

    void readAll(QHash<int, Value> &answers)
    {
        Recordset all(DE().CN);
        all.open(u"Select ID, "_s + m_column + u" from "_s + QString::fromLatin1(m_table) + m_condition);
        answers.reserve(all.recordCount());
        for (; !all.eof(); all.moveNext())
            answers.insert(all.value(0).toInt(), all.value(1));
    }

    QString m_column;
    QByteArray m_table;
    QString m_statement;
    QString m_condition;
    Memo<int> m_memo;
};

NumberedColumn &accountTitles()
{
    static NumberedColumn titles(u"Title"_s, accounts, u"Select * from Accounts where ID="_s);
    return titles;
}

NumberedColumn &itemNames()
{
    static NumberedColumn names(u"Name"_s, items, u"Select * from Items where ID="_s);
    return names;
}

Value firstValue(const QString &statement, Recordset &source)
{
    source.reopen(statement);
    const Value found = source.eof() ? Value() : source.value(0);
    source.close();
    return found.isNull() ? Value(-1) : found;
}

QStringList readFirstColumn(const QString &statement, Recordset &source)
{
    QStringList texts;
    source.open(statement);
    for (; !source.eof(); source.moveNext()) {
        const Value value = source.value(0);
        texts += value.isNull() ? QString() : value.toText();
    }
    source.close();
    return texts;
}

/// The lists that screens fill are asked for each time that one opens.
QStringList firstColumn(const QString &statement, const QString &table, Recordset &source)
{
    struct Known {
        quint64 stamp = 0;
        QStringList texts;
    };
    static QHash<QString, Known> lists;
    source.close();
    const quint64 stamp = DE().CN.writeStamp(table.section(u' ', 0, 0).toLower().toLatin1());
    Known &known = lists[statement];
    if (known.stamp != stamp)
        known = {stamp, readFirstColumn(statement, source)};
    return known.texts;
}

/// The live sums of an account, with the command object that the statement of old would have run on left closed.
journal::Sums sumsOf(int id, QDate from, QDate to)
{
    const int account = Int16(id);
    DE().rsJOBS_DETAIL2.close();
    return journal::sums(DE().CN, account, from, to);
}

itemRows::Rated ratedRowsOf(int workerID)
{
    DE().rsJOBS_DETAIL2.close();
    return itemRows::ratedRows(DE().CN, workerID);
}

} // namespace

qint32 GetAccountID(const QString &title)
{
    return ofAccount(u"ID"_s, title).toInt();
}

std::optional<qint32> findAccountID(const QString &title)
{
    const Value id = GetFieldValue(u"ID"_s, u"Accounts"_s, u"Title"_s, title, DE().rsaccounts);
    return id == Value(-1) ? std::nullopt : std::optional(id.toInt());
}

QString GetAccountTitle(int id)
{
    return accountTitles().of(id, DE().rsaccounts).toText();
}

QString titleOrBlank(int id)
{
    const Value title = accountTitles().ofOrNull(id, DE().rsaccounts);
    return title.isNull() ? QString() : title.toText();
}

QString mobileOrBlank(int clientID)
{
    const QString ofClients = u" where  type="_s + QString::number(accountType::Client);
    static NumberedColumn mobiles(
        u"Mobile"_s, accounts, u"Select * from Accounts"_s + ofClients + u" and  ID="_s, ofClients);
    const Value mobile = mobiles.ofOrNull(clientID, DE().rsaccounts);
    return mobile.isNull() ? QString() : mobile.toText();
}

double GetItemWorkerFees(const QString &name)
{
    return ofItem(u"WorkerFees"_s, name).toDouble();
}

double GetItemFees(int id)
{
    static NumberedColumn fees(u"Fees"_s, items, u"Select * from Items where id="_s);
    return fees.of(id, DE().rsItems2).toDouble();
}

qint32 GetItemID(const QString &name)
{
    return ofItem(u"ID"_s, name).toInt();
}

QString GetItemName(int id)
{
    return itemNames().of(id, DE().rsItems2).toText();
}

QString itemNameOrBlank(int id)
{
    const Value name = itemNames().ofOrNull(id, DE().rsItems2);
    return name.isNull() ? QString() : name.toText();
}

Value GetFieldValue(
    const QString &field, const QString &table, const QString &keyColumn, const QString &value, Recordset &source)
{
    return firstValue(
        u"Select "_s + field + u" from "_s + table + u" where "_s + keyColumn + u"='"_s + jetsql::quoted(value) + u'\'',
        source);
}

Value GetFieldValueNum(
    const QString &field, const QString &table, const QString &keyColumn, double value, Recordset &source)
{
    return firstValue(
        u"Select "_s + field + u" from "_s + table + u" where "_s + keyColumn + u'=' + NumberText(value), source);
}

QStringList FillCombo(const QString &field, const QString &table, const QString &condition, Recordset &source)
{
    return firstColumn(u"Select "_s + field + u" from "_s + table + condition + u" order by "_s + field, table, source);
}

QStringList FillComboAll(const QString &orderField, const QString &field, const QString &table, Recordset &source)
{
    return firstColumn(u"Select "_s + field + u" from "_s + table + u" order by "_s + orderField, table, source);
}

double GetAccountBalance(int id, QDate day)
{
    return sumsOf(id, startOfBooks, day).balance.toDouble();
}

double GetAccountCredits(int id, QDate from, QDate to)
{
    return sumsOf(id, from, to).credits.toDouble();
}

double GetAccountDebits(int id, QDate from, QDate to)
{
    return sumsOf(id, from, to).debits.toDouble();
}

qint32 GetWorkerScore(int workerID)
{
    return Int32(static_cast<double>(ratedRowsOf(workerID).scores));
}

int GetWorkerRating(int workerID)
{
    const auto [rows, scores] = ratedRowsOf(workerID);
    return rows < scores ? static_cast<int>(std::nearbyint(static_cast<double>(scores) / static_cast<double>(rows)))
                         : 0;
}
