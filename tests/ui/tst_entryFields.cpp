#include "support/ModalScript.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
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
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTextBlock>
#include <QToolTip>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

/// A screen with each kind of entry field on it.
class FieldScreen : public Screen {
public:
    FieldScreen() : Screen(u"FieldScreen"_s)
    {
        for (QWidget *control : std::initializer_list<QWidget *>{&name, &amount, &lines, &combo, &save})
            form.addWidget(control);
    }

    QVBoxLayout form{this};
    kvTextBox name{u"txtName"_s};
    kvTextBox amount{u"txtAmount"_s, 1};
    kvTextBoxMultiLine lines{u"txtLines"_s};
    kvComboBox combo{u"cmbFees"_s};
    Command save{u"Command1"_s, u"&Save"_s};
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
    void namesAreCapitalisedAsTheyAreTyped_data();
    void namesAreCapitalisedAsTheyAreTyped();
    void aLetterCorrectedByHandStays();
    void amountsTakeDigitsAndOnePoint_data();
    void amountsTakeDigitsAndOnePoint();
    void amountsReadWithTwoDecimals();
    void pastedLineBreaksBecomeBlanks();
    void whatIsPastedIsTheNumberThatItNames_data();
    void whatIsPastedIsTheNumberThatItNames();
    void longTextsShowTheirBeginning();
    void whatIsComposedOrDroppedGoesTheWayOfKeys();
    void enterLeavesASingleLineAndNobodyHearsOfIt();
    void enterMakesANewLineInAMultiLineBox();
    void theScreenMayChangeAndSwallowKeys();
    void theFocusShowsWhiteOnBlack();
    void aFieldIsLeftBeforeACommandActs_data();
    void aFieldIsLeftBeforeACommandActs();
    void aMessageAboveLeavesTheFieldAlone();
};

void EntryFieldsTest::namesAreCapitalisedAsTheyAreTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("boxType");
    QTest::addColumn<QString>("text");
    QTest::newRow("each word") << u"ravi kumar shah"_s << 0 << u"Ravi Kumar Shah"_s;
    QTest::newRow("two blanks") << u"ravi  k"_s << 0 << u"Ravi  K"_s;
    QTest::newRow("the rest as typed") << u"mcDONALD"_s << 0 << u"McDONALD"_s;
    QTest::newRow("only a blank starts a word") << u"o'brien-shah"_s << 0 << u"O'brien-shah"_s;
    QTest::newRow("plain text") << u"ravi kumar"_s << 2 << u"ravi kumar"_s;
}

void EntryFieldsTest::namesAreCapitalisedAsTheyAreTyped()
{
    QFETCH(QString, typed);
    QFETCH(int, boxType);
    FieldScreen screen;
    screen.name.setBoxType(boxType);
    QVERIFY(driver::show(screen));
    driver::type(typed);
    QTEST(screen.name.Text(), "text");
}

void EntryFieldsTest::aLetterCorrectedByHandStays()
{
    FieldScreen screen;
    QVERIFY(driver::show(screen));
    driver::type(u"ravi"_s);
    driver::press(Qt::Key_Home);
    driver::press(Qt::Key_Delete);
    driver::type(u"r"_s);
    QCOMPARE(screen.name.Text(), u"ravi"_s);
    screen.name.setText(u"set as it is"_s);
    QCOMPARE(screen.name.Text(), u"set as it is"_s);
}

void EntryFieldsTest::amountsTakeDigitsAndOnePoint_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("left");
    QTest::newRow("nothing") << u""_s << u""_s << u"0.00"_s;
    QTest::newRow("one decimal") << u"12.5"_s << u"12.5"_s << u"12.50"_s;
    QTest::newRow("second point") << u"1.2.3"_s << u"1.23"_s << u"1.23"_s;
    QTest::newRow("letters and signs") << u"a-1e2 "_s << u"12"_s << u"12.00"_s;
    QTest::newRow("starts with the point") << u".5"_s << u".5"_s << u"0.50"_s;
}

