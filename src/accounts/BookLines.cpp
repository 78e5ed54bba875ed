#include "accounts/BookLines.h"

#include "accounts/documentTag.h"
#include "base/values.h"
#include "store/Recordset.h"
#include "store/lookups.h"

namespace {

constexpr qsizetype manyKinds = 16;

}

BookLines::BookLines(const Recordset &postings, QStringView account)
    : m_postings(postings), m_date(postings.column(u"Date")), m_number(postings.column(u"VID")),
      m_kind(postings.column(u"Vtype")), m_particulars(postings.column(u"particulars")),
      m_account(postings.column(account)), m_amount(postings.column(u"Amount")), m_remark(postings.column(u"Remark"))
{
}

ListRow BookLines::begin(int columns)
{
    if (const QDate day = m_postings.value(m_date).toDate(); day != m_day) {
        m_day = day;
        m_dayText = DayMonthYear(day);
    }
    const DocumentTag document{m_postings.value(m_number).toInt(), m_postings.value(m_kind).toInt()};
    ListRow line{.tag = document.text()};
    line.cells.reserve(columns);
    line.cells << m_dayText << QString::number(document.number) << particulars()
               << titleOrBlank(m_postings.value(m_account).toInt());
    return line;
}

QString BookLines::particulars()
{
    const QString text = m_postings.value(m_particulars).toText();
    const qsizetype known = m_kinds.indexOf(text);
    if (known >= 0)
        return m_kinds.at(known);
    if (m_kinds.size() < manyKinds)
        m_kinds += text;
    return text;
}

double BookLines::amount() const
{
    return m_postings.value(m_amount).toDouble();
}

QString BookLines::remark() const
{
    return m_postings.value(m_remark).toText();
}
