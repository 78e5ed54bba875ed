#include "ui/entryFilters.h"

#include "ui/InsertedText.h"
#include "ui/entryKeys.h"
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

} // namespace

void filterKeys(kvTextBox *box, int (*accept)(int key))
{
    filterBy(box, [accept](const QString &, int key) { return accept(key); });
}

void filterKeys(kvTextBox *box, int (*accept)(const QString &text, int key))
{
    filterBy(box, accept);
}
