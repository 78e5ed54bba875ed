#include "base/session.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/ListView.h"
#include "ui/PeriodFields.h"
#include "ui/RegisterScreen.h"
#include "ui/listFilter.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using driver::press;
using driver::type;

namespace {

ListRow garment(int id)
{
    return {.cells = {u"Garment %1"_s.arg(id), id % 2 ? u"Completed"_s : u"Delivered"_s}, .tag = id};
}

} // namespace

/// A register over numbered garments, the highest number first; its last row is a closing one.
class GarmentScreen : public RegisterScreen {
    Q_OBJECT

public:
    explicit GarmentScreen(Refresh refresh = Refresh::OnCommand)
        : RegisterScreen(u"GarmentScreen"_s, u"Garments"_s, refresh)
    {
        auto *form = new QVBoxLayout(this);
        form->addWidget(&list);
        list.setAccessibleName(u"Garments"_s);
        setRegister(&list);
        setRowActions({{.caption = u"Mark as Done"_s,
                           .key = Qt::Key_F7,
                           .question = u"Mark as Done?"_s,
                           .act = [this](const ListRow &row) { note(u"done"_s, row); }},
            {}, {.caption = u"Open Account"_s, .act = [this](const ListRow &row) { note(u"account"_s, row); }}});
        resize(400, 260);
    }
    using RegisterScreen::Keep;
    using RegisterScreen::keepForUndo;
    using RegisterScreen::Refresh;
    using RegisterScreen::showRows;

    void fillTo(int newest, Keep kept)
    {
        std::vector<ListRow> rows;
        for (int id = newest; id > 0; --id)
            rows.push_back(garment(id));
        closeWithCount(rows, {.columns = 2, .column = 1, .words = u"Total : "_s});
        showRows(std::move(rows), kept);
    }

    ListView list{u"lvSummary"_s, {{u"Garment"_s, 60}, {u"Status"_s, 40}}};
    QStringList noted;
    int refills = 0;
    int highest = 3;

protected:
    void refill() override
    {
        ++refills;
        fillTo(highest, Keep::Tag);
    }
    void openRow(const ListRow &row) override { note(u"opened"_s, row); }

private:
    void note(const QString &what, const ListRow &row) { noted += what + u' ' + row.tag.toString(); }
};

/// The register in front of its user, with the garments up to `newest`, and its menu of a row.
struct Register : TestShop, GarmentScreen {
    explicit Register(int newest = 0)
    {
        if (newest > 0)
            fillTo(newest, Keep::First);
        QVERIFY(driver::show(*this));
        list.setFocus();
    }
    static QMenu *menu() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }
    [[nodiscard]] QMenu *menuByKey()
    {
        QContextMenuEvent pressed(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(&list, &pressed);
        return menu();
    }
    [[nodiscard]] int current() const { return list.currentTag().toInt(); }
};

struct PeriodScreen : RegisterScreen {
    PeriodScreen() : RegisterScreen(u"PeriodScreen"_s, {}, Refresh::OnCommand)
    {
        auto *form = new QVBoxLayout(this);
        for (QWidget *part : std::initializer_list<QWidget *>{period, list, view})
            form->addWidget(part);
        setRegister(list);
        setPeriod(period, view);
        QVERIFY(driver::show(*this));
    }
    PeriodFields *period = new PeriodFields;
    ListView *list = new ListView(u"list"_s, {{u"Garment"_s}});
    Command *view = new Command(u"view"_s, u"View"_s);
};

/// Lists over rows of the file, and what stands around them.
class RegisterTest : public QObject {
    Q_OBJECT

private slots:
    void theRowIsTheOneBeforeTheQuestion();
    void aRowWithoutATagAnswersToNothing();
    void theMenuOfARowOpensByMouseAndKey();
    void whatWasDoneLastIsUndoneFirst();
    void aTextIsFoundInAnyColumn();
    void whatTheUserLooksAtStays();
    void listsFillThemselvesWhenTold();
    void periodsAreCheckedWhereTheyAreUsed();
    void keysMoveThePeriodByMonths();
};

