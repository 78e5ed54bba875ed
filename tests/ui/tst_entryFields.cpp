#include "support/ModalScript.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/DateField.h"
#include "ui/Screen.h"
#include "ui/entryFilters.h"
#include "ui/entryKeys.h"
#include "ui/frmMsg.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"
#include "ui/kvTextBoxMultiLine.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTextBlock>
#include <QToolTip>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using driver::press;
using driver::type;

/// A screen with each kind of entry field on it.
class FieldScreen : public Screen {
public:
    FieldScreen() : Screen(u"FieldScreen"_s)
    {
        for (QWidget *control :
            std::initializer_list<QWidget *>{&name, &amount, &lines, &combo, &save, &fees, &quantity, &day})
            form.addWidget(control);
        filterKeys(&fees, DecimalKeysOnly);
        filterKeys(&quantity, DigitKeysOnly);
        QVERIFY(driver::show(*this));
    }
    ~FieldScreen() override { QToolTip::hideText(); }
    using Screen::saveKey;

    QVBoxLayout form{this};
    kvTextBox name{u"txtName"_s};
    kvTextBox amount{u"txtAmount"_s, 1};
    kvTextBoxMultiLine lines{u"txtLines"_s};
    kvComboBox combo{u"cmbFees"_s};
    Command save{u"Command1"_s, u"&Save"_s};
    kvTextBox fees{u"txtFees"_s, 2};
    kvTextBox quantity{u"txtQnt"_s, 2};
    DateField day{u"DateFrom"_s};
};

namespace {

/// What is put into a field by another way than keys.
void dropOn(QWidget &field, const QString &text)
{
    QMimeData data;
    data.setText(text);
    const QPointF place(2, field.height() / 2.0);
    QDragEnterEvent entered(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &entered);
    QDropEvent dropped(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &dropped);
}

QColor background(const QWidget &field)
{
    return field.palette().color(QPalette::Base);
}

} // namespace

/// What the entry controls do with keys, the clipboard and the focus.
class EntryFieldsTest : public QObject {
    Q_OBJECT

private slots:
    void namesAreCapitalisedAsTheyAreTyped();
    void amountsTakeDigitsAndOnePoint();
    void pastedLineBreaksBecomeBlanks();
    void whatIsPastedIsTheNumberThatItNames();
    void longTextsShowTheirBeginning();
    void whatIsComposedOrDroppedGoesTheWayOfKeys();
    void enterLeavesASingleLineAndMakesOneInABox();
    void theScreenMayChangeAndSwallowKeys();
    void searchBoxKeysMoveTheListAndStopAtItsEnds();
    void theFocusShowsWhiteOnBlack();
    void aFieldIsLeftBeforeACommandActs();
    void aMessageAboveLeavesTheFieldAlone();
};

void EntryFieldsTest::namesAreCapitalisedAsTheyAreTyped()
{
    FieldScreen screen;
    for (const auto &[typed, text] :
        {std::pair(u"ravi kumar shah"_s, u"Ravi Kumar Shah"_s), std::pair(u"ravi  k"_s, u"Ravi  K"_s),
            std::pair(u"mcDONALD"_s, u"McDONALD"_s), std::pair(u"o'brien-shah"_s, u"O'brien-shah"_s)}) {
        screen.name.clear();
        type(typed);
        QCOMPARE(screen.name.Text(), text);
    }
    // A letter corrected by hand stays, and so does what the program sets.
    press({Qt::Key_Home, Qt::Key_Delete});
    type(u"o"_s);
    QCOMPARE(screen.name.Text(), u"o'brien-shah"_s);
    screen.name.setText(u"set as it is"_s);
    QCOMPARE(screen.name.Text(), u"set as it is"_s);
    screen.name.setBoxType(2);
    screen.name.clear();
    type(u"ravi kumar"_s);
    QCOMPARE(screen.name.Text(), u"ravi kumar"_s);
}

