#include "adapters/database/secret.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <sstream>

namespace kelvane::database {
namespace {

// What the system says of the memory at `place`: the line "VmFlags" of its part of the process.
std::string FlagsOf(const void* place) {
    const auto wanted = reinterpret_cast<std::uintptr_t>(place);
    std::ifstream parts("/proc/self/smaps");
    bool inside = false;
    for (std::string line; std::getline(parts, line);) {
        std::istringstream words(line);
        std::uintptr_t begin = 0;
        std::uintptr_t end = 0;
        char dash = 0;
        if (words >> std::hex >> begin >> dash >> end && dash == '-') {
            inside = begin <= wanted && wanted < end;
        } else if (inside && line.starts_with("VmFlags:")) {
            return line + " ";
        }
    }
    return {};
}

TEST(Secret, HoldsItsText) {
    const std::string text("a}b\0;", 5);
    EXPECT_EQ(Secret(text).Text(), text);
    EXPECT_EQ(Secret("").Text(), "");
    const std::string longer(100'000, 'x');
    EXPECT_EQ(Secret(longer).Text(), longer);
}

TEST(Secret, LiesInNoCoreFile) {
    const Secret secret("geheim");
    EXPECT_NE(FlagsOf(secret.Text().data()).find(" dd "), std::string::npos);
    const auto ordinary = std::make_unique<char>('x');
    const std::string flags = FlagsOf(ordinary.get());
    EXPECT_NE(flags, "");
    EXPECT_EQ(flags.find(" dd "), std::string::npos);
}

TEST(Secret, WipesATextWithAllItsRoom) {
    std::string text = "a password that is longer than a short text";
    const char* const bytes = text.data();
    const std::size_t room = text.capacity();
    text.resize(3);
    Wipe(text);
    EXPECT_EQ(text, "");
    ASSERT_EQ(text.data(), bytes);
    text.resize(room);
    EXPECT_EQ(text, std::string(room, '\0'));
}

TEST(Secret, WipesATextAtTheEndOfABlock) {
    std::u16string text = u"geheim";
    {
        const WipedAfterwards wiped(text);
        EXPECT_EQ(text, u"geheim");
    }
    EXPECT_EQ(text, u"");
    EXPECT_EQ(std::u16string(text.data(), text.capacity()), std::u16string(text.capacity(), u'\0'));
}

}  // namespace
}  // namespace kelvane::database
