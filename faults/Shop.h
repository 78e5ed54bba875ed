#pragma once

#include "Store.h"

#include <QByteArray>
#include <QString>

/// The shop that the faults befall: a file with clients, items and some cards, and its content in a form that can be
/// compared.
namespace shop {

/// Makes the shop's file in `folder`, the same each time.
void make(const QString &folder);

/// Opens the file in `folder` by the program's own code. Throws as the program would.
void open(const QString &folder);
void close();

/// All that stands in the open file, as one short text: equal for equal contents.
[[nodiscard]] QByteArray content();

/// The first start of the program in `folder`, up to the main screen, and each later one.
void start(const QString &folder);
/// What a started shop in `folder` lacks; empty where it is as a new one should be.
[[nodiscard]] QString lackOfNew(const QString &folder);

/// What `fileCheck` has to say on the file in `folder`; empty where it is whole.
[[nodiscard]] QString lackOfAgreement(const QString &folder);

[[nodiscard]] QString fileIn(const QString &folder);

/// Steps of a shop's day in a fixed order for each seed: step `i` is prepared when its time comes.
class Day {
public:
    Day(quint32 seed, std::vector<Operation> operations);
    [[nodiscard]] Command prepareNext();

private:
    std::mt19937 m_random;
    std::vector<Operation> m_operations;
};

} // namespace shop
