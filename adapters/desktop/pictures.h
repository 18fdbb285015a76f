// Pictures: the windows' icons as vector drawings, so that they stay sharp at every scaling. They
// are found by the numbers that the windows' code uses.
#pragma once

#include <wx/bmpbndl.h>
#include <wx/window.h>

namespace kelvane::desktop {

// Pictures that only the message boxes use.
inline constexpr int kPictureInformation = 1;
inline constexpr int kPictureExclamation = 2;
inline constexpr int kPictureQuestion = 3;

// The drawing with `number`, `size` pixels wide and high at 100 % scaling; an empty bundle when
// there is no such picture.
wxBitmapBundle FindPicture(int number, int size);

// The same for drawing in `window`, `size` of its pixels wide and high, greyed when `enabled` is
// false; an invalid bitmap when there is no such picture.
wxBitmap PictureFor(const wxWindow& window, int number, int size, bool enabled = true);

}  // namespace kelvane::desktop
