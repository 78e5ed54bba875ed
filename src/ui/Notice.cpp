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
    // One that lingers would stand under it.
    delete screen->findChild<QLabel *>(u"notice"_s, Qt::FindDirectChildrenOnly);
    m_label = new QLabel(what, screen);
    m_label->setObjectName(u"notice"_s);
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
