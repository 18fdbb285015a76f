#include "controls/combo_box.h"

#include "controls/form.h"

namespace kelvane::controls {

void ComboBox::SetText(const std::string& text) {
    if (text == mText) return;
    Assign(mText, text);
    if (Change) Owner().RunEvent(Name() + "_Change", Change);
}

void ComboBox::AddItem(std::string_view text) {
    mItems.emplace_back(text);
    Touch();
}

void ComboBox::Clear() {
    mItems.clear();
    mListIndex = -1;
    SetText("");
    Touch();
}

void ComboBox::SetListIndex(int index) {
    const bool exists = index >= 0 && index < static_cast<int>(mItems.size());
    mListIndex = exists ? index : -1;
    if (exists) SetText(mItems[static_cast<std::size_t>(index)]);
    Touch();
}

void ComboBox::Open() {
    if (!Enabled() || !Visible() || !DropDown) return;
    Owner().RunEvent(Name() + "_DropDown", DropDown);
}

}  // namespace kelvane::controls
