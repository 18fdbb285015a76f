// How often the program waits for a server's answer: what an operator does takes so many round
// trips and no more. They are counted, so a slow machine counts the same.
#include <functional>

#include "tests/faults/network/server_world.h"

namespace kelvane::faults {
namespace {

class RoundTrips : public testing::Test {
protected:
    std::size_t Of(const std::function<void()>& deed) {
        mWorld.network.Break({});
        deed();
        EXPECT_EQ(mWorld.TakeTold(), "");
        return mWorld.network.Answers().size();
    }
    // Entries `first` to `last`, each with a line that does not come to its amount.
    void AddEntriesWithLines(int first, int last) {
        for (int i = first; i <= last; ++i) {
            platform::StatementText entry("insert into PM_ItemQC values(");
            entry.Number(i) << ",'2004-06-01','D01','P01','一标段','','E02','',1)";
            mWorld.other->Execute(entry);
            platform::StatementText line("insert into PM_ItemQCsub values(");
            line.Number(i) << ",'M01',10,2,20)";
            mWorld.other->Execute(line);
        }
    }
    std::size_t OfOpening() {
        return Of([&] { EXPECT_TRUE(mWorld.OpenList()); });
    }
    ServerPlace mPlace;
    ServerWorld mWorld{mPlace};
};

// Two for 64 entries: their sums, and their corrections.
TEST_F(RoundTrips, OfOpeningGrowByTwoForEachPiece) {
    AddEntriesWithLines(4, 65);
    OfOpening();  // the driver looks at each table once
    const std::size_t ofOnePiece = OfOpening();
    EXPECT_EQ(ofOnePiece, 12U);
    AddEntriesWithLines(66, 193);
    EXPECT_EQ(OfOpening(), ofOnePiece + 4);
    EXPECT_EQ(mWorld.Read("select count(*) from PM_ItemQC where iEleVid>3 and mQC=20").at(0),
              "190");
}

// The checks of its cells, the element and the budget, the locked row, the element, the row itself,
// the commit.
TEST_F(RoundTrips, OfLeavingAChangedRow) {
    mWorld.Open();
    mWorld.Go(2, kDigestColumn);  // the driver looks at each table once
    mWorld.Go(1, kDigestColumn);
    mWorld.Type("改");
    EXPECT_EQ(Of([&] { EXPECT_TRUE(mWorld.Go(2, kDigestColumn)); }), 7U);
    EXPECT_EQ(mWorld.Read("select cDigest from PM_ItemQC where iEleVid=1").at(0), "改");
}

}  // namespace
}  // namespace kelvane::faults
