#include "pictures/frmHandNote.h"

#include "pictures/NoteCanvas.h"
#include "pictures/pictureFile.h"
#include "ui/Command.h"
#include "ui/formFields.h"
#include "ui/platformBox.h"

#include <QBoxLayout>
#include <QFile>

using namespace Qt::StringLiterals;

frmHandNote::frmHandNote() : Screen(u"frmHandNote"_s, u"Hand Note"_s)
{
    buildForm();
    connectCommands();
    choosePen();
}

void frmHandNote::buildForm()
{
    picCanvas = new NoteCanvas(u"picCanvas"_s);
    picCanvas->setAccessibleName(windowTitle());
    Command1 = new Command(u"Command1"_s, u"Pen"_s);
    Command2 = new Command(u"Command2"_s, u"Eraser"_s);
    for (Command *tool : {Command1, Command2})
        tool->setCheckable(true);
    cmdUndo = new Command(u"cmdUndo"_s, u"Undo"_s);
    cmdUndo->setEnabled(false);
    Command3 = new Command(u"Command3"_s, u"Clear"_s);
    Command4 = new Command(u"Command4"_s, u"&Ok"_s);
    Command4->setDefault(true);
    Command5 = new Command(u"Command5"_s, u"Cancel"_s);

    auto *commands = new QHBoxLayout;
    for (Command *command : {Command1, Command2, cmdUndo, Command3})
        commands->addWidget(command);
    commands->addStretch();
    commands->addWidget(Command4);
    commands->addWidget(Command5);
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(picCanvas, 1);
    whole->addLayout(commands);
    resize(sizeHint());
    chainTabs({Command1, Command2, cmdUndo, Command3, Command4, Command5});
}

void frmHandNote::connectCommands()
{
    onKey(Qt::CTRL | Qt::Key_P, u"Pen"_s, [this] { Command1->trigger(); });
    onKey(Qt::CTRL | Qt::Key_E, u"Eraser"_s, [this] { Command2->trigger(); });
    onKey(Qt::CTRL | Qt::Key_Z, u"Undo"_s, [this] { picCanvas->undo(); });
    onKey(Qt::CTRL | Qt::Key_Delete, u"Clear"_s, [this] { Command3->trigger(); });

    // Not by what a click makes of the button: the key gives the command too.
    connect(Command1, &Command::clicked, this, &frmHandNote::choosePen);
    connect(Command2, &Command::clicked, this, &frmHandNote::chooseEraser);
    connect(cmdUndo, &Command::clicked, picCanvas, &NoteCanvas::undo);
    connect(Command3, &Command::clicked, picCanvas, &NoteCanvas::wipe);
    connect(Command4, &Command::clicked, this, &frmHandNote::keep);
    connect(Command5, &Command::clicked, this, &frmHandNote::reject);
    connect(picCanvas, &NoteCanvas::strokesChanged, this, [this] { cmdUndo->setEnabled(picCanvas->canUndo()); });
}

void frmHandNote::TakeSnap(const QString &FilePath, bool &Cancelled)
{
    m_filePath = FilePath;
    NoteCancelled = true;
    Cancelled = true;
    if (QFile::exists(FilePath)) {
        const pictureFile::Read ground = pictureFile::read(FilePath);
        if (ground.picture.isNull())
            return platformBox::show(u"This picture can't be drawn on. %1:\r\n%2"_s.arg(ground.problem, FilePath));
        picCanvas->setGround(ground.picture);
    }
    exec();
    Cancelled = NoteCancelled;
}

void frmHandNote::choosePen()
{
    picCanvas->setTool(NoteCanvas::Tool::Pen);
    Command1->setChecked(true);
    Command2->setChecked(false);
}

void frmHandNote::chooseEraser()
{
    picCanvas->setTool(NoteCanvas::Tool::Eraser);
    Command1->setChecked(false);
    Command2->setChecked(true);
}

void frmHandNote::keep()
{
    picCanvas->liftPen();
    // Where it can't be written the drawing stays.
    pictureFile::save(picCanvas->picture(), m_filePath);
    NoteCancelled = false;
    accept();
}
