#include "jobcards/clsJobCardData.h"

#include "base/RuntimeError.h"
#include "base/values.h"
#include "store/Value.h"
#include "ui/platformBox.h"

using namespace Qt::StringLiterals;

clsJobCardData::clsJobCardData() : m_records(1) { }

void clsJobCardData::AddNewRow(const JobCardRow &row)
{
    append({row, QString::number(row.Score)});
}

void clsJobCardData::Copy(int Index)
{
    if (inBounds(Index))
        append(Record(m_records[static_cast<size_t>(Index)]));
}

void clsJobCardData::append(const Record &record)
{
    m_rowCount = Int16(m_rowCount + 1);
    m_records.push_back(record);
}

void clsJobCardData::RemoveRow(int Index)
{
    if (Index > m_rowCount)
        return;
    if (Index < 0)
        throw RuntimeError(Fault::SubscriptOutOfRange);
    // Index 0 moves the first row onto the empty record, so what is left keeps its order.
    m_records.erase(m_records.begin() + Index);
    m_rowCount = Int16(m_rowCount - 1);
}

qint16 clsJobCardData::Score(int Index) const
{
    return inBounds(Index) ? Int16(Value(get(Index, &Record::scoreDigits)).toDouble()) : qint16(0);
}

bool clsJobCardData::inBounds(int index) const
{
    if (index < 0)
        throw RuntimeError(Fault::SubscriptOutOfRange);
    if (index <= m_rowCount)
        return true;
    platformBox::showCritical(u"Index Out of Bound!"_s);
    return false;
}
