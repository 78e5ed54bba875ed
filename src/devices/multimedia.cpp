#include "devices/multimedia.h"

#include <QPluginLoader>

using namespace Qt::StringLiterals;

Multimedia *Multimedia::load()
{
    static const auto library = qobject_cast<Multimedia *>(QPluginLoader(u"corvane_multimedia"_s).instance());
    return library;
}
