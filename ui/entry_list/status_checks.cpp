// Whether the period is closed, the year carried over, an item settled.
#include "entries/opening_period.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

bool frmPeriodItem::CheckPeriodClosed() {
    return entries::IsPeriodClosed();
}

bool frmPeriodItem::CheckYearCarriedOver() {
    return entries::IsYearCarriedOver();
}

bool frmPeriodItem::CheckItemSettled(const std::string& item, const std::string& key1,
                                     const std::string& key2) {
    return mMasterData.ItemSettled(item, key1, key2);
}

std::string frmPeriodItem::GetItemName(const std::string& item) {
    return entries::NameOfItem(item);
}

}  // namespace kelvane::ui
