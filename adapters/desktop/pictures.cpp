#include "adapters/desktop/pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string>
#include <tuple>

namespace kelvane::desktop {

namespace {

struct Drawing {
    int number;
    const char* shapes;  // on a canvas of 24 by 24
};

constexpr const char* kPrint =
    R"(<path d="M7 3h8l3 3v4H7z" fill="#fff" stroke="#5a6472"/><path d="M15 3v3h3" fill="none")"
    R"( stroke="#5a6472"/><rect x="3" y="9" width="18" height="8" rx="1.5" fill="#8fa3bd")"
    R"( stroke="#44566e"/><rect x="7" y="14" width="10" height="7" fill="#fff" stroke="#5a6472"/>)"
    R"(<path d="M9 16.500h6M9 18.500h4" stroke="#8a94a3"/><circle cx="18" cy="11.500" r="1")"
    R"( fill="#8ef08e"/>)";

constexpr const char* kPreview =
    R"(<path d="M4 2.500h9l4 4V21.500H4z" fill="#fff" stroke="#5a6472"/><path d="M13 2.500v4h4")"
    R"( fill="#dfe6ee" stroke="#5a6472"/><path d="M7 9.500h5M7 12.500h4M7 15.500h3")"
    R"( stroke="#8a94a3"/><circle cx="15" cy="14.500" r="4" fill="#cfe5fa" stroke="#2c5f9e")"
    R"( stroke-width="1.500"/><path d="M18 17.500l3.500 3.500" stroke="#2c5f9e" stroke-width="2.500")"
    R"( stroke-linecap="round"/>)";

constexpr const char* kOutput =
    R"(<path d="M4 2.500h9l4 4V21.500H4z" fill="#fff" stroke="#5a6472"/><path d="M13 2.500v4h4")"
    R"( fill="#dfe6ee" stroke="#5a6472"/><path d="M7 9.500h4M7 18.500h5" stroke="#8a94a3"/>)"
    R"(<path d="M9 12.500h6v-3l6.500 4.750l-6.500 4.750v-3H9z" fill="#4fae5b" stroke="#2c7a38"/>)";

constexpr const char* kAdd =
    R"(<rect x="3" y="4.500" width="14" height="15" fill="#fff" stroke="#5a6472"/><path)"
    R"( d="M3 8.500h14M3 12.500h14M3 16.500h14" stroke="#b9c2ce"/><rect x="3" y="4.500" width="14")"
    R"( height="4" fill="#b8cbe2" stroke="#5a6472"/><circle cx="17" cy="16" r="5.500")"
    R"( fill="#4fae5b" stroke="#2c7a38"/><path d="M17 13v6M14 16h6" stroke="#fff")"
    R"( stroke-width="2"/>)";

constexpr const char* kDelete =
    R"(<rect x="3" y="4.500" width="14" height="15" fill="#fff" stroke="#5a6472"/><path)"
    R"( d="M3 8.500h14M3 12.500h14M3 16.500h14" stroke="#b9c2ce"/><rect x="3" y="4.500" width="14")"
    R"( height="4" fill="#b8cbe2" stroke="#5a6472"/><circle cx="17" cy="16" r="5.500")"
    R"( fill="#d9534f" stroke="#a02f2b"/><path d="M14.800 13.800l4.400 4.400M19.200 13.800l-4.400)"
    R"( 4.400" stroke="#fff" stroke-width="2"/>)";

constexpr const char* kFind =
    R"(<circle cx="7" cy="15.500" r="4.500" fill="#cfe5fa" stroke="#2c4f7e" stroke-width="1.500"/>)"
    R"(<circle cx="17" cy="15.500" r="4.500" fill="#cfe5fa" stroke="#2c4f7e" stroke-width="1.500"/>)"
    R"(<path d="M3.500 13L6 4.500h3.500V12M20.500 13L18 4.500h-3.500V12" fill="#7d98bb")"
    R"( stroke="#2c4f7e"/><rect x="9.500" y="9.500" width="5" height="4" fill="#7d98bb")"
    R"( stroke="#2c4f7e"/>)";

constexpr const char* kWindow =
    R"(<rect x="3" y="2.500" width="18" height="19" rx="1.500" fill="#3f78b5" stroke="#27507e"/>)"
    R"(<rect x="6" y="5.500" width="12" height="13" fill="#fff"/><path d="M8 9.500h8M8 12.500h8)"
    R"(M8 15.500h5" stroke="#3f78b5" stroke-width="1.300"/><path d="M3 6h2M3 12h2M3 18h2")"
    R"( stroke="#d8e6f5" stroke-width="1.500"/>)";

