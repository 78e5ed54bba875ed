#include "MasterDesk.h"

#include "masters/MasterList.h"
#include "masters/frmEditAccount.h"
#include "masters/frmEditClients.h"
#include "masters/frmEditItem.h"
#include "masters/frmEditWorker.h"

using namespace Qt::StringLiterals;

MasterDesk::MasterDesk()
{
    addAccount(u"Asha Rao"_s, {1980, 1, 31}, 0);
    addAccount(u"Babu Lal"_s, {}, 1);
    addAccount(u"Rent"_s, {}, 2);
    addItem(u"Coat"_s, u"Chest\r\nWaist"_s, 400, 150);
}

const std::array<Master, 4> &masters()
{
    static const std::array<Master, 4> all{
        Master{Client, u"frmClients"_s, u"frmEditClients"_s, [] { frmClients().exec(); },
            [] { frmEditClients().AddNew(); }, [](int id) { frmEditClients().Edit(id); }, u"Accounts"_s, u"Title"_s,
            u"Asha Rao"_s, 5, u"Add New Client"_s, u"Edit Client Information"_s, u"Please Enter Client Name!"_s,
            u"New Client Created."_s, u"Client Information Updated."_s},
        Master{Worker, u"frmWorkers"_s, u"frmEditWorker"_s, [] { frmWorkers().exec(); },
            [] { frmEditWorker().AddNew(); }, [](int id) { frmEditWorker().Edit(id); }, u"Accounts"_s, u"Title"_s,
            u"Babu Lal"_s, 6, u"Add New Worker"_s, u"Edit Worker Information"_s, u"Please Enter Worker Name!"_s,
            u"New Worker Added."_s, u"Worker Information Updated."_s},
        Master{Item, u"frmItems"_s, u"frmEditItem"_s, [] { frmItems().exec(); }, [] { frmEditItem().AddNew(); },
            [](int id) { frmEditItem().Edit(id); }, u"Items"_s, u"Name"_s, u"Coat"_s, 1, u"Add New Item"_s,
            u"Edit Item"_s, u"Please Enter Item Name!"_s, u"New Item Added."_s, u"Item Edited."_s},
        Master{Account, u"frmAccountsList"_s, u"frmEditAccount"_s, [] { frmAccountsList().exec(); },
            [] { frmEditAccount().ShowAddNew(); }, [](int id) { frmEditAccount().ShowEdit(id); }, u"Accounts"_s,
            u"Title"_s, u"Rent"_s, 7, u"Add New Account"_s, u"Edit Account"_s, u"Please enter account title!"_s,
            u"New Account created."_s, u"Account information edited."_s},
    };
    return all;
}

void Master::inList(const Work &work) const
{
    inScreen(list, openList, work);
}

void Master::inNew(const Work &work) const
{
    inScreen(editor, add, work);
}

void Master::inEdit(const Work &work) const
{
    inScreen(
        editor, [this] { edit(id); }, work);
}

void Master::expectLeft(ModalScript &script) const
{
    script.expect(editor, [](QWidget &) { driver::press(Qt::Key_Escape); });
}

void inScreen(const QString &className, const std::function<void()> &open, const Work &work)
{
    ModalScript script;
    script.expect(className, [&](QWidget &screen) {
        work(screen, script);
        if (screen.isVisible())
            driver::press(Qt::Key_Escape);
    });
    open();
}

void tells(ModalScript &script, char command, const QString &message)
{
    script.expectMessage(message);
    driver::accessKey(command);
    QVERIFY(script.isDone());
}

void deleteIt(ModalScript &script, const QString &outcome)
{
    script.expectMessage(u"Are you sure?"_s, Qt::Key_Y);
    tells(script, 'd', outcome);
}

bool isEntered(const QWidget &field)
{
    return field.window()->focusWidget() == &field;
}
