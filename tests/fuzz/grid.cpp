// A grid under everything that an operator and a window's code can do with it, in any order, with
// handlers that accept, refuse, change and remove: after each event it is in a state that can be.
#include <array>
#include <set>

#include "controls/grid.h"
#include "tests/fuzz/fuzz.h"

using namespace kelvane;
using controls::Grid;
using controls::GridAnswer;
using fuzz::Require;
using platform::Key;

namespace {

constexpr int kSummed = 4;
constexpr int kLongest = 5;

class NotingForm : public controls::Form {
public:
    NotingForm() : Form("frmGrid") {}
    std::string trapped;

protected:
    void Trapped(std::string_view place, std::string_view detail) noexcept override {
        trapped.append(place).append(": ").append(detail);
    }
};

class Window {
public:
    explicit Window(fuzz::Bytes& input) : mInput(input) {
        grid.SetCols(6);
        grid.SetRows(1);
        grid.SetColumnInput(1, {.kind = controls::InputKind::Date});
        grid.SetColumnInput(2, {.kind = controls::InputKind::Text, .maxLength = kLongest});
        grid.SetColumnInput(kSummed, {.kind = controls::InputKind::Number, .grouping = true});
        grid.SetColumnReference(2, true);
        grid.SetColumnList(3, true);
        grid.SumColumn(kSummed);
        grid.SetHeight(2000);
        grid.SetWidth(4000);
        for (int row = Number(6); row > 0; --row) AddRow();
        TakeNotifications();
    }

    void Act();
    void RequireWhole() const;

private:
    int Number(int below) { return mInput.Number(below); }
    // Often within the grid, at times beside it.
    int AnyRow() { return Number(grid.Rows() + 2) - 1; }
    int AnyCol() { return Number(grid.Cols() + 2) - 1; }
    int KnownRow() { return Number(grid.Rows()); }
    int KnownCol() { return Number(grid.Cols()); }

    std::string Text() {
        constexpr std::array kTexts{"",           "a",        "1.5",      "-2",
                                    "1,234.50",   "12345678", "2004.6.1", "999999999999999",
                                    "二月人工费", "x\ty\nz",  "\xff",     "abcdefgh",
                                    " ",          "1e15"};
        return kTexts[static_cast<std::size_t>(Number(static_cast<int>(kTexts.size())))];
    }

    Key AnyKey() {
        constexpr std::array kKeys{Key::Enter,  Key::Escape, Key::Tab,       Key::Up,
                                   Key::Down,   Key::Left,   Key::Right,     Key::Home,
                                   Key::End,    Key::PageUp, Key::PageDown,  Key::F2,
                                   Key::F4,     Key::Delete, Key::Backspace, Key::Space,
                                   Key::Insert, Key::A,      Key::Other};
        return kKeys[static_cast<std::size_t>(Number(static_cast<int>(kKeys.size())))];
    }

    void AddRow() {
        const std::string cells = "\t2004.6.1\tab\tc\t" + std::string(Number(2) == 0 ? "10" : "x");
        grid.SetRowData(grid.AddItem(cells), ++mLastData);
        mDatas.insert(mLastData);
    }
    void RemoveRow(int row) {
        if (row < grid.FixedRows() || row >= grid.Rows()) return;
        mDatas.erase(grid.RowData(row));
        grid.RemoveItem(row);
    }

    void TakeNotifications();
    void ActByOperator();
    void ActByKey();
    void ActByCode();
    void View();

    void RequirePlaces() const;
    void RequireSums() const;
    void RequireRows() const;

