#include "ui/RowMenu.h"

using namespace Qt::StringLiterals;

RowMenu::RowMenu(QWidget *screen) : QMenu(screen)
{
    setObjectName(u"rowMenu"_s);
    setAttribute(Qt::WA_DeleteOnClose);
}

void RowMenu::add(const QString &caption, QKeyCombination key, std::function<void()> act)
{
    QString text = caption;
    if (key != QKeyCombination(Qt::Key_unknown))
        text += u'\t' + QKeySequence(key).toString(QKeySequence::NativeText);
    connect(addAction(text), &QAction::triggered, parent(), std::move(act), Qt::QueuedConnection);
}

void RowMenu::open(QPoint place)
{
    popup(place);
    setActiveAction(actions().constFirst());
}
