#include "OrderDesk.h"
#include "jobcards/frmAddItem.h"
#include "masters/MasterList.h"
#include "masters/frmEditAccount.h"
#include "masters/frmEditClients.h"
#include "masters/frmEditItem.h"
#include "masters/frmEditWorker.h"
#include "masters/frmSearchClient.h"
#include "production/frmDDP.h"
#include "production/frmEditWorkerAssign.h"
#include "store/lookups.h"
#include "support/screenDriver.h"
#include "support/testRegistry.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Names of 140 characters: nothing of a screen grows with them.
class LongNamesTest : public QObject {
    Q_OBJECT

private slots:
    void noScreenIsWidenedByANameThatItShows_data();
    void noScreenIsWidenedByANameThatItShows();
};

namespace {

constexpr int client = 5;
constexpr int worker = 6;
constexpr int assignedRow = 2;

using Opener = void (*)(ModalScript &script, const ModalScript::Action &look);

template <typename List>
void showList(ModalScript &script, const ModalScript::Action &look)
{
    List list;
    script.expect(QString::fromLatin1(List::staticMetaObject.className()), look);
    list.exec();
}

template <typename Editor, int ID>
void edit(ModalScript &script, const ModalScript::Action &look)
{
    script.expect(QString::fromLatin1(Editor::staticMetaObject.className()), look);
    if constexpr (std::is_same_v<Editor, frmEditAccount>)
        Editor().ShowEdit(ID);
    else
        Editor().Edit(ID);
}

void editRow(ModalScript &script, const ModalScript::Action &look)
{
    clsJobCardData rows;
    JobCardRow row = OrderDesk::row();
    row.ItemName = GetItemName(1);
    row.ItemDetails = row.ItemName + u"\r\nWaist"_s;
    rows.AddNewRow(row);
    bool cancelled = false;
    script.expect(u"frmAddItem"_s, look);
    frmAddItem().EditItemDetails(rows, client, 1, cancelled);
}

void assign(ModalScript &script, const ModalScript::Action &look)
{
    script.expect(u"frmEditWorkerAssign"_s, look);
    frmEditWorkerAssign().ShowEdit(assignedRow);
}

void editCard(ModalScript &script, const ModalScript::Action &look)
{
    onCard(script, 1, look);
}

} // namespace

void LongNamesTest::noScreenIsWidenedByANameThatItShows_data()
{
    QTest::addColumn<Opener>("open");
    QTest::newRow("clients") << Opener(showList<frmClients>);
    QTest::newRow("workers") << Opener(showList<frmWorkers>);
    QTest::newRow("items") << Opener(showList<frmItems>);
    QTest::newRow("accounts") << Opener(showList<frmAccountsList>);
    QTest::newRow("client") << Opener(edit<frmEditClients, client>);
    QTest::newRow("worker") << Opener(edit<frmEditWorker, worker>);
    QTest::newRow("item") << Opener(edit<frmEditItem, 1>);
    QTest::newRow("account") << Opener(edit<frmEditAccount, 1>);
    QTest::newRow("search") << Opener(showList<frmSearchClient>);
    QTest::newRow("forecast") << Opener(showList<frmDDP>);
    QTest::newRow("row") << Opener(editRow);
    QTest::newRow("card") << Opener(editCard);
    QTest::newRow("assignment") << Opener(assign);
}

void LongNamesTest::noScreenIsWidenedByANameThatItShows()
{
    QFETCH(const Opener, open);
    OrderDesk desk;
    desk.addAccount(u"Mohan"_s, {}, 1);
    desk.book(u"1"_s);
    desk.addJobRow({.client = client, .worker = worker});
    QSize least;
    QSize wanted;
    const auto look = [&](QWidget &screen) {
        least = screen.minimumSizeHint();
        wanted = screen.sizeHint();
        QVERIFY(screen.width() <= screen.screen()->availableGeometry().width());
        if (screen.objectName() != u"frmEditJOB"_s)
            driver::press(Qt::Key_Escape);
    };
    ModalScript script;
    open(script, look);
    QVERIFY(wanted.width() > 0);
    const QSize leastBefore = least;
    const QSize wantedBefore = wanted;

    const QString name = QString(140, u'W');
    for (const QString &change :
        {u"Update Accounts set Title='%1'"_s, u"Update Items set NAME='%1'"_s, u"Update Accounts set Address='%1'"_s})
        desk.connection.execute(change.arg(name));
    QCOMPARE(GetAccountTitle(client), name);
    open(script, look);
    // A measurement's caption has some room to grow.
    QVERIFY(least.width() < leastBefore.width() * 5 / 4);
    QVERIFY(wanted.width() < wantedBefore.width() * 5 / 4);
    QCOMPARE(least.height(), leastBefore.height());
    QCOMPARE(wanted.height(), wantedBefore.height());
}

CORVANE_TEST(LongNamesTest)
#include "tst_longNames.moc"
