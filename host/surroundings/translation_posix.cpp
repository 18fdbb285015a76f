#include <libintl.h>
#include <locale.h>

#include "host/surroundings/translation.h"
#include "host/surroundings/user_folders.h"

namespace kelvane::host {

namespace {

constexpr const char* kCatalogue = "kelvane";

// The system's language for messages, all else as in the locale "C". It is in force for the moment
// of a look into the catalogue alone: database drivers and toolkits would follow it, too.
locale_t gMessages = nullptr;

}  // namespace

void FollowSystemLanguage() {
    if (gMessages != nullptr) return;
    gMessages = newlocale(LC_MESSAGES_MASK, "", nullptr);
    const auto folder = ProgramFolder().parent_path() / "share" / "locale";
    bindtextdomain(kCatalogue, folder.c_str());
    bind_textdomain_codeset(kCatalogue, "UTF-8");
}

const char* Translated(const char* text) {
    if (gMessages == nullptr) return text;
    const locale_t before = uselocale(gMessages);
    const char* translated = dgettext(kCatalogue, text);
    uselocale(before);
    return translated;
}

}  // namespace kelvane::host
