#include "app/MorningGlance.h"

#include "app/glanceLines.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "base/values.h"
#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "ui/Command.h"
#include "ui/Screen.h"
#include "ui/fieldTip.h"
#include "ui/frmMsg.h"
#include "ui/workingDate.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using glanceLines::sources;

namespace {

constexpr int distance = 16;

std::vector<quint64> stampsOf(const glanceLines::Source &source)
{
    std::vector<quint64> stamps;
    for (const QByteArray &table : source.tables)
        stamps.push_back(DE().CN.writeStamp(table));
    return stamps;
}

/// Alt and a digit reach nine.
QString numbered(size_t place)
{
    return place < 10 ? u'&' + QString::number(place) : QString();
}

/// Keeps the room of one, so that all lines begin at the same place.
QIcon noIcon()
{
    constexpr int side = 16;
    QPixmap nothing(side, side);
    nothing.fill(Qt::transparent);
    return QIcon(nothing);
}

glanceLines::Line failed(const RuntimeError &error)
{
    constexpr qsizetype longest = 60;
    QString reason = error.text().simplified();
    if (reason.size() > longest)
        reason = reason.left(longest).trimmed() + u'…';
    return {.text = u"This cannot be read: "_s + reason.replace(u'&', u"&&"_s),
        .open = [report = error.report()] { ShowMessage(report); }};
}

} // namespace

MorningGlance::MorningGlance(QWidget *parent) : QFrame(parent)
{
    setObjectName(u"morningGlance"_s);
    hide();
    buildForm();
    move(distance, distance);
    m_turn.setSingleShot(true);
    connect(&m_turn, &QTimer::timeout, this, &MorningGlance::readOn);
    connect(cmdHide, &Command::clicked, this, &MorningGlance::toggle);
}

void MorningGlance::buildForm()
{
    lblDay = new QLabel;
    lblDay->setObjectName(u"lblDay"_s);
    QFont bold = lblDay->font();
    bold.setWeight(QFont::DemiBold);
    lblDay->setFont(bold);
    cmdHide = new Command(u"cmdHide"_s, u"Hide"_s);
    cmdHide->setToolTip(u"Ctrl+G hides it and shows it again."_s);
    auto *head = new QHBoxLayout;
    head->addWidget(lblDay, 1);
    head->addSpacing(distance);
    head->addWidget(cmdHide);
    auto *form = new QVBoxLayout(this);
    form->setSpacing(2);
    form->setSizeConstraint(QLayout::SetFixedSize);
    form->addLayout(head);
    for (const glanceLines::Source &source : sources()) {
        m_readings.push_back({.firstLine = m_lines.size()});
        for (const QString &name : source.names) {
            const size_t line = m_lines.size();
            m_lines.push_back({.command = new Command(name, numbered(m_lines.size() + 1))});
            form->addWidget(m_lines.back().command);
            connect(m_lines.back().command, &Command::clicked, this, [this, line] { emit chosen(m_lines[line].open); });
        }
    }
}

void MorningGlance::lookAgain()
{
    if (!settingIsOn(setting::ShowMorningGlance)) {
        m_turn.stop();
        return hide();
    }
    for (size_t number = 0; number < m_readings.size(); ++number) {
        if (m_readings[number].hasFailed || sources()[number].tables.isEmpty())
            m_readings[number].day = {};
    }
    m_turn.start(0);
}

void MorningGlance::toggle()
{
    const bool wasOn = settingIsOn(setting::ShowMorningGlance);
    SaveSetting(setting::ShowMorningGlance, wasOn ? u"0"_s : u"1"_s);
    lookAgain();
    if (wasOn)
        window()->setFocus();
}

void MorningGlance::readOn()
{
    // It comes back to the front in time.
    if (Screen::front() != window())
        return;
    for (size_t number = 0; number < m_readings.size(); ++number) {
        if (isAsRead(number))
            continue;
        read(number);
        return m_turn.start(0);
    }
    numberLines();
    workingDate::mark(*lblDay);
    lblDay->setText(u"Morning glance, "_s + DayMonthYear(session::CurrentDate));
    show();
    raise();
}

bool MorningGlance::isAsRead(size_t number) const
{
    const Reading &reading = m_readings[number];
    return reading.day == session::CurrentDate && reading.stamps == stampsOf(sources()[number]);
}

void MorningGlance::read(size_t number)
{
    const glanceLines::Source &source = sources()[number];
    Reading &reading = m_readings[number];
    reading.day = session::CurrentDate;
    std::vector<glanceLines::Line> lines;
    QString fault;
    try {
        lines = source.read(session::CurrentDate);
    } catch (const RuntimeError &error) {
        fault = plainTip(error.report());
        lines.assign(static_cast<size_t>(source.names.size()), failed(error));
    }
    reading.hasFailed = !fault.isEmpty();
    // As it is now: a reading may notice that another program has written.
    reading.stamps = stampsOf(source);
    for (size_t i = 0; i < lines.size(); ++i) {
        Entry &entry = m_lines[reading.firstLine + i];
        entry.open = lines[i].open;
        entry.text = lines[i].text;
        entry.command->setIcon(lines[i].isSomething && !lines[i].icon.isNull() ? lines[i].icon : noIcon());
        entry.command->setToolTip(fault);
    }
}

void MorningGlance::numberLines()
{
    size_t place = 0;
    for (const Entry &entry : m_lines) {
        entry.command->setVisible(!entry.text.isEmpty());
        if (!entry.text.isEmpty())
            entry.command->setText(numbered(++place) + u"   "_s + entry.text);
    }
}
