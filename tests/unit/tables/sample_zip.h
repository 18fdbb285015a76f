// Archives made by hand, so that they can be as wrong as a test needs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelvane::tables_test {

// A part of an archive, and what the archive says of it where that is not the truth.
struct ZipPart {
    std::string name;
    std::string content;
    bool deflated = true;
    std::optional<std::uint32_t> saidSize = {};
    std::optional<std::uint32_t> saidChecksum = {};
    std::uint16_t flags = 0;
};

std::string MakeZip(const std::vector<ZipPart>& parts);

}  // namespace kelvane::tables_test
