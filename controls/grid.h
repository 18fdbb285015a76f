// Grid: the whole state of an editable grid and the order of its notifications. It draws nothing;
// a view paints the visible rows and forwards what the operator does.
//
// What the operator does, and what is raised, in this order:
//
//   opening a cell        EditCheck, EditModeChange(true). A cell painted in the locked colour, a
//                         fixed cell and a read-only grid refuse to open and raise nothing.
//   ending an edit        The new text is stored in the cell, then CellValidate. Refused: the cell
//                         stays open with that text, all of it selected, and is marked. Accepted:
//                         the text that CellValidate left is stored, CellChanged when the operator
//                         typed and the text differs, EditModeChange(false). An edit in which
//                         nothing was typed ends with EditModeChange(false) alone.
//   abandoning an edit    The text from before comes back, EditModeChange(false).
//   reference button      EditModeChange(true) unless open, CellReference. A value that differs is
//                         then accepted or refused like an edit, without CellChanged; the same
//                         value closes the cell again. EnterReference does the same with a value
//                         that the window's code has already.
//   drop-down list        ComboDropDown. A chosen item is an edit of the cell.
//   moving in a row       (ending an edit,) EnterCell.
//   leaving a row         (ending an edit,) RowValidate, whether or not the row was changed;
//                         refused, the current cell stays in the row, in the column handed back;
//                         accepted, EnterCell. A row that nothing could be typed into (read-only
//                         grid, every cell locked) is left without RowValidate.
//   scrolling             ViewChange; so do a dragged or fitted column and zooming.
//   abandoning a row      EndView in a row that was not changed; AbandonRow, unless EndView did
//                         something or no row is current (Escape with no cell open).
//   a view                Sorting and filtering end an open edit; the current row stays current
//                         wherever it comes to stand, and ViewChange is raised.
//   removing a row        When it was the current one: DetailReset, ViewChange, and EnterCell once
//                         another row is current in its place. SetRows raises no EnterCell.
//
// How the operator changes the text of an open cell makes no difference - keys, an input method,
// the clipboard, the mouse, a list: TextMayChange is asked each time, and a refused change only
// beeps. The reference button alone is not asked.
//
// Keys: arrows, Page Up/Down, Home, End (with Ctrl: first and last row) move; Enter and Tab go to
// the next cell that can be typed into, and past the last cell of the last row they leave a changed
// row where it is (RowValidate). F2 and the blank open a cell with its text, any other character
// begins a new one; F2 in an open cell presses its reference button. Delete empties the cell.
//
// Moving the current cell by code (SetRow, SetCol) raises ViewChange alone.
//
// Selecting (SelectTo, SelectRowsTo, SelectAll, ExtendSelection) raises nothing but ViewChange when
// it scrolls: no row is left. Moving, opening a cell and removing a row end the selection; so does
// Escape, which then does nothing else.
//
// All measures of rows, columns and cells are twips before zooming, as they are told to the grid;
// Zoomed() says how long they are in the window.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "controls/column_sum.h"
#include "controls/control.h"
#include "controls/form.h"
#include "controls/grid_selection.h"

namespace kelvane::controls {

enum class Alignment { Left, Center, Right };

// Result code of the validating notifications.
enum class GridAnswer { Undecided = 0, Refuse = 1, Accept = 2 };

enum class InputKind { Text, Number, Date };

// How a column is typed into. Numbers and dates take the signs and digits of an input method in
// their plain forms. Characters that do not fit the kind are not taken from the keyboard; a text
// longer than `maxLength` characters (0: no limit) is cut, with a beep.
struct ColumnInput {
    InputKind kind = InputKind::Text;
    int maxLength = 0;
    int decimals = 0;
    bool grouping = false;
};

// The list of one drop-down cell while it is open.
class GridDropList {
public:
    void AddItem(std::string_view text) { mItems.emplace_back(text); }
    const std::vector<std::string>& Items() const { return mItems; }

private:
    std::vector<std::string> mItems;
};

class Grid : public Control, public KeyTarget {
public:
    Grid(Form& form, std::string name);
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    // Shape. SetRows and SetCols keep what stays; new rows are empty. They throw std::out_of_range
    // for less than no row or one column.
    int Rows() const { return static_cast<int>(mRows.size()) + mSourceRows; }
    int Cols() const { return static_cast<int>(mColumns.size()); }
    void SetRows(int rows);
    void SetCols(int cols);
    int FixedRows() const { return mFixedRows; }
    int FixedCols() const { return mFixedCols; }
    // Row 0 is always fixed, whatever number is asked for: it is the header, even of a grid that
    // has no other row.
    void SetFixedRows(int rows);
    void SetFixedCols(int cols);
    // Sets the columns from one text: "|" separates them, the first character of each gives its
    // alignment ("<" left, "^" centre, ">" right), the rest is its header.
    void SetFormat(std::string_view format);

