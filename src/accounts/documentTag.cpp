#include "accounts/documentTag.h"

QString DocumentTag::text() const
{
    return QString::number(number) + u'|' + QString::number(kind);
}

std::optional<DocumentTag> DocumentTag::of(const QString &text)
{
    const qsizetype bar = text.indexOf(u'|');
    if (bar < 0)
        return {};
    return DocumentTag{text.first(bar).toInt(), text.sliced(bar + 1).toInt()};
}
