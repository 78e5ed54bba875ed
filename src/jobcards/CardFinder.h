#pragma once

#include "base/Currency.h"

#include <QDate>
#include <QHash>
#include <QString>

#include <vector>

/// Finds job cards by their clients while one types. It knows the cards as they were when it was made.
class CardFinder {
public:
    CardFinder();

    struct Card {
        qint32 number = 0;
        QDate date;
        qint32 client = 0;
        Currency amount;
        bool isFinished = false;
        bool isCancelled = false;
    };
    /// Cards of the clients with `text` in their name, in any case, or its digits in their mobile number, the newest
    /// first: `most` of them at most. None for an empty text.
    [[nodiscard]] std::vector<Card> find(const QString &text, size_t most) const;

private:
    struct Client {
        QString name;
        QString mobile;
    };
    /// In the order of `find`.
    std::vector<Card> m_cards;
    QHash<qint32, Client> m_clients;
};
