#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/Screen.h"
#include "ui/entryKeys.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/modAutoSearch.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QToolTip>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QStringList clients{u"Anand"_s, u"anil kumar"_s, u"Anita"_s, u"O'Brien"_s, u"Ravi"_s, u"Ravindra"_s};

} // namespace

class SearchScreen : public Screen {
public:
    SearchScreen() : Screen(u"SearchScreen"_s)
    {
        for (QWidget *control : std::initializer_list<QWidget *>{&combo, &next, &add})
            form.addWidget(control);
        setComboEntries(combo, clients);
        installAutoSearch(&combo);
        onKey(
            Qt::Key_Return, u"Looks on"_s, [] {},
            [this] {
                enters += combo.currentIndex();
                return false;
            });
    }
    using Screen::keepEnter;
    using Screen::setEntryKeys;

    [[nodiscard]] QString text() const { return combo.currentText(); }
    [[nodiscard]] QString selected() const { return combo.lineEdit()->selectedText(); }
    [[nodiscard]] int caret() const { return combo.lineEdit()->cursorPosition(); }
    [[nodiscard]] bool isOpen() const { return combo.view()->isVisible(); }

    QVBoxLayout form{this};
    kvComboBox combo{u"cmbClient"_s};
    kvTextBox next{u"txtNext"_s};
    Command add{u"Command4"_s, u"&Add"_s};

    QList<int> enters;
};

/// Typing in combos that select from a list.
class AutoSearchTest : public QObject {
    Q_OBJECT

private slots:
    void typingSelectsTheFirstEntryThatBeginsSo_data();
    void typingSelectsTheFirstEntryThatBeginsSo();
    void whatIsComposedSearchesToo();
    void backspaceCutsTheTextAndSelectsNothing();
    void theKeyPassedOnIsToldByTheRoutine();
    void enterWithAnOpenListGoesOnAsEnter();
    void escapeClosesTheListOnly();
    void arrowsMoveTheSelectionWithTheListOpen();
    void otherKeysCloseTheListAndAct();
    void halfANameIsNoChoice();
    void theNextNameIsTypedOverTheOld_data();
    void theNextNameIsTypedOverTheOld();
    void longNamesShowTheirBeginning();
    void aRefusedLetterIsTold();
    void enterBehindARefusedLetterGoesNoFurther();
    void whatElseBeginsSoStandsBelowTheMatch();
    void pastingSearchesToo();
    void deletingLeavesNoEntryBehindTheText();
    void theWheelChangesNothing();
    void theTextSelectsTheFirstEntryThatBeginsSo_data();
    void theTextSelectsTheFirstEntryThatBeginsSo();
    void aLongListOpensAndSearchesAtOnce();
    void aListOpensWhereTheUserComesToIt();
};

void AutoSearchTest::typingSelectsTheFirstEntryThatBeginsSo_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("rest");
    QTest::addColumn<int>("entry");
    QTest::newRow("capitals do not matter") << u"rAv"_s << u"Ravi"_s << u"i"_s << 4;
    QTest::newRow("in the entry neither") << u"ANIL"_s << u"anil kumar"_s << u" kumar"_s << 1;
    QTest::newRow("first of several") << u"an"_s << u"Anand"_s << u"and"_s << 0;
    QTest::newRow("whole entry") << u"ravi"_s << u"Ravi"_s << u""_s << 4;
    QTest::newRow("beyond a shorter entry") << u"ravin"_s << u"Ravindra"_s << u"dra"_s << 5;
    QTest::newRow("a miss is not typed") << u"raxv"_s << u"Ravi"_s << u"i"_s << 4;
    QTest::newRow("nothing begins so") << u"z"_s << u""_s << u""_s << -1;
    QTest::newRow("apostrophe") << u"o'b"_s << u"O'Brien"_s << u"rien"_s << 3;
    QTest::newRow("blank") << u"anil k"_s << u"anil kumar"_s << u"umar"_s << 1;
}

