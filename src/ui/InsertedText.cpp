#include "ui/InsertedText.h"

#include "base/values.h"
#include "ui/entryKeys.h"
#include "ui/fieldTip.h"

#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// As much of a refused text as its tip shows.
constexpr int shownLetters = 40;

/// A stretch of one text in the place of a stretch of the other.
struct Change {
    qsizetype at;
    qsizetype removed;
    qsizetype inserted;
};

/// The least change from `before` to what `line` reads, whose caret stands behind it.
Change changeOf(const QLineEdit &line, const QString &before)
{
    const QString now = line.text();
    const qsizetype caret = line.cursorPosition();
    const qsizetype behind = now.size() - caret;
    const auto most = std::max<qsizetype>(0, std::min(caret, before.size() - behind));
    const auto at = std::mismatch(now.begin(), now.begin() + most, before.begin()).first - now.begin();
    return {at, std::max<qsizetype>(0, before.size() - behind - at), caret - at};
}

} // namespace

InsertedText::InsertedText(QLineEdit *line, Rule rule)
    : QObject(line), m_line(line), m_rule(std::move(rule)), m_before(line->text())
{
    connect(line, &QLineEdit::textEdited, this, &InsertedText::look);
    // Not the text that the signal tells: a change that was taken back is told after what took its place.
    connect(line, &QLineEdit::textChanged, this, [this] { m_before = m_line->text(); });
}

void InsertedText::look()
{
    if (m_isMending)
        return;
    const QString before = m_before;
    const Change change = changeOf(*m_line, before);
    const QString put = m_line->text().mid(change.at, change.inserted);
    if (m_rule(put, QString(before).remove(change.at, change.removed)) == put)
        return;
    const QScopedValueRollback mending(m_isMending, true);
    const QString inserted = takeBack(*m_line, before);
    QString beside = before;
    if (m_line->hasSelectedText())
        beside.remove(m_line->selectionStart(), m_line->selectedText().size());
    if (const auto made = m_rule(inserted, beside))
        m_line->insert(*made);
    else
        refuseNumber(*(m_line->focusProxy() ? m_line->focusProxy() : m_line), inserted);
}

QString takeBack(QLineEdit &line, const QString &before)
{
    const Change change = changeOf(line, before);
    const QString now = line.text();
    line.undo();
    if (line.text() != before) {
        // What was typed just before went with it.
        line.selectAll();
        line.insert(before);
        line.setSelection(static_cast<int>(change.at), static_cast<int>(change.removed));
    }
    const int at = line.hasSelectedText() ? line.selectionStart() : line.cursorPosition();
    return now.mid(at, now.size() - before.size() + line.selectedText().size());
}

std::optional<QString> numberFor(
    const QString &inserted, const QString &beside, const std::function<int(const QString &text, int key)> &accept)
{
    const auto couldBeTyped = [&](const QString &text) {
        QString typed = beside;
        return std::ranges::all_of(text, [&](QChar character) {
            const int key = character.unicode();
            const bool passes = key >= keys::Blank && accept(typed, key) == key;
            typed += character;
            return passes;
        });
    };
    if (couldBeTyped(inserted))
        return inserted;
    const QString number = numberIn(inserted);
    return !number.isEmpty() && couldBeTyped(number) ? std::optional(number) : std::nullopt;
}

void refuseNumber(QWidget &field, const QString &text)
{
    const QString line = text.simplified();
    const QString shown = line.size() > shownLetters ? line.left(shownLetters) + u'…' : line;
    showFieldTip(field, u"\"%1\" is not a number that fits here."_s.arg(shown));
}
