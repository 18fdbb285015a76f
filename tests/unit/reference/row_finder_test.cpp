#include "adapters/reference/row_finder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/memory_record_set.h"

namespace kelvane::reference {
namespace {

using platform::Money;
using platform::Value;
using support::MemoryRecordSet;
using support::TextRow;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

PickRows Read(std::vector<MemoryRecordSet::Row> rows, int columns = 2) {
    std::vector<std::string> names{"a", "b", "c"};
    MemoryRecordSet source(names, std::move(rows));
    return PickRows(source, columns);
}

PickRows Centers() {
    return Read({TextRow({"D01", "工程一部"}), TextRow({"D02", "工程二部"}),
                 TextRow({"d03", "Equipment Hire"}), TextRow({"D-4", "重庆银行"})});
}

std::vector<std::string> ShownCells(const PickRows& rows, const RowFinder& finder, int column) {
    std::vector<std::string> cells;
    for (const std::size_t row : finder.Shown()) cells.emplace_back(rows.Cell(row, column));
    return cells;
}

TEST(PickRows, KeepsTextsAndTellsNumbersFromTexts) {
    const PickRows rows = Read({{Value("01"), Value(std::int64_t{7}), Value()},
                                {Value("02"), Value(Money::FromText("1.5")), Value()},
                                {Value("a\tb\nc"), Value(), Value()}},
                               3);
    EXPECT_EQ(rows.Count(), 3U);
    EXPECT_EQ(rows.Columns(), 3);
    EXPECT_EQ(rows.Cells(0), "01\t7\t");
    EXPECT_EQ(rows.Cell(1, 0), "02");
    EXPECT_EQ(rows.Cell(1, 1), "1.5");
    EXPECT_EQ(rows.Cell(1, 2), "");
    EXPECT_EQ(rows.Cell(2, 0), "a b c");
    EXPECT_FALSE(rows.IsNumeric(0));
    EXPECT_TRUE(rows.IsNumeric(1));
    EXPECT_FALSE(rows.IsNumeric(2));
}

TEST(PickRows, ATextAmongNumbersMakesAColumnOfTexts) {
    EXPECT_FALSE(Read({{Value(1.5)}, {Value("x")}, {Value(2.5)}}, 1).IsNumeric(0));
    EXPECT_FALSE(Read({{Value("x")}, {Value(2.5)}}, 1).IsNumeric(0));
}

TEST(PickRows, ReadsColumnsByName) {
    MemoryRecordSet source({"x", "cCode", "cName"}, {TextRow({"0", "D01", "工程一部"})});
    const PickRows rows(source, std::vector<std::string>{"cname", "ccode"});
    EXPECT_EQ(rows.Cells(0), "工程一部\tD01");
    MemoryRecordSet other({"x"}, {TextRow({"0"})});
    EXPECT_THROW(PickRows(other, std::vector<std::string>{"y"}), platform::DatabaseError);
}

TEST(RowFinder, FindsPartsOfEveryColumnInAnyCase) {
    const PickRows rows = Centers();
    RowFinder finder(rows);
    const auto found = [&](std::string_view typed) {
        finder.Narrow(typed);
        return ShownCells(rows, finder, 0);
    };
    EXPECT_THAT(found("d0"), ElementsAre("D01", "D02", "d03"));
    EXPECT_THAT(found("D0"), ElementsAre("D01", "D02", "d03"));
    EXPECT_THAT(found("程二"), ElementsAre("D02"));
    EXPECT_THAT(found("MENT h"), ElementsAre("d03"));
    EXPECT_THAT(found("  d02 "), ElementsAre("D02"));
    EXPECT_THAT(found("Ｄ０１"), ElementsAre("D01"));
    EXPECT_THAT(found("w"), IsEmpty());
    EXPECT_THAT(found("   "), SizeIs(4));
}

TEST(RowFinder, FindsChineseNamesByTheirInitials) {
    const PickRows rows = Centers();
    RowFinder finder(rows);
    const auto found = [&](std::string_view typed) {
        finder.Narrow(typed);
        return ShownCells(rows, finder, 0);
    };
    EXPECT_THAT(found("gcyb"), ElementsAre("D01"));
    EXPECT_THAT(found("GCEB"), ElementsAre("D02"));
    EXPECT_THAT(found("gc"), ElementsAre("D01", "D02"));
    EXPECT_THAT(found("cqyh"), ElementsAre("D-4"));
    EXPECT_THAT(found("zqyx"), ElementsAre("D-4"));
}

// A code's end and a name's beginning are no text of the row.
TEST(RowFinder, NothingIsFoundAcrossCellsOrRows) {
    const PickRows rows = Read({TextRow({"ab", "cd"}), TextRow({"ef", "工"})});
    RowFinder finder(rows);
    for (const char* typed : {"bc", "de", "b\tc",
                              "b\x1f"
                              "c",
                              "fg", "f工"}) {
        finder.Narrow(typed);
        EXPECT_THAT(finder.Shown(), IsEmpty()) << typed;
    }
}

TEST(RowFinder, NarrowsAndWidensStepByStep) {
    const PickRows rows = Centers();
    RowFinder finder(rows);
    std::vector<std::size_t> counts;
    for (const char* typed : {"g", "gc", "gcy", "gcyx", "gcy", "gc", "1", "d01", "01", ""}) {
        finder.Narrow(typed);
        counts.push_back(finder.Shown().size());
        RowFinder fresh(rows);
        fresh.Narrow(typed);
        EXPECT_EQ(finder.Shown(), fresh.Shown()) << typed;
    }
    EXPECT_THAT(counts, ElementsAre(2, 2, 1, 0, 1, 2, 1, 1, 1, 4));
}

TEST(RowFinder, SortsTextsByLettersAndInitials) {
    const PickRows rows = Read({TextRow({"b", "工程"}), TextRow({"B", "安装"}),
                                TextRow({"a", "10"}), TextRow({"10", "9"}), TextRow({"9", ""})});
    RowFinder finder(rows);
    finder.SortBy(0, false);
    EXPECT_THAT(ShownCells(rows, finder, 0), ElementsAre("10", "9", "a", "b", "B"));
    finder.SortBy(0, true);
    EXPECT_THAT(ShownCells(rows, finder, 0), ElementsAre("b", "B", "a", "9", "10"));
    finder.SortBy(1, false);
    EXPECT_THAT(ShownCells(rows, finder, 1), ElementsAre("", "10", "9", "安装", "工程"));
}

TEST(RowFinder, SortsNumbersAsNumbers) {
    std::vector<MemoryRecordSet::Row> table;
    for (const char* amount : {"10", "9", "-2", "-10.5", "0", "9.25", "0.5", "-0.5", "100"}) {
        table.push_back({Value(amount), Value(Money::FromText(amount))});
    }
    table.push_back({Value("leer"), Value()});
    const PickRows rows = Read(std::move(table));
    RowFinder finder(rows);
    finder.SortBy(1, false);
    EXPECT_THAT(ShownCells(rows, finder, 0),
                ElementsAre("leer", "-10.5", "-2", "-0.5", "0", "0.5", "9", "9.25", "10", "100"));
    finder.SortBy(1, true);
    EXPECT_THAT(ShownCells(rows, finder, 0),
                ElementsAre("100", "10", "9.25", "9", "0.5", "0", "-0.5", "-2", "-10.5", "leer"));
}

TEST(RowFinder, KeepsItsOrderWhileNarrowing) {
    const PickRows rows = Centers();
    RowFinder finder(rows);
    finder.SortBy(0, true);
    finder.Narrow("d0");
    EXPECT_THAT(ShownCells(rows, finder, 0), ElementsAre("d03", "D02", "D01"));
    finder.SortBy(0, false);
    EXPECT_THAT(ShownCells(rows, finder, 0), ElementsAre("D01", "D02", "d03"));
    finder.Narrow("");
    EXPECT_THAT(ShownCells(rows, finder, 0), ElementsAre("D-4", "D01", "D02", "d03"));
}

TEST(RowFinder, AnEmptyListIsSearchedAndSorted) {
    const PickRows rows = Read({});
    RowFinder finder(rows);
    finder.Narrow("a");
    finder.SortBy(0, false);
    EXPECT_THAT(finder.Shown(), IsEmpty());
}

TEST(RowFinder, ACodeOfTenThousandCharacters) {
    const std::string code(10000, 'A');
    const PickRows rows = Read({TextRow({code, "长"}), TextRow({"B", "短"})});
    RowFinder finder(rows);
    finder.Narrow(std::string(9999, 'a'));
    EXPECT_THAT(finder.Shown(), ElementsAre(0));
    finder.Narrow(std::string(10001, 'a'));
    EXPECT_THAT(finder.Shown(), IsEmpty());
    EXPECT_EQ(rows.Cell(0, 0), code);
}

}  // namespace
}  // namespace kelvane::reference
