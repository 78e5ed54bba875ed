#include "accounts/printVoucher.h"

#include "base/session.h"
#include "base/values.h"
#include "reports/ReportFlow.h"
#include "reports/ReportPreview.h"
#include "reports/rptPrintVoucher.h"
#include "reports/sheet.h"
#include "store/DataEnvironment.h"
#include "store/codes.h"
#include "store/settings.h"
#include "ui/frmMsg.h"

#include <QImageReader>

using namespace Qt::StringLiterals;

namespace {

/// The shop's logo; without one that can be read the sheet has none.
QString logo()
{
    const QString file = GetSetting(setting::LogoFile);
    return !file.isEmpty() && QImageReader(file).canRead() ? file : QString();
}

} // namespace

void printVoucher(qint32 number, const QString &kind, const QString &remark)
{
    Recordset &legs = DE().rsPrintVoucher;
    legs.reopen(u" SHAPE {SELECT * FROM `postings` where  vtype=%1 and vid=%2"_s.arg(documentKind::Voucher).arg(number)
        + u"}  AS PrintVoucher APPEND ({SELECT * FROM `Accounts`}   RELATE 'AccID' TO 'Id') AS acc,"
          "({SELECT * FROM `Accounts`} RELATE 'RefID' TO 'Id') as acc2"_s);
    if (legs.eof()) {
        legs.close();
        return ShowMessage(u"Entry is damaged!"_s);
    }
    Report report = rptPrintVoucher();
    ReportSection &head = report.section(u"Section2");
    sheet::dressShop(head, logo());
    head.setText(u"lblDate", DayMonthYear(legs.date(u"Date")));
    head.setText(u"lblVC", QString::number(number));
    head.setText(u"lvlVcType", kind);
    ReportSection &foot = report.section(u"Section3");
    foot.setText(u"lblForCompany", u"For "_s + session::ShopName);
    foot.setText(u"txtRemark", remark);
    report.setFileName(u"Voucher %1 %2"_s.arg(number).arg(kind));
    const auto pages = layOut(report, legs);
    legs.close();
    if (pages)
        ReportPreview(*pages).exec();
}