constexpr const char* kQuit =
    R"(<path d="M4 2.500h10v19H4z" fill="#e9d9bf" stroke="#8a6d3b"/><path d="M4 2.500l6 3v16)"
    R"(l-6-0z" fill="#c69c5b" stroke="#8a6d3b"/><circle cx="8.300" cy="13" r="0.900")"
    R"( fill="#5f4820"/><path d="M13 10.500h4v-3l5 4.500l-5 4.500v-3h-4z" fill="#4a86c5")"
    R"( stroke="#27507e"/>)";

constexpr const char* kDetail =
    R"(<circle cx="5" cy="12" r="2.200" fill="#27507e"/><circle cx="12" cy="12" r="2.200")"
    R"( fill="#27507e"/><circle cx="19" cy="12" r="2.200" fill="#27507e"/>)";

constexpr const char* kSave =
    R"(<path d="M3 3.500h15l3 3v14H3z" fill="#4a78b0" stroke="#27507e"/><rect x="7" y="3.500")"
    R"( width="9" height="6" fill="#e6edf5" stroke="#27507e"/><rect x="12.500" y="4.500" width="2")"
    R"( height="4" fill="#27507e"/><rect x="6" y="12.500" width="12" height="8" fill="#fff")"
    R"( stroke="#27507e"/><path d="M8 15h8M8 17.500h8" stroke="#9db0c8"/>)";

constexpr const char* kHelp =
    R"(<circle cx="12" cy="12" r="9.500" fill="#3f86c9" stroke="#27507e"/><path d="M8.800 9.500)"
    R"(c0-2 1.400-3.300 3.300-3.300c1.900 0 3.300 1.200 3.300 2.900c0 2.400-3.200 2.600-3.200 5.100")"
    R"( fill="none" stroke="#fff" stroke-width="2" stroke-linecap="round"/><circle cx="12.200")"
    R"( cy="17.600" r="1.300" fill="#fff"/>)";

constexpr const char* kInformation =
    R"(<circle cx="12" cy="12" r="10" fill="#3f86c9" stroke="#27507e"/><circle cx="12" cy="7")"
    R"( r="1.500" fill="#fff"/><path d="M12 10.500v7" stroke="#fff" stroke-width="2.500")"
    R"( stroke-linecap="round"/>)";

constexpr const char* kExclamation =
    R"(<path d="M12 2.500L22.500 21H1.500z" fill="#f7c948" stroke="#b7871b" stroke-width="1.300")"
    R"( stroke-linejoin="round"/><path d="M12 9v6" stroke="#4a3500" stroke-width="2.400")"
    R"( stroke-linecap="round"/><circle cx="12" cy="18.200" r="1.300" fill="#4a3500"/>)";

constexpr const char* kPageSetup =
    R"(<path d="M4 2.500h9l4 4V21.500H4z" fill="#fff" stroke="#5a6472"/><path d="M13 2.500v4h4")"
    R"( fill="#dfe6ee" stroke="#5a6472"/><rect x="6.500" y="8.500" width="8" height="10.500")"
    R"( fill="none" stroke="#9db0c8" stroke-dasharray="1.500 1"/><circle cx="17" cy="17" r="3")"
    R"( fill="none" stroke="#44566e" stroke-width="2"/><path d="M17 11.500v2.500M17 20v2.500M11.500)"
    R"( 17h2.500M20 17h2.500M13.100 13.100l1.800 1.800M19.100 19.100l1.800 1.800M13.100 20.900)"
    R"(l1.800-1.800M19.100 14.900l1.800-1.800" stroke="#44566e" stroke-width="2"/>)";

constexpr const char* kZoomIn =
    R"(<circle cx="10" cy="10" r="7" fill="#e3f0fc" stroke="#2c5f9e" stroke-width="1.800"/>)"
    R"(<path d="M15.300 15.300l5.700 5.700" stroke="#2c5f9e" stroke-width="3")"
    R"( stroke-linecap="round"/><path d="M10 6.500v7M6.500 10h7" stroke="#2c7a38")"
    R"( stroke-width="2"/>)";

