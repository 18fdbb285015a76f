// The grid's keyboard.
#include <algorithm>

#include "controls/grid.h"
#include "platform/full_width.h"
#include "platform/utf8.h"

namespace kelvane::controls {

using platform::Key;

namespace {

bool IsDigit(char32_t character) {
    return character >= U'0' && character <= U'9';
}

// What an input method writes for a character of a number or a date.
char32_t PlainCharacter(char32_t character) {
    constexpr char32_t kFullStop = 0x3002;
    return character == kFullStop ? U'.' : platform::PlainForm(character);
}

}  // namespace

std::string Grid::PlainInput(std::string_view text) const {
    if (ColumnAt(mCol).input.kind == InputKind::Text) return std::string(text);
    std::string plain;
    plain.reserve(text.size());
    while (!text.empty()) {
        platform::AppendCharacter(plain, PlainCharacter(platform::TakeCharacter(text).value));
    }
    return plain;
}

bool Grid::TakesCharacter(char32_t character) const {
    const ColumnInput& input = ColumnAt(mCol).input;
    if (input.kind == InputKind::Text) return true;
    character = PlainCharacter(character);
    if (IsDigit(character)) return true;
    if (input.kind == InputKind::Date) {
        return character == U'.' || character == U'-' || character == U'/';
    }
    return character == U'.' || character == U',' || character == U'-' || character == U' ';
}

// The row `rows` below `from`, and the column `step` to the side, of those that are shown; `from`
// itself when there is none.
int Grid::RowBeside(int from, int rows) const {
    int row = std::clamp(from + rows, mFixedRows, std::max(mFixedRows, Rows() - 1));
    const int direction = rows > 0 ? 1 : -1;
    while (row > mFixedRows && row < Rows() - 1 && RowHeight(row) == 0) row += direction;
    return row < Rows() && RowHeight(row) == 0 ? from : row;
}

int Grid::ColBeside(int from, int step) const {
    int col = from + step;
    while (step != 0 && col > mFixedCols && col < Cols() - 1 && ColumnWidth(col) == 0) col += step;
    return col < mFixedCols || col >= Cols() || ColumnWidth(col) == 0 ? from : col;
}

// Moves `rows` down, or `step` cells to the side. Where no row is current the first one becomes it.
bool Grid::MoveBy(int rows, int step) {
    const int row = rows == 0 ? std::max(mRow, mFixedRows) : RowBeside(mRow, rows);
    return MoveTo(row, ColBeside(mCol, step));
}

// To the next cell that can be typed into, over the row's end.
bool Grid::MoveToNextCell(int step) {
    int row = std::max(mRow, mFixedRows);
    int col = mRow < mFixedRows ? mFixedCols - step : mCol;
    for (;;) {
        col += step;
        if (col >= Cols()) {
            col = mFixedCols;
            ++row;
        } else if (col < mFixedCols) {
            col = Cols() - 1;
            --row;
        }
        // Past the last cell there is nowhere to go, but what was typed is kept.
        if (row < mFixedRows || row >= Rows()) {
            if (mEditing && FinishEdit() == GridAnswer::Refuse) return false;
            return !mRowTouched || LeaveRow();
        }
        if (ColumnWidth(col) == 0 || RowHeight(row) == 0) continue;
        // In a row that nothing can be typed into every cell is a stop.
        if (!IsLocked(row, col) || !RowCanBeEdited(row)) return MoveTo(row, col);
    }
}

bool Grid::NavigationKey(Key key, int shift) {
    if (key == Key::Tab) {
        MoveToNextCell((shift & platform::kShift) != 0 ? -1 : 1);
        return true;
    }
    if (key != Key::Escape) return false;
    if (mEditing) {
        CancelEdit();
        return true;
    }
    if (mSelection.IsActive()) {
        EndSelection();
        return true;
    }
    if (EndView && !mRowTouched) {
        bool ended = false;
        Raise("EndView", [&] { ended = EndView(); });
        if (ended) return true;
    }
    if (mRow < mFixedRows || !AbandonRow) return false;
    Raise("AbandonRow", [this] { AbandonRow(mRow); });
    return true;
}

bool Grid::KeyDown(Key key, int shift) {
    const bool ctrl = (shift & platform::kCtrl) != 0;
    const bool alt = (shift & platform::kAlt) != 0;
    if (alt) return false;
    const int page = std::max(1, VisibleRows());
    const int row = std::max(mRow, mFixedRows);
    switch (key) {
        case Key::Up:
            MoveBy(-1, 0);
            return true;
        case Key::Down:
            MoveBy(1, 0);
            return true;
        case Key::PageUp:
            MoveBy(-page, 0);
            return true;
        case Key::PageDown:
            MoveBy(page, 0);
            return true;
        case Key::Enter:
            MoveToNextCell(1);
            return true;
        case Key::F2:
            if (!mEditing) return mOpensWithF2 && BeginEdit();
            if (HasReference(mCol)) PressReference();
            return true;
        default:
            break;
    }
    if (mEditing) {
        if (key != Key::Backspace) return false;
        std::string text = mEditTextSelected ? "" : mEditText;
        platform::DropLastCharacter(text);
        ReplaceEditText(text);
        return true;
    }
    switch (key) {
        case Key::Left:
            MoveBy(0, -1);
            return true;
        case Key::Right:
            MoveBy(0, 1);
            return true;
        case Key::Home:
            MoveTo(ctrl ? mFixedRows : row, mFixedCols);
            return true;
        case Key::End:
            MoveTo(ctrl ? Rows() - 1 : row, Cols() - 1);
            return true;
        case Key::Delete:
            if (mRow < mFixedRows) return false;
            if (!OpenToChange()) return true;
            ReplaceEditText("");
            FinishEdit();
            return true;
        default:
            return false;
    }
}

bool Grid::KeyPress(char32_t character) {
    if (character < U' ' || character == 127) return false;
    if (mRow < mFixedRows) return false;
    // The blank opens a cell with its text, any other character begins a new text.
    if (!mEditing && character == U' ') return BeginEdit();
    if (!TakesCharacter(character)) {
        if (Beep) Raise("Beep", Beep);
        return true;
    }
    std::string text = mEditTextSelected ? "" : mEditText;
    platform::AppendCharacter(text, character);
    if (!OpenToChange()) return true;
    ReplaceEditText(text);
    return true;
}

}  // namespace kelvane::controls
