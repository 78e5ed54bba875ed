#pragma once

#include "store/settings.h"

#include <QString>

#include <optional>
#include <span>

/// What the shop information and the settings screen read and write. A save is one command: it stands in the file as a
/// whole or not at all. Throws RuntimeError as all writes do.
namespace shopSettings {

/// Name and password that the program asks for at its start.
struct Login {
    QString name;
    QString password;
};
/// The shop as it stands on printed matter; what the file has no text for is empty.
struct Shop {
    QString name;
    QString address1;
    QString address2;
    QString address3;
    QString contacts;
    /// None where the program asks for none.
    std::optional<Login> login = {};
};
[[nodiscard]] Shop readShop();
/// Without a login the stored one is forgotten.
void saveShop(const Shop &shop);

struct Change {
    setting::Key key;
    QString value;
};
/// Saves them in their order.
void save(std::span<const Change> changes);

} // namespace shopSettings
