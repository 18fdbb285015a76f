// What both windows with rows offer of the ways back from a row's changes, and say of them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "controls/form.h"
#include "controls/grid.h"
#include "ui/common/row_history.h"

namespace kelvane::ui {

// What a window's rows are called.
struct RowWords {
    std::string_view leaveFreely;  // leaving one without its checks
    std::string_view newRow;
};

// Adds the keys to undo the last change and to take all of a row back. The latter is the grid's
// own, which it gets without the table: there it is for whoever looks for it.
struct WaysBack {
    std::function<bool()> canUndo;
    std::function<void()> undo;
    std::function<bool()> canGoBack;
    std::function<void()> goBack;
};
void AddWaysBack(controls::Form& form, WaysBack ways);

// Why the current row or its open cell was refused (`refusal`, as long as the grid marks it) and
// what helps, or what an Escape has done; empty when there is nothing to say. `key` is what the row
// goes by in its history.
struct RowPlace {
    int row = 0;
    int key = 0;
    bool isNew = false;
};
std::string WayOutHint(const controls::Grid& grid, const RowHistory& history, RowPlace place,
                       const std::string& refusal, const RowWords& words);

// What an Escape that took a row's changes back has done, with `but` what it could not do.
std::string BackHint(const RowWords& words, std::string_view but = {});

}  // namespace kelvane::ui
