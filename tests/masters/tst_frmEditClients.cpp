#include "masters/frmEditClients.h"

#include "MasterDesk.h"
#include "store/lookups.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"
#include "ui/DateField.h"
#include "ui/kvTextBox.h"

#include <QPushButton>
#include <QTest>

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
    void aBirthdayThatIsNoDateIsTold_data();
    void aBirthdayThatIsNoDateIsTold();
    void keysAreOneEach_data();
    void keysAreOneEach();
    void theNextKeyFollowsTheLastAccounts_data();
    void theNextKeyFollowsTheLastAccounts();
    void cardsFollowARenamedClient();
};

namespace {

const QString columns =
    u"Select Title, Key, Address, City, State, Mobile, dob, Type, Nature, readonly from Accounts where id="_s;

void inNew(const std::function<void(QWidget &, ModalScript &)> &work)
{
    inScreen(
        u"frmEditClients"_s, [] { frmEditClients().AddNew(); }, work);
}

void inEdit(const std::function<void(QWidget &, ModalScript &)> &work)
{
    inScreen(
        u"frmEditClients"_s, [] { frmEditClients().Edit(5); }, work);
}

} // namespace

void EditClientsTest::theOrderDeskGetsTheNameSavedLast()
{
    MasterDesk desk;
    const auto fromJobCard = [](const QString &typed) {
        QString name;
        inScreen(
            u"frmEditClients"_s, [&name] { name = frmEditClients().AddNewFromJobCard(); },
            [&typed](QWidget &, ModalScript &script) {
                if (typed.isEmpty())
                    return press(Qt::Key_Escape);
                type(typed);
                // One client and not one after the other: the order waits.
                script.expectMessage(u"New Client Created."_s);
                accessKey('s');
            });
        return name;
    };
    QCOMPARE(fromJobCard(u"zoya o'neil"_s), u"Zoya O'neil"_s);
    QCOMPARE(fromJobCard({}), u"Zoya O'neil"_s);
    inEdit([](QWidget &editor, ModalScript &script) {
        control<kvTextBox>(editor, "txtName").setText(u"Asha Devi"_s);
        script.expectMessage(u"Client Information Updated."_s);
        accessKey('s');
        press(Qt::Key_Escape);
    });
    QCOMPARE(fromJobCard({}), u"Asha Devi"_s);
    QCOMPARE(desk.count(u"Accounts"_s), 8);
}

