// What the operator does in the grid: moving, editing, leaving rows.
#include <algorithm>
#include <stdexcept>
#include <utility>

#include "controls/grid.h"
#include "platform/utf8.h"

namespace kelvane::controls {

bool Grid::CanEdit(int row, int col) const {
    const auto ownRows = static_cast<int>(mRows.size());
    return !mReadOnly && row >= mFixedRows && row < ownRows && col >= mFixedCols && col < Cols() &&
           !IsLocked(row, col);
}

bool Grid::RowCanBeEdited(int row) const {
    for (int col = mFixedCols; col < Cols(); ++col) {
        if (CanEdit(row, col)) return true;
    }
    return false;
}

void Grid::SetRow(int row) {
    std::as_const(*this).RowAt(row);
    if (row != mRow) SetCurrent(row, mCol);
}

void Grid::SetCol(int col) {
    ColumnAt(col);
    if (col != mCol || mSelectionEnd != col || mSelection.IsActive()) SetCurrent(mRow, col);
}

void Grid::SetCurrent(int row, int col) {
    if (mEditing && FinishEdit() == GridAnswer::Refuse) return;
    if (row != mRow) {
        mRowTouched = false;
        mRefused = {};
    }
    mSelection.End();
    mRow = row;
    mCol = col;
    mSelectionEnd = col;
    Touch();
    if (ViewChange) Raise("ViewChange", ViewChange);
}

void Grid::SetSelectionEnd(int col) {
    EndSelection();
    Assign(mSelectionEnd, col);
}

bool Grid::MoveTo(int row, int col) {
    if (row < mFixedRows || row >= Rows()) return false;
    col = std::clamp(col, mFixedCols, Cols() - 1);
    if (mEditing && FinishEdit() == GridAnswer::Refuse) return false;
    EndSelection();
    if (row == mRow && col == mCol) return true;
    if (row != mRow) {
        if (!LeaveRow()) return false;
        row = std::min(row, Rows() - 1);
        mRowTouched = false;
        mRefused = {};
    }
    mRow = row;
    mCol = col;
    mSelectionEnd = col;
    Touch();
    ShowCurrent();
    if (EnterCell) Raise("EnterCell", EnterCell);
    return true;
}

bool Grid::LeaveRow() {
    if (mEditing && FinishEdit() == GridAnswer::Refuse) return false;
    ForgetRefused();
    if (mRow < mFixedRows || !RowCanBeEdited(mRow) || !RowValidate) return true;
    GridAnswer answer = GridAnswer::Undecided;
    int col = mCol;
    const int row = mRow;
    Raise("RowValidate", [&] {
        try {
            RowValidate(answer, row, col);
        } catch (...) {
            answer = GridAnswer::Refuse;
            throw;
        }
    });
    if (answer != GridAnswer::Refuse) {
        mRowTouched = false;
        return true;
    }
    if (col != mCol && col >= mFixedCols && col < Cols()) {
        mCol = col;
        mSelectionEnd = col;
        Touch();
        ShowCurrent();
        if (EnterCell) Raise("EnterCell", EnterCell);
    }
    if (Owner().Refused) Owner().Refused(*this, row, mCol);
    return false;
}

bool Grid::OpenEdit() {
    if (!CanEdit(mRow, mCol)) {
        if (Owner().Refused) Owner().Refused(*this, mRow, mCol);
        return false;
    }
    EndSelection();
    ShowCurrent();
    mEditing = true;
    mEditTouched = false;
    mEditFromReference = false;
    mEditTextSelected = false;
    mTextBefore = Text(mRow, mCol);
    mEditText = mTextBefore;
    Touch();
    if (EditModeChange) Raise("EditModeChange", [this] { EditModeChange(true); });
    return true;
}

void Grid::CloseEdit() {
    mEditing = false;
    mEditTouched = false;
    mEditTextSelected = false;
    mEditText.clear();
    Touch();
    if (EditModeChange) Raise("EditModeChange", [this] { EditModeChange(false); });
}

bool Grid::BeginEdit() {
    if (mEditing) return true;
    if (CanEdit(mRow, mCol) && EditCheck) Raise("EditCheck", EditCheck);
    return OpenEdit();
}

std::string Grid::FitText(std::string_view text) {
    std::string line = PlainInput(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    const int limit = ColumnAt(mCol).input.maxLength;
    if (limit <= 0 || platform::CountCharacters(line) <= static_cast<std::size_t>(limit))
        return line;
    if (Beep) Raise("Beep", Beep);
    return std::string(platform::FirstCharacters(line, static_cast<std::size_t>(limit)));
}

bool Grid::MayChangeText() {
    if (!TextMayChange) return true;
    bool may = false;
    Raise("TextMayChange", [&] { may = TextMayChange(mRow, mCol); });
    return may;
}

bool Grid::AllowsChange() {
    const bool may = MayChangeText();
    if (!may && Beep) Raise("Beep", Beep);
    return may;
}

// A cell whose text may not be changed is not opened by a key that would change it.
bool Grid::OpenToChange() {
    if (!mEditing && CanEdit(mRow, mCol) && !AllowsChange()) return false;
    return BeginEdit();
}

void Grid::ReplaceEditText(std::string_view text) {
    if (!mEditing || !AllowsChange()) return;
    mEditText = FitText(text);
    mEditTouched = true;
    mEditFromReference = false;
    mEditTextSelected = false;
    mRefused = {};
    Touch();
}

GridAnswer Grid::FinishEdit() {
    if (!mEditing) return GridAnswer::Accept;
    if (!mEditTouched) {
        CloseEdit();
        return GridAnswer::Accept;
    }
    const int row = mRow;
    const int col = mCol;
    std::string text = mEditText;
    SetText(row, col, text);
    mRefused = {};
    GridAnswer answer = GridAnswer::Accept;
    if (CellValidate) {
        Raise("CellValidate", [&] {
            try {
                CellValidate(text, answer, row, col);
            } catch (...) {
                answer = GridAnswer::Refuse;
                throw;
            }
        });
    }
    if (answer == GridAnswer::Refuse) {
        mEditTextSelected = true;
        ++mEditRefusals;
        MarkRefused(row, col);
        if (Owner().Refused) Owner().Refused(*this, row, col);
        return GridAnswer::Refuse;
    }
    if (Text(row, col) != text) SetText(row, col, text);
    mRowTouched = true;
    if (!mEditFromReference && text != mTextBefore && CellChanged) {
        Raise("CellChanged", [&] { CellChanged(row, col, mTextBefore, text); });
    }
    CloseEdit();
    return GridAnswer::Accept;
}

void Grid::CancelEdit() {
    if (!mEditing) return;
    if (Text(mRow, mCol) != mTextBefore) SetText(mRow, mCol, mTextBefore);
    if (mRefused == Place{mRow, mCol}) mRefused = {};
    CloseEdit();
}

bool Grid::CanPressReference() const {
    return mRow >= mFixedRows && ColumnAt(mCol).reference && CanEdit(mRow, mCol);
}

bool Grid::PressReference() {
    if (!CanPressReference() || !CellReference) return false;
    const bool opened = !mEditing;
    if (opened && !OpenEdit()) return false;
    const std::string before = mEditText;
    std::string value = before;
    Raise("CellReference", [&] { CellReference(value, mRow, mCol); });
    if (!mEditing) return true;
    if (value == before) {
        if (opened) CloseEdit();
        return true;
    }
    TakeReference(value);
    return true;
}

bool Grid::TakeReference(std::string_view text) {
    mEditText = FitText(text);
    mEditTouched = true;
    mEditFromReference = true;
    return FinishEdit() == GridAnswer::Accept;
}

bool Grid::EnterReference(std::string_view text) {
    return (mEditing || OpenEdit()) && TakeReference(text);
}

std::vector<std::string> Grid::OpenList() {
    GridDropList list;
    if (mRow >= mFixedRows && ColumnAt(mCol).list && ComboDropDown) {
        Raise("ComboDropDown", [&] { ComboDropDown(mRow, mCol, list); });
    }
    return list.Items();
}

bool Grid::EnterText(std::string_view text) {
    if (!OpenToChange()) return false;
    ReplaceEditText(text);
    return FinishEdit() == GridAnswer::Accept;
}

}  // namespace kelvane::controls
