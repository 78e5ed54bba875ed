#include "base/RuntimeError.h"
#include "base/session.h"
#include "store/DataEnvironment.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Application.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/ListView.h"
#include "ui/Screen.h"
#include "ui/frmMsg.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using driver::press;
using driver::type;

class EntryScreen : public Screen {
    Q_OBJECT

public:
    explicit EntryScreen(const QString &name = u"EntryScreen"_s) : Screen(name), list(u"lvItems"_s, {{u"Item"_s, 100}})
    {
        for (QWidget *control : std::initializer_list<QWidget *>{&first, &second, &remark, &list, &day, &save, &close})
            form.addWidget(control);
        list.list().setRows({{{u"Shirt"_s}}, {{u"Coat"_s}}});
        save.setDefault(true);
        onKey(
            Qt::Key_Q, u"Counts"_s, [this] { ++counted; }, [this] { return counts; });
        onKey(Qt::CTRL | Qt::Key_Return, u"Counts"_s, [this] { ++counted; });
        onKey(Qt::Key_F2, u"Counts"_s, [this] { ++counted; });
    }
    using Screen::onKey;
    using Screen::printKey;
    using Screen::saveKey;
    using Screen::setEntryKeys;

    QVBoxLayout form{this};
    QLineEdit first;
    QLineEdit second;
    kvTextBoxMultiLine remark;
    DateField day;
    ListView list;
    Command save{u"Command1"_s, u"&Save"_s};
    Command close{u"Command2"_s, u"&Close"_s};

    int activations = 0;
    int counted = 0;
    bool counts = true;
    bool closesAtOnce = false;

protected:
    void activated() override
    {
        ++activations;
        if (closesAtOnce)
            reject();
    }
};

namespace {

/// What the panel over a screen says of its keys; nothing where there is none.
QString told(const QWidget &screen)
{
    const auto *panel = screen.findChild<QWidget *>(u"keyPanel"_s);
    QString text;
    const auto columns = panel && panel->isVisible() ? panel->findChildren<QLabel *>() : QList<QLabel *>();
    for (const QLabel *column : columns)
        text += column->text();
    return text;
}

} // namespace

struct OpenScreen : EntryScreen {
    OpenScreen() { QVERIFY(driver::show(*this)); }
};

/// What every screen does with keys, with others above it, and with failures.
class ScreenTest : public QObject {
    Q_OBJECT

private slots:
    void enterMovesOnWhereItHasNoOtherMeaning();
    void keysOfTheScreenComeFirstAndOnce();
    void theKeysOfAScreenAreTold();
    void savingByKeyIsTheCommand();
    void escapeClosesFromAnyControl();
    void activationComesOnceForEachComingToTheFront();
    void whatAnotherProgramWroteIsNoticedOnComingBack();
    void noScreenIsLargerThanItsMonitor();
    void pagesScrollAndWhatStandsBelowThemIsSeen();
    void aDialogAtTheEdgeStaysOnTheDisplay();
    void theSizeThatTheUserGaveComesBack();
    void failuresReachTheHandlerOnce();
};

void ScreenTest::enterMovesOnWhereItHasNoOtherMeaning()
{
    OpenScreen screen;
    QSignalSpy saved(&screen.save, &Command::clicked);
    QSignalSpy closed(&screen.close, &Command::clicked);
    QSignalSpy opened(&screen.list, &ListView::opened);
    const auto enterIn = [](QWidget &control) {
        control.setFocus();
        press(Qt::Key_Return);
    };
    // Without entry keys it presses the default command, or the one with the focus.
    enterIn(screen.first);
    enterIn(screen.close);
    QCOMPARE(saved.count(), 1);
    QCOMPARE(closed.count(), 1);

    screen.setEntryKeys(Screen::EnterMovesOn | Screen::PageKeysMove);
    screen.first.setFocus();
    const std::pair<QKeyCombination, const QWidget *> moves[]{{Qt::Key_Return, &screen.second},
        {Qt::Key_PageUp, &screen.first}, {Qt::KeypadModifier | Qt::Key_Enter, &screen.second},
        {Qt::Key_PageDown, &screen.remark}, {Qt::Key_PageDown, &screen.list}};
    for (const auto &[key, field] : moves) {
        press({key});
        QVERIFY(field->hasFocus());
    }
    enterIn(screen.remark);
    QCOMPARE(screen.remark.Text(), u"\r\n"_s);
    screen.list.setCurrentRow(1);
    enterIn(screen.list);
    QCOMPARE(opened, QList<QVariantList>{{1}});
    QVERIFY(screen.list.hasFocus());
    // Neither a default button nor the one with the focus gets it; Space presses.
    enterIn(screen.save);
    QVERIFY(screen.close.hasFocus());
    QCOMPARE(saved.count(), 1);
    screen.save.setFocus();
    press(Qt::Key_Space);
    QCOMPARE(saved.count(), 2);
}

