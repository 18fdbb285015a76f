#include "adapters/output/layout/document_pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "tests/unit/output/sample_sheet.h"

namespace kelvane::output_test {
namespace {

using output::Document;
using output::DocumentPages;
using output::DocumentPart;
using platform::Page;
using testing::ElementsAre;

DocumentPart Part(const std::string& heading, int rows) {
    DocumentPart part;
    part.heading = heading;
    part.columns = {Column("编号", 1000), Column("说明", 4000)};
    for (int row = 1; row <= rows; ++row) {
        part.rows.push_back({heading + std::to_string(row), "内容"});
    }
    return part;
}

class DocumentPagesTest : public testing::Test {
protected:
    DocumentPages& Lay(std::vector<DocumentPart> parts) {
        Document document;
        document.title = "期初核对表";
        document.parts = std::move(parts);
        mPages = std::make_unique<DocumentPages>(std::move(document), mMeasurer);
        return *mPages;
    }
    std::vector<std::string> Texts(int page) const {
        std::vector<std::string> texts;
        for (const auto& text : mPages->MakePage(page).texts) texts.push_back(text.text);
        return texts;
    }
    static int LowestLine(const Page& page) {
        int lowest = 0;
        for (const auto& line : page.lines) lowest = std::max(lowest, line.bottom);
        return lowest;
    }

    FixedMeasurer mMeasurer;
    std::unique_ptr<DocumentPages> mPages;
};

TEST_F(DocumentPagesTest, PartsStandOneBehindTheOther) {
    DocumentPart plain = Part("", 1);
    plain.hasTitles = false;
    Lay({plain, Part("甲", 2), Part("乙", 0)});
    ASSERT_EQ(mPages->PageCount(), 1);
    EXPECT_THAT(Texts(1),
                ElementsAre("期初核对表", "1", "内容", "甲", "编号", "说明", "甲1", "内容", "甲2",
                            "内容", "乙", "编号", "说明", "第 1 页 共 1 页"));
    const Page page = mPages->MakePage(1);
    EXPECT_TRUE(std::is_sorted(page.texts.begin(), page.texts.end(),
                               [](auto& a, auto& b) { return a.box.top < b.box.top; }));
    EXPECT_EQ(mPages->Title(), "期初核对表");
}

TEST_F(DocumentPagesTest, ALongTableGoesOnBeneathItsTitles) {
    Lay({Part("甲", 200), Part("乙", 1)});
    ASSERT_GT(mPages->PageCount(), 2);
    int seen = 0;
    for (int number = 1; number <= mPages->PageCount(); ++number) {
        const auto texts = Texts(number);
        EXPECT_EQ(std::ranges::count(texts, "编号"), number == mPages->PageCount() ? 2 : 1);
        for (const std::string& text : texts) {
            if (text == "甲" + std::to_string(seen + 1)) ++seen;
        }
        EXPECT_EQ(texts.back(), "第 " + std::to_string(number) + " 页 共 " +
                                    std::to_string(mPages->PageCount()) + " 页");
        const auto page = mPages->MakePage(number);
        EXPECT_LT(LowestLine(page), page.texts.back().box.top);
    }
    EXPECT_EQ(seen, 200);
}

TEST_F(DocumentPagesTest, APartThatIsWholeStaysOnOnePage) {
    DocumentPart whole = Part("乙", 3);
    whole.whole = true;
    whole.rowHeight = 300;
    for (int rows = 1; rows < 60; ++rows) {
        Lay({Part("甲", rows), whole});
        int pages = 0;
        for (int number = 1; number <= mPages->PageCount(); ++number) {
            const auto texts = Texts(number);
            pages += std::ranges::count(texts, "乙1") + std::ranges::count(texts, "乙3") > 0;
            EXPECT_EQ(std::ranges::count(texts, "乙"), std::ranges::count(texts, "乙1"));
        }
        EXPECT_EQ(pages, 1) << rows;
    }
}

TEST_F(DocumentPagesTest, ARowHigherThanAPageIsBrokenBetweenItsLines) {
    DocumentPart part = Part("甲", 1);
    std::string words;
    for (int word = 0; word < 3000; ++word) words += "字";
    part.rows.push_back({"长", words});
    Lay({part});
    ASSERT_GT(mPages->PageCount(), 1);
    std::string together;
    for (int number = 1; number <= mPages->PageCount(); ++number) {
        for (const std::string& text : Texts(number)) {
            if (text.starts_with("字")) together += text;
        }
    }
    EXPECT_EQ(together, words);
}

TEST_F(DocumentPagesTest, WhatCannotBeDrawnIsReplaced) {
    DocumentPart part = Part("甲", 0);
    part.rows.push_back({"a\tb", "\xFF"});
    Lay({part});
    EXPECT_THAT(Texts(1), ElementsAre("期初核对表", "甲", "编号", "说明", "a\uFFFDb", "\uFFFD",
                                      "第 1 页 共 1 页"));
}

TEST_F(DocumentPagesTest, AHeadingFitsItsLine) {
    std::string words;
    for (int word = 0; word < 100; ++word) words += "长";
    DocumentPart part = Part(words, 0);
    part.hasTitles = false;
    const Page page = Lay({part, Part("短", 0)}).MakePage(1);
    const auto& heading = page.texts[1];
    EXPECT_EQ(heading.text, words);
    EXPECT_LE(mMeasurer.Width(words, {heading.size, true}), heading.box.width * 100);
    EXPECT_GT(page.texts[2].size, heading.size);
    EXPECT_EQ(page.lines.front().top, page.areas.front().box.top)
        << "no lines of a part without rows";
}

TEST_F(DocumentPagesTest, RefusesWhatCannotBeLaidOut) {
    EXPECT_THROW(Lay({DocumentPart{}}), std::invalid_argument);
    EXPECT_THROW(Lay({Part("甲", 1)}).MakePage(2), std::out_of_range);
    Document document;
    document.settings.paper = "Z9";
    EXPECT_THROW(DocumentPages(document, mMeasurer), std::invalid_argument);
}

}  // namespace
}  // namespace kelvane::output_test
