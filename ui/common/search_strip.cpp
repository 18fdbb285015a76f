#include "ui/common/search_strip.h"

#include <algorithm>
#include <utility>

#include "controls/place.h"
#include "platform/text_search.h"

namespace kelvane::ui {

using platform::Key;
using platform::TextSearch;

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kLabelWidth = 480;
constexpr int kFieldWidth = 2280;
constexpr int kFieldHeight = 345;
constexpr int kGap = 45;

constexpr const char* kKeys = "Enter 下一处，Shift+Enter 上一处，Esc 关闭查找。";

}  // namespace

const char* NoteOfWrap(int step) {
    return step > 0 ? "已到末尾，从头继续查找。" : "已到开头，从末尾继续查找。";
}

SearchStrip::SearchStrip(controls::Form& form, controls::Grid& grid,
                         std::function<bool(int row, int col)> goTo)
    : lblSearch(form, "lblSearch"),
      txtSearch(form, "txtSearch"),
      cmdCloseSearch(form, "cmdCloseSearch"),
      mForm(form),
      mGrid(grid),
      mGoTo(std::move(goTo)) {
    lblSearch.SetCaption("查找");
    cmdCloseSearch.SetCaption("×");
    cmdCloseSearch.SetCancel(true);
    txtSearch.Change = [this] { Typed(); };
    cmdCloseSearch.Click = [this] { Close(); };
    for (controls::Control* control :
         {static_cast<controls::Control*>(&lblSearch), static_cast<controls::Control*>(&txtSearch),
          static_cast<controls::Control*>(&cmdCloseSearch)}) {
        control->SetVisible(false);
    }
}

void SearchStrip::Place(int top, int height) {
    const int inner = top + (height - kFieldHeight) / 2;
    const int field = kMargin + kLabelWidth;
    PlaceControl(lblSearch, kMargin, inner, kLabelWidth, kFieldHeight);
    PlaceControl(txtSearch, field, inner, kFieldWidth, kFieldHeight);
    PlaceControl(cmdCloseSearch, field + kFieldWidth + kGap, inner, kFieldHeight, kFieldHeight);
}

bool SearchStrip::HasKeyboard() const {
    return mOpen && mForm.ActiveControl() == &txtSearch;
}

void SearchStrip::Open() {
    if (!mOpen) {
        mLooking = false;
        mOpen = true;
        txtSearch.SetText("");
        mNote = kKeys;
        lblSearch.SetVisible(true);
        txtSearch.SetVisible(true);
        cmdCloseSearch.SetVisible(true);
    }
    txtSearch.SetFocus();
}

void SearchStrip::Close() {
    if (!mOpen) return;
    mOpen = false;
    LookBack();
    mGrid.MarkFound(0, 0);
    mNote.clear();
    mGrid.SetFocus();
    lblSearch.SetVisible(false);
    txtSearch.SetVisible(false);
    cmdCloseSearch.SetVisible(false);
}

// What is typed on finds in the same place as long as it is there.
void SearchStrip::Typed() {
    if (!mOpen) return;
    mNote = kKeys;
    if (TextSearch(txtSearch.Text()).IsEmpty()) {
        LookBack();
        mGrid.MarkFound(0, 0);
        return;
    }
    Show(Find({std::max(mGrid.Row(), mGrid.FixedRows()), mGrid.Col()}, 1, true));
}

void SearchStrip::LookBack() {
    const bool looking = std::exchange(mLooking, false);
    // Rows that have moved meanwhile took the mark away, and stand elsewhere now.
    if (!looking || mGrid.FoundRow() == 0) return;
    mGrid.SetTopRow(mTopRow);
    mGrid.SetLeftCol(mLeftCol);
}

void SearchStrip::Show(const Cell& cell) {
    if (cell.row == 0) LookBack();
    mGrid.MarkFound(cell.row, cell.col);
    if (cell.row == 0) {
        mNote = "没有找到“" + txtSearch.Text() + "”。";
        if (mGrid.IsFiltered()) mNote += "筛选掉的行没有查找。";
        return;
    }
    mNote = cell.wrapped ? NoteOfWrap(1) : kKeys;
    if (!mLooking) {
        mTopRow = mGrid.TopRow();
        mLeftCol = mGrid.LeftCol();
        mLooking = true;
    }
    mGrid.ShowCell(cell.row, cell.col);
}

SearchStrip::Cell SearchStrip::Find(Cell from, int step, bool there) const {
    TextSearch search(txtSearch.Text());
    const int first = mGrid.FixedRows();
    const int count = mGrid.Rows() - first;
    const auto isHit = [&](int row, int col) {
        return mGrid.ColumnWidth(col) > 0 && search.Finds(mGrid.Text(row, col));
    };
    // The row where it begins is looked at in two parts, its other part last.
    for (int passed = 0; passed <= count && count > 0; ++passed) {
        const int place = from.row - first + step * passed;
        const int row = first + (place + count) % count;
        if (mGrid.RowHeight(row) == 0 || !search.Finds(mGrid.RowCells(row))) continue;
        int col = step > 0 ? mGrid.FixedCols() : mGrid.Cols() - 1;
        if (passed == 0) col = there ? from.col : from.col + step;
        const int end = step > 0 ? mGrid.Cols() : mGrid.FixedCols() - 1;
        for (; col != end; col += step) {
            if (isHit(row, col)) return {row, col, place < 0 || place >= count};
        }
    }
    return {};
}

void SearchStrip::GoOn(int step) {
    if (TextSearch(txtSearch.Text()).IsEmpty()) return;
    Cell next{mGrid.FoundRow(), mGrid.FoundCol()};
    const bool gone = next.row == mGrid.Row() && next.col == mGrid.Col();
    const bool takesShown = next.row > 0 && !gone && step > 0;
    if (!takesShown) {
        if (next.row == 0) next = {std::max(mGrid.Row(), mGrid.FixedRows()), mGrid.Col()};
        next = Find(next, step, false);
        Show(next);
        if (next.row > 0 && next.wrapped && step < 0) mNote = NoteOfWrap(step);
    }
    if (next.row == 0) return;
    const std::string note = mNote;
    if (!mGoTo(next.row, next.col)) {
        // The message was about the current row, where the operator goes on.
        Close();
        return;
    }
    mLooking = false;
    mGrid.MarkFound(next.row, next.col);
    mNote = note;
    if (mOpen) txtSearch.SetFocus();
}

bool SearchStrip::TakeKey(Key key, int shift) {
    if (!HasKeyboard()) return false;
    if (key == Key::Enter && (shift == 0 || shift == platform::kShift)) {
        GoOn(shift == 0 ? 1 : -1);
        return true;
    }
    if ((key != Key::Down && key != Key::Up) || shift != 0) return false;
    const bool isThere = mGrid.FoundRow() == mGrid.Row() && mGrid.FoundCol() == mGrid.Col();
    if (mGrid.FoundRow() > 0 && !isThere) GoOn(1);
    Close();
    return true;
}

}  // namespace kelvane::ui
