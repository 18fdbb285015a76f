#include "ui/common/wrapped_text.h"

#include <algorithm>

#include "controls/text_width.h"
#include "platform/utf8.h"

namespace kelvane::ui {

namespace {

bool MayEndLine(char32_t character) {
    constexpr std::u32string_view kMarks = U" ，。；：、）”";
    return kMarks.find(character) != std::u32string_view::npos;
}

// How many bytes of `text` go on a line.
std::size_t LineLength(std::string_view text, int twips) {
    std::size_t length = 0;
    std::size_t goodEnd = 0;
    for (std::string_view rest = text; !rest.empty();) {
        const platform::Utf8Character next = platform::TakeCharacter(rest);
        const std::size_t end = text.size() - rest.size();
        if (length > 0 && controls::EstimateTextWidth(text.substr(0, end)) > twips) {
            return goodEnd > length * 2 / 3 ? goodEnd : length;
        }
        length = end;
        if (MayEndLine(next.value)) goodEnd = end;
    }
    return length;
}

}  // namespace

std::vector<std::string> WrapText(std::string_view text, int twips, std::size_t lines) {
    std::vector<std::string> wrapped;
    while (!text.empty() && wrapped.size() < lines) {
        const bool isLast = wrapped.size() + 1 == lines;
        const std::size_t length = isLast ? text.size() : LineLength(text, twips);
        wrapped.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return wrapped;
}

}  // namespace kelvane::ui
