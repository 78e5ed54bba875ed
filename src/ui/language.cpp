#include "ui/language.h"

#include "base/session.h"
#include "store/Recordset.h"

#include <QHeaderView>
#include <QTreeView>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace {

void showText(QWidget &control, const QString &text, const QFont &font)
{
    control.setFont(font);
    if (control.isWindow())
        control.setWindowTitle(text);
    else
        control.setProperty("text", text);
}

} // namespace

QString hindiFamily()
{
    return u"Kruti Dev 010"_s;
}

LanguageTable::LanguageTable()
{
    m_file.openPlain(session::programPath(u"Lang.mdb"));
}

std::optional<QString> LanguageTable::hindi(const QString &english)
{
    Recordset messages(m_file);
    messages.open(u"Select * from messages where EngMessage='%1'"_s.arg(jetsql::quoted(english)));
    if (messages.eof())
        return {};
    return messages.textOrEmpty(u"HindiMessage");
}

void SetEngFont(QWidget &control, const QString &text)
{
    showText(control, text, QFont(u"MS Sans Serif"_s, 8));
}

void SetHindiFont(QWidget &control, const QString &text)
{
    showText(control, text, hindiFont());
}

QFont hindiFont()
{
    return QFont(hindiFamily(), 12);
}

void TranslateForm(QWidget &) { }

void ChangeHeaderFont(QTreeView &listView, const QTreeView &fontSource, bool)
{
    listView.header()->setFont(fontSource.header()->font());
}
