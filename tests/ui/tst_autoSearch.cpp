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
#include <QElapsedTimer>
#include <QLineEdit>
#include <QSignalSpy>
#include <QToolTip>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using driver::press;
using driver::type;

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
        setEntryKeys(EnterMovesOn | PageKeysMove);
        onKey(
            Qt::Key_Return, u"Looks on"_s, [] {},
            [this] {
                enters += combo.currentIndex();
                return false;
            });
    }
    using Screen::keepEnter;

    [[nodiscard]] QString text() const { return combo.currentText(); }
    [[nodiscard]] bool isOpen() const { return combo.view()->isVisible(); }
    /// The text with a stroke at the caret. All behind it is selected, or else what is selected is told.
    [[nodiscard]] QString shown() const
    {
        const QLineEdit &line = *combo.lineEdit();
        const QString rest = text().mid(line.cursorPosition());
        const QString selected = line.selectedText() == rest ? QString() : u" selects "_s + line.selectedText();
        return text().left(line.cursorPosition()) + u'|' + rest + selected;
    }

    QVBoxLayout form{this};
    kvComboBox combo{u"cmbClient"_s};
    kvTextBox next{u"txtNext"_s};
    Command add{u"Command4"_s, u"&Add"_s};

    QList<int> enters;
};

struct OpenSearch : SearchScreen {
    OpenSearch() { QVERIFY(driver::show(*this)); }
};

/// Typing in combos that select from a list.
class AutoSearchTest : public QObject {
    Q_OBJECT

private slots:
    void typingSelectsTheFirstEntryThatBeginsSo();
    void whatIsComposedSearchesToo();
    void deletingCutsTheTextAndSelectsNothing();
    void theKeyThatClosesTheListActs();
    void escapeClosesTheListOnly();
    void keysMoveTheSelectionWithTheListOpen();
    void halfANameIsNoChoice();
    void theNextNameIsTypedOverTheOld();
    void enterBehindARefusedLetterGoesNoFurther();
    void aLongListOpensAtOnceAtTheMatch();
    void pastingSearchesAndTheWheelChangesNothing();
    void theTextSelectsTheFirstEntryThatBeginsSo();
    void aListOpensWhereTheUserComesToIt();
};

void AutoSearchTest::typingSelectsTheFirstEntryThatBeginsSo()
{
    // What no entry begins with is not typed.
    const std::pair<QString, QString> typing[]{{u"rAv"_s, u"Rav|i"_s}, {u"ANIL"_s, u"anil| kumar"_s},
        {u"an"_s, u"An|and"_s}, {u"ravi"_s, u"Ravi|"_s}, {u"ravin"_s, u"Ravin|dra"_s}, {u"raxv"_s, u"Rav|i"_s},
        {u"z"_s, u"|"_s}, {u"o'b"_s, u"O'B|rien"_s}, {u"anil k"_s, u"anil k|umar"_s}};
    for (const auto &[typed, shown] : typing) {
        OpenSearch screen;
        type(typed);
        QCOMPARE(screen.shown(), shown);
        QCOMPARE(screen.combo.currentIndex(), clients.indexOf(screen.text()));
        QVERIFY(screen.isOpen());
        QCOMPARE(screen.combo.cursor().shape(), Qt::ArrowCursor);
    }
}

void AutoSearchTest::whatIsComposedSearchesToo()
{
    OpenSearch screen;
    setComboEntries(screen.combo, clients + QStringList{u"Émile"_s});
    driver::compose(screen.combo, {}, u"ü"_s);
    QCOMPARE(screen.text(), QString());
    for (const QString &letter : {u"é"_s, u"\U0001F44D"_s}) {
        driver::compose(screen.combo, {}, letter);
        QCOMPARE(screen.shown(), u"É|mile"_s);
    }
    // Under what is being composed nothing is set: that would end it. It begins in the open list.
    QVERIFY(screen.isOpen());
    QSignalSpy chosen(&screen.combo, &kvComboBox::currentIndexChanged);
    driver::compose(*screen.combo.view(), u"m"_s, {});
    QCOMPARE(screen.text(), u"É"_s);
    QCOMPARE(chosen.count(), 0);
    driver::compose(*screen.combo.view(), {}, u"m"_s);
    QCOMPARE(screen.shown(), u"Ém|ile"_s);
    // Given up, it leaves half a name.
    driver::compose(*screen.combo.view(), u"i"_s, {});
    driver::compose(*screen.combo.view(), {}, {});
    QCOMPARE(screen.text(), u"Ém"_s);
    QCOMPARE(screen.combo.currentIndex(), -1);
}

