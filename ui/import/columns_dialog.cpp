#include "ui/import/columns_dialog.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "controls/place.h"
#include "data/login_context.h"
#include "data/messages.h"
#include "data/text_conversion.h"
#include "ui/common/window_layout.h"

namespace kelvane::ui {

using controls::GridAnswer;
using entries::TableColumn;

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
      mChoice(shape) {
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
        for (int place = 1; place <= mChoice.Width(); ++place) {
            list.AddItem(mChoice.NameOf(place));
        }
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

// `known` is where to begin; null: with what the titles say.
void frmImportColumns::TakeSheet(std::size_t sheet, const ChosenColumns* known) {
    mSheet = sheet;
    mChoice.Take(mFirstRows(sheet),
                 known == nullptr ? std::nullopt : std::optional(known->columns));
    GridColumns.SetRows(1);
    for (const TableColumn& column : mChoice.Columns()) {
        const int row = GridColumns.AddItem(column.titles.front() + (column.needed ? " *" : ""));
        GridColumns.SetCellColor(row, kSampleColumn, data::gColorLocked);
    }
}

std::optional<ChosenColumns> frmImportColumns::Ask(std::size_t sheet,
                                                   const std::optional<ChosenColumns>& known) {
    mAnswer.reset();
    TakeSheet(known ? known->sheet : sheet, known ? &*known : nullptr);
    data::gServices->windows->ShowModal(*this);
    return mAnswer;
}

void frmImportColumns::Form_Load() {
    Centre(*this);
    cboSheet.SetText(mSheets.at(mSheet).name);
    ShowSheet();
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

void frmImportColumns::ShowSheet() {
    cboTitles.Clear();
    cboTitles.AddItem(kNoTitles);
    for (const int row : mChoice.Rows()) cboTitles.AddItem(TitleRowText(row));
    cboTitles.SetText(TitleRowText(mChoice.TitleRow()));
    ShowPlaces();
}

void frmImportColumns::ShowPlaces() {
    for (int row = 1; row < GridColumns.Rows(); ++row) {
        GridColumns.SetText(row, kPlaceColumn, mChoice.NameOf(PlaceIn(row)));
        ShowSample(row);
    }
}

void frmImportColumns::ShowSample(int row) {
    const int place = PlaceIn(row);
    GridColumns.SetText(row, kSampleColumn, place == 0 ? "" : mChoice.SampleOf(place));
}

int frmImportColumns::PlaceIn(int row) const {
    return mChoice.Places().at(static_cast<std::size_t>(row) - 1);
}

void frmImportColumns::cboSheet_Change() {
    const auto chosen = std::ranges::find(mSheets, cboSheet.Text(), &platform::TableSheet::name);
    const auto sheet = static_cast<std::size_t>(std::distance(mSheets.begin(), chosen));
    if (chosen == mSheets.end() || sheet == mSheet) return;
    GridColumns.CancelEdit();
    TakeSheet(sheet, nullptr);
    ShowSheet();
    GridColumns.SetRow(1);
}

void frmImportColumns::cboTitles_Change() {
    int chosen = cboTitles.Text() == kNoTitles ? 0 : -1;
    for (const int row : mChoice.Rows()) {
        if (cboTitles.Text() == TitleRowText(row)) chosen = row;
    }
    if (chosen < 0 || chosen == mChoice.TitleRow()) return;
    mChoice.SetTitleRow(chosen);
    ShowPlaces();
}

void frmImportColumns::TakePlace(int row, std::string& text) {
    const int place = mChoice.PlaceNamed(data::Trim(text));
    mChoice.SetPlace(static_cast<std::size_t>(row) - 1, place);
    text = mChoice.NameOf(place);
    ShowSample(row);
}

void frmImportColumns::cmdOK_Click() {
    if (GridColumns.FinishEdit() == GridAnswer::Refuse) return;
    for (int row = 1; row < GridColumns.Rows(); ++row) {
        const TableColumn& column = mChoice.Columns()[static_cast<std::size_t>(row) - 1];
        const int place = PlaceIn(row);
        std::string refusal;
        if (place == 0 && column.needed) {
            refusal = "请指明哪一列是“" + column.titles.front() + "”。";
        } else if (place > 0 && std::ranges::count(mChoice.Places(), place) > 1) {
            refusal = "表中的列 " + mChoice.NameOf(place) + " 只能对应期初的一列。";
        }
        if (refusal.empty()) continue;
        data::ShowInformation(refusal);
        GridColumns.MoveTo(row, kPlaceColumn);
        return;
    }
    mAnswer = {mSheet, mChoice.Given()};
    Unload();
}

void frmImportColumns::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

}  // namespace kelvane::ui
