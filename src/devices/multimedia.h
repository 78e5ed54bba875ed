#pragma once

#include "devices/Camera.h"

#include <QtPlugin>

/// What the program needs of the multimedia library, in a library of its own beside the program. It is loaded when it
/// is first asked for: most starts never do, and loading it with the program would make each of them a third longer.
class Multimedia : public CameraSystem {
public:
    /// Plays a sound file, and returns when it is through. What can't be played is left out.
    virtual void playToEnd(const QString &path) = 0;

    /// Null where that library is missing.
    [[nodiscard]] static Multimedia *load();
};

Q_DECLARE_INTERFACE(Multimedia, "corvane.Multimedia")
