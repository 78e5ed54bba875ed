#include "ui/controlKeys.h"

#include "ui/DateField.h"
#include "ui/ListFinder.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

std::vector<KeyLine> ofDate()
{
    return {{u"5  5/4  5/4/11"_s, u"The date, or its day, or day and month"_s}, {u"+  -"_s, u"A day on, a day back"_s},
        {u"T"_s, u"Today"_s}, {u"F4"_s, u"Calendar"_s}, {u"F2"_s, u"Select all of it"_s},
        {u"Left, Right"_s, u"To its day, month and year"_s}, {u"Up, Down"_s, u"Change that"_s},
        {u"Esc"_s, u"Drop what is typed"_s}};
}

std::vector<KeyLine> ofCombo(const QComboBox &combo)
{
    std::vector<KeyLine> lines{{u"Letters"_s, u"What begins so"_s}, {u"Up, Down"_s, u"The one before, the next"_s},
        {u"F4, Alt+Down"_s, u"Open the list"_s}};
    if (combo.isEditable())
        lines.push_back({u"Backspace"_s, u"A letter less"_s});
    return lines;
}

std::vector<KeyLine> ofList(const QAbstractItemView &list)
{
    const bool finds = list.findChild<const ListFinder *>();
    return {{u"Letters"_s, finds ? u"To the next line that has them"_s : u"To the next line that begins so"_s},
        {u"Home, End"_s, u"First line, last line"_s}, {u"Page Down, Page Up"_s, u"A page on, a page back"_s}};
}

} // namespace

std::vector<KeyLine> keysOf(const QWidget *control)
{
    if (qobject_cast<const DateField *>(control))
        return ofDate();
    if (const auto *combo = qobject_cast<const QComboBox *>(control))
        return ofCombo(*combo);
    if (const auto *list = qobject_cast<const QAbstractItemView *>(control))
        return ofList(*list);
    if (const auto *lines = qobject_cast<const QPlainTextEdit *>(control); lines && !lines->isReadOnly())
        return {{u"Enter"_s, u"A new line"_s}};
    if (qobject_cast<const QAbstractButton *>(control))
        return {{u"Space"_s, u"Press it"_s}};
    return {};
}
