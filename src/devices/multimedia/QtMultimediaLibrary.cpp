#include "devices/multimedia.h"

#include <QAudioDevice>
#include <QCamera>
#include <QCameraDevice>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QImage>
#include <QMediaCaptureSession>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QTimer>
#include <QUrl>
#include <QVideoFrame>
#include <QVideoSink>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int millisecondsPerFrame = 66;
constexpr int longestStart = 3000;
/// So that one whose end is never told, the loudspeaker being gone, doesn't hold up the work for good.
constexpr int longestSound = 60'000;

QString sizeText(const QCameraFormat &format)
{
    return u"%1 x %2"_s.arg(format.resolution().width()).arg(format.resolution().height());
}

/// One for each size of picture, the largest first; of several the one with the most pictures a second.
QList<QCameraFormat> formatsOf(const QCameraDevice &device)
{
    QList<QCameraFormat> all = device.videoFormats();
    const auto rank = [](const QCameraFormat &format) {
        return std::tuple(format.resolution().width(), format.resolution().height(), format.maxFrameRate());
    };
    std::ranges::stable_sort(all, std::greater(), rank);
    const auto isSameSize = [](const QCameraFormat &one, const QCameraFormat &other) {
        return one.resolution() == other.resolution();
    };
    all.erase(std::unique(all.begin(), all.end(), isSameSize), all.end());
    return all;
}

class QtCamera : public Camera {
public:
    QtCamera(const QCameraDevice &device, const Events &events)
        : m_device(device), m_formats(formatsOf(device)), m_events(events), m_camera(device)
    {
        m_session.setCamera(&m_camera);
        m_session.setVideoSink(&m_sink);
        m_sinceFrame.start();
        // The frames come on a thread of the library's own.
        QObject::connect(
            &m_sink, &QVideoSink::videoFrameChanged, &m_context, [this](const QVideoFrame &frame) { take(frame); },
            Qt::AutoConnection);
        QObject::connect(&m_camera, &QCamera::errorOccurred, &m_context, [this](QCamera::Error, const QString &words) {
            fail(words.isEmpty() ? u"The camera does not answer"_s : u"The camera failed: "_s + words);
        });
        QObject::connect(&m_devices, &QMediaDevices::videoInputsChanged, &m_context, [this] {
            // What else is told of a camera may change while it is on.
            const auto isThisOne = [this](const QCameraDevice &input) { return input.id() == m_device.id(); };
            if (std::ranges::none_of(QMediaDevices::videoInputs(), isThisOne))
                fail(u"The camera was pulled out"_s);
        });
        m_camera.start();
    }

    QStringList formats() const override
    {
        QStringList texts;
        for (const QCameraFormat &format : m_formats)
            texts += sizeText(format);
        return texts;
    }

    int format() const override
    {
        const auto found =
            std::ranges::find(m_formats, m_camera.cameraFormat().resolution(), &QCameraFormat::resolution);
        return found == m_formats.end() ? -1 : static_cast<int>(found - m_formats.begin());
    }

    void setFormat(int index) override
    {
        m_camera.stop();
        m_camera.setCameraFormat(m_formats.at(index));
        m_camera.start();
    }

private:
    void take(const QVideoFrame &frame)
    {
        if (m_hasFailed || !frame.isValid() || m_sinceFrame.elapsed() < millisecondsPerFrame)
            return;
        m_sinceFrame.restart();
        if (const QImage picture = frame.toImage(); !picture.isNull())
            m_events.frame(picture);
    }

    void fail(const QString &reason)
    {
        if (m_hasFailed)
            return;
        m_hasFailed = true;
        // It may be let go in answer, and is in the middle of a call of its own.
        QTimer::singleShot(0, &m_context, [failed = m_events.failed, reason] { failed(reason); });
    }

    QCameraDevice m_device;
    QList<QCameraFormat> m_formats;
    Events m_events;
    QElapsedTimer m_sinceFrame;
    bool m_hasFailed = false;
    QMediaDevices m_devices;
    QVideoSink m_sink;
    QCamera m_camera;
    QMediaCaptureSession m_session;
    /// Goes first: nothing comes in while the others go.
    QObject m_context;
};

} // namespace

class QtMultimediaLibrary : public QObject, public Multimedia {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "corvane.Multimedia")
    Q_INTERFACES(Multimedia)

public:
    QStringList names() override
    {
        QStringList names;
        const auto devices = QMediaDevices::videoInputs();
        for (const QCameraDevice &device : devices)
            names += device.description().trimmed();
        return names;
    }

    std::unique_ptr<Camera> open(int index, const Camera::Events &events) override
    {
        const auto devices = QMediaDevices::videoInputs();
        if (index < 0 || index >= devices.size())
            return nullptr;
        return std::make_unique<QtCamera>(devices.at(index), events);
    }

    void playToEnd(const QString &path) override
    {
        if (QMediaDevices::defaultAudioOutput().isNull())
            return;
        QSoundEffect effect;
        QEventLoop loop;
        QTimer limit;
        limit.setSingleShot(true);
        QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
        limit.start(longestStart);
        QObject::connect(&effect, &QSoundEffect::playingChanged, &loop, [&] {
            if (!effect.isPlaying())
                loop.quit();
        });
        QObject::connect(&effect, &QSoundEffect::statusChanged, &loop, [&] {
            if (effect.status() == QSoundEffect::Error)
                loop.quit();
            else if (effect.status() == QSoundEffect::Ready)
                limit.start(longestSound);
        });
        effect.setSource(QUrl::fromLocalFile(path));
        effect.play();
        if (effect.status() != QSoundEffect::Error)
            loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
};

#include "QtMultimediaLibrary.moc"