void EntryFieldsTest::amountsTakeDigitsAndOnePoint()
{
    QFETCH(QString, typed);
    for (const bool inCombo : {false, true}) {
        FieldScreen screen;
        screen.combo.setBoxType(1);
        QVERIFY(driver::show(screen));
        inCombo ? screen.combo.setFocus() : screen.amount.setFocus();
        const auto text = [&] { return inCombo ? screen.combo.Text() : screen.amount.Text(); };
        driver::type(typed);
        QTEST(text(), "text");
        driver::press(Qt::Key_Tab);
        QTEST(text(), "left");
    }
}

void EntryFieldsTest::amountsReadWithTwoDecimals()
{
    FieldScreen screen;
    screen.amount.setText(u"7"_s);
    QCOMPARE(screen.amount.Text(), u"7.00"_s);
    QVERIFY(driver::show(screen));
    screen.amount.setFocus();
    // All is selected: the next key replaces it, its point included.
    driver::type(u".25"_s);
    driver::press(Qt::Key_Tab);
    QCOMPARE(screen.amount.Text(), u"0.25"_s);
    screen.lines.setBoxType(1);
    screen.lines.setText(u"3.456"_s);
    QCOMPARE(screen.lines.Text(), u"3.46"_s);
}

void EntryFieldsTest::pastedLineBreaksBecomeBlanks()
{
    FieldScreen screen;
    QVERIFY(driver::show(screen));
    QApplication::clipboard()->setText(u"12, Main Road\r\nPune\n411001"_s);
    driver::type(u"at "_s);
    driver::press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(screen.name.Text(), u"At 12, Main Road Pune 411001"_s);
    QCOMPARE(screen.name.cursorPosition(), screen.name.Text().size());
}

void EntryFieldsTest::whatIsPastedIsTheNumberThatItNames_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("over");
    QTest::addColumn<QString>("before");
    QTest::newRow("number") << u"7.5"_s << u"7.5"_s << u"12.50"_s;
    QTest::newRow("whole number") << u"75"_s << u"75"_s << u"7512.50"_s;
    QTest::newRow("grouped") << u"Rs. 1,500/-"_s << u"1500"_s << u"150012.50"_s;
    QTest::newRow("words") << u"Sherwani"_s << u"12.50"_s << u"12.50"_s;
    QTest::newRow("begins as before") << u"12 pieces"_s << u"12"_s << u"1212.50"_s;
    QTest::newRow("two numbers") << u"100\n200"_s << u"12.50"_s << u"12.50"_s;
    QTest::newRow("two points") << u"1.2.3"_s << u"12.50"_s << u"12.50"_s;
    QTest::newRow("minus") << u"-5"_s << u"12.50"_s << u"12.50"_s;
}

void EntryFieldsTest::whatIsPastedIsTheNumberThatItNames()
{
    QFETCH(QString, pasted);
    QFETCH(QString, over);
    QFETCH(QString, before);
    FieldScreen screen;
    kvTextBox fees(u"txtFees"_s, 2);
    kvTextBox quantity(u"txtQnt"_s, 2);
    filterKeys(&fees, DecimalKeysOnly);
    filterKeys(&quantity, DigitKeysOnly);
    screen.form.addWidget(&fees);
    screen.form.addWidget(&quantity);
    screen.combo.setBoxType(1);
    screen.lines.setBoxType(1);
    QVERIFY(driver::show(screen));
    QApplication::clipboard()->setText(pasted);
    QToolTip::hideText();
    for (kvTextBox *box : {&screen.amount, &fees}) {
        box->setText(u"12.50"_s);
        box->setFocus();
        driver::press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(box->Text(), over);
        driver::press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(box->Text(), u"12.50"_s);
        if (over == u"12.50"_s) {
            QTRY_COMPARE(QToolTip::text(), u"\"%1\" is not a number that fits here."_s.arg(pasted.simplified()));
            QCOMPARE(box->selectedText(), u"12.50"_s);
            QToolTip::hideText();
        }
        driver::press(Qt::Key_Home);
        std::unique_ptr<QMenu> menu(box->createStandardContextMenu());
        for (QAction *action : menu->actions()) {
            if (action->text().startsWith(u"&Paste"_s))
                action->trigger();
        }
        QCOMPARE(box->Text(), before);
        box->setText(u"12.50"_s);
        dropOn(*box, pasted);
        QCOMPARE(box->Text(), before);
    }
    quantity.setText(u"3"_s);
    quantity.setFocus();
    driver::press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(quantity.Text(), over.contains(u'.') ? u"3"_s : over);
    screen.combo.setText(u"12.50"_s);
    screen.combo.setFocus();
    driver::press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(screen.combo.Text(), over);
    screen.lines.setText(u"12.50"_s);
    screen.lines.setFocus();
    driver::press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(screen.lines.Text(), over);
    QToolTip::hideText();
}

