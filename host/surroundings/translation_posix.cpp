#include <libintl.h>
#include <locale.h>

#include <cstdlib>
#include <string_view>

#include "host/surroundings/translation.h"
#include "host/surroundings/user_folders.h"

namespace kelvane::host {

namespace {

constexpr const char* kCatalogue = "kelvane";
constexpr const char* kSystemCatalogue = "libc";
constexpr const char* kLetters = "UTF-8";

// The system's language for messages, all else as in the locale "C". It is in force for the moment
// of a look into the catalogue alone: database drivers and toolkits would follow it, too.
locale_t gMessages = nullptr;

const char* Find(const char* catalogue, const char* text) {
    if (gMessages == nullptr) return text;
    const locale_t before = uselocale(gMessages);
    const char* found = dgettext(catalogue, text);
    uselocale(before);
    return found;
}

// English is the language of the sources, which no catalogue is for: what a person wants after it
// must not come before it.
bool WantsEnglish() {
    const char* wanted = std::getenv("LANGUAGE");
    if (wanted == nullptr) return false;
    const std::string_view list = wanted;
    const std::string_view first = list.substr(0, list.find(':'));
    return first == "en" || first.starts_with("en_");
}

}  // namespace

void FollowSystemLanguage() {
    if (gMessages != nullptr || WantsEnglish()) return;
    gMessages = newlocale(LC_MESSAGES_MASK, "", nullptr);
    const auto folder = ProgramFolder().parent_path() / "share" / "locale";
    bindtextdomain(kCatalogue, folder.c_str());
    bind_textdomain_codeset(kCatalogue, kLetters);
    bind_textdomain_codeset(kSystemCatalogue, kLetters);
    // Of a catalogue, the empty text tells its properties. The windows speak Chinese whatever the
    // system does, and say so to the toolkit by the variable that is looked at here, too: who has
    // been English so far stays it.
    if (gMessages == nullptr || *Find(kCatalogue, "") != '\0') return;
    freelocale(gMessages);
    gMessages = nullptr;
}

const char* Translated(const char* text) {
    return *text == '\0' ? text : Find(kCatalogue, text);
}

std::string TranslatedBySystem(const std::string& text) {
    return text.empty() ? text : Find(kSystemCatalogue, text.c_str());
}

}  // namespace kelvane::host
