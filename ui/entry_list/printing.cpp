// The list on paper and in files.
#include "ui/common/print_setup.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

void frmPeriodItem::CaptureGridLayout() {
    mPrinted.CaptureLayout();
}

void frmPeriodItem::PreparePrint(int /*mode*/, bool& ok) {
    ok = mPrinted.SetUp(TitleOfShown(kTitle, GridPeriodItem), AccountHeader(), {});
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
