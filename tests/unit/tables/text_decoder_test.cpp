#include "adapters/tables/text_decoder.h"

#include <gtest/gtest.h>

#include "adapters/tables/gb18030.h"
#include "adapters/tables/open_table.h"
#include "tests/unit/tables/sample_workbook.h"

namespace kelvane::tables_test {
namespace {

using tables::FindEncoding;
using tables::Gb18030Length;
using tables::TextEncoding;

// "期初" and a letter that GB18030 has in four bytes.
const std::string kQiChu = "\xC6\xDA\xB3\xF5";
const std::string kFour = "\x95\x32\x82\x36";  // U+20000

TEST(TextDecoder, TakesUtf8WithAndWithoutAMark) {
    EXPECT_EQ(ShownBytes("期初,𠀀\n"), "1 A:t 期初|B:t 𠀀\n");
    EXPECT_EQ(ShownBytes("\xEF\xBB\xBF期初,b\n"), "1 A:t 期初|B:t b\n");
    EXPECT_EQ(ShownBytes("\xEF\xBB\xBF\"期初\",b\n"), "1 A:t 期初|B:t b\n");
}

TEST(TextDecoder, TakesGb18030WhereItIsNoUtf8) {
    EXPECT_EQ(ShownBytes(kQiChu + "," + kFour + "\n"), "1 A:t 期初|B:t 𠀀\n");
}

TEST(TextDecoder, AllOfTheFileDecides) {
    std::string lines;
    for (int line = 0; line < 20; ++line) lines += std::string(9'000, 'x') + ",y\n";
    EXPECT_TRUE(ShownBytes(lines + kQiChu + ",z\n").ends_with("21 A:t 期初|B:t z\n"));
    EXPECT_TRUE(ShownBytes(lines + "期初,z\n").ends_with("21 A:t 期初|B:t z\n"));
}

TEST(TextDecoder, CharactersLieAcrossWhatIsReadAtATime) {
    for (const std::string& letters : {std::string("期初"), kQiChu, kFour + kQiChu}) {
        std::string text;
        while (text.size() < 200'000) text += "a," + letters + "\n" + (text.size() % 3 ? "" : "b");
        const std::string shown = ShownBytes(text);
        EXPECT_EQ(shown.find("\uFFFD"), std::string::npos);
        EXPECT_NE(shown.find("期初"), std::string::npos);
        EXPECT_EQ(shown.find("："), std::string::npos) << shown.substr(0, 200);
    }
}

TEST(TextDecoder, WhatIsNeitherIsRefusedWithItsLine) {
    EXPECT_EQ(ShownBytes("a,b\nc,\xFF\n"),
              "a.file：从第 2 行起，文字编码既不是 UTF-8，也不是 GB18030");
    EXPECT_EQ(ShownBytes("a,b\nc," + kQiChu.substr(0, 3)),
              "a.file：从第 2 行起，文字编码既不是 UTF-8，也不是 GB18030");
    EXPECT_EQ(ShownBytes("a,b\nc,\x81\x20\n"),
              "a.file：从第 2 行起，文字编码既不是 UTF-8，也不是 GB18030");
    EXPECT_EQ(ShownBytes(std::string("a,b\nc,\0\n", 8)), "a.file：不是文本文件");
    EXPECT_EQ(ShownBytes(std::string("\xFF\xFE"
                                     "a\0",
                                     4)),
              "a.file：文字编码是 UTF-16，请另存为 UTF-8");
}

TEST(TextDecoder, AnEncodingThatWasNamedHolds) {
    const auto shown = [](const std::string& text, TextEncoding encoding) -> std::string {
        try {
            return Shown(*tables::OpenTableBytes(text, "t", encoding));
        } catch (const platform::TableRefused& refused) {
            return refused.what();
        }
    };
    EXPECT_EQ(shown(kQiChu + ",b\n", TextEncoding::Gb18030), "1 A:t 期初|B:t b\n");
    EXPECT_EQ(shown(kQiChu + ",b\n", TextEncoding::Utf8), "t：从第 1 行起，文字编码不是 UTF-8");
    // Both: what it means is for who knows it.
    EXPECT_EQ(shown("\xC4\xA3,b\n", TextEncoding::Gb18030), "1 A:t 模|B:t b\n");
    EXPECT_EQ(shown("\xC4\xA3,b\n", TextEncoding::Detect), "1 A:t ģ|B:t b\n");
}

TEST(TextDecoder, EncodingsHaveTheirNames) {
    EXPECT_EQ(FindEncoding("utf-8"), TextEncoding::Utf8);
    EXPECT_EQ(FindEncoding("GBK"), TextEncoding::Gb18030);
    EXPECT_EQ(FindEncoding("gb18030"), TextEncoding::Gb18030);
    EXPECT_EQ(FindEncoding("latin-1"), std::nullopt);
}

TEST(Gb18030, CharactersHaveTheirLengths) {
    EXPECT_EQ(Gb18030Length("a"), 1U);
    EXPECT_EQ(Gb18030Length(kQiChu), 2U);
    EXPECT_EQ(Gb18030Length(kFour), 4U);
    EXPECT_EQ(Gb18030Length("\xC6"), 2U) << "cut off";
    EXPECT_EQ(Gb18030Length("\x95\x32"), 4U) << "cut off";
    for (const char* wrong :
         {"\x80", "\xFF", "\xC6\x20", "\xC6\x7F", "\x95\x32\x20", "\x95\x32\x82\x40"}) {
        EXPECT_EQ(Gb18030Length(wrong), 0U);
    }
}

}  // namespace
}  // namespace kelvane::tables_test
