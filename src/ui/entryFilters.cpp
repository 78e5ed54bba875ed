#include "ui/entryFilters.h"

#include "ui/InsertedText.h"
#include "ui/entryKeys.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

namespace {

template <typename Accept>
void filterBy(kvTextBox *box, Accept accept)
{
    QObject::connect(box, &kvTextBox::keyPress, box, [box, accept](int &key) {
        if (key >= keys::Blank)
            key = accept(box->textBesideSelection(), key);
    });
    new InsertedText(
        box, [accept](const QString &text, const QString &beside) { return numberFor(text, beside, accept); });
}

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

void filterKeys(kvTextBox *box, int (*accept)(int key))
{
    filterBy(box, [accept](const QString &, int key) { return accept(key); });
}

void filterKeys(kvTextBox *box, int (*accept)(const QString &text, int key))
{
    filterBy(box, accept);
}

void onEnter(kvTextBox *field, const std::function<void()> &act)
{
    actOnEnter(field, act);
}

void onEnter(kvComboBox *field, const std::function<void()> &act)
{
    actOnEnter(field, act);
}
