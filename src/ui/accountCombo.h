#pragma once

#include <QStringList>

class kvComboBox;

/// A combo that selects an account as one types, under its object name `name`. It is empty until it is filled.
[[nodiscard]] kvComboBox *accountCombo(const QString &name);

/// The titles of the accounts that fulfil `condition`, which is what `FillCombo` takes, in their order.
[[nodiscard]] QStringList accountTitles(const QString &condition);

/// Replaces the entries by the titles of the accounts that fulfil `condition`, in their order, behind `first` where
/// that is given ("*All", "NA"). None is selected afterwards.
void fillWithTitles(kvComboBox &combo, const QString &condition, const QString &first = {});

/// Selects what the combo's text begins, see `SelectComboEntry`. False where it begins none: the user was told
/// `message`, and the focus is there.
[[nodiscard]] bool requireEntry(kvComboBox &combo, const QString &message);
