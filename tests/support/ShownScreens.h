#pragma once

#include <QObject>
#include <QSet>
#include <QStringList>

class Screen;

/// Looks at each screen of the program that any test shows, when it comes, when it is drawn and when it goes, and
/// warns, which fails the test, of a control that a screen reader has no name for, of a caption that is cut or lies
/// over another control, of a list that does not say why it is empty, of a key that stands for two things or is not
/// told by Ctrl+/, and of a command that saves or prints and that Ctrl+S or Ctrl+P does not give. Screens that tests
/// make themselves end in "Screen".
class ShownScreens : public QObject {
public:
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// Those of `screens` that were never shown.
    [[nodiscard]] QStringList missing(QStringList screens) const;

private:
    void lookAt(const Screen &screen);

    QSet<QString> m_seen;
};
