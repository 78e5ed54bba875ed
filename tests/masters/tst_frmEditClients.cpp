#include "masters/frmEditClients.h"

#include "MasterDesk.h"
#include "store/lookups.h"
#include "ui/DateField.h"
#include "ui/kvTextBox.h"

#include <QPushButton>

using namespace Qt::StringLiterals;
using driver::accessKey;
using driver::control;
using driver::press;
using driver::type;

/// A client: what is kept, the key, the way from the order desk and back.
class EditClientsTest : public QObject {
    Q_OBJECT

private slots:
    void theOrderDeskGetsTheNameSavedLast();
    void aClientIsEnteredByEnterAlone();
    void anOpenedClientShowsWhatIsStored();
    void aBirthdayThatIsNoDateIsTold();
    void keysAreOneEach();
    void theNextKeyFollowsTheLastAccounts();
};

namespace {

const QString columns =
    u"Select Title, Key, Address, City, State, Mobile, dob, Type, Nature, readonly from Accounts where id="_s;

const Master &client()
{
    return masters()[Client];
}

} // namespace

void EditClientsTest::theOrderDeskGetsTheNameSavedLast()
{
    MasterDesk desk;
    desk.addJobRow({});
    const auto fromJobCard = [](const QString &typed) {
        QString name;
        inScreen(
            client().editor, [&name] { name = frmEditClients().AddNewFromJobCard(); },
            [&typed](QWidget &, ModalScript &script) {
                if (typed.isEmpty())
                    return press(Qt::Key_Escape);
                type(typed);
                // One client and not one after the other: the order waits.
                tells(script, 's', client().added);
            });
        return name;
    };
    QCOMPARE(fromJobCard(u"zoya o'neil"_s), u"Zoya O'neil"_s);
    QCOMPARE(fromJobCard({}), u"Zoya O'neil"_s);
    client().inEdit([](QWidget &editor, ModalScript &script) {
        control<kvTextBox>(editor, "txtName").setText(u"Asha Devi"_s);
        tells(script, 's', client().changed);
    });
    QCOMPARE(fromJobCard({}), u"Asha Devi"_s);
    QCOMPARE(desk.count(u"Accounts"_s), 8);
    // Cards follow by the number; the name that was written with them stays as it was.
    QCOMPARE(desk.lines(u"Select ClintID, ClintName from JOBS_DETAIL"_s), QStringList{u"5|Asha Rao"_s});
    QCOMPARE(GetAccountTitle(5), u"Asha Devi"_s);
}

void EditClientsTest::aClientIsEnteredByEnterAlone()
{
    MasterDesk desk;
    client().inNew([](QWidget &editor, ModalScript &script) {
        for (const char *entry :
            {"bina joshi", "9829012345", "b7", "12, lake road", "udaipur", "rajasthan", "5/6/75"}) {
            type(QLatin1StringView(entry));
            press(Qt::Key_Return);
        }
        QVERIFY(isEntered(control<QPushButton>(editor, "Command1")));
        script.expectMessage(client().added);
        script.expect(client().editor, [&script](QWidget &next) {
            QVERIFY(control<DateField>(next, "dateDob").isEmpty());
            type(u"without more"_s);
            client().expectLeft(script.expectMessage(client().added));
            accessKey('s');
        });
        press(Qt::Key_Return);
    });
    QCOMPARE(desk.lines(columns + u'8'),
        QStringList{u"Bina Joshi|B7|12, Lake Road|Udaipur|Rajasthan|9829012345|05-Jun-1975|0|0|0"_s});
    QCOMPARE(desk.lines(columns + u'9'), QStringList{u"Without More|||||||0|0|0"_s});
}

void EditClientsTest::anOpenedClientShowsWhatIsStored()
{
    MasterDesk desk;
    client().inEdit([](QWidget &editor, ModalScript &script) {
        // Never filled columns are empty fields, and become empty texts.
        for (const char *name : {"txtKey", "txtAddress", "txtCity", "txtState", "txtMobile"})
            QCOMPARE(control<kvTextBox>(editor, name).text(), QString());
        auto &birthday = control<DateField>(editor, "dateDob");
        QCOMPARE(birthday.birthday(), QDate(1980, 1, 31));
        QVERIFY(!control<QPushButton>(editor, "Command3").isEnabled());
        control<kvTextBox>(editor, "txtCity").setText(u"Kota"_s);
        birthday.setFocus(Qt::TabFocusReason);
        press(Qt::Key_Delete);
        tells(script, 's', client().changed);
    });
    client().inEdit([](QWidget &editor, ModalScript &) {
        QVERIFY(control<DateField>(editor, "dateDob").isEmpty());
        control<kvTextBox>(editor, "txtCity").setText(u"Elsewhere"_s);
    });
    QCOMPARE(desk.lines(columns + u'5'), QStringList{u"Asha Rao|||Kota||||0|0|0"_s});
}

