#include "component/current_center.h"

#include <gtest/gtest.h>

#include "data/login_context.h"
#include "tests/support/login_context_reset.h"

namespace kelvane::component {

TEST(CurrentCenter, IsTheOneWhoseItemsAreChosenFrom) {
    support::ResetLoginContext();
    EXPECT_EQ(CurrentCenter(), "");
    data::gRefCenterCode = "D02";
    EXPECT_EQ(CurrentCenter(), "D02");
}

}  // namespace kelvane::component
