#include "ui/Notice.h"

#include "ui/Screen.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int lingerMilliseconds = 1500;

} // namespace

Notice::Notice(const QString &what)
{
    Screen *const screen = Screen::front();
    if (!screen)
        return;
    const auto name = u"notice"_s;
    // One that lingers gives way.
    delete screen->findChild<QLabel *>(name, Qt::FindDirectChildrenOnly);
    m_label = new QLabel(what, screen);
    m_label->setObjectName(name);
    m_label->setTextFormat(Qt::PlainText);
    m_label->adjustSize();
    QRect place = m_label->rect();
    place.moveCenter(screen->rect().center());
    m_label->setGeometry(place);
    m_label->show();
    // What a question has covered before it closed is drawn, too; keys wait.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

Notice::~Notice()
{
    if (m_label && m_lingers)
        QTimer::singleShot(lingerMilliseconds, m_label, &QObject::deleteLater);
    else
        delete m_label;
}

void Notice::linger()
{
    m_lingers = true;
}
