// Opening the editor: its layout, toolbar and the lines of the entry.
#include <algorithm>
#include <utility>

#include "controls/grid_size_actions.h"
#include "data/login_context.h"
#include "data/number_format.h"
#include "entries/failure_reason.h"
#include "ui/common/window_layout.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {

using controls::Alignment;
using controls::InputKind;
using platform::Key;
using platform::RecordSet;
using platform::StatementText;

namespace {

constexpr int kToolbarHeight = 630;
constexpr int kStripHeight = 900;
constexpr int kLabelHeight = 270;
constexpr int kColumnWidth = 1200;
constexpr int kCodeLength = 60;
constexpr int kNameLength = 120;
constexpr int kNumberLength = 15;

void Place(controls::Label& label, const char* caption, int left, int top, int width) {
    label.SetCaption(caption);
    label.SetLeft(left);
    label.SetTop(top);
    label.SetWidth(width);
    label.SetHeight(kLabelHeight);
}

StatementText LinesStatement(bool equipment, int identity) {
    StatementText statement;
    if (equipment) {
        statement << "select a.cEquipCode,a.cEquipName,a.cEquipModel,convert(varchar,b.iuprice,1),"
                     "b.iNum,convert(varchar,b.mQC,1) from "
                     "pm_equipment a,pm_itemQCSub b where a.cEquipCode=b.cCodeMx and b.iEleVid=";
    } else {
        statement << "select a.cInvCode,a.cInvName,a.cInvStd,b.cComUnitName,"
                     "c.iuprice,c.iNum,c.mQC from inventory a left join computationUnit b on "
                     "a.cSAComUnitCode=b.cComUnitCode inner join pm_itemQCSub c on "
                     "a.cInvCode=c.cCodeMx and c.iEleVid=";
    }
    return statement.Number(identity);
}

}  // namespace

frmQCEdit& GetDetailEditorForm() {
    static frmQCEdit form;
    return form;
}

frmQCEdit::frmQCEdit()
    : ToolbarForm("frmQCEdit"),
      Picture1(*this, "Picture1"),
      lblTitle(*this, "lblTitle"),
      Label1(*this, "Label1"),
      lblElement(*this, "lblElement"),
      Label2(*this, "Label2"),
      lblItem(*this, "lblItem"),
      Label3(*this, "Label3"),
      lblDutyCenter(*this, "lblDutyCenter"),
      Grid1(*this, "Grid1") {
    SetCaption("期初余额");
    SetSize(9900, 6600);
    SetMinSize(7200, 4200);
    AddButtons();
    Toolbar1.SetHeight(kToolbarHeight);
    CTBCtrl1.SetHeight(kToolbarHeight);
    Picture1.SetHeight(kStripHeight);
    lblTitle.SetTitle(true);
    Grid1.CellReference = [this](std::string& text, int row, int col) {
        Grid1_CellReference(text, row, col);
    };
    Grid1.CellValidate = [this](std::string& text, controls::GridAnswer& answer, int row, int col) {
        Grid1_CellValidate(text, answer, row, col);
    };
    Grid1.RowValidate = [this](controls::GridAnswer& answer, int row, int& col) {
        Grid1_RowValidate(answer, row, col);
    };
    Grid1.EditModeChange = [this](bool editing) { Grid1_EditModeChange(editing); };
    Grid1.EnterCell = [this] { mHistory.KeepOnly(Grid1.Row()); };
    Grid1.AbandonRow = [this](int row) { Grid1_AbandonRow(row); };
    Grid1.Beep = [] { data::gServices->windows->Beep(); };
    OfferWaysBack();
    AddAction({.stroke = {Key::Quote, platform::kCtrl},
               .caption = "重复上一行",
               .inMenu = true,
               .possible = [this] { return Grid1.CanRepeatAbove(); },
               .run = [this] { Grid1.RepeatAbove(); }});
    controls::AddGridSizeActions(*this, Grid1);
}

