#pragma once

#include <QPointer>
#include <QString>

class QLabel;

/// Tells in the screen in front what is being done, while a piece of work holds the program that can't say how far it
/// is. Without a screen there is none.
class Notice {
public:
    /// Shown when it returns.
    explicit Notice(const QString &what);
    ~Notice();
    Q_DISABLE_COPY_MOVE(Notice)

    /// The work went well: what was told can be read for a moment longer, while the program goes on.
    void linger();

private:
    QPointer<QLabel> m_label;
    bool m_lingers = false;
};