void AutoSearchTest::typingSelectsTheFirstEntryThatBeginsSo()
{
    QFETCH(QString, typed);
    QFETCH(QString, rest);
    SearchScreen screen;
    QVERIFY(driver::show(screen));
    driver::type(typed);
    QTEST(screen.text(), "text");
    QCOMPARE(screen.selected(), rest);
    QCOMPARE(screen.caret(), screen.text().size() - rest.size());
    QTEST(screen.combo.currentIndex(), "entry");
    QVERIFY(screen.isOpen());
    QCOMPARE(screen.combo.cursor().shape(), Qt::ArrowCursor);
}

void AutoSearchTest::whatIsComposedSearchesToo()
{
    SearchScreen screen;
    setComboEntries(screen.combo, clients + QStringList{u"Émile"_s});
    QVERIFY(driver::show(screen));
    const auto compose = [&screen](const QString &text) {
        QInputMethodEvent composed;
        composed.setCommitString(text);
        QApplication::sendEvent(&screen.combo, &composed);
    };
    compose(u"ü"_s);
    QCOMPARE(screen.text(), QString());
    compose(u"é"_s);
    QCOMPARE(screen.text(), u"Émile"_s);
    QCOMPARE(screen.selected(), u"mile"_s);
    compose(u"\U0001F44D"_s);
    QCOMPARE(screen.text(), u"Émile"_s);

    // Under what is being composed nothing is set: that would end it. It begins in the open list.
    QVERIFY(screen.isOpen());
    const auto begin = [&screen](const QString &text) {
        QInputMethodEvent begun(text, {});
        QApplication::sendEvent(screen.combo.view(), &begun);
    };
    QSignalSpy chosen(&screen.combo, &kvComboBox::currentIndexChanged);
    begin(u"m"_s);
    QCOMPARE(screen.text(), u"É"_s);
    QCOMPARE(chosen.count(), 0);
    QInputMethodEvent composed;
    composed.setCommitString(u"m"_s);
    QApplication::sendEvent(screen.combo.view(), &composed);
    QCOMPARE(screen.text(), u"Émile"_s);
    QCOMPARE(screen.selected(), u"ile"_s);
    // Given up, it leaves half a name.
    begin(u"i"_s);
    begin({});
    QCOMPARE(screen.text(), u"Ém"_s);
    QCOMPARE(screen.combo.currentIndex(), -1);
}

void AutoSearchTest::backspaceCutsTheTextAndSelectsNothing()
{
    SearchScreen screen;
    QVERIFY(driver::show(screen));
    driver::type(u"ravin"_s);
    driver::press(Qt::Key_Backspace);
    QCOMPARE(screen.text(), u"Ravin"_s);
    QCOMPARE(screen.combo.currentIndex(), -1);
    QSignalSpy changes(&screen.combo, &kvComboBox::currentTextChanged);
    driver::press(Qt::Key_Backspace);
    QCOMPARE(screen.text(), u"Ravi"_s);
    QCOMPARE(screen.combo.currentIndex(), 4);
    QCOMPARE(screen.caret(), 4);
    // Nobody sees the text empty on its way from one to the other.
    QCOMPARE(changes, QList<QVariantList>{{u"Ravi"_s}});
    for (int i = 0; i < 5; ++i)
        driver::press(Qt::Key_Backspace);
    QCOMPARE(screen.text(), QString());
    driver::type(u"a"_s);
    QCOMPARE(screen.text(), u"Anand"_s);
}

void AutoSearchTest::theKeyPassedOnIsToldByTheRoutine()
{
    SearchScreen screen;
    QCOMPARE(AutoSearchKey(screen.combo, 'r'), 0);
    QCOMPARE(AutoSearchKey(screen.combo, 'x'), 0);
    QCOMPARE(AutoSearchKey(screen.combo, 8), 0);
    QCOMPARE(screen.text(), u"R"_s);
    QCOMPARE(AutoSearchKey(screen.combo, 'a'), 0);
    QCOMPARE(AutoSearchKey(screen.combo, 13), 13);
    QCOMPARE(screen.text(), u"Ravi"_s);
    QCOMPARE(screen.selected(), QString());
    QCOMPARE(screen.caret(), 4);

    QComboBox fixed;
    fixed.addItems(clients);
    QCOMPARE(AutoSearchKey(fixed, 'r'), 0);
    QCOMPARE(fixed.currentIndex(), 0);
}

