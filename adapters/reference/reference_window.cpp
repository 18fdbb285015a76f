#include "adapters/reference/reference_window.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "adapters/reference/column_fit.h"
#include "controls/grid_actions.h"
#include "controls/grid_size_actions.h"
#include "controls/place.h"
#include "platform/blanks.h"

namespace kelvane::reference {

using controls::Alignment;
using platform::Key;

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kFieldHeight = 330;
constexpr int kLabelWidth = 720;
constexpr int kButtonWidth = 1200;
constexpr int kButtonHeight = 375;
constexpr int kUsualColumnWidth = 2000;
constexpr int kNarrowest = 4500;
constexpr int kLowest = 3600;
constexpr int kUsualHeight = 7200;

struct Shortcut {
    Key key;
    int shift;
};

// Keys that move in the rows wherever the focus is.
constexpr std::array kMovingKeys{
    Shortcut{Key::Up, 0},
    Shortcut{Key::Down, 0},
    Shortcut{Key::PageUp, 0},
    Shortcut{Key::PageDown, 0},
    Shortcut{Key::Home, platform::kCtrl},
    Shortcut{Key::End, platform::kCtrl},
};

bool MovesInRows(Key key, int shift) {
    return std::any_of(kMovingKeys.begin(), kMovingKeys.end(), [&](const Shortcut& each) {
        return each.key == key && each.shift == shift;
    });
}

}  // namespace

ReferenceWindow::ReferenceWindow(platform::Windows& windows, PickRows rows, ListLayout layout)
    : Form("frmReference"),
      lblSearch(*this, "lblSearch"),
      txtSearch(*this, "txtSearch"),
      cmdOK(*this, "cmdOK"),
      cmdCancel(*this, "cmdCancel"),
      GridReference(*this, "GridReference"),
      mWindows(windows),
      mRows(std::move(rows)),
      mFinder(mRows),
      mLayout(std::move(layout)) {
    const auto columns = static_cast<std::size_t>(mRows.Columns());
    mLayout.titles.resize(columns);
    mLayout.widths.resize(columns, kUsualColumnWidth);
    SetCaption(mLayout.caption);
    lblSearch.SetCaption("查找");
    cmdOK.SetCaption("确定");
    cmdOK.SetDefault(true);
    cmdCancel.SetCaption("取消");
    cmdCancel.SetCancel(true);
    GridReference.SetTakesFocus(false);
    WireControls();
    controls::AddGridActions(*this, GridReference,
                             [this]() -> platform::Windows& { return mWindows; });
    controls::AddGridSizeActions(*this, GridReference);
}

void ReferenceWindow::WireControls() {
    txtSearch.Change = [this] {
        mFinder.Narrow(txtSearch.Text());
        ShowRows(0);
    };
    cmdOK.Click = [this] { ChooseCurrent(); };
    cmdCancel.Click = [this] { Choose(std::nullopt); };
    GridReference.EnterCell = [this] { SelectRow(); };
    GridReference.HeaderClick = [this](int col) { SortBy(col); };
    GridReference.CellDoubleClick = [this](int row, int /*col*/) {
        if (row >= 1) Choose(static_cast<std::size_t>(row - 1));
    };
}

void ReferenceWindow::Form_Load() {
    mChosen.reset();
    GridReference.SetFixedCols(0);
    GridReference.SetCols(mRows.Columns());
    GridReference.SetLeftCol(0);
    GridReference.SetReadOnly(true);
    constexpr int kBeside = controls::Grid::kScrollBar + 2 * kMargin + kFrameWidth;
    const std::vector<int> widths =
        FitColumns(mRows, mLayout.titles, mLayout.widths, mWindows.ScreenWidth() - kBeside);
    for (int column = 0; column < mRows.Columns(); ++column) {
        GridReference.SetColumnWidth(column, widths[static_cast<std::size_t>(column)]);
        GridReference.SetFixedRowAlignment(column, Alignment::Center);
        if (mRows.IsNumeric(column)) GridReference.SetColumnAlignment(column, Alignment::Right);
    }
    ShowTitles();

    const int wanted = std::accumulate(widths.begin(), widths.end(), kBeside);
    const int width = std::min(std::max(wanted, kNarrowest), mWindows.ScreenWidth());
    const int height = std::min(kUsualHeight, mWindows.ScreenHeight());
    SetMinSize(kNarrowest, kLowest);
    SetSize(width, height);
    std::string name = Name();
    for (const std::string& title : mLayout.titles) name += ' ' + title;
    mKeptLayout.Restore(mLayout.settings, name, mWindows.ScreenWidth(), mWindows.ScreenHeight());
    SetPosition((mWindows.ScreenWidth() - Width()) / 2, (mWindows.ScreenHeight() - Height()) / 2);
    ShowRows(PlaceOfPresent());
    txtSearch.SetFocus();
}

