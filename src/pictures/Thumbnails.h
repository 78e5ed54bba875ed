#pragma once

#include <QAbstractListModel>
#include <QPixmap>
#include <QStringList>
#include <QThreadPool>

#include <functional>
#include <memory>
#include <vector>

/// The picture files of a folder with their thumbnails, which are made in the background on as many threads as the
/// machine has cores. Until its thumbnail is there, a file has a blank one; a file that can't be loaded gets a sign,
/// and the reason as tip.
class Thumbnails : public QAbstractListModel {
    Q_OBJECT

public:
    /// The edge of a thumbnail, in units of the screen.
    static constexpr int side = 100;
    /// Why a file has no thumbnail; empty where it has one or is still to get it.
    static constexpr int ReasonRole = Qt::UserRole;

    /// Makes the thumbnail of a file, of that many points; on any thread.
    using Load = std::function<QImage(const QString &path, int side)>;

    /// `ratio` is how many points of the monitor make a unit.
    explicit Thumbnails(double ratio, QObject *parent = nullptr);
    /// The same with thumbnails that are made otherwise.
    Thumbnails(double ratio, Load load, QObject *parent = nullptr);
    /// Waits for the files that are being loaded.
    ~Thumbnails() override;

    /// Lists these files of `folder` in their order, and begins. What was begun for others is dropped.
    void list(const QString &folder, const QStringList &names);
    /// The user looks at the files from `row` on: they come next.
    void lookAt(int row);

    [[nodiscard]] const QString &folder() const { return m_folder; }
    [[nodiscard]] QString nameOf(int row) const { return m_names.value(row); }
    [[nodiscard]] QString reasonOf(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

signals:
    /// A thumbnail is there, or can't be made. The last time `done` is `total`.
    void progressed(int done, int total);

private:
    class Work;
    struct Thumbnail {
        QPixmap picture;
        QString reason;
    };
    struct Loaded {
        QImage picture;
        QString reason;
    };

    void stop();
    [[nodiscard]] Loaded load(const QString &path) const;
    void take(const std::shared_ptr<Work> &work, int row, const Loaded &loaded);

    double m_ratio;
    Load m_load;
    QString m_folder;
    QStringList m_names;
    std::vector<Thumbnail> m_thumbnails;
    int m_done = 0;
    std::shared_ptr<Work> m_work;
    QPixmap m_blank;
    QPixmap m_sign;
    QThreadPool m_threads;
};
