#pragma once

#include "accounts/vouchers.h"
#include "demoData.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <map>
#include <random>
#include <span>
#include <vector>

class clsJobCardData;

/// Fills an open, empty database with half a year of a shop's life: always the same, but for what the encryption adds.
/// REQUIRES: `DE` is open on a database that was just created.
class DemoShop {
public:
    void fill();

private:
    void addShop();
    void addItems();
    void addAccounts();
    void addAccount(const QString &title, int type, int nature);
    void addClients();
    void addWorkers();
    void bookCards();
    void bookCard(QDate day);
    void addRows(clsJobCardData &rows, const QString &client);
    [[nodiscard]] QString measured(const QString &client, const QString &item, const QString &label, int from, int to);
    void produce(int jobID, QDate delivery);
    void fit(int jobID);
    void settle(int jobID, const QString &client, QDate day, double due);
    void receive(const QString &client, QDate day, double amount);
    void note(const demoData::Entry &entry, QDate day);
    void keepBooks();
    void enterVouchers();
    void payWorkers();
    void payWorker(const QString &worker, QDate from, QDate to);

    [[nodiscard]] int pick(int low, int high);
    [[nodiscard]] QString pickFrom(std::span<const QString> texts);
    [[nodiscard]] bool chance(int percent) { return pick(1, 100) <= percent; }

    std::mt19937 m_random{20110401};
    QStringList m_clients;
    QStringList m_workers;
    /// Not in the file yet, and without their numbers.
    std::vector<vouchers::Voucher> m_vouchers;
    /// A client's measurements stay what they were at the first visit.
    std::map<QString, QString> m_measurements;
};