void AutoSearchTest::deletingCutsTheTextAndSelectsNothing()
{
    OpenSearch screen;
    type(u"ravin"_s);
    press({Qt::Key_Escape, Qt::Key_Delete});
    QCOMPARE(screen.shown(), u"Ravin|"_s);
    QCOMPARE(screen.combo.currentIndex(), -1);
    type(u"d"_s);
    press({Qt::Key_Backspace, Qt::Key_Backspace});
    QCOMPARE(screen.shown(), u"Ravin|"_s);
    QCOMPARE(screen.combo.currentIndex(), -1);
    QSignalSpy changes(&screen.combo, &kvComboBox::currentTextChanged);
    press(Qt::Key_Backspace);
    QCOMPARE(screen.shown(), u"Ravi|"_s);
    QCOMPARE(screen.combo.currentIndex(), 4);
    // Nobody sees the text empty on its way from one to the other.
    QCOMPARE(changes, QList<QVariantList>{{u"Ravi"_s}});
    for (int i = 0; i < 5; ++i)
        press(Qt::Key_Backspace);
    QCOMPARE(screen.text(), QString());
    type(u"a"_s);
    QCOMPARE(screen.text(), u"Anand"_s);
}

void AutoSearchTest::theKeyThatClosesTheListActs()
{
    OpenSearch screen;
    QSignalSpy added(&screen.add, &Command::clicked);
    const std::tuple<QString, QKeyCombination, QString> choices[]{{u"ra"_s, Qt::ALT | Qt::Key_A, u"Ravi"_s},
        {u"o"_s, Qt::Key_Tab, u"O'Brien"_s}, {u"anit"_s, Qt::Key_Return, u"Anita"_s}};
    for (const auto &[typed, key, name] : choices) {
        screen.combo.setFocus();
        type(typed);
        QVERIFY(screen.isOpen());
        press({key});
        QVERIFY(!screen.isOpen());
        QCOMPARE(screen.text(), name);
        QVERIFY(key.key() == Qt::Key_A ? screen.add.hasFocus() : screen.next.hasFocus());
    }
    QCOMPARE(added.count(), 1);
    QCOMPARE(screen.enters, QList<int>{2});

    SearchScreen::keepEnter(&screen.combo);
    screen.combo.setFocus();
    QList<int> pressed;
    connect(&screen.combo, &kvComboBox::keyPress, this, [&pressed](int &key) { pressed += key; });
    type(u"ravin"_s);
    press(Qt::Key_Return);
    QVERIFY(screen.combo.hasFocus());
    QCOMPARE(screen.enters, (QList<int>{2, 5}));
    QCOMPARE(pressed, QList<int>{13});
    QCOMPARE(screen.shown(), u"Ravindra|"_s);
}

void AutoSearchTest::escapeClosesTheListOnly()
{
    OpenSearch screen;
    type(u"ra"_s);
    press(Qt::Key_Escape);
    QVERIFY(!screen.isOpen());
    QVERIFY(screen.isVisible());
    QCOMPARE(screen.shown(), u"Ra|vi"_s);
    type(u"v"_s);
    QCOMPARE(screen.shown(), u"Rav|i"_s);
    press(Qt::Key_Escape);
    QTRY_VERIFY(screen.isActiveWindow());
    press(Qt::Key_Escape);
    QVERIFY(!screen.isVisible());
}

void AutoSearchTest::keysMoveTheSelectionWithTheListOpen()
{
    OpenSearch screen;
    screen.combo.setMaxVisibleItems(4);
    type(u"an"_s);
    const std::pair<Qt::Key, int> moves[]{{Qt::Key_Down, 1}, {Qt::Key_Up, 0}, {Qt::Key_Up, 0}, {Qt::Key_PageDown, 3},
        {Qt::Key_PageDown, 5}, {Qt::Key_PageUp, 2}, {Qt::Key_Home, 0}, {Qt::Key_End, 5}, {Qt::Key_Down, 5},
        {Qt::Key_Home, 0}, {Qt::Key_Down, 1}};
    for (const auto &[key, entry] : moves) {
        press(key);
        QCOMPARE(screen.combo.currentIndex(), entry);
        QCOMPARE(screen.text(), clients.at(entry));
        QCOMPARE(screen.combo.view()->currentIndex().row(), entry);
    }
    QVERIFY(screen.isOpen());
    // The mouse resting on another row does not decide what Enter takes.
    screen.combo.view()->setCurrentIndex(screen.combo.model()->index(3, 0));
    press(Qt::Key_Return);
    QCOMPARE(screen.text(), u"anil kumar"_s);
    QVERIFY(screen.next.hasFocus());
}

