#include "base/RuntimeError.h"
#include "base/session.h"
#include "support/ModalScript.h"
#include "support/expectFault.h"
#include "support/languageFile.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"
#include "ui/frmMsg.h"
#include "ui/language.h"
#include "ui/platformBox.h"

#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTreeView>

using namespace Qt::StringLiterals;

/// Telling and asking.
class MessageTest : public QObject {
    Q_OBJECT

private slots:
    void answersFollowTheKey_data();
    void answersFollowTheKey();
    void aMessageGrowsWithItsText_data();
    void aMessageGrowsWithItsText();
    void anyTextIsShownAsItIs();
    void hindiIsLookedUpByTheEnglishText();
    void withoutTheTranslationsHindiFails();
    void thePlainBoxShowsItsText();
    void headersTakeTheFontOfAnother();
};

void MessageTest::answersFollowTheKey_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QList<int>>("pressed");
    QTest::addColumn<int>("answer");
    QTest::newRow("Enter ends an information") << 1 << QList<int>{Qt::Key_Return} << 1;
    QTest::newRow("Escape ends an information") << 1 << QList<int>{Qt::Key_Escape} << 0;
    QTest::newRow("Enter is yes") << 2 << QList<int>{Qt::Key_Return} << 1;
    QTest::newRow("Enter on the number pad is yes") << 2 << QList<int>{Qt::Key_Enter} << 1;
    QTest::newRow("Escape is no") << 2 << QList<int>{Qt::Key_Escape} << 0;
    QTest::newRow("Y") << 2 << QList<int>{Qt::Key_Y} << 1;
    QTest::newRow("N") << 2 << QList<int>{Qt::Key_N} << 0;
    QTest::newRow("Y answers no information") << 1 << QList<int>{Qt::Key_Y, Qt::Key_Escape} << 0;
    QTest::newRow("Enter on No is no") << 2 << QList<int>{Qt::Key_Tab, Qt::Key_Return} << 0;
}

void MessageTest::answersFollowTheKey()
{
    QFETCH(int, mode);
    QFETCH(QList<int>, pressed);
    ModalScript script;
    script.expect(u"frmMsg"_s, [&](QWidget &window) {
        QCOMPARE(window.windowTitle(), u"The Corvane"_s);
        QCOMPARE(driver::control<QLabel>(window, "lblTitle").text(), u"Information"_s);
        QCOMPARE(driver::control<Command>(window, "cmdOK").isVisible(), mode == 1);
        QCOMPARE(driver::control<Command>(window, "cmdYes").isVisible(), mode == 2);
        QCOMPARE(driver::control<Command>(window, "cmdNo").isVisible(), mode == 2);
        for (const int key : pressed)
            driver::press(Qt::Key(key));
    });
    QTEST(AskUser(u"Are you sure to exit?"_s, mode), "answer");
}

void MessageTest::aMessageGrowsWithItsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("short") << u"Hi"_s;
    QTest::newRow("several lines") << u"Invalid Database!\r\nof two lines"_s;
    QTest::newRow("long") << u"Please don't forget. "_s.repeated(40);
    QTest::newRow("10,000 characters") << u"many words "_s.repeated(910);
    QTest::newRow("10,000 characters, no blank") << u"x"_s.repeated(10000);
}

void MessageTest::aMessageGrowsWithItsText()
{
    QFETCH(QString, text);
    ModalScript script;
    script.expect(u"frmMsg"_s, [&](QWidget &window) {
        const QSize room = window.screen()->availableGeometry().size();
        const auto &label = driver::control<QLabel>(window, "lblMsg");
        const auto &bar = *window.findChild<QScrollArea *>()->verticalScrollBar();
        QVERIFY(window.width() >= 310);
        QVERIFY(window.width() <= room.width());
        QVERIFY(window.height() <= room.height());
        QVERIFY(driver::control<Command>(window, "cmdOK").visibleRegion().boundingRect().height() > 10);
        // Every character is there, in view or by scrolling.
        const qsizetype pixels = text.size() * label.fontMetrics().averageCharWidth() * label.fontMetrics().height();
        QVERIFY(label.width() * label.height() > pixels * 3 / 4);
        QVERIFY(label.width() <= window.findChild<QScrollArea *>()->viewport()->width());
        if (bar.maximum() > 0)
            driver::press(Qt::Key_PageDown);
        QCOMPARE(bar.value() > 0, bar.maximum() > 0);
        QCOMPARE(bar.maximum() > 0, text.size() > 5000);
        driver::press(Qt::Key_Return);
    });
    ShowMessage(text);
}

