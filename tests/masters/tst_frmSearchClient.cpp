#include "masters/frmSearchClient.h"

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
    void eachBoxSearchesItsColumn();
    void theLineThatBeginsSoIsChosen();
    void waysToChoose();
    void theTickIsKept();
};

namespace {

/// Three clients, a worker and the default accounts.
struct Counter : TestShop {
    Counter()
    {
        for (const char *values : {"'Sanjay Rao', '1, Old Market', 'Udaipur', 'Rajasthan', '9829011111', 'A12', 0",
                 "'Asha O''Brien', '14, Lake View', 'Jaipur', 'Goa', '7700022222', '25', 0",
                 "'Rao_50% [new]', Null, Null, Null, Null, Null, 0",
                 "'Asha the tailor', 'Old Market', 'Udaipur', 'Rajasthan', '9829033333', Null, 1"})
            connection.execute(
                u"Insert into Accounts (Title, Address, City, State, Mobile, Key, Type) values (%1)"_s.arg(
                    QLatin1StringView(values)));
    }
};

ListView &results(const QWidget &screen)
{
    return control<ListView>(screen, "lvResults");
}

} // namespace

void SearchClientTest::eachBoxSearchesItsColumn()
{
    const QString sanjay = u"Sanjay Rao"_s;
    const QString asha = u"Asha O'Brien"_s;
    const QString odd = u"Rao_50% [new]"_s;
    const struct {
        const char *box;
        QString text;
        QStringList hits;
    } cases[]{
        {"txtName", u"rao"_s, {sanjay, odd}},
        // A worker.
        {"txtName", u"tailor"_s, {}},
        {"txtName", u"o'b"_s, {asha}},
        {"txtMobile", u"0222"_s, {asha}},
        {"txtAddress", u"market"_s, {sanjay}},
        {"txtCity", u"JAI"_s, {asha}},
        {"txtState", u"raj"_s, {sanjay}},
        {"txtKey", u"12"_s, {sanjay}},
        // A bracket that is not closed stands for itself.
        {"txtName", u"[new"_s, {odd}},
    };
    const Counter counter;
    frmSearchClient screen;
    QVERIFY(driver::show(screen));
    for (const auto &entry : cases) {
        // What another box holds is no condition.
        control<kvTextBox>(screen, "txtState").setText(u"Goa"_s);
        auto &field = control<kvTextBox>(screen, entry.box);
        field.setFocus();
        field.setText(entry.text);
        QCOMPARE(driver::column(results(screen), 0), entry.hits);
        field.setText({});
        QCOMPARE(results(screen).list().rowCount(), 0);
    }
}

void SearchClientTest::theLineThatBeginsSoIsChosen()
{
    const Counter counter;
    frmSearchClient screen;
    QVERIFY(driver::show(screen));
    // Arrows move on from the box.
    type(u"a"_s);
    for (const auto &[key, row] : {std::pair{Qt::Key_Shift, 1}, {Qt::Key_Down, 2}, {Qt::Key_Down, 2}, {Qt::Key_Up, 1},
             {Qt::Key_Up, 0}, {Qt::Key_Up, 0}}) {
        press(key);
        QCOMPARE(results(screen).currentRow(), row);
    }
    QVERIFY(control<kvTextBox>(screen, "txtName").hasFocus());
    type(u"\brao"_s);
    QCOMPARE(driver::rows(results(screen)).first().join(u'|'), u"Sanjay Rao|1, Old Market|Udaipur|9829011111"_s);
    QCOMPARE(results(screen).currentRow(), 1);
    // The name says nothing of the number: the first hit stands ready.
    type(u"\t98"_s);
    QCOMPARE(results(screen).currentRow(), 0);
}

void SearchClientTest::waysToChoose()
{
    const Counter counter;
    for (const auto &[way, chosen] : {std::pair{QKeyCombination(Qt::Key_Return), true}, {Qt::ALT | Qt::Key_O, true},
             {Qt::Key_Escape, false}, {Qt::ALT | Qt::Key_C, false}}) {
        ModalScript script;
        script.expect(u"frmSearchClient"_s, [way = way](QWidget &screen) {
            QVERIFY(!control<QWidget>(screen, "fmQuery").isVisible());
            // Without a hit nothing is chosen.
            press(Qt::Key_Return);
            type(u"nobody"_s);
            press({Qt::Key_Return, Qt::ALT | Qt::Key_O});
            QVERIFY(screen.isVisible());
            auto &name = control<kvTextBox>(screen, "txtName");
            name.setFocus();
            name.selectAll();
            type(u"asha"_s);
            press({way});
        });
        QCOMPARE(frmSearchClient().SearchClient(), chosen ? u"Asha O'Brien"_s : QString());
    }
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
            chosen ? accessKey('o') : press(Qt::Key_Escape);
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
