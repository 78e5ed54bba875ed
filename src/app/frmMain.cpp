#include "app/frmMain.h"

#include "app/MorningGlance.h"
#include "app/SafetyCopier.h"
#include "app/WallArea.h"
#include "app/frmAbout.h"
#include "app/frmLogin.h"
#include "app/frmMasters.h"
#include "app/frmMenu.h"
#include "app/frmOpenJob.h"
#include "app/frmSettings.h"
#include "app/frmShopINFO.h"
#include "app/menuColumn.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "base/values.h"
#include "jobcards/frmEditJOB.h"
#include "registers/frmWorkerJobRegister.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/NameLabel.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/language.h"
#include "ui/theme.h"
#include "ui/workingDate.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int minute = 60 * 1000;
constexpr QColor warningOnAccent(0xff, 0xe0, 0x8a);

void fill(QWidget &strip, const QColor &background)
{
    QPalette colours = strip.palette();
    colours.setColor(QPalette::Window, background);
    strip.setPalette(colours);
    strip.setAutoFillBackground(true);
}

QLabel *coloured(QLabel *label, const QColor &ink)
{
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, ink);
    label->setPalette(colours);
    return label;
}

void enlarge(QLabel &label, double factor)
{
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setWeight(QFont::DemiBold);
    label.setFont(font);
}

} // namespace

frmMain::frmMain()
    : Screen(u"frmMain"_s,
        u"Corvane %1.%2 | www.corvane.example | Made to measure"_s.arg(CORVANE_VERSION_MAJOR)
            .arg(CORVANE_VERSION_MINOR)),
      lblShopName(new NameLabel(u"lblShopName"_s)), TodayDate(new DateField(u"TodayDate"_s)), Picture1(new WallArea),
      lblUser(new QLabel), lblCopies(new NameLabel(u"lblCopies"_s)), lblNotToday(new QLabel(u"is not today"_s)),
      m_copier(new SafetyCopier(this))
{
    setWindowFlags(Qt::Window);
    lblUser->setObjectName(u"lblUser"_s);
    buildForm();
    resize(screen()->availableSize());
    setWindowState(Qt::WindowMaximized);

    connect(TodayDate, &DateField::dateChanged, this, &frmMain::takeDate);
    // Closed without a choice, the calendar confirms the date shown.
    connect(TodayDate, &DateField::calendarClosed, this, [this] {
        if (isVisible())
            takeDate();
    });
    // Midnight passes over a program that is left on.
    auto *clock = new QTimer(this);
    connect(clock, &QTimer::timeout, this, &frmMain::tellIfNotToday);
    clock->start(minute);
    connect(m_copier, &SafetyCopier::failed, this, &frmMain::tellCopyFailed);
    connect(m_copier, &SafetyCopier::made, lblCopies, [this] { lblCopies->setText({}); });
    connect(m_copier, &SafetyCopier::isThere, lblCopies, [this] { lblCopies->setText({}); });
    onKey(Qt::Key_F2, u"Working date"_s, [this] { TodayDate->setFocus(Qt::TabFocusReason); });
    onKey(Qt::Key_F3, u"Find a job card"_s, [this] { leadOn([] { frmOpenJob().exec(); }); });
    onKey(
        Qt::CTRL | Qt::Key_G, u"Show or hide the morning glance"_s, [this] { m_glance->toggle(); },
        [this] { return m_glance != nullptr; });
}

void frmMain::buildForm()
{
    auto *middle = new QHBoxLayout;
    middle->setSpacing(0);
    middle->addWidget(buildCommands());
    middle->addWidget(Picture1, 1);

    auto *form = new QVBoxLayout(this);
    form->setContentsMargins({});
    form->setSpacing(0);
    form->addWidget(buildHead());
    form->addLayout(middle, 1);
    form->addWidget(buildFoot());
    setMinimumSize(800, 600);
}

QWidget *frmMain::buildHead()
{
    auto *head = new QWidget;
    fill(*head, theme::accent());
    coloured(lblShopName, Qt::white);
    enlarge(*lblShopName, 2.1);
    QLabel *caption = coloured(captionOf(TodayDate, u"Working Date (F2)"_s), Qt::white);
    TodayDate->setMinimumWidth(150);
    lblNotToday->setObjectName(u"lblNotToday"_s);
    enlarge(*coloured(lblNotToday, warningOnAccent), 1);

    auto *row = new QHBoxLayout(head);
    row->setContentsMargins(24, 16, 24, 16);
    row->addWidget(lblShopName, 1);
    row->addWidget(caption);
    row->addWidget(TodayDate);
    row->addWidget(lblNotToday);
    return head;
}

