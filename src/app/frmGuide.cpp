#include "app/frmGuide.h"

#include "app/guideChapters.h"
#include "ui/formFields.h"
#include "ui/theme.h"

#include <QAbstractTextDocumentLayout>
#include <QBoxLayout>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>

using namespace Qt::StringLiterals;

namespace {

constexpr int findWidth = 220;
constexpr int gapBefore = 20;
constexpr double letterSize = 1.1;

QString guideText()
{
    QFile file(u":/guide/guide.md"_s);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression picture(u"^ *!\\[.*\\]\\(.*\\) *$"_s, QRegularExpression::MultilineOption);
    return QString::fromUtf8(file.readAll()).remove(picture);
}

void dressTables(QTextDocument &document)
{
    const auto frames = document.rootFrame()->childFrames();
    for (QTextFrame *frame : frames) {
        auto *table = qobject_cast<QTextTable *>(frame);
        if (!table)
            continue;
        QTextTableFormat form = table->format();
        form.setBorderCollapse(true);
        form.setBorder(1);
        form.setBorderBrush(theme::boxOutline());
        form.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        form.setCellSpacing(0);
        form.setCellPadding(5);
        form.setTopMargin(8);
        form.setBottomMargin(8);
        table->setFormat(form);
    }
}

/// The title of the guide stands for its introduction.
bool isChapter(const QTextBlock &block)
{
    const int level = block.blockFormat().headingLevel();
    return level == 1 || level == 2;
}

} // namespace

frmGuide::frmGuide() : Screen(u"frmGuide"_s, u"Guide"_s)
{
    buildForm();
    connectKeys();
    fillChapters();
    m_text->setFocus();
}

void frmGuide::buildForm()
{
    m_text = new QTextBrowser;
    m_text->setObjectName(u"text"_s);
    nameAloud(m_text, windowTitle());
    QFont letters = m_text->font();
    letters.setPointSizeF(letters.pointSizeF() * letterSize);
    m_text->setFont(letters);
    m_text->document()->setDocumentMargin(16);
    m_text->setMarkdown(guideText());
    dressTables(*m_text->document());
    // What is found is seen while one types on in the field.
    QPalette colours = m_text->palette();
    colours.setColor(QPalette::Inactive, QPalette::Highlight, theme::accent());
    colours.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::white);
    m_text->setPalette(colours);

    m_chapters = new QListWidget;
    m_chapters->setObjectName(u"chapters"_s);
    m_chapters->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    nameAloud(m_chapters, u"Chapters"_s);

    txtFind = new QLineEdit;
    txtFind->setObjectName(u"txtFind"_s);
    txtFind->setFixedWidth(findWidth);
    txtFind->installEventFilter(this);
    lblFound = new QLabel;
    lblFound->setObjectName(u"lblFound"_s);
    m_find = new QWidget;
    auto *findRow = new QHBoxLayout(m_find);
    findRow->setContentsMargins({});
    findRow->addWidget(captionOf(txtFind, u"Find :"_s));
    findRow->addWidget(txtFind);
    findRow->addWidget(lblFound);
    findRow->addStretch();
    m_find->hide();

    auto *keys = hintLabel(u"Arrows and Page keys move the text, Ctrl+F finds a word, Esc closes the guide."_s);
    auto *row = new QHBoxLayout;
    row->addWidget(m_chapters);
    row->addWidget(m_text, 1);
    auto *whole = new QVBoxLayout(this);
    whole->addLayout(row, 1);
    whole->addWidget(m_find);
    whole->addWidget(keys);
    resize(1040, 660);
    chainTabs({m_text, m_chapters, txtFind});
}

void frmGuide::connectKeys()
{
    connect(m_chapters, &QListWidget::currentRowChanged, this, &frmGuide::goToChapter);
    connect(txtFind, &QLineEdit::textEdited, this, [this] { find(false, true); });
    onKey(Qt::CTRL | Qt::Key_F, u"Find a word"_s, [this] { openFind(); });
    onKey(Qt::Key_F3, u"Find it again"_s, [this] { find(false, false); });
    onKey(
        Qt::Key_Escape, u"Leave the search"_s, [this] { leaveFind(); }, [this] { return m_find->isVisible(); });
    onKey(Qt::Key_F1, u"To the beginning"_s, [this] { goToChapter(0); });
}

void frmGuide::fillChapters()
{
    for (QTextBlock block = m_text->document()->begin(); block.isValid(); block = block.next()) {
        if (!isChapter(block))
            continue;
        auto *chapter = new QListWidgetItem(block.text(), m_chapters);
        chapter->setData(Qt::UserRole, block.blockNumber());
        QTextBlockFormat form = block.blockFormat();
        form.setTopMargin(gapBefore);
        QTextCursor(block).setBlockFormat(form);
    }
    m_chapters->setFixedWidth(m_chapters->sizeHintForColumn(0) + m_chapters->verticalScrollBar()->sizeHint().width()
        + 2 * m_chapters->frameWidth());
}

void frmGuide::ShowFor(const QString &screen)
{
    const auto found = m_chapters->findItems(guideChapters().value(screen), Qt::MatchExactly);
    m_first = found.isEmpty() ? 0 : m_chapters->row(found.constFirst());
    exec();
}

/// Where a chapter stands is known once the text has its width.
void frmGuide::activated()
{
    layout()->activate();
    if (m_chapters->currentRow() == m_first)
        goToChapter(m_first);
    m_chapters->setCurrentRow(m_first);
}

void frmGuide::goToChapter(int row)
{
    const QListWidgetItem *chapter = m_chapters->item(row);
    if (!chapter)
        return;
    const QTextBlock block = m_text->document()->findBlockByNumber(chapter->data(Qt::UserRole).toInt());
    m_text->setTextCursor(QTextCursor(block));
    const double top = m_text->document()->documentLayout()->blockBoundingRect(block).top();
    m_text->verticalScrollBar()->setValue(row == 0 ? 0 : qRound(top));
}

void frmGuide::openFind()
{
    lblFound->clear();
    m_find->show();
    txtFind->selectAll();
    txtFind->setFocus(Qt::OtherFocusReason);
}

void frmGuide::leaveFind()
{
    m_text->setFocus(Qt::OtherFocusReason);
    m_find->hide();
}

bool frmGuide::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto &key = *static_cast<QKeyEvent *>(event);
    const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    const bool isBack = key.key() == Qt::Key_Up || (isEnter && key.modifiers() & Qt::ShiftModifier);
    if (isBack || isEnter || key.key() == Qt::Key_Down) {
        find(isBack, false);
        return true;
    }
    return false;
}

/// `anew` looks from where the search stands, so that a word grows where it was found; else behind it. Round the ends.
void frmGuide::find(bool backward, bool anew)
{
    const QString sought = txtFind->text();
    QTextCursor from = m_text->textCursor();
    if (anew)
        from.setPosition(from.selectionStart());
    const auto flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    const QTextDocument &guide = *m_text->document();
    QTextCursor found = guide.find(sought, from, flags);
    if (found.isNull() && !sought.isEmpty()) {
        from.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
        found = guide.find(sought, from, flags);
    }
    const bool isMissing = found.isNull() && !sought.isEmpty();
    lblFound->setText(isMissing ? u"Not found"_s : QString());
    if (!found.isNull())
        m_text->setTextCursor(found);
}
