// SheetPages: a sheet laid out on pages. Only where each page begins is kept; what stands on a page
// is made when it is asked for.
//
// From the top: title and header items, the columns' titles, rows, the footer items right under the
// rows, and the page's number at the lower margin. A row stays on one page unless it is higher than
// one. Columns that do not fit the paper side by side follow on the next pages.
#pragma once

#include <vector>

#include "adapters/output/layout/page_head.h"
#include "adapters/output/layout/sheet.h"
#include "adapters/output/layout/table_columns.h"
#include "adapters/output/layout/table_rows.h"
#include "adapters/output/layout/table_strip.h"
#include "platform/page.h"

namespace kelvane::output {

class SheetPages final : public platform::PageSource {
public:
    // `measurer` outlives the pages; the sheet's rows must not change meanwhile. Throws
    // std::invalid_argument for a sheet without shown columns or with unusable settings.
    SheetPages(Sheet sheet, TextMeasurer& measurer);
    SheetPages(const SheetPages&) = delete;
    SheetPages& operator=(const SheetPages&) = delete;

    std::string Title() const override { return mSheet.title; }
    int PageWidth() const override { return output::PageWidth(mSheet.settings); }
    int PageHeight() const override { return output::PageHeight(mSheet.settings); }
    int PageCount() const override { return static_cast<int>(mStarts.size() * mGroups.size()); }
    platform::Page MakePage(int number) const override;

private:
    // The first row of a page, and the first of its lines that was not on the page before.
    struct Start {
        int row;
        int line;
    };

    void BreakIntoPages();
    int CountLines(TableRows& rows) const;
    int TableTop(bool withHead) const;
    int RoomForRows(bool withHead) const;
    bool HasHead(std::size_t start) const { return start == 0 || mSheet.settings.repeatHead; }
    void AppendTitles(TableStrip& strip, TableRows& rows) const;
    void AppendRows(TableStrip& strip, TableRows& rows, std::size_t start) const;

    Sheet mSheet;
    TextMeasurer& mMeasurer;
    std::vector<ColumnGroup> mGroups;
    TextBlock mHead;
    TextBlock mFoot;
    int mTitlesLines = 1;
    int mTitlesHeight = 0;
    std::vector<Start> mStarts;
};

}  // namespace kelvane::output
