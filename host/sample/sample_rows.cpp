#include "host/sample/sample_rows.h"

#include "host/account/table_rows.h"
#include "host/sample/sample_budgets.h"
#include "host/sample/sample_company.h"
#include "host/sample/sample_entries.h"

namespace kelvane::host {

namespace {

using platform::Value;

void InsertEntry(platform::Connection& connection, const SampleEntry& entry) {
    static const std::vector<std::string> entryColumns = {
        "iEleVid",   "dDate",        "cCenterCode", "cItemCode", "cKeyCode1",
        "cKeyCode2", "cElementCode", "cDigest",     "mQC"};
    static const std::vector<std::string> detailColumns = {"iEleVid", "cCodeMx", "iUprice", "iNum",
                                                           "mQC"};
    const auto& section = *entry.section;
    InsertRow(
        connection, "PM_ItemQC", entryColumns,
        {Value(entry.identity), Value(entry.date), Value(SampleCenters()[entry.center].code),
         Value(SampleProjects()[entry.project].code), Value(section.key1.value_or("")),
         Value(section.key2 ? std::to_string(*section.key2) : ""),
         Value(SampleElements()[entry.element].code), Value(entry.digest), Value(entry.stored)});
    for (const auto& detail : entry.details) {
        InsertRow(connection, "PM_ItemQCsub", detailColumns,
                  {Value(entry.identity), Value(detail.code),
                   Value(platform::Money::FromUnits(detail.cents * 100)),
                   Value(static_cast<double>(detail.halfUnits) / 2.0), Value(detail.amount)});
    }
}

}  // namespace

void InsertSample(platform::Connection& connection, const NewAccount& account) {
    const auto plans = PlanProjects(account.keyFields, account.seed);
    for (const auto& rows : MasterData(plans, account.keyFields)) InsertRows(connection, rows);

    SampleEntrySource source(plans, account.seed);
    SampleBudgets budgets;
    for (std::int64_t i = 0; i < account.entries; ++i) {
        const SampleEntry entry = source.Next();
        InsertEntry(connection, entry);
        budgets.Count(entry);
    }
    for (const auto& rows : budgets.Rows(account.seed)) InsertRows(connection, rows);
}

}  // namespace kelvane::host
