#include "adapters/output/layout/line_breaking.h"

#include "platform/utf8.h"

namespace kelvane::output {

namespace {

constexpr std::u32string_view kClosing = U"，。、；：！？）》〉」』】〕”’…%％℃,.;:!?)]}";
constexpr std::u32string_view kOpening = U"（《〈「『【〔“‘￥¥$([{";

bool IsIn(std::u32string_view set, char32_t character) {
    return set.find(character) != std::u32string_view::npos;
}

// Latin letters and digits, which stay together in words.
bool IsOfWord(char32_t character) {
    return character > U' ' && character < 0x2E80 && character != U'-' && character != U'/' &&
           !(character >= 0x2010 && character <= 0x2027);
}

bool MayBreakBetween(char32_t before, char32_t after) {
    if (after == U' ' || IsIn(kClosing, after) || IsIn(kOpening, before)) return false;
    if (before == U' ') return true;
    return !(IsOfWord(before) && IsOfWord(after)) && !(before == U'-' && IsOfWord(after)) &&
           !(before == U'/' && IsOfWord(after));
}

std::string_view WithoutBlanks(std::string_view line) {
    const std::size_t first = line.find_first_not_of(' ');
    if (first == std::string_view::npos) return line.substr(0, 0);
    return line.substr(first, line.find_last_not_of(' ') - first + 1);
}

// Bytes of the first line of `text`, which does not fit as a whole.
std::size_t FirstLine(std::string_view text, const Letters& letters, int width,
                      TextMeasurer& measurer) {
    std::size_t at = 0;
    std::size_t goodBreak = 0;
    int used = 0;
    char32_t before = 0;
    while (at < text.size()) {
        const platform::Utf8Character next = platform::FirstCharacter(text.substr(at));
        if (at > 0 && MayBreakBetween(before, next.value)) goodBreak = at;
        used += measurer.Width(text.substr(at, next.length), letters);
        // A blank at a line's end needs no room, and the first character takes what it needs.
        if (used > width && next.value != U' ' && at > 0) return goodBreak > 0 ? goodBreak : at;
        before = next.value;
        at += next.length;
    }
    return at;
}

}  // namespace

std::vector<std::string_view> BreakLines(std::string_view text, const Letters& letters, int width,
                                         TextMeasurer& measurer) {
    std::vector<std::string_view> lines;
    while (!text.empty() && measurer.Width(text, letters) > width) {
        const std::size_t end = FirstLine(text, letters, width, measurer);
        lines.push_back(WithoutBlanks(text.substr(0, end)));
        text.remove_prefix(end);
    }
    text = WithoutBlanks(text);
    if (!text.empty() || lines.empty()) lines.push_back(text);
    return lines;
}

}  // namespace kelvane::output