void AutoSearchTest::halfANameIsNoChoice()
{
    for (const bool isOpen : {true, false}) {
        for (const auto key : {Qt::Key_Down, Qt::Key_Up}) {
            OpenSearch screen;
            const auto looksHalf = [&screen] { return screen.combo.lineEdit()->font().italic(); };
            type(u"ravin"_s);
            QVERIFY(!looksHalf());
            if (!isOpen)
                press(Qt::Key_Escape);
            press(Qt::Key_Backspace);
            QVERIFY(looksHalf());
            QVERIFY(!screen.combo.view()->currentIndex().isValid() || !isOpen);
            press(key);
            QCOMPARE(screen.text(), u"Ravindra"_s);
            QVERIFY(!looksHalf());
            press(Qt::Key_Up);
            QCOMPARE(screen.text(), u"Ravi"_s);
        }
    }
}

void AutoSearchTest::theNextNameIsTypedOverTheOld()
{
    for (const QString &way :
        {u"arrows in the open list"_s, u"arrows"_s, u"set, entered"_s, u"set, clicked"_s, u"set while entered"_s}) {
        OpenSearch screen;
        QLineEdit *const line = screen.combo.lineEdit();
        if (way.startsWith(u"set"_s)) {
            if (way != u"set while entered"_s)
                screen.next.setFocus();
            screen.combo.setText(u"Anita"_s);
            if (way == u"set, clicked"_s)
                QTest::mouseClick(line, Qt::LeftButton, {}, {30, 10});
            else
                screen.combo.setFocus();
        } else {
            type(u"anil"_s);
            if (way == u"arrows"_s)
                press(Qt::Key_Escape);
            press(Qt::Key_Down);
        }
        QCOMPARE(line->selectedText(), u"Anita"_s);
        // So that a long name shows its beginning.
        QCOMPARE(line->cursorPosition(), 0);
        type(u"ravin"_s);
        QVERIFY2(screen.text() == u"Ravindra", qPrintable(way));
        // Once entered, a click sets the caret, and one that draws over a part selects that.
        press(Qt::Key_Escape);
        QTest::mouseClick(line, Qt::LeftButton, {}, {30, 10});
        QCOMPARE(line->selectedText(), QString());
        screen.next.setFocus();
        QTest::mousePress(line, Qt::LeftButton, {}, {30, 10});
        QTest::mouseMove(line, {300, 10});
        QTest::mouseRelease(line, Qt::LeftButton, {}, {300, 10});
        const QString selected = line->selectedText();
        QVERIFY(u"Ravindra"_s.endsWith(selected) && selected.size() < 8 && selected.size() > 1);
    }
}

