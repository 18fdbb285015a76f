#include "controls/toolbar.h"

#include <algorithm>

#include "controls/form.h"

namespace kelvane::controls {

void ToolbarButton::SetEnabled(bool enabled) {
    mToolbar->Assign(mEnabled, enabled);
}

void ToolbarButton::SetVisible(bool visible) {
    mToolbar->Assign(mVisible, visible);
}

void ToolbarButton::SetImage(const std::string& imageKey) {
    mToolbar->Assign(mImage, imageKey);
}

void Toolbar::AddButton(const std::string& key, const std::string& caption) {
    ToolbarButton button;
    button.mToolbar = this;
    button.mKey = key;
    button.mCaption = caption;
    mButtons.push_back(std::move(button));
    Touch();
}

void Toolbar::AddSeparator() {
    ToolbarButton button;
    button.mToolbar = this;
    button.mSeparator = true;
    mButtons.push_back(std::move(button));
    Touch();
}

ToolbarButton* Toolbar::Button(std::string_view key) {
    const auto found = std::find_if(mButtons.begin(), mButtons.end(), [&](const auto& button) {
        return !button.IsSeparator() && button.Key() == key;
    });
    return found == mButtons.end() ? nullptr : &*found;
}

void Toolbar::ClearImages() {
    mImages.clear();
    Touch();
}

void Toolbar::AddImage(const std::string& key, int picture) {
    mImages.push_back({key, picture});
    Touch();
}

void Toolbar::Click(std::string_view key) {
    ToolbarButton* button = Button(key);
    if (button == nullptr || !button->Enabled() || !button->Visible() || !ButtonClick) return;
    Owner().RunEvent(Name() + "_ButtonClick", [&] { ButtonClick(*button); });
}

}  // namespace kelvane::controls
