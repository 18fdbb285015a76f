// The module of windows: all of them stand on the toolkit, and the program stands without.

#include "host/surroundings/desktop_module.h"

#include <kelvane/version.h>

extern "C"
    [[gnu::visibility("default")]] const kelvane::host::DesktopModule kelvane_desktop_module = {
        KELVANE_VERSION, kelvane::host::RunOnScreen};
