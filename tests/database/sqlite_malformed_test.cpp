// Statements broken at random, run against a real account: each is an error or is run, and the
// account stays sound.
#include <gtest/gtest.h>

#include <random>

#include "adapters/sqlite/session.h"
#include "tests/database/sqlite_account.h"

namespace kelvane::database_test {
namespace {

TEST(SqliteMalformed, NeverDamagesTheAccount) {
    const ScratchFolder folder;
    const std::string path = folder.Path("account.kva");
    CreateSqliteAccount(path);
    sqlite::Session session(path, 50);
    session.Run("insert into Coded(code,name) values('a','b')", false, false);
    constexpr const char* kSeeds[] = {
        "select a.id,convert(varchar,a.m,1),isnull(a.c,'x') from Probe a left join Coded b on "
        "a.c=b.code where a.c like 'x%' and a.id in (1,2) order by a.c desc",
        "update Probe set m = -1.5, c = 'a''b', d = '2004-06-30' where id = (select max(i) from "
        "Probe)",
        "insert into Probe(id,c,m) values(5,N'中','7') delete from Probe where t < > 3",
        "select count(*),sum(m),min(d) from Probe with (HOLDLOCK) group by c having sum(i) > = 3",
        "insert into Probe(id,i,f) select id + 1, m, i / 2 from Probe where b = 1",
    };
    const std::string pieces = "'\"[](),.*=<>+-/%; \n中@#0aNe!";
    std::mt19937 random(97);
    int refused = 0;
    session.Transactions().Begin();
    for (int round = 0; round < 6000; ++round) {
        std::string text = kSeeds[random() % std::size(kSeeds)];
        for (auto change = random() % 3; change > 0; --change) {
            const std::size_t at = random() % text.size();
            if (random() % 2 == 0) {
                text.insert(at, 1, pieces[random() % pieces.size()]);
            } else {
                text.erase(at, 1 + random() % 4);
            }
        }
        try {
            session.Run(text, true, random() % 2 == 0);
        } catch (const platform::DatabaseError& error) {
            EXPECT_NE(error.NativeCode(), 1) << text << '\n' << error.what();
            EXPECT_STRNE(error.what(), "") << text;
            ++refused;
        }
    }
    session.Transactions().Commit();
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 6000);
    EXPECT_EQ(session.Engine().Number("select count(*) from pragma_integrity_check "
                                      "where integrity_check <> 'ok'"),
              0);
}

}  // namespace
}  // namespace kelvane::database_test