DetailAnswer frmQCEdit::Edit(const DetailRequest& request) {
    bEquipment = request.kind == entries::DetailKind::Equipment;
    bReadOnly = request.readOnly;
    mEntry = request.entry;
    mCenterCode = request.centerCode;
    mColTempValues = request.lines;
    // What was saved for an earlier entry must not be answered for this one when the editor is
    // quit.
    RetValue.clear();
    RetStrSql = {};
    mExported = false;
    data::gServices->windows->ShowModal(*this);
    bReadOnly = false;
    return {.total = RetValue,
            .lines = {.script = RetStrSql, .texts = mColTempValues},
            .exported = mExported};
}

void frmQCEdit::Form_Load() {
    SetNotice("");
    mLineBudgets.Forget();
    mHistory.Forget();
    mRefusal.clear();
    mExportFailed = false;
    mOuterTrapListener =
        std::exchange(data::gTrapListener, [this](std::string_view place) { TellFailure(place); });
    SetIconPicture(kPictureWindow);
    lblTitle.SetCaption(bEquipment ? "项目期初设备明细" : "项目期初存货明细");
    lblElement.SetCaption(mEntry.elementName);
    lblItem.SetCaption(mEntry.itemCode);
    lblDutyCenter.SetCaption(mCenterCode);
    SetupToolbar();
    // Lines that could not be read must not be replaced by what the grid shows.
    AllowChanges(false);
    try {
        LoadDetailGrid();
    } catch (...) {
        LayOutGrid();
        TakeSnapshot();
        throw;
    }
    TakeSnapshot();
    mPrinted.CaptureLayout();
    AllowChanges(!bReadOnly);
    // Two layouts share the window; their columns have nothing to do with each other.
    RestoreLayout(mKeptLayout, Name() + (bEquipment ? " equipment" : " inventory"));
}

void frmQCEdit::Form_Activate() {
    ApplyToolbarStyle(*this);
    CTBCtrl1.Refresh();
}

void frmQCEdit::LayOutGrid() {
    Grid1.SetRows(0);
    Grid1.SetFixedCols(0);
    Grid1.SetCols(1);
    Grid1.SetRows(1);
    Grid1.SetBackColor(data::gColorWhite);
    Grid1.SetFixedColor(data::gColorPink);
    Grid1.SetFormat(bEquipment ? "<设备编码|<设备名称|<规格|>台班单价|>数量|>余额"
                               : "<存货编码|<存货名称|<规格|^单位|>单价|>数量|>余额");
    Grid1.SetRowHeight(0, 400);
}

void frmQCEdit::LoadDetailGrid() {
    LayOutGrid();
    if (!mColTempValues.empty()) {
        for (const std::string& line : mColTempValues) Grid1.AddItem(line);
    } else {
        const auto lines = data::gConn->OpenRecordSet(LinesStatement(bEquipment, mEntry.identity),
                                                      {.location = platform::CursorLocation::Client,
                                                       .lock = platform::LockType::ReadOnly,
                                                       .command = platform::CommandType::Text});
        for (; !lines->EndOfFile(); lines->MoveNext()) AppendLine(*lines);
    }
    for (int col = 0; col < Grid1.Cols(); ++col) {
        Grid1.SetFixedRowAlignment(col, Alignment::Center);
        Grid1.SetColumnWidth(col, kColumnWidth);
        Grid1.SetColumnInput(col, {InputKind::Text});
        Grid1.SetColumnReference(col, false);
    }
    Grid1.SetLockedColor(data::gColorLocked);
    Grid1.SetColumnInput(0, {InputKind::Text, kCodeLength});
    Grid1.SetColumnInput(1, {InputKind::Text, kNameLength});
    const bool hasLists = static_cast<bool>(data::gServices->createReferenceList);
    Grid1.SetColumnReference(0, hasLists);
    Grid1.SetColumnReference(1, hasLists);
    Grid1.SetColumnInput(PriceColumn(),
                         {InputKind::Number, kNumberLength, data::gNumPointPrice, true});
    Grid1.SetColumnInput(QuantityColumn(),
                         {InputKind::Number, kNumberLength, data::gNumPointQty, true});
    Grid1.SumColumn(AmountColumn());
    for (int row = 1; row <= Grid1.Rows(); ++row) ShadeRow(row);
    Grid1.SetFixedCols(0);
    if (Grid1.Rows() > 1) Grid1.SetFixedRows(1);
    Grid1.SetRow(0);
    Grid1.SetCol(0);
    Grid1.SetTopRow(1);
}

