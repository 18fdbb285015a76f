#include "controls/grid_size_actions.h"

#include <string>

namespace kelvane::controls {

using platform::kCtrl;
using platform::Key;
using platform::kShift;

namespace {

bool AnyResized(const Grid& grid) {
    for (int col = 0; col < grid.Cols(); ++col) {
        if (grid.IsColumnResized(col)) return true;
    }
    return false;
}

}  // namespace

void AddGridSizeActions(Form& form, Grid& grid) {
    form.AddAction({.caption = "适合内容的列宽",
                    .inMenu = true,
                    .startsGroup = true,
                    .possible = [&grid] { return grid.ColumnWidth(grid.Col()) > 0; },
                    .run = [&grid] { grid.FitColumn(grid.Col()); }});
    form.AddAction({.caption = "恢复原始列宽",
                    .inMenu = true,
                    .possible = [&grid] { return AnyResized(grid); },
                    .run = [&grid] { grid.RestoreColumnWidths(); }});
    const auto addZoom = [&](platform::KeyStroke stroke, const std::string& caption, int step) {
        form.AddAction({.stroke = stroke,
                        .caption = caption,
                        .inMenu = !caption.empty(),
                        .run = [&grid, step] { grid.SetZoom(grid.Zoom() + step); }});
    };
    addZoom({Key::Plus, kCtrl}, "放大", Grid::kZoomStep);
    // Where the key has its plus sign above.
    addZoom({Key::Plus, kCtrl | kShift}, "", Grid::kZoomStep);
    addZoom({Key::Minus, kCtrl}, "缩小", -Grid::kZoomStep);
    form.AddAction(
        {.stroke = {Key::D0, kCtrl}, .caption = "原始大小", .inMenu = true, .run = [&grid] {
             grid.SetZoom(100);
         }});
}

}  // namespace kelvane::controls
