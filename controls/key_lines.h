// Which keys do something in a window: those of its toolbar, its actions, its own rules, its
// buttons and its grid, in this order.
#pragma once

#include <string_view>
#include <vector>

#include "controls/form.h"
#include "controls/grid.h"

namespace kelvane::controls {

// A row of the table of a grid's keys.
struct GridKeys {
    std::string_view keys;  // names separated by a blank
    std::string_view does;
    // Whether they are of use in any grid or only where something can be typed into it.
    bool onlyEditing = false;
};

// What the grid does with keys by itself.
const std::vector<GridKeys>& KeysOfGrid();

// The lines of `form`'s page of keys.
std::vector<KeyLine> KeyLinesOf(const Form& form);

}  // namespace kelvane::controls