void AutoSearchTest::enterWithAnOpenListGoesOnAsEnter()
{
    SearchScreen screen;
    screen.setEntryKeys(Screen::EnterMovesOn);
    QVERIFY(driver::show(screen));
    driver::type(u"anit"_s);
    QVERIFY(screen.isOpen());
    driver::press(Qt::Key_Return);
    QVERIFY(!screen.isOpen());
    QCOMPARE(screen.enters, QList<int>{2});
    QVERIFY(screen.next.hasFocus());
    QCOMPARE(screen.text(), u"Anita"_s);

    SearchScreen::keepEnter(&screen.combo);
    screen.combo.setFocus();
    QList<int> pressed;
    connect(&screen.combo, &kvComboBox::keyPress, this, [&pressed](int &key) { pressed += key; });
    driver::type(u"ravin"_s);
    driver::press(Qt::Key_Return);
    QVERIFY(screen.combo.hasFocus());
    QCOMPARE(screen.enters, (QList<int>{2, 5}));
    QCOMPARE(pressed, QList<int>{13});
    QCOMPARE(screen.selected(), QString());
}

void AutoSearchTest::escapeClosesTheListOnly()
{
    SearchScreen screen;
    QVERIFY(driver::show(screen));
    driver::type(u"ra"_s);
    driver::press(Qt::Key_Escape);
    QVERIFY(!screen.isOpen());
    QVERIFY(screen.isVisible());
    QCOMPARE(screen.text(), u"Ravi"_s);
    QCOMPARE(screen.selected(), u"vi"_s);
    driver::type(u"v"_s);
    QCOMPARE(screen.selected(), u"i"_s);
    driver::press(Qt::Key_Escape);
    driver::press(Qt::Key_Escape);
    QVERIFY(!screen.isVisible());
}

void AutoSearchTest::arrowsMoveTheSelectionWithTheListOpen()
{
    SearchScreen screen;
    screen.setEntryKeys(Screen::EnterMovesOn | Screen::PageKeysMove);
    QVERIFY(driver::show(screen));
    driver::type(u"an"_s);
    const auto after = [&screen](Qt::Key key) {
        driver::press(key);
        return screen.combo.currentIndex();
    };
    QCOMPARE(after(Qt::Key_Down), 1);
    QCOMPARE(screen.text(), u"anil kumar"_s);
    QCOMPARE(screen.combo.view()->currentIndex().row(), 1);
    QCOMPARE(after(Qt::Key_Up), 0);
    QCOMPARE(after(Qt::Key_Up), 0);
    QCOMPARE(after(Qt::Key_End), 5);
    QCOMPARE(after(Qt::Key_Down), 5);
    QCOMPARE(after(Qt::Key_PageUp), 0);
    QVERIFY(screen.isOpen());
    driver::press(Qt::Key_Down);
    // The mouse resting on another row does not decide what Enter takes.
    screen.combo.view()->setCurrentIndex(screen.combo.model()->index(3, 0));
    driver::press(Qt::Key_Return);
    QCOMPARE(screen.text(), u"anil kumar"_s);
    QVERIFY(screen.next.hasFocus());
}

void AutoSearchTest::otherKeysCloseTheListAndAct()
{
    SearchScreen screen;
    QSignalSpy added(&screen.add, &Command::clicked);
    QVERIFY(driver::show(screen));
    driver::type(u"ra"_s);
    driver::accessKey('a');
    QVERIFY(!screen.isOpen());
    QCOMPARE(added.count(), 1);
    QCOMPARE(screen.text(), u"Ravi"_s);

    screen.combo.setFocus();
    driver::type(u"o"_s);
    driver::press(Qt::Key_Tab);
    QVERIFY(!screen.isOpen());
    QVERIFY(screen.next.hasFocus());
    QCOMPARE(screen.text(), u"O'Brien"_s);
}

