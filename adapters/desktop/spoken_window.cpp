// What reading a drawn window has in common on all systems.
#include "adapters/desktop/spoken_window.h"

namespace kelvane::desktop {

int SpokenSource::PartAt(wxPoint point) {
    const int count = PartCount();
    for (int part = 0; part < count; ++part) {
        if (PlaceOf(part).Contains(point)) return part;
    }
    return kWhole;
}

std::string AllWords(const controls::Spoken& spoken) {
    return NameAndText(spoken) + '\n' + StateAndPlace(spoken) + (spoken.enabled ? "" : "\n-");
}

}  // namespace kelvane::desktop
