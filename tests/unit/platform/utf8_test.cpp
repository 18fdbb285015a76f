#include "platform/utf8.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/utf16.h"

namespace kelvane::platform {
namespace {

// The text's characters; every byte that is no UTF-8 has to have the length 1.
std::u32string Read(std::string_view text) {
    std::u32string characters;
    while (!text.empty()) {
        const Utf8Character next = TakeCharacter(text);
        if (!next.valid) {
            EXPECT_EQ(next.length, 1U);
            EXPECT_EQ(next.value, kReplacement);
        }
        characters += next.value;
    }
    return characters;
}

std::string Written(char32_t character) {
    std::string text;
    AppendCharacter(text, character);
    return text;
}

TEST(Utf8, ReadsAndWritesTheFirstAndLastCharacterOfEveryLength) {
    struct Case {
        char32_t character;
        std::string text;
    };
    const std::vector<Case> cases{
        {0x0, std::string(1, '\0')},
        {0x7F, "\x7F"},
        {0x80, "\xC2\x80"},
        {0x7FF, "\xDF\xBF"},
        {0x800, "\xE0\xA0\x80"},
        {0xD7FF, "\xED\x9F\xBF"},
        {0xE000, "\xEE\x80\x80"},
        {0xFFFF, "\xEF\xBF\xBF"},
        {0x10000, "\xF0\x90\x80\x80"},
        {0x10FFFF, "\xF4\x8F\xBF\xBF"},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(Read(each.text), std::u32string(1, each.character));
        EXPECT_EQ(Written(each.character), each.text);
    }
}

TEST(Utf8, ReadsWhatIsNoUtf8AsReplacementsByteByByte) {
    const std::vector<std::string> broken{
        "\x80",  // a continuation alone
        "\xBF\xBF",
        "\xC0\xAF",  // overlong forms of "/"
        "\xE0\x80\xAF",
        "\xF0\x80\x80\xAF",
        "\xC1\xBF",  // the last overlong ones of every length
        "\xE0\x9F\xBF",
        "\xF0\x8F\xBF\xBF",
        "\xC0\x80",      // the zero in two bytes
        "\xED\xA0\x80",  // surrogates, alone and as a pair
        "\xED\xBF\xBF",
        "\xED\xA0\xBD\xED\xB8\x80",
        "\xF4\x90\x80\x80",  // behind U+10FFFF
        "\xF7\xBF\xBF\xBF",
        "\xF8\x88\x80\x80\x80",  // forms of five and six bytes
        "\xFC\x84\x80\x80\x80\x80",
        "\xFE\xFF",
        "\xC2",  // cut off
        "\xE5\xAE",
        "\xF0\x9F\x98",
    };
    for (const std::string& text : broken) {
        EXPECT_EQ(Read(text), std::u32string(text.size(), kReplacement));
        EXPECT_EQ(CountCharacters(text), text.size());
    }
}

TEST(Utf8, GoesOnBehindADamagedCharacter) {
    EXPECT_EQ(Read("\xE5\xAE"
                   "a\xC3\xA9"),
              U"\uFFFD\uFFFDaé");
    EXPECT_EQ(Read("\xF0\x9F宽"), U"\uFFFD\uFFFD宽");
    EXPECT_EQ(Read("\xC3\xC3\xA9"), U"\uFFFDé");
}

TEST(Utf8, LeavesOutWhatIsNoCharacter) {
    for (const char32_t none : {0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU, 0x110000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(Written(none), "");
    }
}

TEST(Utf8, CountsAndCutsByCharacters) {
    const std::string text = "aé项\U00020000";
    EXPECT_EQ(CountCharacters(text), 4U);
    EXPECT_EQ(CountCharacters(""), 0U);
    EXPECT_EQ(FirstCharacters(text, 2), "aé");
    EXPECT_EQ(FirstCharacters(text, 0), "");
    EXPECT_EQ(FirstCharacters(text, 9), text);
    EXPECT_EQ(FirstCharacters("\x80\x80项", 2), "\x80\x80");
}

TEST(Utf8, MeasuresInTheChineseCodePage) {
    EXPECT_EQ(CodePageLength(""), 0U);
    EXPECT_EQ(CodePageLength("a中b"), 4U);
    EXPECT_EQ(CodePageLength("𠀀"), 2U);
}

TEST(Utf8, TakesTheLastCharacterAway) {
    std::string text = "aé项\U00020000";
    for (const char* rest : {"aé项", "aé", "a", "", ""}) {
        DropLastCharacter(text);
        EXPECT_EQ(text, rest);
    }
    // Bytes that are no character go one at a time, those before them stay.
    text = "项\x80\xE5\xAE";
    for (const char* rest : {"项\x80\xE5", "项\x80", "项", ""}) {
        DropLastCharacter(text);
        EXPECT_EQ(text, rest);
    }
}

TEST(Utf16, ComesBackAsItWas) {
    for (const std::string_view text : {"", "plain", "é期初", "宽😀x𠮷", "\xF4\x8F\xBF\xBF"}) {
        const std::u16string units = ToUtf16<char16_t>(text);
        std::string back = "what was there before";
        ReadUtf16(units.data(), units.size(), back);
        EXPECT_EQ(back, text);
    }
    EXPECT_EQ(ToUtf16<char16_t>("a😀\xFF"), u"a😀\uFFFD");
}

TEST(Utf16, ReplacesSurrogatesThatAreNoPair) {
    std::string text;
    const std::u16string units{u'a', 0xD83D, u'b', 0xDE00, 0xD83D, 0xD83D, 0xDE00, 0xD83D};
    ReadUtf16(units.data(), units.size(), text);
    EXPECT_EQ(text, "a\uFFFDb\uFFFD\uFFFD😀\uFFFD");
}

}  // namespace
}  // namespace kelvane::platform
