#include "masters/frmEditAccount.h"

#include "MasterDesk.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// A ledger account, and those that the program keeps for itself.
class EditAccountTest : public QObject {
    Q_OBJECT

private slots:
    void aNewAccountStaysOpenForChanges();
    void theTypeMustBeChosen();
    void defaultAccountsStayAsTheyAre_data();
    void defaultAccountsStayAsTheyAre();
    void aChangeIsMeasuredByTheTitleOfTheOpening();
};

namespace {

const QString columns = u"Select Title, Type, Nature, readonly from Accounts where id="_s;

void tells(ModalScript &script, char command, const QString &message)
{
    script.expectMessage(message);
    accessKey(command);
    QVERIFY(script.isDone());
}

QString heading(const QWidget &editor)
{
    return control<QLabel>(editor, "lblTitle").text();
}

} // namespace

void EditAccountTest::aNewAccountStaysOpenForChanges()
{
    MasterDesk desk;
    inScreen(u"frmEditAccount"_s, masters()[Account].add, [&desk](QWidget &editor, ModalScript &script) {
        QCOMPARE(heading(editor), u"Add New Account"_s);
        // There is nothing to delete yet.
        accessKey('d');
        type(u"tea"_s);
        press(Qt::Key_Return);
        type(u"e"_s);
        press(Qt::Key_Return);
        tells(script, 's', u"New Account created."_s);
        QCOMPARE(desk.lines(columns + u'8'), QStringList{u"Tea|2|1|0"_s});
        QCOMPARE(heading(editor), u"Edit Account"_s);
        control<kvTextBox>(editor, "txtName").setText(u"TEA"_s);
        control<kvComboBox>(editor, "cmbType").setText(u"Income"_s);
        tells(script, 's', u"Account information edited."_s);
        QCOMPARE(desk.lines(columns + u'8'), QStringList{u"TEA|2|0|0"_s});
        script.expectMessage(u"Are you sure?"_s, Qt::Key_Y).expectMessage(u"Deleted."_s);
        accessKey('d');
    });
    QCOMPARE(desk.lines(columns + u'8'), QStringList());
}

void EditAccountTest::theTypeMustBeChosen()
{
    MasterDesk desk;
    inScreen(u"frmEditAccount"_s, masters()[Account].add, [](QWidget &editor, ModalScript &script) {
        auto &kind = control<kvComboBox>(editor, "cmbType");
        QCOMPARE(driver::entries(kind), QStringList({u"Income"_s, u"Expenses"_s}));
        // A taken title comes up only after it.
        type(u"cash"_s);
        for (int i = 0; i < 2; ++i) {
            tells(script, 's', u"Please select account type"_s);
            QVERIFY(isEntered(kind));
            // Half an entry is none.
            type(u"i"_s);
            press(Qt::Key_Backspace);
        }
        press(Qt::Key_Backspace);
        type(u"i"_s);
        press(Qt::Key_Return);
        tells(script, 's', u"Duplicate!"_s);
        QVERIFY(isEntered(control<kvTextBox>(editor, "txtName")));
        press(Qt::Key_Escape);
    });
    QCOMPARE(desk.count(u"Accounts"_s), 7);
}

void EditAccountTest::defaultAccountsStayAsTheyAre_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("row");
    QTest::newRow("Wages") << 1 << u"Wages|2|1|1"_s;
    QTest::newRow("Sales") << 2 << u"Sales|2|0|1"_s;
    QTest::newRow("Purchase") << 3 << u"Purchase|2|1|1"_s;
    QTest::newRow("Cash") << 4 << u"Cash|2|0|1"_s;
}

void EditAccountTest::defaultAccountsStayAsTheyAre()
{
    QFETCH(int, id);
    QFETCH(QString, row);
    MasterDesk desk;
    inScreen(
        u"frmEditAccount"_s, [id] { frmEditAccount().ShowEdit(id); },
        [&row](QWidget &editor, ModalScript &script) {
            QCOMPARE(heading(editor), u"Edit Account"_s);
            auto &name = control<kvTextBox>(editor, "txtName");
            auto &kind = control<kvComboBox>(editor, "cmbType");
            QCOMPARE(name.text(), row.section(u'|', 0, 0));
            QCOMPARE(QString::number(kind.currentIndex()), row.section(u'|', 2, 2));
            kind.setCurrentIndex(1 - kind.currentIndex());
            tells(script, 's', u"Cant't Rename!"_s);
            // Before it is looked whether the title is free, and after it is looked whether there is one.
            name.setText(u"Rent"_s);
            tells(script, 's', u"Cant't Rename!"_s);
            name.setText({});
            tells(script, 's', u"Please enter account title!"_s);
            tells(script, 'd', u"Cant't Delete!"_s);
            press(Qt::Key_Escape);
        });
    QCOMPARE(desk.lines(columns + QString::number(id)), QStringList{row});
}

void EditAccountTest::aChangeIsMeasuredByTheTitleOfTheOpening()
{
    MasterDesk desk;
    const auto inRent = [](const QString &title, const QStringList &messages) {
        inScreen(
            u"frmEditAccount"_s, [] { frmEditAccount().ShowEdit(7); },
            [&](QWidget &editor, ModalScript &script) {
                control<kvTextBox>(editor, "txtName").setText(title);
                for (const QString &message : messages)
                    tells(script, 's', message);
                press(Qt::Key_Escape);
            });
    };
    // Renamed, it is known by its old title until it is opened anew.
    inRent(u"Shop Rent"_s, {u"Account information edited."_s, u"Duplicate!"_s});
    inRent(u"shop rent"_s, {u"Account information edited."_s, u"Account information edited."_s});
    QCOMPARE(desk.lines(columns + u'7'), QStringList{u"shop rent|2|0|0"_s});
}

CORVANE_TEST(EditAccountTest)
#include "tst_frmEditAccount.moc"
