#pragma once

#include "devices/Camera.h"

/// The cameras of the machine.
namespace cameras {

[[nodiscard]] QStringList names();
[[nodiscard]] std::unique_ptr<Camera> open(int index, const Camera::Events &events);

/// Tests put their own in, which outlives its use; none brings the machine's back.
void replace(CameraSystem *replacement);

} // namespace cameras
