#include "ui/frmMsg.h"

#include "base/RuntimeError.h"
#include "base/session.h"
#include "support/ModalScript.h"
#include "support/expectFault.h"
#include "support/fileContent.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/Command.h"

#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using driver::press;

/// Telling and asking.
class MessageTest : public QObject {
    Q_OBJECT

private slots:
    void answersFollowTheKey();
    void aMessageGrowsWithItsText();
    void hindiIsLookedUpByTheEnglishText();
};

void MessageTest::answersFollowTheKey()
{
    struct Answer {
        int mode;
        std::initializer_list<QKeyCombination> pressed;
        int answer;
    };
    // Y answers no information, and Enter on No is no.
    for (const auto &[mode, pressed, answer] : {Answer{1, {Qt::Key_Return}, 1}, {1, {Qt::Key_Escape}, 0},
             {2, {Qt::Key_Return}, 1}, {2, {Qt::Key_Enter}, 1}, {2, {Qt::Key_Escape}, 0}, {2, {Qt::Key_Y}, 1},
             {2, {Qt::Key_N}, 0}, {1, {Qt::Key_Y, Qt::Key_Escape}, 0}, {2, {Qt::Key_Tab, Qt::Key_Return}, 0}}) {
        ModalScript script;
        script.expect(u"frmMsg"_s, [&, mode = mode, pressed = pressed](QWidget &window) {
            QCOMPARE(window.windowTitle(), u"The Corvane"_s);
            QCOMPARE(driver::control<QLabel>(window, "lblTitle").text(), u"Information"_s);
            QCOMPARE(driver::control<Command>(window, "cmdOK").isVisible(), mode == 1);
            QCOMPARE(driver::control<Command>(window, "cmdYes").isVisible(), mode == 2);
            QCOMPARE(driver::control<Command>(window, "cmdNo").isVisible(), mode == 2);
            press(pressed);
        });
        QCOMPARE(AskUser(u"Are you sure to exit?"_s, mode), answer);
    }
}

void MessageTest::aMessageGrowsWithItsText()
{
    for (const QString &text : {u"Hi"_s, u"Invalid Database!\r\nof two lines"_s,
             u"Please don't forget. "_s.repeated(40), u"many words "_s.repeated(910), u"x"_s.repeated(10000)}) {
        ModalScript script;
        script.expect(u"frmMsg"_s, [&](QWidget &window) {
            const QSize room = window.screen()->availableGeometry().size();
            const auto &label = driver::control<QLabel>(window, "lblMsg");
            const auto &area = *window.findChild<QScrollArea *>();
            const auto &bar = *area.verticalScrollBar();
            QVERIFY(window.width() >= 310 && window.width() <= room.width() && window.height() <= room.height());
            QVERIFY(driver::control<Command>(window, "cmdOK").visibleRegion().boundingRect().height() > 10);
            // Every character is there, in view or by scrolling.
            const QFontMetrics letters = label.fontMetrics();
            const qsizetype pixels = text.size() * letters.averageCharWidth() * letters.height();
            QVERIFY(label.width() * label.height() > pixels * 3 / 4);
            QVERIFY(label.width() <= area.viewport()->width());
            if (bar.maximum() > 0)
                press(Qt::Key_PageDown);
            QCOMPARE(bar.value() > 0, bar.maximum() > 0);
            QCOMPARE(bar.maximum() > 0, text.size() > 5000);
            press(Qt::Key_Return);
        });
        ShowMessage(text);
    }
}

void MessageTest::hindiIsLookedUpByTheEnglishText()
{
    const QTemporaryDir folder;
    session::ProgramFolder = folder.path();
    int result = 7;
    EXPECT_FAULT(Fault::FileNotFound, frmMsg().ShowHindiMessage(u"Hello"_s, result));
    writeLanguageFile(folder.path(), {{u"Cant't Delete!"_s, u"gVk;k ugha tk ldrk"_s}});
    const auto shown = [](const std::function<void()> &show) {
        QString told;
        ModalScript script;
        script.expect(u"frmMsg"_s, [&told](QWidget &window) {
            const auto &label = driver::control<QLabel>(window, "lblMsg");
            QCOMPARE(label.textFormat(), Qt::PlainText);
            const QString ok = driver::control<Command>(window, "cmdOK").text();
            told = QStringList{label.text(), label.font().family(), ok}.join(u'|');
            press(Qt::Key_Return);
        });
        show();
        return told;
    };
    const auto inHindi = [&](const QString &text) { return shown([&] { frmMsg().ShowHindiMessage(text, result); }); };
    QCOMPARE(inHindi(u"Cant't Delete!"_s), u"gVk;k ugha tk ldrk|Kruti Dev 010|Bhd gS"_s);
    QCOMPARE(result, 1);
    QCOMPARE(inHindi(u"It's new"_s), u"It's new|MS Sans Serif|Ok"_s);
    QCOMPARE(shown([] { ShowMessage(u"<b>A & B</b>"_s); }), u"<b>A & B</b>|MS Sans Serif|Ok"_s);
}

CORVANE_TEST(MessageTest)
#include "tst_messages.moc"
