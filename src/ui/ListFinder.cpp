#include "ui/ListFinder.h"

#include "ui/ListView.h"
#include "ui/entryKeys.h"
#include "ui/formFields.h"
#include "ui/theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int fieldWidth = 220;
constexpr int edge = 12;

} // namespace

ListFinder::ListFinder(ListView &list)
    : QWidget(&list), m_list(list), m_text(new QLineEdit), m_told(new QLabel(u"Not found"_s))
{
    m_text->setObjectName(u"txtFind"_s);
    m_text->setFixedWidth(fieldWidth);
    m_told->setObjectName(u"lblFound"_s);
    QPalette told = m_told->palette();
    told.setColor(QPalette::WindowText, theme::warning());
    m_told->setPalette(told);
    setAutoFillBackground(true);
    auto *row = new QHBoxLayout(this);
    row->addWidget(captionOf(m_text, u"Find :"_s));
    row->addWidget(m_text);
    row->addWidget(m_told);
    hide();

    m_text->installEventFilter(this);
    list.installEventFilter(this);
    connect(m_text, &QLineEdit::textEdited, this, [this] { search(m_start, 1); });
}

void ListFinder::open()
{
    m_start = qMax(m_list.currentRow(), 0);
    m_isTyped = false;
    m_told->hide();
    show();
    place();
    m_text->selectAll();
    m_text->setFocus(Qt::OtherFocusReason);
}

void ListFinder::open(const QString &typed)
{
    open();
    m_isTyped = true;
    m_text->setText(typed);
    search(m_start, 1);
}

void ListFinder::leave()
{
    m_list.setFocus(Qt::OtherFocusReason);
    hide();
}

bool ListFinder::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_list) {
        if (event->type() == QEvent::Resize && isVisible())
            place();
        if (event->type() != QEvent::KeyPress)
            return false;
        const int character = keys::characterCode(*static_cast<QKeyEvent *>(event));
        if (character <= keys::Blank)
            return false;
        open(keys::textOf(character));
        return true;
    }
    if (event->type() == QEvent::FocusOut)
        hide();
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto &key = *static_cast<QKeyEvent *>(event);
    const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (isEnter && m_isTyped) {
        leave();
        if (m_list.currentRow() >= 0)
            emit m_list.opened(m_list.currentRow());
        return true;
    }
    if (key.key() == Qt::Key_Up || (isEnter && key.modifiers() & Qt::ShiftModifier))
        search(m_list.currentRow() - 1, -1);
    else if (key.key() == Qt::Key_Down || isEnter)
        search(m_list.currentRow() + 1, 1);
    else
        return false;
    return true;
}

void ListFinder::search(int from, int step)
{
    const int count = m_list.list().rowCount();
    const QString sought = m_text->text();
    bool isFound = sought.isEmpty();
    for (int looked = 0; looked < count && !isFound; ++looked) {
        const int row = ((from + looked * step) % count + count) % count;
        isFound = holds(row, sought);
        if (isFound) {
            m_list.setCurrentRow(row);
            m_start = row;
        }
    }
    m_told->setVisible(!isFound);
    place();
}

bool ListFinder::holds(int row, const QString &text) const
{
    const QStringList &cells = m_list.list().at(row).cells;
    return std::any_of(
        cells.begin(), cells.end(), [&text](const QString &cell) { return cell.contains(text, Qt::CaseInsensitive); });
}

/// At the lower right corner of what is seen of the list.
void ListFinder::place()
{
    adjustSize();
    const QRect seen = m_list.viewport()->geometry();
    move(qMax(seen.right() - width() - edge, seen.left()), qMax(seen.bottom() - height() - edge, seen.top()));
    raise();
}
