#include "host/commands/usage.h"

#include <gtest/gtest.h>

namespace kelvane::host_test {
namespace {

TEST(NearestName, IsTheOneWithTheFewestMistakes) {
    const std::vector<std::string> names{"--connect-timeout", "--query-timeout", "--user",
                                         "--year"};
    for (const auto& [typed, nearest] :
         {std::pair{"--yaer", "--year"}, std::pair{"--usr", "--user"},
          std::pair{"--YEAR", "--year"}, std::pair{"--useer", "--user"},
          std::pair{"--username", "--user"}, std::pair{"--conect-timeuot", "--connect-timeout"},
          std::pair{"--qu", "--query-timeout"}, std::pair{"--lock", ""}, std::pair{"--q", ""},
          std::pair{"-y", ""}}) {
        EXPECT_EQ(host::NearestName(typed, names), nearest) << typed;
    }
    EXPECT_EQ(host::NearestName("a", {}), "");
}

}  // namespace
}  // namespace kelvane::host_test
