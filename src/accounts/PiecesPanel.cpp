#include "accounts/PiecesPanel.h"

#include "base/values.h"
#include "store/DataEnvironment.h"
#include "ui/Command.h"
#include "ui/ListView.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int panelWidth = 280;

} // namespace

PiecesPanel::PiecesPanel(const QString &pieces, ListView &list)
    : lvDetails(new ListView(u"lvDetails"_s, {{u"Name of Item"_s, 70}, {pieces, 30, true}})),
      Image1(new Command(u"Image1"_s, u"Hide Details"_s))
{
    setObjectName(u"picDetails"_s);
    setFixedWidth(panelWidth);
    lvDetails->setAccessibleName(u"Pieces of each item"_s);
    lvDetails->letSort();
    clear();
    auto *panel = new QVBoxLayout(this);
    panel->setContentsMargins({});
    panel->addWidget(lvDetails, 1);
    panel->addWidget(Image1, 0, Qt::AlignRight);
    hide();
    connect(Image1, &Command::clicked, this, [this, &list] {
        list.setFocus(Qt::OtherFocusReason);
        hide();
    });
}

void PiecesPanel::open()
{
    show();
    lvDetails->setFocus(Qt::OtherFocusReason);
}

void PiecesPanel::fill(const std::function<qint32(qint16 itemID)> &piecesOf)
{
    std::vector<ListRow> rows;
    Recordset &items = DE().rsITEMS;
    items.reopen(u"Select * from Items order by Name"_s);
    for (; !items.eof(); items.moveNext()) {
        const qint32 pieces = piecesOf(Int16(items.integer(u"ID")));
        if (pieces > 0)
            rows.push_back({.cells = {items.text(u"Name"), QString::number(pieces)}});
    }
    items.close();
    lvDetails->setEmptyText(u"No pieces in this period."_s);
    lvDetails->list().setRows(std::move(rows));
}

void PiecesPanel::clear()
{
    lvDetails->setEmptyText(u"The pieces of a worker are counted here once his jobs are listed."_s);
    lvDetails->list().clear();
}

void PiecesPanel::openOrderMenu()
{
    lvDetails->openOrderMenu();
}

QList<QWidget *> PiecesPanel::fields() const
{
    return {lvDetails, Image1};
}
