#include "ui/import/columns_dialog.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "controls/place.h"
#include "data/login_context.h"
#include "data/messages.h"
#include "data/text_conversion.h"
#include "ui/import/kept_columns.h"

namespace kelvane::ui {

using controls::GridAnswer;
using entries::GivenColumns;
using entries::TableColumn;
using platform::TableCell;
using platform::TableRow;

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kLabelWidth = 1500;
constexpr int kFieldWidth = 1800;
constexpr int kSheetLabelWidth = 900;
constexpr int kFieldHeight = 330;
constexpr int kButtonWidth = 1200;
constexpr int kButtonHeight = 375;
constexpr int kWidth = 8400;
constexpr int kHeight = 6000;

enum Column { kOursColumn, kPlaceColumn, kSampleColumn, kColumnCount };

constexpr const char* kNoTitles = "没有标题";

std::string TitleRowText(int number) {
    return number == 0 ? kNoTitles : "第 " + std::to_string(number) + " 行";
}

}  // namespace

frmImportColumns::frmImportColumns(const std::vector<platform::TableSheet>& sheets,
                                   RowsOfSheet firstRows, const entries::TableShape& shape)
    : Form("frmImportColumns"),
      lblSheet(*this, "lblSheet"),
      cboSheet(*this, "cboSheet"),
      lblTitles(*this, "lblTitles"),
      cboTitles(*this, "cboTitles"),
      GridColumns(*this, "GridColumns"),
      cmdOK(*this, "cmdOK"),
      cmdCancel(*this, "cmdCancel"),
      mSheets(sheets),
      mFirstRows(std::move(firstRows)),
      mShape(shape) {
    SetCaption("对应列：" + shape.sheet);
    lblSheet.SetCaption("工作表");
    lblTitles.SetCaption("标题所在行");
    cmdOK.SetCaption("确定");
    cmdOK.SetDefault(true);
    cmdCancel.SetCaption("取消");
    cmdCancel.SetCancel(true);
    for (const platform::TableSheet& each : mSheets) cboSheet.AddItem(each.name);
    lblSheet.SetVisible(mSheets.size() > 1);
    cboSheet.SetVisible(mSheets.size() > 1);
    GridColumns.SetRows(1);
    GridColumns.SetCols(kColumnCount);
    GridColumns.SetFixedCols(1);
    GridColumns.SetFixedColor(data::gColorPink);
    GridColumns.SetLockedColor(data::gColorLocked);
    GridColumns.SetText(0, kOursColumn, "期初的列");
    GridColumns.SetText(0, kPlaceColumn, "表中的列");
    GridColumns.SetText(0, kSampleColumn, "内容");
    GridColumns.SetColumnList(kPlaceColumn, true);
    GridColumns.ComboDropDown = [this](int /*row*/, int /*col*/, controls::GridDropList& list) {
        list.AddItem("");
        for (int place = 1; place <= mWidestRow; ++place) list.AddItem(NameOfPlace(place));
    };
    GridColumns.CellValidate = [this](std::string& text, GridAnswer& answer, int row, int /*col*/) {
        TakePlace(row, text);
        answer = GridAnswer::Accept;
    };
    GridColumns.Beep = [] { data::gServices->windows->Beep(); };
    cboSheet.Change = [this] { cboSheet_Change(); };
    cboTitles.Change = [this] { cboTitles_Change(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { Unload(); };
    SetSize(kWidth, kHeight);
    SetMinSize(kWidth, kHeight / 2);
}

void frmImportColumns::TakeSheet(std::size_t sheet) {
    mSheet = sheet;
    mRows = mFirstRows(sheet);
    mWidestRow = 0;
    for (const TableRow& row : mRows) {
        if (!row.cells.empty()) mWidestRow = std::max(mWidestRow, row.cells.back().column);
    }
    OfferColumns();
    ProposeTitleRow();
    ProposePlaces();
}

// Those that only a table of the program's own has are there when the titles name them.
void frmImportColumns::OfferColumns() {
    mColumns.clear();
    for (const TableColumn& column : mShape.columns) {
        if (column.column <= entries::kRowNumberColumn || IsNamed(column)) {
            mColumns.push_back(column);
        }
    }
    std::ranges::sort(mColumns, {}, &TableColumn::column);
    mPlaces.assign(mColumns.size(), 0);
    GridColumns.SetRows(1);
    for (const TableColumn& column : mColumns) {
        const int row = GridColumns.AddItem(column.titles.front() + (column.needed ? " *" : ""));
        GridColumns.SetCellColor(row, kSampleColumn, data::gColorLocked);
    }
}

bool frmImportColumns::IsNamed(const TableColumn& column) const {
    return std::ranges::any_of(mRows, [&](const TableRow& row) {
        return std::ranges::any_of(row.cells, [&](const TableCell& cell) {
            const TableColumn* known = entries::FindColumn(mShape, cell.text);
            return known != nullptr && known->column == column.column;
        });
    });
}

std::optional<ChosenColumns> frmImportColumns::Ask(std::size_t sheet,
                                                   const std::optional<ChosenColumns>& known) {
    mAnswer.reset();
    TakeSheet(known ? known->sheet : sheet);
    if (known) {
        mTitleRow = known->columns.titleRow;
        for (std::size_t at = 0; at < mColumns.size(); ++at) {
            const auto column = static_cast<std::size_t>(mColumns[at].column);
            mPlaces[at] = known->columns.places[column].column;
        }
    }
    data::gServices->windows->ShowModal(*this);
    return mAnswer;
}

void frmImportColumns::Form_Load() {
    const platform::Windows& windows = *data::gServices->windows;
    SetPosition((windows.ScreenWidth() - Width()) / 2, (windows.ScreenHeight() - Height()) / 2);
    cboSheet.SetText(mSheets.at(mSheet).name);
    ShowPlaces();
    GridColumns.SetFocus();
    GridColumns.MoveTo(1, kPlaceColumn);
}

void frmImportColumns::Form_Resize() {
    const int right = ScaleWidth() - kMargin;
    const int buttons = ScaleHeight() - kMargin - kButtonHeight;
    PlaceControl(lblTitles, kMargin, kMargin, kLabelWidth, kFieldHeight);
    PlaceControl(cboTitles, kMargin + kLabelWidth, kMargin, kFieldWidth, kFieldHeight);
    const int middle = cboTitles.Left() + kFieldWidth + 2 * kMargin;
    PlaceControl(lblSheet, middle, kMargin, kSheetLabelWidth, kFieldHeight);
    PlaceControl(cboSheet, middle + kSheetLabelWidth, kMargin, right - middle - kSheetLabelWidth,
                 kFieldHeight);
    PlaceControl(cmdCancel, right - kButtonWidth, buttons, kButtonWidth, kButtonHeight);
    PlaceControl(cmdOK, right - 2 * kButtonWidth - kMargin, buttons, kButtonWidth, kButtonHeight);
    const int top = kFieldHeight + 2 * kMargin;
    PlaceControl(GridColumns, kMargin, top, right - kMargin, buttons - kMargin - top);
    const int width = GridColumns.ViewWidth();
    constexpr int kShare = 3;
    for (int col = 0; col < kColumnCount; ++col) GridColumns.SetColumnWidth(col, width / kShare);
}

const TableRow* frmImportColumns::TitleRow() const {
    const auto found = std::ranges::find(mRows, mTitleRow, &TableRow::number);
    return mTitleRow == 0 || found == mRows.end() ? nullptr : &*found;
}

// "B 工程编号"; "B" in a table without titles.
std::string frmImportColumns::NameOfPlace(int place) const {
    if (place == 0) return {};
    const TableRow* titles = TitleRow();
    const std::string title = titles == nullptr ? std::string() : titles->At(place).text;
    return ColumnLetters(place) + (title.empty() ? "" : " " + data::Trim(title));
}

// What the first row below the titles has there.
std::string frmImportColumns::SampleOf(int place) const {
    for (const TableRow& row : mRows) {
        const TableCell& cell = row.At(place);
        if (row.number <= mTitleRow || cell.kind == platform::CellKind::Blank) continue;
        return cell.kind == platform::CellKind::Date && cell.date.IsValid()
                   ? cell.date.DateText('-')
                   : cell.text;
    }
    return {};
}

int frmImportColumns::PlaceNamed(const std::string& text) const {
    for (int place = 1; place <= mWidestRow; ++place) {
        if (text == NameOfPlace(place) || text == ColumnLetters(place)) return place;
    }
    return 0;
}

// The row that has most of the titles; the first one when none has any.
void frmImportColumns::ProposeTitleRow() {
    std::ptrdiff_t most = -1;
    mTitleRow = 0;
    for (const TableRow& row : mRows) {
        const std::ptrdiff_t known = std::ranges::count_if(row.cells, [&](const TableCell& cell) {
            return entries::FindColumn(mShape, cell.text) != nullptr;
        });
        if (known <= most) continue;
        most = known;
        mTitleRow = row.number;
    }
}

void frmImportColumns::ProposePlaces() {
    std::ranges::fill(mPlaces, 0);
    const TableRow* titles = TitleRow();
    if (titles == nullptr) return;
    for (const TableCell& cell : titles->cells) {
        const TableColumn* known = entries::FindColumn(mShape, cell.text);
        for (std::size_t at = 0; at < mColumns.size(); ++at) {
            if (known != nullptr && mColumns[at].column == known->column && mPlaces[at] == 0) {
                mPlaces[at] = cell.column;
            }
        }
    }
}

void frmImportColumns::ShowPlaces() {
    cboTitles.Clear();
    cboTitles.AddItem(kNoTitles);
    for (const TableRow& row : mRows) cboTitles.AddItem(TitleRowText(row.number));
    cboTitles.SetText(TitleRowText(mTitleRow));
    ShowPlacesAlone();
}

void frmImportColumns::ShowPlacesAlone() {
    for (std::size_t at = 0; at < mPlaces.size(); ++at) {
        const int row = static_cast<int>(at) + 1;
        GridColumns.SetText(row, kPlaceColumn, NameOfPlace(mPlaces[at]));
        GridColumns.SetText(row, kSampleColumn, mPlaces[at] == 0 ? "" : SampleOf(mPlaces[at]));
    }
}

void frmImportColumns::cboSheet_Change() {
    const auto chosen = std::ranges::find(mSheets, cboSheet.Text(), &platform::TableSheet::name);
    const auto sheet = static_cast<std::size_t>(std::distance(mSheets.begin(), chosen));
    if (chosen == mSheets.end() || sheet == mSheet) return;
    GridColumns.CancelEdit();
    TakeSheet(sheet);
    ShowPlaces();
    GridColumns.SetRow(1);
}

void frmImportColumns::cboTitles_Change() {
    const std::string text = cboTitles.Text();
    int chosen = text == kNoTitles ? 0 : -1;
    for (const TableRow& row : mRows) {
        if (text == TitleRowText(row.number)) chosen = row.number;
    }
    if (chosen < 0 || chosen == mTitleRow) return;
    mTitleRow = chosen;
    if (std::ranges::all_of(mPlaces, [](int place) { return place == 0; })) ProposePlaces();
    ShowPlacesAlone();
}

void frmImportColumns::TakePlace(int row, std::string& text) {
    int& place = mPlaces.at(static_cast<std::size_t>(row) - 1);
    place = PlaceNamed(data::Trim(text));
    text = NameOfPlace(place);
    GridColumns.SetText(row, kSampleColumn, place == 0 ? "" : SampleOf(place));
}

void frmImportColumns::cmdOK_Click() {
    if (GridColumns.FinishEdit() == GridAnswer::Refuse) return;
    GivenColumns given{mTitleRow, {}};
    given.places.resize(static_cast<std::size_t>(mShape.columnCount));
    for (std::size_t at = 0; at < mColumns.size(); ++at) {
        const TableColumn& column = mColumns[at];
        const int place = mPlaces[at];
        if (place == 0 && column.needed) {
            data::ShowInformation("请指明哪一列是“" + column.titles.front() + "”。");
            GridColumns.MoveTo(static_cast<int>(at) + 1, kPlaceColumn);
            return;
        }
        if (place > 0 && std::ranges::count(mPlaces, place) > 1) {
            data::ShowInformation("表中的列 " + NameOfPlace(place) + " 只能对应期初的一列。");
            GridColumns.MoveTo(static_cast<int>(at) + 1, kPlaceColumn);
            return;
        }
        const TableRow* titles = TitleRow();
        given.places[static_cast<std::size_t>(column.column)] = {
            place, titles == nullptr ? std::string() : entries::PlainTitle(titles->At(place).text)};
    }
    mAnswer = {mSheet, std::move(given)};
    Unload();
}

void frmImportColumns::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

}  // namespace kelvane::ui
