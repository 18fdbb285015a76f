#include "adapters/reference/chosen_row.h"

#include <gtest/gtest.h>

#include "tests/support/memory_record_set.h"

namespace kelvane::reference {
namespace {

using platform::DatabaseError;
using platform::Value;
using support::MemoryRecordSet;
using support::TextRow;

std::unique_ptr<MemoryRecordSet> Source() {
    auto source = std::make_unique<MemoryRecordSet>(
        std::vector<std::string>{"cCode", "cName"},
        std::vector{TextRow({"1", "甲"}), TextRow({"2", "乙"}), TextRow({"3", "丙"})});
    while (!source->EndOfFile()) source->MoveNext();
    return source;
}

TEST(ChosenRow, IsARecordSetOfOneRow) {
    ChosenRow row(Source(), 1);
    EXPECT_EQ(row.RecordCount(), 1);
    EXPECT_EQ(row.FieldCount(), 2);
    EXPECT_EQ(row.State(), platform::kStateOpen);
    EXPECT_FALSE(row.EndOfFile());
    EXPECT_EQ(row.Field(0), Value("2"));
    EXPECT_EQ(row.Field("CNAME"), Value("乙"));
    row.MoveNext();
    EXPECT_TRUE(row.EndOfFile());
    EXPECT_THROW(row.Field(0), DatabaseError);
    EXPECT_THROW(row.Field("cName"), DatabaseError);
    row.MoveFirst();
    EXPECT_EQ(row.Field("cName"), Value("乙"));
    row.Close();
    EXPECT_EQ(row.State(), 0);
}

TEST(ChosenRow, UnknownColumnsAndWritingAreErrors) {
    ChosenRow row(Source(), 0);
    EXPECT_THROW(row.Field(2), DatabaseError);
    EXPECT_THROW(row.Field(-1), DatabaseError);
    EXPECT_THROW(row.Field("cOther"), DatabaseError);
    EXPECT_THROW(row.SetField("cName", Value("x")), DatabaseError);
    EXPECT_THROW(row.Update(), DatabaseError);
}

TEST(ChosenRow, ARowThatIsNotThereIsAnError) {
    EXPECT_THROW(ChosenRow(Source(), 3), DatabaseError);
}

}  // namespace
}  // namespace kelvane::reference
