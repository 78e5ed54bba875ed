#include "store/Recordset.h"

#include "base/RuntimeError.h"
#include "store/Connection.h"
#include "store/shape.h"

#include <QScopeGuard>

#include <sqlite3.h>

#include <numeric>

using namespace Qt::StringLiterals;

/// One APPENDed child, or the grouped rows of a COMPUTE: all rows once, and for each row of the parent those that
/// belong to it.
struct Recordset::Child {
    QString name;
    std::shared_ptr<RowSet> rows;
    std::vector<std::vector<int>> rowsOfParent;
    std::unique_ptr<Recordset> current;
    qsizetype currentParent = -1;
};

namespace {

/// The form in which values are the same for a relation: numbers by value, texts without regard to case.
QString relationKey(const Value &value)
{
    return value.isNull() ? QString() : u'=' + value.toText().toCaseFolded();
}

/// A value as its column keeps it.
Value converted(const Value &value, const RowSet::Column &column)
{
    if (value.isNull())
        return value;
    switch (column.type) {
    case RowSet::Type::Any: return value;
    case RowSet::Type::Integer: return value.toInt(column.name);
    case RowSet::Type::Floating: return value.toDouble(column.name);
    case RowSet::Type::Money: {
        const Currency amount = value.toCurrency(column.name);
        // The file keeps money as decimal numbers; one that would lose its last decimals is refused, not rounded.
        if (Currency::fromDouble(amount.toDouble()) != amount)
            throw RuntimeError(Fault::Overflow, column.name);
        return amount;
    }
    case RowSet::Type::Text: return value.toText(column.name);
    case RowSet::Type::Date: return value.toDateTime(column.name);
    }
    return value;
}

/// "select [rowid] from T .." turned round, with its first row alone; empty where the order is of more than a column.
QByteArray lastFirst(const QByteArray &numbers)
{
    const QByteArrayList words = numbers.simplified().toLower().split(' ');
    if (!words.contains("order"))
        return numbers + "order by rowid desc limit 1";
    const qsizetype order = words.size() - 3;
    const bool isByOne = order > 0 && words.at(order) == "order" && words.at(order + 1) == "by";
    const QByteArray &by = words.last();
    // A number would name a column that is no longer there.
    const bool isNumber = by.at(0) >= '0' && by.at(0) <= '9';
    return isByOne && !isNumber ? numbers + "desc, rowid desc limit 1" : QByteArray();
}

QByteArray enclosed(const QString &name)
{
    return '[' + name.toUtf8() + ']';
}

} // namespace

Recordset::Recordset(Connection &connection, const QString &defaultSource)
    : m_connection(connection), m_defaultSource(defaultSource)
{
}

Recordset::~Recordset() = default;

void Recordset::open()
{
    open(m_defaultSource.contains(u' ') ? m_defaultSource : u"Select * from "_s + m_defaultSource);
}

void Recordset::open(const QString &statement)
{
    if (isOpen())
        throw RuntimeError(Fault::AlreadyOpen, m_statement);
    m_statement = statement;
    if (statement.trimmed().startsWith("SHAPE"_L1, Qt::CaseInsensitive))
        openShaped(statement);
    else
        read(statement);
}

void Recordset::reopen(const QString &statement)
{
    close();
    open(statement);
}

void Recordset::close()
{
    m_children.clear();
    m_pending.clear();
    m_rows.reset();
    m_order.clear();
    m_current = 0;
}

void Recordset::openColumns(const QString &statement, const QStringList &columns)
{
    close();
    m_statement = statement;
    read(statement, columns);
}

void Recordset::read(const QString &statement, const QStringList &columns)
{
    const auto translation = jetsql::translate(statement, columns);
    Connection::Statement rows(m_connection, translation.sql, translation.values, statement);
    showAll(std::make_shared<RowSet>(rows, !translation.table.isEmpty(), translation.table));
}

