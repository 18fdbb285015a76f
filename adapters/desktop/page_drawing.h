// Draws a page from the list of what stands on it, on a screen's bitmap or on a printer.
#pragma once

#include <wx/graphics.h>

#include "platform/page.h"

namespace kelvane::desktop {

// Draws `page` with its left upper corner at the origin of `target`. `scale`: units of the target
// that a tenth of a millimetre takes. `pixel`: size of the target's smallest dot in its units;
// lines are at least that wide and keep to whole dots. 0 where dots are too small to be seen.
void DrawPage(wxGraphicsContext& target, const platform::Page& page, double scale, double pixel);

}  // namespace kelvane::desktop
