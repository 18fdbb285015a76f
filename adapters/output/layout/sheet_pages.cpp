#include "adapters/output/layout/sheet_pages.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace kelvane::output {

using platform::Page;
using platform::PageAlignment;
using platform::PageText;

namespace {

constexpr int kPageNumberHeight = 60;
constexpr int kPageNumberSize = 80;
constexpr std::uint32_t kTitlesColor = 0xEDEDED;

void Append(std::vector<PageText>& texts, const TextBlock& block, int top) {
    for (PageText text : block.texts) {
        text.box.top += top;
        texts.push_back(std::move(text));
    }
}

}  // namespace

// The part of a page's table that is being made.
struct SheetPages::Strip {
    Page& page;
    const ColumnGroup& group;
    int top;
    int end;  // of the rows so far

    int Left() const { return group.front().left; }
    int Right() const { return group.back().left + group.back().width; }
    void Rule(int at) { page.lines.push_back({Left(), at, Right(), at}); }
};

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
    Strip strip{page, mGroups[index % mGroups.size()], top, top};
    TableRows rows(mSheet, mMeasurer);
    strip.Rule(top);
    if (withHead) AppendTitles(strip, rows);
    AppendRows(strip, rows, start);
    for (const PlacedColumn& column : strip.group) {
        page.lines.push_back({column.left, strip.top, column.left, strip.end});
    }
    page.lines.push_back({strip.Right(), strip.top, strip.Right(), strip.end});
    Append(page.texts, mFoot, strip.end);
    AppendPageNumber(page, number);
    return page;
}

void SheetPages::AppendTitles(Strip& strip, TableRows& rows) const {
    rows.Read(TableRows::kTitles);
    strip.page.areas.push_back(
        {{strip.Left(), strip.end, strip.Right() - strip.Left(), mTitlesHeight}, kTitlesColor});
    AppendRow(strip, rows, 0, mTitlesLines);
}

// The rows from the start of one page to that of the next.
void SheetPages::AppendRows(Strip& strip, TableRows& rows, std::size_t start) const {
    const Start begin = mStarts[start];
    const Start end = start + 1 < mStarts.size() ? mStarts[start + 1] : Start{mSheet.rows, 0};
    for (int row = begin.row; row < end.row || (row == end.row && end.line > 0); ++row) {
        rows.Read(row);
        const int first = row == begin.row ? begin.line : 0;
        const int last = row == end.row ? end.line : CountLines(rows);
        AppendRow(strip, rows, first, last - first);
    }
}

// `lines` lines of the read row, from `firstLine` on.
void SheetPages::AppendRow(Strip& strip, const TableRows& rows, int firstLine, int lines) const {
    const int height = rows.HeightOf(lines);
    const int lineHeight = LineHeight(rows.Letter().size);
    const bool titles = strip.end == strip.top && rows.Letter().bold;
    for (const PlacedColumn& column : strip.group) {
        const CellLines cell = rows.Cell(column);
        const int all = static_cast<int>(cell.lines.size());
        const int shown = std::clamp(all - firstLine, 0, lines);
        int top = strip.end + kCellMarginY;
        if (titles) top += (lines - shown) * lineHeight / 2;
        for (int line = firstLine; line < firstLine + shown; ++line, top += lineHeight) {
            const std::string_view text = cell.lines[static_cast<std::size_t>(line)];
            if (text.empty()) continue;
            strip.page.texts.push_back(
                {.text = std::string(text),
                 .box = {column.left + kCellMarginX, top, column.width - 2 * kCellMarginX,
                         lineHeight},
                 .alignment = titles ? PageAlignment::Center : column.alignment,
                 .size = cell.size,
                 .bold = rows.Letter().bold});
        }
    }
    strip.end += height;
    strip.Rule(strip.end);
}

void SheetPages::AppendPageNumber(Page& page, int number) const {
    const PageSettings& settings = mSheet.settings;
    page.texts.push_back(
        {.text = "第 " + std::to_string(number) + " 页 共 " + std::to_string(PageCount()) + " 页",
         .box = {settings.marginLeft,
                 PageHeight() - settings.marginBottom - kPageNumberHeight / 2 -
                     LineHeight(kPageNumberSize) / 2,
                 PrintableWidth(settings), LineHeight(kPageNumberSize)},
         .alignment = PageAlignment::Center,
         .size = kPageNumberSize});
}

}  // namespace kelvane::output
