// The list on paper: what the print set-up compares the grid's layout with.
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

void frmPeriodItem::CaptureGridLayout() {
    mGridLayoutText = GridPeriodItem.FormatText();
}

}  // namespace kelvane::ui
