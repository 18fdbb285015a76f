#include "adapters/output/layout/sheet_pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "tests/unit/output/sample_sheet.h"

namespace kelvane::output_test {

using output::Sheet;
using output::SheetPages;
using platform::Page;
using platform::PageAlignment;
using platform::PageText;
using testing::ElementsAre;

namespace {

class SheetPagesTest : public testing::Test {
protected:
    SheetPages& Lay(Sheet sheet) {
        mPages = std::make_unique<SheetPages>(std::move(sheet), mMeasurer);
        return *mPages;
    }
    // The texts of all pages that begin with `start`, in their order.
    std::vector<std::string> TextsWith(const std::string& start) {
        std::vector<std::string> found;
        for (int number = 1; number <= mPages->PageCount(); ++number) {
            for (const PageText& text : mPages->MakePage(number).texts) {
                if (text.text.starts_with(start)) found.push_back(text.text);
            }
        }
        return found;
    }
    static PageText Find(const Page& page, const std::string& text) {
        const auto found = std::find_if(page.texts.begin(), page.texts.end(),
                                        [&](const PageText& each) { return each.text == text; });
        if (found == page.texts.end()) throw std::logic_error("not on the page: " + text);
        return *found;
    }
    static bool Has(const Page& page, const std::string& text) {
        return std::any_of(page.texts.begin(), page.texts.end(),
                           [&](const PageText& each) { return each.text == text; });
    }