    // Appends a row from cell texts joined by a tab; returns its number.
    int AddItem(std::string_view cells);
    void RemoveItem(int row);

    // A long list that is only looked at: in place of all rows below the fixed ones come `count`
    // rows that are not kept here; `cells` gives the texts of one, counted from 0 and joined by a
    // tab, whenever they are asked for. No row is current then, and the first is on top. Such rows
    // cannot be written or removed and none can be added to them: std::logic_error. A null `cells`
    // ends it.
    using RowSource = std::function<std::string_view(int place)>;
    void SetRowSource(int count, RowSource cells);

    // Cells. Rows and columns outside the grid throw std::out_of_range, except that colours of the
    // row index equal to Rows() are accepted and ignored.
    std::string Text(int row, int col) const;
    void SetText(int row, int col, std::string_view text);
    int RowData(int row) const { return RowAt(row).data; }
    void SetRowData(int row, int data);
    // Whether a row below the fixed ones has this data, also one that a filter has put aside.
    bool HasRowData(int data) const;
    void SetCellColor(int row, int col, Color color);
    Color CellColor(int row, int col) const;
    Alignment CellAlignment(int row, int col) const;
    void SetFixedRowAlignment(int col, Alignment alignment);

    // Columns and rows: measures in twips.
    int ColumnWidth(int col) const { return ColumnAt(col).width; }
    void SetColumnWidth(int col, int twips);
    // Whether the operator has given the column another width than the window's code.
    bool IsColumnResized(int col) const { return ColumnAt(col).originalWidth >= 0; }
    Alignment ColumnAlignment(int col) const { return ColumnAt(col).alignment; }
    void SetColumnAlignment(int col, Alignment alignment);
    void SetColumnInput(int col, const ColumnInput& input) { ColumnAt(col).input = input; }
    const ColumnInput& Input(int col) const { return ColumnAt(col).input; }
    // Which columns have a reference button or a drop-down list in their cells.
    void SetColumnReference(int col, bool has) { ColumnAt(col).reference = has; }
    bool HasReference(int col) const { return ColumnAt(col).reference; }
    void SetColumnList(int col, bool has) { ColumnAt(col).list = has; }
    bool HasList(int col) const { return ColumnAt(col).list; }
    int RowHeight(int row) const { return RowAt(row).height; }
    void SetRowHeight(int row, int twips);
    int DefaultRowHeight() const { return mDefaultRowHeight; }
    void SetDefaultRowHeight(int twips) { mDefaultRowHeight = twips; }

    // The columns and the data rows as the texts of platform/grid_text.h: the format text stays the
    // same for an unchanged layout.
    std::string FormatText() const;
    std::string DataText() const;
    // One row's cells joined by a tab.
    std::string RowText(int row) const { return std::string(RowCells(row)); }
    // The same where it stands, until the grid changes.
    std::string_view RowCells(int row) const { return CellsAt(row); }

    // Keeps the sum of a column's cells below the fixed rows from now on; rows of a source are not
    // in it.
    void SumColumn(int col);
    const ColumnSum& Sum() const { return mSum; }

    Color BackColor() const { return mBackColor; }
    void SetBackColor(Color color) { Assign(mBackColor, color); }
    Color FixedColor() const { return mFixedColor; }
    void SetFixedColor(Color color) { Assign(mFixedColor, color); }
    Color LockedColor() const { return mLockedColor; }
    void SetLockedColor(Color color) { Assign(mLockedColor, color); }
    bool IsLocked(int row, int col) const { return CellColor(row, col) == mLockedColor; }

    bool ReadOnly() const { return mReadOnly; }
    void SetReadOnly(bool readOnly) { Assign(mReadOnly, readOnly); }

    // The current cell; row 0 (a fixed row) means that no row is current. Setting it by code ends
    // an open edit first and stays where it is when that is refused.
    int Row() const { return mRow; }
    int Col() const { return mCol; }
    void SetRow(int row);
    void SetCol(int col);
    // Column to which the selection extends from the current cell; the current column when only
    // that cell is selected. Setting it ends a selection over rows.
    int SelectionEnd() const { return mSelectionEnd; }
    void SetSelectionEnd(int col);

