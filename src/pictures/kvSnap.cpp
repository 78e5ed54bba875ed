#include "pictures/kvSnap.h"

#include "devices/cameras.h"
#include "pictures/pictureFile.h"

#include <QAction>
#include <QMenu>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestSilence = 4000;
constexpr int margin = 24;
const QColor ground(0x20, 0x24, 0x2a);

} // namespace

kvSnap::kvSnap(const QString &name, QWidget *parent) : QWidget(parent)
{
    setObjectName(name);
    setMinimumSize(320, 200);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_silence.setSingleShot(true);
    m_silence.setInterval(longestSilence);
    connect(&m_silence, &QTimer::timeout, this,
        [this] { fail(u"The camera sends no picture. Perhaps another program is using it."_s); });
}

kvSnap::~kvSnap()
{
    m_camera.reset();
}

QSize kvSnap::sizeHint() const
{
    return {640, 400};
}

void kvSnap::StartCam()
{
    m_camera.reset();
    m_frame = {};
    tell(u"The camera is switched on..."_s);
    m_camera = cameras::open(DeviceIndex,
        {[this](const QImage &picture) { take(picture); }, [this](const QString &reason) { fail(reason); }});
    if (m_camera)
        m_silence.start();
    else
        tell(cameras::canBeUsed() ? u"No camera is there. Plug one in, then start it."_s
                                  : u"The program's part for cameras is missing. Install the program again."_s);
    emit stateChanged();
}

void kvSnap::CloseCam()
{
    m_silence.stop();
    m_camera.reset();
    if (m_frame.isNull())
        tell(u"The camera is off"_s);
    emit stateChanged();
}

void kvSnap::SaveImage()
{
    pictureFile::save(m_frame, SnapPath);
    CloseCam();
    const pictureFile::Read still = pictureFile::read(SnapPath);
    m_frame = still.picture;
    tell(still.problem);
}

void kvSnap::FormatCam()
{
    if (!hasFormats())
        return;
    QMenu menu(this);
    const QStringList formats = m_camera->formats();
    for (qsizetype i = 0; i < formats.size(); ++i) {
        QAction *const action = menu.addAction(formats.at(i));
        action->setCheckable(true);
        action->setChecked(i == m_camera->format());
        if (action->isChecked())
            menu.setActiveAction(action);
    }
    const QAction *const chosen = menu.exec(mapToGlobal(rect().center()));
    // It may be gone meanwhile.
    if (chosen && m_camera)
        m_camera->setFormat(static_cast<int>(menu.actions().indexOf(chosen)));
}

bool kvSnap::hasFormats() const
{
    return m_camera && m_camera->formats().size() > 1;
}

void kvSnap::take(const QImage &picture)
{
    const bool isFirst = m_frame.isNull();
    m_frame = picture;
    m_silence.start();
    tell({});
    if (isFirst)
        emit stateChanged();
}

void kvSnap::fail(const QString &reason)
{
    m_silence.stop();
    m_camera.reset();
    m_frame = {};
    tell(reason);
    emit stateChanged();
}

void kvSnap::tell(const QString &line)
{
    m_line = line;
    setAccessibleName(line.isEmpty() ? u"Picture"_s : line);
    update();
}

void kvSnap::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), ground);
    if (m_line.isEmpty()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        QRect place(QPoint(), m_frame.size().scaled(size(), Qt::KeepAspectRatio));
        place.moveCenter(rect().center());
        painter.drawImage(place, m_frame);
        return;
    }
    painter.setPen(Qt::white);
    painter.drawText(rect().adjusted(margin, margin, -margin, -margin), Qt::AlignCenter | Qt::TextWordWrap, m_line);
}
