#pragma once

#include <QStringList>

#include <functional>
#include <memory>

class QImage;

/// A camera that is on, from the moment it is opened until it goes.
class Camera {
public:
    /// Both are called on the thread that opened it.
    struct Events {
        /// A picture, fifteen times a second at most.
        std::function<void(const QImage &picture)> frame;
        /// It has ended, with a reason in the user's words: pulled out, taken by another program. No picture comes any
        /// more.
        std::function<void(const QString &reason)> failed;
    };

    Camera() = default;
    virtual ~Camera() = default;
    Camera(const Camera &) = delete;
    Camera &operator=(const Camera &) = delete;

    /// The sizes of pictures that it can be set to, "1280 x 720"; none where it has but one.
    [[nodiscard]] virtual QStringList formats() const = 0;
    /// Which of them it is set to, or -1.
    [[nodiscard]] virtual int format() const = 0;
    virtual void setFormat(int index) = 0;
};

/// What can tell cameras and open them.
class CameraSystem {
public:
    CameraSystem() = default;
    virtual ~CameraSystem() = default;
    CameraSystem(const CameraSystem &) = delete;
    CameraSystem &operator=(const CameraSystem &) = delete;

    /// The names of the cameras that are there at this moment.
    [[nodiscard]] virtual QStringList names() = 0;
    /// Switches on the camera with that number in `names`; none where there is no such one.
    [[nodiscard]] virtual std::unique_ptr<Camera> open(int index, const Camera::Events &events) = 0;
};
