// What each construct becomes for SQLite.
#include "adapters/tsql/translation.h"

#include <gtest/gtest.h>

#include "tests/unit/tsql/small_catalog.h"

namespace kelvane::tsql {
namespace {

TEST(Translation, QualifiesAndExpands) {
    EXPECT_EQ(Written("SELECT * From entry"),
              R"(select "entry"."id", "entry"."code", "entry"."name", "entry"."amount", )"
              R"("entry"."day", "entry"."number", "entry"."flag" from "Entry" as "entry")");
    EXPECT_EQ(Written("select b.*,a.id x from Entry a,Item b"),
              R"(select "b"."code", "b"."title", "a"."id" from "Entry" as "a", "Item" as "b")");
}

TEST(Translation, ComparesTextThroughTheIndexWhereItCan) {
    EXPECT_EQ(Written("select id from Entry where code = 'P01'"),
              R"(select "Entry"."id" from "Entry" as "Entry" where )"
              R"((rtrim("Entry"."code") = ?1 collate nocase))");
    EXPECT_EQ(Written("select id from Entry where code = 'É'"),
              R"(select "Entry"."id" from "Entry" as "Entry" where )"
              R"(("Entry"."code" = ?1 collate kelvane_text))");
    EXPECT_EQ(Written("select id from Entry where code <> 'P01'"),
              R"(select "Entry"."id" from "Entry" as "Entry" where )"
              R"(("Entry"."code" <> ?1 collate kelvane_text))");
}

TEST(Translation, JoinsAndSorts) {
    EXPECT_EQ(Written("select id from Entry inner join Item on Item.code = Entry.code order by "
                      "Entry.code asc, amount desc"),
              R"(select "Entry"."id" from "Entry" as "Entry" inner join "Item" as "Item" on )"
              R"(("Item"."code" = "Entry"."code" collate kelvane_text) order by )"
              R"("Entry"."code" collate kelvane_text, kelvane_units("Entry"."amount") desc)");
    EXPECT_EQ(Written("select a.id from Entry a left outer join Item b on a.code=b.code"),
              R"(select "a"."id" from "Entry" as "a" left join "Item" as "b" on )"
              R"(("a"."code" = "b"."code" collate kelvane_text))");
}

TEST(Translation, LooksForKeysInTheirIndex) {
    EXPECT_EQ(Written("select a.id from Entry a inner join Unit b on a.code=b.code"),
              R"(select "a"."id" from "Entry" as "a" inner join "Unit" as "b" on )"
              R"(("a"."code" = "b"."code" collate kelvane_text and )"
              R"(rtrim("b"."code") >= kelvane_first_key("a"."code") collate nocase and )"
              R"(rtrim("b"."code") <= kelvane_last_key("a"."code") collate nocase))");
    EXPECT_EQ(Written("select a.id from Entry a, Unit b where b.code=a.name"),
              R"(select "a"."id" from "Entry" as "a", "Unit" as "b" where )"
              R"(("b"."code" = "a"."name" collate kelvane_text and )"
              R"(rtrim("b"."code") >= kelvane_first_key("a"."name") collate nocase and )"
              R"(rtrim("b"."code") <= kelvane_last_key("a"."name") collate nocase))");
    EXPECT_EQ(Written("select a.id from Entry a, Unit b where a.name<>b.code"),
              R"(select "a"."id" from "Entry" as "a", "Unit" as "b" where )"
              R"(("a"."name" <> "b"."code" collate kelvane_text))");
}

TEST(Translation, ConvertsLiteralsToTheColumnsType) {
    const TranslatedText result = TranslateText(
        "select id from Entry where id = '5' and amount = '1.5' and day = '2004/6/30'");
    const Translated& translated = result.translation.statements[0].translated;
    EXPECT_EQ(translated.text,
              R"(select "Entry"."id" from "Entry" as "Entry" where ((("Entry"."id" = ?1) and )"
              R"((kelvane_units("Entry"."amount") = ?2)) and (kelvane_date("Entry"."day") = ?3)))");
    ASSERT_EQ(translated.parameters.size(), 3U);
    EXPECT_EQ(ValueOf(translated.parameters[0], result.text.literals), Datum(std::int64_t{5}));
    EXPECT_EQ(ValueOf(translated.parameters[1], result.text.literals), Datum(std::int64_t{15000}));
    EXPECT_EQ(ValueOf(translated.parameters[2], result.text.literals),
              Datum("2004-06-30 00:00:00.000"));
}

TEST(Translation, Functions) {
    EXPECT_EQ(Written("select convert(text,number) from Entry"),
              R"(select kelvane_convert("Entry"."number", 9, 1, 0, 0) from "Entry" as "Entry")");
    EXPECT_EQ(Written("select isnull(number,''), convert(varchar,amount,1), len(code) from Entry"),
              R"(select ifnull("Entry"."number", ?1), )"
              R"(kelvane_convert(kelvane_units("Entry"."amount"), 8, 1, 30, 1), )"
              R"(length(rtrim("Entry"."code")) from "Entry" as "Entry")");
    EXPECT_EQ(Written("select code + 'x', id + 1 from Entry"),
              R"(select ("Entry"."code" || ?1), kelvane_arithmetic('+', 6, "Entry"."id", ?2) )"
              R"(from "Entry" as "Entry")");
}

TEST(Translation, Aggregates) {
    EXPECT_EQ(Written("select sum(amount) as total, sum(id), sum(number), count(*), "
                      "count(distinct code) from Entry"),
              R"(select kelvane_sum(kelvane_units("Entry"."amount")), )"
              R"(kelvane_sum_int("Entry"."id"), sum("Entry"."number"), count(*), )"
              R"(count(distinct "Entry"."code" collate kelvane_text) from "Entry" as "Entry")");
    EXPECT_EQ(Written("select distinct code from Entry"),
              R"(select distinct "Entry"."code" collate kelvane_text from "Entry" as "Entry")");
    EXPECT_EQ(Written("select code,count(*) from Entry group by code having count(*) > 1"),
              R"(select "Entry"."code", count(*) from "Entry" as "Entry" group by )"
              R"("Entry"."code" collate kelvane_text having (count(*) > ?1))");
}

TEST(Translation, SubQueries) {
    EXPECT_EQ(Written("select id from Entry where id=(select id from Entry where flag=1)"),
              R"(select "Entry"."id" from "Entry" as "Entry" where ("Entry"."id" = )"
              R"((select kelvane_single(value) from (select * from (select "Entry"."id" as value )"
              R"(from "Entry" as "Entry" where ("Entry"."flag" = ?1)) limit 2))))");
    EXPECT_EQ(Written("select code from Item where code in (select code from Entry) and not exists "
                      "(select * from Entry where code = Item.code)"),
              R"(select "Item"."code" from "Item" as "Item" where (("Item"."code" collate )"
              R"(kelvane_text in (select "Entry"."code" as value from "Entry" as "Entry")) and )"
              R"((not exists (select "Entry"."id" as value from "Entry" as "Entry" where )"
              R"(("Entry"."code" = "Item"."code" collate kelvane_text)))))");
}

TEST(Translation, Changes) {
    EXPECT_EQ(Written("insert into Item(code,title) values('a',null)"),
              R"(insert into "Item"("code", "title") values (?1, null))");
    EXPECT_EQ(Written("Update Entry set amount = -5 where id = '7'"),
              R"(update "Entry" set "amount" = ?1 where ("Entry"."id" = ?2) and )"
              R"(("amount" is not ?1 collate binary))");
    EXPECT_EQ(Written("update Entry set amount = amount + 1"),
              R"(update "Entry" set "amount" = kelvane_store(kelvane_arithmetic('+', 8, )"
              R"(kelvane_units("Entry"."amount"), ?1), 8, 0, 'amount'))");
    EXPECT_EQ(Written("delete from Entry where id=5"),
              R"(delete from "Entry" where ("Entry"."id" = ?1))");
    EXPECT_EQ(Written("delete from Entry where id = (select max(id) from Entry)"),
              R"(delete from "Entry" where rowid in (select rowid from "Entry" where )"
              R"(("Entry"."id" = (select max("Entry"."id") as value from "Entry" as "Entry"))))");
    EXPECT_EQ(Written("update Entry set flag = 1 where code in (select code from Item)"),
              R"(update "Entry" set "flag" = ?1 where ("Entry"."code" collate kelvane_text in )"
              R"((select "Item"."code" as value from "Item" as "Item")) and )"
              R"(("flag" is not ?1 collate binary))");
    EXPECT_EQ(Written("insert into Item select code,title from Item"),
              R"(insert into "Item"("code", "title") select )"
              R"(kelvane_store("Item"."code", 1, 20, 'code'), )"
              R"(kelvane_store("Item"."title", 1, 40, 'title') from "Item" as "Item")");
}

TEST(Translation, CarriesTheRowsIdentityWhereRowsAreATables) {
    EXPECT_EQ(Written("select code from Item with (HOLDLOCK)", true),
              R"(select "Item"."code", "Item".rowid from "Item" as "Item")");
    EXPECT_EQ(Written("select distinct flag from Entry", true),
              R"(select distinct "Entry"."flag" from "Entry" as "Entry")");
    EXPECT_EQ(Written("select count(*) from Entry", true),
              R"(select count(*) from "Entry" as "Entry")");
}

TEST(Translation, SplitsBatches) {
    const TranslatedText result = TranslateText(
        "delete from Entry where id=5 insert into Item(code) values('a') insert into Item(code) "
        "values('b'); update Item set title='c'");
    ASSERT_EQ(result.translation.statements.size(), 4U);
    using Kind = Statement::Kind;
    const Kind kinds[] = {Kind::Delete, Kind::Insert, Kind::Insert, Kind::Update};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(result.translation.statements[i].translated.kind, kinds[i]) << i;
    }
    EXPECT_TRUE(TranslateText(" ;; ").translation.statements.empty());
}

// The value of parameter `parameter` of statement `place`.
Datum ValueAt(const TranslatedText& result, std::size_t place, std::size_t parameter) {
    const Translated& translated = result.translation.statements.at(place).translated;
    return ValueOf(translated.parameters.at(parameter), result.text.literals);
}

TEST(Translation, StatementsOfABatchKeepTheirOwnValues) {
    const TranslatedText result = TranslateText(
        "delete from Entry where id=5 insert into Entry(id,code,amount) values(5,'a',10) "
        "insert into Entry(id,code,amount) values(5,'b',-2.5) insert into Entry(id,code,amount) "
        "values(6,'c',30) insert into Entry(id,code,amount) values(7,'d',2.25) "
        "insert into Item(code) values('e')");
    const auto& statements = result.translation.statements;
    ASSERT_EQ(statements.size(), 6U);
    for (std::size_t place = 2; place <= 4; ++place) {
        EXPECT_EQ(statements[place].translated.text, statements[1].translated.text) << place;
    }
    EXPECT_EQ(ValueAt(result, 0, 0), Datum(std::int64_t{5}));
    const char* codes[] = {"a", "b", "c", "d"};
    const char* amounts[] = {"10.0000", "-2.5000", "30.0000", "2.2500"};
    for (std::size_t place = 1; place <= 4; ++place) {
        EXPECT_EQ(ValueAt(result, place, 1), Datum(codes[place - 1]));
        EXPECT_EQ(ValueAt(result, place, 2), Datum(amounts[place - 1]));
    }
    EXPECT_EQ(ValueAt(result, 5, 0), Datum("e"));
    EXPECT_EQ(statements[5].translated.table, "Item");
}

TEST(Translation, AStatementThatGoesOnIsNoRepetition) {
    const TranslatedText result = TranslateText(
        "insert into Item(code) values('a') insert into Item(code) values('b'),('c') "
        "select id from Entry where id=1 select id from Entry where id=2 and code='d' "
        "select id from Entry where id=3");
    const auto& statements = result.translation.statements;
    ASSERT_EQ(statements.size(), 5U);
    EXPECT_EQ(statements[1].translated.parameters.size(), 2U);
    EXPECT_EQ(statements[3].translated.parameters.size(), 2U);
    EXPECT_EQ(ValueAt(result, 3, 1), Datum("d"));
    EXPECT_EQ(ValueAt(result, 4, 0), Datum(std::int64_t{3}));
}

TEST(Translation, RepeatedStatementsFailEachWhenTheirTurnComes) {
    const TranslatedText result =
        TranslateText("insert into Gone(code) values('a') insert into Gone(code) values('b')");
    ASSERT_EQ(result.translation.statements.size(), 2U);
    for (const TranslatedStatement& statement : result.translation.statements) {
        ASSERT_TRUE(statement.error);
        EXPECT_EQ(statement.error->NativeCode(), error::kUnknownTable);
    }
}

TEST(Translation, FixedValuesAreTheirOwnStatements) {
    const TranslatedText result =
        TranslateText("select top 1 id from Entry select top 2 id from Entry");
    ASSERT_EQ(result.translation.statements.size(), 2U);
    EXPECT_NE(result.translation.statements[0].translated.text,
              result.translation.statements[1].translated.text);
}

TEST(Translation, ServesItsOwnFixedValuesOnly) {
    const TranslatedText one = TranslateText("select top 1 id from Entry");
    const TranslatedText two = TranslateText("select top 2 id from Entry");
    EXPECT_EQ(one.text.shape, two.text.shape);
    EXPECT_TRUE(one.translation.Serves(one.text));
    EXPECT_FALSE(one.translation.Serves(two.text));
}

}  // namespace
}  // namespace kelvane::tsql
