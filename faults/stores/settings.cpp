#include "store/settings.h"
#include "Store.h"

using namespace Qt::StringLiterals;

std::vector<Operation> settingOperations()
{
    return {{u"setting"_s, [](std::mt19937 &random) -> Command {
                 const QString value = QString::number(random());
                 return [value] { SaveSetting(setting::TagLine, value); };
             }}};
}
