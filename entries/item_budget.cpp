#include "entries/item_budget.h"

#include "data/login_context.h"
#include "data/sql_text.h"
#include "data/text_conversion.h"

namespace kelvane::entries {

using data::SqlText;
using platform::Money;
using platform::StatementText;

namespace {

StatementText BudgetOf(std::string_view itemCode, std::string_view elementCode,
                       std::string_view detailCode) {
    StatementText statement;
    if (detailCode.empty())
        statement << "select iBudget,iMoneysum from pm_budget where iVerID=(select iverid from "
                     "pm_BudgetVer where bControl=1) and citemCode=";
    else
        statement << "select iBudget,imoneysum,inumberSum from pm_budgetsub where iVerID=(select "
                     "iverid from pm_BudgetVer where bControl=1) and citemCode=";
    statement << SqlText(itemCode) << " and cElementCode=" << SqlText(elementCode);
    if (!detailCode.empty()) statement << "and cCodeMx=" << SqlText(detailCode);
    return statement;
}

}  // namespace

bool GetItemBudget(std::string_view itemCode, std::string_view elementCode, bool& controlled,
                   Money& budget, std::string& error, std::string_view detailCode,
                   float& quantity) try {
    const auto line =
        data::gConn->OpenRecordSet(BudgetOf(itemCode, elementCode, detailCode), data::kTextQuery);
    controlled = !line->EndOfFile() && line->Field("iBudget").ToMoney() > Money();
    if (!controlled) return true;
    budget = data::MoneyOfDisplay(line->Field("iMoneySum").ToText());
    if (!detailCode.empty())
        quantity = static_cast<float>(data::DoubleOfDisplay(line->Field("inumberSum").ToText()));
    return true;
} catch (const std::exception& failure) {
    data::ReportTrapped("GetItemBudget");
    error = failure.what();
    return false;
}

}  // namespace kelvane::entries