void EntryFieldsTest::amountsTakeDigitsAndOnePoint()
{
    struct Amount {
        QString typed;
        QString text;
        QString left;
        QString digits;
    };
    // In a field that filters its keys without being one for amounts, too.
    FieldScreen screen;
    screen.combo.setBoxType(1);
    for (const auto &[typed, text, left, digits] : {Amount{u""_s, u""_s, u"0.00"_s, u""_s},
             {u"12.5"_s, u"12.5"_s, u"12.50"_s, u"125"_s}, {u"1.2.3"_s, u"1.23"_s, u"1.23"_s, u"123"_s},
             {u"a-1 e2 "_s, u"12"_s, u"12.00"_s, u"12"_s}, {u".5"_s, u".5"_s, u"0.50"_s, u"5"_s}}) {
        const auto enter = [&typed = typed](auto &field) {
            field.setFocus();
            press({Qt::CTRL | Qt::Key_A, Qt::Key_Backspace});
            type(typed);
            return field.Text();
        };
        QCOMPARE(enter(screen.amount), text);
        QCOMPARE(enter(screen.combo), text);
        QCOMPARE(screen.amount.Text(), left);
        QCOMPARE(enter(screen.fees), text);
        QCOMPARE(screen.combo.Text(), left);
        QCOMPARE(enter(screen.quantity), digits);
        QCOMPARE(screen.fees.Text(), text);
    }
    // A key that types nothing is no cause for a tip.
    screen.fees.setFocus();
    press(Qt::Key_Space);
    QCoreApplication::processEvents();
    QVERIFY(!QToolTip::isVisible());
    screen.amount.setText(u"7"_s);
    QCOMPARE(screen.amount.Text(), u"7.00"_s);
    screen.amount.setFocus();
    // All is selected: the next key replaces it, its point included.
    type(u".25"_s);
    press(Qt::Key_Tab);
    QCOMPARE(screen.amount.Text(), u"0.25"_s);
    screen.lines.setBoxType(1);
    screen.lines.setText(u"3.456"_s);
    QCOMPARE(screen.lines.Text(), u"3.46"_s);
}

void EntryFieldsTest::pastedLineBreaksBecomeBlanks()
{
    FieldScreen screen;
    type(u"at "_s);
    driver::paste(u"12, Main Road\r\nPune\n411001"_s);
    QCOMPARE(screen.name.Text(), u"At 12, Main Road Pune 411001"_s);
    QCOMPARE(screen.name.cursorPosition(), screen.name.Text().size());
    // What is typed next goes on behind what was pasted.
    press(Qt::Key_Home);
    driver::paste(u"Asha\nRao "_s);
    type(u"x"_s);
    QCOMPARE(screen.name.Text(), u"Asha Rao xAt 12, Main Road Pune 411001"_s);
}

