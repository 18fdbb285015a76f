#include "adapters/tsql/language/table_statements.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kelvane::tsql {
namespace {

using platform::MalformedStatement;

std::vector<std::string> Texts(const TableDescription& table) {
    std::vector<std::string> texts;
    for (const auto& statement : CreateStatements(table)) texts.push_back(statement.Checked());
    return texts;
}

TEST(TableStatements, CreateATableWithItsKeyAndIndexes) {
    const TableDescription table{"Books",
                                 {{"iNo", "INT", false},
                                  {"cName", "varchar(60)"},
                                  {"标段", "nvarchar(20)"},
                                  {"mSum", "money"},
                                  {"dDay", "datetime"},
                                  {"bDone", "bit", false}},
                                 {"ino", "cName"},
                                 {{"dDay"}, {"cName", "标段"}}};
    EXPECT_EQ(
        Texts(table),
        (std::vector<std::string>{
            "create table Books(iNo int not null,cName varchar(60) not null,[标段] nvarchar(20) "
            "null,mSum money null,dDay datetime null,bDone bit not null,primary "
            "key(ino,cName))",
            "create index Books_dDay_index on Books(dDay)",
            "create index [Books_cName_标段_index] on Books(cName,[标段])"}));
}

TEST(TableStatements, ATableNeedsNoKey) {
    EXPECT_EQ(Texts({"T", {{"a", "float"}}, {}, {}}),
              std::vector<std::string>{"create table T(a float null)"});
    EXPECT_EQ(DropStatement("T").Checked(), "drop table T");
}

TEST(TableStatements, ATextOfAnyLengthSaysSo) {
    EXPECT_EQ(Texts({"T", {{"a", "text"}, {"b", "NTEXT"}, {"c", "varchar"}}, {}, {}}),
              std::vector<std::string>{"create table T(a text null,b ntext null,c text null)"});
}

TEST(TableStatements, OtherTypesAndNamesAreRefused) {
    EXPECT_THROW(CreateStatements({"T", {{"a", "image"}}, {}, {}}), std::invalid_argument);
    EXPECT_THROW(Texts({"T drop table T", {{"a", "int"}}, {}, {}}), MalformedStatement);
    EXPECT_THROW(DropStatement("T;").Checked(), MalformedStatement);
}

}  // namespace
}  // namespace kelvane::tsql
