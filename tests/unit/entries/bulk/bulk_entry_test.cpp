#include "entries/bulk/bulk_entry.h"

#include <gtest/gtest.h>

#include <utility>

namespace kelvane::entries {
namespace {

using Told = std::vector<std::string>;

// A table whose columns stand in the order of their numbers, from the table's third column on.
BulkTable TableWith(int columns) {
    BulkTable table;
    table.titleRow = 1;
    for (int column = 0; column < columns; ++column) table.places.push_back({column + 2, "t"});
    table.places.front() = {};
    return table;
}

void Add(BulkTable& table, int number, const std::vector<std::pair<int, std::string>>& texts) {
    BulkRow row{number, std::vector<std::string>(table.places.size())};
    for (const auto& [column, text] : texts) row.texts[static_cast<std::size_t>(column)] = text;
    table.rows.push_back(row);
}

Told TextsOf(const std::vector<BulkFinding>& findings) {
    Told told;
    for (const BulkFinding& each : findings) {
        told.push_back(std::to_string(each.row) + "." + std::to_string(each.column) + " " +
                       std::string(each.finding.id) + " " + each.finding.text);
    }
    return told;
}

TEST(BulkEntry, LinesComeToTheEntryWhoseRowNumberTheyHave) {
    BulkTable entries = TableWith(kEntryTableColumnCount);
    Add(entries, 5, {{kCenterColumn, "D01"}, {kRowNumberColumn, "a"}});
    Add(entries, 6,
        {{kRowNumberColumn, " b "}, {kIdentityColumn, "12"}, {kOperationColumn, "删除"}});
    BulkTable lines = TableWith(kLineTableColumnCount);
    Add(lines, 2,
        {{kLineRowNumberColumn, "b"}, {kLineCodeColumn, " M01 "}, {kLinePriceColumn, "1"}});
    Add(lines, 3, {{kLineRowNumberColumn, "a"}, {kLineQuantityColumn, "2"}});
    const BulkEntries joined = JoinTables(entries, &lines);
    ASSERT_EQ(joined.entries.size(), 2U);
    EXPECT_EQ(joined.entries[0].texts[kCenterColumn], "D01");
    ASSERT_EQ(joined.entries[0].lines.size(), 1U);
    EXPECT_EQ(joined.entries[0].lines[0].texts.quantity, "2");
    ASSERT_EQ(joined.entries[1].lines.size(), 1U);
    EXPECT_EQ(joined.entries[1].lines[0].row, 2);
    EXPECT_EQ(joined.entries[1].lines[0].texts.code, "M01");
    EXPECT_EQ(joined.entries[1].identity, "12");
    EXPECT_EQ(joined.entries[1].operation, "删除");
    EXPECT_TRUE(joined.findings.empty());
    EXPECT_TRUE(joined.strayLines.empty());
    EXPECT_FALSE(joined.isRefused);
}

TEST(BulkEntry, ALineWithoutAnEntryIsFound) {
    BulkTable entries = TableWith(kEntryTableColumnCount);
    Add(entries, 5, {{kRowNumberColumn, "a"}});
    BulkTable lines = TableWith(kLineTableColumnCount);
    Add(lines, 2, {{kLineRowNumberColumn, "z"}});
    Add(lines, 3, {{kLineCodeColumn, "M01"}});
    const BulkEntries joined = JoinTables(entries, &lines);
    EXPECT_EQ(TextsOf(joined.findings), (Told{"2.1 line.entry 没有行号为“z”的期初",
                                              "3.1 line.entry 没有行号，不知道属于哪一行期初"}));
    EXPECT_EQ(joined.strayLines.size(), 2U);
}

TEST(BulkEntry, ARowNumberThatStandsTwiceNamesBothRows) {
    BulkTable entries = TableWith(kEntryTableColumnCount);
    Add(entries, 5, {{kRowNumberColumn, "a"}});
    Add(entries, 6, {});
    Add(entries, 9, {{kRowNumberColumn, "a"}});
    EXPECT_EQ(TextsOf(JoinTables(entries, nullptr).findings),
              (Told{"5.10 entry.duplicate 行号 a 不止一次：另见第 9 行",
                    "9.10 entry.duplicate 行号 a 不止一次：另见第 5 行"}));
}

TEST(BulkEntry, CellsThatWereRefusedInReadingAreKnownByTheirColumns) {
    BulkTable entries = TableWith(kEntryTableColumnCount);
    Add(entries, 5, {});
    entries.findings.push_back({"A5", 5, kItemColumn + 2, "t", Found(Rule::CellFormula)});
    const BulkEntries joined = JoinTables(entries, nullptr);
    EXPECT_TRUE(joined.isRefused);
    EXPECT_TRUE(joined.entries[0].unread.Has(kItemColumn));
    EXPECT_FALSE(joined.entries[0].unread.Has(kCenterColumn));
}

}  // namespace
}  // namespace kelvane::entries
