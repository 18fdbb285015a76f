// The program's own texts in the language of the system. They stand in the sources in English; the
// catalogues in po/ have them in other languages. What the windows say is Chinese in any of them.
#pragma once

#include <initializer_list>
#include <span>
#include <string>

namespace kelvane::host {

// From here on Translated() answers in the language that the system's settings name for messages
// (LANGUAGE, LC_ALL, LC_MESSAGES, LANG), as far as there is a catalogue for it in share/locale
// beside the program's folder. Nothing else follows them: numbers, dates and all libraries stay as
// they are.
void FollowSystemLanguage();

// A literal in that language; itself where no catalogue has it.
const char* Translated(const char* text);

// What the system's own library says in that language, such as the reason of a std::system_error;
// itself where that has no catalogue for it.
std::string TranslatedBySystem(const std::string& text);

// A literal that is translated where it is used.
constexpr const char* ToTranslate(const char* text) {
    return text;
}

// Translated(`text`), in which %1 stands for the first of `values`, %2 for the second.
inline std::string Told(const char* text, std::initializer_list<std::string> values) {
    const std::span<const std::string> known(values.begin(), values.size());
    std::string told;
    for (const char* at = Translated(text); *at != '\0'; ++at) {
        const auto place = static_cast<std::size_t>(at[1] - '1');
        if (*at == '%' && place < known.size()) {
            told += known[place];
            ++at;
        } else {
            told += *at;
        }
    }
    return told;
}

}  // namespace kelvane::host
