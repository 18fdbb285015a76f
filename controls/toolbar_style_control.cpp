#include "controls/toolbar_style_control.h"

#include <algorithm>

#include "controls/form.h"

namespace kelvane::controls {

void ToolbarStyleControl::SetToolbar(Toolbar& toolbar) {
    mToolbar = &toolbar;
    Refresh();
}

void ToolbarStyleControl::Refresh() {
    mItems.clear();
    if (mToolbar != nullptr) {
        const auto& images = mToolbar->Images();
        for (const ToolbarButton& button : mToolbar->Buttons()) {
            const auto image = std::find_if(
                images.begin(), images.end(),
                [&](const auto& candidate) { return candidate.key == button.Image(); });
            mItems.push_back({button.Key(), button.Caption(),
                              image == images.end() ? 0 : image->picture, button.IsSeparator(),
                              button.Enabled(), button.Visible(), button.Stroke()});
        }
    }
    Touch();
}

void ToolbarStyleControl::Click(std::string_view key) {
    const auto item = std::find_if(mItems.begin(), mItems.end(), [&](const Item& candidate) {
        return !candidate.separator && candidate.key == key;
    });
    if (item == mItems.end() || !item->enabled || !item->visible || !ButtonClick) return;
    const Item clicked = *item;
    Owner().RunEvent(Name() + "_Click", [&] { ButtonClick(clicked.key, clicked.caption); });
}

}  // namespace kelvane::controls
