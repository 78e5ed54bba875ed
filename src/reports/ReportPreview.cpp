#include "reports/ReportPreview.h"

#include "reports/PageView.h"
#include "reports/reportOutput.h"
#include "ui/Command.h"
#include "ui/formFields.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QScreen>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int signWidth = 30;
constexpr std::array zoomPercents{25, 50, 75, 100, 125, 150, 200, 300, 400};
/// Places of the entries of the zoom box that are no percentages.
enum ZoomEntry { WholePage, PageWidth, FirstPercent };

/// A narrow command that shows a sign; `meaning` is read out and shown as its tool tip.
Command *signCommand(const QString &name, const QString &sign, const QString &meaning)
{
    auto *command = new Command(name, sign);
    command->setAccessibleName(meaning);
    command->setToolTip(meaning);
    command->setStyleSheet(u"min-width: %1px; max-width: %1px; padding-left: 0; padding-right: 0;"_s.arg(signWidth));
    return command;
}

} // namespace

ReportPreview::ReportPreview(const ReportPages &pages) : Screen(u"ReportPreview"_s, u"Print Preview"_s), m_pages(pages)
{
    buildForm();
    connectCommands();
    showState();
}

void ReportPreview::buildForm()
{
    m_view = new PageView(u"pages"_s, m_pages);
    nameAloud(m_view, u"Pages"_s);

    cmdFirst = signCommand(u"cmdFirst"_s, u"\u00ab"_s, u"First page (Home)"_s);
    cmdPrevious = signCommand(u"cmdPrevious"_s, u"\u2039"_s, u"Previous page (Ctrl+Page Up)"_s);
    lblPage = new QLabel;
    lblPage->setObjectName(u"lblPage"_s);
    lblPage->setAlignment(Qt::AlignCenter);
    lblPage->setMinimumWidth(lblPage->fontMetrics().horizontalAdvance(u"Page 888 of 888"_s));
    cmdNext = signCommand(u"cmdNext"_s, u"\u203a"_s, u"Next page (Ctrl+Page Down)"_s);
    cmdLast = signCommand(u"cmdLast"_s, u"\u00bb"_s, u"Last page (End)"_s);
    cmdZoomOut = signCommand(u"cmdZoomOut"_s, u"\u2212"_s, u"Smaller (-)"_s);
    cmbZoom = new QComboBox;
    cmbZoom->setObjectName(u"cmbZoom"_s);
    cmbZoom->setAccessibleName(u"Zoom"_s);
    cmbZoom->addItem(u"Whole Page"_s);
    cmbZoom->addItem(u"Page Width"_s);
    for (const int percent : zoomPercents)
        cmbZoom->addItem(QString::number(percent) + u'%');
    cmbZoom->setCurrentIndex(WholePage);
    cmdZoomIn = signCommand(u"cmdZoomIn"_s, u"+"_s, u"Larger (+)"_s);
    cmdSavePdf = new Command(u"cmdSavePdf"_s, u"&Save as PDF"_s);
    cmdClose = new Command(u"cmdClose"_s, u"&Close"_s);
    cmdPrint = new Command(u"cmdPrint"_s, u"&Print"_s);
    cmdPrint->setDefault(true);

    auto *reading = new QHBoxLayout;
    for (QWidget *control : std::initializer_list<QWidget *>{cmdFirst, cmdPrevious, lblPage, cmdNext, cmdLast})
        reading->addWidget(control);
    reading->addSpacing(16);
    for (QWidget *control : std::initializer_list<QWidget *>{cmdZoomOut, cmbZoom, cmdZoomIn})
        reading->addWidget(control);
    reading->addStretch();
    auto *commands = new QHBoxLayout;
    commands->addStretch();
    for (Command *command : {cmdClose, cmdSavePdf, cmdPrint})
        commands->addWidget(command);
    auto *bar = new QBoxLayout(QBoxLayout::LeftToRight);
    bar->addLayout(reading);
    bar->addLayout(commands);

    auto *whole = new QVBoxLayout(this);
    whole->addLayout(bar);
    // In two lines on a narrow monitor: nothing is scrolled out of sight.
    if (whole->minimumSize().width() > screen()->availableGeometry().width())
        bar->setDirection(QBoxLayout::TopToBottom);
    whole->addWidget(m_view, 1);
    useRoom({1060, 690});
    m_view->setFocus();
}

