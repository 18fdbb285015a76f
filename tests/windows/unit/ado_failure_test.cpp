#include "adapters/com/ado_failure.h"

#include <gtest/gtest.h>

namespace kelvane::com {
namespace {

AdoFailure Failure(int nativeCode, const char* sqlState, HRESULT code = E_FAIL) {
    return {"", nativeCode, sqlState, code};
}

TEST(AdoFailure, TellsWhatItMeans) {
    EXPECT_TRUE(Failure(1205, "40001").IsBusy());
    EXPECT_TRUE(Failure(1205, "40001").EndsTransaction());
    EXPECT_TRUE(Failure(1222, "42000").IsBusy());
    EXPECT_FALSE(Failure(1222, "42000").EndsTransaction());
    EXPECT_TRUE(Failure(0, "HYT00").IsBusy());
    EXPECT_TRUE(Failure(0, "", static_cast<HRESULT>(0x80040E31)).IsBusy());
    EXPECT_TRUE(Failure(0, "08S01").IsLost());
    EXPECT_TRUE(Failure(10054, "").IsLost());
    EXPECT_FALSE(Failure(2627, "23000").IsBusy());
    EXPECT_FALSE(Failure(2627, "23000").IsLost());
}

TEST(AdoFailure, ComesWithoutDriverNames) {
    const DispatchError error("ADODB.Connection", "Open", "[Vendor][Driver][Server]登录失败 [x]");
    EXPECT_EQ(FailureOf(error, {}).description, "登录失败 [x]");
    EXPECT_EQ(FailureOf(DispatchError("a", "b", "[Vendor]"), {}).description, "[Vendor]");
}

}  // namespace
}  // namespace kelvane::com
