// Entries from elsewhere: a file or the clipboard, shown in the import window before they are
// entered.
#include "data/login_context.h"
#include "ui/common/copied_table.h"
#include "ui/entry_list/entry_grid.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

namespace {

std::string ToldOf(const ImportAnswer& answer) {
    if (!answer.batch) return "没有需要导入的内容。";
    std::string text = "已导入期初：新增 " + std::to_string(answer.created) + " 行";
    if (answer.changed > 0) text += "，修改 " + std::to_string(answer.changed) + " 行";
    if (answer.deleted > 0) text += "，删除 " + std::to_string(answer.deleted) + " 行";
    text += "（批次 " + std::to_string(*answer.batch) + "）。";
    for (const std::string& note : answer.notes) text += note + "。";
    return text;
}

}  // namespace

bool frmPeriodItem::CanImport() const {
    return data::gServices->tableImport != nullptr && !GridPeriodItem.ReadOnly() &&
           !GridPeriodItem.IsEditing();
}

void frmPeriodItem::AddImportActions() {
    AddAction({.caption = "导入",
               .inMenu = true,
               .startsGroup = true,
               .possible = [this] { return CanImport(); },
               .run = [this] { ImportFile(); }});
    AddAction({.stroke = {platform::KeyOfCharacter(U'V'), platform::kCtrl},
               .caption = "粘贴并导入",
               .inMenu = true,
               .possible =
                   [this] {
                       return CanImport() && IsInList() &&
                              IsCopiedTable(data::gServices->windows->ClipboardText());
                   },
               .run =
                   [this] {
                       Import({{}, data::gServices->windows->ClipboardText()});
                   }});
}

void frmPeriodItem::ImportFile() {
    static const platform::FileQuestion kQuestion{
        "导入期初", {}, {{"Excel 工作簿", "xlsx"}, {"CSV 文件", "csv"}, {"文本文件", "txt"}}};
    if (!LeaveUnsaved(GridPeriodItem)) return;
    const auto file = data::gServices->tableImport->ChooseFile(kQuestion);
    if (file) Import({*file, {}});
}

void frmPeriodItem::Import(const ImportRequest& request) {
    if (!LeaveUnsaved(GridPeriodItem)) return;
    const auto answer = ImportEntries(request);
    if (!answer) return;
    ReloadEntries();
    for (int row = GridPeriodItem.FixedRows(); row < GridPeriodItem.Rows(); ++row) {
        if (answer->created == 0 || GridPeriodItem.RowData(row) != answer->firstIdentity) continue;
        GridPeriodItem.MoveTo(row, kDateColumn);
    }
    mFailureNotice.Succeeded(Work::Save);
    // A batch whose end is not noted down is no success alone.
    if (answer->notes.empty()) {
        mNote = ToldOf(*answer);
    } else {
        mFailureNotice.Tell(ToldOf(*answer));
    }
}

// The entries as they are now, in the columns as the operator has them.
void frmPeriodItem::ReloadEntries() {
    try {
        mElementDetails = {};
        mViews.Forget();
        mHistory.Forget();
        ForgetSaved();
        GridPeriodItem.SetRow(0);
        GridPeriodItem.SetRows(1);
        FillEntryGrid(GridPeriodItem, mElementDetails);
        LockEntryRows(GridPeriodItem);
    } catch (...) {
        data::ReportTrapped("LoadEntryGrid");
    }
}

}  // namespace kelvane::ui
