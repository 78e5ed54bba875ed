#include "app/frmAbout.h"

#include "app/defaultWallpaper.h"
#include "base/session.h"
#include "ui/Command.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

QLabel *named(const QString &name, const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(name);
    return label;
}

} // namespace

frmAbout::frmAbout() : Screen(u"frmAbout"_s, u"About"_s)
{
    constexpr int signSide = 96;
    auto *sign = new QLabel;
    sign->setPixmap(programSign(signSide));
    auto *Command1 = new Command(u"Command1"_s, u"Close"_s);
    Command1->setDefault(true);

    auto *form = new QGridLayout(this);
    form->setContentsMargins(28, 24, 28, 24);
    form->setHorizontalSpacing(24);
    form->addWidget(sign, 0, 0, 5, 1, Qt::AlignTop);
    form->addWidget(named(u"lblTitle"_s, u"Corvane"_s), 0, 1);
    form->addWidget(
        named(u"lblAppVer"_s, u"Version : %1.%2"_s.arg(CORVANE_VERSION_MAJOR).arg(CORVANE_VERSION_MINOR)), 1, 1);
    form->addWidget(named(u"lblDBVer"_s, u"Database Version : %1"_s.arg(session::SupportedDatabaseVersion)), 2, 1);
    form->addWidget(named(u"lblInfo"_s, u"Build Date : "_s + u"25-Oct-2012"_s), 3, 1);
    form->addWidget(named(u"lblFieldLabel"_s, u"www.corvane.example\nmail@corvane.example"_s), 4, 1);
    form->setRowMinimumHeight(5, 6);
    form->addWidget(Command1, 6, 1, Qt::AlignRight);
    form->setColumnMinimumWidth(1, 300);
    form->setSizeConstraint(QLayout::SetFixedSize);

    connect(Command1, &Command::clicked, this, &QDialog::accept);
}
