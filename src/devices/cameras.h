#pragma once

#include "devices/Camera.h"

/// The cameras of the machine.
namespace cameras {

/// False where the library of the program that speaks to them is missing: there are none then.
[[nodiscard]] bool canBeUsed();
[[nodiscard]] QStringList names();
[[nodiscard]] std::unique_ptr<Camera> open(int index, const Camera::Events &events);

/// Tests put their own in, which outlives its use; none brings the machine's back.
void replace(CameraSystem *replacement);

} // namespace cameras
