#include "MasterDesk.h"

#include "masters/MasterList.h"
#include "masters/frmEditAccount.h"
#include "masters/frmEditClients.h"
#include "masters/frmEditItem.h"
#include "masters/frmEditWorker.h"
#include "support/screenDriver.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

using namespace Qt::StringLiterals;

MasterDesk::MasterDesk()
{
    addAccount(u"Asha Rao"_s, {1980, 1, 31}, 0);
    addAccount(u"Babu Lal"_s, {}, 1);
    addAccount(u"Rent"_s, {}, 2);
    addItem(u"Coat"_s, u"Chest\r\nWaist"_s, 400, 150);
}

void MasterDesk::addOrder(int clientID, int itemID, int workerID)
{
    addJobRow({.client = clientID, .item = itemID, .worker = workerID});
}

const std::array<Master, 4> &masters()
{
    static const std::array<Master, 4> all{
        Master{"client", u"frmClients"_s, u"frmEditClients"_s, [] { frmClients().exec(); },
            [] { frmEditClients().AddNew(); }, [](int id) { frmEditClients().Edit(id); }, u"Accounts"_s, u"Title"_s,
            u"Asha Rao"_s, 5, u"Please Enter Client Name!"_s, u"New Client Created."_s,
            u"Client Information Updated."_s},
        Master{"worker", u"frmWorkers"_s, u"frmEditWorker"_s, [] { frmWorkers().exec(); },
            [] { frmEditWorker().AddNew(); }, [](int id) { frmEditWorker().Edit(id); }, u"Accounts"_s, u"Title"_s,
            u"Babu Lal"_s, 6, u"Please Enter Worker Name!"_s, u"New Worker Added."_s, u"Worker Information Updated."_s},
        Master{"item", u"frmItems"_s, u"frmEditItem"_s, [] { frmItems().exec(); }, [] { frmEditItem().AddNew(); },
            [](int id) { frmEditItem().Edit(id); }, u"Items"_s, u"Name"_s, u"Coat"_s, 1, u"Please Enter Item Name!"_s,
            u"New Item Added."_s, u"Item Edited."_s},
        Master{"account", u"frmAccountsList"_s, u"frmEditAccount"_s, [] { frmAccountsList().exec(); },
            [] { frmEditAccount().ShowAddNew(); }, [](int id) { frmEditAccount().ShowEdit(id); }, u"Accounts"_s,
            u"Title"_s, u"Rent"_s, 7, u"Please enter account title!"_s, u"New Account created."_s,
            u"Account information edited."_s},
    };
    return all;
}

void inScreen(const QString &className, const std::function<void()> &open,
    const std::function<void(QWidget &, ModalScript &)> &work)
{
    ModalScript script;
    script.expect(className, [&](QWidget &screen) { work(screen, script); });
    open();
    QVERIFY(script.isDone());
}

bool isEntered(const QWidget &field)
{
    return field.window()->focusWidget() == &field;
}

void paste(const QString &text)
{
    QApplication::clipboard()->setText(text);
    driver::press(Qt::Key_V, Qt::ControlModifier);
}
