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
    void eachFilterPassesItsCharacters_data();
    void eachFilterPassesItsCharacters();
    void keysHaveTheirCodes_data();
    void keysHaveTheirCodes();
    void movingKeysAreSwallowedAndOthersPass();
    void searchBoxKeysMoveTheListAndStopAtItsEnds();
};

void EntryKeysTest::eachFilterPassesItsCharacters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("asDigit");
    QTest::addColumn<bool>("asDecimal");
    QTest::newRow("below 0") << u""_s << int('0') - 1 << false << false;
    QTest::newRow("0") << u""_s << int('0') << true << true;
    QTest::newRow("9") << u""_s << int('9') << true << true;
    QTest::newRow("above 9") << u""_s << int('9') + 1 << false << false;
    QTest::newRow("backspace") << u""_s << 8 << true << true;
    QTest::newRow("12") << u""_s << 12 << true << true;
    QTest::newRow("enter") << u""_s << 13 << false << false;
    QTest::newRow("first point") << u"12"_s << int('.') << false << true;
    QTest::newRow("second point") << u"1.2"_s << int('.') << false << false;
    QTest::newRow("minus") << u""_s << int('-') << false << false;
    QTest::newRow("blank") << u""_s << 32 << false << false;
    QTest::newRow("letter") << u""_s << int('e') << false << false;
}

void EntryKeysTest::eachFilterPassesItsCharacters()
{
    QFETCH(QString, text);
    QFETCH(int, key);
    QTEST(DigitKeysOnly(key) == key, "asDigit");
    QTEST(DecimalKeysOnly(text, key) == key, "asDecimal");
}

void EntryKeysTest::keysHaveTheirCodes_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("keyCode");
    QTest::addColumn<int>("characterCode");
    QTest::newRow("up types nothing") << int(Qt::Key_Up) << 0 << u""_s << 38 << 0;
    QTest::newRow("and sign") << int(Qt::Key_Ampersand) << int(Qt::ShiftModifier) << u"&"_s << 0 << 38;
    QTest::newRow("enter") << int(Qt::Key_Return) << 0 << u"\r"_s << 13 << 13;
    QTest::newRow("enter on the number pad") << int(Qt::Key_Enter) << int(Qt::KeypadModifier) << u"\r"_s << 13 << 13;
    QTest::newRow("small letter") << int(Qt::Key_A) << 0 << u"a"_s << 65 << 97;
    QTest::newRow("Ctrl+I") << int(Qt::Key_I) << int(Qt::ControlModifier) << u"\t"_s << 73 << 9;
    QTest::newRow("F3") << int(Qt::Key_F3) << 0 << u""_s << 114 << 0;
    QTest::newRow("delete") << int(Qt::Key_Delete) << 0 << u"\x7f"_s << 0 << 0;
}

void EntryKeysTest::keysHaveTheirCodes()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    const QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), text);
    QTEST(keys::keyCode(event), "keyCode");
    QTEST(keys::characterCode(event), "characterCode");
}

void EntryKeysTest::movingKeysAreSwallowedAndOthersPass()
{
    QWidget window;
    QLineEdit fields[3]{QLineEdit(&window), QLineEdit(&window), QLineEdit(&window)};
    QVERIFY(driver::show(window));
    fields[0].setFocus();

    QCOMPARE(EnterToTab(13), 0);
    QVERIFY(fields[1].hasFocus());
    QCOMPARE(PageKeysToTab(34), 0);
    QVERIFY(fields[2].hasFocus());
    QCOMPARE(PageKeysToTab(33), 0);
    QVERIFY(fields[1].hasFocus());
    QCOMPARE(EnterToTab(65), 65);
    QCOMPARE(PageKeysToTab(35), 35);
    QVERIFY(fields[1].hasFocus());
}

void EntryKeysTest::searchBoxKeysMoveTheListAndStopAtItsEnds()
{
    QListWidget list;
    QCOMPARE(ListNavKeys(list, 36), 36);
    QCOMPARE(ListNavKeys(list, 40), 40);
    QCOMPARE(list.currentRow(), -1);

    list.addItems({u"a"_s, u"b"_s, u"c"_s});
    const auto after = [&list](int key) {
        (void)ListNavKeys(list, key);
        return list.currentRow();
    };
    list.setCurrentRow(-1);
    QCOMPARE(after(38), -1);
    QCOMPARE(after(40), 0);
    QCOMPARE(after(38), 0);
    QCOMPARE(after(40), 1);
    QCOMPARE(after(35), 2);
    QCOMPARE(after(40), 2);
    QCOMPARE(after(38), 1);
    QCOMPARE(after(36), 0);
    QCOMPARE(after(65), 0);
    QCOMPARE(ListNavKeys(list, 38), 0);
    QCOMPARE(ListNavKeys(list, 65), 65);
}

CORVANE_TEST(EntryKeysTest)
#include "tst_entryKeys.moc"
