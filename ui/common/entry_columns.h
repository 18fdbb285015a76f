// The columns of a grid of entries, numbered as entries::EntryColumn.
#pragma once

#include "controls/grid.h"

namespace kelvane::ui {

// Gives the grid its columns and no rows. The caption of the items' names is read over gEnv; errors
// are thrown.
void LayOutEntryGrid(controls::Grid& grid);

}  // namespace kelvane::ui
