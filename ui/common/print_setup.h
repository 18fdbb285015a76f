// The print set-up that both list windows share: hands a grid, its title, header and footer and the
// stored layout to the print control; and what happens when the operator saves print settings.
#pragma once

#include <string>
#include <vector>

#include "controls/grid.h"
#include "platform/printing.h"

namespace kelvane::ui {

// True when the services that print and export are there.
bool CanPrint();

// What a window puts on paper.
struct PrintSheet {
    const controls::Grid& grid;
    std::string title;
    // The grid's format text as it stood when the grid had been loaded.
    const std::string& loadedLayout;
    std::vector<platform::PrintItem> header;
    std::vector<platform::PrintItem> footer;
};

// What stands above the table of a list of the account, from the login context: three cells above
// the title, the date under the last of them, right above the table.
std::vector<platform::PrintItem> AccountHeader();

// Prepares `print` for preview, print or export of `sheet`. Returns false, after its message, when
// there is no data row or the print control does not take the layout. Errors are thrown.
bool SetUpPrint(platform::PrintControl& print, const PrintSheet& sheet);

// Writes the grid to a file that the operator chooses and reports how that went; true when it was
// written.
bool ExportGrid(platform::PrintControl& print, const controls::Grid& grid);

// Asks, and saves the print control's two settings texts as the print style file. Errors end it
// silently and are reported as trapped.
void SavePrintSettings(const std::string& text1, const std::string& text2);

}  // namespace kelvane::ui
