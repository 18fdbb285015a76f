// The desktop tests run inside the windows' own program loop.
#include <gtest/gtest.h>

#include <string_view>

#include "adapters/desktop/desktop_windows.h"
#include "tests/desktop/person.h"

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
    return kelvane::desktop::RunDesktop([](kelvane::desktop::DesktopWindows& windows) {
        kelvane::test::SetWindows(&windows);
        return RUN_ALL_TESTS();
    });
}
