#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

class QLineEdit;
class QWidget;

/// Looks at what comes into a line in another way than by keys: pasted, dropped or brought by its menu. Belongs to its
/// line.
class InsertedText : public QObject {
public:
    /// What becomes of `inserted` with `beside` around it; none where it is refused: the line stays as it was then, and
    /// a tip tells so. Undoing brings back what stood there before.
    using Rule = std::function<std::optional<QString>(const QString &inserted, const QString &beside)>;
    InsertedText(QLineEdit *line, Rule rule);

private:
    void look();

    QLineEdit *m_line;
    Rule m_rule;
    QString m_before;
    bool m_isMending = false;
};

/// Takes back the last change of `line`, which then reads `before` again, with the selection that it had. Returns what
/// the change had put in its place.
QString takeBack(QLineEdit &line, const QString &before);

/// The rule of a field for numbers, whose keys `accept` returns as they are when they may be typed beside a text: what
/// could have been typed stays, of any other text the number that it names (see `numberIn`) if that could have been.
[[nodiscard]] std::optional<QString> numberFor(
    const QString &inserted, const QString &beside, const std::function<int(const QString &text, int key)> &accept);

/// Tells that `text` is none for a field that takes numbers.
void refuseNumber(QWidget &field, const QString &text);
