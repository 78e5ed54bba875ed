#include "PaintWatch.h"
#include "app/startup.h"
#include "base/RuntimeError.h"
#include "base/session.h"
#include "cases.h"
#include "fullShop.h"
#include "itemList.h"
#include "jobcards/frmEditJOB.h"
#include "reports/ReportPreview.h"
#include "statement.h"
#include "ui/Application.h"
#include "ui/ListView.h"
#include "ui/Screen.h"

#include <QFile>
#include <QProcess>
#include <QVBoxLayout>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace bench {

namespace {

constexpr int patience = 60'000;

void tell(const QByteArray &line)
{
    std::fputs((line + '\n').constData(), stdout);
    std::fflush(stdout);
}

/// A process that tells one line and then waits to be ended. Started when it is made.
class Child {
public:
    Child(const QString &program, const QStringList &arguments)
    {
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(program, arguments, QIODevice::ReadOnly);
    }
    /// This program once more, with a task of its own.
    explicit Child(const QString &task)
        : Child(QCoreApplication::applicationFilePath(), {u"--child"_s, task, session::ProgramFolder})
    {
    }

    ~Child()
    {
        m_process.kill();
        m_process.waitForFinished(patience);
    }

    /// Waits for it.
    QByteArray line()
    {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(patience))
                throw RuntimeError(Fault::Engine, u"A child process told nothing."_s, {});
        }
        return m_process.readLine().trimmed();
    }

private:
    QProcess m_process;
};

template <typename... Arguments>
Run timedStart(const Arguments &...arguments)
{
    const auto start = Clock::now();
    Child child(arguments...);
    child.line();
    return {Clock::now() - start};
}

void showMain(QApplication &application, const QString &folder)
{
    startProgram(application, folder);
    static const PaintWatch watch(u"frmMain"_s, [](QWidget &) { tell("painted"); });
}

/// The "VmHWM:" of the process, in KiB.
QByteArray mostMemory()
{
    QFile status(u"/proc/self/status"_s);
    if (status.open(QIODevice::ReadOnly)) {
        for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine()) {
            if (line.startsWith("VmHWM:"))
                return line.mid(6).replace("kB", "").trimmed();
        }
    }
    return {};
}

/// A list above the main screen, filled, scrolled to its end; then what `above` opens above it.
template <typename Fill, typename Above>
void showRegister(const std::vector<ListColumn> &columns, Fill fill, Above above)
{
    Screen screen(u"frmRegister"_s);
    auto *layout = new QVBoxLayout(&screen);
    auto *view = new ListView(u"lvItems"_s, columns);
    layout->addWidget(view);
    screen.resize(1000, 600);
    fill(view->list());
    const PaintWatch watch(u"frmRegister"_s, [view, &above](QWidget &) {
        view->setCurrentRow(view->list().rowCount() - 1);
        view->repaint();
        above(view->list());
    });
    screen.exec();
}

void showCard(const ListModel &)
{
    const PaintWatch watch(u"frmEditJOB"_s, [](QWidget &) { tell(mostMemory()); });
    bool deleted = false;
    frmEditJOB().ShowEdit(fullShop::largeCard, deleted);
}

void showStatement(const ListModel &list)
{
    ReportPreview preview(statement::print(list).value());
    const PaintWatch watch(preview.objectName(), [](QWidget &) { tell(mostMemory()); });
    preview.exec();
}

void showAll(QApplication &application, const QString &folder)
{
    startProgram(application, folder);
    static const PaintWatch watch(
        u"frmMain"_s, [](QWidget &) { showRegister(itemList::columns(), itemList::fill, showCard); });
}

void showPrint(QApplication &application, const QString &folder)
{
    startProgram(application, folder);
    static const PaintWatch watch(
        u"frmMain"_s, [](QWidget &) { showRegister(std::vector<ListColumn>(7), statement::fill, showStatement); });
}

void showBook(QApplication &application, const QString &folder)
{
    startProgram(application, folder);
    static const PaintWatch watch(u"frmMain"_s, [](QWidget &) { showCash([] { tell(mostMemory()); }); });
}

Case startProgramCase()
{
    Case work{u"start of the process to the main screen painted"_s, 3.0};
    work.rounds = 25;
    work.ours = [] { return timedStart(u"main"_s); };
    work.byHand = [] {
        return timedStart(QCoreApplication::applicationDirPath() + u"/corvane-bench-empty"_s, QStringList());
    };
    return work;
}

} // namespace

std::vector<Case> startCases()
{
    return {startProgramCase()};
}

double peakMemory(const QString &task)
{
    constexpr double kibInMib = 1024;
    return Child(task).line().toDouble() / kibInMib;
}

bool isChild(int count, char **arguments)
{
    return count == 4 && QByteArrayView(arguments[1]) == "--child";
}

int runAsChild(int count, char **arguments)
{
    const QByteArrayView task(arguments[2]);
    const QString folder = QFile::decodeName(arguments[3]);
    Application application(count, arguments);
    if (task == "main")
        showMain(application, folder);
    else if (task == "all")
        showAll(application, folder);
    else if (task == "cash")
        showBook(application, folder);
    else
        showPrint(application, folder);
    return Application::exec();
}

} // namespace bench
