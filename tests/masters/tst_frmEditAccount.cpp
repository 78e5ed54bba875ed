#include "masters/frmEditAccount.h"

#include "MasterDesk.h"
#include "ui/kvComboBox.h"
#include "ui/kvTextBox.h"

#include <QLabel>

using namespace Qt::StringLiterals;
using driver::control;
using driver::press;
using driver::type;

/// A ledger account, and those that the program keeps for itself.
class EditAccountTest : public QObject {
    Q_OBJECT

private slots:
    void aNewAccountStaysOpenForChanges();
    void theTypeMustBeChosen();
    void defaultAccountsStayAsTheyAre();
    void aChangeIsMeasuredByTheTitleOfTheOpening();
};

namespace {

const QString columns = u"Select Title, Type, Nature, readonly from Accounts where id="_s;

const Master &account()
{
    return masters()[Account];
}

QString heading(const QWidget &editor)
{
    return control<QLabel>(editor, "lblTitle").text();
}

} // namespace

void EditAccountTest::aNewAccountStaysOpenForChanges()
{
    MasterDesk desk;
    account().inNew([&desk](QWidget &editor, ModalScript &script) {
        QCOMPARE(heading(editor), account().adding);
        // There is nothing to delete yet.
        driver::accessKey('d');
        type(u"tea\r"_s);
        type(u"e\r"_s);
        tells(script, 's', account().added);
        QCOMPARE(desk.lines(columns + u'8'), QStringList{u"Tea|2|1|0"_s});
        QCOMPARE(heading(editor), account().editing);
        control<kvTextBox>(editor, "txtName").setText(u"TEA"_s);
        control<kvComboBox>(editor, "cmbType").setText(u"Income"_s);
        tells(script, 's', account().changed);
        QCOMPARE(desk.lines(columns + u'8'), QStringList{u"TEA|2|0|0"_s});
        deleteIt(script);
    });
    QCOMPARE(desk.lines(columns + u'8'), QStringList());
}

void EditAccountTest::theTypeMustBeChosen()
{
    MasterDesk desk;
    account().inNew([](QWidget &editor, ModalScript &script) {
        auto &kind = control<kvComboBox>(editor, "cmbType");
        // A taken title comes up only after it.
        type(u"cash"_s);
        for (int i = 0; i < 2; ++i) {
            tells(script, 's', u"Please select account type"_s);
            QVERIFY(isEntered(kind));
            // Half an entry is none.
            type(u"i\b"_s);
        }
        press(Qt::Key_Backspace);
        type(u"i\r"_s);
        tells(script, 's', u"Duplicate!"_s);
        QVERIFY(isEntered(control<kvTextBox>(editor, "txtName")));
    });
    QCOMPARE(desk.count(u"Accounts"_s), 7);
}

void EditAccountTest::defaultAccountsStayAsTheyAre()
{
    const QStringList rows{u"Wages|2|1|1"_s, u"Sales|2|0|1"_s, u"Purchase|2|1|1"_s, u"Cash|2|0|1"_s};
    MasterDesk desk;
    for (int id = 1; id <= 4; ++id) {
        const QString &row = rows.at(id - 1);
        inScreen(
            account().editor, [id] { account().edit(id); },
            [&row](QWidget &editor, ModalScript &script) {
                QCOMPARE(heading(editor), account().editing);
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
                tells(script, 's', account().missing);
                tells(script, 'd', u"Cant't Delete!"_s);
            });
        QCOMPARE(desk.lines(columns + QString::number(id)), QStringList{row});
    }
}

void EditAccountTest::aChangeIsMeasuredByTheTitleOfTheOpening()
{
    MasterDesk desk;
    const auto rename = [](const QString &title, const QStringList &messages) {
        account().inEdit([&](QWidget &editor, ModalScript &script) {
            control<kvTextBox>(editor, "txtName").setText(title);
            for (const QString &message : messages)
                tells(script, 's', message);
        });
    };
    // Renamed, it is known by its old title until it is opened anew.
    rename(u"Shop Rent"_s, {account().changed, u"Duplicate!"_s});
    rename(u"shop rent"_s, {account().changed, account().changed});
    QCOMPARE(desk.lines(columns + u'7'), QStringList{u"shop rent|2|0|0"_s});
}

CORVANE_TEST(EditAccountTest)
#include "tst_frmEditAccount.moc"
