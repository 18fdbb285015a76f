#include "adapters/output/layout/readable_text.h"

#include "platform/utf8.h"

namespace kelvane::output {

std::string ReadableUtf8(std::string_view text) {
    std::string readable;
    readable.reserve(text.size());
    while (!text.empty()) {
        const platform::Utf8Character next = platform::FirstCharacter(text);
        const bool shown = next.valid && next.value >= U' ' && next.value != 0x7F;
        readable += shown ? text.substr(0, next.length) : platform::kReplacementText;
        text.remove_prefix(next.length);
    }
    return readable;
}

}  // namespace kelvane::output
