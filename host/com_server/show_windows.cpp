#include "host/com_server/show_windows.h"

#include "host/com_server/host_windows.h"
#include "host/surroundings/screen.h"

namespace kelvane::host {

void RunForPerson(const WindowsWork& work) {
    const DisabledHostWindows disabled;
    RunOnScreen(nullptr, [&](const Screen& screen) {
        work(screen.windows, *screen.printing);
        return 0;
    });
}

}  // namespace kelvane::host
