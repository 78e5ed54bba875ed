#include "app/BackupLook.h"

#include "app/backup.h"

#include <QThread>

BackupLook::BackupLook(QObject *parent) : QObject(parent) { }

BackupLook::~BackupLook()
{
    end();
}

void BackupLook::end()
{
    ++m_number;
    m_stop = true;
    if (m_thread)
        m_thread->wait();
    m_thread.reset();
    m_stop = false;
}

void BackupLook::lookAt(const QString &backup)
{
    end();
    auto holding = std::make_shared<fileCheck::Holding>();
    m_thread.reset(QThread::create([this, backup, holding] { *holding = backup::look(backup, m_stop); }));
    connect(m_thread.get(), &QThread::finished, this, [this, backup, holding, number = ++m_number] {
        // Of a look that was ended the word may come late.
        if (number == m_number)
            emit told(backup, *holding);
    });
    m_thread->start();
}