    FixedMeasurer mMeasurer;
    std::unique_ptr<SheetPages> mPages;
};

TEST_F(SheetPagesTest, StandsFromTopToBottom) {
    const Page page = Lay(SampleSheet(2)).MakePage(1);
    std::vector<std::string> texts;
    for (const PageText& text : page.texts) texts.push_back(text.text);
    EXPECT_THAT(texts, ElementsAre("项目期初录入", "年度：2004", "日期", "项目名称", "未结转期初",
                                   "2004-06-01", "项目1", "1,234.50", "2004-06-01", "项目2",
                                   "1,234.50", "单位：演示公司", "制表人：张三",
                                   "打印日期：2004.06.30", "第 1 页 共 1 页"));
    EXPECT_TRUE(
        std::is_sorted(page.texts.begin(), page.texts.end(),
                       [](const PageText& a, const PageText& b) { return a.box.top < b.box.top; }));
}

TEST_F(SheetPagesTest, PutsTheBlocksWhereTheirPositionsSay) {
    const Page page = Lay(SampleSheet(1)).MakePage(1);
    const PageText title = Find(page, "项目期初录入");
    EXPECT_EQ(title.alignment, PageAlignment::Center);
    EXPECT_EQ(title.box.left, 150);
    EXPECT_EQ(title.box.width, 1800);
    // In the middle of the 20 mm below the upper margin.
    EXPECT_NEAR(title.box.top + title.box.height / 2, 150 + 100, 1);
    EXPECT_EQ(Find(page, "年度：2004").box.top, 150 + 200);
    EXPECT_EQ(page.areas.front().box.top, 150 + 260);
    const int footer = Find(page, "单位：演示公司").box.top;
    EXPECT_EQ(Find(page, "制表人：张三").box.left, 150 + 700);
    EXPECT_EQ(Find(page, "打印日期：2004.06.30").box.left, 150 + 1350);
    EXPECT_EQ(Find(page, "打印日期：2004.06.30").box.top, footer);
}

TEST_F(SheetPagesTest, PutsTheTitleBetweenTheItemsAboveAndBelowIt) {
    Sheet sheet = SampleSheet(1);
    sheet.header = {{"年度", "2004", {0, 0}, 500}, {"打印日期", "2004.06.30", {1350, 200}, 375}};
    sheet.footer.clear();
    for (const int size : {198, 250, 720}) {
        sheet.settings.titleSize = size;
        const Page page = Lay(sheet).MakePage(1);
        const PageText year = Find(page, "年度：2004");
        const PageText title = Find(page, "项目期初录入");
        EXPECT_EQ(year.box.top, 150);
        EXPECT_GE(title.box.top, year.box.top + year.box.height);
        const PageText date = Find(page, "打印日期：2004.06.30");
        EXPECT_EQ(date.box.top, 150 + std::max(200, title.box.top + title.box.height - 150));
        EXPECT_GE(page.areas.front().box.top, date.box.top + date.box.height);
        EXPECT_TRUE(std::is_sorted(
            page.texts.begin(), page.texts.end(),
            [](const PageText& a, const PageText& b) { return a.box.top < b.box.top; }));
    }
}

TEST_F(SheetPagesTest, PutsEveryRowOnOnePageInOrder) {
    Lay(SampleSheet(500));
    const auto rows = TextsWith("项目");
    std::vector<std::string> items;
    for (const std::string& text : rows) {
        if (text != "项目名称" && text != "项目期初录入") items.push_back(text);
    }
    ASSERT_EQ(items.size(), 500U);
    for (std::size_t row = 0; row < items.size(); ++row) {
        ASSERT_EQ(items[row], "项目" + std::to_string(row + 1));
    }
}

TEST_F(SheetPagesTest, NumbersItsPages) {
    const SheetPages& pages = Lay(SampleSheet(100));
    ASSERT_EQ(pages.PageCount(), 3);
    EXPECT_THAT(TextsWith("第 "),
                ElementsAre("第 1 页 共 3 页", "第 2 页 共 3 页", "第 3 页 共 3 页"));
    EXPECT_THROW(pages.MakePage(0), std::out_of_range);
    EXPECT_THROW(pages.MakePage(4), std::out_of_range);
}

TEST_F(SheetPagesTest, RepeatsTheHeadOnEveryPageOrNot) {
    Sheet sheet = SampleSheet(100);
    Lay(sheet);
    EXPECT_THAT(TextsWith("项目名称"), testing::SizeIs(3));
    EXPECT_THAT(TextsWith("年度"), testing::SizeIs(3));
    sheet.settings.repeatHead = false;
    Lay(sheet);
    EXPECT_THAT(TextsWith("项目名称"), testing::SizeIs(1));
    EXPECT_THAT(TextsWith("年度"), testing::SizeIs(1));
    EXPECT_THAT(TextsWith("单位"), testing::SizeIs(mPages->PageCount()));
}

TEST_F(SheetPagesTest, StaysInsideTheMargins) {
    Sheet sheet = SampleSheet(200);
    sheet.settings.marginLeft = 300;
    sheet.settings.marginBottom = 400;
    const SheetPages& pages = Lay(sheet);
    for (int number = 1; number <= pages.PageCount(); ++number) {
        const Page page = pages.MakePage(number);
        for (const PageText& text : page.texts) {
            EXPECT_GE(text.box.left, 300) << text.text;
            EXPECT_LE(text.box.left + text.box.width, 2100 - 150) << text.text;
            EXPECT_GE(text.box.top, 150) << text.text;
            EXPECT_LE(text.box.top + text.box.height, 2970 - 400) << text.text;
        }
        for (const platform::PageLine& line : page.lines) EXPECT_LE(line.bottom, 2970 - 400);
    }
}

TEST_F(SheetPagesTest, TakesItsWidthsFromTheGridAndLeavesHiddenColumnsOut) {
    const Page page = Lay(SampleSheet(1)).MakePage(1);
    // 1300 twips are 22.9 mm.
    EXPECT_EQ(Find(page, "日期").box.left, 150 + output::kCellMarginX);
    EXPECT_EQ(Find(page, "项目名称").box.left, 150 + 229 + output::kCellMarginX);
    EXPECT_EQ(Find(page, "未结转期初").box.left, 150 + 229 + 440 + output::kCellMarginX);
}

TEST_F(SheetPagesTest, ScalesColumnsDownToThePaper) {
    Sheet sheet = SampleSheet(1);
    for (auto& column : sheet.columns) column.width *= 4;
    const Page page = Lay(sheet).MakePage(1);
    EXPECT_EQ(mPages->PageCount(), 1);
    EXPECT_EQ(page.areas.front().box.width, 1800);
    const int first = Find(page, "项目名称").box.left - Find(page, "日期").box.left;
    EXPECT_NEAR(first, 1800 * 1300 / 5300, 1);
}

TEST_F(SheetPagesTest, PutsColumnsThatDoNotFitOnFurtherPages) {
    Sheet sheet = SampleSheet(1);
    for (auto& column : sheet.columns) column.width *= 4;
    sheet.settings.fitWidth = false;
    Lay(sheet);
    ASSERT_EQ(mPages->PageCount(), 3);
    EXPECT_TRUE(Has(mPages->MakePage(1), "2004-06-01"));
    EXPECT_FALSE(Has(mPages->MakePage(1), "项目1"));
    EXPECT_TRUE(Has(mPages->MakePage(2), "项目1"));
    EXPECT_TRUE(Has(mPages->MakePage(3), "1,234.50"));
}

TEST_F(SheetPagesTest, WrapsLongTextsInsideTheirCell) {
    Sheet sheet = SampleSheet(1);
    const std::string text = "滨江花园一期住宅工程地下车库与人防部分";
    sheet.cells = [&](int) { return "\t\t" + text + "\t1.00"; };
    const Page page = Lay(sheet).MakePage(1);
    std::string joined;
    for (const PageText& each : page.texts) {
        if (each.box.left != Find(page, "项目名称").box.left || each.text == "项目名称") continue;
        EXPECT_LE(mMeasurer.Width(each.text, {each.size, each.bold}), each.box.width * 100);
        joined += each.text;
    }
    EXPECT_EQ(joined, text);
}

TEST_F(SheetPagesTest, NeverBreaksANumber) {
    Sheet sheet = SampleSheet(1);
    sheet.cells = [](int) { return "\t\t\t922,337,203,685,477.58"; };
    const PageText amount = Find(Lay(sheet).MakePage(1), "922,337,203,685,477.58");
    EXPECT_LT(amount.size, 90);
    EXPECT_EQ(amount.alignment, PageAlignment::Right);
    EXPECT_LE(mMeasurer.Width(amount.text, {amount.size, false}), amount.box.width * 100);
}

TEST_F(SheetPagesTest, BreaksNeitherNumberNorDateInTheNarrowestColumn) {
    Sheet sheet = SampleSheet(1);
    sheet.columns[1].width = 200;
    sheet.columns[3].width = 200;
    sheet.cells = [](int) { return "\t2004-06-01\tx\t922,337,203,685,477.58"; };
    const Page page = Lay(sheet).MakePage(1);
    for (const char* whole : {"2004-06-01", "922,337,203,685,477.58"}) {
        const PageText text = Find(page, whole);
        EXPECT_LE(mMeasurer.Width(whole, {text.size, false}), text.box.width * 100) << whole;
    }
}

// A code is no number, and a text among numbers is a text.
TEST_F(SheetPagesTest, BreaksTextsAmongNumbers) {
    Sheet sheet = SampleSheet(1);
    sheet.cells = [](int) { return "\t\t\t一二三四五六七八九十一二三四五"; };
    const PageText text = Find(Lay(sheet).MakePage(1), "一二三四五六七");
    EXPECT_EQ(text.size, 90);
    EXPECT_EQ(text.alignment, PageAlignment::Right);
}

TEST_F(SheetPagesTest, ContinuesARowThatIsHigherThanAPage) {
    Sheet sheet = SampleSheet(3);
    std::string text;
    for (int part = 0; part < 1800; ++part) text += "长";
    sheet.cells = [&](int row) { return "\t\t" + (row == 1 ? text : "短") + "\t1.00"; };
    Lay(sheet);
    EXPECT_GT(mPages->PageCount(), 2);
    std::string joined;
    for (const std::string& line : TextsWith("长")) joined += line;
    EXPECT_EQ(joined.size(), text.size());
    EXPECT_THAT(TextsWith("短"), testing::SizeIs(2));
    for (int number = 1; number <= mPages->PageCount(); ++number) {
        for (const PageText& each : mPages->MakePage(number).texts) {
            EXPECT_LE(each.box.top + each.box.height, 2970 - 150);
        }
    }
}

TEST_F(SheetPagesTest, GivesALongFooterValueTheRoomItNeeds) {
    Sheet sheet = SampleSheet(1);
    sheet.footer[0].value = "某某省第一建筑安装工程有限责任公司第二项目经理部直属分公司";
    const Page page = Lay(sheet).MakePage(1);
    const PageText unit = Find(page, "单位：" + sheet.footer[0].value);
    EXPECT_LE(unit.box.left + unit.box.width, Find(page, "制表人：张三").box.left);
    EXPECT_LE(mMeasurer.Width(unit.text, {unit.size, false}), unit.box.width * 100);
}

TEST_F(SheetPagesTest, MovesItemsCloserTogetherOnNarrowPaper) {
    Sheet sheet = SampleSheet(1);
    sheet.settings.paper = "A5";
    const Page page = Lay(sheet).MakePage(1);
    // 1180 of the 1725 that the items were given.
    EXPECT_EQ(Find(page, "制表人：张三").box.left, 150 + 700 * 1180 / 1725);
    EXPECT_EQ(Find(page, "打印日期：2004.06.30").box.left, 150 + 1350 * 1180 / 1725);
    EXPECT_LE(Find(page, "打印日期：2004.06.30").box.width, 1180 - 1350 * 1180 / 1725);
}

TEST_F(SheetPagesTest, MovesTheTableBelowATallHead) {
    Sheet sheet = SampleSheet(1);
    sheet.header.push_back({"说明", "第二行", {0, 400}, 500});
    const Page page = Lay(sheet).MakePage(1);
    const PageText note = Find(page, "说明：第二行");
    EXPECT_GE(page.areas.front().box.top, note.box.top + note.box.height);
}

TEST_F(SheetPagesTest, PrintsTheTitlesOfAnEmptyTable) {
    EXPECT_EQ(Lay(SampleSheet(0)).PageCount(), 1);
    EXPECT_TRUE(Has(mPages->MakePage(1), "日期"));
}

TEST_F(SheetPagesTest, RefusesWhatCannotBeLaidOut) {
    Sheet hidden = SampleSheet(1);
    for (auto& column : hidden.columns) column.width = 0;
    EXPECT_THROW(Lay(hidden), std::invalid_argument);
    Sheet narrow = SampleSheet(1);
    narrow.settings.marginLeft = narrow.settings.marginRight = 1000;
    EXPECT_THROW(Lay(narrow), std::invalid_argument);
}

TEST_F(SheetPagesTest, TakesPaperAndOrientation) {
    Sheet sheet = SampleSheet(1);
    sheet.settings.paper = "A3";
    sheet.settings.landscape = true;
    EXPECT_EQ(Lay(sheet).PageWidth(), 4200);
    EXPECT_EQ(mPages->PageHeight(), 2970);
}

}  // namespace

}  // namespace kelvane::output_test
