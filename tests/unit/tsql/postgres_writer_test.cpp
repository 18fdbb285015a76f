// What each construct becomes for PostgreSQL.
#include "adapters/tsql/postgres/postgres_writer.h"

#include <gtest/gtest.h>

#include "tests/unit/tsql/postgres_account.h"

namespace kelvane::tsql {
namespace {

TEST(PostgresWriter, ComparesTextsByTheirKeys) {
    EXPECT_EQ(
        ForPostgres("select id from Probe where c <> ' P' and n > 'Ä ' and c in ('a','B') and c "
                    "between 'a' and 'b'"),
        R"(select "Probe"."id" from "Probe" as "Probe" where )"
        R"(((((kelvane_key("Probe"."c") <> ' p') and (kelvane_key("Probe"."n") > 'ä')) )"
        R"(and (kelvane_key("Probe"."c") in ('a', 'b'))) and (kelvane_key("Probe"."c") )"
        R"(between 'a' and 'b')) order by "Probe"."kelvane_row")");
    EXPECT_EQ(
        ForPostgres("select id from Probe where c not like 'p%' and c is not null and not (i is "
                    "null)"),
        R"(select "Probe"."id" from "Probe" as "Probe" where (((not )"
        R"(kelvane_fold("Probe"."c") ~ kelvane_pattern('p%')) and ("Probe"."c" is not )"
        R"(null)) and (not ("Probe"."i" is null))) order by "Probe"."kelvane_row")");
    EXPECT_EQ(
        ForPostgres("select id from Probe where c not in (select n from Probe where b = 'true') or "
                    "exists (select * from Probe x where x.id = Probe.i)"),
        R"(select "Probe"."id" from "Probe" as "Probe" where ((kelvane_key("Probe"."c") )"
        R"(not in (select kelvane_key("Probe"."n") from "Probe" as "Probe" where )"
        R"(("Probe"."b" = 1))) or exists (select "x"."id" from "Probe" as "x" where )"
        R"(("x"."id" = "Probe"."i"))) order by "Probe"."kelvane_row")");
    EXPECT_EQ(ForPostgres("select a.id from Probe a, Probe b where a.c = b.n order by b.c desc, 1"),
              R"(select "a"."id" from "Probe" as "a", "Probe" as "b" where )"
              R"((kelvane_key("a"."c") = kelvane_key("b"."n")) order by kelvane_key("b"."c") )"
              R"(desc nulls last, "a"."id" nulls first, "a"."kelvane_row", "b"."kelvane_row")");
}

TEST(PostgresWriter, SettlesTheOrderOfRows) {
    EXPECT_EQ(ForPostgres("select top 3 c from Probe order by c"),
              R"(select "Probe"."c" from "Probe" as "Probe" order by kelvane_key("Probe"."c") )"
              R"(nulls first, "Probe"."kelvane_row" limit 3)");
    EXPECT_EQ(ForPostgres("select distinct c, i from Probe order by c"),
              R"(select (array_agg("Probe"."c" order by "Probe"."kelvane_row"))[1], )"
              R"("Probe"."i" from "Probe" as "Probe" group by kelvane_key("Probe"."c"), )"
              R"("Probe"."i" order by kelvane_key("Probe"."c") nulls first, )"
              R"(min("Probe"."kelvane_row"))");
    EXPECT_EQ(
        ForPostgres("select distinct a.c from Probe a inner join Gl_mend g on g.iperiod = a.i"),
        R"(select (array_agg("a"."c" order by "a"."kelvane_row", "g"."kelvane_row"))[1] )"
        R"(from "Probe" as "a" inner join "Gl_mend" as "g" on ("g"."iperiod" = "a"."i") )"
        R"(group by kelvane_key("a"."c") order by min(array["a"."kelvane_row", )"
        R"("g"."kelvane_row"]))");
}

TEST(PostgresWriter, Aggregates) {
    EXPECT_EQ(
        ForPostgres("select c, count(*), sum(i), avg(m), avg(i), min(c), max(d), count(distinct "
                    "c), sum(f) from Probe group by c having count(*) > 1"),
        R"(select (array_agg("Probe"."c" order by "Probe"."kelvane_row"))[1], )"
        R"(count(*)::int, kelvane_range(sum("Probe"."i"), 'int')::int, )"
        R"(kelvane_range((div(sum("Probe"."m")::numeric * 10000, )"
        R"(count("Probe"."m")::numeric) * 0.0001), 'money')::numeric(19,4), )"
        R"(kelvane_range(div(sum("Probe"."i")::numeric, count("Probe"."i")::numeric), )"
        R"('int')::int, (array_agg("Probe"."c" order by kelvane_key("Probe"."c")) filter )"
        R"((where "Probe"."c" is not null))[1], max("Probe"."d"), count(distinct )"
        R"(kelvane_key("Probe"."c"))::int, sum("Probe"."f") from "Probe" as "Probe" )"
        R"(group by kelvane_key("Probe"."c") having (count(*)::int > 1) order by )"
        R"(kelvane_key("Probe"."c") nulls first)");
}

TEST(PostgresWriter, GroupsByWhatDiffersBetweenRows) {
    EXPECT_EQ(ForPostgres("select distinct 'x', 5 from Probe"),
              R"(select 'x', 5 from "Probe" as "Probe" group by (1 = 1) order by )"
              R"(min("Probe"."kelvane_row"))");
    EXPECT_EQ(ForPostgres("select distinct 1.5, i from Probe where c is null"),
              R"(select 1.5000::numeric(19,4), "Probe"."i" from "Probe" as "Probe" where )"
              R"(("Probe"."c" is null) )"
              R"(group by "Probe"."i" order by min("Probe"."kelvane_row"))");
    EXPECT_EQ(ForPostgres("select distinct c + 'a', c from Probe where c is null"),
              R"(select (array_agg(("Probe"."c" || 'a') order by "Probe"."kelvane_row"))[1], )"
              R"((array_agg("Probe"."c" order by "Probe"."kelvane_row"))[1] from "Probe" as )"
              R"("Probe" where ("Probe"."c" is null) group by kelvane_key(("Probe"."c" || 'a')), )"
              R"(kelvane_key("Probe"."c") order by min("Probe"."kelvane_row"))");
    EXPECT_EQ(ForPostgres("select 5 as a, max('x') as b from Probe group by i order by a, b"),
              R"(select 5, (array_agg('x'::text order by kelvane_key('x'::text) desc) filter )"
              R"((where 'x'::text is not null))[1] from "Probe" as "Probe" group by "Probe"."i" )"
              R"(order by kelvane_key((array_agg('x'::text order by kelvane_key('x'::text) desc) )"
              R"(filter (where 'x'::text is not null))[1]) nulls first, "Probe"."i" nulls first)");
}

TEST(PostgresWriter, Arithmetic) {
    EXPECT_EQ(ForPostgres("select i + 1, m * 2, m / i, i % 2, f - 1, m - 0.5, i / 0 from Probe"),
              R"(select kelvane_range("Probe"."i"::numeric + 1::numeric, 'int')::int, )"
              R"(kelvane_range(kelvane_product("Probe"."m", 2.0000), 'money')::numeric(19,4), )"
              R"(kelvane_range((div("Probe"."m" * 10000, )"
              R"(kelvane_range(round("Probe"."i"::numeric, 4), 'money')) * 0.0001), )"
              R"('money')::numeric(19,4), kelvane_range("Probe"."i"::numeric % 2::numeric, )"
              R"('int')::int, ("Probe"."f" - '1'::float8), kelvane_range("Probe"."m" - 0.5000, )"
              R"('money')::numeric(19,4), kelvane_range(div("Probe"."i"::numeric, 0::numeric), )"
              R"('int')::int from "Probe" as "Probe" order by "Probe"."kelvane_row")");
}

TEST(PostgresWriter, FunctionsAndConversions) {
    EXPECT_EQ(
        ForPostgres("select isnull(c, '0123456789abc'), isnull(m, ''), len(c), ltrim(n), rtrim(c) "
                    "from Probe"),
        R"(select coalesce("Probe"."c", '0123456789'), coalesce("Probe"."m", )"
        R"(0.0000)::numeric(19,4), char_length(rtrim("Probe"."c", ' ')), )"
        R"(ltrim("Probe"."n", ' '), rtrim("Probe"."c", ' ') from "Probe" as "Probe" )"
        R"(order by "Probe"."kelvane_row")");
    EXPECT_EQ(ForPostgres("select convert(varchar, m, 1), convert(varchar(5), i), convert(int, c), "
                          "convert(money, f), convert(datetime, i), convert(bit, m), cast(d as "
                          "varchar(20)), convert(tinyint, i) from Probe"),
              R"(select kelvane_cut(kelvane_money_text("Probe"."m", 1), 30, 'varchar', true), )"
              R"(kelvane_cut("Probe"."i"::text, 5, 'varchar', true), )"
              R"(kelvane_to_integer("Probe"."c", 'varchar', 'int')::int, )"
              R"(kelvane_range(round("Probe"."f"::text::numeric, 4), 'money')::numeric(19,4), )"
              R"(kelvane_day("Probe"."i"), ("Probe"."m" <> 0)::int, )"
              R"(kelvane_cut(kelvane_date_text("Probe"."d", 0), 20, 'varchar', false), )"
              R"(kelvane_range("Probe"."i", 'tinyint')::smallint from "Probe" as "Probe" order )"
              R"(by "Probe"."kelvane_row")");
    EXPECT_EQ(ForPostgres("select id from Probe where c = i and i = m and m = f and d = c"),
              R"(select "Probe"."id" from "Probe" as "Probe" where )"
              R"(((((kelvane_to_integer("Probe"."c", 'varchar', 'int')::int = "Probe"."i") and )"
              R"((kelvane_range(round("Probe"."i"::numeric, 4), 'money') = "Probe"."m")) and )"
              R"(("Probe"."m"::float8 = "Probe"."f")) and ("Probe"."d" = )"
              R"(kelvane_to_date("Probe"."c"))) order by "Probe"."kelvane_row")");
    EXPECT_EQ(ForPostgres("select convert(int, d) from Probe"),
              R"(Implicit conversion from data type datetime to int is not allowed.)");
}

TEST(PostgresWriter, Constants) {
    EXPECT_EQ(ForPostgres(
                  "select id from Probe where d = '2004.6.30' and f = 0.1 and m = -1.5 and i = -2"),
              R"(select "Probe"."id" from "Probe" as "Probe" where (((("Probe"."d" = )"
              R"('2004-06-30 00:00:00.000'::timestamp(3)) and ("Probe"."f" = '0.1'::float8)) )"
              R"(and ("Probe"."m" = (-1.5000))) and ("Probe"."i" = (-2))) order by )"
              R"("Probe"."kelvane_row")");
    EXPECT_EQ(ForPostgres("select null, 'it''s', -5, 1.5, 1e3, 99999999999"),
              R"(select null, 'it''s', (-5), 1.5000::numeric(19,4), '1000'::float8, 99999999999)");
}

TEST(PostgresWriter, ChangesStoreWhatTheirColumnsHold) {
    EXPECT_EQ(
        ForPostgres("insert into Probe select id, c + 'x', null, i, 1, 2, m * 2, c, '' from Probe"),
        R"(insert into "Probe"("id", "c", "n", "i", "b", "t", "m", "f", "d") select )"
        R"("Probe"."id", kelvane_store(("Probe"."c" || 'x'), 10, 'varchar', 'c'), null, )"
        R"("Probe"."i", 1, 2, kelvane_range(kelvane_product("Probe"."m", 2.0000), )"
        R"('money'), kelvane_to_float("Probe"."c", 'varchar'), '1900-01-01 )"
        R"(00:00:00.000'::timestamp(3) from "Probe" as "Probe" order by )"
        R"("Probe"."kelvane_row")");
    EXPECT_EQ(ForPostgres("insert into Probe(id, c) values(1, 'a\\b') , (2, null)"),
              R"(insert into "Probe"("id", "c") values (1, 'a\b'), (2, null))");
    EXPECT_EQ(ForPostgres("update Probe set c = 'x', i = null"),
              R"(update "Probe" as "Probe" set "c" = 'x', "i" = null where ("Probe"."c" is )"
              R"(distinct from 'x' or "Probe"."i" is distinct from null))");
    EXPECT_EQ(ForPostgres("update Probe set i = i + 1, c = n where id = 1"),
              R"(update "Probe" as "Probe" set "i" = kelvane_range("Probe"."i"::numeric + )"
              R"(1::numeric, 'int')::int, "c" = kelvane_store("Probe"."n", 10, 'varchar', 'c') )"
              R"(where ("Probe"."id" = 1))");
    EXPECT_EQ(ForPostgres("update Probe set t = 300"),
              R"(Arithmetic overflow error converting expression to data type tinyint.)");
    EXPECT_EQ(ForPostgres("delete from Probe"), R"(delete from "Probe" as "Probe")");
}

TEST(PostgresWriter, RefusesWhatItCannotSay) {
    EXPECT_EQ(ForPostgres("select f % 2 from Probe"),
              R"(Operand data type float is invalid for operator '%'.)");
    EXPECT_EQ(ForPostgres("select distinct c from Probe group by c"),
              R"(This account's database does not know 'distinct … group by'.)");
    EXPECT_EQ(ForPostgres("select * from Nowhere"), R"(Invalid object name 'Nowhere'.)");
}

TEST(PostgresWriter, LocksRowsWhereItIsAskedTo) {
    EXPECT_EQ(ForPostgres("select i from Probe a with (HOLDLOCK), Gl_mend", false, {.held = true}),
              R"(select "a"."i" from "Probe" as "a", "Gl_mend" as "Gl_mend" order by )"
              R"("a"."kelvane_row", "Gl_mend"."kelvane_row" for update of "a")");
    EXPECT_EQ(ForPostgres("select i from Probe with (nolock)", false, {.held = true}),
              R"(select "Probe"."i" from "Probe" as "Probe" order by "Probe"."kelvane_row")");
    EXPECT_EQ(ForPostgres("select a.i from Probe a left join Probe b on a.id=b.id", false,
                          {.all = true, .noWait = true}),
              R"(select "a"."i" from "Probe" as "a" left join "Probe" as "b" on )"
              R"(("a"."id" = "b"."id") order by "a"."kelvane_row", "b"."kelvane_row" )"
              R"(for update of "a" nowait)");
}

TEST(PostgresWriter, LocksTheRowsOfASumByThemselves) {
    const char* const sum = "select sum(i) from Probe with (holdlock) where id < 5";
    EXPECT_EQ(ForPostgres(sum, false, {.held = true}),
              R"(select kelvane_range(sum("Probe"."i"), 'int')::int from "Probe" as "Probe" )"
              R"(where ("Probe"."id" < 5))");
    EXPECT_EQ(ForPostgres(sum, false, {.held = true, .only = true}),
              R"(select 1 from "Probe" as "Probe" where ("Probe"."id" < 5) for update of "Probe")");
    EXPECT_EQ(ForPostgres("select 5", false, {.all = true, .only = true}), "");
}

TEST(PostgresWriter, CarriesTheRowsIdentityWhereRowsAreATables) {
    EXPECT_EQ(ForPostgres("select cDigest from PM_ItemQC", true),
              R"(select "PM_ItemQC"."cDigest", "PM_ItemQC"."iEleVid" from "PM_ItemQC" as )"
              R"("PM_ItemQC" order by "PM_ItemQC"."iEleVid")");
    EXPECT_EQ(ForPostgres("select c from Probe", true),
              R"(select "Probe"."c", "Probe"."kelvane_row" from "Probe" as "Probe" order by )"
              R"("Probe"."kelvane_row")");
    EXPECT_EQ(ForPostgres("select max(i) from Probe", true),
              R"(select max("Probe"."i") from "Probe" as "Probe")");
}

}  // namespace
}  // namespace kelvane::tsql
