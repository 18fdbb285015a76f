// LineChain: the lines of a batch's file, one JSON object each, of which every one says which line
// of which batch it is, behind which line it stands, and its own checksum. So a line that is
// damaged, missing, in another place or from elsewhere is found.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace kelvane::journal {

using Json = nlohmann::ordered_json;

// What is wrong with a file, in Chinese.
struct Fault {
    std::string text;
};

// No line is longer, so that a damaged file cannot fill the memory.
inline constexpr std::size_t kMaxLineLength = std::size_t{64} << 20U;

class LineChain {
public:
    explicit LineChain(int batch) : mBatch(batch) {}

    // Which line comes next, from 1.
    int NextLine() const { return mLine; }

    // The next line, with the members of `content`; ends in a line break. Throws Fault when it is
    // too long.
    std::string Seal(const Json& content);
    // The same of the text of an object that has any.
    std::string SealText(std::string_view content);

    // How the next line begins: with its place.
    std::string Start() const;

    // The text of the next line, which comes without its line break, without its checksum. Throws
    // Fault when it is another one or damaged.
    std::string Open(std::string_view line);
    // The same as JSON; throws nlohmann::json::exception when it is none.
    static Json Parsed(const std::string& text);

    // Whether `text` ends in a checksum as a whole line does.
    static bool EndsLine(std::string_view text);

    [[noreturn]] void Fail(const std::string& what) const;

private:
    // Throws Fault when `text` does not say that it is the next line.
    void NeedPlace(const std::string& text) const;
    void Advance(std::string_view checksum);

    int mBatch;
    int mLine = 1;
    std::string mPrevious = "00000000";
};

}  // namespace kelvane::journal
