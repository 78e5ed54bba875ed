#include "store/RowSet.h"

#include <sqlite3.h>

#include <bit>

using namespace Qt::StringLiterals;

namespace {

// A text's payload: where it starts in the upper bits, its length in the lower ones.
constexpr int lengthBits = 28;
constexpr quint64 lengthMask = (quint64(1) << lengthBits) - 1;

RowSet::Type typeOf(const char *declared)
{
    const QByteArrayView name(declared);
    if (name == "INTEGER")
        return RowSet::Type::Integer;
    if (name == "DOUBLE")
        return RowSet::Type::Floating;
    if (name == "CURRENCY")
        return RowSet::Type::Money;
    if (name == "TEXT")
        return RowSet::Type::Text;
    if (name == "DATETIME")
        return RowSet::Type::Date;
    return RowSet::Type::Any;
}

} // namespace

RowSet::RowSet(std::vector<Column> columns) : m_columns(std::move(columns))
{
    for (const Column &column : m_columns)
        m_nameHashes.push_back(nameHash(column.name));
}

RowSet::RowSet(Connection::Statement &statement, bool rowNumbers, const QString &table) : m_table(table)
{
    const int first = rowNumbers ? 1 : 0;
    for (int i = first; i < sqlite3_column_count(statement.handle()); ++i) {
        m_columns.push_back({QString::fromUtf8(sqlite3_column_name(statement.handle(), i)),
            typeOf(sqlite3_column_decltype(statement.handle(), i))});
        m_nameHashes.push_back(nameHash(m_columns.back().name));
    }
    while (statement.step()) {
        m_rowNumbers.push_back(rowNumbers ? sqlite3_column_int64(statement.handle(), 0) : 0);
        readRow(statement, first);
    }
}

void RowSet::readRow(Connection::Statement &statement, int firstColumn)
{
    sqlite3_stmt *handle = statement.handle();
    const int end = firstColumn + static_cast<int>(m_columns.size());
    for (int i = firstColumn; i < end; ++i) {
        switch (sqlite3_column_type(handle, i)) {
        case SQLITE_NULL: addCell(Kind::Null, 0); break;
        case SQLITE_INTEGER: addCell(Kind::Integer, static_cast<quint64>(sqlite3_column_int64(handle, i))); break;
        case SQLITE_FLOAT: addCell(Kind::Floating, std::bit_cast<quint64>(sqlite3_column_double(handle, i))); break;
        default: {
            const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(handle, i));
            addCell(Kind::Text, keepText({text, static_cast<size_t>(sqlite3_column_bytes(handle, i))}));
        }
        }
    }
    ++m_rowCount;
}

void RowSet::addCell(Kind kind, quint64 payload)
{
    m_kinds.push_back(kind);
    m_payloads.push_back(payload);
}

quint64 RowSet::keepText(std::string_view text)
{
    if (text.size() > lengthMask)
        throw RuntimeError(Fault::Overflow, u"A text is too long."_s, {});
    const quint64 start = m_texts.size();
    m_texts.append(text);
    return (start << lengthBits) | text.size();
}

quint32 RowSet::nameHash(QStringView name)
{
    quint32 hash = 2166136261U;
    for (const QChar c : name)
        hash = (hash ^ (c.unicode() | (c >= u'A' && c <= u'Z' ? 0x20U : 0U))) * 16777619U;
    return hash;
}

int RowSet::indexOf(QStringView name) const
{
    const quint32 hash = nameHash(name);
    for (size_t i = 0; i < m_columns.size(); ++i) {
        if (m_nameHashes[i] == hash && name.compare(m_columns[i].name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

Value RowSet::value(int row, int column) const
{
    const size_t cell = static_cast<size_t>(row) * m_columns.size() + static_cast<size_t>(column);
    const quint64 payload = m_payloads[cell];
    const Type type = m_columns[static_cast<size_t>(column)].type;
    switch (m_kinds[cell]) {
    case Kind::Null: return {};
    case Kind::Integer: {
        const auto number = static_cast<qint64>(payload);
        if (type == Type::Money)
            return Currency::fromDouble(static_cast<double>(number));
        return type == Type::Floating ? Value(static_cast<double>(number)) : Value(number);
    }
    case Kind::Floating: {
        const auto number = std::bit_cast<double>(payload);
        return type == Type::Money ? Value(Currency::fromDouble(number)) : Value(number);
    }
    case Kind::Text: {
        const QByteArrayView text(
            m_texts.data() + (payload >> lengthBits), static_cast<qsizetype>(payload & lengthMask));
        if (type == Type::Date)
            return jetsql::dateFromStored(text);
        return QString::fromUtf8(text);
    }
    }
    return {};
}

int RowSet::addRow()
{
    m_kinds.insert(m_kinds.end(), m_columns.size(), Kind::Null);
    m_payloads.insert(m_payloads.end(), m_columns.size(), 0);
    m_rowNumbers.push_back(0);
    return m_rowCount++;
}

void RowSet::setRow(int row, qint64 rowNumber, const std::vector<Value> &values)
{
    m_rowNumbers[static_cast<size_t>(row)] = rowNumber;
    for (size_t column = 0; column < values.size(); ++column)
        setValue(row, static_cast<int>(column), values[column]);
}

void RowSet::setValue(int row, int column, const Value &value)
{
    const size_t cell = static_cast<size_t>(row) * m_columns.size() + static_cast<size_t>(column);
    const auto put = [&](Kind kind, quint64 payload) {
        m_kinds[cell] = kind;
        m_payloads[cell] = payload;
    };
    const auto putText = [&](const QString &text) {
        const QByteArray utf8 = text.toUtf8();
        put(Kind::Text, keepText({utf8.constData(), static_cast<size_t>(utf8.size())}));
    };
    const auto &data = value.data();
    if (const auto *whole = std::get_if<qint64>(&data))
        put(Kind::Integer, static_cast<quint64>(*whole));
    else if (const auto *number = std::get_if<double>(&data))
        put(Kind::Floating, std::bit_cast<quint64>(*number));
    else if (const auto *amount = std::get_if<Currency>(&data))
        put(Kind::Floating, std::bit_cast<quint64>(amount->toDouble()));
    else if (const auto *text = std::get_if<QString>(&data))
        putText(*text);
    else if (const auto *moment = std::get_if<QDateTime>(&data))
        putText(jetsql::storedDate(*moment));
    else
        put(Kind::Null, 0);
}
