// Texts of files and names in places that are one line each: a log, a list, a finding.
#pragma once

#include <algorithm>
#include <string>

namespace kelvane::platform {

// `text` with a blank for each control character of ASCII.
inline std::string OneLine(std::string text) {
    constexpr char kBlank = ' ';
    constexpr char kDelete = '\x7f';
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return static_cast<unsigned char>(c) < kBlank || c == kDelete; }, kBlank);
    return text;
}

}  // namespace kelvane::platform
