// The toolbar that the operator of a window sees: the plain one, or the toolbar-style control that
// has taken over its buttons.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/form.h"
#include "controls/toolbar_style_control.h"

namespace kelvane::drive {

using ShownButton = controls::ToolbarStyleControl::Item;

class ShownToolbar {
public:
    // Finds the visible toolbar of `form`. Throws ScriptError when there is none.
    explicit ShownToolbar(const controls::Form& form);

    // The buttons as they are shown.
    std::vector<ShownButton> Buttons() const;

    // Clicks a button as the operator does: nothing happens when it is disabled or hidden. Throws
    // ScriptError when there is no such button.
    void Click(std::string_view key);

private:
    controls::Toolbar* mPlain = nullptr;
    controls::ToolbarStyleControl* mStyled = nullptr;
};

}  // namespace kelvane::drive
