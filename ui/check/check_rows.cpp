// The findings in the window's list, and what is said of them around it.
#include <algorithm>
#include <array>
#include <utility>

#include "data/login_context.h"
#include "entries/failure_reason.h"
#include "ui/check/check_window.h"
#include "ui/common/list_layout.h"
#include "ui/common/wrapped_text.h"

namespace kelvane::ui {

using controls::Alignment;
using entries::CheckFinding;

namespace {

// Measures in twips.
constexpr int kLeastTextWidth = 5700;

struct CheckLayout {
    int width;
    Alignment alignment;
    controls::ColumnInput input = {};
};

// In the order of the columns.
constexpr std::array kLayout{
    CheckLayout{1000, Alignment::Right, {controls::InputKind::Number, 0}},
    CheckLayout{700, Alignment::Center},
    CheckLayout{2000, Alignment::Left},
    CheckLayout{1700, Alignment::Left},
    CheckLayout{kLeastTextWidth, Alignment::Left},
};

}  // namespace

void frmCheck::LayOut() {
    mViews.Forget();
    const std::vector<std::string> titles = entries::CheckTitles();
    std::vector<ListColumn> columns;
    for (std::size_t col = 0; col < kLayout.size(); ++col) {
        const CheckLayout& layout = kLayout[col];
        columns.push_back({static_cast<int>(col), titles.at(col).c_str(), layout.width,
                           layout.alignment, layout.input});
    }
    LayOutShownList(GridFindings, columns);
}

// The list of an earlier check is gone even when this one fails.
void frmCheck::CheckAgain() {
    if (const CheckFinding* finding = Current()) {
        mLastIdentity = finding->identity;
        mLastText = finding->finding.text;
    }
    mResult = {};
    mIsChecked = false;
    try {
        mResult = entries::CheckAccount();
        mIsChecked = true;
        SetNotice("");
    } catch (...) {
        data::ReportTrapped("CheckAccount");
        SetNotice("检查时出错，没有检查完。" + entries::ReasonOfFailure());
    }
    Fill();
}

void frmCheck::Fill() {
    mViews.Unfilter();
    mViews.Unsort();
    ClearRows(GridFindings);
    for (std::size_t i = 0; i < mResult.findings.size(); ++i) {
        const CheckFinding& finding = mResult.findings[i];
        const int row = GridFindings.AddItem(CellsOf(entries::CheckTexts(finding)));
        // No row is like one that was never saved, which has the data 0.
        GridFindings.SetRowData(row, static_cast<int>(i) + 1);
        if (!entries::IsWarning(finding.finding.rule)) {
            GridFindings.MarkFault(row, kCheckSeverity, true);
        }
    }
    FitText();
    if (const int row = RowToBegin(); row > 0) GridFindings.MoveTo(row, kCheckIdentity);
    cmdGo.SetEnabled(!mResult.findings.empty());
    cmdErrors.SetEnabled(mResult.errors > 0);
    NameErrorsButton();
    ShowCounts();
    ShowText();
}

// As wide as its longest text, and at least as the window has room for; a width that the operator
// gave the column stays.
void frmCheck::FitText() {
    if (GridFindings.IsColumnResized(kCheckText)) return;
    int room = GridFindings.ViewWidth();
    for (int col = 0; col < kCheckText; ++col) room -= GridFindings.ColumnWidth(col);
    FitWholeColumn(GridFindings, kCheckText, std::max(room, kLeastTextWidth), 0);
}

int frmCheck::RowToBegin() const {
    const int count = GridFindings.Rows() - 1;
    for (int row = 1; row <= count; ++row) {
        const CheckFinding& finding = mResult.findings[static_cast<std::size_t>(row) - 1];
        if (finding.identity > mLastIdentity) return row;
        if (finding.identity == mLastIdentity && finding.finding.text == mLastText) return row;
    }
    return count > 0 ? 1 : 0;
}

const CheckFinding* frmCheck::Current() const {
    const int row = GridFindings.Row();
    if (row < 1 || row >= GridFindings.Rows()) return nullptr;
    const auto at = static_cast<std::size_t>(GridFindings.RowData(row)) - 1;
    return at < mResult.findings.size() ? &mResult.findings[at] : nullptr;
}

void frmCheck::ShowCounts() {
    std::string text = "没有检查成。";
    if (mIsChecked) {
        text = "共检查期初 " + std::to_string(mResult.entries) + " 行：";
        text += mResult.findings.empty() ? "没有发现问题。"
                                         : "错误 " + std::to_string(mResult.errors) + " 处，警告 " +
                                               std::to_string(mResult.warnings) + " 处。";
    }
    lblCounts.SetCaption(text);
}

void frmCheck::ShowText() {
    const std::array labels{&lblText1, &lblText2, &lblText3};
    const CheckFinding* finding = Current();
    const auto lines = finding == nullptr
                           ? std::vector<std::string>()
                           : WrapText(finding->finding.text, lblText1.Width(), labels.size());
    for (std::size_t i = 0; i < labels.size(); ++i) {
        labels[i]->SetCaption(i < lines.size() ? lines[i] : "");
    }
}

void frmCheck::NameErrorsButton() {
    cmdErrors.SetCaption(GridFindings.IsFiltered() ? "看所有的" : "只看错误");
}

}  // namespace kelvane::ui
