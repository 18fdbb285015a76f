#include "controls/form.h"

#include <algorithm>

namespace kelvane::controls {

Form::Form(std::string name) : mName(std::move(name)) {}

void Form::SetCaption(std::string caption) {
    mCaption = std::move(caption);
    Touch();
}

void Form::SetIconPicture(int picture) {
    mIconPicture = picture;
    Touch();
}

void Form::SetPosition(int left, int top) {
    if (left == mLeft && top == mTop) return;
    mLeft = left;
    mTop = top;
    Touch();
}

void Form::SetSize(int width, int height) {
    if (width == mWidth && height == mHeight) return;
    mWidth = width;
    mHeight = height;
    Touch();
    RunEvent("Form_Resize", [this] { Form_Resize(); });
}

void Form::SetMinSize(int width, int height) {
    mMinWidth = width;
    mMinHeight = height;
    Touch();
}

void Form::SetNotice(std::string notice) {
    if (notice == mNotice) return;
    mNotice = std::move(notice);
    Touch();
}

Control* Form::Find(std::string_view name) const {
    const auto found =
        std::find_if(mControls.begin(), mControls.end(),
                     [&](const Control* control) { return control->Name() == name; });
    return found == mControls.end() ? nullptr : *found;
}

void Form::SetFocus(Control& control) {
    mActive = &control;
    Touch();
    if (FocusMoved) FocusMoved(control);
}

void Form::Load() {
    if (mLoaded) return;
    mLoaded = true;
    mActive = nullptr;
    RunEvent("Form_Load", [this] { Form_Load(); });
    RunEvent("Form_Resize", [this] { Form_Resize(); });
    if (mActive == nullptr) {
        const auto first = std::find_if(mControls.begin(), mControls.end(), [](Control* control) {
            return control->Visible() && dynamic_cast<KeyTarget*>(control) != nullptr;
        });
        if (first != mControls.end()) mActive = *first;
    }
}

void Form::Activate() {
    RunEvent("Form_Activate", [this] { Form_Activate(); });
}

bool Form::Unload(UnloadMode mode) {
    if (!mLoaded || mUnloading) return false;
    mUnloading = true;
    bool cancel = false;
    RunEvent("Form_QueryUnload", [&] { Form_QueryUnload(cancel, mode); });
    if (!cancel) {
        RunEvent("Form_Unload", [this] { Form_Unload(); });
        mLoaded = false;
        Touch();
    }
    mUnloading = false;
    return !cancel;
}

bool Form::CanRun(const WindowAction& action) {
    bool possible = false;
    RunEvent("Action", [&] { possible = action.IsPossible(); });
    return possible;
}

std::vector<const WindowAction*> Form::MenuActions() const {
    std::vector<const WindowAction*> menu;
    for (const WindowAction& action : mActions) {
        if (!action.inMenu) continue;
        if (action.startsGroup && !menu.empty()) menu.push_back(nullptr);
        menu.push_back(&action);
    }
    return menu;
}

bool Form::Run(const WindowAction& action) {
    bool possible = false;
    RunEvent("Action", [&] {
        possible = action.IsPossible();
        if (possible) action.run();
    });
    return possible;
}

bool Form::OfferKeyDown(platform::Key& key, int shift) {
    for (const WindowAction& action : mActions) {
        const platform::KeyStroke& stroke = action.stroke;
        if (!action.takesKey || stroke.key == platform::Key::None || stroke.key != key ||
            stroke.shift != shift) {
            continue;
        }
        if (!Run(action)) continue;
        key = platform::Key::None;
        return true;
    }
    RunEvent("Form_KeyDown", [&] { Form_KeyDown(key, shift); });
    return key == platform::Key::None;
}

bool Form::OfferKeyPress(char32_t& character) {
    RunEvent("Form_KeyPress", [&] { Form_KeyPress(character); });
    return character == 0;
}

bool Form::KeyDown(platform::Key key, int shift) {
    if (OfferKeyDown(key, shift)) return true;
    auto* target = dynamic_cast<KeyTarget*>(mActive);
    bool used = false;
    if (target != nullptr) RunEvent("KeyDown", [&] { used = target->KeyDown(key, shift); });
    return used;
}

bool Form::KeyPress(char32_t character) {
    if (OfferKeyPress(character)) return true;
    auto* target = dynamic_cast<KeyTarget*>(mActive);
    bool used = false;
    if (target != nullptr) RunEvent("KeyPress", [&] { used = target->KeyPress(character); });
    return used;
}

bool Form::KeyUp(platform::Key key, int shift) {
    RunEvent("Form_KeyUp", [&] { Form_KeyUp(key, shift); });
    return key == platform::Key::None;
}

void Form::RunGuarded(std::string_view place, const void* handler,
                      void (*run)(const void* handler)) noexcept {
    try {
        run(handler);
    } catch (const std::exception& error) {
        Trapped(place, error.what());
    } catch (...) {
        Trapped(place, "unknown error");
    }
}

void Form::Form_QueryUnload(bool& /*cancel*/, UnloadMode /*mode*/) {}
void Form::Form_KeyDown(platform::Key& /*key*/, int /*shift*/) {}
void Form::Form_KeyPress(char32_t& /*character*/) {}
void Form::Form_KeyUp(platform::Key& /*key*/, int /*shift*/) {}
void Form::Trapped(std::string_view /*place*/, std::string_view /*detail*/) noexcept {}

void Form::Touch() {
    ++mRevision;
    if (ViewChanged) ViewChanged();
}

}  // namespace kelvane::controls