void MessageTest::anyTextIsShownAsItIs()
{
    ModalScript script;
    script.expect(u"frmMsg"_s, [](QWidget &window) {
        const auto &label = driver::control<QLabel>(window, "lblMsg");
        QCOMPARE(label.text(), u"<b>A & B</b>"_s);
        QCOMPARE(label.textFormat(), Qt::PlainText);
        QCOMPARE(label.font().family(), u"MS Sans Serif"_s);
        QCOMPARE(label.font().pointSize(), 8);
        driver::press(Qt::Key_Return);
    });
    ShowMessage(u"<b>A & B</b>"_s);
}

void MessageTest::hindiIsLookedUpByTheEnglishText()
{
    const QTemporaryDir folder;
    session::ProgramFolder = folder.path();
    writeLanguageFile(folder.path(), {{u"Cant't Delete!"_s, u"gVk;k ugha tk ldrk"_s}});

    const auto shown = [](const QString &text, const QString &expected, const QString &font, const QString &ok) {
        ModalScript script;
        script.expect(u"frmMsg"_s, [&](QWidget &window) {
            const auto &label = driver::control<QLabel>(window, "lblMsg");
            QCOMPARE(label.text(), expected);
            QCOMPARE(label.font().family(), font);
            QCOMPARE(driver::control<Command>(window, "cmdOK").text(), ok);
            driver::press(Qt::Key_Return);
        });
        int result = 0;
        frmMsg().ShowHindiMessage(text, result);
        QCOMPARE(result, 1);
    };
    shown(u"Cant't Delete!"_s, u"gVk;k ugha tk ldrk"_s, u"Kruti Dev 010"_s, u"Bhd gS"_s);
    shown(u"It's new"_s, u"It's new"_s, u"MS Sans Serif"_s, u"Ok"_s);
}

void MessageTest::withoutTheTranslationsHindiFails()
{
    const QTemporaryDir folder;
    session::ProgramFolder = folder.path();
    int result = 7;
    EXPECT_FAULT(Fault::FileNotFound, frmMsg().ShowHindiMessage(u"Hello"_s, result));
}

void MessageTest::thePlainBoxShowsItsText()
{
    ModalScript script;
    script.expect(u"QMessageBox"_s, [](QWidget &window) {
        auto &box = dynamic_cast<QMessageBox &>(window);
        QCOMPARE(box.text(), u"No <backup> file found!"_s);
        QCOMPARE(box.icon(), QMessageBox::Critical);
        QCOMPARE(box.windowTitle(), u"Corvane"_s);
        driver::press(Qt::Key_Return);
    });
    platformBox::showCritical(u"No <backup> file found!"_s);
    script.expectBox(u"Database restored."_s);
    platformBox::show(u"Database restored."_s);
}

void MessageTest::headersTakeTheFontOfAnother()
{
    QTreeView list;
    QTreeView source;
    source.header()->setFont(QFont(u"Kruti Dev 010"_s, 12));
    ChangeHeaderFont(list, source, true);
    QCOMPARE(list.header()->font().family(), u"Kruti Dev 010"_s);
    QCOMPARE(list.header()->font().pointSize(), 12);
    QCOMPARE(list.header()->font().bold(), false);
}

CORVANE_TEST(MessageTest)
#include "tst_messages.moc"