void AutoSearchTest::halfANameIsNoChoice()
{
    for (const bool isOpen : {true, false}) {
        for (const auto key : {Qt::Key_Down, Qt::Key_Up}) {
            SearchScreen screen;
            QVERIFY(driver::show(screen));
            driver::type(u"ravin"_s);
            QVERIFY(!screen.combo.lineEdit()->font().italic());
            if (!isOpen)
                driver::press(Qt::Key_Escape);
            driver::press(Qt::Key_Backspace);
            QVERIFY(screen.combo.lineEdit()->font().italic());
            QVERIFY(!screen.combo.view()->currentIndex().isValid() || !isOpen);
            driver::press(key);
            QCOMPARE(screen.text(), u"Ravindra"_s);
            QVERIFY(!screen.combo.lineEdit()->font().italic());
            driver::press(Qt::Key_Up);
            QCOMPARE(screen.text(), u"Ravi"_s);
        }
    }
}

void AutoSearchTest::theNextNameIsTypedOverTheOld_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way :
        {"arrows in the open list", "arrows", "set, then entered", "set, then clicked", "set while entered"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void AutoSearchTest::theNextNameIsTypedOverTheOld()
{
    QFETCH(QString, way);
    SearchScreen screen;
    QVERIFY(driver::show(screen));
    if (way.startsWith(u"set"_s)) {
        if (way != u"set while entered"_s)
            screen.next.setFocus();
        screen.combo.setText(u"Anita"_s);
        if (way == u"set, then clicked"_s)
            QTest::mouseClick(screen.combo.lineEdit(), Qt::LeftButton, {}, {30, 10});
        else
            screen.combo.setFocus();
    } else {
        driver::type(u"anil"_s);
        if (way == u"arrows"_s)
            driver::press(Qt::Key_Escape);
        driver::press(Qt::Key_Down);
    }
    QCOMPARE(screen.text(), u"Anita"_s);
    driver::type(u"ravin"_s);
    QCOMPARE(screen.text(), u"Ravindra"_s);
    // Once entered, a click sets the caret, and one that draws over a part selects that.
    driver::press(Qt::Key_Escape);
    QTest::mouseClick(screen.combo.lineEdit(), Qt::LeftButton, {}, {30, 10});
    QCOMPARE(screen.selected(), QString());
    screen.next.setFocus();
    QTest::mousePress(screen.combo.lineEdit(), Qt::LeftButton, {}, {30, 10});
    QTest::mouseMove(screen.combo.lineEdit(), {300, 10});
    QTest::mouseRelease(screen.combo.lineEdit(), Qt::LeftButton, {}, {300, 10});
    QVERIFY(u"Ravindra"_s.endsWith(screen.selected()) && screen.selected().size() < 8 && screen.selected().size() > 1);
}

void AutoSearchTest::longNamesShowTheirBeginning()
{
    const QString name = QString(u"Rajendra Kumar Shekhawat, "_s).repeated(12);
    SearchScreen screen;
    setComboEntries(screen.combo, {name + u'1', name + u'2'});
    QVERIFY(driver::show(screen));
    const auto showsItsBeginning = [&screen] {
        return screen.selected() == screen.text() && driver::leftmost(*screen.combo.lineEdit()) < 2;
    };
    driver::press(Qt::Key_Down);
    QVERIFY2(showsItsBeginning(), "by the arrows");
    screen.combo.setText(name + u'2');
    QVERIFY2(showsItsBeginning(), "set while entered");
}

void AutoSearchTest::aRefusedLetterIsTold()
{
    SearchScreen screen;
    QVERIFY(driver::show(screen));
    driver::type(u"rax"_s);
    QTRY_COMPARE(QToolTip::text(), u"No name begins with \"Rax\""_s);
    QCOMPARE(screen.text(), u"Ravi"_s);
    driver::type(u"v"_s);
    QTRY_VERIFY(!QToolTip::isVisible());
}

void AutoSearchTest::enterBehindARefusedLetterGoesNoFurther()
{
    SearchScreen screen;
    int passedOn = 0;
    connect(&screen.combo, &kvComboBox::keyPress, &screen, [&passedOn](int &key) { passedOn += key == keys::Enter; });
    QVERIFY(driver::show(screen));
    driver::type(u"rax"_s);
    driver::press(Qt::Key_Return);
    QCOMPARE(passedOn, 0);
    QCOMPARE(screen.selected(), u"Ravi"_s);
    QTRY_COMPARE(QToolTip::text(), u"No name begins with \"Rax\""_s);
    driver::press(Qt::Key_Return);
    QCOMPARE(passedOn, 1);

    // Whatever is right since then makes up for it.
    screen.combo.setFocus();
    driver::type(u"ax"_s);
    driver::press(Qt::Key_Down);
    driver::press(Qt::Key_Return);
    QCOMPARE(passedOn, 2);
    screen.combo.setFocus();
    driver::type(u"oy"_s);
    driver::press(Qt::Key_Backspace);
    driver::press(Qt::Key_Return);
    QCOMPARE(passedOn, 3);
}

void AutoSearchTest::whatElseBeginsSoStandsBelowTheMatch()
{
    QStringList many;
    for (int i = 0; i < 500; ++i)
        many += u"Client %1"_s.arg(i, 3, 10, QChar(u'0'));
    SearchScreen screen;
    setComboEntries(screen.combo, many);
    QVERIFY(driver::show(screen));
    const auto topRow = [&screen] { return screen.combo.view()->indexAt(QPoint(4, 4)).row(); };
    driver::type(u"client 2"_s);
    QCOMPARE(topRow(), 200);
    driver::type(u"37"_s);
    QCOMPARE(topRow(), 237);
    driver::press(Qt::Key_Down);
    QCOMPARE(topRow(), 237);
    // Also where the list opens on a name that stands there.
    driver::press(Qt::Key_Escape);
    screen.combo.setText(u"Client 300"_s);
    SelectTypedEntry(screen.combo);
    QCOMPARE(topRow(), 300);
}

void AutoSearchTest::pastingSearchesToo()
{
    SearchScreen screen;
    QVERIFY(driver::show(screen));
    QApplication::clipboard()->setText(u" anit\n"_s);
    driver::press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(screen.text(), u"Anita"_s);
    QCOMPARE(screen.combo.currentIndex(), 2);
    QApplication::clipboard()->setText(u"nobody"_s);
    driver::press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(screen.text(), u"Anita"_s);
}

void AutoSearchTest::deletingLeavesNoEntryBehindTheText()
{
    SearchScreen screen;
    QVERIFY(driver::show(screen));
    driver::type(u"ravin"_s);
    driver::press(Qt::Key_Escape);
    driver::press(Qt::Key_Delete);
    QCOMPARE(screen.text(), u"Ravin"_s);
    QCOMPARE(screen.combo.currentIndex(), -1);
}

void AutoSearchTest::theWheelChangesNothing()
{
    SearchScreen screen;
    QVERIFY(driver::show(screen));
    driver::type(u"ravi"_s);
    driver::press(Qt::Key_Escape);
    QWheelEvent turn(QPointF(5, 5), screen.combo.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
        Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&screen.combo, &turn);
    QCOMPARE(screen.combo.currentIndex(), 4);
}

void AutoSearchTest::theTextSelectsTheFirstEntryThatBeginsSo_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("shown");
    QTest::newRow("prefix") << u"RAV"_s << 4 << u"Ravi"_s;
    QTest::newRow("whole") << u"Ravindra"_s << 5 << u"Ravindra"_s;
    QTest::newRow("none") << u"Zed"_s << -1 << u"Zed"_s;
    QTest::newRow("empty") << u""_s << -1 << u""_s;
    QTest::newRow("too long") << u"Ravindra "_s << -1 << u"Ravindra "_s;
}

