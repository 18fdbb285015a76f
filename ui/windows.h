// The windows together: what one asks of another is answered by the other here.
#pragma once

namespace kelvane::ui {

// Lets the list of entries open the other windows. Called before the list is shown; once is enough.
void ConnectWindows();

}  // namespace kelvane::ui
