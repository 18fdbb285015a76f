// The account's entries as rows of a grid, and the cells that are not the operator's.
#pragma once

#include <cstdint>
#include <string>

#include "controls/grid.h"
#include "ui/entry_list/element_details.h"

namespace kelvane::ui {

struct ShownElement {
    std::string name;
    std::int16_t detail = 0;
};

// What a list shows of the element of a code; empty when there is none. Over gEnv; errors are
// thrown.
ShownElement ReadElement(const std::string& code);

// Appends a row for every entry whose item exists, and adds the element-detail flags and the
// names of their elements to `details`. Over gEnv; errors are thrown, with the rows read before
// them in the grid.
void FillEntryGrid(controls::Grid& grid, ElementDetails& details);

// Locks the name and keywords of every row, and the whole row where the item is settled. Over gEnv;
// a settlement that cannot be read locks nothing.
void LockEntryRows(controls::Grid& grid);

// Gives the cells of a row the locked colour.
void PaintLocked(controls::Grid& grid, int row, int firstCol, int lastCol);

}  // namespace kelvane::ui
