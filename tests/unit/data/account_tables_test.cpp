#include "data/account_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string>

#include "platform/ascii.h"

namespace kelvane::data {
namespace {

TEST(AccountTables, NamesAreDistinct) {
    std::set<std::string> tables;
    for (const AccountTable& table : AccountTables()) {
        EXPECT_TRUE(tables.insert(platform::LowerAscii(table.name)).second) << table.name;
        std::set<std::string> columns;
        for (const AccountColumn& column : table.columns)
            EXPECT_TRUE(columns.insert(platform::LowerAscii(column.name)).second) << column.name;
    }
    EXPECT_EQ(tables.size(), 19U);
}

TEST(AccountTables, IndexesNameColumnsOfTheirTable) {
    for (const AccountTable& table : AccountTables()) {
        for (const AccountIndex& index : table.indexes) {
            EXPECT_FALSE(index.front().empty()) << table.name;
            for (const std::string_view name : index) {
                EXPECT_TRUE(name.empty() || std::ranges::any_of(table.columns,
                                                                [&](const AccountColumn& column) {
                                                                    return column.name == name;
                                                                }))
                    << table.name << '.' << name;
            }
        }
    }
}

TEST(AccountTables, AreFoundInAnyLetterCase) {
    EXPECT_EQ(AccountTableNamed("pm_itemqc").name, "PM_ItemQC");
    EXPECT_EQ(AccountTableNamed("PM_ITEMQC").columns.front().role, ColumnRole::Key);
    EXPECT_EQ(AccountTableNamed(kItemKeyTable).name, "fitemss97sub");
    EXPECT_THROW((void)AccountTableNamed("PM_Item"), std::out_of_range);
}

TEST(AccountTables, AmountsAreMoney) {
    for (const auto& [table, column] : {std::pair{"PM_ItemQC", "mQC"},
                                        {"PM_ItemQCsub", "mQC"},
                                        {"PM_ItemQCsub", "iUprice"},
                                        {"pm_budget", "iMoneysum"},
                                        {"pm_budgetsub", "imoneysum"},
                                        {"inventory", "iInvRCost"}}) {
        const auto columns = AccountTableNamed(table).columns;
        const auto found = std::ranges::find(columns, column, &AccountColumn::name);
        ASSERT_NE(found, columns.end()) << table << '.' << column;
        EXPECT_EQ(found->type, "money") << table << '.' << column;
    }
}

}  // namespace
}  // namespace kelvane::data
