#include "data/account_tables.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>

#include "platform/ascii.h"

namespace kelvane::data {

namespace {

constexpr auto kKey = ColumnRole::Key;

// The types that columns of one meaning share. Lengths count bytes of the account's code page.
constexpr std::string_view kCode = "varchar(60)";
constexpr std::string_view kName = "varchar(255)";
constexpr std::string_view kText = "varchar(255)";
constexpr std::string_view kInteger = "int";
constexpr std::string_view kFlag = "bit";
constexpr std::string_view kMoney = "money";
constexpr std::string_view kDouble = "float";
constexpr std::string_view kDate = "datetime";

// Opening balances.
constexpr AccountColumn kItemQc[] = {
    {"iEleVid", kInteger, kKey}, {"dDate", kDate},     {"cCenterCode", kCode},
    {"cItemCode", kCode},        {"cKeyCode1", kCode}, {"cKeyCode2", kCode},
    {"cElementCode", kCode},     {"cDigest", kText},   {"mQC", kMoney},
};
constexpr AccountIndex kItemQcIndexes[] = {{"cItemCode", "cElementCode"}};
constexpr AccountColumn kItemQcSub[] = {
    {"iEleVid", kInteger}, {"cCodeMx", kCode}, {"iUprice", kMoney},
    {"iNum", kDouble},     {"mQC", kMoney},
};
constexpr AccountIndex kItemQcSubIndexes[] = {{"iEleVid"}};

// Settings and counters.
constexpr AccountColumn kSettingInf[] = {{"cName", kCode, kKey}, {"cValue", kText}};
constexpr AccountColumn kAccInformation[] = {
    {"cSysID", "varchar(10)", kKey}, {"cName", kCode, kKey}, {"cValue", kText}};

// Project items of item class 97.
// Without a key: the first and the second key field are told apart by the order of their rows
// alone.
constexpr AccountColumn kItemStructure[] = {
    {"citem_class", "varchar(10)"},
    {"cfield_name", kCode},
    {"itype", kInteger},
    {"iSubItem", kFlag},
    {"bPrimaryKey", kFlag},
    {"ctext", kText},
};
constexpr AccountColumn kItem[] = {{"citemcode", kCode, kKey}, {"citemname", kName}};
constexpr AccountColumn kItemSub[] = {{"citemcode", kCode}, {"iclose", kFlag}, {"denddate", kDate}};
constexpr AccountIndex kItemSubIndexes[] = {{"citemcode"}};

// Duty centres and authorisation.
constexpr AccountColumn kDutyCenter[] = {{"cCenterCode", kCode, kKey}, {"cCenterName", kName}};
constexpr AccountColumn kDutyCenterSub[] = {
    {"cCenterCode", kCode}, {"cItemCode", kCode}, {"cKeyWord1", kCode}, {"cKeyWord2", kCode}};
constexpr AccountIndex kDutyCenterSubIndexes[] = {{"cCenterCode", "cItemCode"}};
constexpr AccountColumn kUserAuth[] = {{"cUserID", kCode, kKey}, {"cCenterCode", kCode, kKey}};

// Elements and their details.
constexpr AccountColumn kItemElement[] = {{"cElementCode", kCode, kKey},
                                          {"cElementName", kName},
                                          {"iElementDetail", "smallint"},
                                          {"cInvCCode", kCode}};
constexpr AccountIndex kItemElementIndexes[] = {{"cElementName"}};
constexpr AccountColumn kEquipment[] = {
    {"cEquipCode", kCode, kKey}, {"cEquipName", kName}, {"cEquipModel", kName},
    {"dblTbUPrice", kDouble},    {"bEquipEnd", kFlag},
};
constexpr AccountIndex kEquipmentIndexes[] = {{"cEquipName"}};
constexpr AccountColumn kInventory[] = {
    {"cInvCode", kCode, kKey}, {"cInvName", kName},       {"cInvStd", kName},
    {"iInvRCost", kMoney},     {"cSAComUnitCode", kCode}, {"cInvCCode", kCode},
};
constexpr AccountIndex kInventoryIndexes[] = {{"cInvName"}, {"cInvCCode"}};
constexpr AccountColumn kComputationUnit[] = {{"cComUnitCode", kCode, kKey},
                                              {"cComUnitName", kName}};

// Budgets.
constexpr AccountColumn kBudgetVersion[] = {{"iverid", kInteger, kKey}, {"bControl", kFlag}};
constexpr AccountColumn kBudget[] = {{"iVerID", kInteger},
                                     {"citemCode", kCode},
                                     {"cElementCode", kCode},
                                     {"iBudget", kMoney},
                                     {"iMoneysum", kMoney}};
constexpr AccountColumn kBudgetSub[] = {
    {"iVerID", kInteger}, {"citemCode", kCode},  {"cElementCode", kCode}, {"cCodeMx", kCode},
    {"iBudget", kMoney},  {"imoneysum", kMoney}, {"inumberSum", kDouble},
};
constexpr AccountIndex kBudgetIndexes[] = {{"iVerID", "citemCode", "cElementCode"}};

// Period control.
constexpr AccountColumn kMonthEnd[] = {{"iperiod", "tinyint", kKey}, {"bflag_PM", kFlag}};
constexpr AccountColumn kTransferControl[] = {{"IYear", "smallint", kKey}};

constexpr AccountTable kTables[] = {
    {"PM_ItemQC", kItemQc, kItemQcIndexes},
    {"PM_ItemQCsub", kItemQcSub, kItemQcSubIndexes},
    {"PM_SettingInf", kSettingInf},
    {"AccInformation", kAccInformation},
    {"fitemstructure", kItemStructure},
    {"fitemss97", kItem},
    {kItemKeyTable, kItemSub, kItemSubIndexes},
    {"PM_DutyCenter", kDutyCenter},
    {"PM_DutycenterSub", kDutyCenterSub, kDutyCenterSubIndexes},
    {"PM_UserAuth", kUserAuth},
    {"PM_ItemElement", kItemElement, kItemElementIndexes},
    {"pm_equipment", kEquipment, kEquipmentIndexes},
    {"inventory", kInventory, kInventoryIndexes},
    {"computationunit", kComputationUnit},
    {"pm_BudgetVer", kBudgetVersion},
    {"pm_budget", kBudget, kBudgetIndexes},
    {"pm_budgetsub", kBudgetSub, kBudgetIndexes},
    {"Gl_mend", kMonthEnd},
    {"PM_TranControl", kTransferControl},
};

}  // namespace

std::span<const AccountTable> AccountTables() {
    return kTables;
}

const AccountTable& AccountTableNamed(std::string_view name) {
    const auto found = std::ranges::find_if(kTables, [&](const AccountTable& table) {
        return platform::EqualIgnoringCase(table.name, name);
    });
    if (found == std::end(kTables))
        throw std::out_of_range("no account table: " + std::string(name));
    return *found;
}

std::size_t TextLengthOf(std::string_view table, std::string_view column) {
    constexpr std::string_view kPrefix = "varchar(";
    for (const AccountColumn& each : AccountTableNamed(table).columns) {
        if (!platform::EqualIgnoringCase(each.name, column)) continue;
        if (!each.type.starts_with(kPrefix)) break;
        return std::stoul(std::string(each.type.substr(kPrefix.size())));
    }
    throw std::out_of_range("no text column: " + std::string(column));
}

}  // namespace kelvane::data
