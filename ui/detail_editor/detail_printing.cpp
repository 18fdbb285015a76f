// The detail lines on paper and in files.
#include <utility>

#include "data/login_context.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {

using platform::PrintItem;

bool frmQCEdit::BuildDetailPrintStyle(const std::string& title) {
    const std::vector<PrintItem> header = {
        {"项目要素", lblElement.Caption(), "0,200", "500"},
        {"项目", lblItem.Caption(), "600,200", "500"},
        {"责任中心", lblDutyCenter.Caption(), "1200,200", "375"},
    };
    const std::vector<PrintItem> footer = {
        {"单位", data::gUnitName, "0,0", "375"},
        {"制表人", data::gOperatorName, "700,0", "375"},
        {"打印日期", data::gToday, "1350,0", "375"},
    };
    return mPrinted.SetUp(title, header, footer);
}

bool frmQCEdit::PreparePrint() {
    return BuildDetailPrintStyle(lblTitle.Caption());
}

void frmQCEdit::PreviewDetails() {
    if (PreparePrint()) mPrinted.Preview();
}

void frmQCEdit::PrintDetails() {
    if (Grid1.FinishEdit() == controls::GridAnswer::Refuse) return;
    if (PreparePrint()) mPrinted.Print();
}

void frmQCEdit::ExportDetails() {
    if (Grid1.FinishEdit() == controls::GridAnswer::Refuse) return;
    if (!PreparePrint() || !mPrinted.Export()) return;
    mExported = true;
    if (std::exchange(mExportFailed, false)) SetNotice("");
}

}  // namespace kelvane::ui
