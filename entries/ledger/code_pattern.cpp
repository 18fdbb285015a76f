#include "entries/ledger/code_pattern.h"

#include <array>

#include "data/text_conversion.h"
#include "platform/letter_case.h"

namespace kelvane::entries {

namespace {

constexpr std::string_view kAny = "*";
constexpr std::string_view kWideAny = "＊";

bool IsBeginning(std::string_view pattern) {
    return pattern.ends_with(kAny);
}

std::string_view BeginningOf(std::string_view pattern) {
    return pattern.substr(0, pattern.size() - kAny.size());
}

}  // namespace

std::string AccountOf(std::string_view cell) {
    constexpr std::array<std::string_view, 4> kBlanks{" ", "\t", "\u00A0", "\u3000"};
    for (bool again = true; again;) {
        again = false;
        for (const std::string_view blank : kBlanks) {
            if (cell.starts_with(blank)) {
                cell.remove_prefix(blank.size());
                again = true;
            } else if (cell.ends_with(blank)) {
                cell.remove_suffix(blank.size());
                again = true;
            }
        }
    }
    return std::string(cell);
}

std::string PatternOf(std::string_view cell) {
    std::string pattern = data::Trim(cell);
    for (auto at = pattern.find(kWideAny); at != std::string::npos; at = pattern.find(kWideAny)) {
        pattern.replace(at, kWideAny.size(), kAny);
    }
    return pattern.empty() ? std::string(kAny) : pattern;
}

bool IsPattern(std::string_view pattern) {
    const auto star = pattern.find(kAny);
    return star == std::string_view::npos || star + kAny.size() == pattern.size();
}

bool Covers(std::string_view pattern, std::string_view code) {
    const std::string sought = platform::ComparedText(code);
    if (!IsBeginning(pattern)) return sought == platform::ComparedText(pattern);
    return sought.starts_with(platform::InSmallLetters(BeginningOf(pattern)));
}

bool CoversAll(std::string_view wide, std::string_view narrow) {
    if (!IsBeginning(narrow)) return Covers(wide, narrow);
    return IsBeginning(wide) && Covers(wide, BeginningOf(narrow));
}

bool CoversAll(const MappedAccount& earlier, const MappedAccount& later) {
    return CoversAll(earlier.item, later.item) && CoversAll(earlier.element, later.element) &&
           CoversAll(earlier.center, later.center);
}

}  // namespace kelvane::entries