void AutoSearchTest::enterBehindARefusedLetterGoesNoFurther()
{
    OpenSearch screen;
    SearchScreen::keepEnter(&screen.combo);
    int passedOn = 0;
    connect(&screen.combo, &kvComboBox::keyPress, &screen, [&passedOn](int &key) { passedOn += key == keys::Enter; });
    type(u"rax"_s);
    QTRY_COMPARE(QToolTip::text(), u"No name begins with \"Rax\""_s);
    type(u"v"_s);
    QTRY_VERIFY(!QToolTip::isVisible());
    screen.combo.setText({});
    type(u"rax"_s);
    press(Qt::Key_Return);
    QCOMPARE(passedOn, 0);
    QCOMPARE(screen.shown(), u"|Ravi"_s);
    QTRY_COMPARE(QToolTip::text(), u"No name begins with \"Rax\""_s);
    press(Qt::Key_Return);
    QCOMPARE(passedOn, 1);

    // Whatever is right since then makes up for it.
    screen.combo.setFocus();
    type(u"ax"_s);
    press({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(passedOn, 2);
    screen.combo.setFocus();
    type(u"oy"_s);
    press({Qt::Key_Backspace, Qt::Key_Return});
    QCOMPARE(passedOn, 3);
}

void AutoSearchTest::aLongListOpensAtOnceAtTheMatch()
{
    QStringList many;
    for (int i = 0; i < 32767; ++i)
        many += u"Client %1"_s.arg(i, 5, 10, QChar(u'0'));
    OpenSearch screen;
    setComboEntries(screen.combo, many);
    // What else begins so stands below it.
    const auto topRow = [&screen] { return screen.combo.view()->indexAt(QPoint(4, 4)).row(); };
    QElapsedTimer time;
    time.start();
    type(u"client 32"_s);
    QCOMPARE(topRow(), 32000);
    QVERIFY2(time.elapsed() < 3000, qPrintable(QString::number(time.elapsed())));
    type(u"5"_s);
    QCOMPARE(topRow(), 32500);
    press(Qt::Key_Down);
    QCOMPARE(topRow(), 32500);
    // Also where the list opens on a name that stands there.
    press(Qt::Key_Escape);
    screen.combo.setText(u"Client 30000"_s);
    SelectTypedEntry(screen.combo);
    QCOMPARE(topRow(), 30000);
}

void AutoSearchTest::pastingSearchesAndTheWheelChangesNothing()
{
    OpenSearch screen;
    driver::paste(u" anit\n"_s);
    QCOMPARE(screen.text(), u"Anita"_s);
    driver::paste(u"nobody"_s);
    press(Qt::Key_Escape);
    driver::turnWheel(screen.combo);
    QCOMPARE(screen.text(), u"Anita"_s);
    QCOMPARE(screen.combo.currentIndex(), 2);
}

void AutoSearchTest::theTextSelectsTheFirstEntryThatBeginsSo()
{
    for (const auto &[text, entry] : {std::pair{u"RAV"_s, 4}, std::pair{u"Ravindra"_s, 5}, std::pair{u"Zed"_s, -1},
             std::pair{QString(), -1}, std::pair{u"Ravindra "_s, -1}}) {
        const QString shown = entry < 0 ? text : clients.at(entry);
        SearchScreen screen;
        screen.combo.setEditText(text);
        QCOMPARE(SelectComboEntry(screen.combo), entry);
        QCOMPARE(screen.text(), shown);
        QCOMPARE(screen.combo.currentIndex(), entry);

        // A name that the program shows is that one or none.
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
}

void AutoSearchTest::aListOpensWhereTheUserComesToIt()
{
    SearchScreen screen;
    openListOnFocus(screen.combo);
    setComboText(screen.combo, u"Ravi"_s);
    QVERIFY(driver::show(screen));
    QApplication::processEvents();
    QVERIFY(screen.combo.hasFocus());
    QVERIFY2(!screen.isOpen(), "the screen opens with its list down");

    for (const Qt::Key away : {Qt::Key_Tab, Qt::Key_Return}) {
        press(away);
        QVERIFY(screen.next.hasFocus());
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        QTRY_VERIFY(screen.isOpen());
        QCOMPARE(screen.combo.view()->currentIndex().row(), 4);
    }
    press(Qt::Key_Escape);
    QApplication::processEvents();
    QVERIFY2(!screen.isOpen(), "Escape opens the list again");
    type(u"ani"_s);
    QCOMPARE(screen.text(), u"anil kumar"_s);
    // Faster than the list can open.
    press({Qt::Key_Tab, Qt::SHIFT | Qt::Key_Backtab});
    type(u"o"_s);
    QApplication::processEvents();
    QCOMPARE(screen.shown(), u"O|'Brien"_s);
    press(Qt::Key_Escape);

    // A click into the text, which stays open and is typed over, also where the list is there before the click ends.
    QLineEdit *const line = screen.combo.lineEdit();
    for (const bool isSlow : {false, true}) {
        press(Qt::Key_Tab);
        QTest::mousePress(line, Qt::LeftButton, {}, {30, 10});
        if (!isSlow)
            QTest::mouseRelease(line, Qt::LeftButton, {}, {30, 10});
        QTRY_VERIFY(screen.isOpen());
        QCOMPARE(line->selectedText(), screen.text());
        press(Qt::Key_Escape);
    }
    QTest::mouseRelease(line, Qt::LeftButton, {}, {30, 10});

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