void RegisterTest::theRowIsTheOneBeforeTheQuestion()
{
    const TestShop shop;
    GarmentScreen screen(GarmentScreen::Refresh::WhenNeeded);
    ModalScript script;
    session::NeedRefresh = true;
    QVERIFY(driver::show(screen));
    screen.list.setCurrentRow(1);
    script.expect(u"frmMsg"_s, [&screen](QWidget &) {
        // Booked meanwhile: another garment stands in the place.
        screen.highest = 4;
        press(Qt::Key_Return);
    });
    press(Qt::Key_F7);
    QCOMPARE(screen.refills, 2);
    QCOMPARE(screen.noted, QStringList{u"done 2"_s});
    script.expectMessage(u"Mark as Done?"_s, Qt::Key_Escape);
    press(Qt::Key_F7);
    QCOMPARE(screen.noted.size(), 1);
}

void RegisterTest::aRowWithoutATagAnswersToNothing()
{
    Register screen(2);
    for (const int row : {2, 3}) {
        screen.list.setCurrentRow(row);
        press({Qt::Key_F7, Qt::Key_Return, Qt::Key_Menu});
        QVERIFY(!Register::menu());
    }
    QCOMPARE(screen.noted, QStringList());
}

void RegisterTest::whatWasDoneLastIsUndoneFirst()
{
    Register screen(3);
    QStringList undone;
    const auto undo = [] { press(Qt::Key_Z, Qt::ControlModifier); };
    undo();
    for (const QString &what : {u"Done, 1"_s, u"Done, 2"_s, u"Done, 3"_s})
        screen.keepForUndo(what, [&undone, what] { undone += what; });
    undo();
    QCOMPARE(undone, QStringList{u"Done, 3"_s});
    // What is typed in a field is undone there.
    press(Qt::Key_L, Qt::ControlModifier);
    type(u"x"_s);
    undo();
    QCOMPARE(undone.size(), 1);
    press(Qt::Key_Escape);
    // Another fill of the list, and one without rows, keep them.
    screen.fillTo(0, GarmentScreen::Keep::First);
    undo();
    QCOMPARE(undone.size(), 2);
    screen.fillTo(3, GarmentScreen::Keep::First);
    QMenu *menu = screen.menuByKey();
    QVERIFY(menu);
    QCOMPARE(menu->actions().constLast()->text(), u"Undo: Done, 1\tCtrl+Z"_s);
    menu->setActiveAction(menu->actions().constLast());
    QTest::keyClick(menu, Qt::Key_Return);
    QTRY_COMPARE(undone.size(), 3);
    undo();
    QCOMPARE(undone, (QStringList{u"Done, 3"_s, u"Done, 2"_s, u"Done, 1"_s}));
}

void RegisterTest::aTextIsFoundInAnyColumn()
{
    // Garments 25 to 1, the odd ones completed, and the closing rows.
    Register screen(25);
    const auto told = [&screen] { return screen.findChild<QWidget *>(u"lblFound"_s)->isVisible(); };
    const auto find = [&screen](const QString &text) {
        press(Qt::Key_L, Qt::ControlModifier);
        type(text);
        return screen.current();
    };
    QCOMPARE(find(u"DELI"_s), 24);
    press(Qt::Key_Return);
    QCOMPARE(screen.current(), 22);
    press({Qt::Key_Up, Qt::Key_Up});
    QCOMPARE(screen.current(), 2);
    QVERIFY(!told());
    type(u"x"_s);
    QVERIFY(told());
    QCOMPARE(screen.current(), 2);
    // Escape leaves the search first, and the list goes on from the line found.
    press(Qt::Key_Escape);
    QVERIFY(screen.isVisible());
    QVERIFY(screen.list.hasFocus());
    QCOMPARE(find(u"garment 1"_s), 1);
    press(Qt::Key_Down);
    QCOMPARE(screen.current(), 19);
    press({Qt::Key_Escape, Qt::Key_Return});
    QCOMPARE(screen.noted, QStringList{u"opened 19"_s});
    // A letter typed in the list begins a search of its own; a blank does not.
    press(Qt::Key_Space);
    QVERIFY(screen.list.hasFocus());
    type(u"ent 8"_s);
    QCOMPARE(screen.current(), 8);
    press(Qt::Key_Return);
    QCOMPARE(screen.noted.last(), u"opened 8"_s);
    press(Qt::Key_Escape);
    QVERIFY(!screen.isVisible());
}

