#include "pictures/isPictureThere.h"

#include "ui/platformBox.h"

#include <QFile>

using namespace Qt::StringLiterals;

bool isPictureThere(const QString &path)
{
    const bool isThere = QFile::exists(path);
    if (!isThere)
        platformBox::show(u"The picture is no longer there:\r\n"_s + path);
    return isThere;
}
