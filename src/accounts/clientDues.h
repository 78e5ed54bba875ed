#pragma once

#include "base/Currency.h"

#include <QDate>
#include <QString>

#include <vector>

struct ClientDue {
    qint32 client;
    QString title;
    /// Above zero.
    Currency amount;
};

/// The clients who owe the shop money at the end of `day`, by their names. Through `rsaccounts`, and `rsJOBS_DETAIL2`
/// as `GetAccountBalance`, whose faults are thrown.
[[nodiscard]] std::vector<ClientDue> clientDues(QDate day);