void RegisterTest::theMenuOfARowOpensByMouseAndKey()
{
    Register screen(3);
    screen.list.setCurrentRow(0);
    const QPoint second = screen.list.visualRect(screen.list.model()->index(1, 0)).center();
    QTest::mousePress(screen.list.viewport(), Qt::RightButton, {}, second);
    const auto rightClick = [&screen](QPoint place) {
        QContextMenuEvent clicked(QContextMenuEvent::Mouse, place, screen.list.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(screen.list.viewport(), &clicked);
    };
    // Below the last row there is none to act on, whichever is current.
    rightClick({20, screen.list.viewport()->height() - 4});
    QVERIFY(!Register::menu());
    rightClick(second);
    QTRY_VERIFY(Register::menu());
    const QList<QAction *> actions = Register::menu()->actions();
    QCOMPARE(actions.size(), 3);
    QCOMPARE(actions.at(0)->text(), u"Mark as Done\tF7"_s);
    QVERIFY(actions.at(1)->isSeparator());
    QTest::keyClick(Register::menu(), Qt::Key_Down);
    QTest::keyClick(Register::menu(), Qt::Key_Return);
    QTRY_COMPARE(screen.noted, QStringList{u"account 2"_s});
}

void RegisterTest::whatTheUserLooksAtStays()
{
    Register screen;
    using Keep = GarmentScreen::Keep;
    screen.fillTo(200, Keep::Tag);
    QCOMPARE(screen.list.currentRow(), -1);
    screen.list.setCurrentRow(100);
    const int scrolled = screen.list.verticalScrollBar()->value();
    QVERIFY(scrolled > 0);

    screen.fillTo(201, Keep::Tag);
    QCOMPARE(screen.current(), 100);
    QCOMPARE(screen.list.currentRow(), 101);
    QVERIFY(screen.list.verticalScrollBar()->value() - scrolled <= 1);
    // Gone: its neighbour, as far as there is one.
    screen.fillTo(50, Keep::Tag);
    QCOMPARE(screen.list.currentRow(), 51);

    // Of the legs of one document the one that was looked at, not the first.
    const std::vector<ListRow> legs(100, {.cells = {u"Leg"_s}, .tag = u"12|1"_s});
    screen.showRows(legs, Keep::First);
    screen.list.setCurrentRow(60);
    screen.showRows(legs, Keep::Tag);
    QCOMPARE(screen.list.currentRow(), 60);

    // The place of the row opened last, wherever the user went since; before any was, the first.
    screen.fillTo(50, Keep::Place);
    QCOMPARE(screen.list.currentRow(), 0);
    screen.list.setCurrentRow(20);
    press(Qt::Key_Return);
    screen.list.setCurrentRow(0);
    screen.fillTo(60, Keep::Place);
    QCOMPARE(screen.list.currentRow(), 20);
    QCOMPARE(screen.current(), 40);
    const QRect row = screen.list.visualRect(screen.list.currentIndex());
    QVERIFY(screen.list.viewport()->rect().contains(row.center()));
    screen.fillTo(60, Keep::First);
    QCOMPARE(screen.list.currentRow(), 0);
}

void RegisterTest::listsFillThemselvesWhenTold()
{
    struct Fills {
        GarmentScreen::Refresh refresh;
        int shown;
        int again;
        int afterAChange;
    };
    using Refresh = GarmentScreen::Refresh;
    const TestShop shop;
    for (const auto &[refresh, shown, again, afterAChange] :
        {Fills{Refresh::OnCommand, 0, 0, 0}, {Refresh::WhenNeeded, 0, 0, 1}, {Refresh::InFront, 1, 2, 3}}) {
        GarmentScreen screen(refresh);
        ModalScript script;
        session::NeedRefresh = false;
        QVERIFY(driver::show(screen));
        QCOMPARE(screen.refills, shown);
        for (const bool changes : {false, true}) {
            script.expect(u"Screen"_s, [changes](QWidget &window) {
                session::NeedRefresh = changes;
                window.close();
            });
            Screen(u"AboveScreen"_s).exec();
            QCOMPARE(screen.refills, changes ? afterAChange : again);
        }
    }
    session::NeedRefresh = false;
}

void RegisterTest::periodsAreCheckedWhereTheyAreUsed()
{
    const TestShop shop;
    const PeriodScreen screen;
    PeriodFields *const period = screen.period;
    ModalScript script;
    QCOMPARE(period->between(), u"between #01-Apr-2011# and #01-Apr-2011#"_s);
    SaveSetting(setting::DefaultPeriod, u"2"_s);
    period->setShopDefault();
    QCOMPARE(period->to(), QDate(2011, 4, 8));
    QVERIFY(period->isUsable());

    auto &DateTo = driver::control<DateField>(screen, "DateTo");
    DateTo.setFocus();
    type(u"31/3/11"_s);
    driver::control<DateField>(screen, "DateFrom").setFocus();
    script.expect(u"QMessageBox"_s, [](QWidget &box) {
        QCOMPARE(static_cast<QMessageBox &>(box).text(), u"Invalid date selection!"_s);
        QCOMPARE(static_cast<QMessageBox &>(box).icon(), QMessageBox::Critical);
        QCOMPARE(static_cast<QMessageBox &>(box).textFormat(), Qt::PlainText);
        press(Qt::Key_Return);
    });
    QVERIFY(!period->isUsable());
    QTRY_VERIFY(DateTo.hasFocus());
    period->raiseLastToFirst();
    QCOMPARE(period->to(), QDate(2011, 4, 1));
    type(u"31/2/11"_s);
    script.expectMessage(u"\"31/2/11\" is not a date!"_s);
    QVERIFY(!period->isUsable());
}

void RegisterTest::keysMoveThePeriodByMonths()
{
    const TestShop shop;
    session::CurrentDate = {2011, 3, 31};
    PeriodScreen screen;
    const QKeyCombination back = Qt::CTRL | Qt::Key_PageUp;
    const QKeyCombination on = Qt::CTRL | Qt::Key_PageDown;
    const auto after = [&screen](std::initializer_list<QKeyCombination> pressed) {
        press(pressed);
        return screen.period->between();
    };
    QCOMPARE(after({back}), u"between #01-Feb-2011# and #28-Feb-2011#"_s);
    QCOMPARE(after({back, back}), u"between #01-Dec-2010# and #31-Dec-2010#"_s);
    QCOMPARE(after({on}), u"between #01-Jan-2011# and #31-Jan-2011#"_s);
    // A list that says something else is not what Enter acts on next.
    QVERIFY(!screen.view->hasFocus());
    screen.list->setFocus();
    QCOMPARE(after({on}), u"between #01-Feb-2011# and #28-Feb-2011#"_s);
    QVERIFY(screen.view->hasFocus());
    // From what is no month, or no date, to the working date's.
    driver::control<DateField>(screen, "DateTo").setFocus();
    type(u"31/2/11"_s);
    screen.period->set({2011, 1, 2}, {2011, 2, 1});
    QCOMPARE(after({on}), u"between #01-Mar-2011# and #31-Mar-2011#"_s);
    QVERIFY(screen.period->isUsable());
}

CORVANE_TEST(RegisterTest)
#include "tst_RegisterScreen.moc"
