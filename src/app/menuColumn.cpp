#include "app/menuColumn.h"

#include "ui/Command.h"

#include <QBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int commandHeight = 46;
constexpr int leastCommandHeight = 36;
constexpr int commandWidth = 220;

/// Taller than the house's commands: these are aimed at from across the counter. On a low monitor they shrink.
class MenuCommand : public Command {
public:
    MenuCommand(const QString &name, const QString &caption) : Command(name, caption)
    {
        setMinimumHeight(leastCommandHeight);
        setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
    }

    [[nodiscard]] QSize sizeHint() const override { return Command::sizeHint().expandedTo({0, commandHeight}); }
};

} // namespace

Command *menuColumn::add(QBoxLayout &column, const Entry &entry)
{
    auto *command = new MenuCommand(entry.name, entry.caption);
    // Larger letters too.
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
