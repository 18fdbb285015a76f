// Both sides of each account in the window's list: what differs, and what nobody compared, stand
// out by their colours. What was refused or noticed in the tables is a list of its own.
#include <array>
#include <utility>

#include "data/login_context.h"
#include "platform/native_path.h"
#include "ui/common/list_layout.h"
#include "ui/summary/tie_out_window.h"

namespace kelvane::ui {

using controls::Alignment;
using entries::TieOutLine;
using entries::TieOutOutcome;

namespace {

// Measures in twips.
constexpr int kLeastText = 1000;
constexpr int kGreatestText = 3900;
constexpr int kLeastFigure = 1000;
// The count of entries stands among the amounts.
constexpr std::size_t kCountColumn = 5;

constexpr controls::Color kDiffersColor = controls::Rgb(255, 214, 206);
constexpr controls::Color kUnmappedColor = controls::Rgb(255, 243, 200);

std::string FileNameOf(const std::string& path) {
    return platform::Utf8Of(platform::PathOf(path).filename());
}

}  // namespace

void frmTieOut::Fill() {
    const bool isTold = mShowsNotes || mRefused > 0;
    if (isTold) {
        FillTold();
    } else {
        FillLines();
    }
    FitColumns(isTold ? 0 : entries::kTieOutTextColumns);
    Printing.CaptureLayout();
    if (GridTieOut.Rows() > 1) GridTieOut.MoveTo(1, 0);
    GridTieOut.SetLeftCol(0);
    ShowCounts();
    AllowCommands();
}

void frmTieOut::FillLines() {
    const std::vector<std::string> titles = entries::TieOutTitles();
    std::vector<ListColumn> columns;
    for (std::size_t col = 0; col < titles.size(); ++col) {
        ListColumn column{static_cast<int>(col), titles[col].c_str(), kLeastText};
        if (col >= entries::kTieOutTextColumns) {
            column.alignment = Alignment::Right;
            column.input = {controls::InputKind::Number, 0, col == kCountColumn ? 0 : 2, true};
        }
        columns.push_back(column);
    }
    LayOutShownList(GridTieOut, columns);
    for (std::size_t at = 0; at < mLines.size(); ++at) {
        const TieOutLine& line = mLines[at];
        if (mIsOpenOnly && line.outcome == TieOutOutcome::Agrees) continue;
        const int row = GridTieOut.AddItem(CellsOf(line.texts));
        // No row is like one that was never saved, which has the data 0.
        GridTieOut.SetRowData(row, static_cast<int>(at) + 1);
        if (line.outcome == TieOutOutcome::Agrees) continue;
        const bool isRow = line.outcome <= TieOutOutcome::LedgerLacksAccount;
        for (int col = 0; col < GridTieOut.Cols(); ++col) {
            GridTieOut.SetCellColor(row, col, isRow ? kDiffersColor : kUnmappedColor);
        }
    }
}

void frmTieOut::FillTold() {
    constexpr std::array kColumns{ListColumn{0, "位置", kLeastText},
                                  ListColumn{1, "内容", kLeastText}};
    LayOutShownList(GridTieOut, {kColumns.begin(), kColumns.end()});
    for (std::size_t at = 0; at < mTold.size(); ++at) {
        const int row = GridTieOut.AddItem(CellsOf({mTold[at].place, mTold[at].text}));
        GridTieOut.SetRowData(row, static_cast<int>(at) + 1);
        if (at < mRefused) GridTieOut.MarkFault(row, 1, true);
    }
}

// Figures and what is told of the tables are never cut short.
void frmTieOut::FitColumns(std::size_t texts) {
    for (int col = 0; col < GridTieOut.Cols(); ++col) {
        const bool isText = std::cmp_less(col, texts);
        FitWholeColumn(GridTieOut, col, isText ? kLeastText : kLeastFigure,
                       isText ? kGreatestText : 0);
    }
}

void frmTieOut::ShowCounts() {
    lblFiles.SetCaption("余额表 " + FileNameOf(mTrial) + "，对应表 " + FileNameOf(mMap));
    std::string text = "没有核对出来。";
    if (mRefused > 0) {
        text = "表格中有 " + std::to_string(mRefused) + " 处不能使用，没有核对。改好后请重新核对。";
    } else if (mResult) {
        const std::size_t rows = mResult->rows.size();
        const std::size_t differing = mResult->Differing();
        text = "科目 " + std::to_string(rows) + " 个，相符 " + std::to_string(rows - differing) +
               " 个，不符 " + std::to_string(differing) + " 个；未对应期初 " +
               std::to_string(mResult->unmapped.size()) + " 笔，合计 " +
               mResult->unmappedSum.DisplayText() + "；未对应科目 " +
               std::to_string(mResult->unmappedAccounts.size()) + " 个。";
    }
    lblCounts.SetCaption(text);
}

void frmTieOut::AllowCommands() {
    const std::string count = std::to_string(mTold.size());
    cmdOpen.SetCaption(mIsOpenOnly ? "看所有的" : "只看不符");
    cmdNotes.SetCaption(mShowsNotes     ? "核对结果"
                        : mTold.empty() ? "表格说明"
                                        : "表格说明（" + count + "）");
    cmdNotes.SetEnabled(mResult && !mTold.empty());
    cmdOpen.SetEnabled(mResult.has_value());
    cmdSign.SetEnabled(mResult && data::gServices->writeSignOff);
    const bool hasLines = Current() != nullptr;
    cmdShow.SetEnabled(hasLines);
    cmdAll.SetEnabled(hasLines);
    Printing.Allow(GridTieOut.Rows() > 1);
}

const TieOutLine* frmTieOut::Current() const {
    const int row = GridTieOut.Row();
    if (!mResult || mShowsNotes || row < 1 || row >= GridTieOut.Rows()) return nullptr;
    const auto at = static_cast<std::size_t>(GridTieOut.RowData(row)) - 1;
    return at < mLines.size() ? &mLines[at] : nullptr;
}

std::string frmTieOut::NameOf(const TieOutLine& line) const {
    if (line.outcome == TieOutOutcome::UnmappedEntry) return line.texts[2] + " " + line.texts[3];
    const std::string& name = line.texts[1];
    return "科目 " + line.texts[0] + (name.empty() ? "" : " " + name);
}

std::vector<std::int64_t> frmTieOut::EntriesOf(const TieOutLine& line) const {
    switch (line.outcome) {
        case TieOutOutcome::UnmappedEntry:
            return {mResult->unmapped[line.at].identity};
        case TieOutOutcome::UnmappedAccount:
            return {};
        default:
            return mResult->rows[line.at].identities;
    }
}

std::string frmTieOut::Hint() const {
    if (const TieOutLine* line = Current()) {
        const bool isEntry = line->outcome == TieOutOutcome::UnmappedEntry;
        return NameOf(*line) + " " + line->texts[isEntry ? 1 : 2];
    }
    const int row = GridTieOut.Row();
    return row >= 1 && row < GridTieOut.Rows() && GridTieOut.Cols() == 2 ? GridTieOut.Text(row, 1)
                                                                         : "";
}

std::string frmTieOut::Figures() const {
    if (GridTieOut.Row() < 1) return {};
    return "第 " + std::to_string(GridTieOut.Row()) + " 行，共 " +
           std::to_string(GridTieOut.Rows() - 1) + " 行";
}

}  // namespace kelvane::ui
