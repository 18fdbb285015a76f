#include "controls/page_view.h"

#include <algorithm>
#include <array>

namespace kelvane::controls {

using platform::Key;

namespace {

constexpr std::array kUsualZooms{25, 33, 50, 67, 75, 90, 100, 125, 150, 200, 300, 400};

// Twips of `tenths` of a millimetre at `zoom` per cent.
int TwipsOf(int tenths, int zoom) {
    constexpr long kTwipsPerInch = 1440;
    constexpr long kTenthsPerInch = 254;
    return static_cast<int>(tenths * kTwipsPerInch * zoom / (kTenthsPerInch * 100));
}

}  // namespace

void PageView::SetSource(const platform::PageSource* pages) {
    mSource = pages;
    mPage = std::clamp(mPage, pages == nullptr ? 0 : 1, std::max(0, PageCount()));
    Touch();
    if (Change) Change();
}

void PageView::SetPage(int page) {
    if (mSource == nullptr) return;
    const int nearest = std::clamp(page, 1, PageCount());
    if (nearest == mPage) return;
    Assign(mPage, nearest);
    if (Change) Change();
}

void PageView::SetZoom(int percent) {
    const int zoom = percent == kWholePage ? percent : std::clamp(percent, kMinZoom, kMaxZoom);
    if (zoom == mZoom) return;
    Assign(mZoom, zoom);
    if (Change) Change();
}

int PageView::ShownZoom() const {
    if (mZoom != kWholePage || mSource == nullptr) return mZoom == kWholePage ? 100 : mZoom;
    const auto fitting = [](int room, int tenths) {
        const int whole = std::max(1, TwipsOf(tenths, 100));
        return static_cast<int>(100L * std::max(0, room - 2 * kPageMargin) / whole);
    };
    const int fit =
        std::min(fitting(Width(), mSource->PageWidth()), fitting(Height(), mSource->PageHeight()));
    return std::clamp(fit, 1, kMaxZoom);
}

int PageView::ShownWidth() const {
    return mSource == nullptr ? 0 : TwipsOf(mSource->PageWidth(), ShownZoom());
}

int PageView::ShownHeight() const {
    return mSource == nullptr ? 0 : TwipsOf(mSource->PageHeight(), ShownZoom());
}

void PageView::ZoomIn() {
    const auto* larger = std::upper_bound(kUsualZooms.begin(), kUsualZooms.end(), ShownZoom());
    if (larger != kUsualZooms.end()) SetZoom(*larger);
}

void PageView::ZoomOut() {
    const auto* larger = std::lower_bound(kUsualZooms.begin(), kUsualZooms.end(), ShownZoom());
    if (larger != kUsualZooms.begin()) SetZoom(*(larger - 1));
}

bool PageView::KeyDown(Key key, int shift) {
    if (key == Key::PageDown && shift == 0) {
        SetPage(mPage + 1);
    } else if (key == Key::PageUp && shift == 0) {
        SetPage(mPage - 1);
    } else if (key == Key::Home && shift == platform::kCtrl) {
        SetPage(1);
    } else if (key == Key::End && shift == platform::kCtrl) {
        SetPage(PageCount());
    } else {
        return false;
    }
    return true;
}

}  // namespace kelvane::controls
