// PickedCells: what was picked from a list for an open cell, and what that overwrote in the row
// beside it. A pick can still be refused or given up: then the other cells take back what they
// held.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/grid.h"

namespace kelvane::ui {

class PickedCells {
public:
    // `text` was picked for the cell and is about to overwrite columns `firstCol` to `lastCol` of
    // its row. What stood there before an earlier pick in the same edit stays remembered.
    void Picked(const controls::Grid& grid, int row, int col, const std::string& text, int firstCol,
                int lastCol);
    // The edit ended: puts everything back unless the cell holds what was picked.
    void EndEdit(controls::Grid& grid);
    // Puts everything back but the picked cell itself.
    void PutBack(controls::Grid& grid);
    // The pick stays.
    void Forget() { mPicked.reset(); }

private:
    struct Pick {
        int row = 0;
        int col = 0;
        std::string text;
        int firstCol = 0;
        std::vector<std::string> before;
    };
    std::optional<Pick> mPicked;
};

}  // namespace kelvane::ui
