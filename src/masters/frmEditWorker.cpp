#include "masters/frmEditWorker.h"

#include "store/codes.h"
#include "ui/Command.h"
#include "ui/formFields.h"
#include "ui/kvTextBox.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

frmEditWorker::frmEditWorker() : MasterEditor(u"frmEditWorker"_s, masterRows::workers())
{
    buildForm();
}

void frmEditWorker::buildForm()
{
    auto *fields = new QGridLayout;
    addField(fields, u"Name :"_s, txtName);
    addField(fields, u"Address :"_s, textField(u"txtAddress"_s, u"Address"_s));
    addField(fields, u"City :"_s, textField(u"txtCity"_s, u"City"_s));
    addField(fields, u"State :"_s, textField(u"txtState"_s, u"State"_s));
    addField(fields, u"Mobile :"_s, textField(u"txtMobile"_s, u"Mobile"_s));
    stretch(fields);
    buildFrame(fields);
    resize(500, sizeHint().height());
    chainTabs({Command1, Command2});
}

void frmEditWorker::startNew()
{
    start(u"N"_s, u"Add New Worker"_s);
}

void frmEditWorker::AddNew()
{
    addOneAfterAnother(*this);
}

void frmEditWorker::Edit(int id)
{
    startEdit(u"Edit Worker Information"_s, id).close();
    exec();
}

void frmEditWorker::save()
{
    if (isNameMissing(u"Please Enter Worker Name!"_s) || !store({{u"Type"_s, accountType::Worker}}))
        return;
    finishSave(u"New Worker Added."_s, u"Worker Information Updated."_s);
}
