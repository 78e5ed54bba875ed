#pragma once

#include "support/TestShop.h"

#include <functional>

class frmMain;

/// A folder in which the program is started for the first time by a user who never chose a database. The machine's date
/// is the first of June 2026.
struct StartFolder {
    StartFolder();
    ~StartFolder();

    [[nodiscard]] QString path(const QString &name) const { return folder.filePath(name); }
    [[nodiscard]] QByteArray content(const QString &name) const;
    [[nodiscard]] QString config() const { return QString::fromUtf8(content(QStringLiteral("cv.ini"))); }
    void write(const QString &name, const QByteArray &content) const;
    void configure(const QString &databasePath) const;
    /// A shop's database of that version under that name, with the account "Asha".
    void addDatabase(const QString &name, const QString &version = QStringLiteral("15")) const;

    QTemporaryDir folder;
};

/// Runs the program from its start to the end of its process. `work` is done on the main screen once that has the
/// keyboard, and the screen is closed after it. False when the main screen did not come up.
bool runProgram(const std::function<void(frmMain &)> &work);

/// What the user's first-run marker is; none when it was never stored.
[[nodiscard]] QString storedMarker();
void storeMarker(const QString &value);

/// The database in use: its accounts.
[[nodiscard]] QStringList accounts();
