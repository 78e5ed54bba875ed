#include "ui/frmMsg.h"

#include "ui/Command.h"
#include "ui/language.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextOption>

using namespace Qt::StringLiterals;

namespace {

constexpr int leastWidth = 310;
constexpr int margin = 17;

QString lines(QString text)
{
    return text.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
}

QTextOption wrapping()
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

/// A label that also breaks a word, where it is longer than a line: the path of a file, for one.
class MessageLabel : public QLabel {
public:
    /// Size of the text in lines of at most `width` pixels.
    [[nodiscard]] QSize textSize(int width) const
    {
        QPixmap paper(1, 1);
        QPainter painter(&paper);
        painter.setFont(font());
        return painter.boundingRect(QRectF(0, 0, width, QWIDGETSIZE_MAX), lines(text()), wrapping())
            .toAlignedRect()
            .size();
    }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).drawText(QRectF(rect()), lines(text()), wrapping()); }
};

} // namespace

frmMsg::frmMsg() : Screen(u"frmMsg"_s, u"The Corvane"_s)
{
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    buildForm();
    connect(cmdOK, &Command::clicked, this, [this] { finish(1); });
    connect(cmdYes, &Command::clicked, this, [this] { finish(1); });
    connect(cmdNo, &Command::clicked, this, [this] { finish(0); });
    onKey(Qt::Key_Y, u"Yes"_s, [this] { cmdYes->trigger(); });
    onKey(Qt::Key_N, u"No"_s, [this] { cmdNo->trigger(); });
    onKey(Qt::Key_PageDown, u"On in a long text"_s, [this] { scroll(QAbstractSlider::SliderPageStepAdd); });
    onKey(Qt::Key_PageUp, u"Back in a long text"_s, [this] { scroll(QAbstractSlider::SliderPageStepSub); });
}

void frmMsg::buildForm()
{
    lblTitle = new QLabel(u"Information"_s);
    lblTitle->setObjectName(u"lblTitle"_s);
    lblMsg = new MessageLabel;
    lblMsg->setObjectName(u"lblMsg"_s);
    lblMsg->setTextFormat(Qt::PlainText);
    m_textArea = new QScrollArea;
    m_textArea->setFrameShape(QFrame::NoFrame);
    m_textArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_textArea->setFocusPolicy(Qt::NoFocus);
    m_textArea->setWidget(lblMsg);
    cmdOK = new Command(u"cmdOK"_s, u"Ok"_s);
    cmdYes = new Command(u"cmdYes"_s, u"&Yes"_s);
    cmdNo = new Command(u"cmdNo"_s, u"&No"_s);

    auto *commands = new QHBoxLayout;
    commands->addStretch();
    commands->addWidget(cmdYes);
    commands->addWidget(cmdNo);
    commands->addWidget(cmdOK);
    auto *form = new QVBoxLayout(this);
    form->setContentsMargins(margin, margin, margin, margin);
    form->setSpacing(margin);
    form->addWidget(lblTitle);
    form->addWidget(m_textArea);
    form->addLayout(commands);
    form->setSizeConstraint(QLayout::SetFixedSize);
}

void frmMsg::ShowMessage(const QString &text, int mode, int &result)
{
    Result = 0;
    SetEngFont(*lblMsg, text);
    SetEngFont(*cmdOK, u"Ok"_s);
    layOut(mode);
    exec();
    result = Result;
}

void frmMsg::ShowHindiMessage(const QString &text, int &result)
{
    Result = 0;
    if (const auto hindi = LanguageTable().hindi(text)) {
        SetHindiFont(*lblMsg, *hindi);
        SetHindiFont(*cmdOK, u"Bhd gS"_s);
        SetHindiFont(*cmdYes, u"gk"_s);
        SetHindiFont(*cmdNo, u"ugh"_s);
    } else {
        SetEngFont(*lblMsg, text);
        SetEngFont(*cmdOK, u"Ok"_s);
    }
    layOut(Information);
    exec();
    result = Result;
}

void frmMsg::layOut(int mode)
{
    const bool question = mode == Question;
    cmdOK->setVisible(!question);
    cmdYes->setVisible(question);
    cmdNo->setVisible(question);
    Command *const expected = question ? cmdYes : cmdOK;
    expected->setDefault(true);
    expected->setFocus();

    // The label grows with its text up to half the screen's width; from two thirds of its height on it scrolls.
    const Screen *const below = front();
    const QSize room = (below ? below->screen() : screen())->availableGeometry().size();
    lblMsg->ensurePolished();
    const QSize text = static_cast<MessageLabel *>(lblMsg)->textSize(room.width() / 2);
    lblMsg->setFixedSize(qMax(leastWidth - 2 * margin, text.width() + 1), text.height());
    const int tallest = room.height() * 2 / 3;
    const int barWidth = text.height() > tallest ? m_textArea->verticalScrollBar()->sizeHint().width() : 0;
    m_textArea->setFixedSize(lblMsg->width() + barWidth, qMin(text.height(), tallest));
}

void frmMsg::scroll(QAbstractSlider::SliderAction step)
{
    m_textArea->verticalScrollBar()->triggerAction(step);
}

void frmMsg::finish(int result)
{
    Result = result;
    accept();
}

void ShowMessage(const QString &text, int mode, int &result)
{
    frmMsg().ShowMessage(text, mode, result);
}

void ShowMessage(const QString &text)
{
    int answer = 0;
    ShowMessage(text, frmMsg::Information, answer);
}

int AskUser(const QString &text, int mode)
{
    int answer = 0;
    ShowMessage(text, mode, answer);
    return answer;
}
