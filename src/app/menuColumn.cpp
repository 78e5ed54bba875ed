#include "app/menuColumn.h"

#include "ui/Command.h"

#include <QBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int commandHeight = 46;
constexpr int commandWidth = 220;

} // namespace

Command *menuColumn::add(QBoxLayout &column, const Entry &entry)
{
    auto *command = new Command(entry.name, entry.caption);
    // Taller and larger than the house's commands: these are aimed at from across the counter.
    command->setMinimumHeight(commandHeight);
    QFont font = command->font();
    font.setPointSizeF(font.pointSizeF() * 1.1);
    command->setFont(font);
    column.addStrut(commandWidth);
    column.addWidget(command);
    return command;
}

Command *menuColumn::addLater(QBoxLayout &column, const Entry &entry)
{
    Command *command = add(column, entry);
    command->setComesLater(u"This screen comes with a later version."_s);
    return command;
}
