#include "production/printAssignment.h"

#include "base/RuntimeError.h"
#include "base/session.h"
#include "production/rowGone.h"
#include "reports/ReportFlow.h"
#include "reports/ReportPreview.h"
#include "reports/qrCode.h"
#include "reports/rptLabel.h"
#include "reports/rptWorkerJobCard.h"
#include "store/DataEnvironment.h"
#include "store/lookups.h"
#include "store/settings.h"
#include "ui/frmMsg.h"
#include "ui/language.h"

using namespace Qt::StringLiterals;

namespace {

bool isHindiSlip()
{
    return GetSetting(setting::Language) == u"Hindi" && GetSetting(setting::HindiSlip) == u"Yes";
}

void putInHindi(ReportSection &section)
{
    try {
        LanguageTable table;
        for (ReportControl &control : section.controls()) {
            if (control.kind != ReportControl::Kind::Label)
                continue;
            if (const auto hindi = table.hindi(control.text); hindi && !hindi->trimmed().isEmpty()) {
                control.text = *hindi;
                control.family = hindiFamily();
            }
        }
    } catch (const RuntimeError &error) {
        ShowMessage(error.text() + u"\r\n"_s + error.source());
    }
}

/// `file` begins the name that a file of it gets.
void preview(Report report, const QString &file, QStringView companySection, qint32 rowID)
{
    Recordset &row = DE().rsJOBS_DETAIL;
    row.reopen(u"Select * from JOBS_DETAIL where id="_s + QString::number(rowID));
    if (row.eof()) {
        row.close();
        return tellRowGone();
    }
    report.section(companySection).setText(u"lblCompany", session::ShopName);
    report.section(u"Section1").control(u"code").picture =
        qrCode(u"%1/%2"_s.arg(row.integer(u"JobID")).arg(row.integer(u"ItemSr")));
    report.setFileName(u"%1 %2-%3 %4"_s.arg(file)
                           .arg(row.integer(u"JobID"))
                           .arg(row.integer(u"ItemSr"))
                           .arg(itemNameOrBlank(row.integer(u"ItemID"))));
    const auto pages = layOut(report, row);
    row.close();
    if (pages)
        ReportPreview(*pages).exec();
}

} // namespace

void printAssignment::slip(qint32 rowID)
{
    Report report = rptWorkerJobCard();
    if (isHindiSlip())
        putInHindi(report.section(u"Section1"));
    preview(std::move(report), u"Slip"_s, u"Section2", rowID);
}

void printAssignment::label(qint32 rowID)
{
    preview(rptLabel(), u"Label"_s, u"Section1", rowID);
}