void Recordset::openLast(const QString &statement)
{
    close();
    m_statement = statement;
    const auto translation = jetsql::translate(statement);
    if (translation.table.isEmpty())
        throw RuntimeError(Fault::Engine, u"These rows cannot be written back."_s, statement);
    const QByteArray turned = lastFirst(jetsql::translate(statement, {u"rowid"_s}).sql);
    const QByteArray &numbers = turned.isEmpty() ? translation.sql : turned;
    const QByteArray lastRow = "select rowid, * from " + enclosed(translation.table) + " where rowid = ?";
    std::optional<qint64> last;
    do {
        // Cells of the other rows are not even looked at.
        last.reset();
        for (Connection::Statement rows(m_connection, numbers, translation.values, statement); rows.step();)
            last = sqlite3_column_int64(rows.handle(), 0);
        Connection::Statement row(m_connection, lastRow, {last ? Value(*last) : Value()}, statement);
        showAll(std::make_shared<RowSet>(row, true, translation.table));
        // Another program may have deleted it in between.
    } while (last && recordCount() == 0);
}

void Recordset::openOne(const QString &statement, qint64 rowNumber)
{
    reopen(statement + u" and rowid="_s + QString::number(rowNumber));
}

void Recordset::openToAdd(const QString &statement)
{
    close();
    m_statement = statement;
    const auto translation = jetsql::translate(statement);
    const Connection::Statement rows(m_connection, translation.sql, translation.values, statement);
    showAll(std::make_shared<RowSet>(RowSet::columnsOf(rows, !translation.table.isEmpty()), translation.table));
}

void Recordset::showAll(std::shared_ptr<RowSet> rows)
{
    std::vector<int> all(static_cast<size_t>(rows->rowCount()));
    std::iota(all.begin(), all.end(), 0);
    show(std::move(rows), std::move(all));
}

void Recordset::show(std::shared_ptr<RowSet> rows, std::vector<int> order)
{
    m_rows = std::move(rows);
    m_order = std::move(order);
    m_current = 0;
}

void Recordset::openShaped(const QString &statement)
{
    auto closeOnFailure = qScopeGuard([this] { close(); });
    const auto parsed = shape::parse(statement);
    if (!parsed)
        throw RuntimeError(Fault::Syntax, statement);
    if (parsed->groupChild.isEmpty()) {
        std::vector<Child> children;
        read(parsed->statement);
        for (const shape::Append &append : parsed->children) {
            Recordset all(m_connection);
            all.open(append.statement);
            QHash<QString, std::vector<int>> rowsByKey;
            const int childColumn = all.column(append.childColumn);
            for (int row = 0; row < all.recordCount(); ++row)
                rowsByKey[relationKey(all.m_rows->value(row, childColumn))].push_back(row);
            Child child{append.name, all.m_rows, {}, nullptr};
            const int parentColumn = column(append.parentColumn);
            for (int row = 0; row < recordCount(); ++row) {
                const QString key = relationKey(m_rows->value(row, parentColumn));
                child.rowsOfParent.push_back(key.isEmpty() ? std::vector<int>() : rowsByKey.value(key));
            }
            children.push_back(std::move(child));
        }
        m_children = std::move(children);
        closeOnFailure.dismiss();
        return;
    }
    Recordset all(m_connection);
    all.open(parsed->statement);
    std::vector<RowSet::Column> columns;
    std::vector<int> groupColumns;
    for (const shape::Total &total : parsed->totals)
        columns.push_back({total.name});
    for (const QString &name : parsed->groupColumns) {
        groupColumns.push_back(all.column(name));
        columns.push_back({name});
    }
    QHash<QString, int> groupOfKey;
    Child child{parsed->groupChild, all.m_rows, {}, nullptr};
    for (int row = 0; row < all.recordCount(); ++row) {
        QString key;
        for (const int column : groupColumns)
            key += relationKey(all.m_rows->value(row, column)) + u'\n';
        const int group = groupOfKey.value(key, static_cast<int>(groupOfKey.size()));
        if (group == groupOfKey.size()) {
            groupOfKey.insert(key, group);
            child.rowsOfParent.emplace_back();
        }
        child.rowsOfParent[static_cast<size_t>(group)].push_back(row);
    }
    auto groups = std::make_shared<RowSet>(columns);
    for (const std::vector<int> &members : child.rowsOfParent) {
        std::vector<Value> values;
        for (const shape::Total &total : parsed->totals) {
            Currency sum;
            const int column = all.column(total.column);
            for (const int row : members) {
                const Value value = all.m_rows->value(row, column);
                sum += value.isNull() ? Currency() : value.toCurrency();
            }
            values.emplace_back(sum);
        }
        for (const int column : groupColumns)
            values.push_back(all.m_rows->value(members.front(), column));
        groups->setRow(groups->addRow(), 0, values);
    }
    std::vector<int> order(static_cast<size_t>(groups->rowCount()));
    std::iota(order.begin(), order.end(), 0);
    show(std::move(groups), std::move(order));
    m_children.push_back(std::move(child));
    closeOnFailure.dismiss();
}