void ReferenceWindow::Form_Resize() {
    const int right = ScaleWidth() - kMargin;
    const int fieldLeft = kMargin + kLabelWidth;
    PlaceControl(lblSearch, kMargin, kMargin, kLabelWidth, kFieldHeight);
    PlaceControl(txtSearch, fieldLeft, kMargin, right - fieldLeft, kFieldHeight);
    const int buttonTop = ScaleHeight() - kMargin - kButtonHeight;
    PlaceControl(cmdCancel, right - kButtonWidth, buttonTop, kButtonWidth, kButtonHeight);
    PlaceControl(cmdOK, right - 2 * kButtonWidth - kMargin, buttonTop, kButtonWidth, kButtonHeight);
    const int gridTop = kFieldHeight + 2 * kMargin;
    PlaceControl(GridReference, kMargin, gridTop, right - kMargin, buttonTop - kMargin - gridTop);
    GridReference.ShowCurrent();
}

void ReferenceWindow::ShowTitles() {
    for (int column = 0; column < mRows.Columns(); ++column) {
        std::string title = mLayout.titles[static_cast<std::size_t>(column)];
        if (column == mSortColumn) title += mDescending ? " ▼" : " ▲";
        GridReference.SetText(0, column, title);
    }
}

// Where the row with the present text is among all, in the first column that has it; the first row
// when none has.
std::size_t ReferenceWindow::PlaceOfPresent() const {
    const std::string_view wanted = platform::WithoutOuterBlanks(mLayout.present);
    if (wanted.empty()) return 0;
    for (int column = 0; column < mRows.Columns(); ++column) {
        for (std::size_t row = 0; row < mRows.Count(); ++row) {
            if (platform::WithoutOuterBlanks(mRows.Cell(row, column)) == wanted) return row;
        }
    }
    return 0;
}

// Shows the found rows with the one at `current`, counted from 0, as the current one.
void ReferenceWindow::ShowRows(std::size_t current) {
    const auto count = static_cast<int>(mFinder.Shown().size());
    GridReference.SetRowSource(count, [this](int place) {
        return mRows.Cells(mFinder.Shown()[static_cast<std::size_t>(place)]);
    });
    if (count > 0) GridReference.MoveTo(static_cast<int>(current) + 1, 0);
    GridReference.SetEnabled(count > 0);
    cmdOK.SetEnabled(count > 0);
    if (mRows.Count() == 0) {
        SetNotice("没有可选的内容");
    } else {
        SetNotice(count == 0 ? "没有符合的内容" : "");
    }
}

// The whole row is the selection.
void ReferenceWindow::SelectRow() {
    GridReference.SetCol(0);
    GridReference.SetSelectionEnd(GridReference.Cols() - 1);
}

void ReferenceWindow::ChooseCurrent() {
    if (GridReference.Row() < 1) return;
    Choose(static_cast<std::size_t>(GridReference.Row() - 1));
}

void ReferenceWindow::SortBy(int column) {
    if (column < 0 || column >= mRows.Columns()) return;
    mDescending = column == mSortColumn && !mDescending;
    mSortColumn = column;
    const auto& shown = mFinder.Shown();
    const int row = GridReference.Row();
    const std::size_t kept = row < 1 ? 0 : shown[static_cast<std::size_t>(row - 1)];
    mFinder.SortBy(column, mDescending);
    ShowTitles();
    const auto place = std::find(shown.begin(), shown.end(), kept);
    ShowRows(place == shown.end() ? 0 : static_cast<std::size_t>(place - shown.begin()));
}

std::vector<std::vector<std::string>> ReferenceWindow::ShownRows() const {
    std::vector<std::vector<std::string>> rows;
    for (const std::size_t row : mFinder.Shown()) {
        auto& cells = rows.emplace_back();
        for (int column = 0; column < mRows.Columns(); ++column) {
            cells.emplace_back(mRows.Cell(row, column));
        }
    }
    return rows;
}

void ReferenceWindow::Choose(std::optional<std::size_t> row) {
    mChosen.reset();
    if (row && *row < mFinder.Shown().size()) mChosen = mFinder.Shown()[*row];
    Unload();
}

std::vector<controls::KeyLine> ReferenceWindow::OwnKeys() const {
    return {{"Up、Down、PageUp、PageDown", "在列表中移动"},
            {"Ctrl+Home、Ctrl+End", "到第一行、最后一行"},
            {"Ctrl+1 … Ctrl+9", "按该列排序，再按一次反向"}};
}

void ReferenceWindow::Form_KeyDown(Key& key, int shift) {
    const bool onButton = ActiveControl() == &cmdOK || ActiveControl() == &cmdCancel;
    const int number = static_cast<int>(key) - static_cast<int>(Key::D0);
    if (MovesInRows(key, shift)) {
        GridReference.KeyDown(key, shift);
    } else if (key == Key::Enter && shift == 0 && !onButton) {
        ChooseCurrent();
    } else if (shift == platform::kCtrl && number >= 1 && number <= 9) {
        SortBy(number - 1);
    } else {
        return;
    }
    key = Key::None;
}

}  // namespace kelvane::reference
