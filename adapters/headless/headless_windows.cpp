#include "adapters/headless/headless_windows.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "adapters/drive/key_flow.h"
#include "adapters/headless/form_watch.h"
#include "controls/key_page.h"
#include "controls/pick_window.h"
#include "platform/key_names.h"
#include "platform/native_path.h"

namespace kelvane::headless {

using controls::Form;
using controls::UnloadMode;

void HeadlessWindows::ShowModal(platform::Window& window) {
    Form& form = window.AsForm();
    if (std::find(mOpen.begin(), mOpen.end(), &form) != mOpen.end()) {
        throw std::logic_error(form.Name() + " is already shown");
    }
    form.Load();
    if (!form.IsLoaded()) return;

    mOpen.push_back(&form);
    // What happens in a pick list is told by its choice alone.
    const bool told = form.AsPickWindow() == nullptr;
    {
        std::optional<FormWatch> watch;
        if (told) watch.emplace(form, mOperator);
        if (told) mOperator.Opened(form.Name());
        form.Activate();
        RunModal(form);
    }
    mOpen.pop_back();
    if (mOpen.empty()) mSentKeys.clear();
    if (told) mOperator.Closed(form.Name());
}

void HeadlessWindows::RunModal(Form& form) {
    while (form.IsLoaded()) {
        DeliverKeys(form);
        if (!form.IsLoaded()) return;
        if (mOperator.Act(form)) continue;
        if (form.IsLoaded() && !form.Unload(UnloadMode::CloseBox)) form.Unload(UnloadMode::Code);
        return;
    }
}

void HeadlessWindows::DeliverKeys(Form& form) {
    while (form.IsLoaded() && !mSentKeys.empty()) {
        const platform::KeyStroke stroke = mSentKeys.front();
        mSentKeys.pop_front();
        const bool used = drive::PressKey(form, stroke);
        if (!used && stroke.key == platform::Key::F1 && form.IsLoaded()) ShowHelp(form);
    }
}

// As on a screen: the help file or, where there is none, the window's page of keys.
void HeadlessWindows::ShowHelp(const Form& form) {
    std::error_code unknown;
    const auto path = platform::PathOf(platform::NativePath(mHelpFile));
    if (std::filesystem::is_regular_file(path, unknown)) {
        mOperator.HelpShown(mHelpFile);
        return;
    }
    controls::KeyPage page(form);
    ShowModal(page);
}

platform::MessageAnswer HeadlessWindows::ShowMessage(const platform::Message& message) {
    return mOperator.Answer(message);
}

void HeadlessWindows::SendKeys(std::string_view keys) {
    for (const platform::KeyStroke& stroke : platform::ParseSentKeys(keys))
        mSentKeys.push_back(stroke);
}

}  // namespace kelvane::headless
