#include "adapters/tables/gb18030.h"

#include <cstddef>

namespace kelvane::tables {

std::size_t Gb18030Length(std::string_view text) {
    constexpr std::size_t kPair = 2;
    constexpr std::size_t kFour = 4;
    const auto at = [text](std::size_t place) { return static_cast<unsigned char>(text[place]); };
    const auto isLead = [](unsigned char byte) { return byte >= 0x81 && byte <= 0xFE; };
    const auto isDigit = [](unsigned char byte) { return byte >= 0x30 && byte <= 0x39; };
    if (at(0) < 0x80) return 1;
    if (!isLead(at(0))) return 0;
    if (text.size() < kPair) return kPair;
    if (!isDigit(at(1))) return at(1) >= 0x40 && at(1) != 0x7F && at(1) != 0xFF ? kPair : 0;
    if (text.size() > 2 && !isLead(at(2))) return 0;
    if (text.size() > 3 && !isDigit(at(3))) return 0;
    return kFour;
}

}  // namespace kelvane::tables
