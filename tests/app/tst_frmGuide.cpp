#include "app/frmGuide.h"

#include "app/guideChapters.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;

/// The guide within the program.
class GuideTest : public QObject {
    Q_OBJECT

private slots:
    void everyScreenHasItsChapter();
    void itIsReadAndSearchedFromTheKeyboard();
};

namespace {

QTextBrowser &text(const QWidget &guide)
{
    return control<QTextBrowser>(guide, "text");
}

/// The first line in view.
QString topLine(const QWidget &guide)
{
    const QTextBrowser &shown = text(guide);
    return shown.cursorForPosition({20, 22}).block().text();
}

} // namespace

void GuideTest::everyScreenHasItsChapter()
{
    // These lead on, ask or tell; the guide opens at its beginning.
    const QStringList without{u"frmMenu"_s, u"frmAbout"_s, u"frmGuide"_s, u"frmMsg"_s, u"frmSetDate"_s};
    QStringList screens = QStringLiteral(CORVANE_ALL_SCREENS).split(u' ', Qt::SkipEmptyParts);
    QVERIFY(screens.size() > 35);
    screens += guideChapters().keys();
    screens.removeDuplicates();
    const TestShop shop;
    for (const QString &screen : std::as_const(screens)) {
        const QString chapter = without.contains(screen) ? u"Corvane at the counter"_s
                                                         : guideChapters().value(screen, u"none: "_s + screen);
        ModalScript script;
        script.expect(u"frmGuide"_s, [&chapter](QWidget &guide) {
            const QScrollBar &bar = *text(guide).verticalScrollBar();
            QCOMPARE(control<QListWidget>(guide, "chapters").currentItem()->text(), chapter);
            QVERIFY2(topLine(guide) == chapter || bar.value() == bar.maximum(), qPrintable(topLine(guide)));
            press(Qt::Key_Escape);
        });
        frmGuide().ShowFor(screen);
    }
}

void GuideTest::itIsReadAndSearchedFromTheKeyboard()
{
    const TestShop shop;
    frmGuide guide;
    QVERIFY(driver::show(guide));
    // As a whole, and without its pictures.
    const QString shown = text(guide).toPlainText();
    QVERIFY(shown.contains(u"corvane --check"_s));
    QVERIFY(!shown.contains(u"pictures/"_s) && !shown.contains(QChar::ObjectReplacementCharacter));
    const QScrollBar &bar = *text(guide).verticalScrollBar();
    press(Qt::Key_PageDown);
    QVERIFY(bar.value() > 0);
    press(Qt::Key_F1);
    QCOMPARE(bar.value(), 0);
    // Chapter by chapter.
    press({Qt::Key_Tab, Qt::Key_Down});
    QCOMPARE(topLine(guide), u"The first start"_s);

    const auto placeAfter = [&guide](QKeyCombination key) {
        press({key});
        return text(guide).textCursor().position();
    };
    press(Qt::Key_F, Qt::ControlModifier);
    driver::type(u"payroll"_s);
    QCOMPARE(text(guide).textCursor().selectedText().toLower(), u"payroll"_s);
    const int first = text(guide).textCursor().position();
    const int second = placeAfter(Qt::Key_Return);
    QVERIFY(second > first);
    QCOMPARE(placeAfter(Qt::SHIFT | Qt::Key_Return), first);
    // Round the beginning, to the last one.
    QVERIFY(placeAfter(Qt::Key_Up) >= second);
    QCOMPARE(placeAfter(Qt::Key_Down), first);
    driver::type(u"zzz"_s);
    QCOMPARE(control<QLabel>(guide, "lblFound").text(), u"Not found"_s);
    press(Qt::Key_Escape);
    QVERIFY(guide.isVisible());
    QVERIFY(text(guide).hasFocus());
    press(Qt::Key_Escape);
    QVERIFY(!guide.isVisible());
}

CORVANE_TEST(GuideTest)
#include "tst_frmGuide.moc"
