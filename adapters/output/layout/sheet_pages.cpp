#include "adapters/output/layout/sheet_pages.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace kelvane::output {

using platform::Page;
using platform::PageText;

namespace {

void Append(std::vector<PageText>& texts, const TextBlock& block, int top) {
    for (PageText text : block.texts) {
        text.box.top += top;
        texts.push_back(std::move(text));
    }
}

}  // namespace

SheetPages::SheetPages(Sheet sheet, TextMeasurer& measurer)
    : mSheet(std::move(sheet)), mMeasurer(measurer) {
    if (!IsUsable(mSheet.settings)) throw std::invalid_argument("unusable page settings");
    mGroups = PlaceColumns(mSheet);
    if (mGroups.empty()) throw std::invalid_argument("no column is shown");
    mHead = MakeHead(mSheet, mMeasurer);
    mFoot = MakeFoot(mSheet, mMeasurer);
    TableRows titles(mSheet, mMeasurer);
    titles.Read(TableRows::kTitles);
    mTitlesLines = CountLines(titles);
    mTitlesHeight = titles.HeightOf(mTitlesLines);
    BreakIntoPages();
}

int SheetPages::CountLines(TableRows& rows) const {
    int lines = 1;
    for (const ColumnGroup& group : mGroups) lines = std::max(lines, rows.CountLines(group));
    return lines;
}

int SheetPages::TableTop(bool withHead) const {
    return mSheet.settings.marginTop + (withHead ? mHead.height : 0);
}

// What a page leaves between the columns' titles and the footer items.
int SheetPages::RoomForRows(bool withHead) const {
    const int end = PageHeight() - mSheet.settings.marginBottom - kPageNumberHeight - mFoot.height;
    return end - TableTop(withHead) - (withHead ? mTitlesHeight : 0);
}

void SheetPages::BreakIntoPages() {
    TableRows rows(mSheet, mMeasurer);
    mStarts.push_back({0, 0});
    int free = RoomForRows(true);
    int lineHeight = LineHeight(mSheet.settings.bodySize);
    const int wholePage = RoomForRows(HasHead(1));
    const auto nextPage = [&](int row, int line) {
        mStarts.push_back({row, line});
        free = wholePage;
    };
    for (int row = 0; row < mSheet.rows; ++row) {
        rows.Read(row);
        int lines = CountLines(rows);
        if (rows.HeightOf(lines) > free && rows.HeightOf(lines) <= wholePage) nextPage(row, 0);
        int line = 0;
        while (rows.HeightOf(lines - line) > free) {
            // A page without room for a single line still takes one.
            const bool fresh = mStarts.back().row == row && mStarts.back().line == line;
            const int fitting = (free - 2 * kCellMarginY) / lineHeight;
            line += std::max(fresh ? 1 : 0, fitting);
            if (line >= lines) break;
            nextPage(row, line);
        }
        free -= line >= lines ? free : rows.HeightOf(lines - line);
    }
}

Page SheetPages::MakePage(int number) const {
    if (number < 1 || number > PageCount()) {
        throw std::out_of_range("no page " + std::to_string(number));
    }
    const auto index = static_cast<std::size_t>(number - 1);
    const std::size_t start = index / mGroups.size();
    const bool withHead = HasHead(start);

    Page page;
    if (withHead) Append(page.texts, mHead, mSheet.settings.marginTop);
    const int top = TableTop(withHead);
    TableStrip strip(page, mGroups[index % mGroups.size()], top);
    TableRows rows(mSheet, mMeasurer);
    if (withHead) AppendTitles(strip, rows);
    AppendRows(strip, rows, start);
    strip.Close();
    Append(page.texts, mFoot, strip.End());
    page.texts.push_back(MakePageNumber(mSheet.settings, number, PageCount()));
    return page;
}

void SheetPages::AppendTitles(TableStrip& strip, TableRows& rows) const {
    rows.Read(TableRows::kTitles);
    strip.AppendTitles(rows, mTitlesLines);
}

// The rows from the start of one page to that of the next.
void SheetPages::AppendRows(TableStrip& strip, TableRows& rows, std::size_t start) const {
    const Start begin = mStarts[start];
    const Start end = start + 1 < mStarts.size() ? mStarts[start + 1] : Start{mSheet.rows, 0};
    for (int row = begin.row; row < end.row || (row == end.row && end.line > 0); ++row) {
        rows.Read(row);
        const int first = row == begin.row ? begin.line : 0;
        const int last = row == end.row ? end.line : CountLines(rows);
        strip.AppendRow(rows, first, last - first);
    }
}

}  // namespace kelvane::output