QWidget *frmMain::buildCommands()
{
    auto *panel = new QWidget;
    auto *column = new QVBoxLayout(panel);
    column->setContentsMargins(20, 20, 20, 20);
    Command *cmdCreateJOB = menuColumn::add(*column, {"cmdCreateJOB"_L1, "&New Job Card"_L1});
    Command *cmdCreateNewClint = menuColumn::add(*column, {"cmdCreateNewClint"_L1, "&Masters"_L1});
    Command *Command2 = menuColumn::add(*column, {"Command2"_L1, "JOB &Register"_L1});
    Command *Command8 = menuColumn::add(*column, {"Command8"_L1, "Report&s"_L1});
    column->addStretch();
    Command *Command5 = menuColumn::add(*column, {"Command5"_L1, "Shop Info"_L1});
    Command *Command7 = menuColumn::add(*column, {"Command7"_L1, "Settings"_L1});
    Command *Command4 = menuColumn::add(*column, {"Command4"_L1, "&About Corvane"_L1});

    const auto leadsTo = [this](Command *command, void (*next)()) {
        connect(command, &Command::clicked, this, [this, next] { leadOn(next); });
    };
    leadsTo(cmdCreateJOB, [] { frmEditJOB().ShowAddNew(); });
    leadsTo(cmdCreateNewClint, [] { frmMasters().exec(); });
    leadsTo(Command2, [] { frmWorkerJobRegister().exec(); });
    leadsTo(Command8, [] { frmMenu().exec(); });
    leadsTo(Command5, [] { frmShopINFO().exec(); });
    leadsTo(Command7, [] { frmSettings().exec(); });
    leadsTo(Command4, [] { frmAbout().exec(); });
    return panel;
}

QWidget *frmMain::buildFoot()
{
    auto *foot = new QWidget;
    fill(*foot, palette().color(QPalette::Button));
    auto *row = new QHBoxLayout(foot);
    row->setContentsMargins(24, 6, 24, 6);
    row->setSpacing(18);
    row->addWidget(coloured(new QLabel(u"F3  Find a job card"_s), theme::muted()));
    auto *glanceKey = new NameLabel(u"lblGlanceKey"_s);
    glanceKey->setText(u"Ctrl+G  Morning glance"_s);
    row->addWidget(coloured(glanceKey, theme::muted()), 1);
    row->addWidget(lblUser);
    row->addWidget(coloured(lblCopies, theme::warning()), 1);
    for (const QString &text : {u"Help and Support"_s, u"mail@corvane.example"_s})
        row->addWidget(coloured(new QLabel(text), theme::muted()));
    return foot;
}

void frmMain::setVisible(bool visible)
{
    if (visible && !m_loaded) {
        m_loaded = load();
        if (!m_loaded) {
            // It will never be shown, so that no closing takes it away.
            deleteLater();
            return QCoreApplication::exit();
        }
    }
    Screen::setVisible(visible);
}

bool frmMain::load()
{
    TranslateForm(*this);
    if (settingIsOn(setting::UsePasswordLock) && !frmLogin().Login())
        return false;
    SetWall();
    m_copier->begin();
    return true;
}

/// Only now that the screen stands: the start waits for none of it.
void frmMain::addGlance()
{
    m_glance = new MorningGlance(Picture1);
    connect(m_glance, &MorningGlance::chosen, this, &frmMain::leadOn);
    m_glance->lookAgain();
}

void frmMain::tellCopyFailed(const QString &why)
{
    lblCopies->setText(u"No safety copy: "_s + why.simplified());
}

/// What is done next bears the working date that the user sees.
void frmMain::leadOn(const std::function<void()> &next)
{
    if (!hasRefusedDate(*this))
        next();
}

void frmMain::activated()
{
    RefershINFO();
    setFocus();
    if (m_glance)
        m_glance->lookAgain();
}

void frmMain::paintEvent(QPaintEvent *event)
{
    Screen::paintEvent(event);
    if (!std::exchange(m_isPainted, true))
        QTimer::singleShot(0, this, &frmMain::addGlance);
}

void frmMain::RefershINFO()
{
    Recordset &shop = DE().rsSHOP;
    shop.reopen(u"Select * from Shop"_s);
    if (shop.eof()) {
        shop.addNew();
        shop.set(u"Name", u"Kovrel"_s);
        shop.update();
        lblShopName->setText(u"Kovrel"_s);
    } else {
        session::ShopName = shop.text(u"Name");
        const auto take = [&shop](QString &copy, QStringView column) {
            if (!shop.isNull(column))
                copy = shop.text(column);
        };
        take(session::ShopContacts, u"Contacts");
        take(session::ShopAddress1, u"Address1");
        take(session::ShopAddress2, u"Address2");
        take(session::ShopAddress3, u"Address3");
        lblShopName->setText(session::ShopName);
    }
    shop.close();
    if (!TodayDate->refused().isEmpty())
        return;
    // Showing the date is not choosing it: the stored one must outlive a session that follows the machine's date.
    const QSignalBlocker quiet(TodayDate);
    TodayDate->setDate(session::CurrentDate);
    tellIfNotToday();
}

void frmMain::tellIfNotToday()
{
    lblNotToday->setVisible(!workingDate::isToday());
    lblNotToday->setToolTip(workingDate::warning());
    TodayDate->setToolTip(workingDate::warning());
    TodayDate->setAccessibleDescription(workingDate::warning());
}

void frmMain::SetWall()
{
    try {
        const QString file = GetSetting(setting::WallpaperFile);
        if (file.isEmpty())
            Picture1->showDefault();
        else
            Picture1->showFile(file);
    } catch (const RuntimeError &) {
        return;
    }
}

void frmMain::takeDate()
{
    session::CurrentDate = TodayDate->date();
    SaveSetting(setting::WorkingDate, DateText(session::CurrentDate));
    tellIfNotToday();
    if (m_glance)
        m_glance->lookAgain();
}

void frmMain::escapePressed()
{
    if (AskUser(u"Are you sure to exit?"_s) == 1)
        close();
}

void frmMain::done(int result)
{
    Screen::done(result);
    QCoreApplication::exit();
}
