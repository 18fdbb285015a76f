// The windows of a program that loads them from its module.

#include <dlfcn.h>
#include <kelvane/version.h>

#include <stdexcept>
#include <string>

#include "host/surroundings/desktop_module.h"
#include "host/surroundings/screen.h"
#include "host/surroundings/user_folders.h"

namespace kelvane::host {

namespace {

// The module stays until the program ends: the toolkit cannot be taken back. All that it needs is
// looked for at once, so that nothing is found to be missing while a window is open.
const DesktopModule& LoadModule() {
    const auto path =
        (ProgramFolder() / KELVANE_MODULE_FOLDER).lexically_normal() / "kelvane-desktop.so";
    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    const void* found = module == nullptr ? nullptr : dlsym(module, kDesktopModule);
    if (found == nullptr) {
        throw std::runtime_error(Told("the windows cannot be loaded: %1", {dlerror()}));
    }
    const auto& desktop = *static_cast<const DesktopModule*>(found);
    if (std::string(desktop.version) != KELVANE_VERSION) {
        throw std::runtime_error(Told("%1 belongs to another version of the program: %2",
                                      {path.string(), desktop.version}));
    }
    return desktop;
}

}  // namespace

bool HasScreen() {
    return true;
}

int RunOnScreen(drive::Operator* script, const std::function<int(const Screen&)>& work) {
    return LoadModule().runOnScreen(script, work);
}

}  // namespace kelvane::host
