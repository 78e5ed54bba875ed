#pragma once

#include <QObject>

/// Looks at each screen of the program that any test shows, and warns, which fails the test, of each control in it that
/// can have the focus and that a screen reader has no name for. Screens that tests make themselves end in "Screen".
class NamelessControls : public QObject {
public:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