void EntryFieldsTest::longTextsShowTheirBeginning()
{
    const QString text = QString(u"Rajendra Kumar Shekhawat, "_s).repeated(12);
    FieldScreen screen;
    screen.combo.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    screen.combo.addItem(text);
    QVERIFY(driver::show(screen));
    QLineEdit *const inCombo = screen.combo.lineEdit();
    const auto set = [&] {
        screen.name.setText(text);
        screen.combo.setText(text);
        return driver::leftmost(screen.name) < 2 && driver::leftmost(*inCombo) < 2;
    };
    screen.lines.setFocus();
    QVERIFY2(set(), "set before they are entered");
    for (QWidget *field : std::initializer_list<QWidget *>{&screen.name, &screen.combo}) {
        field->setFocus();
        auto *line = field == &screen.name ? &screen.name : inCombo;
        QVERIFY2(driver::leftmost(*line) < 2, "entered");
        QCOMPARE(line->selectedText(), text);
        driver::press(Qt::Key_End);
        QVERIFY(driver::leftmost(*line) > 2);
        driver::press(Qt::Key_Tab);
        QVERIFY2(driver::leftmost(*line) < 2, "left");
    }
}

void EntryFieldsTest::whatIsComposedOrDroppedGoesTheWayOfKeys()
{
    FieldScreen screen;
    QVERIFY(driver::show(screen));
    const auto compose = [](QWidget &field, const QString &text) {
        QInputMethodEvent begun(text.left(1), {});
        QApplication::sendEvent(&field, &begun);
        QInputMethodEvent composed;
        composed.setCommitString(text);
        QApplication::sendEvent(&field, &composed);
    };
    compose(screen.name, u"é"_s);
    driver::type(u"mile "_s);
    compose(screen.name, u"ñ"_s);
    QCOMPARE(screen.name.Text(), u"Émile Ñ"_s);
    compose(screen.name, u" \u0936\u0930\u094d\U0001F44D"_s);
    QCOMPARE(screen.name.Text(), u"Émile Ñ \u0936\u0930\u094d\U0001F44D"_s);

    driver::press(Qt::Key_Return);
    QVERIFY(screen.amount.hasFocus());
    compose(screen.amount, u"é1.5"_s);
    compose(screen.amount, u".é"_s);
    QCOMPARE(screen.amount.Text(), u"1.5"_s);
    // By the middle button.
    QApplication::clipboard()->setText(u"Rs 2"_s, QClipboard::Selection);
    QTest::mouseClick(&screen.amount, Qt::MiddleButton, {}, QPoint(2, screen.amount.height() / 2));
    QCOMPARE(screen.amount.Text(), u"21.5"_s);
    compose(screen.amount, u"\U0001F44D"_s);
    QCOMPARE(screen.amount.Text(), u"21.5"_s);

    compose(screen.lines, u"é"_s);
    QCOMPARE(screen.lines.Text(), u"é"_s);
    // The next syllable begins as the one before ends.
    QInputMethodEvent next(u"n"_s, {});
    next.setCommitString(u"र"_s);
    QApplication::sendEvent(&screen.lines, &next);
    QCOMPARE(screen.lines.Text(), u"éर"_s);
    QCOMPARE(screen.lines.document()->firstBlock().layout()->preeditAreaText(), u"n"_s);
}

void EntryFieldsTest::enterLeavesASingleLineAndNobodyHearsOfIt()
{
    FieldScreen screen;
    QVERIFY(driver::show(screen));
    QList<int> heard;
    connect(&screen.name, &kvTextBox::keyPress, this, [&heard](int &key) { heard += key; });
    driver::press(Qt::Key_Return);
    QVERIFY(screen.amount.hasFocus());
    QVERIFY(heard.isEmpty());

    screen.name.setAutoTab(false);
    screen.name.setFocus();
    driver::press(Qt::Key_Return);
    QVERIFY(screen.name.hasFocus());
    QCOMPARE(heard, QList<int>{13});
}

