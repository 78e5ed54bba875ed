#pragma once

#include "Store.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// A shop's folder as the program sees it: what is in it, and whether that agrees.
namespace faults {

/// The folder that the program was delivered in, with a demo shop. Made once, before any child.
[[nodiscard]] const QString &deliveredFolder();
void makeDelivery(const QString &folder);

/// Makes `folder` the program's.
void enterFolder(const QString &folder);

/// Opens the shop of the folder in a new data environment; the working date is the same in each process. Throws
/// RuntimeError.
void openShop();
/// Has this process know the key of a shop, for itself and its later children. Nothing stays open.
void learnKey(const QString &folder);
/// Is done after each opening: a stand-in for a program that opens its shop otherwise.
void replaceOpening(std::function<void()> opening);

/// All that the folder says: the rows of all tables, automatic numbers left out, and the other files. Of files
/// that were kept aside the shops count, with their rows. The shop is open, and closed afterwards. Throws RuntimeError.
[[nodiscard]] QString stateOfFolder(const std::vector<Store> &stores);
/// The rows alone; the shop stays open.
[[nodiscard]] QString stateOfShop();

/// What does not agree in the open shop, or is damaged; empty in a sound one. Throws RuntimeError.
[[nodiscard]] QStringList disagreements();

/// The first lines in which two states differ, for whoever looks into a failure.
[[nodiscard]] QString difference(const QString &wanted, const QString &found);

/// Copies all that is in a folder; `to` may be there already.
void copyFolder(const QString &from, const QString &to);
[[nodiscard]] QByteArray contentOf(const QString &path);
void putContent(const QString &path, const QByteArray &content);
/// Has the configuration of a copied folder name the copy's own shop.
void settleConfig(const QString &folder, const QString &copiedFrom);

} // namespace faults
