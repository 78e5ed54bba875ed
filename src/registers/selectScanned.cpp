#include "registers/selectScanned.h"

#include "ui/ListView.h"
#include "ui/fieldTip.h"
#include "ui/kvTextBox.h"

using namespace Qt::StringLiterals;

void selectScanned(ListView &list, int jobColumn, kvTextBox &field)
{
    const QString code = field.Text().trimmed();
    if (!code.contains(u'/'))
        return;
    const int row = list.list().rowOfText(jobColumn, code);
    list.setCurrentRow(row);
    if (row < 0)
        showFieldTip(field, u"%1 is not in the list"_s.arg(code));
}
