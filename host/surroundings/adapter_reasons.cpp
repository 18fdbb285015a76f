#include "host/surroundings/adapter_reasons.h"

#include <algorithm>

#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

// A test holds that the adapters say each of them.
constexpr const char* kReasons[] = {
    ToTranslate("a spreadsheet has no room for so many rows"),
    ToTranslate("it has no file name"),
    ToTranslate("it is a folder"),
    ToTranslate("it is no plain file"),
    ToTranslate("out of memory"),
    ToTranslate("the disk has no more room"),
    ToTranslate("the name must end in one of these"),
    ToTranslate("the screen cannot be opened"),
    ToTranslate("the spreadsheet cannot be begun"),
    ToTranslate("there is no such folder"),
};

std::string TranslatedPart(const std::string& part) {
    const auto* known = std::ranges::find(kReasons, part);
    return known != std::end(kReasons) ? Translated(*known) : TranslatedBySystem(part);
}

}  // namespace

std::string TranslatedReason(std::string_view reason) {
    constexpr std::string_view kColon = ": ";
    std::string translated;
    for (;;) {
        const std::size_t end = reason.find(kColon);
        translated += TranslatedPart(std::string(reason.substr(0, end)));
        if (end == std::string_view::npos) return translated;
        translated += kColon;
        reason.remove_prefix(end + kColon.size());
    }
}

}  // namespace kelvane::host
