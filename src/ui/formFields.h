#pragma once

#include <QList>
#include <QString>

#include <utility>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QWidget;

/// The label of a field, to stand before it: its access key, if `caption` has one, goes to the field, and so does its
/// text as accessible name (see `nameAloud`).
[[nodiscard]] QLabel *captionOf(QWidget *field, const QString &caption);

/// A row of a grid of labels and fields: the label in the first column, the field in the second.
void addField(QGridLayout &grid, int row, const QString &caption, QWidget *field);

/// Fields side by side, each behind its caption, with a gap before the next.
[[nodiscard]] QHBoxLayout *captionedRow(const QList<std::pair<QString, QWidget *>> &fields);

/// A smaller line that explains what stands above it; it takes as many lines as it needs.
[[nodiscard]] QLabel *hintLabel(const QString &text);

/// What a screen reader says for `control`: the caption without its signs. A control that stands for another one, being
/// its focus proxy, passes it on.
void nameAloud(QWidget *control, const QString &caption);

/// A box that the screen alone fills can't be typed in, and looks so.
void showOnly(QLineEdit &box);

/// Tab goes through the controls in this order.
void chainTabs(const QList<QWidget *> &order);
