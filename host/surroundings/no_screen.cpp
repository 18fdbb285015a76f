// The windows of a build without windows.

#include <stdexcept>

#include "host/surroundings/screen.h"

namespace kelvane::host {

bool HasScreen() {
    return false;
}

int RunOnScreen(drive::Operator* /*script*/, const std::function<int(const Screen&)>& /*work*/) {
    throw std::logic_error(kNoScreen);
}

}  // namespace kelvane::host
