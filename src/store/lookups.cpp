#include "store/lookups.h"

#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/journal.h"

#include <QHash>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QDate startOfBooks(1985, 11, 17);

/// Answers of one-value lookups by their statement and column, until the next write.
class LookupMemo {
public:
    Value answer(const Connection &connection, Recordset &source, const QString &column, const QString &statement)
    {
        if (m_writeStamp != connection.writeStamp()) {
            m_answers.clear();
            m_writeStamp = connection.writeStamp();
        }
        source.close();
        QHash<QString, Value> &answers = m_answers[column];
        if (const auto known = answers.constFind(statement); known != answers.cend())
            return *known;
        source.open(statement);
        const Value found = source.value(column);
        source.close();
        answers.insert(statement, found);
        return found;
    }

private:
    quint64 m_writeStamp = 0;
    QHash<QString, QHash<QString, Value>> m_answers;
};

Value lookUp(Recordset &source, const QString &column, const QString &statement)
{
    static LookupMemo memo;
    return memo.answer(DE().CN, source, column, statement);
}

Value firstValue(const QString &statement, Recordset &source)
{
    source.reopen(statement);
    const Value found = source.eof() ? Value() : source.value(0);
    source.close();
    return found.isNull() ? Value(-1) : found;
}

QStringList firstColumn(const QString &statement, Recordset &source)
{
    QStringList texts;
    source.reopen(statement);
    for (; !source.eof(); source.moveNext()) {
        const Value value = source.value(0);
        texts += value.isNull() ? QString() : value.toText();
    }
    source.close();
    return texts;
}

/// The live sums of an account, with the command object that the statement of old would have run on left closed.
journal::Sums sumsOf(int id, QDate from, QDate to)
{
    const int account = Int16(id);
    DE().rsJOBS_DETAIL2.close();
    return journal::sums(DE().CN, account, from, to);
}

double firstNumber(const QString &statement)
{
    Recordset &rows = DE().rsJOBS_DETAIL2;
    rows.reopen(statement);
    const Value sum = rows.value(0);
    rows.close();
    return sum.isNull() ? 0.0 : sum.toDouble();
}

double scoreSum(int workerID)
{
    return firstNumber(u"SELECT Sum(Score) from Jobs_Detail where WorkerID="_s + QString::number(workerID));
}

} // namespace

qint32 GetAccountID(const QString &title)
{
    return lookUp(DE().rsaccounts, u"ID"_s, u"Select * from Accounts where Title='"_s + jetsql::quoted(title) + u'\'')
        .toInt();
}

QString GetAccountTitle(int id)
{
    return lookUp(DE().rsaccounts, u"Title"_s, u"Select * from Accounts where ID="_s + QString::number(id)).toText();
}

double GetItemWorkerFees(const QString &name)
{
    return lookUp(DE().rsItems2, u"WorkerFees"_s, u"Select * from Items where Name='"_s + jetsql::quoted(name) + u'\'')
        .toDouble();
}

double GetItemFees(int id)
{
    return lookUp(DE().rsItems2, u"Fees"_s, u"Select * from Items where id="_s + QString::number(id)).toDouble();
}

qint32 GetItemID(const QString &name)
{
    return lookUp(DE().rsItems2, u"ID"_s, u"Select * from Items where Name='"_s + jetsql::quoted(name) + u'\'').toInt();
}

QString GetItemName(int id)
{
    return lookUp(DE().rsItems2, u"Name"_s, u"Select * from Items where ID="_s + QString::number(id)).toText();
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
    return firstColumn(u"Select "_s + field + u" from "_s + table + condition + u" order by "_s + field, source);
}

QStringList FillComboAll(const QString &orderField, const QString &field, const QString &table, Recordset &source)
{
    return firstColumn(u"Select "_s + field + u" from "_s + table + u" order by "_s + orderField, source);
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

qint16 GetWorkerScore(int workerID)
{
    return Int16(scoreSum(workerID));
}

int GetWorkerRating(int workerID)
{
    const double rows = firstNumber(u"Select Count(*) from Jobs_Detail where WorkerID="_s + QString::number(workerID));
    const double scores = scoreSum(workerID);
    return rows < scores ? static_cast<int>(std::nearbyint(scores / rows)) : 0;
}