void EntryFieldsTest::whatIsPastedIsTheNumberThatItNames()
{
    struct Paste {
        QString text;
        QString over;
        QString before;
    };
    for (const auto &[pasted, over, before] : {Paste{u"7.5"_s, u"7.5"_s, u"12.50"_s}, {u"75"_s, u"75"_s, u"7512.50"_s},
             {u"Rs. 1,500/-"_s, u"1500"_s, u"150012.50"_s}, {u"Sherwani"_s, u"12.50"_s, u"12.50"_s},
             {u"12 pieces"_s, u"12"_s, u"1212.50"_s}, {u"100\n200"_s, u"12.50"_s, u"12.50"_s},
             {u"1.2.3"_s, u"12.50"_s, u"12.50"_s}, {u"-5"_s, u"12.50"_s, u"12.50"_s}}) {
        FieldScreen screen;
        screen.combo.setBoxType(1);
        screen.lines.setBoxType(1);
        const auto pasteInto = [&pasted = pasted](auto &field, const QString &standing) {
            field.setText(standing);
            field.setFocus();
            driver::paste(pasted);
            return field.Text();
        };
        for (kvTextBox *box : {&screen.amount, &screen.fees}) {
            QCOMPARE(pasteInto(*box, u"12.50"_s), over);
            press(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(box->Text(), u"12.50"_s);
            if (over == u"12.50"_s) {
                QTRY_COMPARE(QToolTip::text(), u"\"%1\" is not a number that fits here."_s.arg(pasted.simplified()));
                QCOMPARE(box->selectedText(), u"12.50"_s);
                QToolTip::hideText();
            }
            press(Qt::Key_Home);
            const std::unique_ptr<QMenu> menu(box->createStandardContextMenu());
            for (QAction *action : menu->actions()) {
                if (action->text().startsWith(u"&Paste"_s))
                    action->trigger();
            }
            QCOMPARE(box->Text(), before);
            box->setText(u"12.50"_s);
            dropOn(*box, pasted);
            QCOMPARE(box->Text(), before);
        }
        QCOMPARE(pasteInto(screen.quantity, u"3"_s), over.contains(u'.') ? u"3"_s : over);
        QCOMPARE(pasteInto(screen.combo, u"12.50"_s), over);
        QCOMPARE(pasteInto(screen.lines, u"12.50"_s), over);
    }
    // What stands on both sides is none of what was pasted.
    FieldScreen screen;
    screen.fees.setText(u"12.50"_s);
    screen.fees.setFocus();
    screen.fees.setCursorPosition(2);
    driver::paste(u"Rs 3"_s);
    QCOMPARE(screen.fees.Text(), u"123.50"_s);
    QCOMPARE(screen.fees.cursorPosition(), 3);
}

void EntryFieldsTest::longTextsShowTheirBeginning()
{
    const QString text = QString(u"Rajendra Kumar Shekhawat, "_s).repeated(12);
    FieldScreen screen;
    screen.combo.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    screen.combo.addItem(text);
    screen.lines.setFocus();
    screen.name.setText(text);
    screen.combo.setText(text);
    const auto leftmost = [](QLineEdit &line) {
        // It scrolls when it is drawn.
        line.grab();
        return line.cursorPositionAt({4, line.height() / 2});
    };
    for (QLineEdit *line : {static_cast<QLineEdit *>(&screen.name), screen.combo.lineEdit()}) {
        QVERIFY2(leftmost(*line) < 2, "set before it is entered");
        line->setFocus();
        QVERIFY2(leftmost(*line) < 2, "entered");
        QCOMPARE(line->selectedText(), text);
        press(Qt::Key_End);
        QVERIFY(leftmost(*line) > 2);
        press(Qt::Key_Tab);
        QVERIFY2(leftmost(*line) < 2, "left");
    }
}

void EntryFieldsTest::whatIsComposedOrDroppedGoesTheWayOfKeys()
{
    FieldScreen screen;
    driver::compose(screen.name, u"é"_s);
    type(u"mile "_s);
    driver::compose(screen.name, u"ñ"_s);
    driver::compose(screen.name, u" \u0936\u0930\u094d\U0001F44D"_s);
    QCOMPARE(screen.name.Text(), u"Émile Ñ \u0936\u0930\u094d\U0001F44D"_s);

    press(Qt::Key_Return);
    QVERIFY(screen.amount.hasFocus());
    driver::compose(screen.amount, u"é1.5"_s);
    driver::compose(screen.amount, u".é"_s);
    QCOMPARE(screen.amount.Text(), u"1.5"_s);
    // By the middle button.
    QApplication::clipboard()->setText(u"Rs 2"_s, QClipboard::Selection);
    QTest::mouseClick(&screen.amount, Qt::MiddleButton, {}, QPoint(2, screen.amount.height() / 2));
    driver::compose(screen.amount, u"\U0001F44D"_s);
    QCOMPARE(screen.amount.Text(), u"21.5"_s);

    driver::compose(screen.lines, u"é"_s);
    // The next syllable begins as the one before ends.
    driver::compose(screen.lines, u"n"_s, u"र"_s);
    QCOMPARE(screen.lines.Text(), u"éर"_s);
    QCOMPARE(screen.lines.document()->firstBlock().layout()->preeditAreaText(), u"n"_s);
}

void EntryFieldsTest::enterLeavesASingleLineAndMakesOneInABox()
{
    FieldScreen screen;
    QList<int> heard;
    connect(&screen.name, &kvTextBox::keyPress, this, [&heard](int &key) { heard += key; });
    press(Qt::Key_Return);
    QVERIFY(screen.amount.hasFocus());
    QVERIFY(heard.isEmpty());
    screen.name.setAutoTab(false);
    screen.name.setFocus();
    press(Qt::Key_Return);
    QVERIFY(screen.name.hasFocus());
    QCOMPARE(heard, QList<int>{13});

    screen.lines.setFocus();
    type(u"chest=40"_s);
    press(Qt::Key_Return);
    type(u"waist"_s);
    QCOMPARE(screen.lines.Text(), u"chest=40\r\nwaist"_s);
    press(Qt::Key_Tab);
    QVERIFY(screen.combo.hasFocus());
    for (const QString &text : {u"one\r\ntwo\r\n"_s, u"one\rtwo"_s, u"one\ntwo"_s}) {
        screen.lines.setText(text);
        QCOMPARE(screen.lines.Text(), text);
    }
}

void EntryFieldsTest::theScreenMayChangeAndSwallowKeys()
{
    FieldScreen screen;
    QList<int> down;
    connect(&screen.name, &kvTextBox::keyPress, this, [](int &key) {
        if (key == 'x')
            key = keys::Swallowed;
        if (key == ',')
            key = '.';
    });
    connect(&screen.name, &kvTextBox::keyDown, this, [&down](int &key) {
        down += key;
        if (key == keys::Home)
            key = keys::Swallowed;
    });
    type(u"axb,c"_s);
    press({Qt::Key_Home, Qt::Key_Up, Qt::Key_F3});
    // What types the character of that code is not the arrow.
    type(u"&"_s);
    QCOMPARE(screen.name.Text(), u"Ab.c&"_s);
    QCOMPARE(down, QList<int>({'A', 'X', 'B', 'C', keys::Home, keys::Up, 114}));
}

void EntryFieldsTest::searchBoxKeysMoveTheListAndStopAtItsEnds()
{
    QListWidget list;
    list.addItems({u"a"_s, u"b"_s, u"c"_s});
    list.setCurrentRow(-1);
    for (const auto &[key, row] : {std::pair(38, -1), std::pair(40, 0), std::pair(38, 0), std::pair(40, 1),
             std::pair(35, 2), std::pair(40, 2), std::pair(38, 1), std::pair(36, 0), std::pair(65, 0)}) {
        QCOMPARE(ListNavKeys(list, key), key == 38 ? 0 : key);
        QCOMPARE(list.currentRow(), row);
    }
}

void EntryFieldsTest::theFocusShowsWhiteOnBlack()
{
    FieldScreen screen;
    screen.name.setText(u"Ravi"_s);
    screen.name.setForeColor(Qt::darkRed);
    screen.save.setFocus();
    // What the screen shows counts, not what the box thinks.
    const auto ground = [](QWidget &field) { return field.grab().toImage().pixelColor(field.rect().center()); };
    for (QWidget *field : std::initializer_list<QWidget *>{&screen.name, &screen.lines, &screen.combo, &screen.day}) {
        QCOMPARE(ground(*field), QColor(Qt::white));
        field->setFocus();
        QCOMPARE(ground(*field), QColor(Qt::black));
        const auto *line = field->findChild<QLineEdit *>();
        QCOMPARE((line ? line : field)->palette().color(QPalette::Text), QColor(Qt::white));
        screen.save.setFocus();
        QCOMPARE(ground(*field), QColor(Qt::white));
    }
    QCOMPARE(screen.name.palette().color(QPalette::Text), QColor(Qt::darkRed));
}

void EntryFieldsTest::aFieldIsLeftBeforeACommandActs()
{
    const std::function<void(FieldScreen &)> ways[]{
        [](FieldScreen &screen) { QTest::mouseClick(&screen.save, Qt::LeftButton); },
        [](FieldScreen &) { driver::accessKey('s'); }, [](FieldScreen &) { press(Qt::Key_S, Qt::ControlModifier); }};
    for (const auto &save : ways) {
        FieldScreen screen;
        screen.saveKey(&screen.save);
        QString seen;
        connect(&screen.save, &Command::clicked, this, [&] { seen = screen.amount.Text(); });
        screen.amount.setFocus();
        type(u"12"_s);
        save(screen);
        QCOMPARE(seen, u"12.00"_s);
    }
}

void EntryFieldsTest::aMessageAboveLeavesTheFieldAlone()
{
    FieldScreen screen;
    screen.amount.setFocus();
    type(u"12"_s);
    QSignalSpy left(&screen.amount, &kvTextBox::lostFocus);
    QSignalSpy entered(&screen.amount, &kvTextBox::gotFocus);
    ModalScript script;
    script.expectMessage(u"Look here"_s);
    ShowMessage(u"Look here"_s);
    QVERIFY(driver::waitActive(screen));
    QCOMPARE(left.count(), 0);
    type(u"5"_s);
    QCOMPARE(screen.amount.Text(), u"125"_s);

    // Where the message leads to another field, the first one is left after all.
    script.expectMessage(u"And here"_s);
    ShowMessage(u"And here"_s);
    screen.name.setFocus();
    QVERIFY(driver::waitActive(screen));
    QTRY_COMPARE(left.count(), 1);
    QCOMPARE(screen.amount.Text(), u"125.00"_s);
    QCOMPARE(background(screen.amount), QColor(Qt::white));
    QCOMPARE(entered.count(), 0);
}

CORVANE_TEST(EntryFieldsTest)
#include "tst_entryFields.moc"