constexpr const char* kZoomOut =
    R"(<circle cx="10" cy="10" r="7" fill="#e3f0fc" stroke="#2c5f9e" stroke-width="1.800"/>)"
    R"(<path d="M15.300 15.300l5.700 5.700" stroke="#2c5f9e" stroke-width="3")"
    R"( stroke-linecap="round"/><path d="M6.500 10h7" stroke="#a02f2b" stroke-width="2"/>)";

constexpr const char* kWholePage =
    R"(<rect x="6.500" y="4.500" width="11" height="15" fill="#fff" stroke="#5a6472"/><path)"
    R"( d="M9 8.500h6M9 11.500h6M9 14.500h4" stroke="#8a94a3"/><path d="M1.500 7V2.500H6M18)"
    R"( 2.500h4.500V7M22.500 17v4.500H18M6 21.500H1.500V17" fill="none" stroke="#2c5f9e")"
    R"( stroke-width="2"/>)";

constexpr const char* kFirstPage =
    R"(<path d="M19 4.500v15L8.500 12z" fill="#4a86c5" stroke="#27507e" stroke-linejoin="round"/>)"
    R"(<path d="M5.500 4.500v15" stroke="#27507e" stroke-width="2.500"/>)";

constexpr const char* kPreviousPage =
    R"(<path d="M16.500 4.500v15L6 12z" fill="#4a86c5" stroke="#27507e")"
    R"( stroke-linejoin="round"/>)";

constexpr const char* kNextPage =
    R"(<path d="M7.500 4.500v15L18 12z" fill="#4a86c5" stroke="#27507e")"
    R"( stroke-linejoin="round"/>)";

constexpr const char* kLastPage =
    R"(<path d="M5 4.500v15L15.500 12z" fill="#4a86c5" stroke="#27507e" stroke-linejoin="round"/>)"
    R"(<path d="M18.500 4.500v15" stroke="#27507e" stroke-width="2.500"/>)";

constexpr std::array kDrawings{
    Drawing{kPictureInformation, kInformation},
    Drawing{kPictureExclamation, kExclamation},
    Drawing{kPictureQuestion, kHelp},
    Drawing{100, kPrint},
    Drawing{101, kPreview},
    Drawing{102, kOutput},
    Drawing{103, kAdd},
    Drawing{104, kDelete},
    Drawing{105, kFind},
    Drawing{106, kWindow},
    Drawing{107, kQuit},
    Drawing{108, kDetail},
    Drawing{109, kSave},
    Drawing{110, kHelp},
    Drawing{111, kPageSetup},
    Drawing{112, kZoomIn},
    Drawing{113, kZoomOut},
    Drawing{114, kWholePage},
    Drawing{115, kFirstPage},
    Drawing{116, kPreviousPage},
    Drawing{117, kNextPage},
    Drawing{118, kLastPage},
};

}  // namespace

wxBitmapBundle FindPicture(int number, int size) {
    static std::map<std::pair<int, int>, wxBitmapBundle> cache;
    const auto drawing = std::find_if(kDrawings.begin(), kDrawings.end(),
                                      [number](const auto& d) { return d.number == number; });
    if (drawing == kDrawings.end()) return {};
    wxBitmapBundle& bundle = cache[{number, size}];
    if (!bundle.IsOk()) {
        const std::string svg =
            R"(<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24">)" +
            std::string(drawing->shapes) + "</svg>";
        bundle = wxBitmapBundle::FromSVG(svg.c_str(), wxSize(size, size));
    }
    return bundle;
}

wxBitmap PictureFor(const wxWindow& window, int number, int size, bool enabled) {
    const wxBitmapBundle bundle = FindPicture(number, size);
    if (!bundle.IsOk()) return {};
    const double dots = window.GetContentScaleFactor();
    const int side = static_cast<int>(std::lround(size * dots));
    wxBitmap bitmap = bundle.GetBitmap(wxSize(side, side));
    bitmap.SetScaleFactor(dots);
    return enabled ? bitmap : bitmap.ConvertToDisabled();
}

}  // namespace kelvane::desktop
