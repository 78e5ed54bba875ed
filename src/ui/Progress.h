#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>

#include <memory>

class QProgressDialog;
class QWidget;

/// Tells how far a long piece of work has come, and lets the user break it off by Escape. It shows itself after 0.3
/// seconds; from the first moment to the last no other window of the program takes a key or a click.
class Progress {
public:
    /// `what` is done, in the user's words. What cannot be undone any more offers no way out.
    enum class WayOut { Escape, None };
    explicit Progress(const QString &what, WayOut wayOut = WayOut::Escape);
    ~Progress();
    Q_DISABLE_COPY_MOVE(Progress)

    /// `done` of `total` is done. False once the user broke off, if he can. Costs little enough to be called for each
    /// row.
    [[nodiscard]] bool at(qint64 done, qint64 total);

private:
    void show();
    [[nodiscard]] bool isBroken() const;

    QString m_what;
    WayOut m_wayOut;
    QElapsedTimer m_started;
    qint64 m_lastLook = 0;
    QPointer<QWidget> m_below;
    std::unique_ptr<QProgressDialog> m_window;
};
