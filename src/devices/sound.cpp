#include "devices/sound.h"

#include "devices/multimedia.h"

namespace sound {

namespace {

std::function<void(const QString &)> &player()
{
    static std::function<void(const QString &)> replacement;
    return replacement;
}

} // namespace

void playToEnd(const QString &path)
{
    if (player())
        player()(path);
    else if (Multimedia *library = Multimedia::load())
        library->playToEnd(path);
}

void replacePlayer(std::function<void(const QString &)> replacement)
{
    player() = std::move(replacement);
}

} // namespace sound
