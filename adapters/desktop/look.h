// Look: the colours, fonts and measures that every drawing in the windows shares.
#pragma once

#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/string.h>
#include <wx/window.h>

#include <string>

#include "controls/control.h"

namespace kelvane::desktop {

// Twips that one pixel measures at 100 % scaling.
inline constexpr int kTwipsPerPixel = 15;

// Texts of the controls are UTF-8.
wxString Text(const std::string& utf8);
std::string Utf8(const wxString& text);

wxColour ToColour(controls::Color color);
// `colour` with `percent` of `other` in it.
wxColour Mixed(const wxColour& colour, const wxColour& other, int percent);

// `twips` in the pixels of `window`, and back, at the size that the system gives texts: what holds
// a text grows along with it. Edges are converted, not sizes, so that neighbours meet without a
// gap.
int ToPixels(const wxWindow& window, int twips);
int ToTwips(const wxWindow& window, int pixels);
wxRect ToPixels(const wxWindow& window, const controls::Control& control);
// `pixels` at 100 % scaling in the pixels of `window`.
int Scaled(const wxWindow& window, int pixels);

// Draws the frame of what has the keyboard along the inside of `place`.
void DrawFocus(wxDC& dc, wxRect place);

// What the pointer is told over `window`; nothing when it is empty.
void ShowTip(wxWindow& window, const std::string& tip);

// A font that shows Chinese in its simplified forms, in `points`.
wxFont UiFont(int points = 10, bool bold = false);

namespace look {

inline const wxColour kWindow{240, 240, 240};
inline const wxColour kText{32, 32, 32};
inline const wxColour kFaintText{150, 150, 150};
inline const wxColour kGridLine{205, 200, 199};
inline const wxColour kFixedLine{190, 180, 179};
inline const wxColour kCurrent{28, 98, 170};
inline const wxColour kSelected{205, 226, 247};
// The current row and a row that a question is about: mixed with the colours of their cells.
inline const wxColour kCurrentRow{150, 195, 240};
inline const wxColour kMarkedRow{255, 150, 130};
// The cell that a search shows.
inline const wxColour kFound{255, 226, 110};
// A cell that was refused: in the colour of its cell, and round it.
inline const wxColour kRefused{255, 120, 110};
inline const wxColour kRefusedEdge{200, 40, 40};
inline const wxColour kEdge{176, 180, 186};
inline const wxColour kHover{218, 233, 248};
inline const wxColour kPressed{186, 212, 238};
inline const wxColour kStripTop{250, 252, 255};
inline const wxColour kStripBottom{205, 219, 237};
inline const wxColour kStripEdge{150, 170, 196};
inline const wxColour kNoticeBack{255, 246, 219};
inline const wxColour kNoticeText{122, 70, 0};

}  // namespace look

}  // namespace kelvane::desktop
