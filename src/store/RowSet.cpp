#include "store/RowSet.h"

#include <sqlite3.h>

#include <bit>

using namespace Qt::StringLiterals;

namespace {

// A text's payload: where it starts in the upper bits, its length in the lower ones.
constexpr int lengthBits = 28;
constexpr quint64 lengthMask = (quint64(1) << lengthBits) - 1;
constexpr int blockRows = 512;

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

RowSet::RowSet(std::vector<Column> columns, const QString &table) : m_columns(std::move(columns)), m_table(table)
{
    for (const Column &column : m_columns)
        m_nameHashes.push_back(nameHash(column.name));
}

std::vector<RowSet::Column> RowSet::columnsOf(const Connection::Statement &statement, bool rowNumbers)
{
    std::vector<Column> columns;
    for (int i = rowNumbers ? 1 : 0; i < sqlite3_column_count(statement.handle()); ++i) {
        columns.push_back({QString::fromUtf8(sqlite3_column_name(statement.handle(), i)),
            typeOf(sqlite3_column_decltype(statement.handle(), i))});
    }
    return columns;
}

RowSet::RowSet(Connection::Statement &statement, bool rowNumbers, const QString &table)
    : RowSet(columnsOf(statement, rowNumbers), table)
{
    const int first = rowNumbers ? 1 : 0;
    while (statement.step()) {
        m_rowNumbers.push_back(rowNumbers ? sqlite3_column_int64(statement.handle(), 0) : 0);
        readRow(statement, first);
    }
}

RowSet::Place RowSet::growRow()
{
    const auto columns = static_cast<qsizetype>(m_columns.size());
    if (m_rowCount % blockRows == 0) {
        Block next;
        if (!m_blocks.empty()) {
            next.kinds.reserve(blockRows * columns);
            next.payloads.reserve(blockRows * columns);
            next.texts.reserve(m_blocks.back().texts.size());
        }
        m_blocks.push_back(std::move(next));
    }
    ++m_rowCount;
    Block &block = m_blocks.back();
    const qsizetype first = block.kinds.size();
    block.kinds.resize(first + columns);
    block.payloads.resize(first + columns);
    return {block, first};
}

RowSet::Place RowSet::placeOf(int row, int column)
{
    return {m_blocks[static_cast<size_t>(row / blockRows)],
        row % blockRows * static_cast<qsizetype>(m_columns.size()) + column};
}

void RowSet::readRow(Connection::Statement &statement, int firstColumn)
{
    const auto [block, first] = growRow();
    Kind *kinds = block.kinds.data() + first;
    quint64 *payloads = block.payloads.data() + first;
    for (int i = 0; i < static_cast<int>(m_columns.size()); ++i) {
        // The cell is asked for once and not for each of its properties. In one thread that is allowed.
        sqlite3_value *cell = sqlite3_column_value(statement.handle(), firstColumn + i);
        switch (sqlite3_value_type(cell)) {
        case SQLITE_NULL: kinds[i] = Kind::Null; break;
        case SQLITE_INTEGER:
            kinds[i] = Kind::Integer;
            payloads[i] = static_cast<quint64>(sqlite3_value_int64(cell));
            break;
        case SQLITE_FLOAT:
            kinds[i] = Kind::Floating;
            payloads[i] = std::bit_cast<quint64>(sqlite3_value_double(cell));
            break;
        default: {
            const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(cell));
            kinds[i] = Kind::Text;
            payloads[i] = block.keepText({text, sqlite3_value_bytes(cell)});
        }
        }
    }
}

quint64 RowSet::Block::keepText(QByteArrayView text)
{
    const auto length = static_cast<quint64>(text.size());
    if (length > lengthMask)
        throw RuntimeError(Fault::Overflow, u"A text is too long."_s, {});
    const auto start = static_cast<quint64>(texts.size());
    texts.append(text);
    return (start << lengthBits) | length;
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
        if (m_nameHashes[i] != hash)
            continue;
        // A name is mostly written as the column is, and a list asks by name for each of its cells.
        const QString &column = m_columns[i].name;
        if (name == column || name.compare(column, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

Value RowSet::value(int row, int column) const
{
    const Block &block = m_blocks[static_cast<size_t>(row / blockRows)];
    const qsizetype cell = row % blockRows * static_cast<qsizetype>(m_columns.size()) + column;
    const quint64 payload = block.payloads[cell];
    const Type type = m_columns[static_cast<size_t>(column)].type;
    switch (block.kinds[cell]) {
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
            block.texts.constData() + (payload >> lengthBits), static_cast<qsizetype>(payload & lengthMask));
        if (type == Type::Date)
            return jetsql::dateFromStored(text);
        return QString::fromUtf8(text);
    }
    }
    return {};
}

int RowSet::addRow()
{
    growRow();
    m_rowNumbers.push_back(0);
    return m_rowCount - 1;
}

void RowSet::setRow(int row, qint64 rowNumber, const std::vector<Value> &values)
{
    m_rowNumbers[static_cast<size_t>(row)] = rowNumber;
    for (size_t column = 0; column < values.size(); ++column)
        setValue(row, static_cast<int>(column), values[column]);
}

void RowSet::setValue(int row, int column, const Value &value)
{
    const Place place = placeOf(row, column);
    const auto put = [&place](Kind kind, quint64 payload) {
        place.block.kinds[place.cell] = kind;
        place.block.payloads[place.cell] = payload;
    };
    const auto putText = [&](const QString &text) { put(Kind::Text, place.block.keepText(text.toUtf8())); };
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
