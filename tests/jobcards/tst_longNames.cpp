#include "OrderDesk.h"
#include "jobcards/frmAddItem.h"
#include "jobcards/frmEditJOB.h"
#include "masters/MasterList.h"
#include "masters/frmEditAccount.h"
#include "masters/frmEditClients.h"
#include "masters/frmEditItem.h"
#include "masters/frmEditWorker.h"
#include "masters/frmSearchClient.h"
#include "production/frmDDP.h"
#include "production/frmEditWorkerAssign.h"
#include "store/lookups.h"

using namespace Qt::StringLiterals;

/// Names of 140 characters: nothing of a screen grows with them.
class LongNamesTest : public QObject {
    Q_OBJECT

private slots:
    void noScreenIsWidenedByANameThatItShows();
};

namespace {

constexpr int client = 5;
constexpr int worker = 6;

struct Shown {
    const char *screen;
    void (*open)();
};

template <typename List>
void exec()
{
    List().exec();
}

void editRow()
{
    clsJobCardData rows;
    JobCardRow row = OrderDesk::row();
    row.ItemName = GetItemName(1);
    row.ItemDetails = row.ItemName + u"\r\nWaist"_s;
    rows.AddNewRow(row);
    bool cancelled = false;
    frmAddItem().EditItemDetails(rows, client, 1, cancelled);
}

void editCard()
{
    bool deleted = false;
    frmEditJOB().ShowEdit(1, deleted);
}

const Shown screens[]{{"frmClients", exec<frmClients>}, {"frmWorkers", exec<frmWorkers>}, {"frmItems", exec<frmItems>},
    {"frmAccountsList", exec<frmAccountsList>}, {"frmEditClients", [] { frmEditClients().Edit(client); }},
    {"frmEditWorker", [] { frmEditWorker().Edit(worker); }}, {"frmEditItem", [] { frmEditItem().Edit(1); }},
    {"frmEditAccount", [] { frmEditAccount().ShowEdit(1); }}, {"frmSearchClient", exec<frmSearchClient>},
    {"frmDDP", exec<frmDDP>}, {"frmAddItem", editRow}, {"frmEditJOB", editCard},
    {"frmEditWorkerAssign", [] { frmEditWorkerAssign().ShowEdit(2); }}};

/// The least size of a screen, and the one it asks for.
std::pair<QSize, QSize> sizes(const Shown &shown)
{
    std::pair<QSize, QSize> sizes;
    ModalScript script;
    script.expect(QString::fromLatin1(shown.screen), [&sizes](QWidget &screen) {
        sizes = {screen.minimumSizeHint(), screen.sizeHint()};
        QVERIFY(screen.width() <= screen.screen()->availableGeometry().width());
        driver::press(Qt::Key_Escape);
    });
    shown.open();
    return sizes;
}

} // namespace

void LongNamesTest::noScreenIsWidenedByANameThatItShows()
{
    const QString name(140, u'W');
    for (const Shown &shown : screens) {
        OrderDesk desk;
        desk.addAccount(u"Mohan"_s, {}, 1);
        desk.book(u"1"_s);
        desk.addJobRow({.client = client, .worker = worker});
        const auto [leastBefore, wantedBefore] = sizes(shown);
        QVERIFY(wantedBefore.width() > 0);
        for (const QString &change : {u"Update Accounts set Title='%1'"_s, u"Update Items set NAME='%1'"_s,
                 u"Update Accounts set Address='%1'"_s})
            desk.connection.execute(change.arg(name));
        QCOMPARE(GetAccountTitle(client), name);
        const auto [least, wanted] = sizes(shown);
        // A measurement's caption has some room to grow.
        QVERIFY2(least.width() < leastBefore.width() * 5 / 4, shown.screen);
        QVERIFY2(wanted.width() < wantedBefore.width() * 5 / 4, shown.screen);
        QCOMPARE(least.height(), leastBefore.height());
        QCOMPARE(wanted.height(), wantedBefore.height());
    }
}

CORVANE_TEST(LongNamesTest)
#include "tst_longNames.moc"
