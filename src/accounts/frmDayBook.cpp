#include "accounts/frmDayBook.h"

#include "accounts/BookLines.h"
#include "accounts/documentTag.h"
#include "accounts/openDocument.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "ui/Command.h"
#include "ui/ListView.h"
#include "ui/PeriodFields.h"
#include "ui/formFields.h"
#include "ui/listFilter.h"
#include "ui/theme.h"

#include <QBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

enum Column { Date, Number, Voucher, Particulars, Amount, Remark, ColumnCount };

} // namespace

frmDayBook::frmDayBook() : RegisterScreen(u"frmDayBook"_s, u"Day Book"_s, Refresh::OnCommand)
{
    buildForm();
    connect(cmdView, &Command::clicked, this, &frmDayBook::view);
    view();
    lvSummary->setFocus();
}

void frmDayBook::buildForm()
{
    m_period = new PeriodFields;
    cmdView = new Command(u"cmdView"_s, u"&View"_s);
    cmdView->setDefault(true);
    setPeriod(m_period, cmdView);
    lvSummary = new ListView(u"lvSummary"_s,
        {{u"Date"_s, 14}, {u"VC #"_s, 8, true}, {u"Voucher"_s, 11}, {u"Particulars"_s, 27}, {u"Amount"_s, 13, true},
            {u"Remark"_s, 27}});
    lvSummary->setAccessibleName(windowTitle());
    setRegister(lvSummary);
    auto *head = new QHBoxLayout;
    head->addWidget(m_period);
    head->addStretch();
    head->addWidget(cmdView);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(head);
    whole->addWidget(lvSummary, 1);
    resize(980, 600);
    chainTabs(m_period->fields() + QList<QWidget *>{cmdView, lvSummary});
}

void frmDayBook::view()
{
    if (!m_period->isUsable())
        return;
    ExecuteSQL();
    lvSummary->setFocus(Qt::OtherFocusReason);
}

void frmDayBook::ExecuteSQL()
{
    std::vector<ListRow> rows;
    Recordset &postings = DE().rspostings;
    postings.reopen(u"Select * from Postings where status=%1 and sr=1 and date "_s.arg(postingStatus::Live)
        + m_period->between() + u"  order by date,vid "_s);
    rows.reserve(static_cast<size_t>(postings.recordCount()) + 1);
    BookLines lines(postings, u"AccID");
    for (; !postings.eof(); postings.moveNext()) {
        ListRow &row = rows.emplace_back(lines.begin(ColumnCount));
        row.cells << Money(std::abs(lines.amount())) << lines.remark();
    }
    postings.close();
    closeWithCount(rows,
        {.columns = ColumnCount,
            .column = Particulars,
            .words = u"Total Vouchers : "_s,
            .look = {.bold = true, .ink = theme::warning()},
            .afterBlankRow = false});
    lvSummary->setEmptyText(u"No job card and no voucher %1.\n\nOther dates and View (Alt+V) list others; the account "
                            "book (Alt+A in it) adds vouchers."_s.arg(m_period->inWords()));
    showRows(std::move(rows), lvSummary->currentRow() < 0 ? Keep::First : Keep::Tag);
}

void frmDayBook::openRow(const ListRow &row)
{
    if (const auto document = DocumentTag::of(row.tag.toString()); document && openDocument(*document))
        ExecuteSQL();
}
