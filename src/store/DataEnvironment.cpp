#include "store/DataEnvironment.h"

using namespace Qt::StringLiterals;

DataEnvironment::DataEnvironment()
    : rsITEMS(CN, u"ITEMS"_s),
      rsJOBS(CN,
          u"SHAPE {SELECT * FROM `JOBS`}  AS JOBS APPEND ({SELECT * FROM `JOBS_DETAIL`}  AS PD RELATE 'Id' TO 'JobID') AS PD"_s),
      rsJOBS_DETAIL(CN, u"JOBS_DETAIL"_s), rsItems2(CN, u"ITEMS"_s), rsSHOP(CN, u"SHOP"_s),
      rsJOBS_DETAIL2(CN, u"JOBS_DETAIL"_s), rsSettings(CN, u"Settings"_s), rsINFO(CN, u"INFO"_s),
      rsPrintHead(CN,
          u"SHAPE {SELECT * FROM `tmpHead`}  AS PrintHead APPEND ({SELECT * FROM `tmpBody`}  AS PrintDetails "
          "RELATE 'JOBID' TO 'JOBID') AS PrintDetails"_s),
      rsPrintBody(CN, u"tmpBody"_s), rsJobs2(CN, u"JOBS"_s), rspostings(CN, u"postings"_s), rsrank(CN, u"rank"_s),
      rsaccounts(CN, u"Accounts"_s), rstmpWagesRegister(CN, u"wagesregister"_s), rsaccountbooks(CN, u"accountbook"_s),
      rspostings2(CN, u"postings"_s),
      rsReport2_Grouping(CN,
          u"SHAPE {SELECT * FROM `JOBS_DETAIL`}  AS Report2 COMPUTE Report2, SUM(Report2.'WorkerID') AS jtotal BY 'WorkerID'"_s),
      rsPrintVoucher(CN,
          u"SHAPE {SELECT * FROM `postings`}  AS PrintVoucher APPEND ({SELECT * FROM `Accounts`}  AS acc "
          "RELATE 'AccID' TO 'Id') AS acc"_s)
{
}

namespace {

std::unique_ptr<DataEnvironment> &current()
{
    static auto environment = std::make_unique<DataEnvironment>();
    return environment;
}

} // namespace

DataEnvironment &DE()
{
    return *current();
}

void renewDE()
{
    current() = std::make_unique<DataEnvironment>();
}