void EntryFieldsTest::enterMakesANewLineInAMultiLineBox()
{
    FieldScreen screen;
    QVERIFY(driver::show(screen));
    screen.lines.setFocus();
    driver::type(u"chest=40"_s);
    driver::press(Qt::Key_Return);
    driver::type(u"waist"_s);
    QCOMPARE(screen.lines.Text(), u"chest=40\r\nwaist"_s);
    driver::press(Qt::Key_Tab);
    QVERIFY(screen.combo.hasFocus());

    for (const auto &text : {u"one\r\ntwo\r\n"_s, u"one\rtwo"_s, u"one\ntwo"_s}) {
        screen.lines.setText(text);
        QCOMPARE(screen.lines.Text(), text);
    }
}

void EntryFieldsTest::theScreenMayChangeAndSwallowKeys()
{
    FieldScreen screen;
    QVERIFY(driver::show(screen));
    connect(&screen.name, &kvTextBox::keyPress, this, [](int &key) {
        if (key == 'x')
            key = keys::Swallowed;
        if (key == ',')
            key = '.';
    });
    connect(&screen.name, &kvTextBox::keyDown, this, [](int &key) {
        if (key == keys::Home)
            key = keys::Swallowed;
    });
    driver::type(u"axb,c"_s);
    driver::press(Qt::Key_Home);
    QCOMPARE(screen.name.Text(), u"Ab.c"_s);
    QCOMPARE(screen.name.cursorPosition(), 4);
}

void EntryFieldsTest::theFocusShowsWhiteOnBlack()
{
    FieldScreen screen;
    screen.name.setText(u"Ravi"_s);
    screen.name.setForeColor(Qt::darkRed);
    QVERIFY(driver::show(screen));
    QCOMPARE(background(screen.name), QColor(Qt::black));
    QCOMPARE(screen.name.palette().color(QPalette::Text), QColor(Qt::white));
    QCOMPARE(screen.name.selectedText(), u"Ravi"_s);
    driver::press(Qt::Key_Tab);
    QCOMPARE(background(screen.name), QColor(Qt::white));
    QCOMPARE(screen.name.palette().color(QPalette::Text), QColor(Qt::darkRed));
    QCOMPARE(background(screen.amount), QColor(Qt::black));
    // What the screen shows counts, not what the box thinks.
    const auto ground = [&screen] { return screen.lines.grab().toImage().pixelColor(screen.lines.rect().center()); };
    QCOMPARE(ground(), QColor(Qt::white));
    driver::press(Qt::Key_Tab);
    QCOMPARE(ground(), QColor(Qt::black));
    driver::press(Qt::Key_Tab);
    QCOMPARE(ground(), QColor(Qt::white));
}

void EntryFieldsTest::aFieldIsLeftBeforeACommandActs_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("access key") << false;
    QTest::newRow("click") << true;
}

void EntryFieldsTest::aFieldIsLeftBeforeACommandActs()
{
    QFETCH(bool, byMouse);
    FieldScreen screen;
    QString seen;
    connect(&screen.save, &Command::clicked, this, [&] { seen = screen.amount.Text(); });
    QVERIFY(driver::show(screen));
    screen.amount.setFocus();
    driver::type(u"12"_s);
    if (byMouse)
        QTest::mouseClick(&screen.save, Qt::LeftButton);
    else
        driver::accessKey('s');
    QCOMPARE(seen, u"12.00"_s);
    QVERIFY(screen.save.hasFocus());
}

void EntryFieldsTest::aMessageAboveLeavesTheFieldAlone()
{
    FieldScreen screen;
    QVERIFY(driver::show(screen));
    screen.amount.setFocus();
    driver::type(u"12"_s);
    QSignalSpy left(&screen.amount, &kvTextBox::lostFocus);
    QSignalSpy entered(&screen.amount, &kvTextBox::gotFocus);
    ModalScript script;
    script.expectMessage(u"Look here"_s);
    ShowMessage(u"Look here"_s);
    QVERIFY(driver::waitActive(screen));
    QCOMPARE(left.count(), 0);
    driver::type(u"5"_s);
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
