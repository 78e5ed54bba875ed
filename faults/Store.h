#pragma once

#include <QString>

#include <functional>
#include <random>
#include <vector>

/// One command of a store, ready to be given: all that it reads beforehand is read. It can be given again after it
/// failed with nothing written, as the user would press Save again.
using Command = std::function<void()>;

/// What the file must survive: a kind of write that the program makes. `prepare` reads what it needs from the open shop
/// and gives the command, the same one for the same random numbers and the same content of the file.
struct Operation {
    QString name;
    std::function<Command(std::mt19937 &)> prepare;
};

/// A new store joins by a file of its own in stores/ and a line in `allOperations`.
[[nodiscard]] std::vector<Operation> cardOperations();
[[nodiscard]] std::vector<Operation> settingOperations();
[[nodiscard]] std::vector<Operation> accountOperations();
[[nodiscard]] std::vector<Operation> printOperations();

/// A save as it must not be: card, row and postings one by one, without a group. The table must find it out.
[[nodiscard]] std::vector<Operation> looseOperations();

[[nodiscard]] std::vector<Operation> allOperations();

[[nodiscard]] inline int pick(std::mt19937 &random, int choices)
{
    return static_cast<int>(random() % static_cast<unsigned>(choices));
}
