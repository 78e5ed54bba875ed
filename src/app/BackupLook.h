#pragma once

#include "store/fileCheck.h"

#include <QObject>

#include <atomic>
#include <memory>

class QThread;

/// Looks beside the program's work into the backup that a folder has.
class BackupLook : public QObject {
    Q_OBJECT

public:
    explicit BackupLook(QObject *parent = nullptr);
    /// Ends a look that is under way.
    ~BackupLook() override;

    /// Begins a look at this file; one that is under way ends untold.
    void lookAt(const QString &backup);
    void end();

signals:
    void told(const QString &backup, const fileCheck::Holding &holding);

private:
    std::unique_ptr<QThread> m_thread;
    std::atomic_bool m_stop = false;
    int m_number = 0;
};
