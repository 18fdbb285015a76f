#include <sys/prctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

#include "host/surroundings/environment.h"

namespace kelvane::host {

// A name may be there more than once; the first one counts.
database::SharedSecret TakeVariable(const char* name) {
    database::SharedSecret taken;
    for (char** each = environ; each != nullptr && *each != nullptr; ++each) {
        const std::string_view entry = *each;
        const std::size_t equals = entry.find('=');
        if (entry.substr(0, equals) != name || equals == std::string_view::npos) continue;
        const std::string_view value = entry.substr(equals + 1);
        if (!taken) taken = std::make_shared<const database::Secret>(value);
        database::WipeBytes(*each + equals + 1, value.size());
    }
    unsetenv(name);
    return taken;
}

void KeepMemoryPrivate() {
    prctl(PR_SET_DUMPABLE, 0);
}

}  // namespace kelvane::host
