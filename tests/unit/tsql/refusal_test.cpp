// What is refused, and how it is called.
#include <gtest/gtest.h>

#include <random>

#include "tests/unit/tsql/small_catalog.h"

namespace kelvane::tsql {
namespace {

struct Refusal {
    const char* statement;
    int code;
    const char* text;
};

std::string TextOf(const char* statement, int& code) {
    try {
        std::string text = Written(statement);
        const TranslatedText result = TranslateText(statement);
        if (const TranslationError& error = result.translation.statements.at(0).error) {
            code = error->NativeCode();
            return error->what();
        }
        return text;
    } catch (const DatabaseError& error) {
        code = error.NativeCode();
        return error.what();
    }
}

class Refusals : public testing::TestWithParam<Refusal> {};

TEST_P(Refusals, NamesWhatIsWrong) {
    int code = 0;
    EXPECT_EQ(TextOf(GetParam().statement, code), GetParam().text);
    EXPECT_EQ(code, GetParam().code) << GetParam().statement;
}

constexpr Refusal kSyntax[] = {
    {"selec id from Entry", 102, "Incorrect syntax near 'selec'."},
    {"select id from", 102, "Incorrect syntax near ''."},
    {"select id from Entry where", 102, "Incorrect syntax near ''."},
    {"select id from Entry where id", 4145,
     "An expression of non-boolean type specified in a context where a condition is expected."},
    {"select id from Entry where id = = 1", 102, "Incorrect syntax near '='."},
    {"select id = 1 from Entry", 102, "Incorrect syntax near '='."},
    {"select id from Entry where (id = 1", 102, "Incorrect syntax near ''."},
    {"insert into Item(code) values('a',)", 102, "Incorrect syntax near ')'."},
    {"insert into Item(code) values('a'b)", 102, "Incorrect syntax near 'b'."},
    {"insert into Item(code) values('a'b')", 105,
     "Unclosed quotation mark after the character string ')'."},
    {"update Entry set where id=1", 102, "Incorrect syntax near 'where'."},
    {"delete Entry where id in ()", 102, "Incorrect syntax near ')'."},
};

constexpr Refusal kNames[] = {
    {"select * from Nowhere", 208, "Invalid object name 'Nowhere'."},
    {"select nothing from Entry", 207, "Invalid column name 'nothing'."},
    {"select z.id from Entry", 4104, "The multi-part identifier \"z.id\" could not be bound."},
    {"select z.* from Entry", 4104, "The multi-part identifier \"z.*\" could not be bound."},
    {"select code from Entry, Item", 209, "Ambiguous column name 'code'."},
    {"select getdate() from Entry", 195, "'getdate' is not a recognized built-in function name."},
    {"select isnull(id) from Entry", 174, "The isnull function requires 2 argument(s)."},
    {"update Entry set x = 1", 207, "Invalid column name 'x'."},
    {"insert into Entry(id,x) values(1,2)", 207, "Invalid column name 'x'."},
    {"insert into Item(code,title) values('a')", 109,
     "There are more columns in the INSERT statement than values specified in the VALUES clause."},
    {"insert into Item values('a','b','c')", 110,
     "There are fewer columns in the INSERT statement than values specified in the VALUES clause."},
    {"insert into Item(code,code) values('a','b')", 264,
     "The column name 'code' is specified more than once in the column list of an INSERT."},
    {"insert into Entry(code) values('a')", 515,
     "Cannot insert the value NULL into column 'id', table 'Entry'; column does not allow nulls."},
    {"select code,count(*) from Entry", 8120,
     "Column 'Entry.code' is invalid in the select list because it is not contained in either an "
     "aggregate function or the GROUP BY clause."},
    {"select id from Entry where sum(id) > 1", 147,
     "An aggregate may not appear in the WHERE clause."},
    {"select sum(code) from Entry", 8117, "Operand data type varchar is invalid for sum operator."},
    {"select distinct code from Entry order by id", 145,
     "ORDER BY items must appear in the select list if SELECT DISTINCT is specified."},
    {"select id from Entry order by 2", 108,
     "The ORDER BY position number 2 is out of range of the number of items in the select list."},
    {"select id from Entry where id = (select id,code from Entry)", 116,
     "Only one expression can be specified in the select list when the subquery is not introduced "
     "with EXISTS."},
    {"select * from Entry, entry", 1013,
     "The objects 'entry' in the FROM clause have the same exposed names. Use correlation names to "
     "distinguish them."},
    {"select *", 263, "Must specify table to select from."},
};

constexpr Refusal kUntranslated[] = {
    {"select id from Entry union select 1", 50001,
     "This account's database does not know 'union'."},
    {"select case when 1=1 then 2 end", 50001, "This account's database does not know 'case'."},
    {"drop table Entry", 50001, "This account's database does not know 'drop'."},
    {"exec xp_cmdshell 'dir'", 50001, "This account's database does not know 'exec'."},
    {"begin tran", 50001, "This account's database does not know 'begin'."},
    {"select @@identity", 50001, "This account's database does not know '@@identity'."},
    {"select id into x from Entry", 50001,
     "This account's database does not know 'select … into'."},
    {"select id from (select id from Entry) a", 50001,
     "This account's database does not know 'from ('."},
    {"select id from Entry right join Item on 1=1", 50001,
     "This account's database does not know 'right'."},
    {"select left(code,1) from Entry", 50001, "This account's database does not know 'left'."},
    {"select day + 1 from Entry", 50001, "This account's database does not know 'datetime +'."},
    {"update Entry set id = 1 from Item", 50001,
     "This account's database does not know 'update … from'."},
    {"update Entry set id = (select max(o.id) from Entry o where o.id < Entry.id)", 50001,
     "This account's database does not know 'update … set … (select … from the same table)'."},
    {"update Entry set code = (select i.code from Item i where exists (select id from Entry))",
     50001,
     "This account's database does not know 'update … set … (select … from the same table)'."},
    {"select id from Entry where id = (select max(id))", 50001,
     "This account's database does not know 'max of an outer query's column'."},
    {"select convert(xml, code) from Entry", 50001, "This account's database does not know 'xml'."},
    {"select id from Entry where id = any (select 1)", 50001,
     "This account's database does not know 'any'."},
};

INSTANTIATE_TEST_SUITE_P(Syntax, Refusals, testing::ValuesIn(kSyntax));
INSTANTIATE_TEST_SUITE_P(Names, Refusals, testing::ValuesIn(kNames));
INSTANTIATE_TEST_SUITE_P(Untranslated, Refusals, testing::ValuesIn(kUntranslated));

TEST(Nesting, IsLimited) {
    const std::string open(5000, '(');
    int code = 0;
    TextOf(("select id from Entry where " + open + "1=1" + std::string(5000, ')')).c_str(), code);
    EXPECT_EQ(code, 191);
    code = 0;
    std::string nots = "select id from Entry where ";
    for (int i = 0; i < 5000; ++i) nots += "not ";
    TextOf((nots + "1=1").c_str(), code);
    EXPECT_EQ(code, 191);
    code = 0;
    std::string chain = "select id from Entry where 1=1";
    for (int i = 0; i < 5000; ++i) chain += " or 1=1";
    TextOf(chain.c_str(), code);
    EXPECT_EQ(code, 191);
}

// Broken statements are refused or translated; nothing else happens.
TEST(Malformed, NeverDoesHarm) {
    constexpr const char* kSeeds[] = {
        "select a.id,convert(varchar,a.amount,1) from Entry a left join Item b on a.code=b.code",
        "select id from Entry where isnull(code,'') like 'x%' and id in (1,2) order by code desc",
        "update Entry set amount = -1.5, code = 'a''b' where id = (select max(id) from Entry)",
        "delete from Entry where id=5 insert into Item(code,title) values('a',N'中')",
        "select count(*),sum(amount) from Entry with (HOLDLOCK) group by code having sum(id) > = 3",
    };
    std::mt19937 random(20040701);
    const std::string pieces = "'\"[](),.*=<>+-/%; \n中@#0aNe!";
    int refused = 0;
    int translated = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string text = kSeeds[random() % std::size(kSeeds)];
        for (unsigned change = 0; change <= random() % 3; ++change) {
            const std::size_t at = random() % text.size();
            switch (random() % 3) {
                case 0:
                    text.erase(at, 1 + random() % 6);
                    break;
                case 1:
                    text.insert(at, 1, pieces[random() % pieces.size()]);
                    break;
                default:
                    text.insert(at, text.substr(random() % text.size(), random() % 12));
            }
            if (text.empty()) text = " ";
        }
        try {
            TranslateText(text);
            ++translated;
        } catch (const DatabaseError& error) {
            EXPECT_NE(error.NativeCode(), 0) << text;
            ++refused;
        }
    }
    EXPECT_GT(refused, 5000);
    EXPECT_GT(translated, 500);
}

}  // namespace
}  // namespace kelvane::tsql