Recordset &Recordset::child(QStringView name)
{
    requireOpen();
    const auto found = std::find_if(m_children.begin(), m_children.end(),
        [name](const Child &child) { return name.compare(child.name, Qt::CaseInsensitive) == 0; });
    if (found == m_children.end())
        throw fault(Fault::ItemNotFound, name.toString());
    const int parent = currentRow();
    if (!found->current || found->currentParent != m_current) {
        found->current = std::make_unique<Recordset>(m_connection);
        found->current->m_statement = m_statement;
        // A row that was added since has no children yet.
        const bool known = parent < static_cast<int>(found->rowsOfParent.size());
        found->current->show(
            found->rows, known ? found->rowsOfParent[static_cast<size_t>(parent)] : std::vector<int>());
        found->currentParent = m_current;
    }
    return *found->current;
}

RuntimeError Recordset::fault(Fault kind, const QString &field) const
{
    const QString where = m_statement.isEmpty() ? m_defaultSource : m_statement;
    return RuntimeError(kind, field.isEmpty() ? where : u"%1 in: %2"_s.arg(field, where));
}

void Recordset::requireOpen() const
{
    if (!isOpen())
        throw fault(Fault::NotOpen, {});
}

int Recordset::currentRow() const
{
    requireOpen();
    if (eof())
        throw fault(Fault::NoCurrentRecord, {});
    return m_order[static_cast<size_t>(m_current)];
}

int Recordset::recordCount() const
{
    requireOpen();
    return static_cast<int>(m_order.size());
}

int Recordset::columnCount() const
{
    requireOpen();
    return static_cast<int>(m_rows->columns().size());
}

QString Recordset::columnName(int column) const
{
    requireOpen();
    return m_rows->columns().at(static_cast<size_t>(column)).name;
}

int Recordset::column(QStringView name) const
{
    requireOpen();
    const int index = m_rows->indexOf(name);
    if (index < 0)
        throw fault(Fault::ItemNotFound, name.toString());
    return index;
}

bool Recordset::eof() const
{
    requireOpen();
    return m_current >= static_cast<qsizetype>(m_order.size());
}

void Recordset::moveFirst()
{
    requireOpen();
    m_current = 0;
}

void Recordset::moveNext()
{
    if (eof())
        throw fault(Fault::NoCurrentRecord, {});
    ++m_current;
}

void Recordset::moveLast()
{
    requireOpen();
    m_current = m_order.empty() ? 0 : static_cast<qsizetype>(m_order.size()) - 1;
}

void Recordset::moveTo(int place)
{
    requireOpen();
    m_current = place;
}

std::shared_ptr<Recordset> Recordset::shared() const
{
    requireOpen();
    auto other = std::make_shared<Recordset>(m_connection);
    other->m_statement = m_statement;
    other->show(m_rows, m_order);
    for (const Child &child : m_children)
        other->m_children.push_back({child.name, child.rows, child.rowsOfParent, nullptr});
    return other;
}

Value Recordset::value(int column) const
{
    const int row = currentRow();
    if (const auto pending = m_pending.find(row); pending != m_pending.end()) {
        const auto set = pending->second.values.find(column);
        if (set != pending->second.values.end())
            return set->second;
    }
    return m_rows->value(row, column);
}

