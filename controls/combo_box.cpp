#include "controls/combo_box.h"

#include "controls/form.h"

namespace kelvane::controls {

void ComboBox::AddItem(std::string_view text) {
    mItems.emplace_back(text);
    Touch();
}

void ComboBox::Clear() {
    mItems.clear();
    mText.clear();
    mListIndex = -1;
    Touch();
}

void ComboBox::SetListIndex(int index) {
    const bool exists = index >= 0 && index < static_cast<int>(mItems.size());
    mListIndex = exists ? index : -1;
    if (exists) mText = mItems[static_cast<std::size_t>(index)];
    Touch();
}

void ComboBox::Open() {
    if (!Enabled() || !Visible() || !DropDown) return;
    Owner().RunEvent(Name() + "_DropDown", DropDown);
}

}  // namespace kelvane::controls