    // What the operator has selected (grid_selection.cpp): the current cell at least; empty when no
    // row is current. SelectTo extends it from the current cell to another one, SelectRowsTo over
    // whole rows; a row or column outside means the nearest one that is not. While a cell is open
    // or no row is current nothing can be selected, and nothing happens.
    GridRange Selected() const;
    bool CanSelect() const;
    void SelectTo(int row, int col);
    void SelectRowsTo(int row);
    void SelectAll();
    void EndSelection();
    // Moves the corner of the selection as `key` moves the current cell, and shows it: arrows, Page
    // Up/Down, Home, End (with Ctrl in `shift`: first and last row). False for another key.
    bool ExtendSelection(platform::Key key, int shift);
    // How many rows a selection over rows has, hidden ones aside, and what the summed column's
    // cells in them come to; 0 rows without such a selection.
    int SelectedRows() const { return mSelection.rows; }
    const ColumnSum& SelectedSum() const { return mSelection.sum; }

    // The row that a question is about stands out as long as it is asked; 0: none. Its number moves
    // with the row, and is 0 when the row is removed.
    int MarkedRow() const { return mMarkedRow; }
    void MarkRow(int row) { Assign(mMarkedRow, row); }

    // The cell that a search shows; row 0: none. A view or a removed row takes the mark away.
    int FoundRow() const { return mFoundRow; }
    int FoundCol() const { return mFoundCol; }
    void MarkFound(int row, int col);

    // Views (grid_order.cpp): the rows in another order, some of them put aside. Each row keeps its
    // stored place, and everything of it goes with it; only its number is another. A new row comes
    // last, in its place as on the screen. Each returns false, and changes nothing, when the open
    // cell refuses to be left or the rows are not kept here. A row that is changed and not saved is
    // the caller's concern: only one that is current stays in sight. SetRows and SetCols end every
    // view.
    //
    // Sorts by a column: numbers and dates by what they are, texts by their characters, blank ones
    // last; equal ones stay in their stored order.
    bool SortRows(int col, bool descending);
    // Puts the rows aside that `keeps` does not want; `col` is the column that is filtered by. A
    // current row that goes leaves no row current.
    bool FilterRows(int col, const std::function<bool(int row)>& keeps);
    // Brings the rows back that were put aside; ends the sorting.
    bool UnfilterRows();
    bool UnsortRows();
    // The column that the rows are sorted by; -1: they stand in their stored order.
    int SortColumn() const { return mSortColumn; }
    bool SortsDescending() const { return mSortDescending; }
    bool IsFiltered() const { return !mFilteredColumns.empty(); }
    bool IsFilteredBy(int col) const;
    int RowsAside() const { return static_cast<int>(mAside.size()); }
    // The cell that was refused last stands out until a text of its row is changed or another row
    // becomes current. A refused text marks its cell by itself; which cell made a check refuse a
    // whole row is the window's to say: a column, or kWholeRow.
    struct Place {
        int row = 0;  // 0: nothing was refused
        int col = 0;
        friend bool operator==(const Place&, const Place&) = default;
    };
    static constexpr int kWholeRow = -1;
    const Place& RefusedCell() const { return mRefused; }
    void MarkRefused(int row, int col) { Assign(mRefused, Place{row, col}); }
    void ForgetRefused() { Assign(mRefused, Place{}); }

    // Cells that the window's code shows to be wrong, however many. They go with their row and stay
    // until the code takes the mark away. Only the first 32 columns can have one.
    static constexpr int kFaultColumns = 32;
    void MarkFault(int row, int col, bool fault);
    bool HasFault(int row, int col) const;

    // What the scroll bars at the grid's lower and right edge take of its size, in twips. Their
    // room is kept whether or not there is anything to scroll.
    static constexpr int kScrollBar = 255;
    int ViewWidth() const { return RoomIn(Width()); }
    int ViewHeight() const { return RoomIn(Height()); }

    // How large the grid's rows, columns and texts are shown, in percent.
    static constexpr int kLeastZoom = 50;
    static constexpr int kGreatestZoom = 200;
    static constexpr int kZoomStep = 10;
    int Zoom() const { return mZoom; }
    // Takes the nearest size that can be shown and keeps the current cell in sight.
    void SetZoom(int percent);
    int Zoomed(int twips) const { return twips * mZoom / 100; }