void ScreenTest::keysOfTheScreenComeFirstAndOnce()
{
    OpenScreen screen;
    screen.first.setFocus();
    type(u"aqb"_s);
    press(Qt::Key_Q, Qt::ShiftModifier);
    QCOMPARE(screen.counted, 2);
    QCOMPARE(screen.first.text(), u"ab"_s);
    // Both Enter keys, and only with their modifier.
    press(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
    press({Qt::CTRL | Qt::SHIFT | Qt::Key_Return, Qt::CTRL | Qt::Key_Q});
    QCOMPARE(screen.counted, 3);
    // A key that the list ignores travels up through its parents and is still seen once.
    screen.list.setFocus();
    press(Qt::Key_F2);
    QCOMPARE(screen.counted, 4);
    // A key that does not apply goes to the field; F2 in a date is the date's.
    screen.counts = false;
    screen.first.setFocus();
    type(u"q"_s);
    QCOMPARE(screen.first.text(), u"abq"_s);
    screen.day.setFocus();
    press(Qt::Key_F2);
    QCOMPARE(screen.counted, 4);
}

void ScreenTest::theKeysOfAScreenAreTold()
{
    OpenScreen screen;
    screen.setEntryKeys(Screen::EnterMovesOn);
    const QKeyCombination tell = Qt::CTRL | Qt::Key_Slash;
    const std::pair<QWidget *, QString> controls[]{{&screen.list, u"Letters"_s}, {&screen.day, u"Calendar"_s},
        {&screen.remark, u"A new line"_s}, {&screen.save, u"Space"_s}};
    for (const auto &[control, itsKey] : controls) {
        control->setFocus();
        QVERIFY(told(screen).isEmpty());
        press({tell});
        const QString keys = told(screen);
        for (const QString &expected : {u"Ctrl+Enter"_s, u"Counts"_s, u"Next field"_s, u"F1"_s, itsKey})
            QVERIFY2(keys.contains(expected), qPrintable(keys));
        QVERIFY(!keys.contains(u"Page Down, Page Up</b></td><td>Next field"_s));
        // Escape puts the panel away and no more, Ctrl neither, and any other key does its own too.
        press(Qt::Key_Control);
        QVERIFY(!told(screen).isEmpty());
        press(Qt::Key_Escape);
        QVERIFY(told(screen).isEmpty());
        QVERIFY(screen.isVisible());
    }
    press(Qt::Key_Slash, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!told(screen).isEmpty());
    press(Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(told(screen).isEmpty());
    QCOMPARE(screen.counted, 1);
    press({tell, tell});
    QVERIFY(told(screen).isEmpty());
    press({tell});
    QTest::mouseClick(&screen, Qt::LeftButton);
    QTRY_VERIFY(told(screen).isEmpty());
    QStringList asked;
    Screen::setGuide([&asked](const QString &name) { asked += name; });
    press(Qt::Key_F1);
    QCOMPARE(asked, QStringList{u"EntryScreen"_s});
    Screen::setGuide({});
}

void ScreenTest::savingByKeyIsTheCommand()
{
    OpenScreen screen;
    screen.saveKey(&screen.save);
    screen.printKey(&screen.close);
    QSignalSpy saved(&screen.save, &Command::clicked);
    QSignalSpy printed(&screen.close, &Command::clicked);
    press({Qt::CTRL | Qt::Key_S, Qt::CTRL | Qt::Key_P});
    QCOMPARE(saved.count(), 1);
    QCOMPARE(printed.count(), 1);
    screen.save.setEnabled(false);
    screen.first.setFocus();
    press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(saved.count(), 1);
    QVERIFY(screen.first.hasFocus());
}

void ScreenTest::escapeClosesFromAnyControl()
{
    EntryScreen screen;
    for (QWidget *control :
        std::initializer_list<QWidget *>{&screen.first, &screen.remark, &screen.list, &screen.save}) {
        QVERIFY(driver::show(screen));
        control->setFocus();
        press(Qt::Key_Escape);
        QVERIFY(!screen.isVisible());
    }
}

void ScreenTest::activationComesOnceForEachComingToTheFront()
{
    EntryScreen lower;
    EntryScreen upper(u"UpperScreen"_s);
    ModalScript script;
    script.expect(u"EntryScreen"_s, [&](QWidget &) {
        QCOMPARE(lower.activations, 1);
        QCOMPARE(Screen::front(), &lower);
        upper.exec();
        QCOMPARE(lower.activations, 2);
        QCOMPARE(upper.activations, 1);
        ShowMessage(u"Done"_s);
        QCOMPARE(lower.activations, 3);
        // Coming back from another program is not coming to the front.
        for (const auto passing : {QEvent::WindowDeactivate, QEvent::WindowActivate}) {
            QEvent event(passing);
            QCoreApplication::sendEvent(&lower, &event);
        }
        QCOMPARE(lower.activations, 3);
        // A screen may close itself when it is activated.
        upper.closesAtOnce = true;
        QCOMPARE(upper.exec(), int(QDialog::Rejected));
        QCOMPARE(lower.activations, 4);
        press(Qt::Key_Escape);
    });
    script.expect(u"EntryScreen"_s, [&](QWidget &window) {
        QCOMPARE(&window, &upper);
        QCOMPARE(lower.activations, 1);
        press(Qt::Key_Escape);
    });
    script.expectMessage(u"Done"_s);
    lower.exec();
    QCOMPARE(Screen::front(), nullptr);
    QCOMPARE(lower.activations, 4);
}

void ScreenTest::whatAnotherProgramWroteIsNoticedOnComingBack()
{
    const TestShop shop;
    Connection other;
    other.open(shop.path());
    OpenScreen screen;
    QWidget otherProgram;
    session::NeedRefresh = false;
    for (const bool writes : {true, false}) {
        QVERIFY(driver::show(otherProgram));
        const quint64 before = DE().CN.otherWrites();
        if (writes)
            other.execute(u"Insert into rank (NAME, Score, Rating) values ('Asha', 1, 1)"_s);
        screen.activateWindow();
        QVERIFY(driver::waitActive(screen));
        QCOMPARE(DE().CN.otherWrites() > before, writes);
        QCOMPARE(session::NeedRefresh, writes);
        QCOMPARE(screen.activations, 1);
        session::NeedRefresh = false;
    }
    // A write that a statement has noticed meanwhile is no secret to the lists.
    other.execute(u"Delete from rank"_s);
    DE().CN.execute(u"Delete from rank"_s);
    ModalScript script;
    script.expectMessage(u"Done"_s);
    ShowMessage(u"Done"_s);
    QVERIFY(session::NeedRefresh);
}

void ScreenTest::noScreenIsLargerThanItsMonitor()
{
    // Content, the same in height alone, as designed, and the least size.
    for (const auto &[content, wanted] : {std::pair(QSize(3000, 2000), QSize()), std::pair(QSize(300, 2000), QSize()),
             std::pair(QSize(300, 200), QSize(3000, 2000)), std::pair(QSize(3000, 2000), QSize(1500, 1500))}) {
        EntryScreen screen;
        screen.list.setMinimumSize(content);
        if (wanted.isValid()) {
            screen.setMinimumSize(wanted.boundedTo({1500, 1500}));
            screen.resize(wanted);
        }
        screen.second.setFocus();
        QVERIFY(driver::show(screen));
        const QSize room = screen.screen()->availableSize();
        QVERIFY(screen.width() <= room.width() && screen.height() <= room.height());
        QVERIFY(screen.second.hasFocus());
        // Every field can be reached by Tab in the order that it had, and is in view then.
        for (QWidget *control :
            std::initializer_list<QWidget *>{&screen.remark, &screen.list, &screen.day, &screen.save, &screen.close})
            control == &screen.list ? screen.list.setFocus() : press(Qt::Key_Tab);
        QVERIFY(screen.close.hasFocus());
        QVERIFY(screen.rect().contains(QRect(screen.close.mapTo(&screen, QPoint()), QSize(20, screen.close.height()))));
        press(Qt::Key_Tab);
        QVERIFY(screen.first.hasFocus());
        QVERIFY(screen.rect().contains(screen.first.mapTo(&screen, QPoint(2, 2))));
    }
}

void ScreenTest::pagesScrollAndWhatStandsBelowThemIsSeen()
{
    EntryScreen screen;
    auto *tabs = new QTabWidget;
    screen.form.insertWidget(0, tabs);
    QList<QLineEdit *> ends;
    for (int page = 0; page < 2; ++page) {
        auto *rows = new QVBoxLayout(new QWidget);
        rows->addWidget(new QLineEdit);
        rows->addSpacing(1500);
        ends.append(new QLineEdit);
        rows->addWidget(ends.last());
        tabs->addTab(rows->parentWidget(), QString::number(page));
    }
    screen.second.setFocus();
    QVERIFY(driver::show(screen));
    QVERIFY(screen.second.hasFocus());
    const auto isSeen = [](const QWidget &control) { return control.visibleRegion().boundingRect() == control.rect(); };
    for (int page = 0; page < 2; ++page) {
        tabs->setCurrentIndex(page);
        QTRY_VERIFY(isSeen(screen.close));
        QVERIFY(!isSeen(*ends.at(page)));
        ends.at(page)->setFocus();
        QVERIFY(isSeen(*ends.at(page)) && isSeen(screen.close));
        press(Qt::Key_Tab);
        QVERIFY(screen.first.hasFocus());
    }
}

void ScreenTest::aDialogAtTheEdgeStaysOnTheDisplay()
{
    for (const int corner : {0, 1, 2, 3}) {
        const bool right = corner % 2 == 1;
        const bool bottom = corner / 2 == 1;
        EntryScreen lower(u"LowerScreen"_s);
        EntryScreen upper(u"UpperScreen"_s);
        lower.resize(300, 240);
        upper.resize(700, 500);
        QVERIFY(driver::show(lower));
        const QRect display = lower.screen()->availableGeometry();
        lower.move(right ? display.right() - lower.width() : 0, bottom ? display.bottom() - lower.height() : 0);
        QTRY_COMPARE(lower.pos().x() > 0, right);
        QVERIFY(driver::show(upper));
        const QRect place = upper.frameGeometry();
        QVERIFY(display.contains(place));
        // As near to the one below as it may be.
        QCOMPARE(right ? place.right() >= display.right() - 1 : place.left() == 0, true);
        QCOMPARE(bottom ? place.bottom() >= display.bottom() - 1 : place.top() == 0, true);
    }
}

void ScreenTest::theSizeThatTheUserGaveComesBack()
{
    const auto shownSize = [](QSize changed) {
        EntryScreen screen(u"SizedScreen"_s);
        screen.resize(600, 500);
        [&] { QVERIFY(driver::show(screen)); }();
        const QSize shown = screen.size();
        if (changed.isValid())
            screen.resize(changed);
        screen.close.setFocus();
        screen.reject();
        return shown;
    };
    QCOMPARE(shownSize({}), QSize(600, 500));
    QCOMPARE(shownSize({640, 520}), QSize(600, 500));
    QCOMPARE(shownSize({}), QSize(640, 520));
    QCOMPARE(shownSize({5000, 400}), QSize(640, 520));
    QVERIFY(shownSize({}).width() <= QGuiApplication::primaryScreen()->availableSize().width());
}

void ScreenTest::failuresReachTheHandlerOnce()
{
    auto &application = *qobject_cast<Application *>(QCoreApplication::instance());
    QStringList reports;
    QTimer first;
    QTimer second;
    first.setSingleShot(true);
    second.setSingleShot(true);
    connect(&first, &QTimer::timeout, this, [] { throw RuntimeError(Fault::NoCurrentRecord, u"Select 1"_s); });
    connect(&second, &QTimer::timeout, this, [] { throw RuntimeError(Fault::TypeMismatch); });
    application.setFailureHandler([&](const RuntimeError &error) {
        reports += error.report();
        // While a failure is told, others that it brings about are not.
        second.start(0);
        QTest::qWait(20);
    });
    first.start(0);
    QTRY_COMPARE(reports, QStringList{u"Run-time error '3021':\n\nNo current record.\n\nSelect 1"_s});
    QVERIFY(!second.isActive());
    // The application goes on where the handler lets it.
    first.start(0);
    QTRY_COMPARE(reports.size(), 2);
    application.setFailureHandler({});
}

CORVANE_TEST(ScreenTest)
#include "tst_screen.moc"