    fuzz::Bytes& mInput;
    NotingForm mForm;
    Grid grid{mForm, "Grid"};
    int mLastData = 0;
    std::set<int> mDatas;
};

void Window::TakeNotifications() {
    const auto answer = [this] { return Number(3) == 0 ? GridAnswer::Refuse : GridAnswer::Accept; };
    grid.CellValidate = [this, answer](std::string& text, GridAnswer& result, int, int) {
        result = answer();
        if (Number(4) == 1) text = Text();
    };
    grid.RowValidate = [this, answer](GridAnswer& result, int row, int& col) {
        result = answer();
        if (Number(4) == 1) col = AnyCol();
        // As a window does that takes a row back which was never saved.
        if (result == GridAnswer::Accept && Number(8) == 1) RemoveRow(row);
    };
    grid.CellReference = [this](std::string& value, int, int) { value = Text(); };
    grid.ComboDropDown = [](int, int, controls::GridDropList& list) { list.AddItem("one"); };
    grid.TextMayChange = [this](int, int) { return Number(5) != 1; };
    grid.EnterCell = [this] {
        if (Number(8) == 1) grid.SetCellColor(KnownRow(), KnownCol(), grid.LockedColor());
    };
    grid.CellChanged = [this](int row, int, const std::string&, const std::string&) {
        if (Number(4) == 1) grid.SetText(row, kSummed, "7");
    };
    grid.AbandonRow = [this](int row) {
        if (Number(2) == 1) RemoveRow(row);
    };
    grid.EndView = [this] { return grid.IsFiltered() && grid.UnfilterRows(); };
}

void Window::ActByOperator() {
    switch (Number(13)) {
        case 0:
            grid.MoveTo(AnyRow(), AnyCol());
            break;
        case 1:
            grid.BeginEdit();
            break;
        case 2:
            grid.ReplaceEditText(Text());
            break;
        case 3:
            grid.FinishEdit();
            break;
        case 4:
            grid.CancelEdit();
            break;
        case 5:
            grid.PressReference();
            break;
        case 6:
            grid.EnterText(Text());
            break;
        case 7:
            if (grid.CanRepeatAbove()) grid.RepeatAbove();
            break;
        case 8:
            grid.OpenList();
            grid.ChooseListItem("one");
            break;
        case 9:
            grid.SelectTo(AnyRow(), AnyCol());
            break;
        case 10:
            grid.SelectRowsTo(AnyRow());
            break;
        case 11:
            grid.SelectAll();
            break;
        default:
            grid.LeaveRow();
    }
}

void Window::ActByKey() {
    const Key key = AnyKey();
    const int shift = Number(4);
    switch (Number(4)) {
        case 0:
            grid.NavigationKey(key, shift);
            break;
        case 1:
            grid.ExtendSelection(key, shift);
            break;
        case 2:
            grid.KeyPress(static_cast<char32_t>(U" -.,0189aZ\u4E8C\uFF11\uFF0D\t"[Number(14)]));
            break;
        default:
            grid.KeyDown(key, shift);
    }
}

void Window::View() {
    const int modulus = 1 + Number(3);
    switch (Number(4)) {
        case 0:
            grid.SortRows(KnownCol(), Number(2) == 1);
            break;
        case 1:
            grid.FilterRows(KnownCol(), [&](int row) { return grid.RowData(row) % modulus == 0; });
            break;
        case 2:
            grid.UnfilterRows();
            break;
        default:
            grid.UnsortRows();
    }
}

void Window::ActByCode() {
    switch (Number(16)) {
        case 0:
            AddRow();
            break;
        case 1:
            RemoveRow(KnownRow());
            break;
        case 2:
            grid.SetText(KnownRow(), KnownCol(), Text());
            break;
        case 3:
            grid.SetCellColor(KnownRow(), KnownCol(), grid.LockedColor());
            break;
        case 4:
            grid.SetReadOnly(Number(2) == 1);
            break;
        case 5:
            grid.SetRow(KnownRow());
            break;
        case 6:
            grid.SetCol(1 + Number(grid.Cols() - 1));
            break;
        case 7:
            grid.ResizeColumn(KnownCol(), Number(200) * 20);
            break;
        case 8:
            grid.FitColumn(KnownCol());
            break;
        case 9:
            grid.SetZoom(Number(256));
            break;
        case 10:
            grid.SetHeight(Number(256) * 20);
            grid.SetWidth(Number(256) * 30);
            break;
        case 11:
            grid.SetTopRow(AnyRow());
            grid.SetLeftCol(AnyCol());
            break;
        case 12:
            grid.MarkFault(KnownRow(), KnownCol(), Number(2) == 1);
            break;
        case 13:
            grid.MarkRow(KnownRow());
            grid.MarkFound(KnownRow(), KnownCol());
            break;
        case 14:
            grid.SetRowHeight(KnownRow(), Number(2) * 300);
            break;
        default:
            grid.RestoreColumnWidths();
    }
}

void Window::Act() {
    switch (Number(4)) {
        case 0:
            ActByOperator();
            break;
        case 1:
            ActByKey();
            break;
        case 2:
            ActByCode();
            break;
        default:
            View();
    }
}

void Window::RequirePlaces() const {
    const int rows = grid.Rows();
    const int cols = grid.Cols();
    Require(grid.Row() >= 0 && grid.Row() < rows, "the current row is there");
    Require(grid.Col() >= 0 && grid.Col() < cols, "the current column is there");
    Require(grid.TopRow() >= 1 && grid.TopRow() < std::max(2, rows), "the top row is there");
    Require(grid.LeftCol() >= 1 && grid.LeftCol() < cols, "the left column is there");
    Require(grid.MarkedRow() >= 0 && grid.MarkedRow() < rows, "the marked row is there");
    Require(grid.FoundRow() >= 0 && grid.FoundRow() < rows, "the found row is there");
    Require(grid.RefusedCell().row >= 0 && grid.RefusedCell().row < rows,
            "the refused row is there");
    Require(grid.VisibleRows() >= 0 && grid.VisibleRows() <= rows, "rows that are seen are there");
    Require(!grid.IsEditing() || grid.Row() >= grid.FixedRows(), "an open cell is in a row");
    Require(grid.IsEditing() || grid.EditText().empty(), "no text is open without a cell");
    const controls::GridRange selected = grid.Selected();
    if (selected.IsEmpty()) return;
    Require(
        selected.top >= 1 && selected.bottom < rows && selected.left >= 0 && selected.right < cols,
        "the selection is in the grid");
    Require(selected.HasRow(grid.Row()), "the current row is selected",
            std::to_string(grid.Row()) + " in " + std::to_string(selected.top) + " to " +
                std::to_string(selected.bottom) + ", " + std::to_string(grid.SelectedRows()));
    Require(grid.SelectedRows() == 0 || !grid.IsEditing(), "an open cell ends the selection");
}

void Window::RequireSums() const {
    const auto same = [](const controls::ColumnSum& kept, const controls::ColumnSum& counted) {
        return kept.Total() == counted.Total() && kept.Unread() == counted.Unread();
    };
    controls::ColumnSum all;
    controls::ColumnSum selected;
    int count = 0;
    const controls::GridRange range = grid.Selected();
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        all.Add(grid.Text(row, kSummed));
        if (!range.HasRow(row) || grid.RowHeight(row) == 0) continue;
        ++count;
        selected.Add(grid.Text(row, kSummed));
    }
    // A sum that was once too large says so from then on.
    if (!all.Total() || !grid.Sum().Total()) return;
    Require(same(grid.Sum(), all), "the column's sum is that of its cells");
    if (grid.SelectedRows() == 0) return;
    Require(grid.SelectedRows() == count, "selected rows are counted");
    Require(same(grid.SelectedSum(), selected), "the selection's sum is that of its cells");
}

void Window::RequireRows() const {
    std::set<int> shown;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        Require(shown.insert(grid.RowData(row)).second, "a row is there once");
        const std::string_view cells = grid.RowCells(row);
        Require(std::count(cells.begin(), cells.end(), '\t') == grid.Cols() - 1,
                "a row has a cell for each column", cells);
    }
    Require(shown.size() + static_cast<std::size_t>(grid.RowsAside()) == mDatas.size(),
            "no row is lost");
    for (const int data : mDatas) Require(grid.HasRowData(data), "every row is kept");
}

void Window::RequireWhole() const {
    Require(mForm.trapped.empty(), "no event fails", mForm.trapped);
    RequirePlaces();
    RequireSums();
    RequireRows();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::size_t kMost = 1000;
    fuzz::Bytes input(bytes, std::min(size, kMost));
    Window window(input);
    while (!input.AtEnd()) {
        window.Act();
        window.RequireWhole();
    }
    return 0;
}
