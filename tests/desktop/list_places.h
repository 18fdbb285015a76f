// Where things are in the sample list, in pixels: the grid begins below the toolbar and the strip.
#pragma once

namespace kelvane::test {

inline constexpr const char* kTitle = "项目期初";
inline constexpr int kGridTop = (720 + 525) / 15;
inline constexpr int kHeader = 400 / 15;
inline constexpr int kRow = 20;
inline constexpr int kColumnMiddles[] = {0, 43, 126, 206, 330, 462, 0, 562, 662, 762};

constexpr int RowY(int row) {
    return kGridTop + kHeader + (row - 1) * kRow + kRow / 2;
}

}  // namespace kelvane::test
