#include "pictures/Thumbnails.h"

#include "base/RuntimeError.h"
#include "pictures/pictureFile.h"
#include "ui/fieldTip.h"
#include "ui/signs.h"

#include <QDir>
#include <QPainter>
#include <QThread>

#include <atomic>
#include <mutex>

using namespace Qt::StringLiterals;

namespace {

constexpr int signSide = 40;

QPixmap square(double ratio, const QColor &ground)
{
    QPixmap pixmap(QSize(Thumbnails::side, Thumbnails::side) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(ground);
    return pixmap;
}

} // namespace

/// What the threads share: the files, and which of them was taken by one of them.
class Thumbnails::Work {
public:
    Work(const QString &folder, const QStringList &names)
        : m_folder(folder), m_names(names), m_taken(static_cast<size_t>(names.size()))
    {
    }

    void stop() { m_stopped = true; }
    [[nodiscard]] bool isStopped() const { return m_stopped; }
    [[nodiscard]] QString path(int row) const { return m_folder.filePath(m_names.at(row)); }

    void lookAt(int row)
    {
        const std::scoped_lock lock(m_mutex);
        m_next = static_cast<size_t>(row);
    }

    /// The next file for a thread, from what the user looks at round to the one before it; -1 where none is left.
    [[nodiscard]] int take()
    {
        const std::scoped_lock lock(m_mutex);
        for (size_t passed = 0; passed < m_taken.size() && !m_stopped; ++passed) {
            const size_t row = m_next++ % m_taken.size();
            if (!m_taken[row]) {
                m_taken[row] = true;
                return static_cast<int>(row);
            }
        }
        return -1;
    }

private:
    QDir m_folder;
    QStringList m_names;
    std::mutex m_mutex;
    std::vector<bool> m_taken;
    size_t m_next = 0;
    std::atomic<bool> m_stopped = false;
};

Thumbnails::Thumbnails(double ratio, QObject *parent) : Thumbnails(ratio, pictureFile::thumbnail, parent) { }

Thumbnails::Thumbnails(double ratio, Load load, QObject *parent)
    : QAbstractListModel(parent), m_ratio(ratio), m_load(std::move(load)),
      m_blank(square(ratio, QColor(0xee, 0xf0, 0xf3))), m_sign(square(ratio, Qt::white))
{
    QPainter painter(&m_sign);
    QRect place(0, 0, signSide, signSide);
    place.moveCenter(QRect(0, 0, side, side).center());
    signs::due(signs::Due::Overdue).paint(&painter, place);
    m_threads.setMaxThreadCount(QThread::idealThreadCount());
}

Thumbnails::~Thumbnails()
{
    stop();
    m_threads.waitForDone();
}

void Thumbnails::stop()
{
    if (m_work)
        m_work->stop();
    m_work.reset();
}

void Thumbnails::list(const QString &folder, const QStringList &names)
{
    stop();
    beginResetModel();
    m_folder = folder;
    m_names = names;
    m_thumbnails.assign(static_cast<size_t>(names.size()), {});
    m_done = 0;
    endResetModel();
    if (names.isEmpty())
        return;
    m_work = std::make_shared<Work>(folder, names);
    for (int thread = 0; thread < m_threads.maxThreadCount(); ++thread) {
        m_threads.start([this, work = m_work] {
            for (int row = work->take(); row >= 0; row = work->take()) {
                const Loaded loaded = load(work->path(row));
                QMetaObject::invokeMethod(
                    this, [=, this] { take(work, row, loaded); }, Qt::QueuedConnection);
            }
        });
    }
}

/// A thread has nobody to pass a failure on to.
Thumbnails::Loaded Thumbnails::load(const QString &path) const
{
    try {
        try {
            return {m_load(path, qRound(side * m_ratio)), {}};
        } catch (const RuntimeError &error) {
            return {{}, error.text() + u":\n"_s + pictureFile::read(path, {side, side}).problem};
        }
    } catch (...) {
        return {
            {}, u"Error loading picture "_s + QFileInfo(path).fileName() + u":\nThere is not enough memory for it"_s};
    }
}

void Thumbnails::lookAt(int row)
{
    if (m_work && row >= 0 && row < m_names.size())
        m_work->lookAt(row);
}

void Thumbnails::take(const std::shared_ptr<Work> &work, int row, const Loaded &loaded)
{
    if (work->isStopped())
        return;
    Thumbnail &thumbnail = m_thumbnails[static_cast<size_t>(row)];
    thumbnail.picture = loaded.reason.isEmpty() ? QPixmap::fromImage(loaded.picture) : m_sign;
    thumbnail.picture.setDevicePixelRatio(m_ratio);
    thumbnail.reason = loaded.reason;
    emit dataChanged(index(row), index(row));
    emit progressed(++m_done, static_cast<int>(m_names.size()));
}

QString Thumbnails::reasonOf(int row) const
{
    return row >= 0 && row < m_names.size() ? m_thumbnails[static_cast<size_t>(row)].reason : QString();
}

int Thumbnails::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_names.size());
}

QVariant Thumbnails::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Thumbnail &thumbnail = m_thumbnails[static_cast<size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole: return m_names.at(index.row());
    case Qt::DecorationRole: return thumbnail.picture.isNull() ? m_blank : thumbnail.picture;
    case Qt::ToolTipRole: return plainTip(thumbnail.reason.isEmpty() ? m_names.at(index.row()) : thumbnail.reason);
    case Qt::AccessibleDescriptionRole:
    case ReasonRole: return thumbnail.reason;
    default: return {};
    }
}
