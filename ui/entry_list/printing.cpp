// The list on paper and in files.
#include "data/login_context.h"
#include "ui/common/print_setup.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

namespace {

// Three cells above the title, the date under the last of them, right above the table.
std::vector<platform::PrintItem> HeaderItems() {
    return {
        {"年度", data::gAccountYear, "0,0", "500"},
        {"单位", data::gUnitName, "700,0", "500"},
        {"制表人", data::gOperatorName, "1350,0", "375"},
        {"打印日期", data::gToday, "1350,200", "375"},
    };
}

}  // namespace

void frmPeriodItem::CaptureGridLayout() {
    mPrinted.CaptureLayout();
}

void frmPeriodItem::PreparePrint(int /*mode*/, bool& ok) {
    ok = mPrinted.SetUp(TitleOfShown(kTitle, GridPeriodItem), HeaderItems(), {});
}

void frmPeriodItem::PreviewList() {
    bool ok = false;
    PreparePrint(kPrintMode, ok);
    if (ok) mPrinted.Preview();
}

void frmPeriodItem::PrintList() {
    bool ok = false;
    PreparePrint(kPrintMode, ok);
    if (ok) mPrinted.Print();
}

void frmPeriodItem::ExportList() {
    bool ok = false;
    PreparePrint(kExportMode, ok);
    if (ok && mPrinted.Export()) mFailureNotice.Succeeded(Work::Export);
}

void frmPeriodItem::xmlPrt_SaveSettings(const std::string& text1, const std::string& text2) {
    SavePrintSettings(text1, text2);
}

}  // namespace kelvane::ui
