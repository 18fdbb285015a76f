// What has to be done differently on each windowing system below the toolkit. Each system has one
// source file with all of it.
#pragma once

#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/graphics.h>
#include <wx/toplevel.h>
#include <wx/window.h>

#include <string>

namespace kelvane::desktop {

// Called before the toolkit starts: its window classes belong to the module that this code is part
// of, the program or a library in someone else's process.
void BelongToModule();

// Called before the toolkit starts: its own dialogs speak the language of the windows, whatever the
// session's is, where the system lets a program choose.
void SpeakChinese();

// Called when the toolkit has started: its own fields and dialogs are light, as the windows are,
// however dark the session's are.
void KeepLight();

// Called when `window` is on the screen: the button that has the keyboard shows it from the
// beginning, not only after the first key.
void ShowFocus(wxTopLevelWindow& window);

// How large texts are in `window` beside those at 100 % scaling, in the toolkit's pixels; null
// means the first screen.
double TextScale(const wxWindow* window);

// What a drawing takes for an inch when it makes letters of a size in points.
double DotsPerInch();

// While a button is held down on it, `window` goes on receiving what the mouse does outside.
void HoldMouse(wxWindow& window);

// The face of the pages' letters, as a font of the toolkit wants it.
wxString PageFace();

// Makes the next reading of `screen` give what it shows now, not what was read of it before.
void ForgetPicture(wxDC& screen);

// Writes a PNG file; false when the file cannot be written.
bool SavePng(const wxBitmap& picture, const std::string& path);

// Moves the origin of `target`, which prints on `paper` (pixels, as the printout gives it), to the
// paper's left upper corner.
void MoveToCorner(wxGraphicsContext& target, const wxRect& paper);

}  // namespace kelvane::desktop
