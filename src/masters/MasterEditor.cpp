#include "masters/MasterEditor.h"

#include "ui/Command.h"
#include "ui/complain.h"
#include "ui/formFields.h"
#include "ui/frmMsg.h"
#include "ui/kvTextBox.h"
#include "ui/language.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

MasterEditor::MasterEditor(const QString &name, masterRows::Kind kind)
    : Screen(name), txtName(new kvTextBox(u"txtName"_s)), Command1(new Command(u"Command1"_s, u"&Save"_s)),
      Command2(new Command(u"Command2"_s, u"&Delete"_s)), m_kind(std::move(kind)), lblTitle(new QLabel)
{
    lblTitle->setObjectName(u"lblTitle"_s);
    Command1->setDefault(true);
    setEntryKeys(EnterMovesOn);
    keepEnter(Command1);
    keepEnter(Command2);
    saveKey(Command1);
    connect(Command1, &Command::clicked, this, [this] { save(); });
    connect(Command2, &Command::clicked, this, [this] { deleteRow(); });
}

void MasterEditor::addField(QGridLayout *grid, const QString &caption, QWidget *field, const QString &hintText)
{
    const int row = grid->rowCount();
    ::addField(*grid, row, caption, field);
    if (hintText.isEmpty())
        return;
    // Close under its field.
    auto *below = hintLabel(hintText);
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

Recordset &MasterEditor::startEdit(const QString &heading, int id)
{
    start(u"E"_s, heading);
    m_id = id;
    Recordset &row = m_kind.rows;
    row.reopen(u"Select * from "_s + m_kind.table + u" where id="_s + QString::number(id));
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

bool MasterEditor::store(std::vector<masterRows::Field> fields, const std::vector<Unique> &other)
{
    std::vector<Unique> unique{{m_kind.nameColumn, txtName, OldTitle, u"Duplicate!"_s}};
    unique.insert(unique.end(), other.begin(), other.end());
    std::vector<masterRows::Field> asked;
    for (const Unique &field : unique) {
        const QString text = field.box->Text();
        const bool isOwn = !isNew() && text.toUpper() == field.loaded.toUpper();
        if (!isOwn && !text.isEmpty())
            asked.push_back({field.column, text});
    }
    fields.push_back({m_kind.nameColumn, txtName->Text()});
    for (const TextField &field : m_texts)
        fields.push_back({field.column, field.box->Text()});

    const masterRows::Saved saved = masterRows::save(m_kind, isNew() ? 0 : m_id, fields, asked);
    if (saved.what == masterRows::Saved::Yes) {
        m_id = saved.id;
        return true;
    }
    if (saved.what == masterRows::Saved::Gone)
        complain(u"Another program has deleted this entry meanwhile. Nothing was saved."_s);
    for (const Unique &field : unique) {
        if (saved.column == field.column)
            complain(field.message, field.box);
    }
    return false;
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
    if (!masterRows::remove(m_kind, m_id))
        return complain(u"Cant't Delete!"_s);
    ShowMessage(u"Deleted."_s);
    accept();
}
