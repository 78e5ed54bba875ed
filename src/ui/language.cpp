#include "ui/language.h"

#include <QHeaderView>
#include <QTreeView>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace {

void showText(QWidget &control, const QString &text, const QFont &font)
{
    control.setFont(font);
    if (control.isWindow())
        control.setWindowTitle(text);
    else
        control.setProperty("text", text);
}

} // namespace

void SetEngFont(QWidget &control, const QString &text)
{
    showText(control, text, QFont(u"MS Sans Serif"_s, 8));
}

void SetHindiFont(QWidget &control, const QString &text)
{
    showText(control, text, hindiFont());
}

QFont hindiFont()
{
    return QFont(u"Kruti Dev 010"_s, 12);
}

void TranslateForm(QWidget &) { }

void ChangeHeaderFont(QTreeView &listView, const QTreeView &fontSource, bool)
{
    listView.header()->setFont(fontSource.header()->font());
}