void EditClientsTest::aClientIsEnteredByEnterAlone()
{
    MasterDesk desk;
    inNew([](QWidget &editor, ModalScript &script) {
        for (const char *entry :
            {"bina joshi", "9829012345", "b7", "12, lake road", "udaipur", "rajasthan", "5/6/75"}) {
            type(QLatin1StringView(entry));
            press(Qt::Key_Return);
        }
        QVERIFY(isEntered(control<QPushButton>(editor, "Command1")));
        script.expectMessage(u"New Client Created."_s);
        script.expect(u"frmEditClients"_s, [&script](QWidget &next) {
            QVERIFY(control<DateField>(next, "dateDob").isEmpty());
            type(u"without more"_s);
            script.expectMessage(u"New Client Created."_s);
            script.expect(u"frmEditClients"_s, [](QWidget &) { press(Qt::Key_Escape); });
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
    inEdit([](QWidget &editor, ModalScript &script) {
        // Never filled columns are empty fields, and become empty texts.
        for (const char *name : {"txtKey", "txtAddress", "txtCity", "txtState", "txtMobile"})
            QCOMPARE(control<kvTextBox>(editor, name).text(), QString());
        auto &birthday = control<DateField>(editor, "dateDob");
        QCOMPARE(birthday.birthday(), QDate(1980, 1, 31));
        QVERIFY(!control<QPushButton>(editor, "Command3").isEnabled());
        control<kvTextBox>(editor, "txtCity").setText(u"Kota"_s);
        birthday.setFocus(Qt::TabFocusReason);
        press(Qt::Key_Delete);
        script.expectMessage(u"Client Information Updated."_s);
        accessKey('s');
        QVERIFY(editor.isVisible());
        press(Qt::Key_Escape);
    });
    QCOMPARE(desk.lines(columns + u'5'), QStringList{u"Asha Rao|||Kota||||0|0|0"_s});
    inEdit([](QWidget &editor, ModalScript &) {
        QVERIFY(control<DateField>(editor, "dateDob").isEmpty());
        control<kvTextBox>(editor, "txtCity").setText(u"Elsewhere"_s);
        press(Qt::Key_Escape);
    });
    QCOMPARE(desk.lines(columns + u'5'), QStringList{u"Asha Rao|||Kota||||0|0|0"_s});
}

void EditClientsTest::aBirthdayThatIsNoDateIsTold_data()
{
    QTest::addColumn<bool>("byEnter");
    QTest::newRow("Enter and Enter again") << true;
    QTest::newRow("access key") << false;
}

void EditClientsTest::aBirthdayThatIsNoDateIsTold()
{
    QFETCH(bool, byEnter);
    MasterDesk desk;
    inEdit([byEnter](QWidget &editor, ModalScript &script) {
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
        save(u"Client Information Updated."_s);
        refuse(u"soon"_s);
        // Given up, the date that stayed is saved.
        press(Qt::Key_Escape);
        save(u"Client Information Updated."_s);
        press(Qt::Key_Escape);
    });
    QCOMPARE(desk.lines(u"Select dob from Accounts where id=5"_s), QStringList{u"29-Feb-1980"_s});
}

void EditClientsTest::keysAreOneEach_data()
{
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("message");
    for (const bool isNew : {true, false}) {
        const QString done = isNew ? u"New Client Created."_s : u"Client Information Updated."_s;
        const auto row = [isNew](const char *name, const QString &key, const QString &message) {
            QTest::addRow("%s, %s", isNew ? "new" : "changed", name) << isNew << key << message;
        };
        row("free", u"A13"_s, done);
        row("taken", u"A12"_s, u"Duplicate Key!"_s);
        row("taken in another case", u"a12"_s, u"Duplicate Key!"_s);
        row("none", {}, done);
        row("quoted", u"A' or 'a'='a"_s, done);
    }
    QTest::newRow("the own one in another case") << false << u"own"_s << u"Client Information Updated."_s;
}

void EditClientsTest::keysAreOneEach()
{
    QFETCH(bool, isNew);
    QFETCH(QString, key);
    QFETCH(QString, message);
    MasterDesk desk;
    desk.connection.execute(u"update Accounts set Key='Own' where id=5"_s);
    for (const QString &other : {u"A12"_s, QString()}) {
        desk.addAccount(u"Client of key "_s + other);
        desk.connection.execute(u"update Accounts set Key='%1' where Title='Client of key %1'"_s.arg(other));
    }
    const bool saved = message != u"Duplicate Key!";
    (isNew ? inNew : inEdit)([&](QWidget &editor, ModalScript &script) {
        control<kvTextBox>(editor, "txtName").setText(u"Asha Devi"_s);
        auto &box = control<kvTextBox>(editor, "txtKey");
        box.setText(key);
        script.expectMessage(message);
        if (saved && isNew)
            script.expect(u"frmEditClients"_s, [](QWidget &) { press(Qt::Key_Escape); });
        accessKey('s');
        QVERIFY(saved || isEntered(box));
        if (saved && !isNew) {
            // What it was saved with is its own from now on.
            script.expectMessage(message);
            accessKey('s');
        }
        if (!saved || !isNew)
            press(Qt::Key_Escape);
    });
    QCOMPARE(
        desk.lines(u"Select Key from Accounts where Title='Asha Devi'"_s), saved ? QStringList{key} : QStringList());
}

void EditClientsTest::theNextKeyFollowsTheLastAccounts_data()
{
    QTest::addColumn<QString>("last");
    QTest::addColumn<QString>("next");
    QTest::newRow("number") << u"'41'"_s << u"42"_s;
    QTest::newRow("letter first") << u"'A12'"_s << u"1"_s;
    QTest::newRow("number first") << u"'12A'"_s << u"13"_s;
    QTest::newRow("empty") << u"''"_s << u"1"_s;
    QTest::newRow("none, as after a worker") << u"Null"_s << u"1"_s;
    QTest::newRow("beyond small numbers") << u"'32767'"_s << u"32768"_s;
    QTest::newRow("nobody there") << QString() << u"1"_s;
}

void EditClientsTest::theNextKeyFollowsTheLastAccounts()
{
    QFETCH(QString, last);
    QFETCH(QString, next);
    MasterDesk desk;
    desk.connection.execute(u"update Accounts set Key='90' where id=5"_s);
    desk.connection.execute(
        last.isEmpty() ? u"Delete from Accounts"_s : u"update Accounts set Key=%1 where id=7"_s.arg(last));
    inNew([&next](QWidget &editor, ModalScript &) {
        accessKey('g');
        QCOMPARE(control<kvTextBox>(editor, "txtKey").text(), next);
        QVERIFY(isEntered(control<kvTextBox>(editor, "txtKey")));
        press(Qt::Key_Return);
        QVERIFY(isEntered(control<kvTextBox>(editor, "txtAddress")));
        press(Qt::Key_Escape);
    });
}

void EditClientsTest::cardsFollowARenamedClient()
{
    MasterDesk desk;
    desk.addOrder(5, 1, 6);
    inEdit([](QWidget &editor, ModalScript &script) {
        control<kvTextBox>(editor, "txtName").setText(u"Asha Devi"_s);
        script.expectMessage(u"Client Information Updated."_s);
        accessKey('s');
        press(Qt::Key_Escape);
    });
    // By their number; the name that was written with the card stays as it was.
    QCOMPARE(desk.lines(u"Select ClintID, ClintName from JOBS_DETAIL"_s), QStringList{u"5|Asha Rao"_s});
    QCOMPARE(GetAccountTitle(5), u"Asha Devi"_s);
}

CORVANE_TEST(EditClientsTest)
#include "tst_frmEditClients.moc"
