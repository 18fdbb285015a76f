#include "ui/common/picked_cells.h"

#include <utility>

#include "data/text_conversion.h"

namespace kelvane::ui {

void PickedCells::Picked(const controls::Grid& grid, int row, int col, const std::string& text,
                         int firstCol, int lastCol) {
    if (!mPicked) {
        mPicked = Pick{row, col, {}, firstCol, {}};
        for (int each = firstCol; each <= lastCol; ++each) {
            mPicked->before.push_back(grid.Text(row, each));
        }
    }
    mPicked->text = text;
}

void PickedCells::EndEdit(controls::Grid& grid) {
    if (!mPicked) return;
    if (data::Trim(grid.Text(mPicked->row, mPicked->col)) == data::Trim(mPicked->text)) {
        Forget();
    } else {
        PutBack(grid);
    }
}

void PickedCells::PutBack(controls::Grid& grid) {
    const auto dropped = std::exchange(mPicked, std::nullopt);
    if (!dropped) return;
    int col = dropped->firstCol;
    for (const std::string& text : dropped->before) {
        if (col != dropped->col) grid.SetText(dropped->row, col, text);
        ++col;
    }
}

}  // namespace kelvane::ui
