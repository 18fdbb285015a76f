#include "entries/budget_room.h"

#include <gtest/gtest.h>

#include "data/login_context.h"

namespace kelvane::entries {
namespace {

using platform::Money;

TEST(BudgetRoomTest, SaysWhatIsGrantedUsedAndLeft) {
    EXPECT_EQ(MoneyRoom(Money::FromInteger(1000), Money::FromText("600.5")),
              "预算 1,000.00，已用 600.50，可用 399.50");
    EXPECT_EQ(MoneyRoom(Money::FromInteger(1000), Money::FromInteger(1200)),
              "预算 1,000.00，已用 1,200.00，可用 -200.00");
}

TEST(BudgetRoomTest, ARestBeyondAllAmountsGoesWithoutSaying) {
    EXPECT_EQ(MoneyRoom(Money::FromInteger(1000), Money::FromInteger(-922337203685477)),
              "预算 1,000.00，已用 -922,337,203,685,477.00");
}

TEST(BudgetRoomTest, QuantitiesHaveTheirOwnDecimals) {
    const auto before = data::gNumPointQty;
    data::gNumPointQty = 3;
    EXPECT_EQ(QuantityRoom(40, 9.5F), "预算 40.000，已用 9.500，可用 30.500");
    data::gNumPointQty = before;
}

}  // namespace
}  // namespace kelvane::entries