    // The part of the grid that its height and width show.
    int TopRow() const { return mTopRow; }
    void SetTopRow(int row);
    int LeftCol() const { return mLeftCol; }
    void SetLeftCol(int col);
    // Scrolls so far that the cell, or the current one, can be seen.
    void ShowCell(int row, int col);
    void ShowCurrent() { ShowCell(mRow, mCol); }
    int VisibleRows() const;
    bool IsRowShown(int row) const;
    void SetWidth(int twips) override;
    void SetHeight(int twips) override;
    // A cell's place in the grid, in twips before zooming from the grid's left upper corner.
    int CellLeft(int col) const;
    int CellTop(int row) const;

    // Editing. EditState is 1 while a cell is open.
    int EditState() const { return mEditing ? 1 : 0; }
    bool IsEditing() const { return mEditing; }
    const std::string& EditText() const { return mEditText; }
    // Whether all of the open cell's text is selected, as it is after a refusal: what is typed next
    // replaces it. And how often a text was refused.
    bool EditTextSelected() const { return mEditTextSelected; }
    int EditRefusals() const { return mEditRefusals; }
    // Whether F2 opens the current cell by itself; a window that opens cells its own way says no.
    void SetOpensWithF2(bool opens) { mOpensWithF2 = opens; }
    // True when the current row was changed by the operator since it became current or was saved.
    bool RowTouched() const { return mRowTouched; }
    void SetRowTouched(bool touched) { mRowTouched = touched; }
    // False for a row that nothing can be typed into.
    bool RowCanBeEdited(int row) const;

    // What the operator does. MoveTo returns false when leaving was refused and for a row that
    // cannot be the current one, a fixed row or one outside the grid: nothing is raised then and
    // the current cell stays. A column that is fixed or outside means the nearest one that is not.
    // BeginEdit returns false when the cell does not open, PressReference when the cell has no
    // button that can be pressed.
    bool MoveTo(int row, int col);
    bool LeaveRow();
    bool BeginEdit();
    void ReplaceEditText(std::string_view text);
    GridAnswer FinishEdit();
    void CancelEdit();
    bool PressReference();
    bool CanPressReference() const;
    // Edits in one go, both true when the text was accepted; what is refused stays open.
    // EnterReference puts a text in that the operator did not write himself, as the reference
    // button does: TextMayChange is not asked.
    bool EnterText(std::string_view text);
    bool EnterReference(std::string_view text);
    // The nearest row above the current one that is shown; 0 when there is none.
    int RowAbove() const;
    // Enters the text of the cell above. Possible while no cell is open, in a cell that can be
    // edited.
    bool CanRepeatAbove() const { return !mEditing && CanEdit(mRow, mCol) && RowAbove() > 0; }
    void RepeatAbove() { EnterText(Text(RowAbove(), mCol)); }
    // Raises ComboDropDown and returns the list's items; empty when the column has no list.
    std::vector<std::string> OpenList();
    bool ChooseListItem(std::string_view text) { return EnterText(text); }
    // True when `character` fits the input kind of the current column.
    bool TakesCharacter(char32_t character) const;
    // True unless TextMayChange forbids the operator to change the current cell's text.
    bool MayChangeText();
    // The operator drags a column's edge, lets the column fit its texts as far as they can be seen,
    // and gives all columns back the widths that the window's code gave them.
    void ResizeColumn(int col, int twips);
    void FitColumn(int col);
    void RestoreColumnWidths();

    bool KeyDown(platform::Key key, int shift) override;
    bool KeyPress(char32_t character) override;
    // Keys that a window's platform handles before the form sees them: Tab, Shift+Tab, Escape.
    bool NavigationKey(platform::Key key, int shift);

    std::function<void(std::string& value, int row, int col)> CellReference;
    std::function<void(std::string& text, GridAnswer& answer, int row, int col)> CellValidate;
    std::function<void(GridAnswer& answer, int row, int& col)> RowValidate;
    std::function<void(int row, int col, GridDropList& list)> ComboDropDown;
    std::function<void(bool editing)> EditModeChange;
    std::function<bool(int row, int col)> TextMayChange;
    std::function<void(int row, int col, const std::string& before, const std::string& after)>
        CellChanged;
    std::function<void()> EnterCell;
    std::function<void()> EditCheck;
    std::function<void()> DetailReset;
    std::function<void()> ViewChange;
    // Ends what shows the rows otherwise than they are stored; true when there was such a thing.
    std::function<bool()> EndView;
    std::function<void(int row)> AbandonRow;
    // Mouse: a click on a column's header, and a double click on a cell (which otherwise opens it).
    std::function<void(int col)> HeaderClick;
    std::function<void(int row, int col)> CellDoubleClick;
    // The twips, before zooming, that a cell needs to show a text whole. Set by the view; estimated
    // when it is not.
    std::function<int(const std::string& text)> MeasureText;
    // A change that the operator made to a text does not fit, or TextMayChange forbids it.
    std::function<void()> Beep;

private:
    struct Column {
        int width = 960;
        // The width by code of a column that the operator has resized; -1 for any other.
        int originalWidth = -1;
        Alignment alignment = Alignment::Left;
        Alignment fixedAlignment = Alignment::Left;
        ColumnInput input;
        bool reference = false;
        bool list = false;
    };
    // Cell texts stand joined by a tab: a list of 100,000 rows stays small.
    struct GridRow {
        std::string cells;
        int data = 0;
        int height = 0;
        int colors = 0;            // index into mColorSets
        int place = 0;             // among the stored rows; greater ones come later
        std::uint32_t faults = 0;  // a bit a column
    };
    using ColorSet = std::vector<Color>;

