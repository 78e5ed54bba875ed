#include "devices/multimedia.h"

#include <QPluginLoader>

using namespace Qt::StringLiterals;

Multimedia *Multimedia::load()
{
    static Multimedia *library = nullptr;
    if (!library)
        library = qobject_cast<Multimedia *>(QPluginLoader(u"corvane_multimedia"_s).instance());
    return library;
}
