#include "masters/frmSearchClient.h"

#include "store/DataEnvironment.h"
#include "store/settings.h"
#include "support/ModalScript.h"
#include "support/TestShop.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/ListView.h"
#include "ui/kvTextBox.h"

#include <QCheckBox>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// The search for clients, as it goes with each key.
class SearchClientTest : public QObject {
    Q_OBJECT

private slots:
    void eachBoxSearchesItsColumn_data();
    void eachBoxSearchesItsColumn();
    void theLineThatBeginsSoIsChosen();
    void arrowsMoveTheSelectionFromTheBox();
    void waysToChoose_data();
    void waysToChoose();
    void withoutAHitNothingIsChosen();
    void theTickIsKept();
};

namespace {

/// Three clients, a worker and the default accounts.
struct Counter : TestShop {
    Counter()
    {
        add(u"Sanjay Rao"_s, u"1, Old Market"_s, u"Udaipur"_s, u"Rajasthan"_s, u"9829011111"_s, u"A12"_s, 0);
        add(u"Asha O'Brien"_s, u"14, Lake View"_s, u"Jaipur"_s, u"Goa"_s, u"7700022222"_s, u"25"_s, 0);
        add(u"Rao_50% [new]"_s, {}, {}, {}, {}, {}, 0);
        add(u"Asha the tailor"_s, u"Old Market"_s, u"Udaipur"_s, u"Rajasthan"_s, u"9829033333"_s, {}, 1);
    }

    void add(const QString &title, const QString &address, const QString &city, const QString &state,
        const QString &mobile, const QString &key, int kind)
    {
        Recordset rows(connection);
        rows.open(u"Select * from Accounts"_s);
        rows.addNew();
        rows.set(u"Title", title);
        rows.set(u"Type", kind);
        const std::pair<QStringView, QString> texts[]{
            {u"Address", address}, {u"City", city}, {u"State", state}, {u"Mobile", mobile}, {u"Key", key}};
        for (const auto &[column, text] : texts) {
            if (!text.isEmpty())
                rows.set(column, text);
        }
        rows.update();
    }
};

ListView &results(const QWidget &screen)
{
    return control<ListView>(screen, "lvResults");
}

} // namespace

void SearchClientTest::eachBoxSearchesItsColumn_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("hits");
    const QString sanjay = u"Sanjay Rao"_s;
    const QString asha = u"Asha O'Brien"_s;
    const QString odd = u"Rao_50% [new]"_s;
    const auto row = [](const char *name, const char *box, const QString &text, const QStringList &hits) {
        QTest::newRow(name) << QString::fromLatin1(box) << text << hits;
    };
    row("name, in the order of entry", "txtName", u"rao"_s, {sanjay, odd});
    row("nobody else's name", "txtName", u"tailor"_s, {});
    row("apostrophe", "txtName", u"o'b"_s, {asha});
    row("mobile, in its midst", "txtMobile", u"0222"_s, {asha});
    row("address", "txtAddress", u"market"_s, {sanjay});
    row("city", "txtCity", u"JAI"_s, {asha});
    row("state", "txtState", u"raj"_s, {sanjay});
    row("key", "txtKey", u"12"_s, {sanjay});
    row("any characters", "txtName", u"a%brien"_s, {asha});
    row("any character", "txtMobile", u"98_9"_s, {sanjay});
    row("one of a set", "txtKey", u"[A-C]1"_s, {sanjay});
    row("a set is one character of it", "txtName", u"s[hx]a"_s, {asha});
    row("a bracket that is not closed stands for itself", "txtName", u"[new"_s, {odd});
    row("so does one alone", "txtName", u"["_s, {odd});
    row("a blank", "txtCity", u" "_s, {});
    row("far too long", "txtName", QString(10000, u'x'), {});
}

void SearchClientTest::eachBoxSearchesItsColumn()
{
    QFETCH(QString, box);
    QFETCH(QString, text);
    QFETCH(QStringList, hits);
    const Counter counter;
    frmSearchClient screen;
    QVERIFY(driver::show(screen));
    auto &field = *screen.findChild<kvTextBox *>(box);
    // What another box holds is no condition.
    control<kvTextBox>(screen, "txtState").setText(u"Goa"_s);
    field.setFocus();
    field.setText(text);
    QCOMPARE(driver::column(results(screen), 0), hits);
    field.setText({});
    QCOMPARE(results(screen).list().rowCount(), 0);
}

