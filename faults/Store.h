#pragma once

#include "Random.h"

#include <QFileInfo>
#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace faults {

/// One command of the user that writes: a save, a start, a copy. It is run with a failing disk, killed, and cut off.
class Task {
public:
    Task() = default;
    virtual ~Task() = default;
    Task(const Task &) = delete;
    Task &operator=(const Task &) = delete;

    /// Reads and chooses what the command is about, as the screen does on which the user then gives it. The disk is
    /// sound. What is chosen follows from the file's content and the seed alone.
    virtual void prepare() { }

    /// The command, up to the moment where the user is told that it is done. After a failure the user may give it
    /// again: it is then called once more on the same object. Throws RuntimeError.
    virtual void run() = 0;
};

/// What a task finds in the folder `session::ProgramFolder`.
enum class Begins {
    /// A shop, open in `DE`.
    OpenShop,
    /// A shop, closed, with a write beside it that was cut short.
    UnfinishedWrite,
    /// Nothing: a first start.
    EmptyFolder,
};

/// A way in which the program writes. What it has written is seen by itself: all tables of the shop are compared, and
/// all other files of the folder byte for byte.
struct Store {
    QString name;
    std::function<std::unique_ptr<Task>(Random random)> make;
    Begins begins = Begins::OpenShop;
    /// What a file beside the shop's says, where its bytes are not the same each time; nothing for any other file.
    std::function<std::optional<QString>(const QFileInfo &file)> look = {};
};

/// All of the program, in the order in which a day's work goes through them; in stores/.
[[nodiscard]] const std::vector<Store> &allStores();

// One file in stores/ each.
[[nodiscard]] std::vector<Store> jobCardStores();
[[nodiscard]] std::vector<Store> settingStores();
[[nodiscard]] std::vector<Store> accountStores();
[[nodiscard]] std::vector<Store> masterStores();
[[nodiscard]] std::vector<Store> reportStores();
[[nodiscard]] std::vector<Store> exportStores();
[[nodiscard]] std::vector<Store> productionStores();
[[nodiscard]] std::vector<Store> bookStores();
[[nodiscard]] std::vector<Store> houseStores();
[[nodiscard]] std::vector<Store> pictureStores();
[[nodiscard]] std::vector<Store> startStores();

} // namespace faults
