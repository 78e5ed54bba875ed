#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>

#include <memory>

class Camera;

/// Shows what a camera sees, or a line that tells why there is nothing to see, and takes a picture of it.
class kvSnap : public QWidget {
    Q_OBJECT

public:
    /// `name` becomes the object name.
    explicit kvSnap(const QString &name, QWidget *parent = nullptr);
    /// As `CloseCam`.
    ~kvSnap() override;

    /// The camera to open, counted from 0 in `cameras::names`.
    int DeviceIndex = 0;
    /// The file to write.
    QString SnapPath;

    /// Switches the camera on, in place of one that is on.
    void StartCam();
    /// Switches it off. The last picture stays in sight.
    void CloseCam();
    [[nodiscard]] bool isOn() const { return m_camera != nullptr; }
    /// Whether there is a picture to take.
    [[nodiscard]] bool hasFrame() const { return isOn() && !m_frame.isNull(); }
    /// Writes the present picture to `SnapPath`, switches the camera off and shows the file. A file that stood there is
    /// replaced. Throws as `pictureFile::save`; the camera is then still on. REQUIRES: `hasFrame`.
    void SaveImage();
    /// Lets the user choose the size of the pictures. Nothing where the camera has but one.
    void FormatCam();
    /// Whether there is a size to choose.
    [[nodiscard]] bool hasFormats() const;

    /// What it tells in place of a picture; empty while there is one.
    [[nodiscard]] const QString &line() const { return m_line; }

    [[nodiscard]] QSize sizeHint() const override;

signals:
    /// The camera is on or off, by command or by itself, or its first picture has come.
    void stateChanged();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void take(const QImage &picture);
    void fail(const QString &reason);
    void tell(const QString &line);

    std::unique_ptr<Camera> m_camera;
    QImage m_frame;
    QString m_line;
    /// Runs out where a camera that is on sends nothing.
    QTimer m_silence;
};
