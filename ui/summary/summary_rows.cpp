// The groups in the window's list: subtotals and the grand total stand out by their colours.
#include <algorithm>

#include "data/login_context.h"
#include "ui/common/flag_scope.h"
#include "ui/common/list_layout.h"
#include "ui/summary/summary_window.h"

namespace kelvane::ui {

using controls::Alignment;
using controls::Color;
using entries::SummaryRow;

namespace {

// Measures in twips.
constexpr int kLeastText = 1000;
constexpr int kGreatestText = 4500;
constexpr int kLeastFigure = 1000;

constexpr Color kSubtotalColor = controls::Rgb(255, 247, 222);
constexpr Color kTotalColor = controls::Rgb(255, 232, 180);

}  // namespace

std::string frmSummary::Title() const {
    const std::string names = mChoice.Names();
    return "期初汇总" + (names.empty() ? "" : "（按" + names + "）");
}

void frmSummary::ShowChoice() {
    const FlagScope showing(mIsShowingChoice);
    for (std::size_t place = 0; place < mFields.size(); ++place) {
        mFields[place]->SetText(std::string(mChoice.NameAt(place)));
    }
}

void frmSummary::SummarizeAgain() {
    mSummary.reset();
    SetNotice("");
    try {
        mSummary = entries::SummarizeAccount(mChoice.Fields());
    } catch (...) {
        data::ReportTrapped("SummarizeAccount");
    }
    ShowSummary();
}

void frmSummary::ShowSummary() {
    LayOut();
    const std::size_t rows = mSummary ? mSummary->rows.size() : 0;
    for (std::size_t at = 0; at < rows; ++at) AppendRow(at);
    const int texts =
        mSummary ? static_cast<int>(entries::SummaryTextColumns(*mSummary)) : GridSummary.Cols();
    for (int col = 0; col < GridSummary.Cols(); ++col) {
        // A figure is never cut short.
        const bool isText = col < texts;
        FitWholeColumn(GridSummary, col, isText ? kLeastText : kLeastFigure,
                       isText ? kGreatestText : 0);
    }
    Printing.CaptureLayout();
    if (rows > 0) GridSummary.MoveTo(1, 0);
    GridSummary.SetLeftCol(0);
    ShowCounts();
    AllowCommands();
}

void frmSummary::LayOut() {
    std::vector<ListColumn> columns;
    const auto titles = mSummary ? entries::SummaryTitles(*mSummary) : std::vector<std::string>{""};
    const std::size_t texts = mSummary ? entries::SummaryTextColumns(*mSummary) : 0;
    for (const std::string& title : titles) {
        const std::size_t col = columns.size();
        ListColumn column{static_cast<int>(col), title.c_str(), kLeastText};
        if (col >= texts) {
            // The count of entries stands in front of the amounts.
            const int decimals = col == texts ? 0 : 2;
            column.alignment = Alignment::Right;
            column.input = {controls::InputKind::Number, 0, decimals, true};
        }
        columns.push_back(column);
    }
    LayOutShownList(GridSummary, columns);
}

void frmSummary::AppendRow(std::size_t at) {
    const SummaryRow& row = mSummary->rows[at];
    const int shown = GridSummary.AddItem(CellsOf(entries::SummaryTexts(*mSummary, row)));
    GridSummary.SetRowData(shown, static_cast<int>(at));
    // Without fields there are no groups that a total would have to be told from.
    if (mSummary->fields.empty() || row.values.size() == mSummary->fields.size()) return;
    const Color color = row.values.empty() ? kTotalColor : kSubtotalColor;
    for (int col = 0; col < GridSummary.Cols(); ++col) {
        GridSummary.SetCellColor(shown, col, color);
    }
}

void frmSummary::ShowCounts() {
    std::string text = "没有汇总出来。";
    if (mSummary) {
        const auto groups = std::ranges::count_if(mSummary->rows, [this](const SummaryRow& row) {
            return row.values.size() == mSummary->fields.size();
        });
        const std::size_t entries = mSummary->rows.empty() ? 0 : mSummary->rows.back().entries;
        text = "期初 " + std::to_string(entries) + " 行";
        if (!mSummary->fields.empty()) {
            text += "，按" + mChoice.Names() + "分为 " + std::to_string(groups) + " 组";
        }
        text += "。";
        for (const std::string& note : mSummary->notes) text += note + "。";
    }
    lblCounts.SetCaption(text);
}

const SummaryRow* frmSummary::Current() const {
    const int row = GridSummary.Row();
    if (!mSummary || row < 1 || row >= GridSummary.Rows()) return nullptr;
    const auto at = static_cast<std::size_t>(GridSummary.RowData(row));
    return at < mSummary->rows.size() ? &mSummary->rows[at] : nullptr;
}

std::string frmSummary::NameOf(const SummaryRow& row) const {
    std::string name;
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        const entries::SummaryValue& value = row.values[i];
        if (i > 0) name += "，";
        name += std::string(mChoice.NameAt(i)) + " " + value.code;
        if (!value.name.empty()) name += " " + value.name;
    }
    return name.empty() ? "全部" : name;
}

}  // namespace kelvane::ui
