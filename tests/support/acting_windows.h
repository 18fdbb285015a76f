// Windows without a screen in which a test acts on each form that is shown.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <stdexcept>
#include <utility>

#include "controls/form.h"
#include "tests/support/recording_windows.h"

namespace kelvane::support {

class ActingWindows : public RecordingWindows {
public:
    // What is done in the windows to come, in their order. A form that is still loaded afterwards
    // is closed by its close box.
    std::deque<std::function<void(controls::Form&)>> acts;

    void ShowModal(platform::Window& window) override {
        controls::Form& form = window.AsForm();
        form.Load();
        form.Activate();
        if (acts.empty()) throw std::logic_error("nobody acts in " + form.Name());
        const auto act = std::move(acts.front());
        acts.pop_front();
        try {
            act(form);
        } catch (const std::exception& thrown) {
            // The event that opened the window would keep it to itself.
            ADD_FAILURE() << form.Name() << ": " << thrown.what();
            throw;
        }
        form.Unload(controls::UnloadMode::CloseBox);
    }
};

}  // namespace kelvane::support
