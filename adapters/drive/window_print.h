// A window's state as text, for a script's "print" commands.
#pragma once

#include <string_view>

#include "adapters/drive/transcript.h"
#include "controls/form.h"
#include "controls/grid.h"

namespace kelvane::drive {

// One line a row, the header first: row number, row data, cells joined by "|"; "#" before a locked
// cell.
void PrintGrid(const controls::Grid& grid, Transcript& transcript);

// One line a button of the toolbar that the operator sees: key, caption, enabled or disabled, and
// hidden when it is; "-" for a separator. Throws ScriptError when the window shows no toolbar.
void PrintToolbar(const controls::Form& form, Transcript& transcript);

// The window's name, caption, size in twips and notice, its controls, the current cell, a
// selection over rows and the cell being edited.
void PrintWindow(const controls::Form& form, Transcript& transcript);

// What the lower line says besides the notice.
void PrintLine(const controls::Form& form, Transcript& transcript);

// The entries of the context menu, one a line: caption and key, joined by "|"; "#" before one that
// is not possible now, "-" for a line between groups.
void PrintMenu(controls::Form& form, Transcript& transcript);

// One line for each line of `text`; a tab is written as \t.
void PrintText(std::string_view text, Transcript& transcript);

// What stands on the page that the window's page view shows: one line for the texts that stand side
// by side, joined by "|". Throws ScriptError when the window shows no page.
void PrintPage(const controls::Form& form, Transcript& transcript);

// The window's first grid; null when it has none.
controls::Grid* FindGrid(const controls::Form& form);

}  // namespace kelvane::drive