template <typename Reader>
auto Recordset::readField(QStringView name, Reader reader) const
{
    const Value read = value(name);
    if (read.isNull())
        throw fault(Fault::InvalidUseOfNull, name.toString());
    return reader(read);
}

QString Recordset::text(QStringView name) const
{
    return readField(name, [name](const Value &value) { return value.toText(name); });
}

QString Recordset::textOrEmpty(QStringView name) const
{
    const Value read = value(name);
    return read.isNull() ? QString() : read.toText();
}

qint32 Recordset::integer(QStringView name) const
{
    return readField(name, [name](const Value &value) { return value.toInt(name); });
}

double Recordset::number(QStringView name) const
{
    return readField(name, [name](const Value &value) { return value.toDouble(name); });
}

QDate Recordset::date(QStringView name) const
{
    return readField(name, [name](const Value &value) { return value.toDate(name); });
}

void Recordset::set(QStringView name, const Value &value)
{
    const int index = column(name);
    const int row = currentRow();
    if (m_rows->table().isEmpty())
        throw RuntimeError(Fault::Engine, u"These rows cannot be written back."_s, m_statement);
    m_pending[row].values.insert_or_assign(index, converted(value, m_rows->columns()[static_cast<size_t>(index)]));
}

void Recordset::addNew()
{
    requireOpen();
    if (m_rows->table().isEmpty())
        throw RuntimeError(Fault::Engine, u"These rows cannot be written back."_s, m_statement);
    const int row = m_rows->addRow();
    m_pending[row].added = true;
    m_order.push_back(row);
    m_current = static_cast<qsizetype>(m_order.size()) - 1;
}

void Recordset::update()
{
    const auto pending = m_pending.find(currentRow());
    if (pending == m_pending.end())
        return;
    // An added row is read back: one write, which stands only when that went well, too.
    WriteGroup::run(m_connection, [&] { writeRow(pending->first, pending->second); });
    m_pending.erase(pending);
}

void Recordset::updateBatch()
{
    requireOpen();
    if (m_pending.empty())
        return;
    WriteGroup::run(m_connection, [this] {
        while (!m_pending.empty()) {
            writeRow(m_pending.begin()->first, m_pending.begin()->second);
            m_pending.erase(m_pending.begin());
        }
    });
}

void Recordset::writeRow(int row, const Pending &pending)
{
    QByteArray names;
    QByteArray places;
    std::vector<Value> values;
    for (const auto &[column, value] : pending.values) {
        if (!pending.added && m_rows->value(row, column) == value)
            continue;
        const QByteArray name = enclosed(m_rows->columns()[static_cast<size_t>(column)].name);
        names += (names.isEmpty() ? "" : ", ") + name + (pending.added ? "" : " = ?");
        places += places.isEmpty() ? "?" : ", ?";
        values.push_back(value);
    }
    const QByteArray table = enclosed(m_rows->table());
    const auto run = [this](const QByteArray &sql, const std::vector<Value> &bound) {
        Connection::Statement(m_connection, sql, bound, m_statement).step();
    };
    qint64 number = m_rows->rowNumber(row);
    if (pending.added) {
        run(values.empty() ? "insert into " + table + " default values"
                           : "insert into " + table + " (" + names + ") values (" + places + ')',
            values);
        number = m_connection.lastRowNumber();
    } else {
        if (values.empty())
            return;
        values.emplace_back(number);
        run("update " + table + " set " + names + " where rowid = ?", values);
        if (m_connection.rowsChanged() == 0)
            throw fault(Fault::RowNotFound, {});
    }
    // An added row gets what the file made of it: its automatic number and the defaults of the columns that were not
    // set.
    if (pending.added) {
        Connection::Statement written(
            m_connection, "select * from " + table + " where rowid = ?", {number}, m_statement);
        const RowSet stored(written, false, {});
        std::vector<Value> all;
        for (int column = 0; column < columnCount(); ++column)
            all.push_back(stored.value(0, column));
        m_rows->setRow(row, number, all);
        return;
    }
    for (const auto &[column, value] : pending.values)
        m_rows->setValue(row, column, value);
}
