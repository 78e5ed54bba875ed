#include "ui/entryFilters.h"

#include "ui/entryKeys.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

namespace {

template <typename Field>
void actOnEnter(Field *field, const std::function<void()> &act)
{
    QObject::connect(field, &Field::keyPress, field, [act](int &key) {
        if (key != keys::Enter)
            return;
        key = keys::Swallowed;
        act();
    });
}

} // namespace

void filterKeys(kvTextBox *box, const std::function<int(int)> &accept)
{
    QObject::connect(box, &kvTextBox::keyPress, box, [accept](int &key) {
        if (key >= keys::Blank)
            key = accept(key);
    });
}

void onEnter(kvTextBox *field, const std::function<void()> &act)
{
    actOnEnter(field, act);
}

void onEnter(kvComboBox *field, const std::function<void()> &act)
{
    actOnEnter(field, act);
}

QString textBesideSelection(const kvTextBox &box)
{
    QString text = box.Text();
    if (box.hasSelectedText())
        text.remove(box.selectionStart(), box.selectedText().size());
    return text;
}
