#pragma once

#include <QGroupBox>

#include <array>
#include <optional>

class QButtonGroup;
class QGridLayout;
class QLabel;
class Recordset;

/// Where a garment stands: an option for each state that can be chosen, with its sign, its word and the day on which
/// the garment came to it. For a cancelled one none is on, and that is said.
class StatusOptions : public QGroupBox {
    Q_OBJECT

public:
    StatusOptions();

    void showRow(const Recordset &row);
    /// A `rowStatus`; none where no option is on.
    [[nodiscard]] std::optional<int> chosen() const;
    /// The chosen state was saved on `day`.
    void showSaved(QDate day);

    [[nodiscard]] QList<QWidget *> tabOrder() const;

private:
    void add(int status, const QString &option, const QString &caption, const QString &dateLabel = {});
    void addCanceled();

    QGridLayout *m_grid;
    QButtonGroup *m_options;
    /// The day of each state, by its code; "Uncompleted" has none.
    std::array<QLabel *, 4> m_dates{};
    QWidget *m_canceled;
};
