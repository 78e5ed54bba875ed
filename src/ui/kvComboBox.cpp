#include "ui/kvComboBox.h"

#include "base/values.h"
#include "ui/InsertedText.h"
#include "ui/entryKeys.h"
#include "ui/modAutoSearch.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

kvComboBox::kvComboBox(QWidget *parent) : QComboBox(parent), EntryBox(this)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    new InsertedText(lineEdit(), [this](const QString &text, const QString &beside) { return inserted(text, beside); });
    connect(this, &QComboBox::currentTextChanged, this, &kvComboBox::changed);
    passOn(*this);
}

kvComboBox::kvComboBox(const QString &name, QWidget *parent) : kvComboBox(parent)
{
    setObjectName(name);
}

void kvComboBox::setText(const QString &text)
{
    setComboText(*this, inForm(text));
}

void kvComboBox::keyPressEvent(QKeyEvent *event)
{
    if (entry().keySwallowed(*event))
        return;
    entry().passCharacter(
        event, [this](int key) { return amountKey(Text(), key); },
        [this](QKeyEvent *left) { QComboBox::keyPressEvent(left); });
}

void kvComboBox::wheelEvent(QWheelEvent *event)
{
    // A turn of the wheel over the field must not choose another entry unseen.
    event->ignore();
}