void AutoSearchTest::theTextSelectsTheFirstEntryThatBeginsSo()
{
    QFETCH(QString, text);
    SearchScreen screen;
    screen.combo.setEditText(text);
    QTEST(SelectComboEntry(screen.combo), "result");
    QTEST(screen.text(), "shown");
    QTEST(screen.combo.currentIndex(), "result");

    // A name that the program shows is that one or none.
    QFETCH(QString, shown);
    const bool isWhole = text.compare(shown, Qt::CaseInsensitive) == 0;
    screen.combo.setText(text);
    QCOMPARE(SelectComboEntry(screen.combo), isWhole ? clients.indexOf(shown) : -1);
    QCOMPARE(screen.text(), isWhole ? shown : text);

    // Also where the entry is selected already and only its beginning stands there.
    screen.combo.setCurrentIndex(4);
    screen.combo.setEditText(u"ra"_s);
    QVERIFY(driver::show(screen));
    SelectTypedEntry(screen.combo);
    QCOMPARE(screen.text(), u"Ravi"_s);
    QVERIFY(screen.isOpen());
}

void AutoSearchTest::aLongListOpensAndSearchesAtOnce()
{
    QStringList many;
    for (int i = 0; i < 32767; ++i)
        many += u"Client %1"_s.arg(i, 5, 10, QChar(u'0'));
    SearchScreen screen;
    setComboEntries(screen.combo, many);
    QVERIFY(driver::show(screen));
    QElapsedTimer time;
    time.start();
    driver::type(u"client 32"_s);
    QCOMPARE(screen.text(), u"Client 32000"_s);
    QVERIFY2(time.elapsed() < 3000, qPrintable(QString::number(time.elapsed())));
}

