#pragma once

#include <QString>

#include <functional>

/// The machine's loudspeaker.
namespace sound {

/// Plays a sound file, and returns when it is through; at once where the machine can't play it. No key or click is
/// taken meanwhile.
void playToEnd(const QString &path);

/// Tests put their own player in; an empty function brings the machine's back.
void replacePlayer(std::function<void(const QString &)> replacement);

} // namespace sound
