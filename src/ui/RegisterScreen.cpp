#include "ui/RegisterScreen.h"

#include "base/session.h"
#include "ui/Command.h"
#include "ui/ListFinder.h"
#include "ui/ListView.h"
#include "ui/PeriodFields.h"
#include "ui/RowMenu.h"
#include "ui/frmMsg.h"

#include <QAbstractButton>
#include <QScrollBar>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

RegisterScreen::RegisterScreen(const QString &name, const QString &title, Refresh refresh)
    : Screen(name, title), m_refresh(refresh)
{
}

void RegisterScreen::setRegister(ListView *list, Rows rows)
{
    m_list = list;
    connect(list, &ListView::opened, this, &RegisterScreen::openCurrent);
    connect(list, &ListView::menuWanted, this, &RegisterScreen::openMenu);
    auto *finder = new ListFinder(*list);
    onKey(Qt::CTRL | Qt::Key_L, u"Find a text in the list"_s, [finder] { finder->open(); });
    onKey(
        Qt::Key_Escape, u"Leave the search"_s, [finder] { finder->leave(); }, [finder] { return finder->isVisible(); });
    if (rows == Rows::Open)
        tellKey({u"Enter"_s, u"On a line: open it"_s});
    if (list->letsSort())
        onKey(Qt::CTRL | Qt::Key_O, u"Order of the list"_s, [list] { list->openOrderMenu(); });
}

void RegisterScreen::setPeriod(PeriodFields *period, Command *view)
{
    using Month = PeriodFields::Month;
    const auto take = [this, period, view](Month month) {
        return [this, period, view, month] {
            period->takeMonth(month);
            if (m_list->hasFocus())
                view->setFocus(Qt::OtherFocusReason);
        };
    };
    onKey(Qt::CTRL | Qt::Key_PageUp, u"Period: last month, the one before"_s, take(Month::Before));
    onKey(Qt::CTRL | Qt::Key_PageDown, u"Period: this month, the next one"_s, take(Month::Behind));
}

void RegisterScreen::openRow(const ListRow &) { }

void RegisterScreen::openCurrent()
{
    const ListRow *row = currentRow();
    if (!row)
        return;
    m_place = m_list->currentRow();
    // The list may be filled anew while the row is open.
    openRow(ListRow(*row));
}

void RegisterScreen::showRows(std::vector<ListRow> rows, Keep keep)
{
    const QVariant tag = m_list->currentTag();
    const int before = keep == Keep::Place ? std::max(0, m_place) : m_list->currentRow();
    const int scrolled = m_list->verticalScrollBar()->value();
    m_list->list().setRows(std::move(rows));
    m_list->doItemsLayout();
    m_list->verticalScrollBar()->setValue(scrolled);

    const ListModel &list = m_list->list();
    const int same = keep == Keep::Tag && before >= 0 ? list.rowOfTag(tag, before) : -1;
    const bool isPlaceGone = keep == Keep::Place && before >= list.rowCount();
    if (keep == Keep::First || isPlaceGone)
        m_list->setCurrentRow(0);
    else
        m_list->setCurrentRow(same >= 0 ? same : qMin(before, list.rowCount() - 1));
}

void RegisterScreen::setRowActions(std::vector<RowAction> actions)
{
    m_actions = std::move(actions);
    for (const RowAction &action : m_actions) {
        if (action.key != QKeyCombination(Qt::Key_unknown))
            onKey(
                action.key, action.caption, [this, &action] { run(action); }, [this] { return currentRow(); });
    }
    // In a field it takes back what was typed there.
    onKey(
        Qt::CTRL | Qt::Key_Z, u"Undo the last mark"_s, [this] { undo(); },
        [this] {
            const bool isInField = focusWidget() != m_list && !qobject_cast<const QAbstractButton *>(focusWidget());
            return !m_undos.empty() && !isInField;
        });
    tellKey({u"Menu"_s, u"On a line: what can be done with it"_s});
}

void RegisterScreen::keepForUndo(const QString &what, std::function<void()> takeBack)
{
    m_undos.push_back({what, std::move(takeBack)});
}

void RegisterScreen::undo()
{
    if (m_undos.empty())
        return;
    // Kept where the write fails: a second try is not for the mark before it.
    m_undos.back().takeBack();
    m_undos.pop_back();
}

void RegisterScreen::activated()
{
    if (m_refresh == Refresh::InFront || (m_refresh == Refresh::WhenNeeded && session::NeedRefresh))
        refill();
}

const ListRow *RegisterScreen::currentRow() const
{
    const int row = m_list->currentRow();
    return row >= 0 && m_list->list().at(row).hasTag() ? &m_list->list().at(row) : nullptr;
}

void RegisterScreen::run(const RowAction &action)
{
    const ListRow *current = currentRow();
    if (!current)
        return;
    const ListRow row = *current;
    m_place = m_list->currentRow();
    if (action.question.isEmpty() || AskUser(action.question) == 1)
        action.act(row);
}

void RegisterScreen::openMenu(QPoint place)
{
    if (m_actions.empty() || !currentRow())
        return;
    m_place = m_list->currentRow();
    auto *menu = new RowMenu(this);
    for (const RowAction &action : m_actions) {
        if (action.caption.isEmpty())
            menu->addSeparator();
        else
            menu->add(action.caption, action.key, [this, &action] { run(action); });
    }
    if (!m_undos.empty()) {
        menu->addSeparator();
        menu->add(u"Undo: "_s + m_undos.back().what, Qt::CTRL | Qt::Key_Z, [this] { undo(); });
    }
    menu->open(place);
}
