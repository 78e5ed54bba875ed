#include "masters/MasterEditor.h"

#include "base/session.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "ui/Command.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvTextBox.h"
#include "ui/language.h"
#include "ui/theme.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr double hintSize = 0.85;

} // namespace

MasterEditor::MasterEditor(const QString &name, Kind kind)
    : Screen(name), txtName(new kvTextBox(u"txtName"_s)), Command1(new Command(u"Command1"_s, u"&Save"_s)),
      Command2(new Command(u"Command2"_s, u"&Delete"_s)), m_kind(std::move(kind)), lblTitle(new QLabel)
{
    lblTitle->setObjectName(u"lblTitle"_s);
    Command1->setDefault(true);
    setEntryKeys(EnterMovesOn);
    keepEnter(Command1);
    keepEnter(Command2);
    connect(Command1, &Command::clicked, this, [this] { save(); });
    connect(Command2, &Command::clicked, this, [this] { deleteRow(); });
}

QLabel *MasterEditor::hint(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * hintSize);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, theme::muted());
    label->setPalette(palette);
    return label;
}

void MasterEditor::addField(QGridLayout *grid, const QString &caption, QWidget *field, const QString &hintText)
{
    const int row = grid->rowCount();
    ::addField(*grid, row, caption, field);
    if (hintText.isEmpty())
        return;
    // Close under its field.
    auto *below = hint(hintText);
    below->setContentsMargins(2, -grid->verticalSpacing() / 2, 0, 0);
    grid->addWidget(below, row + 1, 1);
}

void MasterEditor::stretch(QGridLayout *grid)
{
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(grid->rowCount(), 1);
}

void MasterEditor::buildFrame(QLayout *content)
{
    auto *commands = new QHBoxLayout;
    commands->addWidget(Command2);
    commands->addStretch();
    commands->addWidget(Command1);
    auto *form = new QVBoxLayout(this);
    form->addWidget(lblTitle);
    form->addSpacing(6);
    form->addLayout(content, 1);
    form->addSpacing(6);
    form->addLayout(commands);
}

kvTextBox *MasterEditor::textField(const QString &name, const QString &column)
{
    auto *box = new kvTextBox(name);
    m_texts.push_back({box, column});
    return box;
}

bool MasterEditor::addOne()
{
    startNew();
    exec();
    return m_addedOne;
}

void MasterEditor::start(const QString &mode, const QString &heading)
{
    EditMode = mode;
    lblTitle->setText(heading);
    setWindowTitle(heading);
    Command2->setEnabled(!isNew());
    txtName->setFocus();
    TranslateForm(*this);
}

QString MasterEditor::rowStatement() const
{
    return u"Select * from "_s + m_kind.table + u" where id="_s + QString::number(m_id);
}

Recordset &MasterEditor::startEdit(const QString &heading, int id)
{
    start(u"E"_s, heading);
    m_id = id;
    Recordset &row = m_kind.rows;
    row.reopen(rowStatement());
    OldTitle = row.text(m_kind.nameColumn);
    txtName->setText(OldTitle);
    for (const TextField &field : m_texts)
        field.box->setText(row.textOrEmpty(field.column));
    return row;
}

bool MasterEditor::isNameMissing(const QString &message)
{
    // Blanks alone are a name that nobody would find again.
    if (!txtName->Text().trimmed().isEmpty())
        return false;
    complain(message, txtName);
    return true;
}

bool MasterEditor::isNameTaken()
{
    return isTaken(m_kind.nameColumn, txtName, OldTitle, u"Duplicate!"_s);
}

bool MasterEditor::isTaken(const QString &column, kvTextBox *box, const QString &loaded, const QString &message)
{
    const QString text = box->Text();
    // Another case of what the row is called already is its own.
    if (!isNew() && text.toUpper() == loaded.toUpper())
        return false;
    if (GetFieldValue(u"ID"_s, m_kind.table, column, text, m_kind.lookups).toInt() <= 0)
        return false;
    complain(message, box);
    return true;
}

Recordset &MasterEditor::rowToWrite()
{
    Recordset &row = m_kind.rows;
    if (isNew()) {
        row.openToAdd(m_kind.allRows);
        row.addNew();
    } else {
        row.reopen(rowStatement());
    }
    row.set(m_kind.nameColumn, txtName->Text());
    for (const TextField &field : m_texts)
        row.set(field.column, field.box->Text());
    return row;
}

void MasterEditor::store()
{
    Recordset &row = m_kind.rows;
    row.update();
    m_id = row.integer(u"ID");
    row.close();
    session::NeedRefresh = true;
}

void MasterEditor::finishSave(const QString &added, const QString &changed)
{
    OldTitle = txtName->Text();
    if (!isNew())
        return ShowMessage(changed);
    m_addedOne = true;
    ShowMessage(added);
    accept();
}

void MasterEditor::deleteRow()
{
    if (isNew() || AskUser(u"Are you sure?"_s) != 1)
        return;
    const QString number = QString::number(m_id);
    for (const Use &use : m_kind.uses) {
        use.rows.reopen(use.statement + number);
        const bool isInUse = use.rows.recordCount() > 0;
        use.rows.close();
        if (isInUse)
            return complain(u"Cant't Delete!"_s);
    }
    DE().CN.execute(u"Delete from "_s + m_kind.table + u" where id="_s + number);
    session::NeedRefresh = true;
    ShowMessage(u"Deleted."_s);
    accept();
}
