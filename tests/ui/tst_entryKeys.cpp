#include "ui/entryKeys.h"

#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>

using namespace Qt::StringLiterals;

/// The filters and moves that entry fields and search boxes put their keys through.
class EntryKeysTest : public QObject {
    Q_OBJECT

private slots:
    void eachFilterPassesItsCharacters();
    void keysHaveTheirCodes();
    void movingKeysAreSwallowedAndOthersPass();
    void searchBoxKeysMoveTheListAndStopAtItsEnds();
};

void EntryKeysTest::eachFilterPassesItsCharacters()
{
    for (int key = 1; key < 128; ++key) {
        const int digit = (key >= '0' && key <= '9') || key == 8 || key == 12 ? key : 0;
        QCOMPARE(DigitKeysOnly(key), digit);
        QCOMPARE(DecimalKeysOnly(u"1.2"_s, key), digit);
        QCOMPARE(DecimalKeysOnly(u"12"_s, key), key == '.' ? key : digit);
    }
}

void EntryKeysTest::keysHaveTheirCodes()
{
    struct Stroke {
        QKeyCombination key;
        QString text;
        int keyCode;
        int characterCode;
    };
    for (const auto &[key, text, keyCode, characterCode] : {Stroke{Qt::Key_Up, u""_s, 38, 0},
             {Qt::SHIFT | Qt::Key_Ampersand, u"&"_s, 0, 38}, {Qt::Key_Return, u"\r"_s, 13, 13},
             {Qt::KeypadModifier | Qt::Key_Enter, u"\r"_s, 13, 13}, {Qt::Key_A, u"a"_s, 65, 97},
             {Qt::CTRL | Qt::Key_I, u"\t"_s, 73, 9}, {Qt::Key_F3, u""_s, 114, 0}, {Qt::Key_Delete, u"\x7f"_s, 0, 0}}) {
        const QKeyEvent event(QEvent::KeyPress, key.key(), key.keyboardModifiers(), text);
        QCOMPARE(keys::keyCode(event), keyCode);
        QCOMPARE(keys::characterCode(event), characterCode);
    }
}

void EntryKeysTest::movingKeysAreSwallowedAndOthersPass()
{
    QWidget window;
    QLineEdit fields[3]{QLineEdit(&window), QLineEdit(&window), QLineEdit(&window)};
    QVERIFY(driver::show(window));
    fields[0].setFocus();
    struct Move {
        int (*move)(int key);
        int key;
        int left;
        int field;
    };
    for (const auto &[move, key, left, field] : {Move{EnterToTab, 13, 0, 1}, {PageKeysToTab, 34, 0, 2},
             {PageKeysToTab, 33, 0, 1}, {EnterToTab, 65, 65, 1}, {PageKeysToTab, 35, 35, 1}}) {
        QCOMPARE(move(key), left);
        QVERIFY(fields[field].hasFocus());
    }
}

void EntryKeysTest::searchBoxKeysMoveTheListAndStopAtItsEnds()
{
    QListWidget list;
    QCOMPARE(ListNavKeys(list, 36), 36);
    QCOMPARE(ListNavKeys(list, 40), 40);
    QCOMPARE(list.currentRow(), -1);

    list.addItems({u"a"_s, u"b"_s, u"c"_s});
    list.setCurrentRow(-1);
    for (const auto &[key, row] : {std::pair(38, -1), std::pair(40, 0), std::pair(38, 0), std::pair(40, 1),
             std::pair(35, 2), std::pair(40, 2), std::pair(38, 1), std::pair(36, 0), std::pair(65, 0)}) {
        QCOMPARE(ListNavKeys(list, key), key == 38 ? 0 : key);
        QCOMPARE(list.currentRow(), row);
    }
}

CORVANE_TEST(EntryKeysTest)
#include "tst_entryKeys.moc"