void frmQCEdit::AppendLine(const RecordSet& line) {
    const int last = line.FieldCount() - 1;
    std::string cells;
    for (int field = 0; field <= last - 3; ++field) cells += line.Field(field).ToText() + '\t';
    cells += data::NumFormatText(line.Field(last - 2), data::kPriceKind, true) + '\t';
    cells += data::NumFormatText(line.Field(last - 1), data::kQuantityKind, true) + '\t';
    cells += data::NumFormatText(line.Field(last), data::kMoneyKind, true);
    Grid1.AddItem(cells);
}

void frmQCEdit::ShadeRow(int row) {
    for (const int col : {2, UnitColumn(), AmountColumn()}) {
        Grid1.SetCellColor(row, col, data::gColorLocked);
    }
}

void frmQCEdit::AddDetailRow() {
    if (Grid1.FinishEdit() == controls::GridAnswer::Refuse) return;
    const int row = Grid1.AddItem("");
    ShadeRow(row);
    Grid1.SetFixedRows(1);
    // The operator goes on in the new line, unless leaving the present one is refused.
    Grid1.MoveTo(row, 0);
}

void frmQCEdit::Form_Resize() {
    int top = 0;
    if (Toolbar1.Visible()) {
        Toolbar1.SetLeft(0);
        Toolbar1.SetTop(0);
        Toolbar1.SetWidth(ScaleWidth());
        top = Toolbar1.Top() + Toolbar1.Height();
    } else {
        CTBCtrl1.SetLeft(0);
        CTBCtrl1.SetTop(0);
        CTBCtrl1.SetWidth(ScaleWidth());
        top = CTBCtrl1.Top() + CTBCtrl1.Height();
    }
    Picture1.SetLeft(0);
    Picture1.SetTop(top);
    Picture1.SetWidth(ScaleWidth());
    lblTitle.SetLeft((ScaleWidth() - 3600) / 2);
    lblTitle.SetTop(top + 90);
    lblTitle.SetWidth(3600);
    lblTitle.SetHeight(360);
    const int labels = top + 540;
    const int third = ScaleWidth() / 3;
    Place(Label1, "项目要素:", 120, labels, 960);
    Place(Label2, "项目:", third + 120, labels, 540);
    Place(Label3, "责任中心:", 2 * third + 120, labels, 960);
    Place(lblElement, lblElement.Caption().c_str(), 1110, labels, std::max(0, third - 1050));
    Place(lblItem, lblItem.Caption().c_str(), third + 690, labels, std::max(0, third - 630));
    Place(lblDutyCenter, lblDutyCenter.Caption().c_str(), 2 * third + 1110, labels,
          std::max(0, third - 1200));
    Grid1.SetLeft(0);
    Grid1.SetTop(Picture1.Top() + Picture1.Height());
    Grid1.SetWidth(ScaleWidth());
    Grid1.SetHeight(std::max(0, ScaleHeight() - Grid1.Top()));
}

void frmQCEdit::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

void frmQCEdit::TellFailure(std::string_view place) {
    if (mOuterTrapListener) mOuterTrapListener(place);
    mExportFailed = place == "WriteToFile";
    std::string sentence = place == "Form_Load"
                               ? "读取明细时出错，明细没有显示，现在不能修改，请退出后重试。"
                               : "操作时出错，该操作没有完成，已录入的明细仍保留在表格中。";
    SetNotice(sentence += entries::ReasonOfFailure());
}

}  // namespace kelvane::ui