    const GridRow& RowAt(int row) const;
    GridRow& RowAt(int row);
    std::string_view CellsAt(int row) const;
    const Column& ColumnAt(int col) const;
    Column& ColumnAt(int col);
    int InternColors(ColorSet colors);
    int AddColorStep(int from, int col, Color color);
    bool CanEdit(int row, int col) const;
    bool OpenEdit();
    void CloseEdit();
    bool AllowsChange();
    bool OpenToChange();
    bool TakeReference(std::string_view text);
    int RoomIn(int extent) const {
        return extent > kScrollBar ? (extent - kScrollBar) * 100 / mZoom : 0;
    }
    int CellWidth(int row, int col) const;
    void EraseRow(int row);
    bool IsSummed(int row, int col) const {
        return col >= 0 && col == mSummedColumn && row >= mFixedRows;
    }
    void CountCell(ColumnSum& sum, int row, bool comes) const;
    void CountChangedCell(int row, bool comes);
    void SetCurrent(int row, int col);
    bool MayRearrange();
    void Rearrange(const std::function<void()>& change);
    void SortShown();
    void BringBack();
    void EndViews();
    void BeginSelection(int row, int col);
    void MoveCorner(int row, int col);
    void CountSelected(int from, int to, bool come);
    void CountAllBut(const GridRange& range);
    int RowBeside(int row, int rows) const;
    int ColBeside(int col, int step) const;
    bool MoveBy(int rows, int step);
    bool MoveToNextCell(int step);
    std::string PlainInput(std::string_view text) const;
    std::string FitText(std::string_view text);
    void Raise(std::string_view place, const std::function<void()>& notification);

    std::vector<Column> mColumns;
    std::vector<GridRow> mRows;
    int mNextPlace = 0;
    // The view: the rows put aside, in any order, the columns filtered by, and the one sorted by.
    std::vector<GridRow> mAside;
    std::vector<int> mFilteredColumns;
    int mSortColumn = -1;
    bool mSortDescending = false;
    // What all rows of a source have in common, how many there are, and their texts.
    GridRow mSourceRow;
    int mSourceRows = 0;
    RowSource mSource;
    std::vector<ColorSet> mColorSets;
    std::map<ColorSet, int> mColorIndex;
    // The set that a row with the set `from` has once its cell `col` has got `color`. Remembered
    // because most rows are painted alike, and building a set for each would take long.
    struct ColorStep {
        int from;
        int col;
        Color color;
        int to;
    };
    std::vector<ColorStep> mColorSteps;
    int mSummedColumn = -1;
    ColumnSum mSum;
    int mFixedRows = 1;
    int mFixedCols = 1;
    int mDefaultRowHeight = 300;
    Color mBackColor = Rgb(255, 255, 255);
    Color mFixedColor = Rgb(236, 236, 236);
    Color mLockedColor = Rgb(205, 208, 215);
    bool mReadOnly = false;
    bool mOpensWithF2 = true;
    int mRow = 0;
    int mCol = 0;
    int mSelectionEnd = 0;
    GridSelection mSelection;
    int mMarkedRow = 0;
    int mZoom = 100;
    int mFoundRow = 0;
    int mFoundCol = 0;
    Place mRefused;
    int mTopRow = 1;
    int mLeftCol = 1;
    bool mEditing = false;
    bool mEditTouched = false;
    bool mEditFromReference = false;
    bool mEditTextSelected = false;
    int mEditRefusals = 0;
    bool mRowTouched = false;
    std::string mEditText;
    std::string mTextBefore;
};

}  // namespace kelvane::controls
