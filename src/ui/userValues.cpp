#include "ui/userValues.h"

using namespace Qt::StringLiterals;

QSettings userValues()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, u"Corvane"_s, u"Corvane"_s);
}