void SearchClientTest::theLineThatBeginsSoIsChosen()
{
    const Counter counter;
    frmSearchClient screen;
    QVERIFY(driver::show(screen));
    QVERIFY(control<kvTextBox>(screen, "txtName").hasFocus());
    type(u"rao"_s);
    QCOMPARE(driver::rows(results(screen)).first(),
        QStringList({u"Sanjay Rao"_s, u"1, Old Market"_s, u"Udaipur"_s, u"9829011111"_s}));
    QCOMPARE(results(screen).currentRow(), 1);
    press(Qt::Key_Tab);
    type(u"98"_s);
    // The name says nothing of the number: the first hit stands ready.
    QCOMPARE(results(screen).currentRow(), 0);
}

void SearchClientTest::arrowsMoveTheSelectionFromTheBox()
{
    const Counter counter;
    frmSearchClient screen;
    QVERIFY(driver::show(screen));
    type(u"a"_s);
    QCOMPARE(results(screen).list().rowCount(), 3);
    QCOMPARE(results(screen).currentRow(), 1);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QCOMPARE(results(screen).currentRow(), 2);
    for (int i = 0; i < 4; ++i)
        press(Qt::Key_Up);
    QCOMPARE(results(screen).currentRow(), 0);
    QVERIFY(control<kvTextBox>(screen, "txtName").hasFocus());
}

void SearchClientTest::waysToChoose_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("result");
    for (const char *way : {"Enter in the box", "Enter in the list", "double click", "Ok"})
        QTest::newRow(way) << QString::fromLatin1(way) << u"Asha O'Brien"_s;
    for (const char *way : {"Escape", "Cancel"})
        QTest::newRow(way) << QString::fromLatin1(way) << QString();
}

void SearchClientTest::waysToChoose()
{
    QFETCH(QString, way);
    QFETCH(QString, result);
    const Counter counter;
    ModalScript script;
    script.expect(u"frmSearchClient"_s, [&way](QWidget &screen) {
        QVERIFY(!control<QWidget>(screen, "fmQuery").isVisible());
        type(u"asha"_s);
        ListView &list = results(screen);
        if (way == u"Enter in the box"_s) {
            press(Qt::Key_Return);
        } else if (way == u"Enter in the list"_s) {
            list.setFocus();
            press(Qt::Key_Return);
        } else if (way == u"double click"_s) {
            const QPoint place = list.visualRect(list.currentIndex()).center();
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
        } else if (way == u"Ok"_s) {
            accessKey('o');
        } else if (way == u"Cancel"_s) {
            accessKey('c');
        } else {
            press(Qt::Key_Escape);
        }
    });
    QCOMPARE(frmSearchClient().SearchClient(), result);
}

void SearchClientTest::withoutAHitNothingIsChosen()
{
    const Counter counter;
    ModalScript script;
    script.expect(u"frmSearchClient"_s, [](QWidget &screen) {
        press(Qt::Key_Return);
        type(u"nobody"_s);
        press(Qt::Key_Return);
        accessKey('o');
        QVERIFY(screen.isVisible());
        press(Qt::Key_Escape);
    });
    QCOMPARE(frmSearchClient().SearchClient(), QString());
}

void SearchClientTest::theTickIsKept()
{
    const Counter counter;
    ModalScript script;
    const auto find = [&script](bool tickedBefore, bool chosen) {
        script.expect(u"frmSearchClient"_s, [=](QWidget &screen) {
            auto &tick = control<QCheckBox>(screen, "opShowAllUndel");
            QVERIFY(tick.isVisible());
            QCOMPARE(tick.isChecked(), tickedBefore);
            type(u"asha"_s);
            tick.setFocus();
            press(Qt::Key_Space);
            if (!chosen)
                return press(Qt::Key_Escape);
            accessKey('o');
        });
        bool all = false;
        const QString title = frmSearchClient().SearchClient2(all);
        return title + (all ? u" all"_s : u""_s);
    };
    QCOMPARE(find(false, true), u"Asha O'Brien all"_s);
    QCOMPARE(GetSetting(setting::ShowUndelivered), u"1"_s);
    QCOMPARE(find(true, false), QString());
    QCOMPARE(GetSetting(setting::ShowUndelivered), u"0"_s);
}

CORVANE_TEST(SearchClientTest)
#include "tst_frmSearchClient.moc"
