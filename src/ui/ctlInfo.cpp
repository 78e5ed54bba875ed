#include "ui/ctlInfo.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int pictureSize = 24;

} // namespace

ctlInfo::ctlInfo(QWidget *parent) : QFrame(parent), m_picture(new QLabel), m_text(new QLabel)
{
    setObjectName(u"ctlInfo"_s);
    m_picture->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(pictureSize));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    auto *row = new QHBoxLayout(this);
    row->addWidget(m_picture, 0, Qt::AlignTop);
    row->addWidget(m_text, 1);
    hide();
}

void ctlInfo::ShowInfo(const QString &text)
{
    m_text->setText(text);
    show();
    raise();
}

void ctlInfo::HideInfo()
{
    hide();
}

void ctlInfo::mousePressEvent(QMouseEvent *)
{
    HideInfo();
}
