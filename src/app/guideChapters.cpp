#include "app/guideChapters.h"

using namespace Qt::StringLiterals;

const QHash<QString, QString> &guideChapters()
{
    const auto booking = u"Booking a job card"_s;
    const auto assigning = u"Assigning a garment"_s;
    const auto work = u"The day's work"_s;
    const auto pictures = u"Pictures of cloth and garments"_s;
    const auto masters = u"Clients, workers, items, accounts"_s;
    const auto books = u"The books"_s;
    const auto wages = u"Wages and payroll"_s;
    const auto house = u"Shop information and settings"_s;
    const auto start = u"The first start"_s;
    static const QHash<QString, QString> chapters{
        {u"frmSelectDB"_s, start},
        {u"frmMain"_s, start},
        {u"frmEditJOB"_s, booking},
        {u"frmAddItem"_s, booking},
        {u"ReportPreview"_s, u"Printing the card"_s},
        {u"frmOpenJob"_s, u"A client comes back"_s},
        {u"frmWorkerJobRegister"_s, work},
        {u"frmWorkerReport2"_s, work},
        {u"frmRatings"_s, assigning},
        {u"frmEditWorkerAssign"_s, assigning},
        {u"frmFeedBack"_s, assigning},
        {u"frmCam"_s, pictures},
        {u"frmHandNote"_s, pictures},
        {u"frmSelectFile"_s, pictures},
        {u"frmPreview"_s, pictures},
        {u"frmSearchClient"_s, u"Finding a client"_s},
        {u"frmDDP"_s, u"When can it be ready?"_s},
        {u"frmDeliveryRegister"_s, u"What is due?"_s},
        {u"frmTrailDate"_s, u"Trials"_s},
        {u"frmBirthDayRimenders"_s, u"Birthdays"_s},
        {u"frmMasters"_s, masters},
        {u"frmClients"_s, masters},
        {u"frmWorkers"_s, masters},
        {u"frmItems"_s, masters},
        {u"frmAccountsList"_s, masters},
        {u"frmEditClients"_s, masters},
        {u"frmEditWorker"_s, masters},
        {u"frmEditItem"_s, masters},
        {u"frmEditAccount"_s, masters},
        {u"frmAccountBook"_s, books},
        {u"frmTransiction"_s, books},
        {u"frmDayBook"_s, books},
        {u"frmDueRegister"_s, books},
        {u"frmWorkerWagesRegister"_s, wages},
        {u"frmPayrollDetails"_s, wages},
        {u"frmShopINFO"_s, house},
        {u"frmSettings"_s, house},
        {u"frmLogin"_s, house},
        {u"frmSelectDate"_s, u"The status report"_s},
    };
    return chapters;
}
