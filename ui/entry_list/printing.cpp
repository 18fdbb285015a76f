// The list on paper and in files.
#include "data/login_context.h"
#include "ui/common/print_setup.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

void frmPeriodItem::CaptureGridLayout() {
    mGridLayoutText = GridPeriodItem.FormatText();
}

void frmPeriodItem::PreparePrint(int /*mode*/, bool& ok) {
    xmlPrt = data::gServices->createPrintControl();
    xmlPrt->SaveSettings = [this](const std::string& text1, const std::string& text2) {
        xmlPrt_SaveSettings(text1, text2);
    };
    ok = SetUpPrint(*xmlPrt, {.grid = GridPeriodItem,
                              .title = std::string(kTitle),
                              .loadedLayout = mGridLayoutText,
                              .header = {{"年度", data::gAccountYear, "0,200", "700"}},
                              .footer = SignatureItems()});
}

void frmPeriodItem::PreviewList() {
    bool ok = false;
    PreparePrint(kPrintMode, ok);
    if (ok) xmlPrt->Preview();
}

void frmPeriodItem::PrintList() {
    bool ok = false;
    PreparePrint(kPrintMode, ok);
    if (ok) xmlPrt->Print();
}

void frmPeriodItem::ExportList() {
    bool ok = false;
    PreparePrint(kExportMode, ok);
    if (ok && ExportGrid(*xmlPrt, GridPeriodItem)) ExportSucceeded();
}

void frmPeriodItem::ExportSucceeded() {
    mFailureNotice.Succeeded(Work::Export);
}

void frmPeriodItem::xmlPrt_SaveSettings(const std::string& text1, const std::string& text2) {
    SavePrintSettings(text1, text2);
}

}  // namespace kelvane::ui