void AutoSearchTest::aListOpensWhereTheUserComesToIt()
{
    SearchScreen screen;
    screen.setEntryKeys(Screen::EnterMovesOn);
    openListOnFocus(screen.combo);
    setComboText(screen.combo, u"Ravi"_s);
    QVERIFY(driver::show(screen));
    QApplication::processEvents();
    QVERIFY(screen.combo.hasFocus());
    QVERIFY2(!screen.isOpen(), "the screen opens with its list down");

    for (const Qt::Key away : {Qt::Key_Tab, Qt::Key_Return}) {
        driver::press(away);
        QVERIFY(screen.next.hasFocus());
        driver::press(Qt::Key_Backtab, Qt::ShiftModifier);
        QTRY_VERIFY(screen.isOpen());
        QCOMPARE(screen.combo.view()->currentIndex().row(), 4);
    }
    driver::press(Qt::Key_Escape);
    QApplication::processEvents();
    QVERIFY2(!screen.isOpen(), "Escape opens the list again");
    driver::type(u"ani"_s);
    QCOMPARE(screen.text(), u"anil kumar"_s);
    // Faster than the list can open.
    driver::press(Qt::Key_Tab);
    driver::press(Qt::Key_Backtab, Qt::ShiftModifier);
    driver::type(u"o"_s);
    QApplication::processEvents();
    QCOMPARE(screen.text(), u"O'Brien"_s);
    QCOMPARE(screen.selected(), u"'Brien"_s);
    driver::press(Qt::Key_Escape);

    // A click into the text, which stays open and is typed over, also where the list is there before the click ends.
    for (const bool isSlow : {false, true}) {
        driver::press(Qt::Key_Tab);
        QTest::mousePress(screen.combo.lineEdit(), Qt::LeftButton, {}, {30, 10});
        if (isSlow)
            QTRY_VERIFY(screen.isOpen());
        else
            QTest::mouseRelease(screen.combo.lineEdit(), Qt::LeftButton, {}, {30, 10});
        QTRY_VERIFY(screen.isOpen());
        QCOMPARE(screen.selected(), screen.text());
        driver::press(Qt::Key_Escape);
    }
    QTest::mouseRelease(screen.combo.lineEdit(), Qt::LeftButton, {}, {30, 10});

    // What a box above the screen leaves behind.
    {
        Screen above(u"above"_s);
        QVERIFY(driver::show(above));
        QTRY_VERIFY(!screen.isActiveWindow());
    }
    screen.activateWindow();
    QTRY_VERIFY(screen.combo.hasFocus());
    QApplication::processEvents();
    QVERIFY2(!screen.isOpen(), "the list drops when the screen comes back");
}

CORVANE_TEST(AutoSearchTest)
#include "tst_autoSearch.moc"
