// How PostgreSQL's dialect plans batches and changes, and what it makes of the server's errors.
#include "adapters/odbc/postgres_dialect.h"

#include <gtest/gtest.h>

#include "adapters/odbc/postgres_functions.h"

namespace kelvane::odbc {
namespace {

// Answers the two questions about the catalog; keeps every other text.
class CatalogChannel : public Channel {
public:
    ResultRows Run(const std::string& text) override {
        ResultRows rows;
        rows.hasResult = true;
        if (text.find("pg_attribute") != std::string::npos) {
            ++readings;
            Columns(rows);
        } else if (text.find("x.indexrelid") != std::string::npos) {
            rows.columns = {TextColumn(), TextColumn()};
            Row(rows, {"Item_key", "Item"});
        } else {
            texts.push_back(text);
            if (fails) throw platform::DatabaseError("refused");
        }
        return rows;
    }
    bool InTransaction() const override { return inTransaction; }

    std::vector<std::string> texts;
    int readings = 0;
    bool fails = false;
    bool inTransaction = true;

private:
    static tsql::ResultColumn TextColumn() { return {"", {tsql::Type::Kind::VarChar, 0}, ""}; }

    static void Row(ResultRows& rows, const std::vector<tsql::Datum>& fields) {
        rows.BeginRow();
        for (const tsql::Datum& field : fields) rows.Append(field);
    }

    static void Columns(ResultRows& rows) {
        const tsql::ResultColumn number{"", {tsql::Type::Kind::Int, 0}, ""};
        rows.columns = {TextColumn(), TextColumn(), TextColumn(), number, number, number};
        const auto column = [&](const char* table, const char* name, const char* type, int length,
                                bool required, bool isKey) {
            Row(rows, {std::string(table), std::string(name), std::string(type),
                       std::int64_t{length}, std::int64_t{required}, std::int64_t{isKey}});
        };
        column("Entry", "id", "int4", 0, true, true);
        column("Entry", "sum", "numeric", 0, false, false);
        column("Item", "code", "varchar", 20, true, false);
        column("Item", "kelvane_row", "int8", 0, true, false);
        column("Odd", "doc", "jsonb", 0, false, false);
    }
};

class PostgresDialects : public testing::Test {
protected:
    std::vector<std::string> Steps(std::string_view batch, const Purpose& purpose) {
        std::vector<std::string> texts;
        plan = dialect.PlanBatch(batch, purpose, channel);
        for (const RunStep& step : plan.steps) {
            texts.push_back(step.error ? step.error->what() : step.text);
        }
        return texts;
    }

    std::string Meaning(const char* state, const std::string& text) {
        dialect.PlanBatch("delete from Item", {}, channel);
        const Failure failure = dialect.Judge({state, 1, text});
        constexpr const char* kKinds[] = {"statement", "busy", "undone", "lost"};
        return std::string(kKinds[static_cast<int>(failure.kind)]) + ' ' +
               std::to_string(failure.code) + ' ' + failure.text;
    }

