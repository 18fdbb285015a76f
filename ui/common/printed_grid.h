// PrintedGrid: a window's grid on its way to paper and into files.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "platform/printing.h"

namespace kelvane::ui {

class PrintedGrid {
public:
    using SaveSettings = std::function<void(const std::string&, const std::string&)>;

    // `saveSettings` is told of the settings' two texts when the operator saves them. The grid
    // outlives the object.
    PrintedGrid(const controls::Grid& grid, SaveSettings saveSettings)
        : mGrid(grid), mSaveSettings(std::move(saveSettings)) {}

    // Keeps the grid's layout as it stands now: from then on a changed one is printed instead of
    // the stored style's.
    void CaptureLayout();

    // Makes the print control anew and hands it the grid with its title, header and footer. Returns
    // false, after its message, when there is nothing to print. Errors are thrown.
    bool SetUp(const std::string& title, std::vector<platform::PrintItem> header,
               std::vector<platform::PrintItem> footer);
    // After SetUp(). Export returns true when the file was written.
    void Preview() { control->Preview(); }
    void Print() { control->Print(); }
    bool Export();

    std::unique_ptr<platform::PrintControl> control;
    std::string layout;

private:
    const controls::Grid& mGrid;
    SaveSettings mSaveSettings;
};

}  // namespace kelvane::ui