void EditClientsTest::aBirthdayThatIsNoDateIsTold()
{
    for (const bool byEnter : {true, false}) {
        MasterDesk desk;
        client().inEdit([byEnter](QWidget &editor, ModalScript &script) {
            auto &birthday = control<DateField>(editor, "dateDob");
            const auto save = [&](const QString &message) {
                if (byEnter)
                    press(Qt::Key_Return);
                script.expectMessage(message);
                byEnter ? press(Qt::Key_Return) : accessKey('s');
                QVERIFY(script.isDone());
            };
            const auto refuse = [&](const QString &typed) {
                birthday.setFocus(Qt::TabFocusReason);
                type(typed);
                for (int i = 0; i < 2; ++i) {
                    save(u"\"%1\" is not a date!"_s.arg(typed));
                    QVERIFY(isEntered(birthday));
                }
            };
            refuse(u"31/2/80"_s);
            type(u"29/2/80"_s);
            save(client().changed);
            refuse(u"soon"_s);
            // Given up, the date that stayed is saved.
            press(Qt::Key_Escape);
            save(client().changed);
        });
        QCOMPARE(desk.lines(u"Select dob from Accounts where id=5"_s), QStringList{u"29-Feb-1980"_s});
    }
}

void EditClientsTest::keysAreOneEach()
{
    const std::pair<QString, bool> cases[]{{u"A13"_s, true}, {u"A12"_s, false}, {u"a12"_s, false}, {{}, true},
        {u"A' or 'a'='a"_s, true}, {u"own"_s, true}};
    for (const auto &entry : cases) {
        const QString &key = entry.first;
        for (const bool isNew : {true, false}) {
            // In another case it is a client's own and no other's.
            const bool free = entry.second && !(isNew && key == u"own");
            MasterDesk desk;
            desk.connection.execute(u"update Accounts set Key='Own' where id=5"_s);
            desk.connection.execute(u"update Accounts set Key='A12' where id=6"_s);
            desk.connection.execute(u"update Accounts set Key='' where id=7"_s);
            (client().*(isNew ? &Master::inNew : &Master::inEdit))([&](QWidget &editor, ModalScript &script) {
                control<kvTextBox>(editor, "txtName").setText(u"Asha Devi"_s);
                auto &box = control<kvTextBox>(editor, "txtKey");
                box.setText(key);
                script.expectMessage(!free ? u"Duplicate Key!"_s : isNew ? client().added : client().changed);
                if (free && isNew)
                    client().expectLeft(script);
                accessKey('s');
                QVERIFY(free || isEntered(box));
                // What it was saved with is its own from now on.
                if (free && !isNew)
                    tells(script, 's', client().changed);
            });
            QCOMPARE(desk.lines(u"Select Key from Accounts where Title='Asha Devi'"_s),
                free ? QStringList{key} : QStringList());
        }
    }
}

void EditClientsTest::theNextKeyFollowsTheLastAccounts()
{
    // The last stands for nobody being there.
    const std::pair<QString, QString> cases[]{{u"'41'"_s, u"42"_s}, {u"'A12'"_s, u"1"_s}, {u"'12A'"_s, u"13"_s},
        {u"''"_s, u"1"_s}, {u"Null"_s, u"1"_s}, {u"'32767'"_s, u"32768"_s}, {{}, u"1"_s}};
    MasterDesk desk;
    desk.connection.execute(u"update Accounts set Key='90' where id=5"_s);
    for (const auto &entry : cases) {
        desk.connection.execute(entry.first.isEmpty() ? u"Delete from Accounts"_s
                                                      : u"update Accounts set Key=%1 where id=7"_s.arg(entry.first));
        client().inNew([&entry](QWidget &editor, ModalScript &) {
            accessKey('g');
            QCOMPARE(control<kvTextBox>(editor, "txtKey").text(), entry.second);
            QVERIFY(isEntered(control<kvTextBox>(editor, "txtKey")));
            press(Qt::Key_Return);
            QVERIFY(isEntered(control<kvTextBox>(editor, "txtAddress")));
        });
    }
}

CORVANE_TEST(EditClientsTest)
#include "tst_frmEditClients.moc"