    CatalogChannel channel;
    PostgresDialect dialect{OdbcSettings{.lockTimeout = 700, .keys = {}}};
    Plan plan;
};

using Texts = std::vector<std::string>;

TEST_F(PostgresDialects, SetsUpTheSession) {
    dialect.Prepare(channel);
    EXPECT_EQ(channel.texts,
              Texts{"set client_encoding to 'UTF8';set standard_conforming_strings to on;set "
                    "datestyle to 'ISO, YMD';set extra_float_digits to 3;set client_min_messages "
                    "to warning;set default_transaction_isolation to 'read committed';set jit to "
                    "off;set tcp_keepalives_idle to 30;set tcp_keepalives_interval to 10;set "
                    "tcp_keepalives_count to 3;set lock_timeout to 700"});
}

TEST_F(PostgresDialects, OutsideATransactionEveryStatementIsACall) {
    EXPECT_EQ(Steps("delete from Item delete from Entry where id=5", {}),
              (Texts{R"(delete from "Item" as "Item")",
                     R"(delete from "Entry" as "Entry" where ("Entry"."id" = 5))"}));
    EXPECT_TRUE(plan.changes);
}

TEST_F(PostgresDialects, InsideOneStatementsGoInOneCallBehindTheirSavepoints) {
    EXPECT_EQ(Steps("delete from Item insert into Item(code) values('a')", {.inTransaction = true}),
              Texts{R"(savepoint kelvane_statement;delete from "Item" as "Item";release savepoint )"
                    R"(kelvane_statement;savepoint kelvane_statement;insert into "Item"("code") )"
                    R"(values ('a');release savepoint kelvane_statement;)"});
}

TEST_F(PostgresDialects, WhatFailsByItselfFailsWhenItsTurnComes) {
    EXPECT_EQ(Steps("delete from Item insert into Item(code) values('123456789012345678901') "
                    "delete from Nowhere",
                    {.inTransaction = true}),
              (Texts{"savepoint kelvane_statement;delete from \"Item\" as \"Item\";release "
                     "savepoint kelvane_statement;",
                     "String or binary data would be truncated in column 'code'.",
                     "Invalid object name 'Nowhere'."}));
    EXPECT_THROW(Steps("delete from Item delete from Entry where x=1", {}),
                 platform::DatabaseError);
}

TEST_F(PostgresDialects, AQuerySaysWhereItsRowsComeFrom) {
    EXPECT_EQ(
        Steps("select sum from Entry with (holdlock)",
              {.wantsRows = true, .changeable = true, .inTransaction = true}),
        Texts{R"(savepoint kelvane_statement;select "Entry"."sum", "Entry"."id" from "Entry" )"
              R"(as "Entry" order by "Entry"."id" for update of "Entry";release savepoint )"
              R"(kelvane_statement;)"});
    EXPECT_FALSE(plan.changes);
    EXPECT_EQ(plan.source.table, "Entry");
    ASSERT_EQ(plan.steps[0].columns.size(), 1U);
    EXPECT_EQ(plan.steps[0].columns[0].baseColumn, "sum");
    EXPECT_EQ(plan.steps[0].hiddenColumns, 1);
}

TEST_F(PostgresDialects, ASumsRowsAreLockedByACallBeforeIt) {
    EXPECT_EQ(Steps("select count(*) from Item",
                    {.wantsRows = true, .locks = true, .inTransaction = true}),
              (Texts{R"(savepoint kelvane_statement;select 1 from "Item" as "Item" for update of )"
                     R"("Item";release savepoint kelvane_statement;)",
                     R"(savepoint kelvane_statement;select count(*)::int from "Item" as "Item";)"
                     R"(release savepoint kelvane_statement;)"}));
    EXPECT_TRUE(plan.rowsLocked);
    EXPECT_FALSE(plan.steps[0].givesRows);
    EXPECT_TRUE(plan.steps[1].givesRows);
}

TEST_F(PostgresDialects, TakesALockAgainWithoutWaiting) {
    EXPECT_EQ(
        Steps("select code from Item", {.locks = true, .lockAgain = true, .inTransaction = true}),
        Texts{R"(savepoint kelvane_statement;select 1 from "Item" as "Item" for update of )"
              R"("Item" nowait;release savepoint kelvane_statement;)"});
}

TEST_F(PostgresDialects, ReadsTheCatalogOnceAndAgainForWhatIsMissing) {
    Steps("select * from Item", {});
    Steps("select code from Item where code='a'", {});
    EXPECT_EQ(channel.readings, 1);
    EXPECT_EQ(Steps("select * from Nowhere", {}), Texts{"Invalid object name 'Nowhere'."});
    EXPECT_EQ(channel.readings, 2);
    try {
        Steps("select * from Odd", {});
        ADD_FAILURE();
    } catch (const platform::DatabaseError& error) {
        EXPECT_STREQ(error.what(), "Column 'doc' of table 'Odd': cannot find data type 'jsonb'.");
        EXPECT_EQ(error.NativeCode(), 2715);
    }
}

TEST_F(PostgresDialects, TheFunctionsComeWithAConnectionsFirstTable) {
    EXPECT_EQ(Steps("create table T(a int)", {}),
              (Texts{PostgresFunctions(),
                     R"(create table "T"("a" int, kelvane_row bigint generated by default as )"
                     R"(identity unique);)"}));
    EXPECT_EQ(Steps("create index I on Item(code)", {}),
              Texts{R"(create index "I" on "Item"(kelvane_key("code"));)"});
    EXPECT_EQ(Steps("create table U(a int primary key)", {}),
              Texts{R"(create table "U"("a" int not null, primary key ("a"));)"});
}

TEST_F(PostgresDialects, AChangeFindsItsRowByWhatIsHidden) {
    const RowSource source{"Entry", ""};
    const tsql::Type money{tsql::Type::Kind::Money, 0};
    RowChange change{.source = source,
                     .changed = {{"sum", money, std::string("1.5000"), tsql::Datum{}}},
                     .hidden = {std::int64_t{7}}};
    EXPECT_EQ(dialect.PlanChange(change, channel).text,
              "savepoint kelvane_statement;update \"Entry\" set \"sum\" = 1.5000 where \"id\" = 7 "
              "and \"sum\" is not distinct from null");
    change.locked = true;
    channel.inTransaction = false;
    EXPECT_EQ(dialect.PlanChange(change, channel).text,
              R"(update "Entry" set "sum" = 1.5000 where "id" = 7)");
}

TEST_F(PostgresDialects, AFailedStatementIsUndoneAlone) {
    EXPECT_TRUE(dialect.KeepTransaction(channel));
    EXPECT_EQ(channel.texts, Texts{"rollback to savepoint kelvane_statement;release savepoint "
                                   "kelvane_statement;"});
    channel.fails = true;
    EXPECT_FALSE(dialect.KeepTransaction(channel));
}

TEST_F(PostgresDialects, ErrorsGetTheDialectsNumbersAndTexts) {
    EXPECT_EQ(Meaning("23505",
                      "ERROR: duplicate key value violates unique constraint "
                      "\"Item_key\"\nDETAIL: Key (kelvane_key(code::text))=(a) already "
                      "exists.;\nError while executing the query"),
              "statement 2627 Violation of the key of table 'Item'. Cannot insert duplicate key.");
    EXPECT_EQ(Meaning("23502",
                      "ERROR: null value in column \"code\" of relation \"Item\" violates "
                      "not-null constraint\nDETAIL: Failing row contains (null).;\nError "
                      "while executing the query"),
              "statement 515 Cannot insert the value NULL into column 'code', table 'Item'; column "
              "does not allow nulls.");
    EXPECT_EQ(
        Meaning("21000", "ERROR: more than one row"),
        "statement 512 Subquery returned more than 1 value. This is not permitted when the "
        "subquery follows =, !=, <, <=, >, >= or when the subquery is used as an expression.");
    EXPECT_EQ(Meaning("KV000",
                      "ERROR: 245 Conversion failed when converting the varchar value 'a;"
                      "b' to data type int.;\nError while executing the query"),
              "statement 245 Conversion failed when converting the varchar value 'a;b' to data "
              "type int.");
    EXPECT_EQ(Meaning("22012", "ERROR: division by zero"),
              "statement 8134 Divide by zero error encountered.");
    EXPECT_EQ(Meaning("42883", "FEHLER: Funktion existiert nicht;\nError while executing"),
              "statement 195 Funktion existiert nicht");
}

TEST_F(PostgresDialects, TellsWaitingUndoneAndLostApart) {
    EXPECT_EQ(Meaning("55P03", "ERROR: canceling statement due to lock timeout;\nError while x"),
              "busy 1222 canceling statement due to lock timeout");
    EXPECT_EQ(Meaning("57014", "ERROR: canceling statement due to statement timeout"),
              "busy 1 canceling statement due to statement timeout");
    EXPECT_EQ(Meaning("40P01", "ERROR: deadlock detected\nDETAIL: Process 1 waits"),
              "undone 1205 deadlock detected");
    EXPECT_EQ(Meaning("57P01", "FATAL: terminating connection due to administrator command"),
              "lost 1 terminating connection due to administrator command");
    EXPECT_EQ(Meaning("08006", "could not receive data: server closed the connection"),
              "lost 1 could not receive data: server closed the connection");
}

}  // namespace
}  // namespace kelvane::odbc
