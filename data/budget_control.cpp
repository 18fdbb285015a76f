#include "data/budget_control.h"

#include "data/login_context.h"
#include "data/messages.h"
#include "data/sql_text.h"
#include "data/text_conversion.h"

namespace kelvane::data {

using platform::Money;
using platform::StatementText;

std::function<CurrentEntry()> gCurrentEntry;

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

std::string ElementCodeOf(const std::string& elementName) {
    StatementText statement("select cElementCode from PM_ItemElement where cElementName = ");
    return gConn->OpenRecordSet(statement << SqlText(elementName))->Field("cElementCode").ToText();
}

Money RecordedByOthers(const CurrentEntry& entry, const std::string& elementCode) {
    StatementText statement("select sum(mQc) as sumQC from pm_itemqc where citemcode=");
    statement << SqlText(entry.itemCode) << " and celementcode=" << SqlText(elementCode)
              << " and iEleVid<>";
    const auto sum = gConn->OpenRecordSet(statement.Number(entry.identity));
    return MoneyOfDisplay(sum->Field("sumQC").ToText());
}

}  // namespace

bool GetItemBudget(std::string_view itemCode, std::string_view elementCode, bool& controlled,
                   Money& budget, std::string& error, std::string_view detailCode,
                   float& quantity) try {
    const auto line = gConn->OpenRecordSet(BudgetOf(itemCode, elementCode, detailCode), kTextQuery);
    controlled = !line->EndOfFile() && line->Field("iBudget").ToMoney() > Money();
    if (!controlled) return true;
    budget = MoneyOfDisplay(line->Field("iMoneySum").ToText());
    if (!detailCode.empty())
        quantity = static_cast<float>(DoubleOfDisplay(line->Field("inumberSum").ToText()));
    return true;
} catch (const std::exception& failure) {
    ReportTrapped("GetItemBudget");
    error = failure.what();
    return false;
}

bool CheckOpeningBudget(Money amount) {
    const CurrentEntry entry = gCurrentEntry();
    const std::string elementCode = ElementCodeOf(entry.elementName);
    bool controlled = false;
    Money budget;
    std::string error;
    float quantity = 0;
    if (!GetItemBudget(entry.itemCode, elementCode, controlled, budget, error, "", quantity)) {
        ShowInformation(error, kModuleCaption);
        return false;
    }
    if (!controlled) return true;
    if (RecordedByOthers(entry, elementCode) + amount <= budget) return true;
    ShowInformation("金额超出项目预算中的项目期初发生额", kModuleCaption);
    return false;
}

}  // namespace kelvane::data