void ReportPreview::connectCommands()
{
    connect(m_view, &PageView::changed, this, &ReportPreview::showState);
    connect(cmdFirst, &Command::clicked, this, [this] { turnTo(1); });
    connect(cmdPrevious, &Command::clicked, this, [this] { turnTo(m_view->currentPage() - 1); });
    connect(cmdNext, &Command::clicked, this, [this] { turnTo(m_view->currentPage() + 1); });
    connect(cmdLast, &Command::clicked, this, [this] { turnTo(m_pages.count()); });
    connect(cmdZoomOut, &Command::clicked, this, [this] { zoomOut(); });
    connect(cmdZoomIn, &Command::clicked, this, [this] { zoomIn(); });
    connect(cmbZoom, &QComboBox::activated, this, &ReportPreview::chooseZoom);
    connect(cmdPrint, &Command::clicked, this, [this] { reportOutput::askAndPrint(m_pages, this); });
    connect(cmdSavePdf, &Command::clicked, this, [this] { reportOutput::saveAsPdf(m_pages); });
    connect(cmdClose, &Command::clicked, this, &QDialog::reject);
    saveKey(cmdSavePdf);
    printKey(cmdPrint);

    // In the zoom box they choose.
    const auto outsideZoom = [this] { return !cmbZoom->hasFocus(); };
    onKey(
        Qt::Key_PageDown, u"Read on"_s, [this] { m_view->readOn(); }, outsideZoom);
    onKey(
        Qt::Key_PageUp, u"Read back"_s, [this] { m_view->readBack(); }, outsideZoom);
    onKey(Qt::CTRL | Qt::Key_PageDown, u"Next page"_s, [this] { turnTo(m_view->currentPage() + 1); });
    onKey(Qt::CTRL | Qt::Key_PageUp, u"Previous page"_s, [this] { turnTo(m_view->currentPage() - 1); });
    onKey(
        Qt::Key_Home, u"First page"_s, [this] { turnTo(1); }, outsideZoom);
    onKey(
        Qt::Key_End, u"Last page"_s, [this] { turnTo(m_pages.count()); }, outsideZoom);
    onKey(
        Qt::Key_Plus, u"Larger"_s, [this] { zoomIn(); }, outsideZoom);
    onKey(
        Qt::Key_Minus, u"Smaller"_s, [this] { zoomOut(); }, outsideZoom);
}

void ReportPreview::turnTo(int number)
{
    m_view->setCurrentPage(number);
}

/// To the next percentage that can be chosen.
void ReportPreview::zoomIn()
{
    const auto next = std::ranges::upper_bound(zoomPercents, shownPercent());
    if (next != zoomPercents.end())
        m_view->setZoomFactor(*next / 100.0);
}

void ReportPreview::zoomOut()
{
    const auto next = std::ranges::lower_bound(zoomPercents, shownPercent());
    if (next != zoomPercents.begin())
        m_view->setZoomFactor(*std::prev(next) / 100.0);
}

int ReportPreview::shownPercent() const
{
    return qRound(m_view->zoomFactor() * 100);
}

void ReportPreview::chooseZoom(int entry)
{
    if (entry == WholePage)
        m_view->setFit(PageView::Fit::Page);
    else if (entry == PageWidth)
        m_view->setFit(PageView::Fit::Width);
    else
        m_view->setZoomFactor(zoomPercents.at(static_cast<size_t>(entry - FirstPercent)) / 100.0);
}

void ReportPreview::showState()
{
    const int number = m_view->currentPage();
    lblPage->setText(u"Page %1 of %2"_s.arg(number).arg(m_pages.count()));
    cmdFirst->setEnabled(number > 1);
    cmdPrevious->setEnabled(number > 1);
    cmdNext->setEnabled(number < m_pages.count());
    cmdLast->setEnabled(number < m_pages.count());
    if (m_view->fit() == PageView::Fit::Percent) {
        cmbZoom->setCurrentIndex(cmbZoom->findText(QString::number(shownPercent()) + u'%'));
    }
}
