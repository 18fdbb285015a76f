// The Windows build has no catalogues: the program speaks English there.

#include "host/surroundings/translation.h"

namespace kelvane::host {

void FollowSystemLanguage() {}

const char* Translated(const char* text) {
    return text;
}

std::string TranslatedBySystem(const std::string& text) {
    return text;
}

}  // namespace kelvane::host
