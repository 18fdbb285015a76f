#include "host/com_server/show_windows.h"

namespace kelvane::host {

bool IsDriven() {
    return false;
}

void RunWindows(drive::StatementLog* /*statements*/, const WindowsWork& work) {
    RunForPerson(work);
}

}  // namespace kelvane::host
