#include "controls/kept_layout.h"

#include <algorithm>
#include <sstream>

namespace kelvane::controls {

namespace {

// Twips; what is beyond them was not kept by a window.
constexpr int kNarrowest = 100;
constexpr int kWidest = 60000;

bool IsWidth(int twips) {
    return twips >= kNarrowest && twips <= kWidest;
}

}  // namespace

// "size 14400 8700 zoom 110 column 4 3000 column 8 2000", in any order. A text that is something
// else counts as far as it can be read.
void KeptLayout::Read(const std::string& text) {
    mKept = text;
    mKeptSize = {};
    mKeptZoom = 0;
    mKeptWidths.clear();
    std::istringstream words(text);
    std::string word;
    while (words >> word) {
        int first = 0;
        int second = 0;
        if (word == "zoom" && words >> first) {
            mKeptZoom = first;
        } else if (word == "size" && words >> first >> second) {
            if (IsWidth(first) && IsWidth(second)) mKeptSize = {first, second};
        } else if (word == "column" && words >> first >> second) {
            if (IsWidth(second)) mKeptWidths[first] = second;
        } else {
            return;
        }
    }
}

void KeptLayout::Restore(platform::UserSettings* settings, const std::string& name, int screenWidth,
                         int screenHeight) {
    mSettings = settings;
    mName = name;
    if (settings == nullptr) return;
    Read(settings->Kept(name));
    if (mKeptSize.first > 0) {
        mForm.SetSize(std::max(std::min(mKeptSize.first, screenWidth), mForm.MinWidth()),
                      std::max(std::min(mKeptSize.second, screenHeight), mForm.MinHeight()));
    }
    mOpened = {mForm.Width(), mForm.Height()};
    mGrid.SetZoom(mKeptZoom == 0 ? 100 : mKeptZoom);
    for (const auto& [col, width] : mKeptWidths) {
        if (col < 0 || col >= mGrid.Cols() || mGrid.ColumnWidth(col) == 0) continue;
        mGrid.ResizeColumn(col, width);
    }
}

std::string KeptLayout::Text() const {
    std::ostringstream text;
    const std::pair<int, int> size(mForm.Width(), mForm.Height());
    const auto& [width, height] = size == mOpened ? mKeptSize : size;
    if (width > 0) text << " size " << width << ' ' << height;
    if (mGrid.Zoom() != 100) text << " zoom " << mGrid.Zoom();
    for (int col = 0; col < mGrid.Cols(); ++col) {
        const auto kept = mKeptWidths.find(col);
        if (mGrid.IsColumnResized(col)) {
            text << " column " << col << ' ' << mGrid.ColumnWidth(col);
        } else if (mGrid.ColumnWidth(col) == 0 && kept != mKeptWidths.end()) {
            text << " column " << col << ' ' << kept->second;
        }
    }
    return text.str().empty() ? std::string() : text.str().substr(1);
}

void KeptLayout::Keep() {
    if (mSettings == nullptr) return;
    const std::string text = Text();
    if (text != mKept) mSettings->Keep(mName, text);
    mSettings = nullptr;
}

}  // namespace kelvane::controls
