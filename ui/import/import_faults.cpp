// What is wrong: the marks in the grids, the way from one to the next, and what the lower line
// says.
#include <algorithm>
#include <functional>
#include <utility>

#include "data/login_context.h"
#include "data/number_format.h"
#include "entries/bulk/import.h"
#include "entries/failure_reason.h"
#include "ui/common/list_views.h"
#include "ui/import/import_window.h"
#include "ui/import/work_progress.h"

namespace kelvane::ui {

namespace {

std::string Joined(const std::vector<std::string>& reasons) {
    std::string text;
    for (const std::string& reason : reasons) text += (text.empty() ? "" : "；") + reason;
    return text;
}

}  // namespace

// Rows influence each other, through budgets and numbers: each change checks all of them.
void frmImport::CheckAll() {
    mIsChecked = false;
    try {
        WorkProgress progress(*data::gServices->tableImport, "检查期初");
        mSheet.Check(*mKnown, std::ref(progress));
        mIsChecked = true;
        SetNotice("");
    } catch (const entries::ImportCancelled&) {
        SetNotice("检查已取消，改动任一单元格后重新检查。");
    } catch (...) {
        data::ReportTrapped("ImportEntries");
        SetNotice("检查时出错，不能录入。" + entries::ReasonOfFailure());
    }
    MarkFaults();
    cmdImport.SetEnabled(mIsChecked && mSheet.RefusedRows() == 0 && !mSheet.Entries().empty());
}

void frmImport::MarkFaults() {
    std::size_t shown = 0;
    for (int row = 1; row < GridRows.Rows(); ++row) {
        const bool wrong = MarkRow(row);
        if (wrong) ++shown;
    }
    // A row that a filter had put aside may have become wrong.
    if (GridRows.IsFiltered() && shown < mSheet.RefusedRows()) ShowErrorsOnly(true);
    MarkLineFaults();
}

// True when something in the row is wrong.
bool frmImport::MarkRow(int row) {
    const std::size_t entry = EntryOf(row);
    const bool wrong = mSheet.IsRefused(entry);
    if (!wrong && !GridRows.HasFault(row, 0)) return false;
    GridRows.MarkFault(row, 0, wrong);
    for (int col = 1; col < GridRows.Cols(); ++col) {
        GridRows.MarkFault(row, col, !mSheet.EntryReasons(entry, col).empty());
    }
    return wrong;
}

void frmImport::MarkLineFaults() {
    for (int row = 1; row < GridLines.Rows(); ++row) {
        const auto line = static_cast<std::size_t>(row) - 1;
        bool wrong = false;
        for (int col = GridLines.Cols() - 1; col >= 0; --col) {
            wrong = !mSheet.LineReasons(mShownEntry, line, col).empty() || wrong;
            const bool here =
                col == 0 ? wrong : !mSheet.LineReasons(mShownEntry, line, col).empty();
            GridLines.MarkFault(row, col, here);
        }
    }
}

void frmImport::NameErrorsButton() {
    cmdErrors.SetCaption(GridRows.IsFiltered() ? "看所有的行" : "只看有错的行");
}

void frmImport::ShowErrorsOnly(bool only) {
    if (!FinishEdits()) return;
    const std::size_t entry = CurrentEntry();
    GridRows.UnfilterRows();
    for (int row = 1; row < GridRows.Rows(); ++row) MarkRow(row);
    if (only) {
        // The row that was just put right does not vanish from under the operator's hands.
        GridRows.FilterRows(0, [&](int row) {
            return GridRows.HasFault(row, 0) ||
                   (entry != ImportSheet::kNoEntry && GridRows.Row() == row);
        });
    }
    if (GridRows.Row() == 0 && GridRows.Rows() > 1) GridRows.SetRow(1);
    NameErrorsButton();
    FollowRow();
}

std::vector<frmImport::Fault> frmImport::FaultsOf(int row) const {
    std::vector<Fault> faults;
    const std::size_t entry = EntryOf(row);
    if (entry != ImportSheet::kNoEntry) {
        for (int col = 0; col < GridRows.Cols(); ++col) {
            if (!mSheet.EntryReasons(entry, col).empty()) faults.push_back({0, std::max(col, 1)});
        }
    }
    for (std::size_t line = 0; line < mSheet.Lines(entry).size(); ++line) {
        for (int col = 0; col < GridLines.Cols(); ++col) {
            if (mSheet.LineReasons(entry, line, col).empty()) continue;
            faults.push_back({static_cast<int>(line) + 1, std::max(col, 1)});
        }
    }
    return faults;
}

void frmImport::GoToError(int step) {
    if (!FinishEdits()) return;
    const bool inLines = ActiveControl() == &GridLines;
    const Fault here{inLines ? GridLines.Row() : 0, inLines ? GridLines.Col() : GridRows.Col()};
    const int rows = GridRows.Rows() - 1;
    int row = std::max(GridRows.Row(), 1);
    // The whole round, and the current row a second time for what lies on its other side.
    for (int tried = 0; tried <= rows; ++tried, row = (row - 1 + step + rows) % rows + 1) {
        if (!GridRows.HasFault(row, 0)) continue;
        std::vector<Fault> faults = FaultsOf(row);
        if (step < 0) std::ranges::reverse(faults);
        for (const Fault& fault : faults) {
            const bool isBeyond = step > 0 ? here < fault : fault < here;
            if (tried > 0 || isBeyond) return GoToFault(row, fault);
        }
    }
}

void frmImport::GoToFault(int row, const Fault& fault) {
    GridRows.MoveTo(row, fault.line == 0 ? fault.col : GridRows.Col());
    FollowRow();
    if (fault.line > 0) GridLines.MoveTo(fault.line, fault.col);
    controls::Grid& grid = fault.line > 0 ? GridLines : GridRows;
    if (ActiveControl() != &grid) grid.SetFocus();
}

// Of the current cell, or of the row when the cell is sound.
std::string frmImport::ReasonsHere() const {
    const std::size_t entry = CurrentEntry();
    if (GridRows.Row() < 1) return {};
    const bool inLines = ActiveControl() == &GridLines && GridLines.Row() > 0;
    const auto line = static_cast<std::size_t>(std::max(GridLines.Row(), 1)) - 1;
    const auto reasons = [&](int col) {
        return inLines ? mSheet.LineReasons(entry, line, col) : mSheet.EntryReasons(entry, col);
    };
    const controls::Grid& grid = inLines ? GridLines : GridRows;
    std::string text = Joined(reasons(grid.Col()));
    if (text.empty()) text = Joined(reasons(0));
    if (!text.empty()) return text;
    const std::vector<Fault> faults = FaultsOf(GridRows.Row());
    if (faults.empty()) return {};
    const Fault& first = faults.front();
    if (first.line == 0) {
        return "此行有错：" + GridRows.Text(0, first.col) + "：" +
               Joined(mSheet.EntryReasons(entry, first.col));
    }
    const auto at = static_cast<std::size_t>(first.line) - 1;
    return "明细第 " + std::to_string(first.line) + " 行有错：" + GridLines.Text(0, first.col) +
           "：" + Joined(mSheet.LineReasons(entry, at, first.col));
}

std::string frmImport::Hint() const {
    std::string reasons = ReasonsHere();
    if (!reasons.empty()) return reasons;
    return mIsChecked && mSheet.RefusedRows() == 0 ? "没有错误：按 Ctrl+Enter 录入。"
           : mIsChecked                            ? "按 F8 到下一处错误。"
                                                   : "";
}

std::string frmImport::Figures() const {
    const int rows = GridRows.Rows() - 1;
    std::string figures = GridRows.IsFiltered() ? "筛选 " + ShownRows(GridRows)
                                                : "共 " + std::to_string(rows) + " 行";
    if (GridRows.Row() > 0) figures = "第 " + std::to_string(GridRows.Row()) + " 行，" + figures;
    const auto total = entries::SumOf(mSheet.File());
    const std::string sum = total ? data::DisplayOfMoney(*total) : "超出范围";
    return figures + "   有错 " + std::to_string(mSheet.RefusedRows()) + " 行   合计 " + sum;
}

}  // namespace kelvane::ui
