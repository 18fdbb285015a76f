// The summary on paper and in files.
#include "ui/summary/summary_window.h"

namespace kelvane::ui {

bool frmSummary::PreparePrint() {
    const std::string names = mChoice.Names();
    return mPrinted.SetUp("期初汇总" + (names.empty() ? "" : "（按" + names + "）"),
                          AccountHeader(), {});
}

void frmSummary::PrintSummary() {
    if (PreparePrint()) mPrinted.Print();
}

void frmSummary::PreviewSummary() {
    if (PreparePrint()) mPrinted.Preview();
}

void frmSummary::ExportSummary() {
    if (PreparePrint() && mPrinted.Export()) SetNotice("");
}

}  // namespace kelvane::ui
