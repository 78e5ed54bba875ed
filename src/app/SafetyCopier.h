#pragma once

#include <QObject>
#include <QTimer>

#include <atomic>
#include <memory>

class QThread;

/// Has the safety copy of the day made (see `safetyCopy`) while the program runs: first some seconds after it was told
/// to begin, and then whenever a day has none yet. Only the reading of the file is done on the program's own thread, at
/// a moment when nothing is being written.
class SafetyCopier : public QObject {
    Q_OBJECT

public:
    explicit SafetyCopier(QObject *parent = nullptr);
    /// Ends a copy that is being made; it is then made another time.
    ~SafetyCopier() override;

    void begin();
    /// Looks now whether the day has its copy. Nothing else happens while one is being made.
    void look();

signals:
    /// The day's copy stands there and is good.
    void made(const QString &path);
    /// A look has found that it stands there already.
    void isThere();
    /// It could not be made, for the cause that `why` tells. Tried again later.
    void failed(const QString &why);

private:
    void start(const QByteArray &content, const QString &database);

    QTimer m_timer;
    std::unique_ptr<QThread> m_thread;
    std::atomic_bool m_stop = false;
};
