#include "entries/account_master_data.h"

#include "data/login_context.h"
#include "data/reference_queries.h"
#include "data/sql_text.h"
#include "data/text_conversion.h"
#include "entries/item_budget.h"
#include "entries/line_lookup.h"
#include "entries/opening_period.h"

namespace kelvane::entries {

using data::gConn;
using data::SqlText;
using platform::Money;
using platform::StatementText;

bool AccountMasterData::CenterAllowed(const std::string& centerCode) {
    return data::DutyCenterAllowed(centerCode);
}

bool AccountMasterData::ItemInCenter(const std::string& itemCode, const std::string& centerCode) {
    data::gRefCenterCode = centerCode;
    data::gRefByCenter = true;
    return data::ItemInDutyCenter(itemCode);
}

bool AccountMasterData::ItemSettled(const std::string& itemCode, const std::string& key1,
                                    const std::string& key2) {
    return IsSettled(SettlementQuery(itemCode, key1, key2));
}

std::string AccountMasterData::ItemName(const std::string& itemCode) {
    return NameOfItem(itemCode);
}

std::vector<ItemKeywords> AccountMasterData::KeywordsOf(const std::string& itemCode,
                                                        const std::string& centerCode) {
    StatementText statement("select cKeyWord1,cKeyWord2 from PM_DutycenterSub where cCenterCode=");
    statement << SqlText(centerCode) << " and cItemCode=" << SqlText(itemCode);
    const auto rows = gConn->OpenRecordSet(statement);
    std::vector<ItemKeywords> keywords;
    for (; !rows->EndOfFile(); rows->MoveNext()) {
        keywords.push_back(
            {data::Trim(rows->Field(0).ToText()), data::Trim(rows->Field(1).ToText())});
    }
    return keywords;
}

std::optional<std::int16_t> AccountMasterData::ElementDetail(const std::string& elementName) {
    std::int16_t detail = 0;
    if (!data::GetElementByName(elementName, detail)) return std::nullopt;
    return detail;
}

std::string AccountMasterData::ElementCode(const std::string& elementName) {
    StatementText statement("select cElementCode from PM_ItemElement where cElementName = ");
    return gConn->OpenRecordSet(statement << SqlText(elementName))->Field("cElementCode").ToText();
}

platform::DateTime AccountMasterData::OpeningBound() {
    return entries::OpeningBound();
}

Budget AccountMasterData::BudgetOf(const std::string& itemCode, const std::string& elementCode,
                                   const std::string& detailCode) {
    Budget budget;
    std::string error;
    if (!GetItemBudget(itemCode, elementCode, budget.controlled, budget.money, error, detailCode,
                       budget.quantity)) {
        throw BudgetUnreadable(error);
    }
    return budget;
}

Money AccountMasterData::RecordedByOthers(const BudgetedEntry& entry,
                                          const std::string& elementCode) {
    StatementText statement("select sum(mQc) as sumQC from pm_itemqc where citemcode=");
    statement << SqlText(entry.itemCode) << " and celementcode=" << SqlText(elementCode)
              << " and iEleVid<>";
    const auto sum = gConn->OpenRecordSet(statement.Number(entry.identity));
    return data::MoneyOfDisplay(sum->Field("sumQC").ToText());
}

RecordedLines AccountMasterData::LinesOfOthers(const BudgetedEntry& entry,
                                               const std::string& elementCode,
                                               const std::string& detailCode) {
    StatementText statement(
        "select sum(a.inum) as SumAmount,sum(a.mQc) as sumQC  from pm_itemqcsub a inner join "
        "pm_itemqc b on a.ielevid=b.ielevid  where b.citemcode=");
    statement << SqlText(entry.itemCode) << " and b.celementcode=" << SqlText(elementCode)
              << " and a.ielevid<>";
    statement.Number(entry.identity) << " and a.cCodeMx=" << SqlText(detailCode);
    const auto sums = gConn->OpenRecordSet(statement);
    // Despite its name the field "sumamount" is the sum of quantities.
    return {.amount = sums->Field("sumQC").ToMoney(),
            .quantity = static_cast<float>(sums->Field("sumamount").ToDouble())};
}

std::optional<LineItem> AccountMasterData::FindLineItem(DetailKind kind, LineField by,
                                                        const std::string& sought,
                                                        const std::string& elementName,
                                                        const std::string& ownCode) {
    return LookUpLineItem(kind, by, sought, elementName, ownCode);
}

}  // namespace kelvane::entries
