// KeptLayout: a window's size, and the column widths and the zoom of its grid, as the operator left
// them the last time. Only what the operator changed is kept; a hidden column stays hidden.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "controls/form.h"
#include "controls/grid.h"
#include "platform/user_settings.h"

namespace kelvane::controls {

class KeptLayout {
public:
    // Both outlive the object.
    KeptLayout(Form& form, Grid& grid) : mForm(form), mGrid(grid) {}

    // Called when the window has its first size and columns: gives it what was kept under `name`,
    // a size at most that of the screen (twips). Without `settings` nothing is kept.
    void Restore(platform::UserSettings* settings, const std::string& name, int screenWidth,
                 int screenHeight);
    // Called when the window goes.
    void Keep();

private:
    void Read(const std::string& text);
    std::string Text() const;

    Form& mForm;
    Grid& mGrid;
    platform::UserSettings* mSettings = nullptr;
    std::string mName;
    std::string mKept;
    // What was kept; a size and a zoom of 0 is none.
    std::pair<int, int> mKeptSize;
    int mKeptZoom = 0;
    std::map<int, int> mKeptWidths;
    // The size at the opening.
    std::pair<int, int> mOpened;
};

}  // namespace kelvane::controls
