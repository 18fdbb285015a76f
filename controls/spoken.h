// Spoken: what an operator who cannot see a window is told of a control or of one part of it: a
// grid's cell, a toolbar's button. It knows no screen reader; whoever serves one asks here for the
// words.
#pragma once

#include <string>

#include "controls/button.h"
#include "controls/grid.h"
#include "controls/label.h"
#include "controls/page_view.h"
#include "controls/toolbar_style_control.h"

namespace kelvane::controls {

enum class SpokenRole {
    Panel,
    Button,
    Cell,
    ColumnTitle,
    Label,
    Notice,
    Page,
    RowTitle,
    Separator,
    Status,
    Table,
    Toolbar
};

struct Spoken {
    SpokenRole role = SpokenRole::Panel;
    std::string name = {};  // what it is called: a caption, a field's label, a cell's column
    std::string text = {};  // what it says: a cell's whole text, however little of it is shown
    // All texts of a cell's row, where rows are chosen as a whole.
    std::string rowText = {};
    // A cell's place among the cells that are shown and not fixed, from 1; -1 where it has none.
    int row = -1;
    int column = -1;
    bool shown = true;
    bool enabled = true;
    bool locked = false;   // a cell that nothing can be typed into
    bool wrong = false;    // a cell that is marked as wrong
    bool hasList = false;  // a cell that offers a list to choose from
};

// A button without a caption is called by its SpokenName().
Spoken SpokenOf(const Button& button);
Spoken SpokenOf(const Label& label);
// Called by its form's caption.
Spoken SpokenOf(Grid& grid);
// A grid that takes no focus is a list to choose a row from.
// Throws std::out_of_range for a cell outside the grid.
Spoken SpokenOf(const Grid& grid, int row, int col);
Spoken SpokenOf(const PageView& pages);
Spoken SpokenOf(const ToolbarStyleControl::Item& item);

// What there is to read in one, for a reader that knows no rows and columns.
std::string NameAndText(const Spoken& spoken);
// A cell's state and place in words: "锁定，第 2 行，第 3 列"; empty for what is no cell.
std::string StateAndPlace(const Spoken& spoken);

// What a field is called: its SpokenName() or else the caption of the label that can be seen beside
// it on its left or, when there is none, above it; without the colon at its end. Empty when nothing
// names it.
std::string LabelOf(Control& field);

}  // namespace kelvane::controls
