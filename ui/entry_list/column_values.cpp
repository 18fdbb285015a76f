#include "ui/entry_list/column_values.h"

#include <unordered_map>

#include "controls/place.h"
#include "data/login_context.h"
#include "data/text_conversion.h"
#include "platform/text_search.h"
#include "ui/common/list_views.h"
#include "ui/common/window_layout.h"

namespace kelvane::ui {

using platform::Key;

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kLabelWidth = 600;
constexpr int kFieldHeight = 330;
constexpr int kButtonWidth = 1200;
constexpr int kButtonHeight = 375;
constexpr int kWidth = 5400;
constexpr int kHeight = 6600;
constexpr int kCountWidth = 1000;

constexpr int kValueColumn = 0;
constexpr int kCountColumn = 1;

}  // namespace

frmColumnValues::frmColumnValues(const controls::Grid& list, int col)
    : Form("frmColumnValues"),
      lblSearch(*this, "lblSearch"),
      txtSearch(*this, "txtSearch"),
      cmdOK(*this, "cmdOK"),
      cmdCancel(*this, "cmdCancel"),
      GridValues(*this, "GridValues") {
    SetCaption("筛选：" + list.Text(0, col));
    SetSize(kWidth, kHeight);
    SetMinSize(kWidth, kHeight / 2);
    lblSearch.SetCaption("查找");
    cmdOK.SetCaption("确定");
    cmdOK.SetDefault(true);
    cmdCancel.SetCaption("取消");
    cmdCancel.SetCancel(true);
    GridValues.SetTakesFocus(false);
    txtSearch.Change = [this] { Narrow(); };
    cmdOK.Click = [this] {
        if (GridValues.Row() > 0) Choose(static_cast<std::size_t>(GridValues.Row() - 1));
    };
    cmdCancel.Click = [this] { Choose(std::nullopt); };
    GridValues.CellDoubleClick = [this](int row, int /*col*/) {
        if (row > 0) Choose(static_cast<std::size_t>(row - 1));
    };
    FillFrom(list, col);
}

// A blank value is told from the text that stands for it by its row's data.
void frmColumnValues::FillFrom(const controls::Grid& list, int col) {
    std::unordered_map<std::string, int> counts;
    for (int row = list.FixedRows(); row < list.Rows(); ++row) {
        ++counts[data::Trim(list.Text(row, col))];
    }
    if (list.Row() >= list.FixedRows()) mPresent = data::Trim(list.Text(list.Row(), col));
    GridValues.SetFixedCols(0);
    GridValues.SetCols(2);
    GridValues.SetRows(1);
    GridValues.SetReadOnly(true);
    GridValues.SetText(0, kValueColumn, list.Text(0, col));
    GridValues.SetText(0, kCountColumn, "行数");
    GridValues.SetColumnInput(kValueColumn, list.Input(col));
    GridValues.SetColumnAlignment(kValueColumn, list.ColumnAlignment(col));
    GridValues.SetColumnAlignment(kCountColumn, controls::Alignment::Right);
    for (const auto& [value, count] : counts) {
        const int row = GridValues.AddItem(value + "\t" + std::to_string(count));
        GridValues.SetRowData(row, value.empty() ? 1 : 0);
    }
    GridValues.SortRows(kValueColumn, false);
    for (int row = GridValues.Rows() - 1; row > 0 && GridValues.RowData(row) != 0; --row) {
        GridValues.SetText(row, kValueColumn, kBlankValue);
    }
}

std::optional<std::string> frmColumnValues::Ask() {
    mChosen.reset();
    data::gServices->windows->ShowModal(*this);
    return mChosen;
}

void frmColumnValues::Form_Load() {
    Centre(*this);
    ShowFirst();
    txtSearch.SetFocus();
}

void frmColumnValues::Form_Resize() {
    const int right = ScaleWidth() - kMargin;
    const int field = kMargin + kLabelWidth;
    PlaceControl(lblSearch, kMargin, kMargin, kLabelWidth, kFieldHeight);
    PlaceControl(txtSearch, field, kMargin, right - field, kFieldHeight);
    const int buttons = ScaleHeight() - kMargin - kButtonHeight;
    PlaceControl(cmdCancel, right - kButtonWidth, buttons, kButtonWidth, kButtonHeight);
    PlaceControl(cmdOK, right - 2 * kButtonWidth - kMargin, buttons, kButtonWidth, kButtonHeight);
    const int top = kFieldHeight + 2 * kMargin;
    PlaceControl(GridValues, kMargin, top, right - kMargin, buttons - kMargin - top);
    GridValues.SetColumnWidth(kValueColumn, GridValues.ViewWidth() - kCountWidth);
    GridValues.SetColumnWidth(kCountColumn, kCountWidth);
    GridValues.ShowCurrent();
}

void frmColumnValues::Narrow() {
    GridValues.UnfilterRows();
    platform::TextSearch search(txtSearch.Text());
    if (!search.IsEmpty()) {
        GridValues.FilterRows(kValueColumn, [&](int row) {
            return search.Finds(GridValues.Text(row, kValueColumn));
        });
    }
    ShowFirst();
}

// The list opens on the value of the current row.
void frmColumnValues::ShowFirst() {
    const int rows = GridValues.Rows();
    SetNotice(rows > 1 ? "" : "没有符合的内容");
    cmdOK.SetEnabled(rows > 1);
    if (rows <= 1) return;
    int row = 1;
    while (row < rows - 1 && GridValues.Text(row, kValueColumn) != mPresent) ++row;
    if (GridValues.Text(row, kValueColumn) != mPresent) row = 1;
    GridValues.MoveTo(row, kValueColumn);
}

std::vector<std::string> frmColumnValues::Titles() const {
    return {GridValues.Text(0, kValueColumn), GridValues.Text(0, kCountColumn)};
}

std::vector<std::vector<std::string>> frmColumnValues::ShownRows() const {
    std::vector<std::vector<std::string>> rows;
    for (int row = 1; row < GridValues.Rows(); ++row) {
        rows.push_back({GridValues.Text(row, kValueColumn), GridValues.Text(row, kCountColumn)});
    }
    return rows;
}

void frmColumnValues::Choose(std::optional<std::size_t> row) {
    mChosen.reset();
    if (row && *row + 1 < static_cast<std::size_t>(GridValues.Rows())) {
        const int chosen = static_cast<int>(*row) + 1;
        mChosen = GridValues.RowData(chosen) != 0 ? "" : GridValues.Text(chosen, kValueColumn);
    }
    Unload();
}

// The arrows and the page keys move among the values while the field keeps the keyboard.
void frmColumnValues::Form_KeyDown(Key& key, int shift) {
    const bool moves =
        key == Key::Up || key == Key::Down || key == Key::PageUp || key == Key::PageDown;
    if (!moves || shift != 0) return;
    GridValues.KeyDown(key, shift);
    key = Key::None;
}

void frmColumnValues::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

}  // namespace kelvane::ui
