#include "ui/entryFilters.h"

#include "ui/entryKeys.h"
#include "ui/kvTextBox.h"

void filterKeys(kvTextBox *box, const std::function<int(int)> &accept)
{
    QObject::connect(box, &kvTextBox::keyPress, box, [accept](int &key) {
        if (key >= keys::Blank)
            key = accept(key);
    });
}

QString textBesideSelection(const kvTextBox &box)
{
    QString text = box.Text();
    if (box.hasSelectedText())
        text.remove(box.selectionStart(), box.selectedText().size());
    return text;
}
