#include "adapters/output/layout/document_pages.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

#include "adapters/output/layout/page_head.h"
#include "adapters/output/layout/readable_text.h"

namespace kelvane::output {

using platform::Page;

namespace {

constexpr int kPartGap = 45;
constexpr int kHeadingGap = 12;
constexpr int kHeadingSize = 105;
constexpr int kTitleHeight = 190;

// The part as a sheet, whose rows are read one by one.
Sheet SheetOf(const PageSettings& settings, const DocumentPart& part) {
    Sheet sheet;
    sheet.settings = settings;
    sheet.table = {0, 0};
    sheet.columns = part.columns;
    sheet.rows = static_cast<int>(part.rows.size());
    sheet.cells = [&part](int row) {
        std::string cells;
        for (const std::string& text : part.rows[static_cast<std::size_t>(row)]) {
            cells.append(ReadableUtf8(text)).append(1, '\t');
        }
        if (!cells.empty()) cells.pop_back();
        return cells;
    };
    return sheet;
}

}  // namespace

class DocumentPages::Laying {
public:
    Laying(DocumentPages& pages, TextMeasurer& measurer)
        : mSettings(pages.mDocument.settings), mPages(pages.mPages), mMeasurer(measurer) {}

    void Run(const Document& document) {
        BeginPage();
        Sheet title;
        title.settings = mSettings;
        title.title = ReadableUtf8(document.title);
        title.titleEnd = {0, kTitleHeight};
        title.table = {0, 0};
        TextBlock head = MakeHead(title, mMeasurer);
        for (platform::PageText& text : head.texts) {
            text.box.top += mTop;
            mPages.back().texts.push_back(std::move(text));
        }
        mTop += head.height;
        for (const DocumentPart& part : document.parts) LayPart(part);
    }

private:
    void BeginPage() {
        mPages.emplace_back();
        mTop = mSettings.marginTop;
        mFresh = true;
    }
    int Bottom() const {
        return output::PageHeight(mSettings) - mSettings.marginBottom - kPageNumberHeight;
    }
    int PageRoom() const { return Bottom() - mSettings.marginTop; }

    void LayPart(const DocumentPart& part);
    void LayHeading(const std::string& heading);
    void LayRow(TableRows& rows, int row);
    void BeginTable(TableRows& rows);
    void EndTable();
    void GoOnOnNextPage(TableRows& rows, int row);
    int HeightOf(const TableRows& rows, int lines) const {
        return std::max(mPart->rowHeight, rows.HeightOf(lines));
    }

    const PageSettings& mSettings;
    std::vector<Page>& mPages;
    TextMeasurer& mMeasurer;
    int mTop = 0;
    bool mFresh = true;  // no part stands on the page
    // The part that is being laid out.
    const DocumentPart* mPart = nullptr;
    const ColumnGroup* mGroup = nullptr;
    int mTitleLines = 0;
    int mTitlesHeight = 0;
    std::optional<TableStrip> mStrip;
};

void DocumentPages::Laying::LayHeading(const std::string& heading) {
    if (heading.empty()) return;
    const std::string text = ReadableUtf8(heading);
    const int width = PrintableWidth(mSettings);
    mPages.back().texts.push_back(
        {.text = text,
         .box = {mSettings.marginLeft, mTop, width, LineHeight(kHeadingSize)},
         .size = FittingSize(text, {kHeadingSize, true}, width, mMeasurer),
         .bold = true});
    mTop += LineHeight(kHeadingSize) + kHeadingGap;
}

void DocumentPages::Laying::LayPart(const DocumentPart& part) {
    const Sheet sheet = SheetOf(mSettings, part);
    const auto groups = PlaceColumns(sheet);
    if (groups.size() != 1) throw std::invalid_argument("columns that do not fit the page");
    mPart = &part;
    mGroup = &groups.front();
    TableRows rows(sheet, mMeasurer);
    rows.Read(TableRows::kTitles);
    mTitleLines = rows.CountLines(*mGroup);
    mTitlesHeight = part.hasTitles ? rows.HeightOf(mTitleLines) : 0;

    // A heading stays with the first of its rows.
    int needed = mTitlesHeight;
    if (!part.heading.empty()) needed += LineHeight(kHeadingSize) + kHeadingGap;
    const int together = part.whole ? sheet.rows : std::min(sheet.rows, 1);
    for (int row = 0; row < together; ++row) {
        rows.Read(row);
        needed += HeightOf(rows, rows.CountLines(*mGroup));
    }
    if (!mFresh) mTop += kPartGap;
    if (!mFresh && mTop + needed > Bottom() && needed <= PageRoom()) BeginPage();
    LayHeading(part.heading);
    mFresh = false;
    if (sheet.rows == 0 && !part.hasTitles) return;
    BeginTable(rows);
    for (int row = 0; row < sheet.rows; ++row) LayRow(rows, row);
    EndTable();
}

void DocumentPages::Laying::BeginTable(TableRows& rows) {
    mStrip.emplace(mPages.back(), *mGroup, mTop);
    if (!mPart->hasTitles) return;
    rows.Read(TableRows::kTitles);
    mStrip->AppendTitles(rows, mTitleLines);
}

void DocumentPages::Laying::EndTable() {
    mStrip->Close();
    mTop = mStrip->End();
    mStrip.reset();
}

void DocumentPages::Laying::GoOnOnNextPage(TableRows& rows, int row) {
    EndTable();
    BeginPage();
    BeginTable(rows);
    rows.Read(row);
}

void DocumentPages::Laying::LayRow(TableRows& rows, int row) {
    rows.Read(row);
    const int lines = rows.CountLines(*mGroup);
    const int height = HeightOf(rows, lines);
    if (mStrip->End() + height > Bottom() && mTitlesHeight + height <= PageRoom()) {
        GoOnOnNextPage(rows, row);
    }
    for (int line = 0; line < lines;) {
        // One that is higher than a page takes at least a line of each.
        int fitting = lines - line;
        while (fitting > 1 && mStrip->End() + rows.HeightOf(fitting) > Bottom()) --fitting;
        const bool isLast = line + fitting == lines;
        mStrip->AppendRow(rows, line, fitting, isLast ? mPart->rowHeight : 0);
        line += fitting;
        if (!isLast) GoOnOnNextPage(rows, row);
    }
}

DocumentPages::DocumentPages(Document document, TextMeasurer& measurer)
    : mDocument(std::move(document)) {
    if (!IsUsable(mDocument.settings)) throw std::invalid_argument("unusable page settings");
    Laying(*this, measurer).Run(mDocument);
}

Page DocumentPages::MakePage(int number) const {
    if (number < 1 || number > PageCount()) {
        throw std::out_of_range("no page " + std::to_string(number));
    }
    Page page = mPages[static_cast<std::size_t>(number - 1)];
    page.texts.push_back(MakePageNumber(mDocument.settings, number, PageCount()));
    return page;
}

}  // namespace kelvane::output
